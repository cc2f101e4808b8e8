#include "Models/Tool.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace korvane {
namespace {

TEST(Tool, ListsSixteenToolsFromJSONFormatterToImageConverter) {
    EXPECT_EQ(allCases<Tool>.size(), 16U);
    EXPECT_EQ(allCases<Tool>.front(), Tool::jsonFormatter);
    EXPECT_EQ(allCases<Tool>.back(), Tool::imageConverter);
}

TEST(Tool, HasDigitShortcutsInOrderForTheFirstTenOnly) {
    std::string digits;
    for (const auto tool : allCases<Tool>) {
        if (const auto key = keyboardShortcut(tool))
            digits += *key;
        else
            EXPECT_GE(tool, Tool::textTransformer);
    }
    EXPECT_EQ(digits, "1234567890");
    EXPECT_EQ(keyboardShortcut(Tool::textDiff), '0');
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

TEST(Tool, RepeatsColoursOnPurpose) {
    EXPECT_EQ(accentColor(Tool::hashGenerator), accentColor(Tool::numberBase));
    EXPECT_EQ(accentColor(Tool::regexTester), accentColor(Tool::passwordGenerator));
    EXPECT_EQ(accentColor(Tool::jwtDecoder), accentColor(Tool::markdownPreview));
    EXPECT_EQ(accentColor(Tool::jsonFormatter), accentColor(Tool::imageConverter));
}

TEST(Tool, TellsGlyphAndPurpose) {
    struct Row {
        Tool tool;
        std::string_view icon;
        std::string_view description;
    };

    constexpr Row rows[] = {
        {Tool::jsonFormatter, "curlybraces", "Format, minify, and validate JSON"},
        {Tool::hashGenerator, "number", "Generate MD5, SHA1, SHA256, SHA512 hashes"},
        {Tool::imageConverter, "photo.badge.arrow.down", "Convert and transform images"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(icon(row.tool), row.icon);
        EXPECT_EQ(description(row.tool), row.description);
    }
}

} // namespace
} // namespace korvane
