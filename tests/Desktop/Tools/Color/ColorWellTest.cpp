#include "Desktop/Tools/Color/ColorWell.h"
#include "Desktop/Binding/Screen.h"
#include "Desktop/Layout/Stack.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QColorDialog>

#include <memory>

namespace korvane {
namespace {

struct Painting {
    Color color = Color::fromChannels(255, 128, 0);
    double opacity = 1;

    void setColor(Color newColor) { color = newColor; }

    bool operator==(const Painting&) const = default;
};

QWidget* colorWellBody(Store& store) {
    return row({colorWell(store, "Select Color", &Painting::color, &Painting::setColor),
                withWidth(100, colorSwatch(store, "Preview", &Painting::color, &Painting::opacity))});
}

struct ColorWellTest : testing::Test {
    FakeServices fakes{};
    std::unique_ptr<Screen> frame{std::make_unique<Screen>(fakes.services, Painting(), colorWellBody)};
    ScreenDriver screen{*frame};

    const Painting& state() const { return frame->store().state<Painting>(); }

    QColorDialog* dialog() const { return frame->findChild<QColorDialog*>(); }

    QWidget& swatch() const {
        for (auto* child : frame->findChildren<QWidget*>()) {
            if (child->accessibleName() == "Preview")
                return *child;
        }
        throw std::runtime_error("there is no swatch");
    }
};

TEST_F(ColorWellTest, OpensTheDialogOnceWithTheColorAndWithoutOpacity) {
    EXPECT_EQ(dialog(), nullptr);
    screen.press("Select Color");
    ASSERT_NE(dialog(), nullptr);
    EXPECT_TRUE(dialog()->isVisible());
    EXPECT_EQ(dialog()->currentColor().rgb(), qRgb(255, 128, 0));
    EXPECT_FALSE(dialog()->testOption(QColorDialog::ShowAlphaChannel));
    EXPECT_TRUE(dialog()->testOption(QColorDialog::DontUseNativeDialog));
    screen.press("Select Color");
    EXPECT_EQ(frame->findChildren<QColorDialog*>().size(), 1);
}

TEST_F(ColorWellTest, ColorFollowsTheOpenDialog) {
    screen.press("Select Color");
    dialog()->setCurrentColor(QColor::fromRgb(1, 2, 3));
    EXPECT_EQ(state().color, Color::fromChannels(1, 2, 3));
    dialog()->setCurrentColor(QColor::fromHsv(120, 255, 200));
    EXPECT_EQ(state().color, Color::fromChannels(0, 200, 0)) << "in whole channels";
    dialog()->accept();
    EXPECT_EQ(state().color, Color::fromChannels(0, 200, 0));
}

TEST_F(ColorWellTest, CancellingRestoresTheColor) {
    screen.press("Select Color");
    dialog()->setCurrentColor(QColor::fromRgb(1, 2, 3));
    dialog()->reject();
    EXPECT_EQ(state().color, Color::fromChannels(255, 128, 0));
}

TEST_F(ColorWellTest, CancellingKeepsAColorSetByAnotherControl) {
    const auto set = [this](int red, int green, int blue) {
        frame->store().perform([&](Painting& state) { state.color = Color::fromChannels(red, green, blue); });
    };
    screen.press("Select Color");
    set(9, 8, 7);
    dialog()->reject();
    settle();
    EXPECT_EQ(state().color, Color::fromChannels(9, 8, 7));
    screen.press("Select Color");
    dialog()->setCurrentColor(QColor::fromRgb(1, 2, 3));
    set(60, 70, 80);
    dialog()->setCurrentColor(QColor::fromRgb(4, 5, 6));
    dialog()->reject();
    settle();
    EXPECT_EQ(state().color, Color::fromChannels(60, 70, 80)) << "the choices in the dialog are reverted";
    set(1, 1, 1);
    screen.press("Select Color");
    dialog()->reject();
    EXPECT_EQ(state().color, Color::fromChannels(1, 1, 1));
}

TEST_F(ColorWellTest, TheDialogFollowsTheState) {
    screen.press("Select Color");
    frame->store().perform([](Painting& painting) { painting.color = Color::fromChannels(9, 8, 7); });
    EXPECT_EQ(dialog()->currentColor().rgb(), qRgb(9, 8, 7));
    EXPECT_EQ(state().color, Color::fromChannels(9, 8, 7));
}

TEST_F(ColorWellTest, TheDialogIsDestroyedWithTheScreen) {
    screen.press("Select Color");
    frame.reset();
    settle();
}

TEST_F(ColorWellTest, TheSwatchShowsACheckerboardBehindATranslucentColor) {
    const auto at = [this](int x, int y) { return swatch().grab().toImage().pixelColor(x, y); };
    // Inside of two neighbouring cells, away from the corners.
    EXPECT_EQ(at(45, 45), at(55, 45)) << "an opaque colour hides it";
    EXPECT_EQ(at(45, 45).rgb(), qRgb(255, 128, 0));
    frame->store().perform([](Painting& painting) { painting.opacity = 0; });
    EXPECT_NE(at(45, 45), at(55, 45));
    EXPECT_EQ(at(45, 45), at(55, 55));
    EXPECT_LT(at(45, 45).lightness(), at(55, 45).lightness()) << "an even cell is the darker one";
}

} // namespace
} // namespace korvane
