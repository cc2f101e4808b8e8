#include "Desktop/Text/TextMirror.h"

#include "Desktop/Text/LineBreaks.h"

#include <QStringConverter>
#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>
#include <cassert>

namespace korvane {

namespace {

/// Appends UTF-8 to a string without a temporary for each piece.
class Appender {
public:
    explicit Appender(std::string& text) : m_text(text) {}

    void append(QStringView piece) {
        const auto size = m_text.size();
        m_text.resize(size + static_cast<std::size_t>(m_encoder.requiredSpace(piece.size())));
        const auto* end = m_encoder.appendToBuffer(m_text.data() + size, piece);
        m_text.resize(static_cast<std::size_t>(end - m_text.data()));
    }

private:
    std::string& m_text;
    QStringEncoder m_encoder{QStringConverter::Utf8, QStringConverter::Flag::Stateless};
};

/// Reads blocks and the breaks before them. Most documents have only one kind of line break, as their list of
/// formats shows, and one raw copy of a whole document is cheaper than reading its blocks separately.
class BlockReader {
public:
    BlockReader(const QTextDocument& document, std::size_t blocks) {
        constexpr std::size_t many = 1000;
        if (blocks < many)
            return;
        m_raw = document.toRawText();
        m_hasKinds = std::ranges::any_of(document.allFormats(), [](const QTextFormat& format) {
            return format.objectType() >= QTextFormat::UserObject;
        });
    }

    LineBreak lineBreakBefore(const QTextBlock& block) {
        if (!m_hasKinds)
            return LineBreak::lineFeed;
        const int format = block.charFormatIndex();
        if (format != m_format) {
            m_format = format;
            m_lineBreak = korvane::lineBreakBefore(block);
        }
        return m_lineBreak;
    }

    /// Valid until the next call.
    QStringView text(const QTextBlock& block) {
        if (!m_raw.isNull())
            return QStringView(m_raw).sliced(block.position(), block.length() - 1);
        m_text = block.text();
        return m_text;
    }

private:
    QString m_raw{};
    QString m_text{};
    bool m_hasKinds = true;
    int m_format = -1;
    LineBreak m_lineBreak = LineBreak::lineFeed;
};

} // namespace

TextMirror::TextMirror(const QTextDocument& document) : m_document(document) {
    assert(document.isEmpty());
}

bool TextMirror::follow(int from, int removed, int added) {
    if (removed == 0 && added == 0)
        return false;
    // Qt reports a change at the end of the document as one position too long.
    const auto lastBlock = m_document.findBlock(std::min(from + added, m_document.characterCount() - 1));
    const auto blockCount = static_cast<std::size_t>(m_document.blockCount());
    const auto first = static_cast<std::size_t>(m_document.findBlock(from).blockNumber());
    const auto end = static_cast<std::size_t>(lastBlock.blockNumber()) + 1;
    const auto oldEnd = end + m_pieces.size() - blockCount; // the blocks after the edit are unchanged
    assert(first < oldEnd && oldEnd <= m_pieces.size());

    std::string text;
    std::vector<Piece> pieces;
    pieces.reserve(end - first);
    Appender appender(text);
    BlockReader reader(m_document, end - first);
    auto block = m_document.findBlock(from);
    for (auto number = first; number < end; ++number, block = block.next()) {
        const auto start = text.size();
        const auto lineBreak = number == 0 ? LineBreak::seam : reader.lineBreakBefore(block);
        appender.append(textOf(lineBreak));
        appender.append(reader.text(block));
        pieces.push_back({static_cast<int>(text.size() - start), newlineCount(lineBreak)});
    }

    const auto start = seek(first);
    const auto oldStop = seek(oldEnd);
    m_mark = start; // the text before the edit is unchanged
    const auto oldSize = oldStop.bytes - start.bytes;
    const bool differs = std::string_view(m_text).substr(start.bytes, oldSize) != text;
    if (differs)
        m_text.replace(start.bytes, oldSize, text);
    m_newlines -= oldStop.newlines - start.newlines;
    for (const auto& piece : pieces)
        m_newlines += static_cast<std::size_t>(piece.newlines);
    const auto at = [this](std::size_t index) {
        return m_pieces.begin() + static_cast<std::ptrdiff_t>(index);
    };
    const auto common = std::min(pieces.size(), oldEnd - first);
    std::copy_n(pieces.begin(), common, at(first));
    if (common < oldEnd - first)
        m_pieces.erase(at(first + common), at(oldEnd));
    else
        m_pieces.insert(at(oldEnd), pieces.begin() + static_cast<std::ptrdiff_t>(common), pieces.end());
    return differs;
}

std::size_t TextMirror::lineNumber(int blockNumber) const {
    return seek(static_cast<std::size_t>(blockNumber) + 1).newlines + 1;
}

TextMirror::Mark TextMirror::seek(std::size_t block) const {
    if (block < m_mark.block / 2)
        m_mark = {};
    for (; m_mark.block < block; ++m_mark.block) {
        m_mark.bytes += static_cast<std::size_t>(m_pieces[m_mark.block].bytes);
        m_mark.newlines += static_cast<std::size_t>(m_pieces[m_mark.block].newlines);
    }
    while (m_mark.block > block) {
        --m_mark.block;
        m_mark.bytes -= static_cast<std::size_t>(m_pieces[m_mark.block].bytes);
        m_mark.newlines -= static_cast<std::size_t>(m_pieces[m_mark.block].newlines);
    }
    return m_mark;
}

} // namespace korvane
