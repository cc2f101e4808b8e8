/// A text that is only shown, as high as it needs to be at its width, and that can be selected with the
/// pointer and copied. For values of a few lines; what may be long belongs in an editor, which scrolls.
#pragma once

#include "Desktop/Binding/Reader.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Text/TextArea.h"

#include <string>
#include <string_view>

namespace korvane {

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

/// A text of a few lines that can be selected and copied. `name` is the accessible name.
QWidget* selectableText(Store& store, std::string_view name, const Reader<std::string>& text,
                        SelectableTextOptions options = {});

} // namespace korvane
