/// The accessible interfaces of the controls, called directly without assistive technology.

#include "Desktop/Access/Accessibility.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Controls/Slider.h"
#include "Desktop/Controls/Toggle.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Lists/RowList.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Text/LineEdit.h"
#include "Desktop/Text/TextArea.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QCoreApplication>
#include <QRegularExpressionValidator>
#include <QSlider>
#include <QTimer>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace korvane {
namespace {

QAccessibleInterface& interfaceOf(QWidget& widget) {
    return *QAccessible::queryAccessibleInterface(&widget);
}

TEST(AccessibilityTest, TextIsWrittenAndReadExactly) {
    TextArea area;
    std::string edited;
    area.onEdit = [&](const Rope& text) { edited = text.string(); };
    area.setText("one\r\nthree");
    auto* text = interfaceOf(area).textInterface();
    auto* editable = interfaceOf(area).editableTextInterface();
    EXPECT_EQ(text->characterCount(), 10);
    editable->insertText(5, "two\r\n");
    EXPECT_EQ(edited, "one\r\ntwo\r\nthree");
    EXPECT_EQ(text->text(3, 8), "\r\ntwo");
    editable->deleteText(3, 8);
    EXPECT_EQ(area.text(), "one\r\nthree");
    editable->replaceText(0, text->characterCount(), "\r\u2028\u0085");
    EXPECT_EQ(edited, "\r\xe2\x80\xa8\xc2\x85");
}

TEST(AccessibilityTest, BlockBoundariesInsideALongLineAreNotCounted) {
    TextArea area(nullptr, 8);
    area.setText("0123456789abcdefghij");
    auto* text = interfaceOf(area).textInterface();
    EXPECT_EQ(text->characterCount(), 20);
    for (int offset = 0; offset <= 20; ++offset) {
        text->setCursorPosition(offset);
        EXPECT_EQ(text->cursorPosition(), offset);
    }
    text->setSelection(0, 7, 10);
    EXPECT_EQ(area.selectedText(), "789");
}

TEST(AccessibilityTest, AReadOnlyTextCannotBeEdited) {
    TextArea area;
    area.setReadOnly(true);
    EXPECT_EQ(interfaceOf(area).editableTextInterface(), nullptr);
    EXPECT_TRUE(interfaceOf(area).state().readOnly);
}

TEST(AccessibilityTest, AFieldAcceptsATextUnlessItsValidatorRejectsIt) {
    LineEdit edit(Theme::TextStyle::body);
    edit.setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]*"), &edit));
    std::vector<std::string> edits;
    edit.onEdit = [&](const std::string& text) { edits.push_back(text); };
    edit.display("1");
    edit.setText("12"); // as assistive technology sets it
    edit.setText("x");
    EXPECT_EQ(edits, std::vector<std::string>{"12"});
    EXPECT_EQ(edit.text(), "12");
}

TEST(AccessibilityTest, RowsAreListItemsThatCanBePressed) {
    int pressed = -1;
    RowList list({.count = [] { return 1'000'000; },
                  .name = [](int row) { return "row " + std::to_string(row); },
                  .paint = [](QPainter&, const QRect&, int, RowState) {},
                  .isExpanded = [](int row) { return row == 0 ? std::optional(false) : std::nullopt; },
                  .height = 20});
    list.onActivate = [&](int row) { pressed = row; };
    auto& rows = interfaceOf(list);
    EXPECT_EQ(rows.role(), QAccessible::List);
    EXPECT_EQ(rows.childCount(), 1'000'000);
    auto* row = rows.child(999'999);
    EXPECT_EQ(row->role(), QAccessible::ListItem);
    EXPECT_EQ(row->text(QAccessible::Name), "row 999999");
    EXPECT_EQ(row->parent(), &rows);
    EXPECT_EQ(rows.indexOfChild(row), 999'999);
    EXPECT_FALSE(row->state().expandable);
    EXPECT_TRUE(rows.child(0)->state().collapsed);
    row->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCoreApplication::processEvents();
    EXPECT_EQ(pressed, 999'999);
}

TEST(AccessibilityTest, ARowHasTheRectangleOfItsVisiblePart) {
    QWidget window;
    window.resize(400, 300);
    RowList list({.count = [] { return 100; },
                  .name = [](int row) { return std::to_string(row); },
                  .paint = [](QPainter&, const QRect&, int, RowState) {},
                  .width = [] { return 5000; },
                  .height = 30});
    list.setParent(&window);
    list.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list.setGeometry(20, 20, 200, 100);
    window.show();
    settle();
    auto& rows = interfaceOf(list);
    const auto origin = rows.rect().topLeft();
    EXPECT_EQ(rows.child(0)->rect(), QRect(origin, QSize(200, 30)));
    EXPECT_EQ(rows.child(3)->rect(), QRect(origin + QPoint(0, 90), QSize(200, 10)));
    EXPECT_FALSE(rows.child(3)->state().offscreen);
    EXPECT_TRUE(rows.child(4)->rect().isEmpty());
    EXPECT_TRUE(rows.child(4)->state().offscreen);
    list.setCurrentRow(99);
    EXPECT_TRUE(rows.child(0)->rect().isEmpty());
    EXPECT_EQ(rows.child(99)->rect(), QRect(origin + QPoint(0, 70), QSize(200, 30)));
}

TEST(AccessibilityTest, TheCurrentRowOfAFocusedListHasTheFocus) {
    RowList list({.count = [] { return 3; },
                  .name = [](int row) { return std::to_string(row); },
                  .paint = [](QPainter&, const QRect&, int, RowState) {},
                  .height = 30});
    list.show();
    list.activateWindow();
    list.setFocus();
    settle();
    list.setCurrentRow(1);
    auto& rows = interfaceOf(list);
    EXPECT_EQ(rows.focusChild(), rows.child(1));
    EXPECT_TRUE(rows.child(1)->state().focused);
    EXPECT_FALSE(rows.child(0)->state().focused);
    EXPECT_FALSE(rows.state().focused);
}

TEST(AccessibilityTest, AnAnnouncementExpires) {
    QWidget window;
    window.show();
    announce(window, "one");
    announce(window, "two");
    EXPECT_EQ(ScreenDriver(window).announcement(), "two");
    auto* expiry = window.findChild<QTimer*>();
    ASSERT_TRUE(expiry && expiry->isActive());
    expiry->setInterval(0); // expires at once
    settle();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(interfaceOf(window).childCount(), 0);
    announce(window, "three");
    EXPECT_EQ(ScreenDriver(window).announcement(), "three");
}

struct Level {
    double value = 0.25;
    bool isOn = false;
    std::string message{};

    void setValue(double chosen) { value = chosen; }

    void setOn(bool on) { isOn = on; }
};

struct AccessibleScreenTest : testing::Test {
    FakeServices fakes{};
    Store store{fakes.services, Level()};
    std::unique_ptr<QWidget> widget{row({
        slider(store, "Level", &Level::value, &Level::setValue, {.minimum = 0, .maximum = 1}),
        toggle(store, "On", &Level::isOn, &Level::setOn),
        announcing(store, &Level::message, textLabel(store, "", Theme::TextStyle::body)),
    })};
    ScreenDriver screen{*widget};
};

TEST_F(AccessibleScreenTest, ASliderReadsAndSetsTheValueOfTheState) {
    auto* value = interfaceOf(screen.slider("Level")).valueInterface();
    EXPECT_EQ(value->currentValue().toDouble(), 0.25);
    EXPECT_EQ(value->maximumValue().toDouble(), 1);
    value->setCurrentValue(1.0 / 3);
    EXPECT_EQ(store.state<Level>().value, 1.0 / 3);
    value->setCurrentValue(7);
    EXPECT_EQ(store.state<Level>().value, 1);
}

TEST_F(AccessibleScreenTest, ASwitchTogglesByItsAction) {
    auto& toggle = interfaceOf(screen.button("On"));
    EXPECT_EQ(toggle.role(), QAccessible::CheckBox);
    toggle.actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QCoreApplication::processEvents();
    EXPECT_TRUE(store.state<Level>().isOn);
    EXPECT_TRUE(toggle.state().checked);
}

TEST_F(AccessibleScreenTest, AnnouncesEachNewMessage) {
    const auto announced = [&](const std::string& message) {
        store.perform([&](Level& state) { state.message = message; });
        return screen.announcement();
    };
    EXPECT_EQ(announced(""), "");
    EXPECT_EQ(announced("one"), "one");
    EXPECT_EQ(announced(""), "one") << "the newest announcement stays";
    EXPECT_EQ(announced("two"), "two");
}

} // namespace
} // namespace korvane
