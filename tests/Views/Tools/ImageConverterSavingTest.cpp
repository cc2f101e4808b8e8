/// Saving, and the messages about it.

#include "support/ImageConverterViewTest.h"

#include <chrono>
#include <iterator>
#include <string>
#include <utility>

namespace korvane {
namespace {

using support::haveSamePixels;

TEST_F(ImageConverterViewTest, ProposesANameForEachFormat) {
    load();
    for (const auto& [format, name] : {std::pair{ImageFormat::png, "converted.png"},
                                       {ImageFormat::jpeg, "converted.jpg"},
                                       {ImageFormat::tiff, "converted.tiff"},
                                       {ImageFormat::gif, "converted.gif"},
                                       {ImageFormat::bmp, "converted.bmp"},
                                       {ImageFormat::heic, "converted.heic"}}) {
        state->setTargetFormat(format);
        state->saveImage(context);
        EXPECT_EQ(fakes.panels.proposedName, name);
        EXPECT_EQ(fakes.panels.kind.extensions.front(), fileExtension(format));
    }
}

TEST_F(ImageConverterViewTest, SavesTheProcessedPictureOrElseTheSource) {
    load();
    saveAs("/source.png");
    EXPECT_TRUE(haveSamePixels(decoded(fakes.files.contents["/source.png"]), picture));
    state->setRotation(Rotation::degrees90);
    apply();
    saveAs("/turned.png");
    EXPECT_TRUE(haveSamePixels(decoded(fakes.files.contents["/turned.png"]), *state->processedImage()));
    EXPECT_EQ(state->errorMessage, std::nullopt);
}

TEST_F(ImageConverterViewTest, SavesInTheChosenFormatAndQuality) {
    load();
    state->setTargetFormat(ImageFormat::jpeg);
    saveAs("/good.jpg");
    state->setQuality(0.1);
    saveAs("/small.jpg");
    EXPECT_EQ(imageProcess().formatOf(SharedBytes::copyOf(fakes.files.contents["/good.jpg"])),
              ImageFormat::jpeg);
    EXPECT_LT(fakes.files.contents["/small.jpg"].size(), fakes.files.contents["/good.jpg"].size());
}

TEST_F(ImageConverterViewTest, TheExtensionFollowsTheFormat) {
    struct Row {
        ImageFormat format;
        std::string chosen;
        std::string written;
    };

    const Row rows[] = {
        {ImageFormat::jpeg, "/folder.old/picture", "/folder.old/picture.jpg"},
        {ImageFormat::jpeg, "/folder.png/picture", "/folder.png/picture.jpg"},
        {ImageFormat::jpeg, "/picture.jpeg", "/picture.jpeg"},
        {ImageFormat::jpeg, "/picture.JPG", "/picture.JPG"},
        {ImageFormat::jpeg, "/wrong.png", "/wrong.jpg"},
        {ImageFormat::jpeg, "/wrong.Heif", "/wrong.jpg"},
        {ImageFormat::jpeg, "/photo v1.2", "/photo v1.2.jpg"},
        {ImageFormat::jpeg, "/photo.", "/photo..jpg"},
        {ImageFormat::jpeg, "/.png", "/.png.jpg"},
        {ImageFormat::tiff, "/scan.tif", "/scan.tif"},
        {ImageFormat::heic, "/photo.heif", "/photo.heif"},
        {ImageFormat::png, "/Übersicht.jpeg", "/Übersicht.png"},
        {ImageFormat::png, "relative", "relative.png"},
    };
    load();
    for (const auto& row : rows) {
        fakes.files.contents.clear();
        state->setTargetFormat(row.format);
        saveAs(row.chosen);
        ASSERT_EQ(fakes.files.contents.size(), 1);
        EXPECT_EQ(fakes.files.contents.begin()->first, row.written);
    }
}

TEST_F(ImageConverterViewTest, NothingIsSavedWhileTheTransformsAreApplied) {
    load();
    state->setRotation(Rotation::degrees90);
    state->applyTransforms(context);
    EXPECT_TRUE(state->cannotSave());
    fakes.panels.choose = nullptr;
    state->saveImage(context);
    EXPECT_FALSE(fakes.panels.choose) << "no panel opens";
    fakes.background.runAll();
    EXPECT_FALSE(state->cannotSave());
}

TEST_F(ImageConverterViewTest, APathChosenWhileTransformsAreAppliedReceivesTheirResult) {
    load();
    state->setRotation(Rotation::degrees90);
    state->saveImage(context);
    state->applyTransforms(context);
    fakes.panels.choose("/turned.png");
    EXPECT_TRUE(fakes.files.contents.empty());
    fakes.background.runAll();
    EXPECT_TRUE(haveSamePixels(decoded(fakes.files.contents["/turned.png"]), *state->processedImage()));
    apply();
    EXPECT_EQ(fakes.files.contents.size(), 1) << "saved only once";
}

TEST_F(ImageConverterViewTest, ShowsTheSavedFileForSixSeconds) {
    load();
    EXPECT_EQ(state->savedBadge(), std::nullopt);
    saveAs("/folder/Über uns.png");
    const auto size = fakes.files.contents["/folder/Über uns.png"].size();
    ASSERT_GT(size, 1000);
    EXPECT_EQ(state->savedBadge(),
              (StatusBadge{Status::success,
                           "Saved Über uns.png (" + std::to_string((size + 500) / 1000) + " KB)"}));
    fakes.timers.advance(std::chrono::milliseconds(5999));
    EXPECT_TRUE(state->savedBadge());
    fakes.timers.advance(std::chrono::milliseconds(1));
    EXPECT_FALSE(state->savedBadge());
}

TEST_F(ImageConverterViewTest, ALaterSaveIsShownForItsOwnSixSeconds) {
    load();
    saveAs("/one.png");
    fakes.timers.advance(std::chrono::seconds(4));
    saveAs("/two.png");
    fakes.timers.advance(std::chrono::seconds(4));
    ASSERT_TRUE(state->savedBadge());
    EXPECT_TRUE(state->savedBadge()->message.starts_with("Saved two.png"));
    fakes.timers.advance(std::chrono::seconds(2));
    EXPECT_FALSE(state->savedBadge());
    state.reset();
    fakes.timers.advance(std::chrono::seconds(9));
}

TEST_F(ImageConverterViewTest, TheNextChangeHidesTheSavedFile) {
    using Change = void (*)(ImageConverterView&, const Context<ImageConverterView>&);
    const Change changes[] = {
        [](ImageConverterView& view, const auto&) { view.setTargetFormat(ImageFormat::gif); },
        [](ImageConverterView& view, const auto&) { view.setQuality(0.3); },
        [](ImageConverterView& view, const auto&) { view.setRotation(Rotation::degrees90); },
        [](ImageConverterView& view, const auto&) { view.setFlipDirection(FlipDirection::both); },
        [](ImageConverterView& view, const auto&) { view.setResizeWidth(7); },
        [](ImageConverterView& view, const auto&) { view.setResizeHeight(7); },
        [](ImageConverterView& view, const auto&) { view.setMaintainAspectRatio(false); },
        [](ImageConverterView& view, const auto& given) { view.applyTransforms(given); },
        [](ImageConverterView& view, const auto&) { view.remove(); },
        [](ImageConverterView& view, const auto&) { view.reset(); },
    };
    for (std::size_t i = 0; i < std::size(changes); ++i) {
        load();
        saveAs("/converted.png");
        ASSERT_TRUE(state->savedBadge());
        changes[i](*state, context);
        EXPECT_FALSE(state->savedBadge()) << "change " << i;
    }
    load();
    saveAs("/converted.png");
    fakes.files.writeFailure = "No space left on device";
    saveAs("/converted.png");
    EXPECT_FALSE(state->savedBadge());
}

TEST_F(ImageConverterViewTest, ReportsUnappliedChanges) {
    EXPECT_FALSE(state->hasUnappliedChanges());
    state->setRotation(Rotation::degrees90);
    EXPECT_FALSE(state->hasUnappliedChanges()) << "there is no picture";
    load();
    EXPECT_TRUE(state->hasUnappliedChanges()) << "the source would be saved as it is";
    EXPECT_EQ(state->unappliedChangesText(), "Changes not applied");
    state->setRotation(Rotation::none);
    EXPECT_FALSE(state->hasUnappliedChanges());
    EXPECT_EQ(state->unappliedChangesText(), "");
    state->setMaintainAspectRatio(false);
    state->setTargetFormat(ImageFormat::gif);
    state->setQuality(0.2);
    EXPECT_FALSE(state->hasUnappliedChanges()) << "these do not change the picture";
    state->setResizeWidth(20);
    EXPECT_TRUE(state->hasUnappliedChanges());
    state->setResizeHeight(0);
    EXPECT_FALSE(state->hasUnappliedChanges()) << "resizing needs both sides";
}

TEST_F(ImageConverterViewTest, UnappliedChangesAreRelativeToThePreview) {
    load();
    state->setFlipDirection(FlipDirection::both);
    state->applyTransforms(context);
    EXPECT_FALSE(state->hasUnappliedChanges()) << "it is being applied";
    state->setResizeWidth(20);
    EXPECT_TRUE(state->hasUnappliedChanges()) << "this was chosen later";
    fakes.background.runAll();
    EXPECT_TRUE(state->hasUnappliedChanges());
    apply();
    EXPECT_FALSE(state->hasUnappliedChanges());
    EXPECT_EQ(state->processedDimensionsText(), "20 × 15");
    state->setFlipDirection(FlipDirection::none);
    EXPECT_TRUE(state->hasUnappliedChanges());
    saveAs("/preview.png");
    EXPECT_TRUE(haveSamePixels(decoded(fakes.files.contents["/preview.png"]), *state->processedImage()));
    load();
    EXPECT_FALSE(state->hasUnappliedChanges()) << "another picture, of another size";
    EXPECT_EQ(state->processedDimensionsText(), "");
}

TEST_F(ImageConverterViewTest, ReportsWhyAFileCannotBeSaved) {
    load();
    for (const auto* reason : {"No space left on device", "Permission denied"}) {
        fakes.files.writeFailure = reason;
        saveAs("/converted.png");
        EXPECT_EQ(state->errorMessage, std::string("Failed to save: ") + reason);
    }
    fakes.files.writeFailure.reset();
    saveAs("/converted.png");
    EXPECT_EQ(state->errorMessage, std::nullopt);
    state->source->image = Image{};
    saveAs("/nothing.png");
    EXPECT_EQ(state->errorMessage, "Failed to save: Invalid or corrupted image");
}

TEST_F(ImageConverterViewTest, ResettingDoesNotCancelASave) {
    load();
    state->saveImage(context);
    fakes.panels.choose("/converted.png");
    EXPECT_TRUE(state->isSaving());
    EXPECT_TRUE(state->cannotSave());
    state->reset();
    EXPECT_TRUE(state->isSaving());
    fakes.background.runAll();
    EXPECT_TRUE(fakes.files.contents.contains("/converted.png"));
    EXPECT_TRUE(state->savedBadge());
    fakes.timers.advance(ImageConverterView::savedDuration);
    EXPECT_EQ(*state, ImageConverterView{});
}

} // namespace
} // namespace korvane
