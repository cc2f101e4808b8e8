/// Properties of every rope, shared by tests and fuzzers: what it says of its text is what a reference says
/// that reads this text from the start, and its tree is balanced and correct.
#pragma once

#include "Utilities/Text/Rope.h"
#include "Utilities/Text/Text.h"
#include "Utilities/Text/UTF8.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <ranges>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvane::support {

/// The summaries of the text before each of its characters, and of all of it; by decoding it.
inline std::vector<TextSummary> naiveSummaries(std::string_view text) {
    std::vector<TextSummary> summaries(1);
    while (summaries.back().bytes < text.size()) {
        auto summary = summaries.back();
        const auto [character, end] = decodeAt(text, summary.bytes);
        const bool isReplacement = text.substr(summary.bytes).starts_with("\xEF\xBF\xBD");
        summary.bytes = end;
        summary.newlines += isNewline(character) ? 1U : 0U;
        summary.utf16Units += character > 0xFFFF ? 2U : 1U;
        summary.illFormed += character == U'\uFFFD' && !isReplacement ? 1U : 0U;
        summaries.push_back(summary);
    }
    return summaries;
}

/// The first of them whose `field` is at least `target`, or the last one.
inline TextSummary naiveSeek(const std::vector<TextSummary>& summaries, std::size_t TextSummary::* field,
                             std::size_t target) {
    const auto found = std::ranges::lower_bound(summaries, target, {}, field);
    return found == summaries.end() ? summaries.back() : *found;
}

/// The last of them whose `field` is at most `target`.
inline TextSummary naiveSeekLast(const std::vector<TextSummary>& summaries, std::size_t TextSummary::* field,
                                 std::size_t target) {
    return *(std::ranges::upper_bound(summaries, target, {}, field) - 1);
}

/// The violation at the byte `offset` of `text`, or at the unit or newline of that number.
inline std::string brokenPosition(const Rope& rope, std::string_view text,
                                  const std::vector<TextSummary>& summaries, std::size_t offset) {
    const auto before = naiveSeekLast(summaries, &TextSummary::bytes, offset);
    if (offset < text.size() && rope[offset] != text[offset])
        return "a byte";
    if (rope.summaryBefore(offset) != before)
        return "the summary before a byte";
    if (rope.utf16Offset(offset) != before.utf16Units || rope.newlinesBefore(offset) != before.newlines)
        return "the position of a byte";
    if (rope.byteOffset(offset) != naiveSeekLast(summaries, &TextSummary::utf16Units, offset).bytes)
        return "the offset of a UTF-16 unit";
    if (rope.afterNewline(offset) != naiveSeek(summaries, &TextSummary::newlines, offset).bytes)
        return "the offset of a newline";
    if (rope.seekLast(&TextSummary::newlines, offset) !=
        naiveSeekLast(summaries, &TextSummary::newlines, offset))
        return "the end of a line";
    return {};
}

/// The violation in the chunks of a range of `rope`, whose text is `text`, in either direction.
inline std::string brokenChunks(const Rope& rope, std::string_view text, std::size_t from, std::size_t to) {
    const auto range = text.substr(from, to - from);
    std::string forward;
    std::string backward;
    const auto chunks = rope.chunks(from, to);
    for (const auto chunk : chunks) {
        if (chunk.empty())
            return "an empty chunk";
        forward += chunk;
    }
    for (const auto chunk : chunks | std::views::reverse)
        backward.insert(0, chunk);
    if (forward != range || backward != range)
        return "the chunks";
    return rope.string(from, to) == range && rope.substr(from, to - from) == range ? "" : "a range";
}

/// The violation in what `rope` says of its text, which is `text`; empty if none.
inline std::string brokenRope(const Rope& rope, std::string_view text) {
    const auto summaries = naiveSummaries(text);
    if (rope.string() != text || rope != text || rope != Rope(text) || rope == std::string(text) + "x")
        return "the text";
    if (rope.summary() != summaries.back() || rope.size() != text.size() || rope.empty() != text.empty())
        return "the summary";
    if (rope.isValidUTF8() != isValidUTF8(text))
        return "whether it is well-formed";
    if (const auto whole = rope.contiguous(); whole && *whole != text)
        return "the contiguous text";
    const auto step =
        text.size() < 200 ? 1 : text.size() / 16; // every position of a small text, some of a large one
    for (std::size_t offset = 0; offset <= text.size(); offset += step) {
        if (auto broken = brokenPosition(rope, text, summaries, offset); !broken.empty())
            return broken;
    }
    if (rope.byteOffset(text.size() + 1) != text.size() || rope.afterNewline(text.size() + 1) != text.size())
        return "a position beyond the end";
    return brokenChunks(rope, text, text.size() / 3, text.size() - text.size() / 4);
}

/// The violation in a tree, whose text begins at `offset` of the one with these characters; empty if none.
inline std::string brokenTree(const RopeTree::Node& node, std::size_t offset,
                              const std::vector<TextSummary>& summaries) {
    const auto start = naiveSeekLast(summaries, &TextSummary::bytes, offset);
    const auto end = naiveSeekLast(summaries, &TextSummary::bytes, offset + node.summary.bytes);
    if (node.summary.bytes == 0)
        return "an empty node";
    if (start.bytes != offset || start + node.summary != end)
        return "the summary of a node, or where it begins";
    if (const auto* leaf = std::get_if<RopeTree::Leaf>(&node.content)) {
        const auto begin = static_cast<std::size_t>(node.run - leaf->buffer->data());
        const bool isInBuffer = begin + node.summary.bytes <= leaf->buffer->size();
        const bool isLeaf = node.height == 0 && node.summary.bytes <= RopeTree::maxLeafSize &&
                            node.largestBuffer == leaf->buffer->capacity();
        return isInBuffer && isLeaf ? "" : "a leaf";
    }
    const auto& [left, right] = std::get<RopeTree::Branch>(node.content);
    if (std::max(left->height, right->height) - std::min(left->height, right->height) > 1 ||
        node.height != std::max(left->height, right->height) + 1)
        return "the balance";
    if (node.largestBuffer != std::max(left->largestBuffer, right->largestBuffer))
        return "the largest buffer";
    const bool isRun = left->run != nullptr && right->run == left->run + left->summary.bytes;
    if (node.run != (isRun ? left->run : nullptr))
        return "the run";
    auto broken = brokenTree(*left, offset, summaries);
    return broken.empty() ? brokenTree(*right, offset + left->summary.bytes, summaries) : broken;
}

/// A text, as a rope, as a tree that is edited in the same way, and as a string.
struct RopeVersion {
    Rope rope{};
    RopeTree::Tree tree{};
    std::string text{};

    void replace(std::size_t from, std::size_t to, const RopeVersion& other) {
        rope = rope.replacing(from, to, other.rope);
        const auto before = RopeTree::split(tree, from).first;
        const auto after = RopeTree::split(tree, to).second;
        tree = RopeTree::concatenation(RopeTree::concatenation(before, other.tree), after);
        text = text.substr(0, from) + other.text + text.substr(to);
    }
};

/// What programs insert: characters of every length, newlines, ill-formed bytes and texts of several leaves.
inline RopeVersion insertedByProgram(std::uint8_t choice) {
    using namespace std::string_view_literals;
    static constexpr std::string_view small[] = {
        "a"sv,        "\r\n"sv,     "\n"sv,           "\0"sv,     "\u00E9"sv,
        "\u0085"sv,   "\u2028"sv,   "\u2029x"sv,      "\u20AC"sv, "\U0001F600"sv,
        "e\u0301"sv,  "\xE2"sv,     "\x80"sv,         "\xA8"sv,   "\x80\xA8"sv,
        "\xE2\x80"sv, "\xC2"sv,     "\x85"sv,         "\xF0"sv,   "\x9F"sv,
        "\x9F\x98"sv, "\xF0\x9F"sv, "\xF0\x9F\x98"sv, "\xED"sv,   "\xED\xA0\x80"sv,
        "\xFF"sv,     "\xC0\xAF"sv, "\uFFFD"sv};
    static const std::vector<std::string> large = [] {
        std::vector<std::string> texts;
        for (const std::string_view piece : {"line of text\n"sv, "\u00E9\u2028\U0001F600"sv, "\xE2\x80"sv}) {
            for (const auto size : {700, 2'500, 9'000}) {
                texts.emplace_back();
                while (texts.back().size() < static_cast<std::size_t>(size))
                    texts.back() += piece;
            }
        }
        return texts;
    }();
    constexpr std::uint8_t firstLarge = 0xE8; // large ones are rare, since they take long to be checked
    const auto text = choice < firstLarge ? std::string(small[choice % std::size(small)])
                                          : large[(choice - firstLarge) % large.size()];
    return {.rope = text, .tree = RopeTree::tree(text), .text = text};
}

/// The violation by a sequence of edits that the bytes of `program` describe, four bytes an edit.
inline std::string brokenRopeProperty(std::string_view program) {
    constexpr std::size_t maxSize = 12'000;
    constexpr std::size_t maxSizeOfEachCheck = 500; // larger texts are checked after some of the edits
    RopeVersion current;
    RopeVersion earlier;
    const auto byteAt = [&](std::size_t index) { return static_cast<std::uint8_t>(program[index]); };
    for (std::size_t index = 0; index + 4 <= program.size(); index += 4) {
        // Most edits are near each other, where small pieces meet.
        const auto size = current.text.size();
        const auto start = byteAt(index) < 0x80 ? size / 2 : byteAt(index) * size / 0xFF;
        const auto from = std::min(start + byteAt(index + 1) % 8, size);
        const auto length = byteAt(index + 1) >= 0xF0 ? size / 2 : byteAt(index + 1) / 8U % 8;
        const auto to = std::min(from + length, size);
        const bool isTooLarge = size > maxSize;
        switch (byteAt(index + 2) % 8) {
        case 0:
            earlier = current;
            break;
        case 1:
            current.replace(from, to, isTooLarge ? RopeVersion() : earlier);
            break;
        case 2:
            current.replace(from, to, {});
            break;
        case 3:
            std::swap(current, earlier);
            break;
        default:
            current.replace(from, isTooLarge ? size : to, insertedByProgram(byteAt(index + 3)));
            break;
        }
        if ((current.rope == earlier.rope) != (current.text == earlier.text))
            return "equality";
        const bool isLast = index + 8 > program.size();
        if (current.text.size() > maxSizeOfEachCheck && index % 64 != 0 && !isLast)
            continue;
        if (auto broken = brokenRope(current.rope, current.text); !broken.empty())
            return broken;
        if (!current.tree)
            continue;
        if (auto broken = brokenTree(*current.tree, 0, naiveSummaries(current.text)); !broken.empty())
            return broken;
    }
    return {};
}

} // namespace korvane::support
