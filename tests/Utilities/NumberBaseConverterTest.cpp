#include "Utilities/NumberBaseConverter.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace korvane {
namespace {

using NumberBaseConverter::Base;
using NumberBaseConverter::ConversionError;

constexpr auto maxNumber = std::numeric_limits<std::int64_t>::max();

TEST(NumberBaseConverter, BasesHaveTheirValuesAndNames) {
    ASSERT_EQ(allCases<Base>, (std::array{Base::binary, Base::octal, Base::decimal, Base::hexadecimal}));
    EXPECT_EQ(rawValue(Base::binary), 2);
    EXPECT_EQ(rawValue(Base::octal), 8);
    EXPECT_EQ(rawValue(Base::decimal), 10);
    EXPECT_EQ(rawValue(Base::hexadecimal), 16);
    EXPECT_EQ(label(Base::binary), "Binary");
    EXPECT_EQ(label(Base::octal), "Octal");
    EXPECT_EQ(label(Base::decimal), "Decimal");
    EXPECT_EQ(label(Base::hexadecimal), "Hexadecimal");
    for (const auto base : allCases<Base>)
        EXPECT_EQ(fromRawValue<Base>(rawValue(base)), base);
    EXPECT_EQ(title(Base::octal), "Octal");
    EXPECT_EQ(fromRawValue<Base>(3), std::nullopt);
}

TEST(NumberBaseConverter, ErrorsHaveTheirDescriptions) {
    const std::pair<ConversionError, std::string_view> rows[] = {
        {ConversionError::invalidCharacters(Base::binary), "Invalid characters for Binary (base 2)"},
        {ConversionError::invalidCharacters(Base::octal), "Invalid characters for Octal (base 8)"},
        {ConversionError::invalidCharacters(Base::decimal), "Invalid characters for Decimal (base 10)"},
        {ConversionError::invalidCharacters(Base::hexadecimal),
         "Invalid characters for Hexadecimal (base 16)"},
        {ConversionError::emptyInput(), "Input is empty"},
        {ConversionError::overflow(), "Number is too large to convert"},
        {ConversionError::invalidInput(), "Invalid input"},
    };
    for (const auto& [error, message] : rows)
        EXPECT_EQ(error.errorDescription(), message);
}

TEST(NumberBaseConverter, CleansItsInput) {
    struct Row {
        std::string_view name;
        std::string_view input;
        std::string_view cleaned;
    };

    constexpr Row rows[] = {
        {"nothing", "", ""},
        {"digits as they are", "0123", "0123"},
        {"white space and newlines around", " \t\r\n12\u00a0\u2028", "12"},
        {"a binary prefix", "0b101", "101"},
        {"a binary prefix in capitals", "0B101", "101"},
        {"an octal prefix", "0o17", "17"},
        {"an octal prefix in capitals", "0O17", "17"},
        {"a hexadecimal prefix", "0x1F", "1F"},
        {"a hexadecimal prefix in capitals", "0X1F", "1F"},
        {"only the prefix", "0x", ""},
        {"one prefix, not two", "0b0b1", "0b1"},
        {"one prefix, not two different ones", "0x0b1", "0b1"},
        {"what looks like hexadecimal digits", "0b1", "1"},
        {"no prefix inside", "10x1", "10x1"},
        {"space after the prefix stays", "0x 1", " 1"},
        {"half a prefix", "0", "0"},
        {"inner spaces, underscores, commas and signs stay", "-1 0_0,0+", "-1 0_0,0+"},
        {"a space before the prefix", "  0x1f  ", "1f"},
    };
    for (const auto& row : rows) {
        for (const auto base : allCases<Base>)
            EXPECT_EQ(NumberBaseConverter::cleanInput(row.input, base), row.cleaned) << row.name;
    }
}

TEST(NumberBaseConverter, AcceptsOnlyTheDigitsOfEachBase) {
    constexpr std::string_view digits[] = {"01", "01234567", "0123456789", "0123456789abcdefABCDEF"};
    for (const auto base : allCases<Base>) {
        EXPECT_TRUE(NumberBaseConverter::isValid("", base));
        const auto valid = digits[static_cast<std::size_t>(base)];
        for (int byte = 0; byte < 256; ++byte) {
            const std::string text(1, static_cast<char>(byte));
            EXPECT_EQ(NumberBaseConverter::isValid(text, base), valid.contains(text[0]))
                << label(base) << byte;
            EXPECT_EQ(NumberBaseConverter::isValid("1" + text, base), valid.contains(text[0])) << byte;
        }
        EXPECT_FALSE(NumberBaseConverter::isValid("\u0661", base)) << "an Arabic digit";
        EXPECT_FALSE(NumberBaseConverter::isValid("\uff11", base)) << "a full-width digit";
        EXPECT_FALSE(NumberBaseConverter::isValid("1\u0301", base)) << "an accent on a digit";
    }
}

struct Conversion {
    std::string_view name;
    std::string input;
    Base base;
    std::string_view binary;
    std::string_view octal;
    std::string_view decimal;
    std::string_view hexadecimal;
};

TEST(NumberBaseConverter, WritesANumberInEveryBase) {
    const std::vector<Conversion> rows = {
        {"space, prefix, small letters", "  0x1f  ", Base::hexadecimal, "11111", "37", "31", "1F"},
        {"zero", "0", Base::decimal, "0", "0", "0", "0"},
        {"zeros", "0000", Base::binary, "0", "0", "0", "0"},
        {"leading zeros", "0b00011", Base::binary, "11", "3", "3", "3"},
        {"more zeros than digits fit", std::string(100, '0') + "7", Base::octal, "111", "7", "7", "7"},
        {"ten in decimal", "10", Base::decimal, "1010", "12", "10", "A"},
        {"ten in binary", "10", Base::binary, "10", "2", "2", "2"},
        {"another base's prefix", "0x17", Base::octal, "1111", "17", "15", "F"},
        {"mixed letters", "DeadBeef", Base::hexadecimal, "11011110101011011011111011101111", "33653337357",
         "3735928559", "DEADBEEF"},
        {"the largest", "7FFFFFFFFFFFFFFF", Base::hexadecimal,
         "111111111111111111111111111111111111111111111111111111111111111", "777777777777777777777",
         "9223372036854775807", "7FFFFFFFFFFFFFFF"},
        {"the largest in decimal", "9223372036854775807", Base::decimal,
         "111111111111111111111111111111111111111111111111111111111111111", "777777777777777777777",
         "9223372036854775807", "7FFFFFFFFFFFFFFF"},
    };
    for (const auto& row : rows) {
        const auto result = NumberBaseConverter::convertToAllBases(row.input, row.base);
        ASSERT_TRUE(result) << row.name;
        ASSERT_EQ(result->size(), 4) << row.name;
        EXPECT_EQ(result->at(Base::binary), row.binary) << row.name;
        EXPECT_EQ(result->at(Base::octal), row.octal) << row.name;
        EXPECT_EQ(result->at(Base::decimal), row.decimal) << row.name;
        EXPECT_EQ(result->at(Base::hexadecimal), row.hexadecimal) << row.name;
    }
}

TEST(NumberBaseConverter, RejectsInvalidInput) {
    struct Row {
        std::string_view name;
        std::string input;
        Base base;
        ConversionError error;
    };

    const std::vector<Row> rows = {
        {"nothing", "", Base::decimal, ConversionError::emptyInput()},
        {"only white space", " \t\n ", Base::decimal, ConversionError::emptyInput()},
        {"a bare prefix", "0x", Base::hexadecimal, ConversionError::emptyInput()},
        {"a bare prefix of another base", " 0B ", Base::decimal, ConversionError::emptyInput()},
        {"one above the largest", "8000000000000000", Base::hexadecimal, ConversionError::overflow()},
        {"one above the largest in decimal", "9223372036854775808", Base::decimal,
         ConversionError::overflow()},
        {"one above the largest in octal", "1000000000000000000000", Base::octal,
         ConversionError::overflow()},
        {"one above the largest in binary", "1" + std::string(63, '0'), Base::binary,
         ConversionError::overflow()},
        {"a million digits", std::string(1'000'000, '9'), Base::decimal, ConversionError::overflow()},
        {"a million digits and a letter", std::string(1'000'000, '9') + "x", Base::decimal,
         ConversionError::invalidCharacters(Base::decimal)},
        {"an underscore", "1_000", Base::decimal, ConversionError::invalidCharacters(Base::decimal)},
        {"a comma", "1,000", Base::decimal, ConversionError::invalidCharacters(Base::decimal)},
        {"a space", "1 000", Base::decimal, ConversionError::invalidCharacters(Base::decimal)},
        {"a minus", "-1", Base::decimal, ConversionError::invalidCharacters(Base::decimal)},
        {"a plus", "+1", Base::decimal, ConversionError::invalidCharacters(Base::decimal)},
        {"a fraction", "1.5", Base::decimal, ConversionError::invalidCharacters(Base::decimal)},
        {"a digit too high", "012", Base::binary, ConversionError::invalidCharacters(Base::binary)},
        {"a digit too high in octal", "8", Base::octal, ConversionError::invalidCharacters(Base::octal)},
        {"hexadecimal digits after their prefix", "0x1F", Base::decimal,
         ConversionError::invalidCharacters(Base::decimal)},
        {"a letter too high", "G", Base::hexadecimal, ConversionError::invalidCharacters(Base::hexadecimal)},
        {"a second prefix", "0x0x1", Base::hexadecimal,
         ConversionError::invalidCharacters(Base::hexadecimal)},
        {"a NUL", std::string("1\0", 2), Base::decimal, ConversionError::invalidCharacters(Base::decimal)},
        {"not UTF-8", "\xff", Base::hexadecimal, ConversionError::invalidCharacters(Base::hexadecimal)},
    };
    for (const auto& row : rows) {
        const auto result = NumberBaseConverter::convertToAllBases(row.input, row.base);
        ASSERT_FALSE(result) << row.name;
        EXPECT_EQ(result.error(), row.error) << row.name;
    }
}

TEST(NumberBaseConverter, GroupsFromTheRight) {
    struct Row {
        std::string_view digits;
        Base base;
        std::string_view grouped;
    };

    constexpr Row rows[] = {
        {"", Base::binary, ""},
        {"1", Base::binary, "1"},
        {"1111", Base::binary, "1111"},
        {"11111", Base::binary, "1 1111"},
        {"11111111", Base::binary, "1111 1111"},
        {"777", Base::octal, "777"},
        {"37702436136", Base::octal, "37 702 436 136"},
        {"", Base::decimal, ""},
        {"123", Base::decimal, "123"},
        {"1234567", Base::decimal, "1,234,567"},
        {"123456", Base::decimal, "123,456"},
        {"DEADBEEF", Base::hexadecimal, "DE AD BE EF"},
        {"FFF", Base::hexadecimal, "F FF"},
        {"FF", Base::hexadecimal, "FF"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(NumberBaseConverter::groupDigits(row.digits, row.base), row.grouped);
}

/// The digits of a number, by repeated division.
std::string written(std::int64_t number, int radix) {
    std::string digits;
    do {
        digits.insert(digits.begin(), "0123456789ABCDEF"[number % radix]);
        number /= radix;
    } while (number > 0);
    return digits;
}

std::int64_t anyNumber() {
    return *rc::gen::inRange<std::int64_t>(0, maxNumber) >> *rc::gen::inRange(0, 63);
}

RC_GTEST_PROP(NumberBaseConverter, ConvertsBetweenAllBasesAsRepeatedDivisionDoes, ()) {
    const auto number = anyNumber();
    for (const auto source : allCases<Base>) {
        const auto result = NumberBaseConverter::convertToAllBases(written(number, rawValue(source)), source);
        RC_ASSERT(result.has_value());
        for (const auto base : allCases<Base>)
            RC_ASSERT(result->at(base) == written(number, rawValue(base)));
    }
}

RC_GTEST_PROP(NumberBaseConverter, GroupsDigitsWithoutChangingThem, ()) {
    const auto base = *rc::gen::elementOf(allCases<Base>);
    const auto digits = written(anyNumber(), rawValue(base));
    auto grouped = NumberBaseConverter::groupDigits(digits, base);
    const auto& conventions = factsOf(base);
    RC_ASSERT(grouped.front() != conventions.groupSeparator);
    for (std::size_t fromRight = 0; fromRight < grouped.size(); ++fromRight) {
        const bool isSeparator = grouped[grouped.size() - 1 - fromRight] == conventions.groupSeparator;
        RC_ASSERT(isSeparator == ((fromRight + 1) % (conventions.groupSize + 1) == 0));
    }
    std::erase(grouped, conventions.groupSeparator);
    RC_ASSERT(grouped == digits);
}

RC_GTEST_PROP(NumberBaseConverter, ConvertsAnyTextOrReportsAnError, (const std::string& text)) {
    const auto base = *rc::gen::elementOf(allCases<Base>);
    const auto result = NumberBaseConverter::convertToAllBases(text, base);
    if (result)
        RC_ASSERT(result->size() == 4U);
    else
        RC_ASSERT(!result.error().errorDescription().empty());
}

} // namespace
} // namespace korvane
