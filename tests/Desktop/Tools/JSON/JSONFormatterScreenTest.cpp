#include "Desktop/Tools/Screens.h"

#include "Desktop/Binding/Strings.h"
#include "Desktop/Lists/RowList.h"
#include "Desktop/Text/TextArea.h"
#include "support/ContextMenus.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QScopeGuard>
#include <QScrollBar>
#include <QtTest/QTest>

#include <algorithm>
#include <memory>

namespace korvane {
namespace {

constexpr auto trailingComma = "Invalid JSON: Unexpected \"]\" at line 1, column 4; expected a value";

struct JSONFormatterScreenTest : testing::Test {
    FakeServices fakes{};
    std::unique_ptr<QWidget> widget{jsonFormatterScreen(fakes.services)};
    ScreenDriver screen{*widget};

    std::vector<std::string> rows() const {
        const auto& list = screen.list("Tree View");
        std::vector<std::string> names;
        for (int row = 0; row < list.rowCount(); ++row)
            names.push_back(utf8String(list.accessibleRow(row).name));
        return names;
    }

    void key(Qt::Key key) const { QTest::keyClick(&screen.list("Tree View"), key); }
};

TEST_F(JSONFormatterScreenTest, PrettifiesPastedTextAndCopiesTheOutput) {
    EXPECT_EQ(screen.placeholder("Input"), "Paste your JSON here...");
    EXPECT_EQ(screen.placeholder("Output"), "Formatted output will appear here...");
    fakes.clipboard.content = R"({"b":1,"a":[]})";
    screen.press("Paste");
    screen.press("Prettify");
    EXPECT_EQ(screen.text("Output"), "{\n  \"a\" : [],\n  \"b\" : 1\n}");
    EXPECT_TRUE(screen.shows("Valid JSON"));
    screen.press("Copy Output");
    EXPECT_EQ(fakes.clipboard.content, screen.text("Output"));
    screen.press("Minify");
    EXPECT_EQ(screen.text("Output"), R"({"a":[],"b":1})");
    screen.press("Validate");
    EXPECT_EQ(screen.text("Output"), "");
    EXPECT_FALSE(screen.hasButton("Copied! Output"));
    EXPECT_EQ(screen.text("Input"), R"({"b":1,"a":[]})");
}

TEST_F(JSONFormatterScreenTest, ShowsTheErrorAndItsPosition) {
    screen.press("Prettify");
    EXPECT_TRUE(screen.shows("Input is empty"));
    screen.type("Input", "[1,]");
    screen.press("Validate");
    EXPECT_FALSE(screen.shows("Valid JSON"));
    EXPECT_FALSE(screen.shows("Input is empty"));
    EXPECT_TRUE(screen.hasButton(trailingComma));
}

TEST_F(JSONFormatterScreenTest, TheErrorLeadsToItsPlace) {
    screen.type("Input", "[1,]");
    screen.press("Validate");
    auto& input = screen.editor("Input");
    EXPECT_FALSE(input.marks(TextMarkLayer::content).empty());
    input.select({0, 0});
    screen.press(trailingComma);
    EXPECT_EQ(input.selection(), (TextSelection{3, 3}));
    EXPECT_TRUE(input.hasFocus());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&screen.button(trailingComma))->role(),
              QAccessible::Link);
    screen.type("Input", "[1]");
    EXPECT_TRUE(input.marks(TextMarkLayer::content).empty());
    EXPECT_FALSE(screen.hasButton(trailingComma));
}

TEST_F(JSONFormatterScreenTest, ShowsTheTreeOfTypedText) {
    screen.press("Tree View");
    EXPECT_FALSE(screen.hasEditor("Output"));
    EXPECT_FALSE(screen.hasList("Tree View"));
    screen.type("Input", R"({"b":[true],"a":"x"})");
    EXPECT_EQ(rows(), (std::vector<std::string>{"root {2}", "a \"x\"", "b [1]", "[0] true"}));
    screen.type("Input", ",");
    EXPECT_FALSE(screen.hasList("Tree View"));
    screen.press("Tree View");
    EXPECT_TRUE(screen.hasEditor("Output"));
}

TEST_F(JSONFormatterScreenTest, AsksForATextWhileThereIsNoTree) {
    screen.press("Tree View");
    const auto named = [this](const QString& name) {
        return std::ranges::any_of(widget->findChildren<QWidget*>(), [&](const QWidget* child) {
            return child->isVisible() && child->accessibleName() == name;
        });
    };
    EXPECT_TRUE(named("Enter valid JSON to see tree view"));
    screen.type("Input", "[1]");
    EXPECT_FALSE(named("Enter valid JSON to see tree view"));
}

TEST_F(JSONFormatterScreenTest, FoldsRowsByPointer) {
    screen.press("Tree View");
    screen.type("Input", "[[1],2]");
    auto& list = screen.list("Tree View");
    const auto row = list.rowPlace(1);
    const auto beside = row.topLeft() + QPoint(row.width() / 2, row.height() / 2);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, beside);
    EXPECT_EQ(rows().size(), 4U) << "only the chevron folds";
    const auto chevron = row.topLeft() + QPoint(36, 10); // one level in: 8 + 20, and the middle of 16
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, chevron);
    EXPECT_EQ(rows(), (std::vector<std::string>{"root [2]", "[0] [1]", "[1] 2"}));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, chevron);
    EXPECT_EQ(rows().size(), 4U);
}

TEST_F(JSONFormatterScreenTest, FoldsRowsByKeyboard) {
    screen.press("Tree View");
    screen.type("Input", "[[1],2]");
    auto& list = screen.list("Tree View");
    list.setCurrentRow(2);
    key(Qt::Key_Left); // a scalar: to its parent
    EXPECT_EQ(list.currentRow(), 1);
    key(Qt::Key_Left);
    EXPECT_EQ(rows().size(), 3U);
    key(Qt::Key_Right);
    EXPECT_EQ(rows().size(), 4U);
    key(Qt::Key_Right);
    EXPECT_EQ(list.currentRow(), 2);
    key(Qt::Key_Home);
    key(Qt::Key_Space);
    EXPECT_EQ(rows(), std::vector<std::string>{"root [2]"});
    key(Qt::Key_Return);
    EXPECT_EQ(rows().size(), 4U);
}

TEST_F(JSONFormatterScreenTest, CopiesValueKeyAndPathOfARowByMenuAndKey) {
    screen.press("Tree View");
    screen.type("Input", R"({"power":{"source":"a\nb","kw":[42.5]}})");
    auto& list = screen.list("Tree View");
    const auto row = [&](std::string_view name) {
        const auto names = rows();
        return static_cast<int>(std::ranges::find(names, name) - names.begin());
    };
    const auto placeOf = [&](int number) { return list.rowPlace(number).center(); };
    const auto source = row("source \"a\nb\"");
    {
        const ContextMenu menu(list, placeOf(source));
        EXPECT_EQ(menu.items(), "Copy Value; Copy Key; Copy Path; ");
        menu.choose("Copy Value");
        EXPECT_EQ(fakes.clipboard.content, "a\nb");
        menu.choose("Copy Key");
        EXPECT_EQ(fakes.clipboard.content, "source");
        menu.choose("Copy Path");
        EXPECT_EQ(fakes.clipboard.content, "$.power.source");
    }
    list.setCurrentRow(row("[0] 42.5"));
    EXPECT_EQ(ContextMenu(list).items(), "Copy Value; (Copy Key); Copy Path; ");
    QTest::keySequence(&list, QKeySequence::Copy);
    EXPECT_EQ(fakes.clipboard.content, "42.5");
    QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(fakes.clipboard.content, "$.power.kw[0]");
    list.setCurrentRow(0);
    EXPECT_EQ(ContextMenu(list).items(), "Copy Value; (Copy Key); Copy Path; ");
}

TEST_F(JSONFormatterScreenTest, AKeyOpensTheMenuBelowTheNameOfTheRow) {
    screen.press("Tree View");
    screen.type("Input", "[[1],2]");
    auto& list = screen.list("Tree View");
    list.setCurrentRow(2);
    const auto corner = list.rowPlace(2).bottomLeft();
    const auto place = list.viewport()->mapFromGlobal(ContextMenu(list).place());
    EXPECT_EQ(place.y(), corner.y() + 1);
    EXPECT_GT(place.x(), corner.x() + 40) << "two levels in";
}

TEST_F(JSONFormatterScreenTest, ALongValueCanBeScrolledHorizontally) {
    screen.press("Tree View");
    for (const std::size_t length : {std::size_t{500}, std::size_t{500'000}}) {
        fakes.clipboard.content = "[\"" + std::string(length, 'x') + "\"]";
        screen.press("Paste");
        fakes.background.runAll();
        auto* bar = screen.list("Tree View").horizontalScrollBar();
        const auto start = screen.list("Tree View").grab().toImage();
        EXPECT_GT(bar->maximum(), static_cast<int>(length) * 5);
        bar->setValue(bar->maximum());
        EXPECT_NE(screen.list("Tree View").grab().toImage(), start);
        auto& list = screen.list("Tree View");
        const QPoint atTheEnd(list.viewport()->width() - 10, list.rowPlace(1).center().y());
        const auto unmarked = list.grab().toImage();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, atTheEnd);
        EXPECT_EQ(list.currentRow(), 1);
        EXPECT_NE(list.grab().toImage(), unmarked) << "the row is highlighted along its whole width";
        bar->setValue(0);
        list.setCurrentRow(0);
    }
}

TEST_F(JSONFormatterScreenTest, TheWidestRowIsReachedSidewaysAlsoWhileItIsHidden) {
    screen.press("Tree View");
    const auto range = [&](const std::string& text) {
        fakes.clipboard.content = text;
        screen.press("Paste");
        return screen.list("Tree View").horizontalScrollBar()->maximum();
    };
    const auto value = '"' + std::string(300, 'x') + '"';
    const auto inner = range("[[" + value + "]]");
    EXPECT_GT(inner, range("[" + value + "]")) << "a level more";
    EXPECT_EQ(range("[[" + value + "],1]"), inner) << "other rows are less wide";
    auto& list = screen.list("Tree View");
    list.setCurrentRow(1);
    key(Qt::Key_Left);
    EXPECT_EQ(rows().size(), 3U);
    EXPECT_EQ(list.horizontalScrollBar()->maximum(), inner) << "what is read does not move";
}

TEST_F(JSONFormatterScreenTest, GoesToTheParentOverCollapsedRows) {
    screen.press("Tree View");
    screen.type("Input", "[[[1],[2],3],4]");
    auto& list = screen.list("Tree View");
    for (const int row : {4, 2}) {
        list.setCurrentRow(row);
        key(Qt::Key_Left);
    }
    EXPECT_EQ(rows(),
              (std::vector<std::string>{"root [2]", "[0] [3]", "[0] [1]", "[1] [1]", "[2] 3", "[1] 4"}));
    list.setCurrentRow(4);
    key(Qt::Key_Left);
    EXPECT_EQ(list.currentRow(), 1);
    key(Qt::Key_Left);
    key(Qt::Key_End);
    key(Qt::Key_Left);
    EXPECT_EQ(list.currentRow(), 0) << "the row below collapsed ones";
}

TEST_F(JSONFormatterScreenTest, TypingGoesToTheNextNameAmongAnyNumberOfRows) {
    const auto restore = qScopeGuard([interval = QApplication::keyboardInputInterval()] {
        QApplication::setKeyboardInputInterval(interval);
    });
    constexpr int anHour =
        3'600'000; // in milliseconds: no key begins another search, however slow the test is
    QApplication::setKeyboardInputInterval(anHour);
    std::string numbers = "0";
    while (numbers.size() < 40'000)
        numbers += ",0";
    fakes.clipboard.content = R"({"a":[)" + numbers + R"(],"name":1,"next":2})";
    screen.press("Tree View");
    screen.press("Paste");
    auto& list = screen.list("Tree View");
    const auto search = [] {
        constexpr int turns = 100; // far more than the search needs
        for (int turn = 0; turn < turns; ++turn)
            QCoreApplication::processEvents();
    };
    key(Qt::Key_N);
    EXPECT_EQ(list.currentRow(), 0) << "a long search goes on later";
    search();
    EXPECT_EQ(list.currentRow(), list.rowCount() - 2);
    key(Qt::Key_E);
    EXPECT_EQ(list.currentRow(), list.rowCount() - 1) << "a near row is found at once";
    key(Qt::Key_Home);
    key(Qt::Key_X);
    key(Qt::Key_Down);
    search();
    EXPECT_EQ(list.currentRow(), 1) << "another key ends the search";
    key(Qt::Key_T);
    screen.press("Clear");
    search();
    EXPECT_FALSE(screen.hasList("Tree View"));
}

TEST_F(JSONFormatterScreenTest, AcceptsAnyPastedText) {
    const std::string texts[] = {
        std::string(100'000, '['),         std::string("[\0]", 3),          "\xff\xfe", "\"\\ud800\"",
        std::string(2'000'000, ' ') + "1", "{\"a\":1e99999999999999999999}"};
    screen.press("Tree View");
    for (const auto& text : texts) {
        fakes.clipboard.content = text;
        screen.press("Paste");
        for (const auto button : {"Prettify", "Minify", "Validate"})
            screen.press(button);
        EXPECT_EQ(screen.text("Input"), text);
    }
}

TEST_F(JSONFormatterScreenTest, WarnsAboutDuplicateNamesBesideTheStatus) {
    constexpr auto warning = R"(Duplicate name "a": only its last value counts)";
    screen.type("Input", R"({"a":1,"a":2})");
    screen.press("Validate");
    EXPECT_TRUE(screen.shows("Valid JSON"));
    EXPECT_TRUE(screen.shows(warning));
    EXPECT_EQ(screen.announcement(), std::string("Valid JSON, ") + warning);
    screen.type("Input", "[]");
    EXPECT_FALSE(screen.shows("Valid JSON"));
    EXPECT_FALSE(screen.shows(warning));
}

} // namespace
} // namespace korvane
