/// A text that can be shared and edited whatever its size: an immutable value in UTF-8, or any bytes. Copies
/// and edited versions share what they have in common. Offsets are in bytes and may be anywhere, also inside
/// a character; `TextSummary` says what a character is.
#pragma once

#include "Utilities/Text/RopeTree.h"
#include "Utilities/Text/TextSummary.h"

#include <concepts>
#include <cstddef>
#include <functional>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace korvane {

/// The pieces of a range of a rope in order, as views; none is empty. A piece may have any size, and begins
/// and ends between characters unless the range does not. Holds the text, so it may outlive the rope. The
/// views hold as long as it or a rope that shares their text does.
class RopeChunks {
public:
    /// Bidirectional. A step is O(log n).
    class Iterator {
    public:
        using value_type = std::string_view;
        using reference = std::string_view;
        using pointer = void;
        using difference_type = std::ptrdiff_t;
        using iterator_category = std::input_iterator_tag; // it refers to no object
        using iterator_concept = std::bidirectional_iterator_tag;

        Iterator() = default;

        std::string_view operator*() const { return m_chunk; }

        Iterator& operator++();
        Iterator operator++(int);
        Iterator& operator--();
        Iterator operator--(int);

        bool operator==(const Iterator& other) const { return m_offset == other.m_offset; }

    private:
        friend RopeChunks;

        Iterator(const RopeChunks& chunks, std::size_t offset) : m_chunks(&chunks), m_offset(offset) {}

        const RopeChunks* m_chunks = nullptr;
        std::size_t m_offset = 0;
        std::string_view m_chunk{};
    };

    RopeChunks(RopeTree::Tree tree, std::size_t from, std::size_t to)
        : m_tree(std::move(tree)), m_from(from), m_to(to) {}

    Iterator begin() const;

    Iterator end() const { return {*this, m_to}; }

private:
    /// What is in the range of the run that contains the byte at `offset`, and where it begins.
    RopeTree::Run chunkAt(std::size_t offset) const;

    RopeTree::Tree m_tree;
    std::size_t m_from;
    std::size_t m_to;
};

/// A balanced tree of pieces of shared buffers. Copies, sizes and counts take constant time, edits and
/// conversions of positions O(log n) and a scan of some kilobytes. Const functions may be called by several
/// threads at once, for one rope or for ropes that share text.
class Rope {
public:
    /// A result of at most this size in bytes is copied where it refers to a larger buffer, which it would
    /// keep.
    static constexpr std::size_t maxCopiedSize = std::size_t{64} << 10;

    Rope() = default;

    /// Takes the text over, without a copy if it is an rvalue. Counts at several gigabytes a second.
    Rope(std::string text);

    Rope(std::string_view text) : Rope(std::string(text)) {}

    Rope(const char* text) : Rope(std::string(text)) {}

    std::size_t size() const { return summary().bytes; }

    bool empty() const { return m_tree == nullptr; }

    void clear() { m_tree = nullptr; }

    /// The number of characters of `isNewline`; CR LF is two.
    std::size_t newlineCount() const { return summary().newlines; }

    /// The number of UTF-16 units of the text; each maximal ill-formed subsequence is one, as in `UTF16Text`.
    std::size_t utf16Size() const { return summary().utf16Units; }

    bool isValidUTF8() const { return summary().illFormed == 0; }

    TextSummary summary() const { return RopeTree::summary(m_tree); }

    /// The byte at `offset`, which is less than the size. O(log n): iterate over `chunks` to read a text.
    char operator[](std::size_t offset) const;

    /// The text with `text` instead of the bytes of [from, to), which is a range of it.
    Rope replacing(std::size_t from, std::size_t to, const Rope& text) const;

    /// The `count` bytes at `from`, which is at most the size; fewer at the end.
    Rope substr(std::size_t from, std::size_t count = std::string_view::npos) const;

    friend Rope operator+(const Rope& left, const Rope& right) {
        return Rope(RopeTree::concatenation(left.m_tree, right.m_tree));
    }

    Rope& operator+=(const Rope& other) { return *this = *this + other; }

    /// Constant time for copies, or if counts differ. Does not read what both share at the same offset, so
    /// comparing two versions of a text costs about what differs.
    friend bool operator==(const Rope& left, const Rope& right) {
        return RopeTree::isEqual(left.m_tree, right.m_tree);
    }

    /// Compares with a string, a view or a literal, without copying it.
    template <typename Text>
        requires std::convertible_to<const Text&, std::string_view>
    friend bool operator==(const Rope& left, const Text& right) {
        return left.isEqual(right);
    }

    /// The number of bytes that this text and `other` begin with, or end with. As with equality, what they
    /// share at the same distance from that end is not read.
    std::size_t commonPrefix(const Rope& other) const { return RopeTree::commonPrefix(m_tree, other.m_tree); }

    std::size_t commonSuffix(const Rope& other) const { return RopeTree::commonSuffix(m_tree, other.m_tree); }

    /// A copy of the text, or of its range [from, to).
    std::string string() const { return string(0, size()); }

    std::string string(std::size_t from, std::size_t to) const;

    /// The text without a copy if it is one run of one buffer: always for a rope made from a string, seldom
    /// for an edited one. Holds as long as a rope that shares the text.
    std::optional<std::string_view> contiguous() const;

    RopeChunks chunks() const { return chunks(0, size()); }

    RopeChunks chunks(std::size_t from, std::size_t to) const;

    /// The summary of the text before the character that contains the byte at `offset`; of all of it at the
    /// end.
    TextSummary summaryBefore(std::size_t offset) const { return RopeTree::summaryBefore(m_tree, offset); }

    /// The UTF-16 position of the byte `offset` (at most the size), or of the start of the character around
    /// it.
    std::size_t utf16Offset(std::size_t offset) const { return summaryBefore(offset).utf16Units; }

    /// The byte offset of the UTF-16 position `unit`, or of the start of the character if it is inside a
    /// surrogate pair; the size beyond the end.
    std::size_t byteOffset(std::size_t unit) const { return seekLast(&TextSummary::utf16Units, unit).bytes; }

    /// The number of newline characters that end at the byte `offset` (at most the size) or before it.
    std::size_t newlinesBefore(std::size_t offset) const { return summaryBefore(offset).newlines; }

    /// The offset after the newline with that ordinal, counted from 1; 0 for 0, and the size if there are
    /// fewer.
    std::size_t afterNewline(std::size_t ordinal) const {
        return seek(&TextSummary::newlines, ordinal).bytes;
    }

    /// The summary of the shortest text up to a character's end, or of nothing, for which `measure` gives at
    /// least `target`; of all of the text if there is none. `measure` is a field of `TextSummary`, or a
    /// function of it that never decreases when a text is continued, such as `newlines + utf16Units / 80`.
    /// O(log n) calls.
    template <typename Measure, typename Target>
    TextSummary seek(const Measure& measure, const Target& target) const {
        const auto reaches = [&](const TextSummary& before) {
            return std::invoke(measure, before) >= target;
        };
        return RopeTree::firstWhere(m_tree, std::cref(reaches)).after;
    }

    /// Like `seek`, but of the longest text for which `measure` gives at most `target`; of nothing if there
    /// is none.
    template <typename Measure, typename Target>
    TextSummary seekLast(const Measure& measure, const Target& target) const {
        const auto exceeds = [&](const TextSummary& before) { return std::invoke(measure, before) > target; };
        return RopeTree::firstWhere(m_tree, std::cref(exceeds)).before;
    }

private:
    explicit Rope(RopeTree::Tree tree);

    bool isEqual(std::string_view text) const;

    RopeTree::Tree m_tree{};
};

/// The text of a rope as one view, for functions that read a string. Copies it unless it is contiguous.
class FlatText {
public:
    explicit FlatText(Rope rope)
        : m_rope(std::move(rope)),
          m_copy(m_rope.contiguous() ? std::string() : m_rope.string()),
          m_view(m_rope.contiguous().value_or(m_copy)) {}

    FlatText(const FlatText&) = delete;
    FlatText& operator=(const FlatText&) = delete;

    std::string_view view() const { return m_view; }

    operator std::string_view() const { return m_view; }

private:
    Rope m_rope;
    std::string m_copy;
    std::string_view m_view;
};

} // namespace korvane
