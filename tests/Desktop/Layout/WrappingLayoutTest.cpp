#include "Desktop/Layout/WrappingLayout.h"

#include "Desktop/Layout/Stack.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QWidget>

#include <memory>
#include <vector>

namespace korvane {
namespace {

constexpr int spacing = 8;
constexpr int lineSpacing = 4;

/// Three boxes of 100 by 20, the last one after a stretch.
struct WrappingLayoutTest : testing::Test {
    QWidget container{};
    WrappingLayout* layout = new WrappingLayout(&container, spacing, lineSpacing);
    std::vector<QWidget*> boxes{};

    WrappingLayoutTest() {
        for (int index = 0; index < 3; ++index) {
            auto* box = new QWidget;
            box->setFixedSize(100, 20);
            if (index == 2)
                layout->addItem(new QSpacerItem(0, 0, QSizePolicy::Expanding));
            layout->addWidget(box);
            boxes.push_back(box);
        }
    }

    std::vector<QPoint> places(int width) {
        container.resize(width, layout->heightForWidth(width));
        layout->setGeometry(container.rect());
        std::vector<QPoint> result;
        for (const auto* box : boxes)
            result.push_back(box->pos());
        return result;
    }
};

TEST_F(WrappingLayoutTest, UsesOneLineWhereItFits) {
    EXPECT_EQ(places(400), (std::vector<QPoint>{{0, 0}, {108, 0}, {300, 0}}));
    EXPECT_EQ(layout->heightForWidth(400), 20);
    EXPECT_EQ(places(316), (std::vector<QPoint>{{0, 0}, {108, 0}, {216, 0}}));
}

TEST_F(WrappingLayoutTest, WrapsIntoMoreLinesWhereItDoesNotFit) {
    EXPECT_EQ(places(315), (std::vector<QPoint>{{0, 0}, {108, 0}, {215, 24}}));
    EXPECT_EQ(places(150), (std::vector<QPoint>{{0, 0}, {0, 24}, {50, 48}}));
    EXPECT_EQ(layout->heightForWidth(150), 68);
}

TEST_F(WrappingLayoutTest, AvoidsASingleControlOnTheLastLine) {
    auto* box = new QWidget;
    box->setFixedSize(100, 20);
    layout->addWidget(box);
    boxes.push_back(box);
    EXPECT_EQ(places(424), (std::vector<QPoint>{{0, 0}, {108, 0}, {216, 0}, {324, 0}}));
    EXPECT_EQ(places(423), (std::vector<QPoint>{{0, 0}, {108, 0}, {215, 24}, {323, 24}}));
    EXPECT_EQ(places(207), (std::vector<QPoint>{{0, 0}, {0, 24}, {107, 48}, {0, 72}}));
}

TEST_F(WrappingLayoutTest, GetsTheHeightOfItsLinesAboveAGrowingWidget) {
    auto* wrapping = wrappingRow(
        {withHeight(20, withWidth(100, new QWidget)), withHeight(20, withWidth(100, new QWidget))});
    auto* grows = growing(new QWidget);
    const std::unique_ptr<QWidget> whole(stack(Qt::Vertical, {.spacing = 0}, {wrapping, grows}));
    whole->resize(300, 400);
    whole->show();
    settle();
    EXPECT_EQ(wrapping->height(), 20);
    whole->resize(150, 400);
    settle();
    EXPECT_EQ(wrapping->height(), 20 + Theme::Size::gapControl + 20);
    EXPECT_EQ(grows->height(), 400 - wrapping->height());
}

TEST_F(WrappingLayoutTest, IgnoresHiddenWidgets) {
    boxes[1]->hide();
    EXPECT_EQ(layout->heightForWidth(208), 20);
    EXPECT_EQ(places(208)[2], QPoint(108, 0));
}

TEST_F(WrappingLayoutTest, PrefersOneLineAndRequiresItsWidestItem) {
    EXPECT_EQ(layout->sizeHint(), QSize(316, 20));
    EXPECT_EQ(layout->minimumSize(), QSize(100, 20));
}

} // namespace
} // namespace korvane
