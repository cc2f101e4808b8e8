#include "Desktop/Tools/Screens.h"

#include "Desktop/Access/Editing.h"
#include "Desktop/Text/TextArea.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLineEdit>
#include <QtTest/QTest>

#include <memory>

namespace korvane {
namespace {

struct FindBarTest : testing::Test {
    FakeServices fakes{};
    std::unique_ptr<QWidget> widget{base64Screen(fakes.services)};
    ScreenDriver screen{*widget};

    TextArea& input() const { return screen.editor("Plain Text"); }

    void open(std::string_view text) {
        screen.type("Plain Text", text);
        input().select({0, 0});
        ASSERT_TRUE(find(&input()));
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QTest::keyClick(widget->focusWidget(), key, modifiers);
    }

    std::size_t hitCount() const { return input().marks(TextMarkLayer::search).in(0, 1000).size(); }
};

TEST_F(FindBarTest, FindsFromTheKeyboardAlone) {
    open("one two one\nONE");
    EXPECT_TRUE(screen.field("Find in Plain Text").hasFocus());
    QTest::keyClicks(widget->focusWidget(), "one");
    EXPECT_EQ(hitCount(), 3U);
    EXPECT_TRUE(screen.shows("1 of 3"));
    press(Qt::Key_Return);
    EXPECT_TRUE(screen.shows("2 of 3"));
    EXPECT_EQ(screen.announcement(), "2 of 3, line 1, column 9");
    press(Qt::Key_F3, Qt::ShiftModifier);
    press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_TRUE(screen.shows("3 of 3"));
    press(Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(screen.shows("1 of 2"));
    EXPECT_TRUE(screen.button("Match case").isChecked());
    press(Qt::Key_Escape);
    EXPECT_FALSE(screen.hasButton("Match case"));
    EXPECT_TRUE(input().hasFocus());
    EXPECT_EQ(input().selectedText(), "one");
    EXPECT_EQ(hitCount(), 0U);
}

TEST_F(FindBarTest, SearchesInThePaneByF3) {
    open("a b a");
    QTest::keyClicks(widget->focusWidget(), "a");
    input().setFocus();
    press(Qt::Key_F3);
    EXPECT_TRUE(screen.shows("2 of 2"));
    EXPECT_EQ(input().selection(), (TextSelection{4, 4}));
}

TEST_F(FindBarTest, ButtonsDoTheSame) {
    open("a1 b2");
    QTest::keyClicks(widget->focusWidget(), "\\d");
    EXPECT_TRUE(screen.shows("No results"));
    EXPECT_FALSE(screen.button("Next match").isEnabled());
    screen.press("Regular expression");
    fakes.background.runAll();
    EXPECT_TRUE(screen.shows("1 of 2"));
    screen.press("Next match");
    screen.press("Next match");
    screen.press("Previous match");
    EXPECT_TRUE(screen.shows("2 of 2"));
    screen.press("Close");
    EXPECT_EQ(input().selectedText(), "2");
}

TEST_F(FindBarTest, FollowsEditsOfTheText) {
    open("a b a");
    QTest::keyClicks(widget->focusWidget(), "a");
    input().setFocus();
    input().select({0, 0});
    QTest::keyClicks(&input(), "a a ");
    EXPECT_EQ(hitCount(), 4U);
    EXPECT_TRUE(screen.shows("1 of 4"));
}

TEST_F(FindBarTest, PushesTheTextDown) {
    open("a");
    const auto top = input().mapTo(widget.get(), QPoint()).y();
    press(Qt::Key_Escape);
    QApplication::processEvents();
    EXPECT_EQ(top - input().mapTo(widget.get(), QPoint()).y(), 32);
}

TEST_F(FindBarTest, SearchesAnOutput) {
    open("text");
    press(Qt::Key_Escape);
    screen.press("Encode");
    auto& output = screen.editor("Base64 Output");
    ASSERT_TRUE(find(&output));
    QTest::keyClicks(widget->focusWidget(), "g");
    EXPECT_EQ(output.marks(TextMarkLayer::search).in(0, 100).size(), 1U) << output.text().string();
    EXPECT_TRUE(screen.hasButton("Copy Base64 Output"));
}

TEST_F(FindBarTest, ThereIsNoneOutsideOfTexts) {
    EXPECT_FALSE(find(&screen.button("Encode")));
    EXPECT_FALSE(find(nullptr));
}

} // namespace
} // namespace korvane
