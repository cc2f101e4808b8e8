#include "Utilities/JSON/JSON.h"

#include <gtest/gtest.h>

#include <string>

namespace korvane {
namespace {

using Kind = JSON::ParseError::Kind;

constexpr std::string_view accepted[] = {
    "[]",
    "{}",
    " \t\r\n[ \n] \t\r\n",
    "\xEF\xBB\xBF{}",
    "[0,-0,1,-1,10,0.5,-0.5,1e1,1E+1,1e-1,0e0,123456789.987654321]",
    R"(["", "a", "\"\\\/\b\f\n\r\t", "\u0000\u001F\u00e4\u00E4\uFFFF", "\uD83D\uDC69"])",
    "[\"\x7f\", \"\u2028\u2029\", \"ü漢👩\"]",
    "[true,false,null]",
    R"({"":{"":{"":[[[]]]}}})",
    R"({"a":1,"a":2})",
};

TEST(JSONReader, AcceptsWhatTheStandardAllows) {
    for (const auto text : accepted)
        EXPECT_TRUE(JSON::parse(text)) << text << ": " << JSON::parse(text).error().message;
}

struct Rejected {
    Kind kind;
    std::string_view text;
    std::string_view message;
};

constexpr Rejected rejected[] = {
    // unexpected text
    {Kind::unexpectedText, "{\n\"a\" : 1,\n  \"b\"      :}",
     R"(Unexpected "}" at line 3, column 13; expected a value)"},
    {Kind::unexpectedText, "[1,]", R"(Unexpected "]" at line 1, column 4; expected a value)"},
    {Kind::unexpectedText, "[,1]", R"(Unexpected "," at line 1, column 2; expected a value)"},
    {Kind::unexpectedText, "[1 2]", R"(Unexpected "2" at line 1, column 4; expected "," or "]")"},
    {Kind::unexpectedText, "[1}", R"(Unexpected "}" at line 1, column 3; expected "," or "]")"},
    {Kind::unexpectedText, R"({"a":1])", R"(Unexpected "]" at line 1, column 7; expected "," or "}")"},
    {Kind::unexpectedText, R"({"a" 1})", R"(Unexpected "1" at line 1, column 6; expected ":")"},
    {Kind::unexpectedText, R"({"a",1})", R"(Unexpected "," at line 1, column 5; expected ":")"},
    {Kind::unexpectedText, R"({a:1})",
     R"(Unexpected "a" at line 1, column 2; expected a member name in double quotes or "}")"},
    {Kind::unexpectedText, R"({"a":1,})",
     R"(Unexpected "}" at line 1, column 8; expected a member name in double quotes)"},
    {Kind::unexpectedText, R"({'a':1})",
     R"(Unexpected "'" at line 1, column 2; expected a member name in double quotes or "}")"},
    {Kind::unexpectedText, R"(["a""b"])",
     R"(Unexpected double quote at line 1, column 5; expected "," or "]")"},
    {Kind::unexpectedText, "[NaN]", R"(Unexpected "NaN" at line 1, column 2; expected a value)"},
    {Kind::unexpectedText, "[Infinity]", R"(Unexpected "Infinity" at line 1, column 2; expected a value)"},
    {Kind::unexpectedText, "[True]", R"(Unexpected "True" at line 1, column 2; expected a value)"},
    {Kind::unexpectedText, "[nul]", R"(Unexpected "nul" at line 1, column 2; expected a value)"},
    {Kind::unexpectedText, "[tru", R"(Unexpected "tru" at line 1, column 2; expected a value)"},
    {Kind::unexpectedText, "[undefined_undefined_undefined]",
     R"(Unexpected "undefined_undefined_unde..." at line 1, column 2; expected a value)"},
    {Kind::unexpectedText, "[0x10]", R"(Unexpected "x10" at line 1, column 3; expected "," or "]")"},
    {Kind::unexpectedText, "[1 // one\n]", R"(Unexpected "/" at line 1, column 4; expected "," or "]")"},
    {Kind::unexpectedText, "[\u00A01]", "Unexpected U+00A0 at line 1, column 2; expected a value"},
    {Kind::unexpectedText, "[\f1]", "Unexpected U+000C at line 1, column 2; expected a value"},
    {Kind::unexpectedText, "[ü]", R"(Unexpected "ü" at line 1, column 2; expected a value)"},
    {Kind::unexpectedText, "[“a”]", R"(Unexpected "“" at line 1, column 2; expected a value)"},
    {Kind::unexpectedText, "\xEF\xBB\xBF[\xEF\xBB\xBF]",
     "Unexpected U+FEFF at line 1, column 2; expected a value"},
    // columns count characters, and a byte-order mark is not one
    {Kind::unexpectedText, "[\"👨‍👩‍👧u\u0308\" x]",
     R"(Unexpected "x" at line 1, column 7; expected "," or "]")"},
    {Kind::unexpectedText, "\xEF\xBB\xBF[x]", R"(Unexpected "x" at line 1, column 2; expected a value)"},
    {Kind::unexpectedText, "[\r\n\r\nx]", R"(Unexpected "x" at line 3, column 1; expected a value)"},
    {Kind::unexpectedText, "[\r\r\nx]", R"(Unexpected "x" at line 3, column 1; expected a value)"},
    // after the document
    {Kind::unexpectedText, "[] []", R"(Unexpected "[" at line 1, column 4; expected the end of the input)"},
    {Kind::unexpectedText, "{}}", R"(Unexpected "}" at line 1, column 3; expected the end of the input)"},
    {Kind::unexpectedText, "{}\n{}", R"(Unexpected "{" at line 2, column 1; expected the end of the input)"},
    {Kind::unexpectedText, std::string_view("[]\0", 3),
     "Unexpected U+0000 at line 1, column 3; expected the end of the input"},
    // a lone scalar where none is allowed
    {Kind::unexpectedText, "42", R"(Unexpected "42" at line 1, column 1; expected an object or an array)"},
    {Kind::unexpectedText, " \"text\"",
     "Unexpected double quote at line 1, column 2; expected an object or an array"},
    {Kind::unexpectedText, "null",
     R"(Unexpected "null" at line 1, column 1; expected an object or an array)"},
    {Kind::unexpectedText, "]", R"(Unexpected "]" at line 1, column 1; expected an object or an array)"},
    // unexpected end
    {Kind::unexpectedEnd, "", "Unexpected end of input at line 1, column 1; expected an object or an array"},
    {Kind::unexpectedEnd, "\xEF\xBB\xBF",
     "Unexpected end of input at line 1, column 1; expected an object or an array"},
    {Kind::unexpectedEnd, "[", R"(Unexpected end of input at line 1, column 2; expected a value or "]")"},
    {Kind::unexpectedEnd, "[1,", "Unexpected end of input at line 1, column 4; expected a value"},
    {Kind::unexpectedEnd, "[1\n", R"(Unexpected end of input at line 2, column 1; expected "," or "]")"},
    {Kind::unexpectedEnd, "{",
     R"(Unexpected end of input at line 1, column 2; expected a member name in double quotes or "}")"},
    {Kind::unexpectedEnd, R"({"a")", R"(Unexpected end of input at line 1, column 5; expected ":")"},
    {Kind::unexpectedEnd, R"({"a":)", "Unexpected end of input at line 1, column 6; expected a value"},
    {Kind::unexpectedEnd, R"({"a":1)", R"(Unexpected end of input at line 1, column 7; expected "," or "}")"},
    {Kind::unexpectedEnd, R"({"a":1,)",
     "Unexpected end of input at line 1, column 8; expected a member name in double quotes"},
    {Kind::unexpectedEnd, R"(["abc)",
     "Unexpected end of input at line 1, column 6; expected the closing double quote of a string"},
    {Kind::unexpectedEnd, R"(["abc\n)",
     "Unexpected end of input at line 1, column 8; expected the closing double quote of a string"},
    {Kind::unexpectedEnd, R"(["\)",
     R"(Unexpected end of input at line 1, column 4; expected one of " \ / b f n r t u after the backslash)"},
    // numbers
    {Kind::invalidNumber, "[01]",
     R"(Invalid number "01" at line 1, column 2; expected no digit after a leading zero)"},
    {Kind::invalidNumber, "[-007]",
     R"(Invalid number "-007" at line 1, column 2; expected no digit after a leading zero)"},
    {Kind::invalidNumber, "[1.]",
     R"(Invalid number "1." at line 1, column 2; expected a digit after the decimal point)"},
    {Kind::invalidNumber, "[1.e5]",
     R"(Invalid number "1.e5" at line 1, column 2; expected a digit after the decimal point)"},
    {Kind::invalidNumber, "[.5]",
     R"(Invalid number ".5" at line 1, column 2; expected a digit before the decimal point)"},
    {Kind::invalidNumber, "[+1]", R"(Invalid number "+1" at line 1, column 2; expected no plus sign)"},
    {Kind::invalidNumber, "[1e]",
     R"(Invalid number "1e" at line 1, column 2; expected a digit in the exponent)"},
    {Kind::invalidNumber, "[1e+]",
     R"(Invalid number "1e+" at line 1, column 2; expected a digit in the exponent)"},
    {Kind::invalidNumber, "[1E",
     R"(Invalid number "1E" at line 1, column 2; expected a digit in the exponent)"},
    {Kind::invalidNumber, "[-]",
     R"(Invalid number "-" at line 1, column 2; expected a digit after the minus sign)"},
    {Kind::invalidNumber, "[-",
     R"(Invalid number "-" at line 1, column 2; expected a digit after the minus sign)"},
    {Kind::invalidNumber, "[-Infinity]",
     R"(Invalid number "-Infinity" at line 1, column 2; expected a digit after the minus sign)"},
    // strings
    {Kind::invalidEscape, R"(["a\x41"])",
     R"(Invalid escape "\x" at line 1, column 4; expected one of " \ / b f n r t u after the backslash)"},
    {Kind::invalidEscape, R"(["\'"])",
     R"(Invalid escape "\'" at line 1, column 3; expected one of " \ / b f n r t u after the backslash)"},
    {Kind::invalidEscape, "[\"\\\n\"]",
     R"(Invalid escape "\" at line 1, column 3; expected one of " \ / b f n r t u after the backslash)"},
    {Kind::invalidEscape, R"(["\ü"])",
     R"(Invalid escape "\" at line 1, column 3; expected one of " \ / b f n r t u after the backslash)"},
    {Kind::invalidEscape, R"(["\u12G4"])",
     R"(Invalid escape "\u12" at line 1, column 3; expected four hexadecimal digits after \u)"},
    {Kind::invalidEscape, R"(["\u)",
     R"(Invalid escape "\u" at line 1, column 3; expected four hexadecimal digits after \u)"},
    {Kind::invalidEscape, R"(["\ud83d\u12"])",
     R"(Invalid escape "\u12" at line 1, column 9; expected four hexadecimal digits after \u)"},
    {Kind::loneSurrogate, R"(["\uD800"])",
     R"(Lone surrogate "\uD800" at line 1, column 3; expected a high and a low surrogate together)"},
    {Kind::loneSurrogate, R"(["\udc69"])",
     R"(Lone surrogate "\udc69" at line 1, column 3; expected a high and a low surrogate together)"},
    {Kind::loneSurrogate, R"(["\ud83dx"])",
     R"(Lone surrogate "\ud83d" at line 1, column 3; expected a high and a low surrogate together)"},
    {Kind::loneSurrogate, R"(["\ud83d\n"])",
     R"(Lone surrogate "\ud83d" at line 1, column 3; expected a high and a low surrogate together)"},
    {Kind::loneSurrogate, R"(["\ud83d\u0041"])",
     R"(Lone surrogate "\ud83d" at line 1, column 3; expected a high and a low surrogate together)"},
    {Kind::loneSurrogate, R"(["\ud83d\ud83d"])",
     R"(Lone surrogate "\ud83d" at line 1, column 3; expected a high and a low surrogate together)"},
    {Kind::controlCharacter, "[\"a\tb\"]",
     R"(Unescaped control character U+0009 at line 1, column 4; expected \t)"},
    {Kind::controlCharacter, "[\"a\nb\"]",
     R"(Unescaped control character U+000A at line 1, column 4; expected \n)"},
    {Kind::controlCharacter, "{\"\x01\":1}",
     R"(Unescaped control character U+0001 at line 1, column 3; expected \u0001)"},
    {Kind::controlCharacter, std::string_view("[\"\0\"]", 5),
     R"(Unescaped control character U+0000 at line 1, column 3; expected \u0000)"},
    {Kind::controlCharacter, "[\"\\n 0123456789abcdef\x1f\"]",
     R"(Unescaped control character U+001F at line 1, column 22; expected \u001f)"},
    // bytes that are not UTF-8, reported before any other error
    {Kind::invalidUTF8, "[\"\xff\"]", "Invalid UTF-8 byte 0xFF at line 1, column 3; expected UTF-8 text"},
    {Kind::invalidUTF8, "[x]\n\xc3", "Invalid UTF-8 byte 0xC3 at line 2, column 1; expected UTF-8 text"},
    {Kind::invalidUTF8, "[\"\xed\xa0\x80\"]",
     "Invalid UTF-8 byte 0xED at line 1, column 3; expected UTF-8 text"},
    {Kind::invalidUTF8, "\xEF\xBB[]", "Invalid UTF-8 byte 0xEF at line 1, column 1; expected UTF-8 text"},
    {Kind::invalidUTF8, "\xFE\xFF\x00", "Invalid UTF-8 byte 0xFE at line 1, column 1; expected UTF-8 text"},
};

TEST(JSONReader, ReportsErrorsAndTheirPositions) {
    for (const auto& row : rejected) {
        const auto document = JSON::parse(row.text);
        ASSERT_FALSE(document) << row.text;
        EXPECT_EQ(document.error().message, row.message);
        EXPECT_EQ(document.error().kind, row.kind) << row.message;
    }
}

TEST(JSONReader, ReportsTheOffsetInBytes) {
    EXPECT_EQ(JSON::parse("[\"ü\" x]").error().offset, 6U);
    EXPECT_EQ(JSON::parse("\xEF\xBB\xBF[x]").error().offset, 4U);
    EXPECT_EQ(JSON::parse("[\"\xff\"]").error().offset, 2U);
    EXPECT_EQ(JSON::parse("[\n x]").error().position, (TextPosition{2, 2}));
}

TEST(JSONReader, EndsAnErrorWithItsToken) {
    const struct {
        std::string_view text;
        std::string_view token;
    } rows[] = {
        {"[1 \"two\\\" words\", 3]", "\"two\\\" words\""},
        {"[1 \"open", "\"open"},
        {"[1 \"open\n]", "\"open"},
        {"[1 \"open\\", "\"open\\"},
        {"[tru, 1]", "tru"},
        {"[01]", "01"},
        {"[ü]", "ü"},
        {"{,}", ","},
        {R"(["\uD800"])", R"(\uD800)"},
        {"[1", ""},
    };

    for (const auto& [text, token] : rows) {
        const auto error = JSON::parse(text).error();
        EXPECT_EQ(text.substr(error.offset, error.end - error.offset), token) << text;
    }
}

TEST(JSONReader, FindsAnErrorAtEveryOffsetInABlock) {
    // The reader checks sixteen characters in one step, so the error is tried at every offset around that.
    for (std::size_t before = 0; before < 40; ++before) {
        for (std::size_t after = 0; after < 40; ++after) {
            const auto text = "[\"" + std::string(before, 'a') + "\x1f" + std::string(after, '/') + "\"]";
            const auto document = JSON::parse(text);
            ASSERT_FALSE(document) << text;
            EXPECT_EQ(document.error().offset, 2 + before);
            EXPECT_FALSE(JSON::parse(text.substr(0, 2 + before)));
        }
    }
}

std::string nested(std::size_t depth, std::string_view open, std::string_view innermost,
                   std::string_view close) {
    std::string text;
    for (std::size_t i = 0; i < depth; ++i)
        text += open;
    text += innermost;
    for (std::size_t i = 0; i < depth; ++i)
        text += close;
    return text;
}

TEST(JSONReader, AcceptsAtMost512Levels) {
    EXPECT_TRUE(JSON::parse(nested(512, "[", "", "]")));
    EXPECT_TRUE(JSON::parse(nested(512, "{\"a\":", "1", "}")));
    EXPECT_TRUE(JSON::parse("[" + nested(511, "[", "", "]") + "," + nested(511, "[", "", "]") + "]"));
    constexpr std::string_view message =
        "Nesting too deep at line 1, column 513; expected at most 512 levels";
    for (const std::size_t depth : {513U, 100'000U}) {
        const auto document = JSON::parse(std::string(depth, '['));
        ASSERT_FALSE(document);
        EXPECT_EQ(document.error().kind, Kind::tooDeep);
        EXPECT_EQ(document.error().message, message);
    }
    EXPECT_EQ(JSON::parse(nested(513, "{\"\":", "1", "}")).error().kind, Kind::tooDeep);
}

TEST(JSONReader, GivesAccessToTheValues) {
    const std::string text = R"({"exp": 1.50e3, "name": "J\u00fcrgen", "path": "a/b", "ok": true, "no": false,
                                 "list": [1, "x", null], "none": null, "empty": {}})";
    const auto document = JSON::parse(text);
    ASSERT_TRUE(document);
    const auto& root = document->root();
    ASSERT_EQ(root.type(), JSON::Type::object);
    ASSERT_NE(root.member("exp"), nullptr);
    EXPECT_EQ(root.member("exp")->type(), JSON::Type::number);
    EXPECT_EQ(root.member("exp")->text(), "1500");
    EXPECT_EQ(root.member("exp")->number(), 1500.0);
    EXPECT_EQ(root.member("name")->text(), "Jürgen");
    EXPECT_EQ(root.member("path")->text(), "a/b");
    EXPECT_TRUE(root.member("ok")->boolean());
    EXPECT_EQ(root.member("no")->type(), JSON::Type::boolean);
    EXPECT_FALSE(root.member("no")->boolean());
    EXPECT_EQ(root.member("none")->type(), JSON::Type::null);
    EXPECT_EQ(root.member("absent"), nullptr);
    EXPECT_EQ(root.member("ex"), nullptr);
    EXPECT_EQ(root.member("expo"), nullptr);
    const auto elements = root.member("list")->elements();
    ASSERT_EQ(elements.size(), 3U);
    EXPECT_EQ(elements[0].text(), "1");
    EXPECT_EQ(elements[1].text(), "x");
    EXPECT_EQ(elements[2].type(), JSON::Type::null);
    EXPECT_TRUE(root.member("empty")->members().empty());
    // An accessor of another type returns an empty value.
    EXPECT_EQ(elements[0].member("x"), nullptr);
    EXPECT_TRUE(root.text().empty());
    EXPECT_TRUE(root.elements().empty());
    EXPECT_FALSE(elements[0].boolean());
    EXPECT_EQ(root.member("ok")->number(), 0.0);
}

TEST(JSONReader, AMovedDocumentKeepsItsValues) {
    const std::string text = R"({"escaped": "\n", "list": [1.0]})";
    auto document = JSON::parse(text);
    ASSERT_TRUE(document);
    const auto moved = std::move(*document);
    EXPECT_EQ(moved.root().member("escaped")->text(), "\n");
    EXPECT_EQ(moved.root().member("list")->elements()[0].text(), "1");
}

TEST(JSONReader, SortsMembersByTheBytesOfTheirNames) {
    const auto document =
        JSON::parse(R"({"b":0,"a":0,"":0,"ab":0,"ü":0,"B":0,"\u0061a":0,"z":0,"👩":0,"\uffff":0})");
    ASSERT_TRUE(document);
    std::vector<std::string> names;
    for (const auto& [name, value] : document->root().members())
        names.emplace_back(name.text());
    EXPECT_EQ(names, (std::vector<std::string>{"", "B", "a", "aa", "ab", "b", "z", "ü", "\uffff", "👩"}));
}

TEST(JSONReader, KeepsTheLastOfMembersWithEqualNames) {
    const auto document = JSON::parse(R"({"a":1,"b":2,"\u0061":3,"b":4,"c":5,"a":{"a":6,"a":7}})");
    ASSERT_TRUE(document);
    const auto members = document->root().members();
    ASSERT_EQ(members.size(), 3U);
    EXPECT_EQ(members[0].value.member("a")->text(), "7");
    EXPECT_EQ(members[1].value.text(), "4");
    EXPECT_EQ(members[2].value.text(), "5");
}

TEST(JSONReader, CountsDuplicateNames) {
    struct Row {
        std::string text;
        std::size_t count;
        std::string_view example;
    };

    std::string many = "{";
    for (int i = 0; i < 100; ++i)
        many += "\"name " + std::to_string(i % 98) + "\":0,";
    many.back() = '}';
    const Row rows[] = {
        {"{}", 0, ""},
        {R"({"a":1,"b":1})", 0, ""},
        {R"([{"a":1},{"a":2},{"b":{"a":3}}])", 0, ""},
        {R"({"a":1,"b":2,"a":1})", 1, "a"},
        {R"({"b":1,"a":1,"b":2,"b":3})", 2, "b"},
        {R"({"":1,"":1})", 1, ""},
        {R"({"\u0061\n":1,"a\n":1})", 1, "a\n"},
        {R"([{"a":1,"b":1},{"a":1,"a":1},{"b":1,"b":1}])", 2, "a"},
        {R"({"a":1,"A":1})", 0, ""},
        {many, 2, "name 0"},
    };
    for (const auto& [text, count, example] : rows) {
        const auto document = JSON::parse(text);
        ASSERT_TRUE(document) << text;
        EXPECT_EQ(document->duplicateNames(), (JSON::DuplicateNames{count, example})) << text;
    }
}

/// In quadratic time this would take minutes and exceed the time limit of the test.
TEST(JSONReader, ReadsManyMembersOfOneObject) {
    std::string distinct = "{";
    std::string equal = "{";
    for (int i = 200'000; i > 0; --i) {
        distinct += "\"a common beginning " + std::to_string(i) + "\":0,";
        equal += "\"name\":" + std::to_string(i) + ",";
    }
    distinct.back() = equal.back() = '}';
    EXPECT_EQ(JSON::parse(distinct)->root().members().size(), 200'000U);
    const auto document = JSON::parse(equal);
    ASSERT_EQ(document->root().members().size(), 1U);
    EXPECT_EQ(document->root().member("name")->text(), "1");
}

} // namespace
} // namespace korvane
