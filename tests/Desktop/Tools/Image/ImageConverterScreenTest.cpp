#include "Desktop/Tools/Screens.h"

#include "support/FakeServices.h"
#include "support/Pictures.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QSlider>
#include <QtTest/QTest>

#include <memory>

namespace korvane {
namespace {

ImageProcess& engine() {
    return *FakeImages::shared();
}

struct ImageConverterScreenTest : ::testing::Test {
    FakeServices fakes{};
    std::unique_ptr<QWidget> widget{imageConverterScreen(fakes.services)};
    ScreenDriver screen{*widget};
    Image picture = support::distinctPicture({40, 30});

    void load() {
        fakes.files.contents["/pictures/first one.png"] =
            engine().convert(picture, ImageFormat::png, 1).value().view();
        screen.press("Choose File");
        fakes.panels.choose("/pictures/first one.png");
        fakes.background.runAll();
        settle();
    }
};

TEST_F(ImageConverterScreenTest, ShowsItsTexts) {
    for (const auto* text : {"Drop an image here", "or", "Supports: PNG, JPEG, TIFF, GIF, BMP, HEIC", "Width",
                             "×", "Height", "Rotate:", "Flip:", "Apply transformations to see preview"})
        EXPECT_TRUE(screen.shows(text)) << text;
    for (const auto* heading : {"SOURCE IMAGE", "OUTPUT FORMAT", "RESIZE", "TRANSFORM", "PROCESSED PREVIEW"})
        EXPECT_TRUE(screen.shows(heading)) << heading;
    for (const auto* button :
         {"Choose File", "Apply Transforms", "Save As...", "Reset", "Maintain aspect ratio"})
        EXPECT_TRUE(screen.hasButton(button)) << button;
    EXPECT_FALSE(screen.hasButton("Remove"));
    EXPECT_FALSE(screen.button("Apply Transforms").isEnabled());
    EXPECT_FALSE(screen.button("Save As...").isEnabled());
    EXPECT_EQ(screen.picker("Format").currentText(), "PNG");
    EXPECT_EQ(screen.picker("Rotation").itemText(1), "90°");
    EXPECT_EQ(screen.picker("Flip").itemText(3), "Both");
}

TEST_F(ImageConverterScreenTest, AFormatWithoutAnEncoderCannotBeChosen) {
    fakes.images.removeHEICCodecs();
    const std::unique_ptr<QWidget> other(imageConverterScreen(fakes.services));
    fakes.background.runAll();
    settle();
    auto& picker = ScreenDriver(*other).picker("Format");
    QTest::keyClick(&picker, Qt::Key_End);
    EXPECT_EQ(picker.currentText(), "BMP");
    picker.showPopup();
    const auto* menu = picker.findChild<QMenu*>();
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->actions().last()->text(), "HEIC (needs libheif-plugin-x265)");
    EXPECT_FALSE(menu->actions().last()->isEnabled());
    auto* row = QAccessible::queryAccessibleInterface(&picker)->child(5);
    EXPECT_TRUE(row->state().disabled);
    row->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    settle();
    EXPECT_EQ(picker.currentText(), "BMP");
    picker.hidePopup();
}

TEST_F(ImageConverterScreenTest, LoadsTransformsAndSaves) {
    load();
    for (const auto* text : {"40 × 30", "PNG image", "RGB", "No", "72"})
        EXPECT_TRUE(screen.shows(text)) << text;
    EXPECT_EQ(screen.field("Width").text(), "40");
    EXPECT_EQ(screen.field("Height").text(), "30");
    screen.enter("Width", "20");
    screen.picker("Rotation").setCurrentIndex(2);
    screen.press("Apply Transforms");
    EXPECT_TRUE(screen.shows("Applying…"));
    fakes.background.runAll();
    EXPECT_FALSE(screen.shows("Applying…"));
    EXPECT_FALSE(screen.shows("Apply transformations to see preview"));
    screen.picker("Format").setCurrentIndex(1);
    screen.press("Save As...");
    EXPECT_EQ(fakes.panels.proposedName, "converted.jpg");
    fakes.panels.choose("/out/result");
    fakes.background.runAll();
    const auto saved = engine().getImageInfo(SharedBytes::copyOf(fakes.files.contents["/out/result.jpg"]));
    ASSERT_TRUE(saved);
    EXPECT_EQ(saved->width, 20);
    EXPECT_EQ(saved->height, 15);
}

TEST_F(ImageConverterScreenTest, ShowsTheQualityForLossyFormats) {
    EXPECT_FALSE(screen.shows("Quality:"));
    screen.picker("Format").setCurrentIndex(1);
    EXPECT_TRUE(screen.shows("Quality:"));
    EXPECT_TRUE(screen.shows("90%"));
    screen.slider("Quality").setValue(screen.slider("Quality").maximum());
    EXPECT_TRUE(screen.shows("100%"));
    screen.slider("Quality").setValue(0);
    EXPECT_TRUE(screen.shows("10%"));
    screen.picker("Format").setCurrentIndex(0);
    EXPECT_FALSE(screen.shows("Quality:"));
}

TEST_F(ImageConverterScreenTest, APickerOpensItsChoicesAsAMenu) {
    auto& format = screen.picker("Format");
    format.setFocus();
    QTest::keyClick(&format, Qt::Key_Space);
    auto* menu = format.findChild<QMenu*>();
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->actions().size(), 6);
    EXPECT_EQ(menu->activeAction(), menu->actions().first()) << "the current choice";
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    EXPECT_EQ(format.currentText(), "JPEG");
    EXPECT_TRUE(screen.shows("Quality:"));
}

TEST_F(ImageConverterScreenTest, ASizeCanBeDeletedAndRetyped) {
    load();
    auto& width = screen.field("Width");
    width.setFocus();
    width.selectAll();
    QTest::keyClick(&width, Qt::Key_Backspace);
    EXPECT_EQ(width.text(), "") << "no 0 is inserted";
    QTest::keyClicks(&width, "1a2-");
    EXPECT_EQ(width.text(), "12");
    width.selectAll();
    QTest::keyClick(&width, Qt::Key_Backspace);
    QTest::keyClick(&width, Qt::Key_Return);
    EXPECT_EQ(width.text(), "0");
}

TEST_F(ImageConverterScreenTest, RemovesAndResets) {
    load();
    screen.picker("Format").setCurrentIndex(5);
    screen.press("Remove");
    EXPECT_TRUE(screen.shows("Drop an image here"));
    EXPECT_EQ(screen.picker("Format").currentText(), "HEIC");
    EXPECT_EQ(screen.field("Width").text(), "0");
    screen.press("Reset");
    EXPECT_EQ(screen.picker("Format").currentText(), "PNG");
}

TEST_F(ImageConverterScreenTest, ShowsErrorsOfLoadingAndSaving) {
    screen.press("Choose File");
    fakes.panels.choose("/gone.png");
    fakes.background.runAll();
    EXPECT_EQ(screen.text("Error"), "Failed to load image: No such file or directory");
    load();
    EXPECT_FALSE(screen.hasEditor("Error"));
    fakes.files.writeFailure = "No space left on device";
    screen.press("Save As...");
    fakes.panels.choose("/full.png");
    EXPECT_TRUE(screen.shows("Saving…"));
    fakes.background.runAll();
    EXPECT_EQ(screen.text("Error"), "Failed to save: No space left on device");
}

TEST_F(ImageConverterScreenTest, ShowsWhetherChangesAreApplied) {
    load();
    auto& apply = screen.button("Apply Transforms");
    EXPECT_FALSE(screen.shows("Changes not applied"));
    EXPECT_EQ(apply.accessibleDescription(), "");
    screen.enter("Width", "20");
    EXPECT_TRUE(screen.shows("Changes not applied"));
    EXPECT_EQ(apply.accessibleDescription(), "Changes not applied");
    screen.press("Apply Transforms");
    EXPECT_FALSE(screen.shows("Changes not applied"));
    EXPECT_FALSE(screen.button("Save As...").isEnabled()) << "the transforms are being applied";
    fakes.background.runAll();
    EXPECT_TRUE(screen.button("Save As...").isEnabled());
    EXPECT_TRUE(screen.shows("20 × 15"));
    screen.picker("Flip").setCurrentIndex(1);
    EXPECT_TRUE(screen.shows("Changes not applied"));
    screen.press("Reset");
    EXPECT_FALSE(screen.shows("Changes not applied"));
    EXPECT_FALSE(screen.shows("20 × 15"));
}

TEST_F(ImageConverterScreenTest, ShowsTheSavedFile) {
    load();
    screen.press("Save As...");
    fakes.panels.choose("/out/photo.png");
    fakes.background.runAll();
    const auto message = "Saved photo.png (" +
                         std::to_string((fakes.files.contents["/out/photo.png"].size() + 500) / 1000) +
                         " KB)";
    EXPECT_TRUE(screen.shows(message)) << message;
    screen.picker("Format").setCurrentIndex(1);
    EXPECT_FALSE(screen.shows(message));
}

TEST_F(ImageConverterScreenTest, ShowsThatAFileHoldsMorePictures) {
    load();
    EXPECT_FALSE(screen.shows("The first of 2 pictures in the file"));
    const std::string frame("\x2c\0\0\0\0\x01\0\x01\0\0\x02\x02\x44\x01\0", 15);
    fakes.files.contents["/moving.gif"] =
        std::string("GIF89a\x01\0\x01\0\x80\0\0\0\0\0\xff\xff\xff", 19) + frame + frame + ";";
    screen.press("Remove");
    screen.press("Choose File");
    fakes.panels.choose("/moving.gif");
    fakes.background.runAll();
    EXPECT_TRUE(screen.shows("The first of 2 pictures in the file"));
}

TEST_F(ImageConverterScreenTest, LoadsDroppedFiles) {
    fakes.files.contents["/tmp/Über uns.png"] = engine().convert(picture, ImageFormat::png, 1).value().view();
    QMimeData data;
    data.setUrls({QUrl(QStringLiteral("file:///tmp/%C3%9Cber%20uns.png"))});
    QWidget* target = &screen.button("Choose File");
    while (target && !target->acceptDrops())
        target = target->parentWidget();
    ASSERT_TRUE(target);
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDragLeaveEvent leave;
    QApplication::sendEvent(target, &leave);
    QApplication::sendEvent(target, &enter);
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &drop);
    EXPECT_TRUE(screen.shows("Loading…"));
    fakes.background.runAll();
    EXPECT_TRUE(screen.shows("40 × 30"));
    QMimeData text;
    text.setText("just words");
    QDragEnterEvent rejected(QPoint(5, 5), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    rejected.ignore();
    QApplication::sendEvent(target, &rejected);
    EXPECT_FALSE(rejected.isAccepted());
}

} // namespace
} // namespace korvane
