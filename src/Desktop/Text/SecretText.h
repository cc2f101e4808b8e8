/// Clipboard content that other programs must not show or store.
#pragma once

#include <QMimeData>
#include <QString>

namespace korvane {

/// Clipboard content with the mark by which clipboard managers recognise secrets.
inline QMimeData* secretText(const QString& text) {
    auto* content = new QMimeData;
    content->setText(text);
    content->setData("x-kde-passwordManagerHint", "secret");
    return content;
}

} // namespace korvane
