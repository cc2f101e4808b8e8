#include "Utilities/JSON/JSONFormatter.h"

#include "Utilities/JSON/JSON.h"
#include "Utilities/JSON/JSONEscape.h"
#include "Utilities/Text/Characters.h"
#include "Utilities/Text/Text.h"

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
    return std::unexpected(JSONError::invalidJSON(std::move(document.error().message)));
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

JSONNode scalarNode(std::string key, JSONValueType type, std::string value) {
    return {.key = std::move(key), .type = type, .value = std::move(value)};
}

JSONNode node(std::string key, const JSON::Value& value) {
    switch (value.type()) {
    case JSON::Type::object: {
        JSONNode object{.key = std::move(key), .type = JSONValueType::object};
        object.children.reserve(value.members().size());
        for (const auto& [name, member] : value.members())
            object.children.push_back(node(std::string(name.text()), member));
        return object;
    }
    case JSON::Type::array: {
        JSONNode array{.key = std::move(key), .type = JSONValueType::array};
        array.children.reserve(value.elements().size());
        for (const auto& element : value.elements())
            array.children.push_back(node(fmt::format("[{}]", array.children.size()), element));
        return array;
    }
    case JSON::Type::string: {
        std::string quoted;
        quoted.reserve(value.text().size() + 2);
        quoted.append("\"").append(value.text()).append("\"");
        return scalarNode(std::move(key), JSONValueType::string, std::move(quoted));
    }
    case JSON::Type::number:
        return scalarNode(std::move(key), JSONValueType::number, std::string(value.text()));
    case JSON::Type::boolean:
        return scalarNode(std::move(key), JSONValueType::bool_, value.boolean() ? "true" : "false");
    case JSON::Type::null:
        return scalarNode(std::move(key), JSONValueType::null, "null");
    }
    return {.key = std::move(key)};
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
    return node("root", document->root());
}

} // namespace JSONFormatter

} // namespace korvane
