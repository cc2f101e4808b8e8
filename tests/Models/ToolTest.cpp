#include "Models/Tool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <set>
#include <string_view>

namespace korvane {
namespace {

TEST(Tool, ListsSixteenToolsFromJSONFormatterToImageConverter) {
    EXPECT_EQ(allCases<Tool>.size(), 16U);
    EXPECT_EQ(allCases<Tool>.front(), Tool::jsonFormatter);
    EXPECT_EQ(allCases<Tool>.back(), Tool::imageConverter);
}

TEST(Tool, IsFoundByItsExactDisplayNameOnly) {
    EXPECT_EQ(fromRawValue<Tool>("JSON Formatter"), Tool::jsonFormatter);
    EXPECT_EQ(fromRawValue<Tool>("json formatter"), std::nullopt);
    EXPECT_EQ(fromRawValue<Tool>("JSON"), std::nullopt);
    EXPECT_EQ(fromRawValue<Tool>(""), std::nullopt);
    for (const auto tool : allCases<Tool>)
        EXPECT_EQ(fromRawValue<Tool>(rawValue(tool)), tool);
}

TEST(Tool, IsIdentifiedByItsDisplayName) {
    std::set<std::string_view> names;
    for (const auto tool : allCases<Tool>) {
        EXPECT_EQ(id(tool), rawValue(tool));
        names.insert(id(tool));
    }
    EXPECT_EQ(names.size(), allCases<Tool>.size());
}

TEST(Tool, HasItsNameIconDescriptionColorAndShortcut) {
    struct Row {
        Tool tool;
        std::string_view name;
        std::string_view icon;
        std::string_view description;
        PaletteColor color;
        std::optional<char> shortcut;
    };

    using enum PaletteColor;
    constexpr Row rows[] = {
        {Tool::jsonFormatter, "JSON Formatter", "curlybraces", "Format, minify, and validate JSON", cyan,
         '1'},
        {Tool::base64, "Base64", "doc.text", "Encode and decode Base64", orange, '2'},
        {Tool::urlEncoder, "URL Encoder", "link", "Encode and decode URLs", blue, '3'},
        {Tool::jwtDecoder, "JWT Decoder", "key.fill", "Decode and inspect JWT tokens", purple, '4'},
        {Tool::hashGenerator, "Hash Generator", "number", "Generate MD5, SHA1, SHA256, SHA512 hashes", green,
         '5'},
        {Tool::uuidGenerator, "UUID Generator", "rectangle.grid.1x2", "Generate UUIDs", pink, '6'},
        {Tool::timestamp, "Timestamp", "clock", "Convert Unix timestamps", yellow, '7'},
        {Tool::regexTester, "Regex Tester", "textformat.abc", "Test regular expressions", red, '8'},
        {Tool::colorPicker, "Color Picker", "paintpalette", "Convert colors between formats", indigo, '9'},
        {Tool::textDiff, "Text Diff", "arrow.left.arrow.right", "Compare two texts", mint, '0'},
        {Tool::textTransformer, "Text Transformer", "textformat.size", "Transform text case and lines", teal,
         std::nullopt},
        {Tool::numberBase, "Number Base", "01.square", "Convert between binary, octal, decimal, hex", green,
         std::nullopt},
        {Tool::loremIpsum, "Lorem Ipsum", "text.quote", "Generate placeholder text", brown, std::nullopt},
        {Tool::passwordGenerator, "Password Generator", "lock.shield", "Generate secure passwords", red,
         std::nullopt},
        {Tool::markdownPreview, "Markdown Preview", "doc.richtext", "Preview Markdown with HTML export",
         purple, std::nullopt},
        {Tool::imageConverter, "Image Converter", "photo.badge.arrow.down", "Convert and transform images",
         cyan, std::nullopt},
    };
    ASSERT_TRUE(std::ranges::equal(rows, allCases<Tool>, {}, &Row::tool)) << "in this order";
    for (const auto& row : rows) {
        EXPECT_EQ(rawValue(row.tool), row.name);
        EXPECT_EQ(icon(row.tool), row.icon) << row.name;
        EXPECT_EQ(description(row.tool), row.description) << row.name;
        EXPECT_EQ(accentColor(row.tool), row.color) << row.name;
        EXPECT_EQ(keyboardShortcut(row.tool), row.shortcut) << row.name;
    }
}

} // namespace
} // namespace korvane
