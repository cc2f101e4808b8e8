#include "Utilities/JSON/JSONFormatter.h"

#include "Utilities/JSON/JSON.h"
#include "support/JSONModel.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <unordered_set>

namespace korvane {
namespace {

using JSONFormatter::JSONError;

struct JSONFormatterRow {
    std::string_view name;
    std::string_view input;
    std::string_view prettified;
    std::string_view minified;
};

constexpr JSONFormatterRow jsonFormatterRows[] = {
    {"an empty object", "{ }", "{}", "{}"},
    {"an empty array", "[\n]", "[]", "[]"},
    {"one of everything", R"({"s":"x","n":1,"t":true,"f":false,"z":null,"a":[1,[],{}],"o":{"k":"v"}})",
     R"({
  "a" : [
    1,
    [],
    {}
  ],
  "f" : false,
  "n" : 1,
  "o" : {
    "k" : "v"
  },
  "s" : "x",
  "t" : true,
  "z" : null
})",
     R"({"a":[1,[],{}],"f":false,"n":1,"o":{"k":"v"},"s":"x","t":true,"z":null})"},
    {"members out of order", R"({"b":1,"a":{"d":1,"c":2}})",
     "{\n  \"a\" : {\n    \"c\" : 2,\n    \"d\" : 1\n  },\n  \"b\" : 1\n}", R"({"a":{"c":2,"d":1},"b":1})"},
    {"white space around", " \t\r\n[1]\n\n", "[\n  1\n]", "[1]"},
    {"a byte-order mark", "\xEF\xBB\xBF[1]", "[\n  1\n]", "[1]"},
    {"slashes", R"(["/","\/","http://x/y"])", "[\n  \"\\/\",\n  \"\\/\",\n  \"http:\\/\\/x\\/y\"\n]",
     R"(["\/","\/","http:\/\/x\/y"])"},
    {"a slash in a name", R"({"a/b":1})", "{\n  \"a\\/b\" : 1\n}", R"({"a\/b":1})"},
    {"short escapes", R"(["\"\\\b\f\n\r\t"])", "[\n  \"\\\"\\\\\\b\\f\\n\\r\\t\"\n]",
     R"(["\"\\\b\f\n\r\t"])"},
    {"escapes of control characters", R"(["\u0000\u0008\u000B\u001F\u007F"])",
     "[\n  \"\\u0000\\b\\u000b\\u001f\x7f\"\n]", "[\"\\u0000\\b\\u000b\\u001f\x7f\"]"},
    {"all other characters unescaped", R"(["\u00e4\u2028\ud83d\udc69","ä\u2028👩","<>&'"])",
     "[\n  \"ä\u2028👩\",\n  \"ä\u2028👩\",\n  \"<>&'\"\n]", "[\"ä\u2028👩\",\"ä\u2028👩\",\"<>&'\"]"},
    {"numbers by their value", "[1.0,1e3,-0,1.50,17478252242305210114,1e400,-0.0]",
     "[\n  1,\n  1000,\n  -0,\n  1.5,\n  17478252242305210114,\n  1e400,\n  -0\n]",
     "[1,1000,-0,1.5,17478252242305210114,1e400,-0]"},
    {"the last of equal names", R"({"a":1,"b":2,"a":3})", "{\n  \"a\" : 3,\n  \"b\" : 2\n}",
     R"({"a":3,"b":2})"},
};

TEST(JSONFormatter, WritesTheExactLayout) {
    for (const auto& row : jsonFormatterRows) {
        EXPECT_EQ(JSONFormatter::prettify(row.input, 2), row.prettified) << row.name;
        EXPECT_EQ(JSONFormatter::minify(row.input), row.minified) << row.name;
        EXPECT_EQ(JSONFormatter::validate(row.input), true) << row.name;
    }
}

TEST(JSONFormatter, IgnoresTheIndentArgument) {
    constexpr std::string_view text = R"({"a":[1,{"b":2}]})";
    const auto expected = JSONFormatter::prettify(text, 2);
    ASSERT_TRUE(expected);
    for (const int indent : {-1, 0, 4, 8, 1'000'000})
        EXPECT_EQ(JSONFormatter::prettify(text, indent), expected);
}

void expectFailure(std::string_view input, const JSONError& error) {
    EXPECT_EQ(JSONFormatter::prettify(input, 2), std::unexpected(error)) << input;
    EXPECT_EQ(JSONFormatter::minify(input), std::unexpected(error)) << input;
    EXPECT_EQ(JSONFormatter::validate(input), std::unexpected(error)) << input;
}

TEST(JSONFormatter, WhiteSpaceAloneIsEmptyInput) {
    for (const std::string_view input : {"", " ", "\t\r\n \n", "\u00A0\u2003\u2028\u0085\v\f"}) {
        expectFailure(input, JSONError::emptyInput());
        EXPECT_EQ(JSONFormatter::parseToTree(input), std::unexpected(JSONError::emptyInput()));
    }
    EXPECT_EQ(JSONError::emptyInput().errorDescription(), "Input is empty");
}

TEST(JSONFormatter, ReportsInputThatIsNotUTF8) {
    const auto error = JSONError::invalidJSON("Could not encode input");
    for (const std::string_view input : {"\xff", "[\"\xc3\"]", "no JSON either \xed\xa0\x80"}) {
        expectFailure(input, error);
        EXPECT_EQ(JSONFormatter::parseToTree(input), std::unexpected(error));
    }
    EXPECT_EQ(error.errorDescription(), "Invalid JSON: Could not encode input");
}

TEST(JSONFormatter, ReportsTheErrorOfTheReader) {
    constexpr std::string_view input = "{\n  \"a\" : 1,\n}";
    const auto error = JSONError::invalidJSON(
        R"(Unexpected "}" at line 3, column 1; expected a member name in double quotes)");
    expectFailure(input, error);
    EXPECT_EQ(JSONFormatter::parseToTree(input), std::unexpected(error));
    EXPECT_EQ(error.errorDescription(), "Invalid JSON: " + error.message);
    // Only JSON's own white space may surround a document; the check for empty input trims more.
    expectFailure("\u00A0[]", JSONError::invalidJSON(
                                  "Unexpected U+00A0 at line 1, column 1; expected an object or an array"));
}

TEST(JSONFormatter, AcceptsALoneScalarForTheTreeOnly) {
    expectFailure("42", JSONError::invalidJSON(
                            R"(Unexpected "42" at line 1, column 1; expected an object or an array)"));
    const auto tree = JSONFormatter::parseToTree("42");
    ASSERT_TRUE(tree);
    EXPECT_EQ(tree->key, "root");
    EXPECT_EQ(tree->type, JSONValueType::number);
    EXPECT_EQ(tree->value, "42");
    EXPECT_TRUE(tree->children.empty());
    EXPECT_EQ(JSONFormatter::parseToTree("42 x").error().message,
              R"(Unexpected "x" at line 1, column 4; expected the end of the input)");
}

struct Child {
    std::string_view key;
    JSONValueType type;
    std::optional<std::string_view> value;
};

void expectChildren(const JSONNode& node, std::initializer_list<Child> children) {
    ASSERT_EQ(node.children.size(), children.size());
    auto found = node.children.begin();
    for (const auto& [key, type, value] : children) {
        EXPECT_EQ(found->key, key);
        EXPECT_EQ(found->type, type) << key;
        EXPECT_EQ(found->value, value) << key;
        ++found;
    }
}

TEST(JSONFormatter, TreeShowsEveryTypeOfValue) {
    const auto array =
        JSONFormatter::parseToTree(R"([true, 1, "x", null, false, 0, 1.50, "a\"\n/", [], {}, 1e400])");
    ASSERT_TRUE(array);
    EXPECT_EQ(array->key, "root");
    EXPECT_EQ(array->type, JSONValueType::array);
    EXPECT_EQ(array->value, std::nullopt);
    expectChildren(*array, {
                               {"[0]", JSONValueType::bool_, "true"},
                               {"[1]", JSONValueType::number, "1"},
                               {"[2]", JSONValueType::string, "\"x\""},
                               {"[3]", JSONValueType::null, "null"},
                               {"[4]", JSONValueType::bool_, "false"},
                               {"[5]", JSONValueType::number, "0"},
                               {"[6]", JSONValueType::number, "1.5"},
                               {"[7]", JSONValueType::string, "\"a\"\n/\""}, // no escapes inside
                               {"[8]", JSONValueType::array, std::nullopt},
                               {"[9]", JSONValueType::object, std::nullopt},
                               {"[10]", JSONValueType::number, "1e400"},
                           });
}

TEST(JSONFormatter, TreeSortsTheMembersOfAnObject) {
    const auto object = JSONFormatter::parseToTree(R"({"b":[3,1,2],"a\n":{"d":1,"c":2},"B":"","b":{}})");
    ASSERT_TRUE(object);
    expectChildren(*object, {
                                {"B", JSONValueType::string, "\"\""},
                                {"a\n", JSONValueType::object, std::nullopt},
                                {"b", JSONValueType::object, std::nullopt},
                            });
    expectChildren(object->children[1], {
                                            {"c", JSONValueType::number, "2"},
                                            {"d", JSONValueType::number, "1"},
                                        });
}

TEST(JSONFormatter, ReportsDuplicateNames) {
    using JSONFormatter::DuplicateNames;
    const std::string_view text = R"({"a":1,"b":[{"a":2,"a":3}],"b":0})";
    const DuplicateNames expected{2, "a"};
    DuplicateNames duplicates{7, "of another text"};
    EXPECT_TRUE(JSONFormatter::prettify(text, 2, &duplicates));
    EXPECT_EQ(duplicates, expected);
    for (const auto operation : {+[](std::string_view input, DuplicateNames* found) {
                                     return JSONFormatter::minify(input, found).has_value();
                                 },
                                 +[](std::string_view input, DuplicateNames* found) {
                                     return JSONFormatter::validate(input, found).has_value();
                                 },
                                 +[](std::string_view input, DuplicateNames* found) {
                                     return JSONFormatter::parseToTree(input, found).has_value();
                                 }}) {
        EXPECT_TRUE(operation("{}", &duplicates));
        EXPECT_EQ(duplicates, DuplicateNames());
        EXPECT_TRUE(operation(text, &duplicates));
        EXPECT_EQ(duplicates, expected);
    }
}

TEST(JSONFormatter, DescribesDuplicateNamesOnOneLine) {
    using JSONFormatter::DuplicateNames;
    const std::pair<DuplicateNames, std::string_view> rows[] = {
        {{0, ""}, ""},
        {{1, "a"}, R"(Duplicate name "a": only its last value counts)"},
        {{3, ""}, R"(3 duplicate names, such as "": only the last values count)"},
        {{1, "\"\\/\n\x01"}, R"(Duplicate name "\"\\/\n\u0001": only its last value counts)"},
        {{1, std::string(24, 'x')},
         R"(Duplicate name "xxxxxxxxxxxxxxxxxxxxxxxx": only its last value counts)"},
        {{1, std::string(1000, 'x')},
         R"(Duplicate name "xxxxxxxxxxxxxxxxxxxxxxxx...": only its last value counts)"},
        {{1, "👩‍👩‍👧"}, R"(Duplicate name "👩‍👩‍👧": only its last value counts)"},
    };
    for (const auto& [duplicates, description] : rows)
        EXPECT_EQ(duplicates.description(), description);
}

void collectIdentifiers(const JSONNode& node, std::unordered_set<UUID>& identifiers) {
    identifiers.insert(node.id());
    for (const auto& child : node.children)
        collectIdentifiers(child, identifiers);
}

TEST(JSONFormatter, GivesEveryNodeAUniqueIdentifier) {
    std::unordered_set<UUID> identifiers;
    for (int i = 0; i < 2; ++i)
        collectIdentifiers(*JSONFormatter::parseToTree("[[1,2],{\"a\":[]}]"), identifiers);
    EXPECT_EQ(identifiers.size(), 12U);
}

TEST(JSONFormatter, CopiesAndFreesTheDeepestTree) {
    const auto tree = JSONFormatter::parseToTree(std::string(512, '[') + std::string(512, ']'));
    ASSERT_TRUE(tree);
    const JSONNode copy = *tree;
    EXPECT_EQ(copy, *tree);
    EXPECT_FALSE(JSONFormatter::parseToTree(std::string(100'000, '[')));
}

TEST(JSONFormatter, EveryTypeHasItsNameAndIcon) {
    const std::vector<std::pair<std::string_view, std::string_view>> expected = {
        {"object", "curlybraces"},   {"array", "brackets"},        {"string", "textformat"},
        {"number", "number"},        {"bool", "checkmark.circle"}, {"null", "circle.slash"},
        {"unknown", "questionmark"},
    };
    ASSERT_EQ(allCases<JSONValueType>.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(rawValue(allCases<JSONValueType>[i]), expected[i].first);
        EXPECT_EQ(icon(allCases<JSONValueType>[i]), expected[i].second);
    }
}

TEST(JSONFormatter, RefusesOutputLongerThanOneGiB) {
    // 1.1 million elements inside 511 brackets: a small text whose lines would be 1025 characters long.
    std::string text(511, '[');
    for (int i = 0; i < 1'100'000; ++i)
        text += "[],";
    text.pop_back();
    text += std::string(511, ']');
    EXPECT_EQ(JSONFormatter::prettify(text, 2),
              std::unexpected(JSONError::invalidJSON("The output would be longer than 1 GiB")));
    EXPECT_EQ(JSONFormatter::minify(text), text);
}

TEST(JSONFormatter, WritesVeryLongStrings) {
    const std::string plain(100'000, 'x');
    std::string slashes;
    std::string escapedSlashes;
    for (int i = 0; i < 50'000; ++i) {
        slashes += "a/";
        escapedSlashes += "a\\/";
    }
    EXPECT_EQ(JSONFormatter::minify("[\"" + plain + "\", \"" + slashes + "\"]"),
              "[\"" + plain + "\",\"" + escapedSlashes + "\"]");
}

TEST(JSONWriter, WritesALoneScalarOnlyWhenAllowed) {
    const auto document = JSON::parse("\"a/b\"", {.fragmentsAllowed = true});
    ASSERT_TRUE(document);
    EXPECT_EQ(JSON::write(document->root(), {.fragmentsAllowed = true}), "\"a\\/b\"");
    EXPECT_FALSE(JSON::write(document->root()));
    EXPECT_FALSE(JSON::write(JSON::Value()));
    EXPECT_EQ(JSON::write(document->root()).error().message,
              "Expected an object or an array at the top level");
}

TEST(JSONWriter, WritesAnyPartOfADocument) {
    const auto document = JSON::parse(R"({"a":{"c":[1],"b":2}})");
    ASSERT_TRUE(document);
    EXPECT_EQ(JSON::write(*document->root().member("a")), R"({"b":2,"c":[1]})");
    EXPECT_EQ(JSON::write(*document->root().member("a"), {.prettyPrinted = true}),
              "{\n  \"b\" : 2,\n  \"c\" : [\n    1\n  ]\n}");
}

RC_GTEST_PROP(JSONFormatter, WritesAnyDocumentAsTheModelDoes, ()) {
    const auto model = support::randomJSONModel();
    const auto text = support::randomJSONText(model);
    RC_ASSERT(JSONFormatter::minify(text).value() == support::expectedMinified(model));
    RC_ASSERT(JSONFormatter::prettify(text, 4).value() == support::expectedPrettified(model));
    RC_ASSERT(JSONFormatter::validate(text).has_value());
}

RC_GTEST_PROP(JSONFormatter, FormattingItsOutputAgainChangesNothing, ()) {
    const auto text = support::randomJSONText(support::randomJSONModel());
    const auto minified = JSONFormatter::minify(text).value();
    const auto prettified = JSONFormatter::prettify(text, 2).value();
    RC_ASSERT(JSONFormatter::minify(minified).value() == minified);
    RC_ASSERT(JSONFormatter::prettify(prettified, 2).value() == prettified);
    RC_ASSERT(JSONFormatter::minify(prettified).value() == minified);
    RC_ASSERT(JSONFormatter::prettify(minified, 2).value() == prettified);
}

RC_GTEST_PROP(JSONFormatter, OutputIsIndependentOfTheOrderOfMembers, ()) {
    const auto model = support::randomJSONModel();
    const auto text = support::randomJSONText(model);
    const auto reordered = support::randomJSONText(model);
    RC_ASSERT(JSONFormatter::minify(text).value() == JSONFormatter::minify(reordered).value());
}

/// The tree without its identifiers, as text.
std::string outline(const JSONNode& node) {
    std::string text(rawValue(node.type));
    text += node.value.value_or("") + "(";
    for (const auto& child : node.children)
        text += child.key + "=" + outline(child) + ";";
    return text + ")";
}

RC_GTEST_PROP(JSONFormatter, TreeIsTheSameAfterPrettifying, ()) {
    const auto text = support::randomJSONText(support::randomJSONModel());
    RC_ASSERT(outline(*JSONFormatter::parseToTree(text)) ==
              outline(*JSONFormatter::parseToTree(*JSONFormatter::prettify(text, 2))));
}

} // namespace
} // namespace korvane
