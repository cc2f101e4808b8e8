#include "Utilities/Text/TextHistory.h"

#include "Utilities/Text/Text.h"
#include "Utilities/Text/UTF8.h"

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

constexpr std::size_t maxCharacterSize = 4;

char32_t characterAt(const Rope& text, std::size_t from, std::size_t to) {
    return decodeAt(text.string(from, std::min(from + maxCharacterSize, to)), 0).character;
}

char32_t characterBefore(const Rope& text, std::size_t from, std::size_t to) {
    const auto end = text.string(std::max(from + maxCharacterSize, to) - maxCharacterSize, to);
    return decodeAt(end, characterStart(end, end.size() - 1)).character;
}

bool isSpace(char32_t character) {
    return isWhitespace(character) || isNewline(character);
}

} // namespace

void TextHistory::record(TextEditKind kind, const TextVersion& before, const TextVersion& after,
                         const TextChange& change) {
    if (change.removed == 0 && change.inserted == 0)
        return;
    m_redo.clear();
    m_heldToRedo = 0;
    Step edit{.kind = kind,
              .before = before,
              .after = after,
              .removed = change.removed,
              .inserted = change.inserted};
    if (kind == TextEditKind::typing && change.inserted > 0) {
        const auto end = change.offset + change.inserted;
        const auto first = characterAt(after.text, change.offset, end);
        edit.beginsWithNewline = isNewline(first);
        edit.beginsWithSpace = isSpace(first);
        edit.endsWithSpace = isSpace(characterBefore(after.text, change.offset, end));
    }
    if (joinsLastStep(edit)) {
        auto& last = m_undo.back();
        last.after = after;
        last.removed += edit.removed;
        last.inserted += edit.inserted;
        last.endsWithSpace = edit.endsWithSpace;
        m_heldToUndo += edit.removed;
    } else {
        m_heldToUndo += heldToUndo(edit);
        m_undo.push_back(std::move(edit));
    }
    m_isStepOpen = true;
    dropExcess();
}

bool TextHistory::joinsLastStep(const Step& edit) const {
    if (!m_isStepOpen || m_undo.empty() || edit.kind == TextEditKind::other)
        return false;
    const auto& last = m_undo.back();
    if (last.kind != edit.kind || last.after.selection != edit.before.selection ||
        last.after.text != edit.before.text)
        return false;
    if (edit.kind != TextEditKind::typing)
        return true;
    const bool beginsWord = edit.beginsWithSpace && !last.endsWithSpace;
    return edit.removed == 0 && !edit.beginsWithNewline && !beginsWord;
}

std::optional<TextVersion> TextHistory::undo() {
    if (m_undo.empty())
        return std::nullopt;
    auto step = std::move(m_undo.back());
    m_undo.pop_back();
    m_heldToUndo -= heldToUndo(step);
    m_heldToRedo += heldToRedo(step);
    auto version = step.before;
    m_redo.push_back(std::move(step));
    m_isStepOpen = false;
    dropExcess();
    return version;
}

std::optional<TextVersion> TextHistory::redo() {
    if (m_redo.empty())
        return std::nullopt;
    auto step = std::move(m_redo.back());
    m_redo.pop_back();
    m_heldToRedo -= heldToRedo(step);
    m_heldToUndo += heldToUndo(step);
    auto version = step.after;
    m_undo.push_back(std::move(step));
    m_isStepOpen = false;
    dropExcess();
    return version;
}

void TextHistory::clear() {
    *this = TextHistory(m_maxHeldBytes);
}

void TextHistory::dropExcess() {
    while (heldBytes() > m_maxHeldBytes) {
        const bool canDropUndo = m_undo.size() > 1;
        const bool canDropRedo = m_redo.size() > 1;
        if (canDropUndo && (m_heldToUndo >= m_heldToRedo || !canDropRedo)) {
            m_heldToUndo -= heldToUndo(m_undo.front());
            m_undo.pop_front();
        } else if (canDropRedo) {
            m_heldToRedo -= heldToRedo(m_redo.front());
            m_redo.pop_front();
        } else {
            return;
        }
    }
}

} // namespace korvane
