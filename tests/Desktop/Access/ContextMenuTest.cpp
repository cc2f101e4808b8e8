/// The context menus of read-only texts, and what Copy copies without a selection.

#include "Desktop/Access/ContextMenu.h"

#include "Desktop/Text/SelectableText.h"
#include "Desktop/Tools/Hash/ElidedField.h"
#include "Desktop/Tools/Markdown/MarkdownBrowser.h"
#include "support/ContextMenus.h"
#include "support/FakeServices.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QtTest/QTest>

#include <string>

namespace korvane {
namespace {

std::string copied() {
    return QApplication::clipboard()->text().toStdString();
}

/// Checks the menu of a read-only text of two words; `select` selects the second.
template <typename Select>
void expectReadingMenu(QWidget& text, Select select, const std::string& whole = "two words") {
    text.resize(300, 100);
    text.show();
    QApplication::clipboard()->setText("before");
    {
        const ContextMenu menu(text);
        EXPECT_EQ(menu.items(), "Copy; Select All; ");
        menu.choose("Copy");
        EXPECT_EQ(copied(), whole) << "without a selection the whole text is copied";
    }
    QApplication::clipboard()->setText("before");
    QTest::keySequence(&text, QKeySequence::Copy);
    EXPECT_EQ(copied(), whole) << "the shortcut copies the same";
    select();
    const ContextMenu menu(text);
    menu.choose("Copy");
    EXPECT_EQ(copied(), "words");
    menu.choose("Select All");
    menu.choose("Copy");
    EXPECT_EQ(copied(), whole);
}

void expectDisabledMenu(QWidget& text) {
    QApplication::clipboard()->setText("before");
    {
        const ContextMenu menu(text);
        EXPECT_EQ(menu.items(), "(Copy); (Select All); ");
    }
    QTest::keySequence(&text, QKeySequence::Copy);
    EXPECT_EQ(copied(), "before") << "an empty text leaves the clipboard unchanged";
}

TEST(ContextMenuTest, AnOutputCopiesItsWholeText) {
    TextArea area;
    area.setReadOnly(true);
    expectDisabledMenu(area);
    area.setText("two words");
    expectReadingMenu(area, [&] {
        QTest::keyClick(&area, Qt::Key_End, Qt::ControlModifier);
        QTest::keyClick(&area, Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
    });
}

TEST(ContextMenuTest, AnEditorKeepsTheStandardMenu) {
    TextArea area;
    area.setText("text");
    QApplication::clipboard()->setText("before");
    const ContextMenu menu(area);
    EXPECT_NE(menu.items().find("Paste"), std::string::npos);
    QTest::keySequence(&area, QKeySequence::Copy);
    EXPECT_EQ(copied(), "before") << "in an editor, Copy copies only a selection";
}

TEST(ContextMenuTest, AValueCopiesItsWholeText) {
    SelectableText value({});
    expectDisabledMenu(value);
    value.display("two words");
    expectReadingMenu(value, [&] { value.select({9, 4}); });
}

TEST(ContextMenuTest, ASecretIsCopiedAsSecret) {
    SelectableText value({.isSecret = true});
    value.display("secret");
    const ContextMenu menu(value);
    menu.choose("Copy");
    EXPECT_EQ(copied(), "secret");
    EXPECT_TRUE(QApplication::clipboard()->mimeData()->hasFormat("x-kde-passwordManagerHint"));
}

TEST(ContextMenuTest, AnElidedFieldCopiesItsWholeText) {
    ElidedField field("Name", "");
    expectDisabledMenu(field);
    field.display("two words");
    expectReadingMenu(field, [&] { field.setSelection(4, 5); });
}

TEST(ContextMenuTest, APreviewCopiesItsWholeTextAndItsLinks) {
    Rope markdown;
    FakeBackground background;
    MarkdownBrowser browser([&]() -> const Rope& { return markdown; }, background);
    browser.show();
    expectDisabledMenu(browser);
    markdown = "two [words](https://example.org/)";
    browser.refresh();
    expectReadingMenu(
        browser, [&] { browser.setTextCursor(browser.document()->find("words")); }, "two words\n");
    auto cursor = browser.document()->find("words");
    cursor.setPosition(cursor.selectionStart());
    const auto place = browser.cursorRect(cursor).center() + QPoint(3, 0);
    const ContextMenu menu(browser, place);
    EXPECT_EQ(menu.items(), "Copy; Select All; Copy Link Location; ");
    menu.choose("Copy Link Location");
    EXPECT_EQ(copied(), "https://example.org/");
}

} // namespace
} // namespace korvane
