#include "Utilities/JSONFormatter.h"

#include "Utilities/JSON.h"
#include "Utilities/Text.h"

#include <fmt/format.h>

#include <utility>

namespace korvane {

namespace JSONFormatter {

namespace {

std::expected<JSON::Document, JSONError> read(std::string_view input, JSON::ReadingOptions options) {
    if (trimmingWhitespacesAndNewlines(input).empty())
        return std::unexpected(JSONError::emptyInput());
    auto document = JSON::parse(input, options);
    if (document)
        return std::move(*document);
    // The reader tells of bytes that are not UTF-8 before anything else.
    if (document.error().kind == JSON::ParseError::Kind::invalidUTF8)
        return std::unexpected(JSONError::invalidJSON("Could not encode input"));
    return std::unexpected(JSONError::invalidJSON(std::move(document.error().message)));
}

std::expected<std::string, JSONError> rewrite(std::string_view input, JSON::WritingOptions options) {
    const auto document = read(input, {});
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

std::expected<std::string, JSONError> prettify(std::string_view input, int /*indent*/) {
    return rewrite(input, {.prettyPrinted = true, .sortedKeys = true, .fragmentsAllowed = true});
}

std::expected<std::string, JSONError> minify(std::string_view input) {
    return rewrite(input, {.fragmentsAllowed = true});
}

std::expected<bool, JSONError> validate(std::string_view input) {
    if (auto document = read(input, {}); !document)
        return std::unexpected(std::move(document.error()));
    return true;
}

std::expected<JSONNode, JSONError> parseToTree(std::string_view input) {
    const auto document = read(input, {.fragmentsAllowed = true});
    if (!document)
        return std::unexpected(document.error());
    return node("root", document->root());
}

} // namespace JSONFormatter

} // namespace korvane
