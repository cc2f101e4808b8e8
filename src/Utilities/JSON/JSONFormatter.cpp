#include "Utilities/JSON/JSONFormatter.h"

#include "Utilities/JSON/JSON.h"
#include "Utilities/JSON/JSONEscape.h"
#include "Utilities/Text/Characters.h"
#include "Utilities/Text/Text.h"

#include <fmt/compile.h>
#include <fmt/format.h>

#include <utility>

namespace korvane {

namespace JSONFormatter {

namespace {

/// Longer names are truncated, as a message is one line.
constexpr std::size_t maxQuotedLength = 24;

/// The start of `name` in quotes. Control characters are escaped as in JSON.
std::string quoted(std::string_view name) {
    Characters characters(name);
    std::size_t size = 0;
    for (std::size_t length = 0; length < maxQuotedLength; ++length)
        size += characters.next().size();
    std::string text = "\"";
    for (const char byte : name.substr(0, size)) {
        if (byte == '"' || byte == '\\' || static_cast<unsigned char>(byte) < ' ')
            text += JSON::EscapeSequence(byte).text();
        else
            text += byte;
    }
    return text + (size < name.size() ? "...\"" : "\"");
}

std::expected<JSON::Document, JSONError> read(std::string_view input, JSON::ReadingOptions options,
                                              DuplicateNames* duplicates) {
    if (trimmingWhitespacesAndNewlines(input).empty())
        return std::unexpected(JSONError::emptyInput());
    auto document = JSON::parse(input, options);
    if (document) {
        if (duplicates)
            *duplicates = {.count = document->duplicateNames().count,
                           .example = std::string(document->duplicateNames().example)};
        return std::move(*document);
    }
    // The reader reports bytes that are not UTF-8 before any other error.
    if (document.error().kind == JSON::ParseError::Kind::invalidUTF8)
        return std::unexpected(JSONError::invalidJSON("Could not encode input"));
    auto& error = document.error();
    return std::unexpected(JSONError::invalidJSON(
        std::move(error.message),
        JSONError::Place{.offset = error.offset, .end = error.end, .name = JSON::placeName(error.position)}));
}

std::expected<std::string, JSONError> rewrite(std::string_view input, JSON::WritingOptions options,
                                              DuplicateNames* duplicates) {
    const auto document = read(input, {}, duplicates);
    if (!document)
        return std::unexpected(document.error());
    auto text = JSON::write(document->root(), options);
    if (!text)
        return std::unexpected(JSONError::invalidJSON(std::move(text.error().message)));
    return std::move(*text);
}

void setScalar(JSONNode& node, JSONValueType type, std::string_view value) {
    node.type = type;
    node.value.emplace(value);
}

/// Sets everything but the key. Nodes are filled where they are, which saves moving them.
void setValue(JSONNode& node, const JSON::Value& value) {
    switch (value.type()) {
    case JSON::Type::object:
        node.type = JSONValueType::object;
        node.children.reserve(value.members().size());
        for (const auto& [name, member] : value.members()) {
            auto& child = node.children.emplace_back();
            child.key = name.text();
            setValue(child, member);
        }
        return;
    case JSON::Type::array:
        node.type = JSONValueType::array;
        node.children.reserve(value.elements().size());
        for (const auto& element : value.elements()) {
            auto& child = node.children.emplace_back();
            child.key = fmt::format(FMT_COMPILE("[{}]"), node.children.size() - 1);
            setValue(child, element);
        }
        return;
    case JSON::Type::string: {
        node.type = JSONValueType::string;
        auto& quoted = node.value.emplace();
        quoted.reserve(value.text().size() + 2);
        quoted.append("\"").append(value.text()).append("\"");
        return;
    }
    case JSON::Type::number:
        return setScalar(node, JSONValueType::number, value.text());
    case JSON::Type::boolean:
        return setScalar(node, JSONValueType::bool_, value.boolean() ? "true" : "false");
    case JSON::Type::null:
        return setScalar(node, JSONValueType::null, "null");
    }
}

} // namespace

std::string JSONError::errorDescription() const {
    return kind == Kind::emptyInput ? "Input is empty" : "Invalid JSON: " + message;
}

std::string DuplicateNames::description() const {
    if (count == 0)
        return {};
    return count == 1 ? fmt::format("Duplicate name {}: only its last value counts", quoted(example))
                      : fmt::format("{} duplicate names, such as {}: only the last values count", count,
                                    quoted(example));
}

std::expected<std::string, JSONError> prettify(std::string_view input, int /*indent*/,
                                               DuplicateNames* duplicates) {
    return rewrite(input, {.prettyPrinted = true, .sortedKeys = true, .fragmentsAllowed = true}, duplicates);
}

std::expected<std::string, JSONError> minify(std::string_view input, DuplicateNames* duplicates) {
    return rewrite(input, {.fragmentsAllowed = true}, duplicates);
}

std::expected<bool, JSONError> validate(std::string_view input, DuplicateNames* duplicates) {
    if (auto document = read(input, {}, duplicates); !document)
        return std::unexpected(std::move(document.error()));
    return true;
}

std::expected<JSONNode, JSONError> parseToTree(std::string_view input, DuplicateNames* duplicates) {
    const auto document = read(input, {.fragmentsAllowed = true}, duplicates);
    if (!document)
        return std::unexpected(document.error());
    JSONNode root{.key = "root"};
    setValue(root, document->root());
    return root;
}

} // namespace JSONFormatter

} // namespace korvane
