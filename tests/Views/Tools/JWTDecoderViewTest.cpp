#include "Views/Tools/JWTDecoderView.h"

#include "Utilities/Base64.h"
#include "Utilities/DateText.h"
#include "support/FakeServices.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace korvane {
namespace {

constexpr std::string_view formatMessage = "Invalid JWT format. Expected 3 parts separated by dots.";
constexpr std::string_view headerMessage = "Could not decode header";
constexpr std::string_view payloadMessage = "Could not decode payload";

/// `text` as a part of a token.
std::string encoded(std::string_view text) {
    auto part = Base64::encode(text);
    std::ranges::replace(part, '+', '-');
    std::ranges::replace(part, '/', '_');
    part.erase(std::ranges::find(part, '='), part.end());
    return part;
}

struct JWTDecoderViewTest : testing::Test {
    FakeServices fakes{};
    JWTDecoderView view{};
    Context<JWTDecoderView> context{fakes.services, [this](const auto& change) { change(view); }};

    void decode(std::string token) {
        view.setInputToken(std::move(token));
        view.decode(context);
        fakes.background.runAll();
    }

    /// Decodes a token with that payload.
    void decodePayload(std::string_view payload) { decode("e30." + encoded(payload) + ".s"); }

    void expectNoResults() const {
        EXPECT_EQ(view.header, "");
        EXPECT_EQ(view.payload, "");
        EXPECT_EQ(view.signature, "");
        EXPECT_EQ(view.errorMessage, std::nullopt);
        EXPECT_EQ(view.expiryInfo, std::nullopt);
        EXPECT_EQ(view.status(), std::nullopt);
        EXPECT_EQ(view.expiryText(), "");
    }
};

TEST_F(JWTDecoderViewTest, StartsEmpty) {
    EXPECT_EQ(view.inputToken, "");
    expectNoResults();
}

TEST_F(JWTDecoderViewTest, DecodesTheExampleOfTheStandard) {
    // RFC 7519, section 3.1; its header has a line break.
    decode("eyJ0eXAiOiJKV1QiLA0KICJhbGciOiJIUzI1NiJ9."
           "eyJpc3MiOiJqb2UiLA0KICJleHAiOjEzMDA4MTkzODAsDQogImh0dHA6Ly9leGFtcGxlLmNvbS9pc19yb290Ijp0cnVlfQ."
           "dBjftJeZ4CVP-mB92K27uhbUJU1p1r_wW1gFWFOEjXk");
    EXPECT_EQ(view.header, "{\n  \"alg\" : \"HS256\",\n  \"typ\" : \"JWT\"\n}");
    EXPECT_EQ(view.payload, "{\n  \"exp\" : 1300819380,\n  \"http:\\/\\/example.com\\/is_root\" : true,\n"
                            "  \"iss\" : \"joe\"\n}");
    EXPECT_EQ(view.signature, "dBjftJeZ4CVP-mB92K27uhbUJU1p1r_wW1gFWFOEjXk");
    EXPECT_EQ(view.errorMessage, std::nullopt);
    EXPECT_EQ(view.status(), (StatusBadge{Status::error, "Token Expired"}));
}

TEST_F(JWTDecoderViewTest, DecodesATokenOrReportsTheError) {
    struct Row {
        std::string_view name;
        std::string token;
        std::string_view header, payload, signature;
        std::optional<std::string_view> error = std::nullopt;
    };

    const Row rows[] = {
        {"nothing", "", "", "", ""},
        {"white space", " \n\t\u2003\u2028", "", "", ""},
        {"white space around", " \ne30.e30.s\r\n", "{}", "{}", "s"},
        {"an empty signature", "e30.e30.", "{}", "{}", ""},
        {"a signature of anything", "e30.e30.é %?=", "{}", "{}", "é %?="},
        {"arrays", "W10.WzFd.s", "[]", "[\n  1\n]", "s"},
        {"padding", "e30=.e30=.s", "{}", "{}", "s"},
        {"the standard alphabet", encoded("[\"~~~\"]") + "." + Base64::encode("[\"?~>?\"]") + ".s",
         "[\n  \"~~~\"\n]", "[\n  \"?~>?\"\n]", "s"},
        {"every script", "e30." + encoded("{\"имя\":\"Zoë 漢字 👍\",\"ا\":\"\\u0633\"}") + ".s", "{}",
         "{\n  \"имя\" : \"Zoë 漢字 👍\",\n  \"ا\" : \"س\"\n}", "s"},
        {"every digit", "e30." + encoded("[12345678901234567890.0123456789,1e-400]") + ".s", "{}",
         "[\n  12345678901234567890.0123456789,\n  1e-400\n]", "s"},
        {"one part", "e30", "", "", "", formatMessage},
        {"two parts", "e30.e30", "", "", "", formatMessage},
        {"four parts", "e30.e30.s.", "", "", "", formatMessage},
        {"many parts", std::string(1'000'000, '.'), "", "", "", formatMessage},
        {"only dots", "..", "", "", "", headerMessage},
        {"a header that is not JSON", encoded("no JSON") + ".e30.s", "", "", "", headerMessage},
        {"a header that is a scalar", encoded("1") + ".e30.s", "", "", "", headerMessage},
        {"a header with a wrong character", "e3$.e30.s", "", "", "", headerMessage},
        {"a space in the header", "e3 0.e30.s", "", "", "", headerMessage},
        {"a header of one character too many", "e30AA.e30.s", "", "", "", headerMessage},
        {"a header that is not UTF-8", encoded("[\"\xff\"]") + ".e30.s", "", "", "", headerMessage},
        {"header and payload that are wrong", "e3$.e3$.s", "", "", "", headerMessage},
        {"no payload", "e30..s", "{}", "", "", payloadMessage},
        {"a payload that is not JSON", "e30." + encoded("{\"a\":}") + ".s", "{}", "", "", payloadMessage},
        {"a payload that is a scalar", "e30." + encoded("\"text\"") + ".s", "{}", "", "", payloadMessage},
        {"a payload too deep", "e30." + encoded(std::string(100'000, '[')) + ".s", "{}", "", "",
         payloadMessage},
    };
    for (const auto& row : rows) {
        decode(row.token);
        EXPECT_EQ(view.header, row.header) << row.name;
        EXPECT_EQ(view.payload, row.payload) << row.name;
        EXPECT_EQ(view.signature, row.signature) << row.name;
        EXPECT_EQ(view.errorMessage, row.error) << row.name;
        EXPECT_EQ(view.expiryInfo, std::nullopt) << row.name;
        const auto badge =
            row.error ? std::optional(StatusBadge{Status::error, std::string(*row.error)}) : std::nullopt;
        EXPECT_EQ(view.status(), badge) << row.name;
    }
}

TEST_F(JWTDecoderViewTest, ExpiryDependsOnTheExpiryDate) {
    using NumericDate = JWTDecoderView::NumericDate;

    struct Row {
        std::string_view claims;
        bool isExpired;
        std::optional<NumericDate> expiryDate, issuedAt;
    };

    fakes.clock.moment = std::chrono::system_clock::time_point(std::chrono::milliseconds(1'700'000'000'500));
    const Row rows[] = {
        {R"({"exp":1700000001})", false, NumericDate{1700000001, "1700000001"}, std::nullopt},
        {R"({"exp":1700000000})", true, NumericDate{1700000000, "1700000000"}, std::nullopt},
        {R"({"exp":1700000000.5})", false, NumericDate{1700000000.5, "1700000000.5"}, std::nullopt},
        {R"({"exp":1700000000.25})", true, NumericDate{1700000000.25, "1700000000.25"}, std::nullopt},
        {R"({"exp":0})", true, NumericDate{0, "0"}, std::nullopt},
        {R"({"exp":-1})", true, NumericDate{-1, "-1"}, std::nullopt},
        {R"({"iat":1,"exp":1800000000})", false, NumericDate{1800000000, "1800000000"}, NumericDate{1, "1"}},
        {R"({"iat":1700000009})", false, std::nullopt, NumericDate{1700000009, "1700000009"}},
        {R"({"iat":1.5,"exp":"1"})", false, std::nullopt, NumericDate{1.5, "1.5"}},
        {R"({"iat":true,"exp":1})", true, NumericDate{1, "1"}, std::nullopt},
    };
    for (const auto& row : rows) {
        decodePayload(row.claims);
        ASSERT_TRUE(view.expiryInfo) << row.claims;
        EXPECT_EQ(view.expiryInfo->isExpired, row.isExpired) << row.claims;
        EXPECT_EQ(view.expiryInfo->expiryDate, row.expiryDate) << row.claims;
        EXPECT_EQ(view.expiryInfo->issuedAt, row.issuedAt) << row.claims;
        EXPECT_EQ(view.hasExpiryDate(), row.expiryDate.has_value()) << row.claims;
        EXPECT_EQ(view.status(), row.isExpired ? (StatusBadge{Status::error, "Token Expired"})
                                               : (StatusBadge{Status::success, "Token Valid"}))
            << row.claims;
    }
}

TEST_F(JWTDecoderViewTest, HasNoExpiryInfoWithoutNumericDates) {
    for (const auto claims :
         {"{}", R"({"nbf":99999999999,"Exp":1,"exp ":1})", R"({"exp":"1","iat":null})", R"({"exp":true})",
          R"({"exp":[1]})", R"({"claims":{"exp":1}})", R"([{"exp":1}])", R"(["exp",1])"}) {
        decodePayload(claims);
        EXPECT_NE(view.payload, "") << claims;
        EXPECT_EQ(view.expiryInfo, std::nullopt) << claims;
        EXPECT_EQ(view.status(), std::nullopt) << claims;
    }
}

TEST_F(JWTDecoderViewTest, ShowsTheExpiryDateInTheUsersLocale) {
    decodePayload(R"({"exp":1795251600})");
    EXPECT_EQ(view.expiryText(), "Expires: " + *DateText::mediumDateAndTime(1795251600));
    decodePayload(R"({"iat":1795251600})");
    EXPECT_FALSE(view.hasExpiryDate());
    EXPECT_EQ(view.expiryText(), "");
}

TEST_F(JWTDecoderViewTest, HintsWhatToRemoveFromAnUndecodableToken) {
    struct Row {
        std::string_view token;
        std::string_view hint;
    };

    constexpr std::string_view inside = "Remove the line breaks and spaces inside the token";
    constexpr Row rows[] = {
        {"Bearer e30.e30.s", "Remove \"Bearer \" from the start"},
        {" bearer e30.e30.s\n", "Remove \"bearer \" from the start"},
        {"Authorization: Bearer e30.e30.s", "Remove \"Authorization: Bearer \" from the start"},
        {"authorization:BEARER e30.e30.s", "Remove \"authorization:BEARER \" from the start"},
        {"Bearer e30", "Remove \"Bearer \" from the start"},
        {"e3\n0.e30.s", inside},
        {"e30.e3\r\n0.s", inside},
        {"e3 0.e30.s", inside},
        {"e30.e30", ""},
        {"e30.e30.s.s", ""},
        {"Bearere30.e30.s", ""},
        {"e30.e3$.s", ""},
        {"e30.e30.si\ng", ""}, // the signature is shown unchanged
        {" e30.e30.s ", ""},
        {"", ""},
    };
    for (const auto& [token, hint] : rows) {
        decode(std::string(token));
        EXPECT_EQ(view.hint, hint) << token;
        EXPECT_EQ(view.details(), hint) << token;
    }
    decodePayload(R"({"exp":1e300})");
    EXPECT_EQ(view.details(), "Expires: 1e300");
}

TEST_F(JWTDecoderViewTest, ShowsTheNumberOfADateOutsideTheCalendar) {
    struct Row {
        std::string_view number;
        std::string_view text;
        bool isExpired;
    };

    constexpr Row rows[] = {
        {"1e300", "Expires: 1e300", false},
        {"-1e300", "Expires: -1e300", true},
        {"1e999", "Expires: 1e999", false},
        {"99999999999999999999", "Expires: 99999999999999999999", false},
        {"1795251600000000", "Expires: 1795251600000000", false}, // microseconds by mistake
    };
    for (const auto& row : rows) {
        decodePayload("{\"exp\":" + std::string(row.number) + "}");
        EXPECT_EQ(view.expiryText(), row.text);
        EXPECT_EQ(view.expiryInfo->isExpired, row.isExpired) << row.number;
    }
}

TEST_F(JWTDecoderViewTest, ChangingTheTokenClearsTheResults) {
    const std::string token = "e30." + encoded(R"({"exp":1})") + ".s";
    decode(token);
    const auto decoded = view;
    view.setInputToken(token);
    EXPECT_EQ(view, decoded) << "nothing has changed";
    view.setInputToken("e30.e30.other");
    expectNoResults();
    decode("e30");
    EXPECT_TRUE(view.errorMessage);
    view.setInputToken("");
    expectNoResults();
}

TEST_F(JWTDecoderViewTest, DecodingClearsTheEarlierResults) {
    decodePayload(R"({"exp":1})");
    view.inputToken = "e30.?.s";
    view.decode(context);
    EXPECT_EQ(view.header, "{}");
    EXPECT_EQ(view.payload, "");
    EXPECT_EQ(view.signature, "");
    EXPECT_EQ(view.expiryInfo, std::nullopt);
    view.inputToken = " ";
    view.decode(context);
    expectNoResults();
}

} // namespace
} // namespace korvane
