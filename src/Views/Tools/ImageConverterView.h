/// The state of the Image Converter screen: a picture that is loaded, transformed on request and saved in
/// another format, all in the background. The possible states are every combination of these:
///
/// - Source: none, or one with its facts. A file may be loading in either case, and then replaces the source.
/// - Processed picture, part of the source: none, or one with the transforms that it was made with.
///   Transforms may be running in either case, possibly with a destination for saving their result.
/// - Saving, with or without a source: idle, writing, or done with its message. Choosing a file is not a
///   state, as a panel does not report that it was cancelled.
#pragma once

#include "Utilities/ImageConverter.h"
#include "Utilities/Images/ImageProcess.h"
#include "Views/Background.h"
#include "Views/Components/StatusBadge.h"
#include "Views/Services.h"

#include <chrono>
#include <cstddef>
#include <expected>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace korvane {

/// Dropped by another program: files, or else the bytes of a picture.
struct DroppedItems {
    std::vector<std::string> files{};
    SharedBytes data{};
};

struct ImageConverterView {
    /// Applied to the source in this order: rotation, flip, resizing.
    struct Transforms {
        struct Resizing {
            ImageSize to{}; ///< at least one pixel
            bool maintainAspectRatio = true;

            bool operator==(const Resizing&) const = default;
        };

        Rotation rotation = Rotation::none;
        FlipDirection flipDirection = FlipDirection::none;
        std::optional<Resizing> resizing{}; ///< none: the size stays

        bool operator==(const Transforms&) const = default;
    };

    struct Destination {
        std::string path{};
        ImageFormat format = ImageFormat::png;

        bool operator==(const Destination&) const = default;
    };

    struct Processed {
        Image image{};
        Image preview{}; ///< `image` in the size and colours of the screen
        Transforms transforms{};

        bool operator==(const Processed&) const = default;
    };

    struct Applying {
        BackgroundTask task{};
        Transforms transforms{};
        std::optional<Destination> destination{}; ///< to save the result to; chosen while `task` ran

        bool operator==(const Applying&) const = default;
    };

    struct Source {
        SharedBytes data{};    ///< the file that `image` was decoded from; nothing reads it yet
        ImageInfo imageInfo{}; ///< of `data`
        Image image{};
        Image preview{}; ///< `image` in the size and colours of the screen
        std::optional<Processed> processed{};
        std::optional<Applying> applying{};

        bool operator==(const Source&) const = default;
    };

    using SavedMessage = std::shared_ptr<const std::string>; ///< its address tells two savings apart
    using Saving = std::variant<std::monostate, BackgroundTask, SavedMessage>; ///< idle, writing, or done

    std::optional<Source> source{};
    std::shared_ptr<ImageProcess> process{}; ///< held from `appear`, so that it runs while the tool is shown
    std::optional<BackgroundTask> starting{};
    std::optional<BackgroundTask> loading{};
    Saving saving{};
    ImageFormat targetFormat = ImageFormat::png;
    double quality = 0.9; ///< from 0.1 to 1
    Rotation rotation = Rotation::none;
    FlipDirection flipDirection = FlipDirection::none;
    int resizeWidth = 0;  ///< in pixels; below 1 the size stays
    int resizeHeight = 0; ///< the same
    bool maintainAspectRatio = true;
    std::optional<std::string> errorMessage{};
    bool isDropTargeted = false;
    std::vector<ImageFormat> formatsWithoutEncoder{}; ///< that this computer cannot write

    /// How long the message about a saved file stays.
    static constexpr std::chrono::seconds savedDuration{6};

    /// Larger files are not read: no picture within the engine's limits needs as much.
    static constexpr std::size_t maxFileBytes = ImageConverter::maxBytes;

    /// The longer side of a preview, in pixels: enough for a large screen.
    static constexpr int previewSide = 1600;

    /// Starts the image process and finds out what it can write, or reports why it cannot run.
    void appear(const Context<ImageConverterView>& context);

    /// Loads the file that the user chooses.
    void openFilePicker(const Context<ImageConverterView>& context);

    /// Loads what was dropped: of several files the first that is a picture.
    void handleDrop(DroppedItems items, const Context<ImageConverterView>& context) {
        isDropTargeted = false;
        loadInBackground(std::move(items), context);
    }

    void setDropTargeted(bool targeted) { isDropTargeted = targeted; }

    /// Loads the picture in a file's bytes. The previous picture stays until then, and if loading fails.
    void loadImage(SharedBytes data, const Context<ImageConverterView>& context) {
        loadInBackground({.data = std::move(data)}, context);
    }

    void setTargetFormat(ImageFormat format) { change(targetFormat, format); }

    void setQuality(double value) { change(quality, value); }

    void setRotation(Rotation value) { change(rotation, value); }

    void setFlipDirection(FlipDirection value) { change(flipDirection, value); }

    void setResizeWidth(int value) { change(resizeWidth, value); }

    void setResizeHeight(int value) { change(resizeHeight, value); }

    void setMaintainAspectRatio(bool maintain) { change(maintainAspectRatio, maintain); }

    /// Makes the processed picture from the source. A transform that fails is skipped, unless it is the image
    /// process that fails, which is reported.
    void applyTransforms(const Context<ImageConverterView>& context);

    /// Saves the processed picture, or the source while there is none, where the user chooses. Writing that
    /// has begun is finished even if the picture is removed meanwhile.
    void saveImage(const Context<ImageConverterView>& context);

    /// Drops the picture; format, quality, rotation and flip stay as they are chosen.
    void remove();

    /// Restores the initial state, but for what is being written.
    void reset();

    const Image* sourceImage() const { return source ? &source->image : nullptr; }

    const Image* processedImage() const { return hasProcessed() ? &source->processed->image : nullptr; }

    std::optional<Image> sourcePreview() const {
        return source ? std::optional(source->preview) : std::nullopt;
    }

    std::optional<Image> processedPreview() const {
        return hasProcessed() ? std::optional(source->processed->preview) : std::nullopt;
    }

    bool hasSource() const { return source.has_value(); }

    bool hasProcessed() const { return source && source->processed; }

    bool cannotApply() const { return !hasSource(); }

    /// Also while the picture that would be saved is being made.
    bool cannotSave() const { return !hasSource() || isApplying() || isSaving(); }

    /// Whether the chosen transforms differ from those of the picture that would be saved.
    bool hasUnappliedChanges() const;

    /// What `hasUnappliedChanges` means for the user; empty where it is false.
    std::string unappliedChangesText() const { return hasUnappliedChanges() ? "Changes not applied" : ""; }

    std::optional<StatusBadge> savedBadge() const;

    /// What this computer lacks to write files of the format, such as "needs libheif-plugin-x265"; empty
    /// where it can.
    std::string missingEncoder(ImageFormat format) const;

    bool showsQuality() const { return supportsQuality(targetFormat); }

    /// The quality in whole percent, such as "90%".
    std::string qualityText() const { return std::to_string(static_cast<int>(quality * 100)) + "%"; }

    /// The source's facts as texts, empty without a source: such as "1920 × 1280", "482 KB", "72", "JPEG
    /// image", "RGB" and "No".
    std::string dimensionsText() const;
    std::string fileSizeText() const;

    std::string resolutionText() const { return source ? std::to_string(source->imageInfo.dpi) : ""; }

    std::string formatText() const { return source ? source->imageInfo.format : ""; }

    std::string colorSpaceText() const { return source ? source->imageInfo.colorSpace : ""; }

    std::string alphaText() const { return !source ? "" : source->imageInfo.hasAlpha ? "Yes" : "No"; }

    /// That only one of the pictures in the file is read; empty where there are no others.
    std::string firstOfManyText() const;

    bool isFirstOfMany() const { return source && source->imageInfo.pictureCount > 1; }

    /// The size of `processedImage`; empty without it.
    std::string processedDimensionsText() const;

    bool isLoading() const { return loading.has_value(); }

    bool isApplying() const { return source && source->applying; }

    bool isSaving() const { return std::holds_alternative<BackgroundTask>(saving); }

    bool operator==(const ImageConverterView&) const = default;

private:
    template <typename T>
    void change(T& field, T value) {
        field = value;
        dropSavedMessage();
    }

    void dropSavedMessage();
    Transforms transforms() const;
    void loadInBackground(DroppedItems items, const Context<ImageConverterView>& context);
    void finishLoading(std::expected<Source, std::string> result);
    void finishStarting(std::expected<ImageCodecs, ConversionError> codecs);
    void finishApplying(std::expected<std::optional<Processed>, ConversionError> result,
                        const Context<ImageConverterView>& context);
    void save(const Destination& destination, const Context<ImageConverterView>& context);
    void showSaved(const std::string& path, std::size_t size, const Context<ImageConverterView>& context);
};

} // namespace korvane
