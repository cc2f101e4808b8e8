#include "Utilities/Text/Rope.h"

#include "Utilities/LargePages.h"

#include <algorithm>
#include <cassert>

namespace korvane {

Rope::Rope(std::string text) : Rope(RopeTree::tree(std::move(text))) {}

Rope::Rope(RopeTree::Tree tree) : m_tree(std::move(tree)) {
    if (m_tree && size() <= maxCopiedSize && m_tree->largestBuffer > maxCopiedSize)
        m_tree = RopeTree::tree(string());
}

char Rope::operator[](std::size_t offset) const {
    assert(offset < size());
    const auto run = RopeTree::runAt(*m_tree, offset);
    return run.text[offset - run.offset];
}

Rope Rope::replacing(std::size_t from, std::size_t to, const Rope& text) const {
    assert(from <= to && to <= size());
    const auto [before, rest] = RopeTree::split(m_tree, from);
    const auto after = RopeTree::split(rest, to - from).second;
    return Rope(RopeTree::concatenation(RopeTree::concatenation(before, text.m_tree), after));
}

Rope Rope::substr(std::size_t from, std::size_t count) const {
    assert(from <= size());
    const auto rest = RopeTree::split(m_tree, from).second;
    return Rope(RopeTree::split(rest, std::min(count, size() - from)).first);
}

bool Rope::isEqual(std::string_view text) const {
    if (text.size() != size())
        return false;
    return std::ranges::all_of(chunks(), [&](std::string_view chunk) {
        const bool isSame = text.starts_with(chunk);
        text.remove_prefix(chunk.size());
        return isSame;
    });
}

std::string Rope::string(std::size_t from, std::size_t to) const {
    std::string copy;
    copy.reserve(to - from);
    preferLargePages(copy.data(), copy.capacity());
    for (const auto chunk : chunks(from, to))
        copy += chunk;
    return copy;
}

std::optional<std::string_view> Rope::contiguous() const {
    if (!m_tree)
        return std::string_view();
    if (m_tree->run == nullptr)
        return std::nullopt;
    return std::string_view(m_tree->run, size());
}

RopeChunks Rope::chunks(std::size_t from, std::size_t to) const {
    assert(from <= to && to <= size());
    return {m_tree, from, to};
}

RopeTree::Run RopeChunks::chunkAt(std::size_t offset) const {
    auto run = RopeTree::runAt(*m_tree, offset);
    const auto skipped = m_from - std::min(m_from, run.offset);
    run.offset += skipped;
    run.text = run.text.substr(skipped, m_to - run.offset);
    return run;
}

RopeChunks::Iterator RopeChunks::begin() const {
    Iterator iterator(*this, m_from);
    if (m_from < m_to)
        iterator.m_chunk = chunkAt(m_from).text;
    return iterator;
}

RopeChunks::Iterator& RopeChunks::Iterator::operator++() {
    m_offset += m_chunk.size();
    m_chunk = m_offset < m_chunks->m_to ? m_chunks->chunkAt(m_offset).text : std::string_view();
    return *this;
}

RopeChunks::Iterator RopeChunks::Iterator::operator++(int) {
    auto before = *this;
    ++*this;
    return before;
}

RopeChunks::Iterator& RopeChunks::Iterator::operator--() {
    const auto run = m_chunks->chunkAt(m_offset - 1);
    m_offset = run.offset;
    m_chunk = run.text;
    return *this;
}

RopeChunks::Iterator RopeChunks::Iterator::operator--(int) {
    auto before = *this;
    --*this;
    return before;
}

} // namespace korvane
