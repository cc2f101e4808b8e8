/// A text that is only shown, as high as it needs to be at its width, and that can be selected with the
/// pointer and copied. For values of a few lines; what may be long belongs in an editor, which scrolls.
#pragma once

#include "Desktop/Kit/TextArea.h"
#include "Desktop/Kit/Theme.h"

#include <functional>
#include <string>

namespace korvane {

class ViewCore;

struct SelectableTextOptions {
    Theme::TextStyle style = Theme::TextStyle::body;
    Theme::Ink ink = Theme::Role::primary;
    Qt::Alignment alignment = Qt::AlignLeft;
    std::string placeholder{};
    Theme::Ink placeholderInk = Theme::Role::placeholder;
    bool isSecret = false;  ///< it is copied as a secret
    bool isTabStop = false; ///< reached by keyboard too: for a text without a button that copies it
};

class SelectableText final : public TextArea {
public:
    explicit SelectableText(SelectableTextOptions options);

    void display(const std::string& text);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    QMimeData* newMimeData(const QString& text) const override;

private:
    void applyTheme();

    SelectableTextOptions m_options;
    bool m_applying = false;
};

struct SelectableTextParts {
    std::string name; ///< the accessible name
    std::function<std::string()> text;
    SelectableTextOptions options;
};

QWidget* selectableText(ViewCore& view, SelectableTextParts parts);

} // namespace korvane
