/// A text on its way to the clipboard that other programs are not to show or to keep.
#pragma once

#include <QMimeData>
#include <QString>

namespace korvane {

/// Content for the clipboard, marked as the programs understand it that remember what was there.
inline QMimeData* secretText(const QString& text) {
    auto* content = new QMimeData;
    content->setText(text);
    content->setData("x-kde-passwordManagerHint", "secret");
    return content;
}

} // namespace korvane
