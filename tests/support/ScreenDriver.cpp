#include "support/ScreenDriver.h"

#include "Desktop/Binding/Strings.h"
#include "Desktop/Lists/RowList.h"
#include "Desktop/Text/TextArea.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QtTest/QTest>

#include <algorithm>
#include <stdexcept>
#include <type_traits>

namespace korvane {

namespace {

void typeInto(QWidget& control, std::string_view text) {
    for (const auto character : qString(text)) {
        if (character == '\n')
            QTest::keyClick(&control, Qt::Key_Return);
        else
            QTest::sendKeyEvent(QTest::Click, &control, Qt::Key_unknown, QString(character), Qt::NoModifier);
    }
}

} // namespace

ScreenDriver::ScreenDriver(QWidget& root, QSize size) : m_root(root) {
    root.resize(size);
    root.show();
    settle();
}

template <typename Control>
std::vector<Control*> ScreenDriver::visible(std::string_view name) const {
    std::vector<Control*> found;
    for (auto* child : m_root.findChildren<QWidget*>()) {
        auto* control = dynamic_cast<Control*>(child);
        const bool isWanted = std::is_same_v<Control, QRadioButton> || !qobject_cast<QRadioButton*>(child);
        if (control && isWanted && control->isVisible() && control->accessibleName() == qString(name))
            found.push_back(control);
    }
    return found;
}

template <typename Control>
Control& ScreenDriver::only(std::string_view name) const {
    const auto found = visible<Control>(name);
    if (found.size() != 1)
        throw std::runtime_error(std::to_string(found.size()) + " controls are called " + std::string(name));
    return *found.front();
}

QAbstractButton& ScreenDriver::button(std::string_view name) const {
    return only<QAbstractButton>(name);
}

TextArea& ScreenDriver::editor(std::string_view name) const {
    return only<TextArea>(name);
}

RowList& ScreenDriver::list(std::string_view name) const {
    return only<RowList>(name);
}

QComboBox& ScreenDriver::picker(std::string_view name) const {
    return only<QComboBox>(name);
}

QLineEdit& ScreenDriver::field(std::string_view name) const {
    return only<QLineEdit>(name);
}

QSlider& ScreenDriver::slider(std::string_view name) const {
    return only<QSlider>(name);
}

QSpinBox& ScreenDriver::stepper(std::string_view name) const {
    return only<QSpinBox>(name);
}

void ScreenDriver::press(std::string_view name) const {
    QTest::mouseClick(&button(name), Qt::LeftButton);
    settle();
}

void ScreenDriver::choose(std::string_view segment) const {
    QTest::mouseClick(&only<QRadioButton>(segment), Qt::LeftButton);
    settle();
}

void ScreenDriver::undo(std::string_view name) const {
    editor(name).undo();
    settle();
}

void ScreenDriver::type(std::string_view name, std::string_view text) const {
    auto& area = editor(name);
    area.setFocus();
    typeInto(area, text);
    settle();
}

void ScreenDriver::enter(std::string_view name, std::string_view text) const {
    auto& edit = field(name);
    edit.setFocus();
    edit.selectAll();
    typeInto(edit, text);
    if (text.empty())
        QTest::keyClick(&edit, Qt::Key_Delete);
    settle();
}

std::string ScreenDriver::text(std::string_view name) const {
    return editor(name).text().string();
}

std::string ScreenDriver::placeholder(std::string_view name) const {
    return utf8String(editor(name).placeholder());
}

bool ScreenDriver::hasButton(std::string_view name) const {
    return visible<QAbstractButton>(name).size() == 1;
}

int ScreenDriver::buttonCount(std::string_view name) const {
    return static_cast<int>(visible<QAbstractButton>(name).size());
}

bool ScreenDriver::hasEditor(std::string_view name) const {
    return visible<TextArea>(name).size() == 1;
}

bool ScreenDriver::hasList(std::string_view name) const {
    return visible<RowList>(name).size() == 1;
}

bool ScreenDriver::shows(std::string_view label) const {
    const auto all = labels();
    return std::ranges::find(all, label) != all.end();
}

std::string ScreenDriver::announcement() const {
    const auto* window = QAccessible::queryAccessibleInterface(m_root.window());
    for (int index = 0; index < window->childCount(); ++index) {
        const auto* child = window->child(index);
        if (child->role() == QAccessible::Notification)
            return child->text(QAccessible::Name).toStdString();
    }
    return {};
}

std::vector<std::string> ScreenDriver::labels() const {
    std::vector<std::string> texts;
    for (const auto* label : m_root.findChildren<QLabel*>()) {
        if (label->isVisible())
            texts.push_back(utf8String(label->text()));
    }
    return texts;
}

void settle() {
    QApplication::sendPostedEvents();
    QApplication::processEvents();
}

} // namespace korvane
