/// The exact text of a text document as UTF-8, and the numbers of its lines. Each edit costs about as much as
/// the edit itself, so that a key press in a text of many megabytes does not read the whole text again.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

class QTextDocument;

namespace korvane {

class TextMirror {
public:
    /// Mirrors `document`, which must be empty and outlive the mirror.
    explicit TextMirror(const QTextDocument& document);

    /// Applies an edit, with the arguments of the document's `contentsChange`; returns whether the text has
    /// changed.
    bool follow(int from, int removed, int added);

    /// The whole text.
    const std::string& text() const { return m_text; }

    /// The number of lines, at least 1: one more than newline characters, a CR LF being two.
    std::size_t lineCount() const { return m_newlines + 1; }

    /// The number, counted from 1, of the line that the block begins or continues. The cost is proportional
    /// to the distance from the block of the previous call.
    std::size_t lineNumber(int blockNumber) const;

private:
    /// A block and the line break before it.
    struct Piece {
        int bytes = 0;
        int newlines = 0;
    };

    /// A block and the sums of all pieces before it.
    struct Mark {
        std::size_t block = 0;
        std::size_t bytes = 0;
        std::size_t newlines = 0;
    };

    Mark seek(std::size_t block) const;

    const QTextDocument& m_document;
    std::string m_text{};
    std::vector<Piece> m_pieces{Piece{}};
    std::size_t m_newlines = 0;
    mutable Mark m_mark{};
};

} // namespace korvane
