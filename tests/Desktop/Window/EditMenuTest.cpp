/// The Edit menu for the focused control: a text, a list or a number.

#include "Desktop/Binding/Strings.h"
#include "Desktop/Lists/RowList.h"
#include "Desktop/Text/TextArea.h"
#include "support/WindowTest.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QSpinBox>

#include <stdexcept>
#include <string>

namespace korvane {
namespace {

struct EditMenuTest : WindowTest {
    QAction& editItem(const QString& title) {
        for (const auto* menu : window.findChildren<QMenu*>()) {
            for (auto* action : menu->actions()) {
                if (menu->title() == "&Edit" && action->text() == title)
                    return *action;
            }
        }
        throw std::runtime_error("no menu item " + title.toStdString());
    }

    /// The enabled items of the Edit menu for the focused control.
    std::string editItems() {
        std::string titles;
        auto& menu = *qobject_cast<QMenu*>(editItem("&Undo").parent());
        emit menu.aboutToShow();
        for (const auto* action : menu.actions()) {
            if (action->isEnabled() && !action->isSeparator())
                titles += utf8String(action->text()) + " ";
        }
        return titles;
    }
};

TEST_F(EditMenuTest, EnablesTheActionsOfTheFocusedControl) {
    const std::string all = "&Undo &Redo Cu&t &Copy &Paste Select &All ";
    const std::string reading = "&Copy Select &All ";
    EXPECT_EQ(editItems(), all);
    screen.editor("Output").setFocus();
    EXPECT_EQ(editItems(), reading);
    screen.button("Prettify").setFocus();
    EXPECT_EQ(editItems(), "");
    screen.list("Tools").setFocus();
    EXPECT_EQ(editItems(), "&Copy ");
    screen.field("Search tools...").setFocus();
    EXPECT_EQ(editItems(), all);
    open(Tool::uuidGenerator);
    screen.stepper("Count").setFocus();
    EXPECT_EQ(editItems(), all);
    open(Tool::textDiff);
    screen.type("Original Text", "a\nb");
    screen.press("Compare");
    screen.list("Original").setFocus();
    EXPECT_EQ(editItems(), reading);
}

TEST_F(EditMenuTest, CopiesFromLists) {
    open(Tool::textDiff);
    screen.type("Original Text", "one\ntwo");
    screen.press("Compare");
    screen.list("Original").setFocus();
    editItem("Select &All").trigger();
    editItem("&Copy").trigger();
    EXPECT_EQ(QApplication::clipboard()->text(), "one\ntwo");
    const auto rows = screen.list("Original").rowCount();
    editItem("Cu&t").trigger();
    editItem("&Undo").trigger();
    EXPECT_EQ(screen.list("Original").rowCount(), rows);

    open(Tool::regexTester);
    screen.enter("Pattern", "b");
    screen.type("Test String", "abc");
    screen.press("Test");
    screen.list("Matches").setFocus();
    editItem("&Copy").trigger();
    EXPECT_EQ(fakes.clipboard.content, "b");

    open(Tool::passwordGenerator);
    screen.press("Generate");
    screen.list("History").setFocus();
    editItem("&Copy").trigger();
    EXPECT_EQ(fakes.clipboard.content, screen.text("Password"));
    EXPECT_TRUE(fakes.clipboard.isSecret);
}

TEST_F(EditMenuTest, CopiesAndPastesTheNumberOfAStepper) {
    open(Tool::uuidGenerator);
    auto& stepper = screen.stepper("Count");
    stepper.setFocus();
    editItem("Select &All").trigger();
    editItem("&Copy").trigger();
    EXPECT_EQ(QApplication::clipboard()->text(), stepper.text());
    QApplication::clipboard()->setText("7");
    editItem("&Paste").trigger();
    EXPECT_EQ(stepper.value(), 7);
}

} // namespace
} // namespace korvane
