/// A read-only text, as high as its lines at its width, which can be selected with the pointer and copied.
/// For values of a few lines; longer texts belong in an editor, which scrolls.
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
    bool isSecret = false;  ///< copied as a secret
    bool isTabStop = false; ///< reached by the Tab key: for a text without a copy button
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
    QMimeData* newMimeData(const Rope& text) const override;

private:
    void applyTheme();

    SelectableTextOptions m_options;
    bool m_applying = false;
};

/// A selectable text of a few lines. `name` is the accessible name.
QWidget* selectableText(Store& store, std::string_view name, const Reader<std::string>& text,
                        SelectableTextOptions options = {});

} // namespace korvane
