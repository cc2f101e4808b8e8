#include "Utilities/PercentEncoding.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cctype>
#include <optional>

namespace korvane {
namespace {

TEST(PercentEncoding, Encodes) {
    struct Row {
        std::string_view name;
        std::string_view text;
        std::optional<std::string> encoded;
    };

    constexpr std::string_view kept =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789!$&'()*+,-./:;=?@_~";
    const Row rows[] = {
        {"nothing", "", ""},
        {"a space, and delimiters of a query", "a b&c=d", "a%20b&c=d"},
        {"all that is kept", kept, std::string(kept)},
        {"the rest of ASCII's punctuation", "\"#%<>[\\]^`{|}", "%22%23%25%3C%3E%5B%5C%5D%5E%60%7B%7C%7D"},
        {"control characters", std::string_view("\0\t\n\r\x1f\x7f", 6), "%00%09%0A%0D%1F%7F"},
        {"an encoded sequence", "%20", "%2520"},
        {"two bytes", "é", "%C3%A9"},
        {"three bytes", "✓", "%E2%9C%93"},
        {"four bytes", "👍", "%F0%9F%91%8D"},
        {"a character of two code points", "e\u0301", "e%CC%81"},
        {"letters and digits of other scripts", "я٣", "%D1%8F%D9%A3"},
        {"a noncharacter", "\uffff", "%EF%BF%BF"},
        {"not UTF-8", "a\xff", std::nullopt},
        {"a cut character", "\xe2\x9c", std::nullopt},
        {"half a surrogate pair", "\xed\xa0\x80", std::nullopt},
        {"an overlong form", "\xc0\xaf", std::nullopt},
    };
    for (const auto& row : rows)
        EXPECT_EQ(PercentEncoding::encode(row.text), row.encoded) << row.name;
}

TEST(PercentEncoding, Decodes) {
    struct Row {
        std::string_view name;
        std::string_view text;
        std::optional<std::string> decoded;
    };

    const Row rows[] = {
        {"nothing", "", ""},
        {"three bytes", "%E2%9C%93", "✓"},
        {"lower-case digits", "%e2%9c%93", "✓"},
        {"digits of either case", "%C3%a9", "é"},
        {"a plus sign", "a+b%2B", "a+b+"},
        {"other characters", "é #\n\"", "é #\n\""},
        {"encoded twice", "%2520", "%20"},
        {"a null byte", "a%00b", std::string("a\0b", 3)},
        {"a character half encoded", "\xc3%A9", "é"},
        {"a lone percent sign", "100%", std::nullopt},
        {"one digit at the end", "%4", std::nullopt},
        {"one digit", "%4g", std::nullopt},
        {"no digits", "%zz", std::nullopt},
        {"two percent signs", "%%41", std::nullopt},
        {"a sign", "%+1", std::nullopt},
        {"a minus sign", "%-1", std::nullopt},
        {"a space", "% 1", std::nullopt},
        {"a prefix", "%0x", std::nullopt},
        {"digits of another script", "%٣٣", std::nullopt},
        {"bytes that are not UTF-8", "%FF", std::nullopt},
        {"a cut character", "%E2%9C", std::nullopt},
        {"half a surrogate pair", "%ED%A0%80", std::nullopt},
        {"an overlong form", "%C0%AF", std::nullopt},
        {"unencoded bytes that are not UTF-8", "\xff", std::nullopt},
    };
    for (const auto& row : rows)
        EXPECT_EQ(PercentEncoding::decode(row.text), row.decoded) << row.name;
}

/// Texts with many percent signs and hexadecimal digits.
rc::Gen<std::string> texts() {
    return rc::gen::map(
        rc::gen::container<std::vector<std::string>>(rc::gen::elementOf(std::vector<std::string>{
            "%4a", "%2B", "%25", "%C3%A9", "%E2%9c%93", "%E2", "%93", "%2", "A", "4", "+", "é", "👍", "\n"})),
        [](const std::vector<std::string>& pieces) {
            std::string text;
            for (const auto& piece : pieces)
                text += piece;
            return text;
        });
}

RC_GTEST_PROP(PercentEncoding, RoundTripsAnyText, ()) {
    const auto text = *texts();
    const auto encoded = PercentEncoding::encode(text);
    RC_ASSERT(encoded.has_value());
    RC_ASSERT(PercentEncoding::decode(*encoded) == text);
}

/// The bytes that a text encodes; none if two hexadecimal digits do not follow each `%`.
std::optional<std::string> naiveBytes(const std::string& text) {
    const auto isDigit = [&](std::size_t at) {
        return at < text.size() && std::isxdigit(static_cast<unsigned char>(text[at]));
    };
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            bytes += text[i];
        } else if (isDigit(i + 1) && isDigit(i + 2)) {
            bytes += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
            i += 2;
        } else {
            return std::nullopt;
        }
    }
    return bytes;
}

RC_GTEST_PROP(PercentEncoding, AgreesWithTheNaiveDecoder, ()) {
    const auto text = *texts();
    const auto bytes = naiveBytes(text);
    const auto decoded = PercentEncoding::decode(text);
    RC_TAG(decoded ? "text" : (bytes ? "not UTF-8" : "malformed"));
    if (decoded)
        RC_ASSERT(decoded == bytes);
    else if (bytes)
        RC_ASSERT(!PercentEncoding::encode(*bytes)); // which encodes only UTF-8
}

} // namespace
} // namespace korvane
