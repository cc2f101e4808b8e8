#include "Views/Tools/ImageConverterView.h"

#include "Utilities/Text/ByteCount.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <functional>
#include <iterator>
#include <string_view>
#include <utility>

namespace korvane {

namespace {

using View = ImageConverterView;
using LocalContext = Context<View>;
using LoadResult = std::expected<View::Source, std::string>;
using TransformResult = std::expected<std::optional<View::Processed>, ConversionError>;
using WriteResult = std::expected<std::size_t, std::string>;

/// The extensions that files of the format have, the usual one first.
std::vector<std::string> extensions(ImageFormat format) {
    std::vector<std::string> result{std::string(fileExtension(format))};
    if (format == ImageFormat::jpeg)
        result.emplace_back("jpeg");
    if (format == ImageFormat::tiff)
        result.emplace_back("tif");
    if (format == ImageFormat::heic)
        result.emplace_back("heif");
    return result;
}

FileKind anyImage() {
    FileKind kind{.name = "Images"};
    for (const auto format : allCases<ImageFormat>)
        std::ranges::copy(extensions(format), std::back_inserter(kind.extensions));
    return kind;
}

FileKind kindOf(ImageFormat format) {
    return {.name = std::string(description(format)),
            .extensions = extensions(format),
            .otherExtensions = anyImage().extensions};
}

/// How to get a codec that this computer lacks: by its Debian package, where one is known.
std::string missingCodecText(std::string_view package) {
    return package.empty() ? "codec missing" : fmt::format("needs {}", package);
}

std::string sizeText(int width, int height) {
    return fmt::format("{} × {}", width, height);
}

LoadResult failure(ConversionError error) {
    return std::unexpected(std::string(errorDescription(error)));
}

LoadResult load(SharedBytes data, ImageProcess& process, const std::stop_token& stop) {
    const auto codecs = process.codecs(stop);
    if (!codecs)
        return failure(codecs.error());
    const auto format = process.formatOf(data, stop);
    if (!format)
        return failure(format.error());
    if (!codecs->canDecode(*format))
        return std::unexpected(fmt::format("{} cannot be read on this computer ({})", rawValue(*format),
                                           missingCodecText(factsOf(*format).decoderPackage)));
    auto image = process.decode(data, stop);
    if (!image)
        return failure(image.error());
    auto info = process.getImageInfo(data, stop);
    if (!info)
        return failure(info.error());
    auto preview = process.preview(*image, View::previewSide, stop);
    if (!preview)
        return failure(preview.error());
    return View::Source{std::move(data), *std::move(info), *std::move(image), *std::move(preview)};
}

/// The first picture among the files, or the failure of the first file.
LoadResult loadFirst(const std::vector<std::string>& paths, const Files& files, ImageProcess& process,
                     const std::stop_token& stop) {
    LoadResult first = std::unexpected(std::string());
    for (const auto& path : paths) {
        auto data = files.read(path, View::maxFileBytes);
        auto result = data ? load(*std::move(data), process, stop)
                           : LoadResult(std::unexpected(std::move(data.error())));
        if (result)
            return result;
        if (first.error().empty())
            first = std::move(result);
    }
    return first;
}

/// Replaces `image` by the result of a transform; it stays where the transform failed. Returns the error of
/// the image process, if that failed.
std::optional<ConversionError> take(Image& image, std::expected<Image, ConversionError> result) {
    if (!result)
        return isAboutProcess(result.error()) ? std::optional(result.error()) : std::nullopt;
    image = *std::move(result);
    return std::nullopt;
}

/// None where not even a preview can be made.
TransformResult transformed(Image image, const View::Transforms& transforms, ImageProcess& process,
                            const std::stop_token& stop) {
    if (const auto failed = take(image, process.rotate(image, transforms.rotation, stop)))
        return std::unexpected(*failed);
    if (const auto failed = take(image, process.flip(image, transforms.flipDirection, stop)))
        return std::unexpected(*failed);
    if (const auto& resizing = transforms.resizing) {
        auto resized = process.resize(image, resizing->to, resizing->maintainAspectRatio, stop);
        if (const auto failed = take(image, std::move(resized)))
            return std::unexpected(*failed);
    }
    auto preview = process.preview(image, View::previewSide, stop);
    if (preview)
        return View::Processed{std::move(image), *std::move(preview), transforms};
    if (isAboutProcess(preview.error()))
        return std::unexpected(preview.error());
    return std::nullopt;
}

/// The size of the file that was written, or why it was not. Not cancelled: a file that is being saved is
/// wanted even when the screen is left.
WriteResult write(const Image& image, double quality, const View::Destination& destination, Files& files,
                  ImageProcess& process) {
    const auto bytes = process.convert(image, destination.format, quality);
    if (!bytes)
        return std::unexpected(std::string(errorDescription(bytes.error())));
    if (const auto written = files.write(destination.path, *bytes); !written)
        return std::unexpected(written.error());
    return bytes->size();
}

} // namespace

void ImageConverterView::appear(const LocalContext& context) {
    process = context.services.images.process();
    runInBackground(
        context, *this, &ImageConverterView::starting,
        [running = process](const std::stop_token& stop) { return running->codecs(stop); },
        &ImageConverterView::finishStarting);
}

void ImageConverterView::finishStarting(std::expected<ImageCodecs, ConversionError> codecs) {
    if (!codecs) {
        errorMessage = errorDescription(codecs.error());
        return;
    }
    formatsWithoutEncoder.clear();
    std::ranges::copy_if(allCases<ImageFormat>, std::back_inserter(formatsWithoutEncoder),
                         [&](ImageFormat format) { return !codecs->canEncode(format); });
}

void ImageConverterView::openFilePicker(const LocalContext& context) {
    context.services.panels.open(anyImage(), [context](std::string path) {
        context.update([&](View& state) { state.loadInBackground({.files = {std::move(path)}}, context); });
    });
}

void ImageConverterView::loadInBackground(DroppedItems items, const LocalContext& context) {
    runInBackground(
        context, *this, &ImageConverterView::loading,
        [items = std::move(items), &files = context.services.files,
         running = context.services.images.process()](const std::stop_token& stop) mutable {
            return items.files.empty() ? load(std::move(items.data), *running, stop)
                                       : loadFirst(items.files, files, *running, stop);
        },
        &ImageConverterView::finishLoading);
}

void ImageConverterView::finishLoading(LoadResult result) {
    if (!result) {
        errorMessage = fmt::format("Failed to load image: {}", result.error());
        return;
    }
    remove();
    resizeWidth = result->imageInfo.width;
    resizeHeight = result->imageInfo.height;
    source = *std::move(result);
}

ImageConverterView::Transforms ImageConverterView::transforms() const {
    Transforms chosen{.rotation = rotation, .flipDirection = flipDirection};
    if (resizeWidth >= 1 && resizeHeight >= 1)
        chosen.resizing = {.to = {resizeWidth, resizeHeight}, .maintainAspectRatio = maintainAspectRatio};
    return chosen;
}

void ImageConverterView::applyTransforms(const LocalContext& context) {
    if (!source)
        return;
    errorMessage.reset();
    dropSavedMessage();
    const auto previous = std::exchange(source->applying, Applying{.transforms = transforms()});
    if (previous) // the new result is saved instead
        source->applying->destination = previous->destination;
    runTask(
        context, source->applying->task,
        [](const View& state) { return state.isApplying() ? &state.source->applying->task : nullptr; },
        [running = context.services.images.process(), image = source->image,
         chosen = source->applying->transforms](const std::stop_token& stop) mutable {
            return transformed(std::move(image), chosen, *running, stop);
        },
        [context](View& state, auto result) { state.finishApplying(std::move(result), context); });
}

void ImageConverterView::finishApplying(TransformResult result, const LocalContext& context) {
    const auto finished = std::exchange(source->applying, std::nullopt);
    if (!result) { // the picture that was to be saved does not exist
        errorMessage = fmt::format("Failed to apply transforms: {}", errorDescription(result.error()));
        return;
    }
    if (*result)
        source->processed = *std::move(result);
    if (finished->destination)
        save(*finished->destination, context);
}

bool ImageConverterView::hasUnappliedChanges() const {
    if (!source)
        return false;
    const auto chosen = transforms();
    if (source->applying)
        return chosen != source->applying->transforms;
    if (source->processed)
        return chosen != source->processed->transforms;
    const ImageSize sourceSize{source->image.width, source->image.height};
    const bool keepsSize = !chosen.resizing || chosen.resizing->to == sourceSize;
    return chosen.rotation != Rotation::none || chosen.flipDirection != FlipDirection::none || !keepsSize;
}

void ImageConverterView::saveImage(const LocalContext& context) {
    if (cannotSave())
        return;
    context.services.panels.save(
        kindOf(targetFormat), fmt::format("converted.{}", fileExtension(targetFormat)),
        [context, format = targetFormat](const std::string& path) {
            context.update([&](View& state) { state.save({path, format}, context); });
        });
}

void ImageConverterView::save(const Destination& destination, const LocalContext& context) {
    if (isApplying())
        source->applying->destination = destination;
    if (cannotSave())
        return;
    errorMessage.reset();
    runTask(
        context, saving.emplace<BackgroundTask>(),
        [](const View& state) { return std::get_if<BackgroundTask>(&state.saving); },
        [image = hasProcessed() ? *processedImage() : *sourceImage(), quality = quality, destination,
         &files = context.services.files, running = context.services.images.process()](
            const std::stop_token&) { return write(image, quality, destination, files, *running); },
        [path = destination.path, context](View& state, const WriteResult& size) {
            state.saving = std::monostate();
            if (size)
                state.showSaved(path, *size, context);
            else
                state.errorMessage = fmt::format("Failed to save: {}", size.error());
        });
}

void ImageConverterView::showSaved(const std::string& path, std::size_t size, const LocalContext& context) {
    const auto name = std::string_view(path).substr(path.rfind('/') + 1);
    const auto message = std::make_shared<const std::string>(
        fmt::format("Saved {} ({})", name, byteCountText(static_cast<std::int64_t>(size))));
    saving = message;
    const auto expire = [shown = std::weak_ptr(message)](View& state) {
        if (state.saving == Saving(shown.lock()))
            state.saving = std::monostate();
    };
    context.services.timers.after(savedDuration, [update = context.update, expire] { update(expire); });
}

void ImageConverterView::dropSavedMessage() {
    if (std::holds_alternative<SavedMessage>(saving))
        saving = std::monostate();
}

std::optional<StatusBadge> ImageConverterView::savedBadge() const {
    const auto* message = std::get_if<SavedMessage>(&saving);
    return message ? std::optional(StatusBadge{Status::success, **message}) : std::nullopt;
}

void ImageConverterView::remove() {
    source.reset();
    loading.reset();
    resizeWidth = resizeHeight = 0;
    errorMessage.reset();
    dropSavedMessage();
}

void ImageConverterView::reset() {
    dropSavedMessage();
    *this = {.process = process,
             .starting = starting,
             .saving = saving,
             .formatsWithoutEncoder = formatsWithoutEncoder};
}

std::string ImageConverterView::missingEncoder(ImageFormat format) const {
    const bool isMissing = std::ranges::count(formatsWithoutEncoder, format) > 0;
    return isMissing ? missingCodecText(factsOf(format).encoderPackage) : std::string();
}

std::string ImageConverterView::dimensionsText() const {
    return source ? sizeText(source->imageInfo.width, source->imageInfo.height) : std::string();
}

std::string ImageConverterView::fileSizeText() const {
    return source ? byteCountText(source->imageInfo.fileSize) : std::string();
}

std::string ImageConverterView::firstOfManyText() const {
    if (!isFirstOfMany())
        return {};
    return fmt::format("The first of {} pictures in the file", source->imageInfo.pictureCount);
}

std::string ImageConverterView::processedDimensionsText() const {
    const auto* image = processedImage();
    return image ? sizeText(image->width, image->height) : std::string();
}

} // namespace korvane
