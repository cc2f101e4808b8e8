#include "Views/Tools/ImageConverterView.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <functional>
#include <iterator>
#include <string_view>
#include <utility>

namespace korvane {

namespace {

using LocalContext = Context<ImageConverterView>;

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

/// The text in units of a thousand, with as many digits as tell it apart.
std::string byteCountText(std::int64_t bytes) {
    if (bytes < 1000)
        return fmt::format("{} bytes", bytes);
    constexpr auto units = std::to_array<std::string_view>({"KB", "MB", "GB"});
    double amount = static_cast<double>(bytes) / 1000;
    std::size_t unit = 0;
    for (; amount >= 999.5 && unit + 1 < units.size(); ++unit)
        amount /= 1000;
    return unit == 0 || amount >= 99.95 ? fmt::format("{:.0f} {}", amount, units[unit])
                                        : fmt::format("{:.1f} {}", amount, units[unit]);
}

/// What a codec that this computer lacks takes, which is a Debian package where one is known.
std::string codecNeed(std::string_view package) {
    return package.empty() ? "codec missing" : fmt::format("needs {}", package);
}

std::string sizeText(int width, int height) {
    return fmt::format("{} × {}", width, height);
}

/// What a transform makes of `image`, which stays as it is where the transform fails.
Image kept(Image image, std::expected<Image, ConversionError> result) {
    return result ? *std::move(result) : std::move(image);
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
        context.update([&](ImageConverterView& state) {
            state.loadInBackground({.files = {std::move(path)}}, context);
        });
    });
}

void ImageConverterView::handleDrop(DroppedItems items, const LocalContext& context) {
    isDropTargeted = false;
    loadInBackground(std::move(items), context);
}

void ImageConverterView::loadImage(std::string data, const LocalContext& context) {
    loadInBackground({.data = std::move(data)}, context);
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

ImageConverterView::LoadResult ImageConverterView::load(std::string data, Images& images,
                                                        const std::stop_token& stop) {
    const auto engine = images.engine();
    if (!engine)
        return std::unexpected(engine.error());
    const auto& operations = **engine;
    const auto failure = [](ConversionError error) {
        return std::unexpected(std::string(errorDescription(error)));
    };
    if (const auto format = operations.formatOf(data); format && !operations.canDecode(*format))
        return std::unexpected(fmt::format("{} cannot be read on this computer ({})", rawValue(*format),
                                           codecNeed(factsOf(*format).decoderPackage)));
    auto image = operations.decode(data, stop);
    if (!image)
        return failure(image.error());
    auto info = operations.getImageInfo(data);
    auto preview = operations.preview(*image, previewSide);
    if (!info || !preview)
        return failure(ConversionError::invalidImage);
    return Loaded{std::move(data), *std::move(info), *std::move(image), *std::move(preview)};
}

ImageConverterView::LoadResult ImageConverterView::loadFirst(const std::vector<std::string>& paths,
                                                             Services& services,
                                                             const std::stop_token& stop) {
    LoadResult first = std::unexpected(std::string());
    for (const auto& path : paths) {
        auto data = services.files.read(path, maximumFileBytes);
        auto result = data ? load(*std::move(data), services.images, stop)
                           : LoadResult(std::unexpected(std::move(data.error())));
        if (result)
            return result;
        if (first.error().empty())
            first = std::move(result);
    }
    return first;
}

void ImageConverterView::finishLoading(LoadResult result) {
    if (!result) {
        errorMessage = fmt::format("Failed to load image: {}", result.error());
        return;
    }
    remove();
    sourceData = std::move(result->data);
    sourceImage = std::move(result->image);
    sourcePreview = std::move(result->preview);
    resizeWidth = result->info.width;
    resizeHeight = result->info.height;
    imageInfo = std::move(result->info);
}

ImageConverterView::Transforms ImageConverterView::transforms() const {
    Transforms chosen{.rotation = rotation, .flipDirection = flipDirection};
    if (resizeWidth >= 1 && resizeHeight >= 1)
        chosen.resizing = {.to = {resizeWidth, resizeHeight}, .maintainAspectRatio = maintainAspectRatio};
    return chosen;
}

std::optional<ImageConverterView::Processed>
ImageConverterView::transformed(Image image, const Transforms& transforms, const ImageEngine& engine) {
    if (transforms.rotation != Rotation::none)
        image = kept(image, engine.rotate(image, transforms.rotation));
    if (transforms.flipDirection != FlipDirection::none)
        image = kept(image, engine.flip(image, transforms.flipDirection));
    if (const auto& resizing = transforms.resizing)
        image = kept(image, engine.resize(image, resizing->to, resizing->maintainAspectRatio));
    auto preview = engine.preview(image, previewSide);
    if (!preview)
        return std::nullopt;
    return Processed{std::move(image), *std::move(preview)};
}

void ImageConverterView::applyTransforms(const LocalContext& context) {
    if (!sourceImage)
        return;
    errorMessage.reset();
    savedMessage.reset();
    const auto engine = context.services.images.engine();
    if (!engine) {
        errorMessage = engine.error();
        return;
    }
    applied = transforms();
    runInBackground(
        context, *this, &ImageConverterView::applying,
        [&operations = **engine, image = *sourceImage, chosen = *applied](const std::stop_token&) mutable {
            return transformed(std::move(image), chosen, operations);
        },
        [context](ImageConverterView& state, std::optional<Processed> result) {
            state.finishApplying(std::move(result), context);
        });
}

void ImageConverterView::finishApplying(std::optional<Processed> result, const LocalContext& context) {
    if (result) { // else there is no memory even for a small picture
        processedImage = std::move(result->image);
        processedPreview = std::move(result->preview);
    }
    if (const auto destination = std::exchange(savesAfterApplying, std::nullopt))
        save(*destination, context);
}

bool ImageConverterView::hasUnappliedChanges() const {
    if (!sourceImage)
        return false;
    const auto chosen = transforms();
    if (applied)
        return chosen != *applied;
    const ImageSize sourceSize{sourceImage->width, sourceImage->height};
    const bool keepsSize = !chosen.resizing || chosen.resizing->to == sourceSize;
    return chosen.rotation != Rotation::none || chosen.flipDirection != FlipDirection::none || !keepsSize;
}

std::string ImageConverterView::unappliedChangesText() const {
    return hasUnappliedChanges() ? "Changes not applied" : "";
}

void ImageConverterView::saveImage(const LocalContext& context) {
    if (cannotSave())
        return;
    context.services.panels.save(
        kindOf(targetFormat), fmt::format("converted.{}", fileExtension(targetFormat)),
        [context, format = targetFormat](const std::string& path) {
            context.update([&](ImageConverterView& state) { state.save({path, format}, context); });
        });
}

void ImageConverterView::save(const Destination& destination, const LocalContext& context) {
    if (applying)
        savesAfterApplying = destination;
    if (cannotSave())
        return;
    errorMessage.reset();
    savedMessage.reset();
    using Result = std::expected<std::size_t, std::string>;
    runInBackground(
        context, *this, &ImageConverterView::saving,
        [image = processedImage.value_or(*sourceImage), quality = quality, destination,
         &services = context.services](const std::stop_token&) -> Result {
            const auto engine = services.images.engine();
            if (!engine)
                return std::unexpected(engine.error());
            const auto bytes = (*engine)->convert(image, destination.format, quality);
            if (!bytes)
                return std::unexpected(std::string(errorDescription(bytes.error())));
            const auto written = services.files.write(destination.path, *bytes);
            if (!written)
                return std::unexpected(written.error());
            return bytes->size();
        },
        [path = destination.path, context](ImageConverterView& state, const Result& result) {
            if (result)
                state.finishSaving(path, *result, context);
            else
                state.errorMessage = fmt::format("Failed to save: {}", result.error());
        });
}

void ImageConverterView::finishSaving(const std::string& path, std::size_t size,
                                      const LocalContext& context) {
    const auto name = std::string_view(path).substr(path.rfind('/') + 1);
    savedMessage = std::make_shared<const std::string>(
        fmt::format("Saved {} ({})", name, byteCountText(static_cast<std::int64_t>(size))));
    context.services.timers.after(savedDuration,
                                  [update = context.update, shown = std::weak_ptr(savedMessage)] {
                                      update([&](ImageConverterView& state) {
                                          if (state.savedMessage == shown.lock())
                                              state.savedMessage.reset();
                                      });
                                  });
}

std::optional<StatusBadge> ImageConverterView::savedBadge() const {
    return savedMessage ? std::optional(StatusBadge{Status::success, *savedMessage}) : std::nullopt;
}

void ImageConverterView::remove() {
    auto fresh = ImageConverterView{.targetFormat = targetFormat,
                                    .quality = quality,
                                    .rotation = rotation,
                                    .flipDirection = flipDirection,
                                    .maintainAspectRatio = maintainAspectRatio,
                                    .isDropTargeted = isDropTargeted,
                                    .formatsWithoutEncoder = formatsWithoutEncoder,
                                    .saving = saving};
    *this = std::move(fresh);
}

void ImageConverterView::reset() {
    *this = ImageConverterView{.formatsWithoutEncoder = formatsWithoutEncoder, .saving = saving};
}

std::string ImageConverterView::missingEncoder(ImageFormat format) const {
    const bool isMissing = std::ranges::count(formatsWithoutEncoder, format) > 0;
    return isMissing ? codecNeed(factsOf(format).encoderPackage) : std::string();
}

std::string ImageConverterView::qualityText() const {
    return fmt::format("{}%", static_cast<int>(quality * 100));
}

std::string ImageConverterView::dimensionsText() const {
    return imageInfo ? sizeText(imageInfo->width, imageInfo->height) : std::string();
}

std::string ImageConverterView::formatText() const {
    return imageInfo ? imageInfo->format : std::string();
}

std::string ImageConverterView::fileSizeText() const {
    return imageInfo ? byteCountText(imageInfo->fileSize) : std::string();
}

std::string ImageConverterView::colorSpaceText() const {
    return imageInfo ? imageInfo->colorSpace : std::string();
}

std::string ImageConverterView::alphaText() const {
    return !imageInfo ? std::string() : imageInfo->hasAlpha ? "Yes" : "No";
}

std::string ImageConverterView::resolutionText() const {
    return imageInfo ? fmt::format("{}", imageInfo->dpi) : std::string();
}

std::string ImageConverterView::firstOfManyText() const {
    return isFirstOfMany() ? fmt::format("The first of {} pictures in the file", imageInfo->pictureCount)
                           : std::string();
}

std::string ImageConverterView::processedDimensionsText() const {
    return processedImage ? sizeText(processedImage->width, processedImage->height) : std::string();
}

} // namespace korvane
