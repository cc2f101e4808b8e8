#include "Desktop/Layout/OverlayScrollBar.h"

#include "Desktop/Look/Theme.h"
#include "Desktop/Text/TextArea.h"
#include "Desktop/Tools/Screens.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QScrollBar>
#include <QtTest/QTest>

#include <memory>

namespace korvane {
namespace {

struct OverlayScrollBarTest : testing::Test {
    FakeServices fakes{};
    std::unique_ptr<QWidget> widget{base64Screen(fakes.services)};
    ScreenDriver screen{*widget};

    QScrollBar& driven() const { return *screen.editor("Plain Text").verticalScrollBar(); }

    OverlayScrollBar& bar() const {
        for (auto* child : screen.editor("Plain Text").parentWidget()->findChildren<QWidget*>()) {
            if (auto* found = dynamic_cast<OverlayScrollBar*>(child))
                return *found;
        }
        throw std::runtime_error("the editor has no scroll bar");
    }

    void paste(std::string text) {
        fakes.clipboard.content = std::move(text);
        screen.press("Paste");
    }

    /// The position of the thumb, from 0 at the top to 1 at the bottom.
    double share() const {
        const auto thumb = bar().thumb();
        const auto inset = Theme::px(scrollEndInset);
        return (thumb.top() - inset) / (bar().height() - 2 * inset - thumb.height());
    }
};

TEST_F(OverlayScrollBarTest, IsVisibleOnlyWhileThereIsSomethingToScroll) {
    EXPECT_FALSE(bar().isVisible());
    paste(std::string(500, '\n'));
    EXPECT_TRUE(bar().isVisible());
    screen.press("Clear");
    EXPECT_FALSE(bar().isVisible());
}

TEST_F(OverlayScrollBarTest, ThumbFollowsThePositionOfTheText) {
    for (const auto& text : {std::string(500, '\n'), "start " + std::string(500'000, 'x') + " end"}) {
        paste(text);
        EXPECT_GT(share(), 0.99); // the last line is visible, but not all of the space below it
        driven().setValue(0);
        EXPECT_DOUBLE_EQ(share(), 0);
    }
}

/// Counts how often the whole of a widget is painted.
class PaintCounter final : public QObject {
public:
    explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }

    int paints = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint &&
            static_cast<QPaintEvent*>(event)->region() == static_cast<QWidget*>(watched)->rect())
            ++paints;
        return false;
    }
};

TEST_F(OverlayScrollBarTest, IsRepaintedWhenTheTextAreaMovesItsBarWithoutASignal) {
    paste(std::string(500, '\n'));
    settle();
    PaintCounter counter(bar());
    const QSignalBlocker silence(driven());
    driven().setValue(0);
    screen.editor("Plain Text").viewport()->repaint();
    settle();
    EXPECT_EQ(counter.paints, 1) << "including the part beside the viewport";
    screen.editor("Plain Text").viewport()->repaint();
    settle();
    EXPECT_EQ(counter.paints, 1) << "the bar has not moved again";
}

TEST_F(OverlayScrollBarTest, ScrollsByDraggingAndByAPressBesideTheThumb) {
    paste(std::string(500, '\n'));
    driven().setValue(0);
    const auto middle = bar().thumb().center().toPoint();
    QTest::mousePress(&bar(), Qt::LeftButton, {}, middle);
    QTest::mouseMove(&bar(), middle + QPoint(0, bar().height()));
    QTest::mouseRelease(&bar(), Qt::LeftButton, {}, middle + QPoint(0, bar().height()));
    EXPECT_EQ(driven().value(), driven().maximum());
    QTest::mouseClick(&bar(), Qt::LeftButton, {}, QPoint(middle.x(), bar().height() / 2));
    EXPECT_NEAR(share(), 0.5, 0.02);
}

} // namespace
} // namespace korvane
