#include "Views/Tools/JSONTreeNodeView.h"

#include "Utilities/JSON/JSONEscape.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

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

void JSONTree::setRoot(const JSONNode* root) {
    const bool rootStaysCollapsed = root && m_root && !m_rows.front().isExpanded;
    m_collapsed.clear();
    if (rootStaysCollapsed)
        m_collapsed.insert(root->id());
    m_root = root;
    updateRows();
}

void JSONTree::toggle(std::size_t row) {
    if (row >= m_rows.size() || !m_rows[row].hasChildren())
        return;
    const auto id = m_rows[row].node->id();
    if (m_collapsed.erase(id) == 0)
        m_collapsed.insert(id);
    updateRows();
}

void JSONTree::expandAll() {
    m_collapsed.clear();
    updateRows();
}

std::string JSONTree::copiedValue(std::size_t row) const {
    const auto& node = *m_rows[row].node;
    if (node.value)
        return std::string(node.type == JSONValueType::string ? content(node)
                                                              : std::string_view(*node.value));
    std::string json;
    appendJSON(json, node);
    constexpr int anyIndent = 2;
    return JSONFormatter::prettify(json, anyIndent).value_or(json);
}

std::optional<std::string> JSONTree::copiedKey(std::size_t row) const {
    return isMember(row) ? std::optional(m_rows[row].node->key) : std::nullopt;
}

std::string JSONTree::path(std::size_t row) const {
    std::vector<std::size_t> steps;
    for (std::optional<std::size_t> step = row; step; step = parentOf(*step))
        steps.push_back(*step);
    std::string path = "$";
    for (auto step = steps.rbegin() + 1; step != steps.rend(); ++step) {
        const auto& key = m_rows[*step].node->key;
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

std::optional<std::size_t> JSONTree::parentOf(std::size_t row) const {
    const auto depth = m_rows[row].depth;
    while (row-- > 0) {
        if (m_rows[row].depth < depth)
            return row;
    }
    return std::nullopt;
}

bool JSONTree::isMember(std::size_t row) const {
    const auto parent = parentOf(row);
    return parent && m_rows[*parent].node->type == JSONValueType::object;
}

void JSONTree::updateRows() {
    m_rows.clear();
    ++m_revision;
    if (!m_root)
        return;

    struct Pending {
        const JSONNode* node;
        int depth;
    };

    // Children are pushed in reverse, so that they are popped in reading order.
    std::vector<Pending> pending{{m_root, 0}};
    while (!pending.empty()) {
        const auto [node, depth] = pending.back();
        pending.pop_back();
        const bool isExpanded = m_collapsed.empty() || !m_collapsed.contains(node->id());
        m_rows.push_back({node, depth, isExpanded});
        if (!isExpanded)
            continue;
        for (auto child = node->children.rbegin(); child != node->children.rend(); ++child)
            pending.push_back({&*child, depth + 1});
    }
}

} // namespace korvane
