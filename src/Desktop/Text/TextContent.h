/// Texts on the clipboard and in drag and drop.
#pragma once

#include "Utilities/Text/Rope.h"

#include <QMimeData>

namespace korvane {

/// A text that is converted only when another program asks for it, so that copying a large one takes no time.
class TextContent final : public QMimeData {
    Q_OBJECT

public:
    explicit TextContent(Rope text);

    const Rope& rope() const { return m_text; }

    QStringList formats() const override;
    bool hasFormat(const QString& mimeType) const override;

protected:
    QVariant retrieveData(const QString& mimeType, QMetaType preferredType) const override;

private:
    Rope m_text;
};

/// The plain text of `content`; empty if it has none. Shares the text of this program, and otherwise prefers
/// UTF-8, which needs no conversion.
Rope textOf(const QMimeData& content);

} // namespace korvane
