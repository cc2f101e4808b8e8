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

LoadResult load(std::string data, Images& images, const std::stop_token& stop) {
    const auto engine = images.engine();
    if (!engine)
        return std::unexpected(engine.error());
    const auto& operations = **engine;
    if (const auto format = operations.formatOf(data); format && !operations.canDecode(*format))
        return std::unexpected(fmt::format("{} cannot be read on this computer ({})", rawValue(*format),
                                           missingCodecText(factsOf(*format).decoderPackage)));
    auto image = operations.decode(data, stop);
    if (!image)
        return std::unexpected(std::string(errorDescription(image.error())));
    auto info = operations.getImageInfo(data);
    auto preview = operations.preview(*image, View::previewSide);
    if (!info || !preview)
        return std::unexpected(std::string(errorDescription(ConversionError::invalidImage)));
    return View::Source{std::move(data), *std::move(info), *std::move(image), *std::move(preview)};
}

/// The first picture among the files, or the failure of the first file.
LoadResult loadFirst(const std::vector<std::string>& paths, Services& services, const std::stop_token& stop) {
    LoadResult first = std::unexpected(std::string());
    for (const auto& path : paths) {
        auto data = services.files.read(path, View::maxFileBytes);
        auto result = data ? load(*std::move(data), services.images, stop)
                           : LoadResult(std::unexpected(std::move(data.error())));
        if (result)
            return result;
        if (first.error().empty())
            first = std::move(result);
    }
    return first;
}

/// The result of a transform of `image`, or `image` itself where the transform failed.
Image resultOr(Image image, std::expected<Image, ConversionError> result) {
    return result ? *std::move(result) : std::move(image);
}

/// None where memory does not suffice even for a preview.
std::optional<View::Processed> transformed(Image image, const View::Transforms& transforms,
                                           const ImageEngine& engine) {
    if (transforms.rotation != Rotation::none)
        image = resultOr(image, engine.rotate(image, transforms.rotation));
    if (transforms.flipDirection != FlipDirection::none)
        image = resultOr(image, engine.flip(image, transforms.flipDirection));
    if (const auto& resizing = transforms.resizing)
        image = resultOr(image, engine.resize(image, resizing->to, resizing->maintainAspectRatio));
    auto preview = engine.preview(image, View::previewSide);
    if (!preview)
        return std::nullopt;
    return View::Processed{std::move(image), *std::move(preview), transforms};
}

/// The size of the file that was written, or why it was not.
WriteResult write(const Image& image, double quality, const View::Destination& destination,
                  Services& services) {
    const auto engine = services.images.engine();
    if (!engine)
        return std::unexpected(engine.error());
    const auto bytes = (*engine)->convert(image, destination.format, quality);
    if (!bytes)
        return std::unexpected(std::string(errorDescription(bytes.error())));
    if (const auto written = services.files.write(destination.path, *bytes); !written)
        return std::unexpected(written.error());
    return bytes->size();
}

} // namespace

void ImageConverterView::appear(const LocalContext& context) {
    const auto engine = context.services.images.engine();
    if (!engine) {
        errorMessage = engine.error();
        return;
    }
    std::ranges::copy_if(allCases<ImageFormat>, std::back_inserter(formatsWithoutEncoder),
                         std::not_fn((*engine)->canEncode));
}

void ImageConverterView::openFilePicker(const LocalContext& context) {
    context.services.panels.open(anyImage(), [context](std::string path) {
        context.update([&](View& state) { state.loadInBackground({.files = {std::move(path)}}, context); });
    });
}

void ImageConverterView::loadInBackground(DroppedItems items, const LocalContext& context) {
    runInBackground(
        context, *this, &ImageConverterView::loading,
        [items = std::move(items), &services = context.services](const std::stop_token& stop) mutable {
            return items.files.empty() ? load(std::move(items.data), services.images, stop)
                                       : loadFirst(items.files, services, stop);
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
    const auto engine = context.services.images.engine();
    if (!engine) {
        errorMessage = engine.error();
        return;
    }
    const auto previous = std::exchange(source->applying, Applying{.transforms = transforms()});
    if (previous) // the new result is saved instead
        source->applying->destination = previous->destination;
    runTask(
        context, source->applying->task,
        [](const View& state) { return state.isApplying() ? &state.source->applying->task : nullptr; },
        [&operations = **engine, image = source->image, chosen = source->applying->transforms](
            const std::stop_token&) mutable { return transformed(std::move(image), chosen, operations); },
        [context](View& state, auto result) { state.finishApplying(std::move(result), context); });
}

void ImageConverterView::finishApplying(std::optional<Processed> result, const LocalContext& context) {
    const auto finished = std::exchange(source->applying, std::nullopt);
    if (result)
        source->processed = std::move(result);
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
         &services = context.services](const std::stop_token&) {
            return write(image, quality, destination, services);
        },
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
    *this = {.saving = saving, .formatsWithoutEncoder = formatsWithoutEncoder};
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
