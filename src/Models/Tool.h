/// `Tool` is the only list of the sixteen utilities. Sidebar, menus, headers and shortcuts take a tool's
/// name, glyph, description, colour, key and position from here.
#pragma once

#include "Models/Enumeration.h"
#include "Models/PaletteColor.h"

#include <array>
#include <optional>
#include <string_view>

namespace korvane {

enum class Tool {
    jsonFormatter,
    base64,
    urlEncoder,
    jwtDecoder,
    hashGenerator,
    uuidGenerator,
    timestamp,
    regexTester,
    colorPicker,
    textDiff,
    textTransformer,
    numberBase,
    loremIpsum,
    passwordGenerator,
    markdownPreview,
    imageConverter,
};

struct ToolFacts {
    Tool value;
    std::string_view rawValue;
    std::string_view icon;
    std::string_view description;
    PaletteColor accentColor;
    std::optional<char> keyboardShortcut;
};

template <>
inline constexpr auto facts<Tool> = std::to_array<ToolFacts>({
    {Tool::jsonFormatter, "JSON Formatter", "curlybraces", "Format, minify, and validate JSON",
     PaletteColor::cyan, '1'},
    {Tool::base64, "Base64", "doc.text", "Encode and decode Base64", PaletteColor::orange, '2'},
    {Tool::urlEncoder, "URL Encoder", "link", "Encode and decode URLs", PaletteColor::blue, '3'},
    {Tool::jwtDecoder, "JWT Decoder", "key.fill", "Decode and inspect JWT tokens", PaletteColor::purple, '4'},
    {Tool::hashGenerator, "Hash Generator", "number", "Generate MD5, SHA1, SHA256, SHA512 hashes",
     PaletteColor::green, '5'},
    {Tool::uuidGenerator, "UUID Generator", "rectangle.grid.1x2", "Generate UUIDs", PaletteColor::pink, '6'},
    {Tool::timestamp, "Timestamp", "clock", "Convert Unix timestamps", PaletteColor::yellow, '7'},
    {Tool::regexTester, "Regex Tester", "textformat.abc", "Test regular expressions", PaletteColor::red, '8'},
    {Tool::colorPicker, "Color Picker", "paintpalette", "Convert colors between formats",
     PaletteColor::indigo, '9'},
    {Tool::textDiff, "Text Diff", "arrow.left.arrow.right", "Compare two texts", PaletteColor::mint, '0'},
    {Tool::textTransformer, "Text Transformer", "textformat.size", "Transform text case and lines",
     PaletteColor::teal, std::nullopt},
    {Tool::numberBase, "Number Base", "01.square", "Convert between binary, octal, decimal, hex",
     PaletteColor::green, std::nullopt},
    {Tool::loremIpsum, "Lorem Ipsum", "text.quote", "Generate placeholder text", PaletteColor::brown,
     std::nullopt},
    {Tool::passwordGenerator, "Password Generator", "lock.shield", "Generate secure passwords",
     PaletteColor::red, std::nullopt},
    {Tool::markdownPreview, "Markdown Preview", "doc.richtext", "Preview Markdown with HTML export",
     PaletteColor::purple, std::nullopt},
    {Tool::imageConverter, "Image Converter", "photo.badge.arrow.down", "Convert and transform images",
     PaletteColor::cyan, std::nullopt},
});

/// The identity of rows and menu items: the display name, which is unique.
constexpr std::string_view id(Tool tool) {
    return rawValue(tool);
}

constexpr PaletteColor accentColor(Tool tool) {
    return factsOf(tool).accentColor;
}

/// The digit that, with the Control key, selects the tool; only the first ten tools have one.
constexpr std::optional<char> keyboardShortcut(Tool tool) {
    return factsOf(tool).keyboardShortcut;
}

} // namespace korvane
