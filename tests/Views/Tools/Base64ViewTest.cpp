#include "Views/Tools/Base64View.h"

#include "support/FakeServices.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

using Mode = Base64View::Mode;

Base64View converted(Mode mode, std::string input, std::string output = {}) {
    Base64View view{.outputText = std::move(output), .mode = mode};
    perform(view, &Base64View::setInputText, std::move(input));
    perform(view, &Base64View::convert);
    return view;
}

TEST(Base64View, StartsEmptyAndEncoding) {
    const Base64View view;
    EXPECT_EQ(view.mode, Mode::encode);
    EXPECT_FALSE(view.hasInput());
    EXPECT_FALSE(view.hasOutput());
    EXPECT_EQ(view.status(), std::nullopt);
}

TEST(Base64View, Converts) {
    struct Row {
        std::string_view name;
        Mode mode;
        std::string_view input;
        std::string_view output;
        std::optional<std::string> error = std::nullopt;
    };

    const std::vector<Row> rows = {
        {"a word", Mode::encode, "Hello", "SGVsbG8="},
        {"white space is part of the text", Mode::encode, " \n", "IAo="},
        {"CR LF is kept", Mode::encode, "a\r\nb", "YQ0KYg=="},
        {"emoji", Mode::encode, "⚓", "4pqT"},
        {"long text on one line", Mode::encode,
         "Man is distinguished, not only by his reason, but by this singular passion",
         "TWFuIGlzIGRpc3Rpbmd1aXNoZWQsIG5vdCBvbmx5IGJ5IGhpcyByZWFzb24sIGJ1dCBieSB0aGlzIHNpbmd1bGFyIHBhc3Npb24"
         "="},
        {"not UTF-8", Mode::encode, "\xff", "before", "Could not encode text"},
        {"a lone surrogate's bytes", Mode::encode, "\xed\xa0\x80", "before", "Could not encode text"},
        {"surrounding white space", Mode::decode, "  SGVsbG8=\n", "Hello"},
        {"no padding", Mode::decode, "SGVsbG8", "", "Invalid Base64 input"},
        {"URL-safe minus", Mode::decode, "-w==", "", "Invalid Base64 input"},
        {"URL-safe underscore", Mode::decode, "_w==", "", "Invalid Base64 input"},
        {"space inside", Mode::decode, "SGVs bG8=", "", "Invalid Base64 input"},
        {"line break inside", Mode::decode, "SGVs\nbG8=", "", "Invalid Base64 input"},
        {"not Base64 at all", Mode::decode, "Hello!", "", "Invalid Base64 input"},
        {"bytes that are not UTF-8", Mode::decode, "/w==", "", "Invalid Base64 input"},
        {"only white space decodes to nothing", Mode::decode, " \n ", ""},
        {"nothing to encode", Mode::encode, "", "before", "Input is empty"},
        {"nothing to decode", Mode::decode, "", "before", "Input is empty"},
    };
    for (const auto& row : rows) {
        const auto view = converted(row.mode, std::string(row.input), "before");
        EXPECT_EQ(view.outputText, row.output) << row.name;
        EXPECT_EQ(view.errorMessage, row.error) << row.name;
        EXPECT_EQ(view.inputText, row.input) << row.name;
    }
}

TEST(Base64View, ShowsItsMessageAsAnError) {
    EXPECT_EQ(converted(Mode::encode, "").status(), (StatusBadge{Status::error, "Input is empty"}));
    EXPECT_EQ(converted(Mode::encode, "x").status(), std::nullopt);
}

TEST(Base64View, ChangingTheInputClearsTheMessage) {
    auto view = converted(Mode::decode, "?");
    perform(view, &Base64View::setInputText, "?");
    EXPECT_TRUE(view.errorMessage) << "nothing has changed";
    perform(view, &Base64View::setInputText, "");
    EXPECT_EQ(view.errorMessage, std::nullopt);
}

TEST(Base64View, ASuccessClearsTheMessage) {
    auto view = converted(Mode::decode, "");
    view.inputText = "SGVsbG8=";
    perform(view, &Base64View::convert);
    EXPECT_EQ(view.errorMessage, std::nullopt);
}

TEST(Base64View, TypingAndSwitchingDoNotConvert) {
    auto view = converted(Mode::encode, "Hello");
    view.setMode(Mode::decode);
    EXPECT_EQ(view.inputText, "Hello");
    EXPECT_EQ(view.outputText, "SGVsbG8=");
    perform(view, &Base64View::setInputText, "Hello, world");
    EXPECT_EQ(view.outputText, "SGVsbG8=");
}

TEST(Base64View, ClearKeepsTheOutput) {
    auto view = converted(Mode::encode, "Hello");
    perform(view, &Base64View::setInputText, "");
    EXPECT_EQ(view.outputText, "SGVsbG8=");
    EXPECT_FALSE(view.hasInput());
}

TEST(Base64View, CountsUserPerceivedCharacters) {
    auto view = Base64View{};
    perform(view, &Base64View::setInputText, "e\u0301👨‍👩‍👧!");
    EXPECT_EQ(view.statistics(), "Input: 3 characters");
    perform(view, &Base64View::convert);
    EXPECT_EQ(view.statistics(), "Input: 3 characters\u2002•\u2002Output: 32 characters");
}

TEST(Base64View, ModesHaveTheirTextsAndIcons) {
    const auto& encode = factsOf(Mode::encode);
    const auto& decode = factsOf(Mode::decode);
    EXPECT_EQ(encode.rawValue, "Encode");
    EXPECT_EQ(encode.icon, "lock");
    EXPECT_EQ(encode.inputTitle, "Plain Text");
    EXPECT_EQ(encode.inputPlaceholder, "Enter text to encode...");
    EXPECT_EQ(encode.outputTitle, "Base64 Output");
    EXPECT_EQ(decode.rawValue, "Decode");
    EXPECT_EQ(decode.icon, "lock.open");
    EXPECT_EQ(decode.inputTitle, "Base64 Input");
    EXPECT_EQ(decode.inputPlaceholder, "Enter Base64 to decode...");
    EXPECT_EQ(decode.outputTitle, "Decoded Text");
}

} // namespace
} // namespace korvane
