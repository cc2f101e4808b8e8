/// Drives real widgets like a user: finds controls by their accessible names, types, presses and reads.
/// Nothing waits: a control's action has completed when the call returns.
#pragma once

#include <QWidget>

#include <string>
#include <string_view>
#include <vector>

class QAbstractButton;
class QComboBox;
class QLineEdit;
class QSlider;
class QSpinBox;

namespace korvane {

class RowList;
class TextArea;

class ScreenDriver {
public:
    /// Shows `root`, offscreen, at `size`.
    explicit ScreenDriver(QWidget& root, QSize size = {820, 750});

    /// The visible button, editor or list of that name; each fails the test when there is none, or more than
    /// one.
    QAbstractButton& button(std::string_view name) const;
    TextArea& editor(std::string_view name) const;
    RowList& list(std::string_view name) const;
    QComboBox& picker(std::string_view name) const;
    QLineEdit& field(std::string_view name) const;
    QSlider& slider(std::string_view name) const;
    QSpinBox& stepper(std::string_view name) const;

    void press(std::string_view button) const;
    /// Presses a segment of a picker, whose name a button may share.
    void choose(std::string_view segment) const;
    void undo(std::string_view editor) const;
    void type(std::string_view editor, std::string_view text) const;
    /// Replaces the text of a field by typing `text`.
    void enter(std::string_view field, std::string_view text) const;
    std::string text(std::string_view editor) const;
    std::string placeholder(std::string_view editor) const;

    bool hasButton(std::string_view name) const;
    int buttonCount(std::string_view name) const;
    bool hasEditor(std::string_view name) const;
    bool hasList(std::string_view name) const;

    /// Whether a label with that text is visible.
    bool shows(std::string_view label) const;

    /// The newest announcement to assistive technology in the window.
    std::string announcement() const;

    /// The texts of all visible labels, for the message of a failure.
    std::vector<std::string> labels() const;

private:
    template <typename Control>
    std::vector<Control*> visible(std::string_view name) const;
    template <typename Control>
    Control& only(std::string_view name) const;

    QWidget& m_root;
};

/// Processes all events that are due.
void settle();

} // namespace korvane
