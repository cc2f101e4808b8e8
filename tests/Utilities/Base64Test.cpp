#include "Utilities/Base64.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace korvane {
namespace {

struct Vector {
    std::string_view bytes;
    std::string_view text;
};

constexpr Vector vectors[] = {
    // RFC 4648, section 10, and the two characters that differ between alphabets
    {"", ""},
    {"f", "Zg=="},
    {"fo", "Zm8="},
    {"foo", "Zm9v"},
    {"foob", "Zm9vYg=="},
    {"fooba", "Zm9vYmE="},
    {"foobar", "Zm9vYmFy"},
    {"\xfb\xff\xbf", "+/+/"},
};

TEST(Base64, MatchesThePublishedVectors) {
    for (const auto& [bytes, text] : vectors) {
        EXPECT_EQ(Base64::encode(bytes), text);
        EXPECT_EQ(Base64::decode(text), bytes);
    }
}

TEST(Base64, RejectsTextThatIsNotPaddedStandardBase64) {
    constexpr std::string_view wrong[] = {
        "SGVsbG8",     "SGVsbG8==",  "SGVsbG8===", "S",        "SG",
        "SGV",         "=",          "==",         "====",     "S===",
        "SG=s",        "=GVs",       "SGVs=",      "SG==SGVs", "SGVs bG8=",
        "SGVs\nbG8=",  " SGVsbG8=",  "SGVsbG8= ",  "SGVsbG8-", "SGVsbG8_",
        "SGVsbG8\xc3", "SGVs\tbG8=", "S\0Vs",      "SGV*",     "SGVsbG8\xef\xbc\x9d",
    };
    for (const auto text : wrong)
        EXPECT_EQ(Base64::decode(text), std::nullopt) << '"' << text << '"';
    EXPECT_EQ(Base64::decode(std::string_view("SG\0s", 4)), std::nullopt);
}

/// The last character before the padding has two or four bits more than the bytes need. RFC 4648,
/// section 3.5, lets a decoder accept ones there; this decoder accepts them, as most do.
TEST(Base64, AcceptsAnyUnusedBitsBeforeThePadding) {
    constexpr Vector rows[] = {
        {"A", "QQ=="},         {"A", "QR=="},         {"A", "Qf=="},
        {"Hello", "SGVsbG8="}, {"Hello", "SGVsbG9="}, {"Hello", "SGVsbG/="},
    };
    for (const auto& [bytes, text] : rows)
        EXPECT_EQ(Base64::decode(text), bytes) << text;
}

RC_GTEST_PROP(Base64, RoundTripsAnyBytes, (const std::string& bytes)) {
    const auto text = Base64::encode(bytes);
    RC_ASSERT(text.size() == (bytes.size() + 2) / 3 * 4);
    RC_ASSERT(Base64::decode(text) == bytes);
}

} // namespace
} // namespace korvane
