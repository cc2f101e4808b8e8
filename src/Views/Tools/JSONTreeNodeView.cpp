#include "Views/Tools/JSONTreeNodeView.h"

#include "Utilities/JSON/JSONEscape.h"

#include <fmt/format.h>

#include <algorithm>
#include <cassert>
#include <string_view>
#include <utility>

namespace korvane {

namespace {

/// The text between the quotes of a string node.
std::string_view content(const JSONNode& node) {
    const std::string_view quoted = *node.value;
    return quoted.substr(1, quoted.size() - 2);
}

void appendString(std::string& json, std::string_view text) {
    json += '"';
    for (const char byte : text) {
        const auto code = static_cast<unsigned char>(byte);
        if (code < 0x20 || byte == '"' || byte == '\\')
            json += JSON::escapeSequences[code].text();
        else
            json += byte;
    }
    json += '"';
}

/// Appends the value of `node` without white space.
void appendJSON(std::string& json, const JSONNode& node) {
    const bool isObject = node.type == JSONValueType::object;
    if (node.type == JSONValueType::string) {
        appendString(json, content(node));
    } else if (node.value) {
        json += *node.value;
    } else {
        json += isObject ? '{' : '[';
        for (bool isFirst = true; const auto& child : node.children) {
            if (!isFirst)
                json += ',';
            isFirst = false;
            if (isObject) {
                appendString(json, child.key);
                json += ':';
            }
            appendJSON(json, child);
        }
        json += isObject ? '}' : ']';
    }
}

/// Whether a path can name `name` without quotes.
bool isShorthandName(std::string_view name) {
    const auto isLetter = [](char byte) {
        return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || byte == '_' ||
               static_cast<unsigned char>(byte) >= 0x80;
    };
    const auto isDigit = [](char byte) { return byte >= '0' && byte <= '9'; };
    return !name.empty() && !isDigit(name.front()) &&
           std::ranges::all_of(name, [&](char byte) { return isLetter(byte) || isDigit(byte); });
}

} // namespace

bool JSONTreeNodeView::hasChildren() const {
    return !node->children.empty();
}

std::string JSONTreeNodeView::count() const {
    switch (node->type) {
    case JSONValueType::object:
        return fmt::format("{{{}}}", node->children.size());
    case JSONValueType::array:
        return fmt::format("[{}]", node->children.size());
    default:
        return {};
    }
}

PaletteColor colorForType(JSONValueType type) {
    switch (type) {
    case JSONValueType::object:
        return PaletteColor::cyan;
    case JSONValueType::array:
        return PaletteColor::purple;
    case JSONValueType::string:
        return PaletteColor::green;
    case JSONValueType::number:
        return PaletteColor::orange;
    case JSONValueType::bool_:
        return PaletteColor::blue;
    case JSONValueType::null:
        return PaletteColor::gray;
    case JSONValueType::unknown:
        break;
    }
    return PaletteColor::red;
}

void JSONTree::setOutline(std::shared_ptr<const JSONOutline> outline) {
    const bool rootStaysCollapsed = outline && m_outline && isCollapsed(0);
    m_outline = std::move(outline);
    m_collapsed.clear();
    if (rootStaysCollapsed)
        m_collapsed.push_back(0);
    updateHidden();
}

void JSONTree::toggle(std::size_t row) {
    if (row >= rowCount())
        return;
    const auto index = indexOf(row);
    if (m_outline->node(index).children.empty())
        return;
    const auto place = std::ranges::lower_bound(m_collapsed, index);
    if (place != m_collapsed.end() && *place == index)
        m_collapsed.erase(place);
    else
        m_collapsed.insert(place, index);
    updateHidden();
}

void JSONTree::expandAll() {
    m_collapsed.clear();
    updateHidden();
}

std::string JSONTree::copiedValue(std::size_t row) const {
    const auto& node = m_outline->node(indexOf(row));
    if (node.value)
        return std::string(node.type == JSONValueType::string ? content(node)
                                                              : std::string_view(*node.value));
    std::string json;
    appendJSON(json, node);
    constexpr int anyIndent = 2;
    return JSONFormatter::prettify(json, anyIndent).value_or(json);
}

std::optional<std::string> JSONTree::copiedKey(std::size_t row) const {
    const auto index = indexOf(row);
    return isMember(index) ? std::optional(m_outline->node(index).key) : std::nullopt;
}

std::string JSONTree::path(std::size_t row) const {
    std::vector<std::size_t> steps;
    for (std::optional index = indexOf(row); index; index = m_outline->parent(*index))
        steps.push_back(*index);
    std::string path = "$";
    for (auto step = steps.rbegin() + 1; step != steps.rend(); ++step) {
        const auto& key = m_outline->node(*step).key;
        if (!isMember(*step)) {
            path += key;
        } else if (isShorthandName(key)) {
            path.append(".").append(key);
        } else {
            path += '[';
            appendString(path, key);
            path += ']';
        }
    }
    return path;
}

std::size_t JSONTree::rowCount() const {
    return m_outline ? rowOf(m_outline->size()) : 0;
}

JSONTreeNodeView JSONTree::row(std::size_t row) const {
    assert(row < rowCount());
    const auto index = indexOf(row);
    return {
        .node = &m_outline->node(index), .depth = m_outline->depth(index), .isExpanded = !isCollapsed(index)};
}

std::optional<std::size_t> JSONTree::parent(std::size_t row) const {
    const auto parent = m_outline->parent(indexOf(row));
    return parent ? std::optional(rowOf(*parent)) : std::nullopt;
}

std::span<const std::size_t> JSONTree::columnsByDepth() const {
    return m_outline ? m_outline->columnsByDepth() : std::span<const std::size_t>();
}

/// The index of the node that a row shows.
std::size_t JSONTree::indexOf(std::size_t row) const {
    const auto next = std::ranges::upper_bound(m_hidden, row, {}, &HiddenNodes::row);
    return next == m_hidden.begin() ? row : row + (next - 1)->countBefore + (next - 1)->count();
}

/// The row of a node that is not hidden. The index after the last node gives the number of rows.
std::size_t JSONTree::rowOf(std::size_t index) const {
    const auto next = std::ranges::upper_bound(m_hidden, index, {}, &HiddenNodes::first);
    return next == m_hidden.begin() ? index : index - (next - 1)->countBefore - (next - 1)->count();
}

bool JSONTree::isMember(std::size_t index) const {
    const auto parent = m_outline->parent(index);
    return parent && m_outline->node(*parent).type == JSONValueType::object;
}

bool JSONTree::isCollapsed(std::size_t index) const {
    return std::ranges::binary_search(m_collapsed, index);
}

void JSONTree::updateHidden() {
    m_hidden.clear();
    ++m_revision;
    std::size_t count = 0;
    std::size_t end = 0; // of the nodes that are known to be hidden
    for (const auto collapsed : m_collapsed) {
        if (collapsed < end)
            continue;
        const auto first = collapsed + 1;
        end = m_outline->subtreeEnd(collapsed);
        m_hidden.push_back({.first = first, .end = end, .countBefore = count});
        count += end - first;
    }
}

} // namespace korvane
