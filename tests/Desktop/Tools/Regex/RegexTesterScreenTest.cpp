#include "Desktop/Tools/Screens.h"

#include "Desktop/Lists/RowList.h"
#include "Desktop/Text/TextArea.h"

#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QScrollArea>
#include <QtTest/QTest>

#include <memory>
#include <stdexcept>

namespace korvane {
namespace {

using namespace std::chrono_literals;

struct RegexTesterScreenTest : testing::Test {
    FakeServices fakes{};
    std::unique_ptr<QWidget> widget{regexTesterScreen(fakes.services)};
    ScreenDriver screen{*widget};

    /// The only one of the screen, which need not show it.
    RowList& list() const {
        for (auto* child : widget->findChildren<QWidget*>()) {
            if (auto* list = dynamic_cast<RowList*>(child))
                return *list;
        }
        throw std::runtime_error("there is no list of matches");
    }

    std::string placeholderOf(std::string_view field) const {
        return screen.field(field).placeholderText().toStdString();
    }
};

TEST_F(RegexTesterScreenTest, ListAndTextSelectTheSameMatch) {
    screen.enter("Pattern", "(b)c");
    screen.type("Test String", "abc bc bc");
    auto& text = screen.editor("Test String");
    EXPECT_EQ(text.marks(TextMarkLayer::content).in(0, 9).size(), 3U);
    EXPECT_TRUE(text.marks(TextMarkLayer::chosen).empty());

    QTest::keyClick(&list(), Qt::Key_Down);
    QTest::keyClick(&list(), Qt::Key_Down);
    EXPECT_EQ(text.selection(), (TextSelection{4, 4}));
    EXPECT_EQ(text.marks(TextMarkLayer::chosen).in(0, 9).size(), 2U);

    QTest::keyClick(&text, Qt::Key_End);
    EXPECT_EQ(list().currentRow(), 4);
    EXPECT_EQ(text.selection(), (TextSelection{9, 9})) << "the caret stays where the user has placed it";
    QTest::keyClick(&text, Qt::Key_Home);
    EXPECT_TRUE(text.marks(TextMarkLayer::chosen).empty());

    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, list().rowPlace(4).center());
    EXPECT_EQ(text.selection(), (TextSelection{7, 7})) << "also the row that is the current one";
    screen.type("Test String", "x");
    EXPECT_TRUE(text.marks(TextMarkLayer::chosen).empty());
}

TEST_F(RegexTesterScreenTest, ShowsItsTextsInOrder) {
    screen.press("Find & Replace");
    EXPECT_EQ(screen.labels(), (std::vector<std::string>{"Regex Tester",
                                                         "Test regular expressions",
                                                         "Pattern",
                                                         "/",
                                                         "/",
                                                         "TEST STRING",
                                                         "MATCHES",
                                                         "Enter a pattern and test string",
                                                         "Replacement Pattern",
                                                         "Result",
                                                         "Quick Reference",
                                                         ".",
                                                         "Any character",
                                                         R"(\d)",
                                                         "Digit",
                                                         R"(\w)",
                                                         "Word char",
                                                         R"(\s)",
                                                         "Whitespace",
                                                         "^",
                                                         "Start",
                                                         "$",
                                                         "End",
                                                         "*",
                                                         "0 or more",
                                                         "+",
                                                         "1 or more",
                                                         "?",
                                                         "0 or 1",
                                                         "{n}",
                                                         "Exactly n",
                                                         "[abc]",
                                                         "Character class",
                                                         "()",
                                                         "Capture group"}));
    EXPECT_EQ(placeholderOf("Pattern"), "Enter regex pattern");
    EXPECT_EQ(screen.placeholder("Test String"), "Enter text to test against the pattern...");
    EXPECT_EQ(placeholderOf("Replacement Pattern"), R"(e.g., $1 or \1)");
    EXPECT_EQ(screen.placeholder("Result"), "Replacement result...");
    for (const auto* button : {"Live", "Case", "Test", "Find & Replace", "Copy Result"})
        EXPECT_TRUE(screen.hasButton(button)) << button;
}

TEST_F(RegexTesterScreenTest, SharesATallWindowBetweenTextAndMatches) {
    const auto* content = widget->findChild<QScrollArea*>()->widget();
    const auto partAround = [&](const QWidget* control) {
        while (control->parentWidget() != content)
            control = control->parentWidget();
        return control;
    };
    const auto* text = partAround(&screen.editor("Test String"));
    const auto* matches = partAround(&list());
    const auto lowText = text->height();
    const auto lowMatches = matches->height();
    for (const int height : {1400, 2160}) {
        widget->resize(1400, height);
        settle();
        EXPECT_GT(text->height(), lowText);
        EXPECT_GT(matches->height(), lowMatches);
        EXPECT_NEAR(2 * text->height(), matches->height(), 2);
        EXPECT_EQ(content->height(), height - content->mapTo(widget.get(), QPoint()).y());
    }
}

TEST_F(RegexTesterScreenTest, StartsLiveAndCaseSensitiveWithoutReplacement) {
    EXPECT_TRUE(screen.button("Live").isChecked());
    EXPECT_TRUE(screen.button("Case").isChecked());
    EXPECT_FALSE(screen.button("Find & Replace").isChecked());
    EXPECT_FALSE(screen.shows("Result"));
}

TEST_F(RegexTesterScreenTest, CountsMatchesWhileTyping) {
    screen.type("Test String", "AaA");
    EXPECT_TRUE(screen.shows("Enter a pattern and test string"));
    screen.enter("Pattern", "b");
    EXPECT_TRUE(screen.shows("No matches found"));
    screen.enter("Pattern", "a");
    EXPECT_TRUE(screen.shows("1 match found"));
    screen.press("Case");
    EXPECT_TRUE(screen.shows("3 matches found"));
}

TEST_F(RegexTesterScreenTest, CopiesMatchesAndGroups) {
    screen.type("Test String", "b a");
    screen.enter("Pattern", "(a)|(b)");
    EXPECT_FALSE(screen.hasButton("Copy Match 1 Group 2"));
    screen.press("Copy Match 2");
    EXPECT_EQ(fakes.clipboard.content, "a");
    EXPECT_TRUE(screen.hasButton("Copied! Match 2"));
    fakes.timers.advance(1s);
    screen.press("Copy Match 1 Group 1");
    EXPECT_EQ(fakes.clipboard.content, "b");
    EXPECT_TRUE(screen.hasButton("Copy Match 2"));
    fakes.timers.advance(1s); // the feedback of the first press has ended, that of the second has not
    EXPECT_TRUE(screen.hasButton("Copied! Match 1 Group 1"));
    fakes.timers.advance(500ms);
    EXPECT_TRUE(screen.hasButton("Copy Match 1 Group 1"));
}

TEST_F(RegexTesterScreenTest, CopiesByKeyboard) {
    screen.type("Test String", "left-right up-down");
    screen.enter("Pattern", R"((\w+)-(\w+))");
    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_Down);
    QTest::keyClick(&list(), Qt::Key_Down);
    EXPECT_EQ(list().accessibleName(), "Matches");
    EXPECT_EQ(list().accessibleDescription(), "2 matches found");
    EXPECT_EQ(list().accessibleCurrentRow(), 2);
    EXPECT_EQ(list().accessibleRow(2).name, "Match 1 Group 2: right");
    QTest::keyClick(&list(), Qt::Key_Return);
    EXPECT_EQ(fakes.clipboard.content, "right");
    QTest::keyClick(&list(), Qt::Key_End);
    QTest::keyClick(&list(), Qt::Key_Up);
    QTest::keyClick(&list(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(fakes.clipboard.content, "up");
    QTest::keyClick(&list(), Qt::Key_Home);
    QTest::keyClick(&list(), Qt::Key_Space);
    EXPECT_EQ(fakes.clipboard.content, "left-right");
}

TEST_F(RegexTesterScreenTest, ReplacesAndCopiesTheResult) {
    screen.type("Test String", "left-right");
    screen.enter("Pattern", R"((\w+)-(\w+))");
    screen.press("Find & Replace");
    screen.enter("Replacement Pattern", "$2 $1");
    EXPECT_EQ(screen.text("Result"), "right left");
    screen.press("Copy Result");
    EXPECT_EQ(fakes.clipboard.content, "right left");
    screen.enter("Replacement Pattern", "");
    EXPECT_EQ(screen.text("Result"), "");
}

TEST_F(RegexTesterScreenTest, ShowsTheErrorOfAnInvalidPattern) {
    screen.type("Test String", "text");
    screen.enter("Pattern", "(");
    EXPECT_EQ(screen.text("Error"), "Invalid regex: Incorrectly nested parentheses at character 1.");
    EXPECT_TRUE(screen.shows("No matches found"));
    screen.enter("Pattern", "(t)");
    EXPECT_FALSE(screen.hasEditor("Error"));
    EXPECT_TRUE(screen.shows("2 matches found"));
}

TEST_F(RegexTesterScreenTest, WithoutLiveOnlyTestAndReturnSearch) {
    screen.press("Live");
    screen.type("Test String", "aa");
    screen.enter("Pattern", "a");
    EXPECT_TRUE(screen.shows("No matches found"));
    screen.press("Test");
    EXPECT_TRUE(screen.shows("2 matches found"));
    screen.enter("Pattern", "aa");
    EXPECT_TRUE(screen.shows("2 matches found"));
    QTest::keyClick(&screen.field("Pattern"), Qt::Key_Return);
    EXPECT_TRUE(screen.shows("1 match found"));
}

TEST_F(RegexTesterScreenTest, ShowsThatALongSearchIsRunning) {
    screen.enter("Pattern", "x");
    QGuiApplication::clipboard()->setText(QString(10'000, 'y') + 'x');
    screen.editor("Test String").paste();
    settle();
    EXPECT_FALSE(screen.shows("Matching..."));
    fakes.timers.advance(150ms);
    EXPECT_TRUE(screen.shows("Matching..."));
    fakes.background.runAll();
    EXPECT_TRUE(screen.shows("1 match found"));
}

TEST_F(RegexTesterScreenTest, AnnouncesThePatternErrorInsteadOfNoMatches) {
    screen.type("Test String", "text");
    screen.enter("Pattern", "y");
    EXPECT_EQ(screen.announcement(), "No matches found");
    screen.enter("Pattern", "(");
    EXPECT_EQ(screen.announcement(), "Invalid regex: Incorrectly nested parentheses at character 1.");
    EXPECT_TRUE(screen.shows("No matches found"));
}

} // namespace
} // namespace korvane
