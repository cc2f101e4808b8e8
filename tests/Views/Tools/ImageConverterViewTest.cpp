#include "support/ImageConverterViewTest.h"

namespace korvane {
namespace {

using support::haveSamePixels;

TEST_F(ImageConverterViewTest, StartsWithoutAPicture) {
    state->appear(context);
    fakes.background.runAll();
    EXPECT_EQ(*state, ImageConverterView{.process = FakeImages::shared()});
    EXPECT_FALSE(state->hasSource());
    EXPECT_EQ(state->targetFormat, ImageFormat::png);
    EXPECT_EQ(state->quality, 0.9);
    EXPECT_EQ(state->rotation, Rotation::none);
    EXPECT_EQ(state->flipDirection, FlipDirection::none);
    EXPECT_EQ(state->resizeWidth, 0);
    EXPECT_TRUE(state->maintainAspectRatio);
    EXPECT_TRUE(state->cannotApply());
    EXPECT_TRUE(state->cannotSave());
}

TEST_F(ImageConverterViewTest, AMissingEncoderIsNamed) {
    fakes.images.removeHEICCodecs();
    state->appear(context);
    fakes.background.runAll();
    EXPECT_EQ(state->missingEncoder(ImageFormat::heic), "needs libheif-plugin-x265");
    EXPECT_EQ(state->missingEncoder(ImageFormat::png), "");
    state->reset();
    EXPECT_EQ(state->missingEncoder(ImageFormat::heic), "needs libheif-plugin-x265");
    state->remove();
    EXPECT_EQ(state->missingEncoder(ImageFormat::heic), "needs libheif-plugin-x265");
}

TEST_F(ImageConverterViewTest, AMissingDecoderIsNamed) {
    file = imageProcess().convert(picture, ImageFormat::heic, 1).value();
    fakes.images.removeHEICCodecs();
    load();
    EXPECT_FALSE(state->hasSource());
    EXPECT_EQ(state->errorMessage,
              "Failed to load image: HEIC cannot be read on this computer (needs libheif-plugin-libde265)");
}

TEST_F(ImageConverterViewTest, LoadingShowsThePictureAndItsProperties) {
    state->loadImage(file, context);
    EXPECT_TRUE(state->isLoading());
    EXPECT_FALSE(state->hasSource()) << "the picture arrives later";
    fakes.background.runAll();
    ASSERT_TRUE(state->hasSource());
    EXPECT_TRUE(haveSamePixels(*state->sourceImage(), picture));
    EXPECT_EQ(state->source->data, file);
    EXPECT_EQ(state->resizeWidth, 40);
    EXPECT_EQ(state->resizeHeight, 30);
    EXPECT_EQ(state->dimensionsText(), "40 × 30");
    EXPECT_EQ(state->formatText(), "PNG image");
    EXPECT_EQ(state->colorSpaceText(), "RGB");
    EXPECT_EQ(state->alphaText(), "No");
    EXPECT_EQ(state->resolutionText(), "72");
    EXPECT_FALSE(state->isLoading());
}

TEST_F(ImageConverterViewTest, ThePanelOffersTheSixFormats) {
    state->openFilePicker(context);
    for (const auto format : allCases<ImageFormat>)
        EXPECT_EQ(std::ranges::count(fakes.panels.kind.extensions, fileExtension(format)), 1);
    fakes.files.contents["/tmp/a picture.png"] = file.view();
    fakes.panels.choose("/tmp/a picture.png");
    EXPECT_TRUE(state->loading);
    fakes.background.runAll();
    EXPECT_TRUE(state->hasSource());
}

TEST_F(ImageConverterViewTest, CancellingAPanelChangesNothing) {
    load();
    const auto before = *state;
    state->openFilePicker(context);
    state->saveImage(context);
    EXPECT_EQ(*state, before);
    EXPECT_EQ(fakes.background.pendingCount(), 0);
}

TEST_F(ImageConverterViewTest, ReportsWhyAFileCannotBeLoaded) {
    struct Row {
        std::string_view path;
        std::string_view message;
    };

    fakes.files.contents["/text.png"] = "no picture at all";
    fakes.files.contents["/cut.png"] = file.view().substr(0, file.size() / 2);
    const Row rows[] = {
        {"/missing.png", "Failed to load image: No such file or directory"},
        {"/text.png", "Failed to load image: Unsupported image format"},
        {"/cut.png", "Failed to load image: Invalid or corrupted image"},
    };
    for (const auto& row : rows) {
        state->handleDrop({.files = {std::string(row.path)}}, context);
        fakes.background.runAll();
        EXPECT_EQ(state->errorMessage, row.message);
        EXPECT_FALSE(state->hasSource());
    }
    load();
    EXPECT_EQ(state->errorMessage, std::nullopt) << "a later success clears the message";
}

TEST_F(ImageConverterViewTest, AFailureKeepsTheCurrentPicture) {
    load();
    state->loadImage(SharedBytes::copyOf("no picture"), context);
    fakes.background.runAll();
    EXPECT_TRUE(state->hasSource());
    EXPECT_TRUE(state->errorMessage);
}

TEST_F(ImageConverterViewTest, TheFirstImageOfSeveralFilesIsLoaded) {
    fakes.files.contents["/notes.txt"] = "notes";
    fakes.files.contents["/Übersicht 1.png"] = file.view();
    fakes.files.contents["/other.png"] =
        imageProcess().convert(support::distinctPicture({9, 9}), ImageFormat::png, 1).value();
    state->setDropTargeted(true);
    state->handleDrop({.files = {"/gone.png", "/notes.txt", "/Übersicht 1.png", "/other.png"}}, context);
    EXPECT_FALSE(state->isDropTargeted);
    fakes.background.runAll();
    EXPECT_EQ(state->resizeWidth, 40);
    EXPECT_EQ(state->errorMessage, std::nullopt);
    state->reset();
    state->handleDrop({.files = {"/gone.png", "/notes.txt"}}, context);
    fakes.background.runAll();
    EXPECT_EQ(state->errorMessage, "Failed to load image: No such file or directory")
        << "the error of the first file";
}

TEST_F(ImageConverterViewTest, TheBytesOfAPictureCanBeDropped) {
    state->handleDrop({.data = file}, context);
    fakes.background.runAll();
    EXPECT_TRUE(state->hasSource());
}

TEST_F(ImageConverterViewTest, OnlyTheLastOfTwoLoadsTakesEffect) {
    state->loadImage(file, context);
    state->loadImage(imageProcess().convert(support::distinctPicture({9, 8}), ImageFormat::gif, 1).value(),
                     context);
    fakes.background.runAll();
    EXPECT_EQ(state->dimensionsText(), "9 × 8");
    EXPECT_EQ(state->formatText(), "GIF image");
}

TEST_F(ImageConverterViewTest, AnOutdatedResultIsDropped) {
    state->loadImage(file, context);
    state->reset();
    fakes.background.runAll();
    EXPECT_EQ(*state, ImageConverterView{});
    load();
    state->applyTransforms(context);
    state->remove();
    fakes.background.runAll();
    EXPECT_FALSE(state->hasProcessed());
    load();
    state->applyTransforms(context);
    state->loadImage(file, context);
    fakes.background.runAll();
    EXPECT_FALSE(state->hasProcessed()) << "it was made from the previous picture";
    state->applyTransforms(context);
    state.reset();
    fakes.background.runAll();
}

TEST_F(ImageConverterViewTest, RotationFlipAndResizeAreAppliedInOrder) {
    load();
    state->setMaintainAspectRatio(false);
    state->setResizeWidth(12);
    state->setResizeHeight(11);
    state->setFlipDirection(FlipDirection::horizontal);
    state->setRotation(Rotation::degrees90);
    state->applyTransforms(context);
    EXPECT_TRUE(state->isApplying());
    fakes.background.runAll();
    auto expected = imageProcess().rotate(picture, Rotation::degrees90).value();
    expected = imageProcess().flip(expected, FlipDirection::horizontal).value();
    expected = imageProcess().resize(expected, {12, 11}, false).value();
    ASSERT_TRUE(state->hasProcessed());
    EXPECT_TRUE(haveSamePixels(*state->processedImage(), expected));
    EXPECT_TRUE(haveSamePixels(*state->sourceImage(), picture)) << "the source is unchanged";
}

TEST_F(ImageConverterViewTest, WithoutASizeItOnlyRotatesAndFlips) {
    load();
    state->setRotation(Rotation::degrees90);
    for (const auto& [width, height] : {std::pair{0, 10}, {10, 0}, {-1, -1}}) {
        state->setResizeWidth(width);
        state->setResizeHeight(height);
        apply();
        EXPECT_EQ(state->processedImage()->width, 30);
        EXPECT_EQ(state->processedImage()->height, 40);
    }
}

TEST_F(ImageConverterViewTest, AFailingTransformIsSkipped) {
    load();
    state->setRotation(Rotation::degrees180);
    state->setMaintainAspectRatio(false);
    state->setResizeWidth(2'000'000'000);
    state->setResizeHeight(2'000'000'000);
    apply();
    ASSERT_TRUE(state->hasProcessed());
    EXPECT_TRUE(haveSamePixels(*state->processedImage(),
                               imageProcess().rotate(picture, Rotation::degrees180).value()));
    EXPECT_EQ(state->errorMessage, std::nullopt);
}

TEST_F(ImageConverterViewTest, ApplyingNeedsAPictureAndClearsTheMessage) {
    state->errorMessage = "before";
    apply();
    EXPECT_EQ(state->errorMessage, "before");
    load();
    state->errorMessage = "before";
    apply();
    EXPECT_EQ(state->errorMessage, std::nullopt);
}

TEST_F(ImageConverterViewTest, ReportsThatAFileHoldsMorePictures) {
    EXPECT_FALSE(state->isFirstOfMany());
    load();
    EXPECT_FALSE(state->isFirstOfMany());
    EXPECT_EQ(state->firstOfManyText(), "");
    state->source->imageInfo.pictureCount = 12;
    EXPECT_TRUE(state->isFirstOfMany());
    EXPECT_EQ(state->firstOfManyText(), "The first of 12 pictures in the file");
}

TEST_F(ImageConverterViewTest, AnOutdatedChoiceInAPanelIsIgnored) {
    load();
    state->saveImage(context);
    state->remove();
    fakes.panels.choose("/converted.png");
    fakes.background.runAll();
    EXPECT_TRUE(fakes.files.contents.empty());
    state->openFilePicker(context);
    state.reset();
    fakes.panels.choose("/picture.png");
    EXPECT_EQ(fakes.background.pendingCount(), 0);
}

TEST_F(ImageConverterViewTest, RemovingKeepsTheSettings) {
    load();
    state->setTargetFormat(ImageFormat::heic);
    state->setRotation(Rotation::degrees270);
    state->setQuality(0.5);
    apply();
    state->remove();
    EXPECT_EQ(*state,
              (ImageConverterView{
                  .targetFormat = ImageFormat::heic, .quality = 0.5, .rotation = Rotation::degrees270}));
}

TEST_F(ImageConverterViewTest, ResettingRestoresTheInitialState) {
    load();
    state->setTargetFormat(ImageFormat::heic);
    state->setFlipDirection(FlipDirection::both);
    state->setMaintainAspectRatio(false);
    apply();
    state->errorMessage = "before";
    state->reset();
    EXPECT_EQ(*state, ImageConverterView{});
}

TEST_F(ImageConverterViewTest, ShowsTheQualityForLossyFormats) {
    for (const auto format : allCases<ImageFormat>) {
        state->setTargetFormat(format);
        EXPECT_EQ(state->showsQuality(), format == ImageFormat::jpeg || format == ImageFormat::heic);
    }
    EXPECT_EQ(state->qualityText(), "90%");
    for (const auto& [quality, text] :
         {std::pair{0.1, "10%"}, {0.999, "99%"}, {1.0, "100%"}, {0.505, "50%"}}) {
        state->setQuality(quality);
        EXPECT_EQ(state->qualityText(), text);
    }
}

TEST_F(ImageConverterViewTest, ShowsFileSizesInDecimalUnits) {
    state->source = {.imageInfo = {.hasAlpha = true, .dpi = 300}};
    for (const auto& [size, text] : {std::pair<std::int64_t, const char*>{0, "0 bytes"},
                                     {999, "999 bytes"},
                                     {1000, "1 KB"},
                                     {482'300, "482 KB"},
                                     {999'600, "1.0 MB"},
                                     {12'340'000, "12.3 MB"},
                                     {345'678'000, "346 MB"},
                                     {1'073'741'824, "1.1 GB"}}) {
        state->source->imageInfo.fileSize = size;
        EXPECT_EQ(state->fileSizeText(), text);
    }
    EXPECT_EQ(state->alphaText(), "Yes");
    EXPECT_EQ(state->resolutionText(), "300");
}

TEST_F(ImageConverterViewTest, ReportsThatTheProcessCannotRun) {
    struct Row {
        ImageProcessOptions options;
        std::string message;
    };

    const Row rows[] = {
        {{.program = "/nonexistent/korvane-images"}, "The image process cannot be started"},
        {misbehavingProgram({"exits"}), "The image process cannot be started"},
        {misbehavingProgram({"not-isolated"}),
         "The image process cannot be isolated on this computer, so it opens no images"},
    };
    for (const auto& row : rows) {
        state = ImageConverterView{};
        fakes.images.replacement = std::make_shared<ImageProcess>(row.options);
        state->appear(context);
        fakes.background.runAll();
        EXPECT_EQ(state->errorMessage, row.message);
        load();
        EXPECT_EQ(state->errorMessage, "Failed to load image: " + row.message);
        EXPECT_FALSE(state->hasSource()) << "nothing is decoded";
        state->source = {.image = picture};
        apply();
        EXPECT_EQ(state->errorMessage, "Failed to apply transforms: " + row.message);
        EXPECT_FALSE(state->hasProcessed());
        saveAs("/converted.png");
        EXPECT_EQ(state->errorMessage, "Failed to save: " + row.message);
        EXPECT_TRUE(fakes.files.contents.empty());
    }
}

TEST_F(ImageConverterViewTest, TheProcessIsHeldWhileTheToolIsShown) {
    const auto process = std::make_shared<ImageProcess>();
    fakes.images.replacement = process;
    state->appear(context);
    fakes.background.runAll();
    fakes.images.replacement.reset();
    state->reset();
    EXPECT_EQ(state->process, process);
    state.reset();
    EXPECT_EQ(process.use_count(), 1);
}

TEST_F(ImageConverterViewTest, AFailureOfTheProcessWhileTransformingKeepsThePictures) {
    load();
    apply();
    const auto before = *state;
    fakes.images.replacement =
        std::make_shared<ImageProcess>(ImageProcessOptions{.program = "/nonexistent/korvane-images"});
    state->setRotation(Rotation::degrees90);
    state->saveImage(context);
    state->applyTransforms(context);
    fakes.panels.choose("/turned.png");
    fakes.background.runAll();
    EXPECT_EQ(state->errorMessage, "Failed to apply transforms: The image process cannot be started");
    EXPECT_EQ(state->source, before.source);
    EXPECT_EQ(state->rotation, Rotation::degrees90);
    EXPECT_TRUE(fakes.files.contents.empty()) << "the picture to save was not made";
}

} // namespace
} // namespace korvane
