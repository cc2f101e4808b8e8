#include "support/JSONModel.h"

#include <rapidcheck.h>

#include <algorithm>
#include <array>
#include <cstdio>

namespace korvane::support {

namespace {

/// A number from 0 to `end` - 1, uniformly distributed from the first draw on.
int draw(int end) {
    return *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(0, end));
}

std::string randomContent() {
    constexpr std::array<std::string_view, 16> pieces = {"a",  "b",      "/",          "\"",   "\\", "\n",
                                                         "\t", "\x01",   "\x1f",       "\x7f", "ü",  "漢",
                                                         "👩", "\u2028", "0123456789", ""};
    std::string content;
    for (int count = draw(6); count > 0; --count)
        content += pieces[static_cast<std::size_t>(draw(static_cast<int>(pieces.size())))];
    return content;
}

JSONModel randomScalar() {
    constexpr std::array<std::pair<std::string_view, std::string_view>, 12> scalars = {{
        {"null", "null"},
        {"true", "true"},
        {"false", "false"},
        {"0", "0"},
        {"-0.0", "-0"},
        {"1.50", "1.5"},
        {"1e3", "1000"},
        {"25E-1", "2.5"},
        {"17478252242305210114", "17478252242305210114"},
        {"5.107091491635510056019771245", "5.107091491635510056019771245"},
        {"10e399", "1e400"},
        {"-12.5e-300", "-1.25e-299"},
    }};
    const auto& [literal, canonical] =
        scalars[static_cast<std::size_t>(draw(static_cast<int>(scalars.size())))];
    return {.literal = std::string(literal), .canonical = std::string(canonical)};
}

JSONModel randomModel(int depth) {
    JSONModel model;
    const int choices = depth == 0 ? 2 : 5; // more than half of the values are containers
    switch (draw(choices)) {
    case 0:
        return randomScalar();
    case 1:
        return {.kind = JSONModel::Kind::string, .canonical = randomContent()};
    case 2:
        model.kind = JSONModel::Kind::array;
        for (int count = draw(6); count > 0; --count)
            model.elements.push_back(randomModel(depth - 1));
        return model;
    default:
        model.kind = JSONModel::Kind::object;
        for (int count = draw(6); count > 0; --count)
            model.members.insert_or_assign(randomContent(), randomModel(depth - 1));
        return model;
    }
}

std::string randomSpace() {
    constexpr std::array<std::string_view, 6> spaces = {"", "", " ", "\n", "\r\n\t", "                  "};
    return std::string(spaces[static_cast<std::size_t>(draw(static_cast<int>(spaces.size())))]);
}

/// Not by its sign: whether `char` has one depends on the processor.
bool isASCII(char character) {
    return static_cast<unsigned char>(character) < 0x80;
}

bool isControl(char character) {
    return static_cast<unsigned char>(character) < 0x20;
}

std::string unicodeEscape(char character, const char* format) {
    std::array<char, 8> escape{};
    std::snprintf(escape.data(), escape.size(), format, static_cast<unsigned>(character));
    return escape.data();
}

std::string randomStringText(std::string_view content) {
    std::string text = "\"";
    for (const char character : content) {
        const bool mustBeEscaped = character == '"' || character == '\\' || isControl(character);
        if (mustBeEscaped || (isASCII(character) && draw(4) == 0))
            text += unicodeEscape(character, draw(2) == 0 ? "\\u%04x" : "\\u%04X");
        else
            text += character;
    }
    return text + '"';
}

/// The members in random order, some names preceded by a duplicate with another value.
std::vector<std::pair<std::string, JSONModel>> randomMembers(const JSONModel& model) {
    std::vector<std::pair<std::string, JSONModel>> members;
    for (const auto& [name, value] : model.members) {
        const auto place = members.begin() + draw(static_cast<int>(members.size()) + 1);
        members.insert(place, {name, value});
    }
    if (!members.empty() && draw(3) == 0)
        members.insert(members.begin(),
                       {members[static_cast<std::size_t>(draw(static_cast<int>(members.size())))].first,
                        {.literal = "\"replaced\"", .canonical = "\"replaced\""}});
    return members;
}

std::string expectedString(std::string_view content) {
    std::string text = "\"";
    for (const char character : content) {
        constexpr std::string_view characters = "\"\\/\b\f\n\r\t";
        constexpr std::string_view letters = "\"\\/bfnrt";
        if (const auto index = characters.find(character); index != std::string_view::npos)
            text.append("\\").append(1, letters[index]);
        else if (isControl(character))
            text += unicodeEscape(character, "\\u%04x");
        else
            text += character;
    }
    return text + '"';
}

} // namespace

JSONModel randomJSONModel() {
    auto model = randomModel(4);
    if (!model.isContainer())
        model = {.kind = JSONModel::Kind::array, .elements = {model}};
    return model;
}

std::string randomJSONText(const JSONModel& model) {
    std::string text = randomSpace();
    std::string separator;
    switch (model.kind) {
    case JSONModel::Kind::scalar:
        text += model.literal;
        break;
    case JSONModel::Kind::string:
        text += randomStringText(model.canonical);
        break;
    case JSONModel::Kind::array:
        text += "[" + randomSpace();
        for (const auto& element : model.elements)
            text += std::exchange(separator, ",") + randomJSONText(element);
        text += "]";
        break;
    case JSONModel::Kind::object:
        text += "{" + randomSpace();
        for (const auto& [name, value] : randomMembers(model)) {
            text += std::exchange(separator, ",") + randomSpace();
            text += randomStringText(name) + randomSpace() + ":" + randomJSONText(value);
        }
        text += "}";
        break;
    }
    return text + randomSpace();
}

std::string expectedMinified(const JSONModel& model) {
    std::string text;
    std::string separator;
    switch (model.kind) {
    case JSONModel::Kind::scalar:
        return model.canonical;
    case JSONModel::Kind::string:
        return expectedString(model.canonical);
    case JSONModel::Kind::array:
        for (const auto& element : model.elements)
            text += std::exchange(separator, ",") + expectedMinified(element);
        return "[" + text + "]";
    case JSONModel::Kind::object:
        for (const auto& [name, value] : model.members)
            text += std::exchange(separator, ",") + expectedString(name) + ":" + expectedMinified(value);
        return "{" + text + "}";
    }
    return text;
}

std::string expectedPrettified(const JSONModel& model, int level) {
    if (!model.isContainer() || (model.elements.empty() && model.members.empty()))
        return expectedMinified(model);
    const std::string outerLine = "\n" + std::string(static_cast<std::size_t>(2 * level), ' ');
    std::string separator;
    std::string text;
    for (const auto& element : model.elements)
        text += std::exchange(separator, ",") + outerLine + "  " + expectedPrettified(element, level + 1);
    for (const auto& [name, value] : model.members)
        text += std::exchange(separator, ",") + outerLine + "  " + expectedString(name) + " : " +
                expectedPrettified(value, level + 1);
    return model.kind == JSONModel::Kind::array ? "[" + text + outerLine + "]" : "{" + text + outerLine + "}";
}

} // namespace korvane::support
