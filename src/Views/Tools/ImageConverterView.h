/// The state of the image screen: a picture that is loaded, transformed on request and saved in another
/// format. All that takes long runs in the background; what comes of it is dropped once the state has moved
/// on.
#pragma once

#include "Utilities/ImageConverter.h"
#include "Views/Background.h"
#include "Views/Components/StatusBadge.h"
#include "Views/Services.h"

#include <chrono>
#include <cstddef>
#include <expected>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace korvane {

/// What another program has dropped: files, or else the bytes of a picture.
struct DroppedItems {
    std::vector<std::string> files{};
    std::string data{};
};

struct ImageConverterView {
    /// What is made of the source: it is turned, mirrored and resized, in this order.
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

    /// Where to save.
    struct Destination {
        std::string path{};
        ImageFormat format = ImageFormat::png;

        bool operator==(const Destination&) const = default;
    };

    std::optional<Image> sourceImage{};
    std::optional<std::string> sourceData{}; ///< the file that `sourceImage` was decoded from
    std::optional<Image> processedImage{};
    std::optional<ImageInfo> imageInfo{}; ///< of `sourceData`
    ImageFormat targetFormat = ImageFormat::png;
    double quality = 0.9; ///< from 0.1 to 1
    Rotation rotation = Rotation::none;
    FlipDirection flipDirection = FlipDirection::none;
    int resizeWidth = 0;  ///< in pixels; below 1 the size stays
    int resizeHeight = 0; ///< the same
    bool maintainAspectRatio = true;
    std::optional<std::string> errorMessage{};
    bool isDropTargeted = false;
    std::vector<ImageFormat> formatsWithoutEncoder{}; ///< what this computer cannot write

    std::optional<Image> sourcePreview{};    ///< `sourceImage` in the size and colours of the screen
    std::optional<Image> processedPreview{}; ///< the same of `processedImage`
    std::optional<Transforms> applied{};     ///< of `processedImage`, or of what is being made
    /// What to say of the last saving. Whoever remembers the pointer can tell it from a later one.
    std::shared_ptr<const std::string> savedMessage{};
    std::optional<BackgroundTask> loading{};
    std::optional<BackgroundTask> applying{};
    std::optional<BackgroundTask> saving{};

    /// Chosen while the picture that is to be saved was being made.
    std::optional<Destination> savesAfterApplying{};

    /// How long it is said that a file has been saved.
    static constexpr std::chrono::seconds savedDuration{6};

    /// A larger file is not read: it holds more than the largest picture.
    static constexpr std::size_t maximumFileBytes = ImageConverter::maxBytes;

    /// The longer side of a preview, in pixels: enough for a large screen.
    static constexpr int previewSide = 1600;

    /// Gets the engine ready and learns what it can write, or says why it is missing.
    void appear(const Context<ImageConverterView>& context);

    /// Loads the file that the user chooses.
    void openFilePicker(const Context<ImageConverterView>& context);

    /// Loads what has been dropped: of several files the first that is a picture.
    void handleDrop(DroppedItems items, const Context<ImageConverterView>& context);

    void setDropTargeted(bool targeted) { isDropTargeted = targeted; }

    /// Loads the picture in a file's bytes. Until it is there, and if it cannot be, the one before stays.
    void loadImage(std::string data, const Context<ImageConverterView>& context);

    void setTargetFormat(ImageFormat format) { change(targetFormat, format); }

    void setQuality(double value) { change(quality, value); }

    void setRotation(Rotation value) { change(rotation, value); }

    void setFlipDirection(FlipDirection value) { change(flipDirection, value); }

    void setResizeWidth(int value) { change(resizeWidth, value); }

    void setResizeHeight(int value) { change(resizeHeight, value); }

    void setMaintainAspectRatio(bool maintain) { change(maintainAspectRatio, maintain); }

    /// Makes `processedImage` of the source. A transform that fails is left out.
    void applyTransforms(const Context<ImageConverterView>& context);

    /// Saves the processed picture, or the source while there is none, where the user chooses. What has begun
    /// is finished even if the picture is removed meanwhile.
    void saveImage(const Context<ImageConverterView>& context);

    /// Lets go of the picture; format and transforms stay as they are chosen.
    void remove();

    /// Everything as it was at the start.
    void reset();

    bool hasSource() const { return sourceImage.has_value(); }

    bool hasProcessed() const { return processedImage.has_value(); }

    bool cannotApply() const { return !sourceImage; }

    /// Also while the picture that would be saved is being made.
    bool cannotSave() const { return !sourceImage || applying || saving; }

    /// Whether the transforms that are chosen are others than those of the picture that would be saved.
    bool hasUnappliedChanges() const;

    /// What `hasUnappliedChanges` means for the user; empty where it is false.
    std::string unappliedChangesText() const;

    std::optional<StatusBadge> savedBadge() const;

    /// What this computer lacks to write files of the format, such as "needs libheif-plugin-x265"; empty
    /// where it can.
    std::string missingEncoder(ImageFormat format) const;

    bool showsQuality() const { return supportsQuality(targetFormat); }

    /// The quality in whole percent, such as "90%".
    std::string qualityText() const;

    /// The facts of `imageInfo` as texts, empty without it: such as "1920 × 1280", "JPEG image", "482 KB",
    /// "RGB", "No" and "72".
    std::string dimensionsText() const;
    std::string formatText() const;
    std::string fileSizeText() const;
    std::string colorSpaceText() const;
    std::string alphaText() const;
    std::string resolutionText() const;

    /// That only one of the pictures in the file is read; empty where there are no others.
    std::string firstOfManyText() const;

    bool isFirstOfMany() const { return imageInfo && imageInfo->pictureCount > 1; }

    /// The size of `processedImage`; empty without it.
    std::string processedDimensionsText() const;

    bool isLoading() const { return loading.has_value(); }

    bool isApplying() const { return applying.has_value(); }

    bool isSaving() const { return saving.has_value(); }

    bool operator==(const ImageConverterView&) const = default;

private:
    struct Loaded {
        std::string data{};
        ImageInfo info{};
        Image image{};
        Image preview{};
    };

    struct Processed {
        Image image{};
        Image preview{};
    };

    template <typename T>
    void change(T& field, T value) {
        field = value;
        savedMessage.reset();
    }

    Transforms transforms() const;

    using LoadResult = std::expected<Loaded, std::string>;

    static LoadResult load(std::string data, Images& images, const std::stop_token& stop);
    static LoadResult loadFirst(const std::vector<std::string>& paths, Services& services,
                                const std::stop_token& stop);
    void loadInBackground(DroppedItems items, const Context<ImageConverterView>& context);
    void finishLoading(LoadResult result);
    static std::optional<Processed> transformed(Image image, const Transforms& transforms,
                                                const ImageEngine& engine);
    void finishApplying(std::optional<Processed> result, const Context<ImageConverterView>& context);
    void save(const Destination& destination, const Context<ImageConverterView>& context);
    void finishSaving(const std::string& path, std::size_t size, const Context<ImageConverterView>& context);
};

} // namespace korvane
