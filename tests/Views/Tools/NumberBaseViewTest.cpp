#include "Views/Tools/NumberBaseView.h"

#include <gtest/gtest.h>

#include <vector>

namespace korvane {
namespace {

using Base = NumberBaseView::Base;

NumberBaseView typed(Base base, std::string input) {
    NumberBaseView view{.sourceBase = base};
    view.setInputText(std::move(input));
    return view;
}

TEST(NumberBaseView, StartsEmptyInDecimal) {
    const NumberBaseView view;
    EXPECT_EQ(view.inputText, "");
    EXPECT_EQ(view.sourceBase, Base::decimal);
    EXPECT_FALSE(view.hasResults());
    EXPECT_EQ(view.errorMessage, std::nullopt);
    EXPECT_FALSE(view.showGrouped);
    EXPECT_EQ(view.formatResult(Base::binary), "-");
}

TEST(NumberBaseView, ShowsANumberInEveryBaseAsItIsTyped) {
    const auto view = typed(Base::hexadecimal, "ff0a3c5e");
    EXPECT_EQ(view.formatResult(Base::binary), "11111111000010100011110001011110");
    EXPECT_EQ(view.formatResult(Base::octal), "37702436136");
    EXPECT_EQ(view.formatResult(Base::decimal), "4278860894");
    EXPECT_EQ(view.formatResult(Base::hexadecimal), "FF0A3C5E");
    EXPECT_EQ(view.errorMessage, std::nullopt);
}

TEST(NumberBaseView, ReadsTheSameTextAgainInAnotherBase) {
    auto view = typed(Base::decimal, "10");
    EXPECT_EQ(view.formatResult(Base::decimal), "10");
    view.setSourceBase(Base::binary);
    EXPECT_EQ(view.formatResult(Base::decimal), "2");
    EXPECT_EQ(view.inputText, "10");
}

TEST(NumberBaseView, ShowsTheErrorAndNoResults) {
    struct Row {
        Base base;
        std::string_view input;
        std::string_view message;
    };

    const std::vector<Row> rows = {
        {Base::decimal, "0x1F", "Invalid characters for Decimal (base 10)"},
        {Base::hexadecimal, "xyz", "Invalid characters for Hexadecimal (base 16)"},
        {Base::decimal, "   ", "Input is empty"},
        {Base::hexadecimal, "0x", "Input is empty"},
        {Base::decimal, "9223372036854775808", "Number is too large to convert"},
    };
    for (const auto& row : rows) {
        auto view = typed(row.base, "1");
        view.setInputText(std::string(row.input));
        EXPECT_EQ(view.errorMessage, row.message);
        EXPECT_FALSE(view.hasResults()) << row.message;
        EXPECT_EQ(view.formatResult(Base::decimal), "-");
        view.setInputText("1");
        EXPECT_EQ(view.errorMessage, std::nullopt) << row.message;
    }
}

TEST(NumberBaseView, ChoosingAMatchingBaseClearsTheError) {
    auto view = typed(Base::decimal, "1F");
    EXPECT_TRUE(view.errorMessage);
    view.setSourceBase(Base::hexadecimal);
    EXPECT_EQ(view.errorMessage, std::nullopt);
    EXPECT_EQ(view.formatResult(Base::decimal), "31");
}

TEST(NumberBaseView, ClearingRemovesResultsAndMessage) {
    for (const auto* input : {"5", "five"}) {
        auto view = typed(Base::decimal, input);
        view.setInputText("");
        EXPECT_EQ(view, NumberBaseView());
    }
}

TEST(NumberBaseView, GroupsOnlyTheDisplayedDigits) {
    auto view = typed(Base::decimal, "1234567");
    const auto results = view.results;
    view.setShowGrouped(true);
    EXPECT_EQ(view.formatResult(Base::decimal), "1,234,567");
    EXPECT_EQ(view.resultCard(Base::decimal).value, "1,234,567");
    EXPECT_EQ(view.results, results);
    view.setInputText("255");
    EXPECT_EQ(view.formatResult(Base::binary), "1111 1111");
    EXPECT_EQ(view.formatResult(Base::hexadecimal), "FF");
    view.setShowGrouped(false);
    EXPECT_EQ(view.formatResult(Base::binary), "11111111");
    view.setInputText("");
    view.setShowGrouped(true);
    EXPECT_EQ(view.formatResult(Base::binary), "-");
}

TEST(NumberBaseView, MarksTheCardOfTheSource) {
    const auto view = typed(Base::octal, "17");
    EXPECT_EQ(view.resultCard(Base::octal), (BaseResultCard{Base::octal, "17", true}));
    EXPECT_EQ(view.resultCard(Base::decimal), (BaseResultCard{Base::decimal, "15", false}));
    EXPECT_EQ(view.resultCard(Base::octal).note(), "(source)");
    EXPECT_EQ(view.resultCard(Base::decimal).note(), "");
}

TEST(NumberBaseView, EveryBaseHasItsTextsIconAndColor) {
    struct Row {
        Base base;
        std::string_view title;
        std::string_view placeholder;
        std::string_view prefix;
        std::string_view caption;
        std::string_view icon;
        PaletteColor color;
    };

    constexpr Row rows[] = {
        {Base::binary, "Input (Binary)", "Enter binary number...", "0b", "base 2", "01.square",
         PaletteColor::green},
        {Base::octal, "Input (Octal)", "Enter octal number...", "0o", "base 8", "8.square",
         PaletteColor::orange},
        {Base::decimal, "Input (Decimal)", "Enter decimal number...", "", "base 10", "number",
         PaletteColor::blue},
        {Base::hexadecimal, "Input (Hexadecimal)", "Enter hexadecimal number...", "0x", "base 16", "hexagon",
         PaletteColor::purple},
    };
    for (const auto& row : rows) {
        const auto view = typed(row.base, "");
        EXPECT_EQ(view.inputTitle(), row.title);
        EXPECT_EQ(view.placeholder(), row.placeholder);
        EXPECT_EQ(view.inputPrefix(), row.prefix);
        EXPECT_EQ(view.resultCard(row.base).caption(), row.caption);
        EXPECT_EQ(icon(row.base), row.icon);
        EXPECT_EQ(factsOf(row.base).color, row.color);
    }
}

} // namespace
} // namespace korvane
