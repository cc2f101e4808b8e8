/// The whole program by keyboard alone: the keys that do the same on every screen.

#include "Desktop/Lists/RowList.h"
#include "Desktop/Text/TextArea.h"
#include "support/Pictures.h"
#include "support/Scenes.h"
#include "support/WindowTest.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <chrono>
#include <map>
#include <string>
#include <utility>

namespace korvane {
namespace {

struct KeyboardTest : WindowTest {
    QLineEdit& search() { return screen.field("Search tools..."); }
};

TEST_F(KeyboardTest, ANewScreenFocusesItsMainControl) {
    const std::map<Tool, std::string> first{
        {Tool::jsonFormatter, "Input"},        {Tool::base64, "Plain Text"},
        {Tool::urlEncoder, "Plain Text"},      {Tool::jwtDecoder, "JWT Token"},
        {Tool::hashGenerator, "Input Text"},   {Tool::uuidGenerator, "Generate New"},
        {Tool::timestamp, "Timestamp"},        {Tool::regexTester, "Pattern"},
        {Tool::colorPicker, "Select Color"},   {Tool::textDiff, "Original Text"},
        {Tool::textTransformer, "Input Text"}, {Tool::numberBase, "Input"},
        {Tool::loremIpsum, "Generate"},        {Tool::passwordGenerator, "Generate"},
        {Tool::markdownPreview, "Markdown"},   {Tool::imageConverter, "Choose File"},
    };
    for (const auto tool : allCases<Tool>) {
        ASSERT_TRUE(first.contains(tool)) << rawValue(tool) << " is missing in this table";
        open(tool);
        EXPECT_EQ(focus(), first.at(tool)) << rawValue(tool);
    }
}

TEST_F(KeyboardTest, ControlTabLeavesAnEditorInBothDirections) {
    screen.editor("Input").setFocus();
    press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(focus(), "Output");
    press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(focus(), "Input");
    press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(focus(), "Clear");
    EXPECT_EQ(screen.text("Input"), "");
}

TEST_F(KeyboardTest, ReturnInAnEditorInsertsALineBreakAndPressesNoButton) {
    screen.type("Input", "a");
    press(Qt::Key_Return);
    press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(screen.text("Input"), "a\n\n");
    EXPECT_EQ(screen.text("Output"), "");
}

TEST_F(KeyboardTest, ReturnInAFieldPressesItsButton) {
    open(Tool::timestamp);
    QTest::keyClicks(window.focusWidget(), "0");
    press(Qt::Key_Return);
    EXPECT_FALSE(screen.text("Result").empty());
    open(Tool::colorPicker);
    screen.enter("HEX Input", "00ff00");
    press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(screen.text("RGB"), "rgb(0, 255, 0)");
}

TEST_F(KeyboardTest, AHeldReturnPressesOnce) {
    open(Tool::uuidGenerator);
    auto& button = screen.button("Generate New");
    button.setFocus();
    press(Qt::Key_Return);
    const auto generated = screen.text("UUID");
    QKeyEvent again(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
    QApplication::sendEvent(&button, &again);
    EXPECT_EQ(screen.text("UUID"), generated);
    press(Qt::Key_Return, Qt::AltModifier);
    EXPECT_EQ(screen.text("UUID"), generated);
}

TEST_F(KeyboardTest, ArrowsHomeAndEndChooseSegments) {
    open(Tool::markdownPreview);
    press(Qt::Key_Backtab);
    ASSERT_TRUE(qobject_cast<QRadioButton*>(window.focusWidget()));
    press(Qt::Key_Home);
    const auto first = focus();
    press(Qt::Key_Right);
    const auto second = focus();
    press(Qt::Key_End);
    const auto last = focus();
    EXPECT_NE(first, second);
    EXPECT_NE(second, last);
    press(Qt::Key_Right);
    press(Qt::Key_Home);
    EXPECT_EQ(focus(), first);
    EXPECT_TRUE(static_cast<QAbstractButton*>(window.focusWidget())->isChecked());
}

TEST_F(KeyboardTest, AMenuPickerOpensByKeyAndReturnsTheFocus) {
    open(Tool::imageConverter);
    auto& picker = screen.picker("Rotation");
    picker.setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(picker.currentIndex(), 1) << "without opening it";
    press(Qt::Key_End);
    const auto last = picker.currentIndex();
    EXPECT_EQ(last, picker.count() - 1);
    const std::pair<Qt::Key, Qt::KeyboardModifiers> openings[] = {{Qt::Key_Space, {}},
                                                                  {Qt::Key_Return, {}},
                                                                  {Qt::Key_Enter, Qt::KeypadModifier},
                                                                  {Qt::Key_Down, Qt::AltModifier}};
    for (const auto& [key, modifiers] : openings) {
        picker.setCurrentIndex(last);
        press(key, modifiers);
        ASSERT_TRUE(QApplication::activePopupWidget()) << key;
        press(Qt::Key_Up);
        press(Qt::Key_Escape);
        EXPECT_FALSE(QApplication::activePopupWidget());
        EXPECT_EQ(picker.currentIndex(), last) << "Escape chooses nothing";
        press(key, modifiers);
        press(Qt::Key_Up);
        press(Qt::Key_Return);
        EXPECT_FALSE(QApplication::activePopupWidget());
        EXPECT_EQ(picker.currentIndex(), last - 1);
        EXPECT_EQ(window.focusWidget(), &picker);
    }
}

TEST_F(KeyboardTest, ArrowsAndPageKeysMoveThroughAList) {
    auto& list = screen.list("Tools");
    list.setFocus();
    const int last = static_cast<int>(allCases<Tool>.size()) - 1;
    const std::pair<Qt::Key, int> steps[] = {
        {Qt::Key_Down, 1}, {Qt::Key_End, last}, {Qt::Key_Up, last - 1}, {Qt::Key_Home, 0}, {Qt::Key_Up, 0}};
    for (const auto& [key, row] : steps) {
        press(key);
        EXPECT_EQ(list.currentRow(), row);
    }
    press(Qt::Key_PageDown);
    EXPECT_GT(list.currentRow(), 5);
    press(Qt::Key_PageUp);
    EXPECT_EQ(list.currentRow(), 0);
    press(Qt::Key_Escape);
    EXPECT_EQ(focus(), "Input") << "back to the control used before";
}

TEST_F(KeyboardTest, TheTreeIsNavigatedAndCopiedByKey) {
    screen.press("Tree View");
    paste(screen, fakes, "{\"a\":[1,2],\"b\":true}");
    auto& tree = screen.list("Tree View");
    tree.setFocus();
    press(Qt::Key_End);
    EXPECT_EQ(tree.currentRow(), tree.rowCount() - 1);
    QTest::keySequence(&tree, QKeySequence::Copy);
    EXPECT_EQ(fakes.clipboard.content, "true");
    press(Qt::Key_Home);
    EXPECT_EQ(tree.currentRow(), 0);
}

TEST_F(KeyboardTest, OnePressOfEscapeLeavesTheSearch) {
    screen.button("Prettify").setFocus();
    QTest::keySequence(window.focusWidget(), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F));
    EXPECT_EQ(window.focusWidget(), &search());
    QTest::keyClicks(&search(), "hash");
    press(Qt::Key_Escape);
    EXPECT_EQ(search().text(), "");
    EXPECT_EQ(focus(), "Prettify");
    QTest::keySequence(window.focusWidget(), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F));
    press(Qt::Key_Escape);
    EXPECT_EQ(focus(), "Prettify");
}

TEST_F(KeyboardTest, TheTextWithTheFocusIsSearched) {
    screen.type("Input", "[1, 12]");
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(focus(), "Find in Input");
    QTest::keyClicks(window.focusWidget(), "1");
    EXPECT_TRUE(screen.shows("1 of 2"));
    press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(window.focusWidget(), &search());
}

TEST_F(KeyboardTest, OutsideOfTextsToolsAreSearched) {
    screen.button("Prettify").setFocus();
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(window.focusWidget(), &search());
}

TEST_F(KeyboardTest, ControlReturnPressesTheFirstAction) {
    screen.type("Input", "[1]");
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(screen.text("Output"), "[\n  1\n]");
    EXPECT_EQ(screen.text("Input"), "[1]");
    EXPECT_EQ(focus(), "Input");
    EXPECT_EQ(screen.button("Prettify").toolTip(), "Ctrl+Return");
    EXPECT_EQ(screen.button("Minify").toolTip(), "");
}

TEST_F(KeyboardTest, TypingInTheSearchReplacesItsText) {
    search().setFocus();
    QTest::keyClicks(&search(), "hash");
    screen.editor("Input").setFocus();
    QTest::keySequence(window.focusWidget(), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F));
    QTest::keyClicks(&search(), "j");
    EXPECT_EQ(search().text(), "j");
}

TEST_F(KeyboardTest, TheSearchOpensAToolAndFocusesItByKeyboardAlone) {
    QTest::keySequence(window.focusWidget(), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F));
    QTest::keyClicks(&search(), "base64");
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(window.store().state<ContentView>().selectedTool, Tool::base64);
    EXPECT_EQ(focus(), "Plain Text");
}

TEST_F(KeyboardTest, ReturnOpensTheToolThatTheSearchFound) {
    press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClicks(window.focusWidget(), "hash");
    press(Qt::Key_Return);
    EXPECT_EQ(window.store().state<ContentView>().selectedTool, Tool::hashGenerator);
    EXPECT_EQ(focus(), "Input Text");

    press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClicks(window.focusWidget(), "no such tool");
    press(Qt::Key_Return);
    EXPECT_EQ(window.store().state<ContentView>().selectedTool, Tool::hashGenerator);
    EXPECT_EQ(focus(), "Search tools...");
}

TEST_F(KeyboardTest, F10OpensTheMenusAndEscapeReturnsTheFocus) {
    screen.editor("Input").setFocus();
    press(Qt::Key_F10);
    const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->title(), "&File");
    EXPECT_EQ(menu->activeAction()->text(), "JSON Formatter") << "the first enabled item";
    press(Qt::Key_Right);
    menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->title(), "&Edit");
    press(Qt::Key_Escape);
    EXPECT_FALSE(QApplication::activePopupWidget());
    EXPECT_EQ(focus(), "Input");
    press(Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(window.store().state<ContentView>().selectedTool, Tool::base64);
}

TEST_F(KeyboardTest, ShiftF10OpensTheMenuOfAControl) {
    screen.editor("Input").setFocus();
    press(Qt::Key_F10, Qt::ShiftModifier);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->title(), "") << "not one of the menu bar";
    menu->close();
}

TEST_F(KeyboardTest, TheShortcutsWorkFromTheMenuBar) {
    auto* bar = window.findChild<QMenuBar*>();
    for (const auto& [key, tool] : {std::pair(Qt::Key_2, Tool::base64), {Qt::Key_0, Tool::textDiff}}) {
        bar->setFocus(Qt::MenuBarFocusReason);
        ASSERT_EQ(window.focusWidget(), bar);
        press(key, Qt::ControlModifier);
        EXPECT_EQ(window.store().state<ContentView>().selectedTool, tool);
    }
    EXPECT_TRUE(fakes.posted.empty()) << "no menu item was triggered";
}

TEST_F(KeyboardTest, QuitAndCloseShortcutsWorkInAnEditor) {
    for (const auto* action : window.findChildren<QAction*>()) {
        if (action->text() != "&Quit")
            continue;
        const QSignalSpy triggers(action, &QAction::triggered);
        press(Qt::Key_Q, Qt::ControlModifier);
        EXPECT_EQ(triggers.count(), 1);
    }
    QTest::keySequence(window.focusWidget(), QKeySequence::Close);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(KeyboardTest, AMessageCanBeFocusedAndCopied) {
    open(Tool::timestamp);
    QTest::keyClicks(window.focusWidget(), "x");
    press(Qt::Key_Return);
    auto& message = screen.editor("Error");
    auto* field = window.focusWidget();
    for (int stop = 0; stop < 3 && window.focusWidget() != &message; ++stop)
        press(Qt::Key_Tab);
    ASSERT_EQ(window.focusWidget(), &message);
    QTest::keySequence(&message, QKeySequence::Copy);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), message.text());
    press(Qt::Key_Backtab);
    EXPECT_EQ(message.selectedText(), "");
    message.setFocus();
    screen.enter("Timestamp", "1");
    press(Qt::Key_Return);
    EXPECT_EQ(window.focusWidget(), field);
}

TEST_F(KeyboardTest, TheFocusOfARemovedControlMovesToANearbyOne) {
    open(Tool::loremIpsum);
    press(Qt::Key_Return);
    screen.button("Clear").setFocus();
    press(Qt::Key_Return);
    EXPECT_EQ(focus(), "Generate") << "the last control before the removed one";

    open(Tool::urlEncoder);
    screen.choose("Analyze URL");
    screen.type("URL Input", "https://a.b/c?d=e");
    screen.press("Analyze URL");
    screen.button("Copy d").setFocus();
    screen.editor("URL Input").onEdit("https://a.b/c?other=e");
    screen.button("Analyze URL").click();
    settle();
    ASSERT_TRUE(window.focusWidget());
    EXPECT_TRUE(window.focusWidget()->isVisible()) << "though the rows have been replaced";
}

TEST_F(KeyboardTest, OpeningAPictureByKeyDoesNotFocusRemove) {
    fakes.files.contents["/picture.png"] =
        FakeImages::shared()
            ->convert(support::plainPicture({8, 6}, {1, 2, 3}), ImageFormat::png, 1)
            .value()
            .view();
    open(Tool::imageConverter);
    press(Qt::Key_Return);
    fakes.panels.choose("/picture.png");
    fakes.background.runAll();
    settle();
    EXPECT_EQ(focus(), "Format");
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focus(), "Remove") << "the Tab key still stops there";
    press(Qt::Key_Return);
    EXPECT_EQ(focus(), "Choose File");
}

TEST_F(KeyboardTest, AButtonDisabledWhileBusyGetsTheFocusBack) {
    open(Tool::textDiff);
    QApplication::clipboard()->setText(QString(100'000, '\n'));
    QTest::keySequence(&screen.editor("Original Text"), QKeySequence::Paste);
    screen.type("Modified Text", "x");
    auto& compare = screen.button("Compare");
    const auto compareLong = [&] {
        compare.setFocus();
        press(Qt::Key_Return);
        fakes.timers.advance(std::chrono::seconds(1));
    };
    compareLong();
    ASSERT_FALSE(compare.isEnabled());
    EXPECT_EQ(focus(), "Side by Side");
    fakes.background.runAll();
    settle();
    EXPECT_EQ(focus(), "Compare");
    screen.press("Clear All");
    QTest::keySequence(&screen.editor("Original Text"), QKeySequence::Paste);
    compareLong();
    ASSERT_FALSE(compare.isEnabled());
    press(Qt::Key_Right); // the user moves the focus meanwhile
    fakes.background.runAll();
    settle();
    EXPECT_EQ(focus(), "Unified");
}

TEST_F(KeyboardTest, TheColorDialogOpensAndClosesByKeyAndReturnsTheFocus) {
    open(Tool::colorPicker);
    auto& well = screen.button("Select Color");
    for (const auto key : {Qt::Key_Return, Qt::Key_Space}) {
        well.setFocus();
        press(key);
        auto* dialog = well.findChild<QColorDialog*>();
        ASSERT_TRUE(dialog && dialog->isVisible());
        QTest::keyClick(dialog, Qt::Key_Escape);
        settle();
        EXPECT_FALSE(well.findChild<QColorDialog*>());
        EXPECT_EQ(window.focusWidget(), &well);
    }
}

} // namespace
} // namespace korvane
