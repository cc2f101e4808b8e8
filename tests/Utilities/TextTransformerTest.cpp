#include "Utilities/TextTransformer.h"

#include "Utilities/Text/LetterCase.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace korvane {
namespace {

using Words = std::vector<std::string>;

TEST(TextTransformer, CasesHaveTheirNamesAndIconsInOrder) {
    const std::pair<std::string_view, std::string_view> names[] = {
        {"UPPERCASE", "textformat.size.larger"},
        {"lowercase", "textformat.size.smaller"},
        {"Title Case", "textformat"},
        {"Sentence case", "text.alignleft"},
        {"camelCase", "chevron.left.forwardslash.chevron.right"},
        {"PascalCase", "chevron.left.forwardslash.chevron.right"},
        {"snake_case", "underline"},
        {"kebab-case", "minus"},
        {"CONSTANT_CASE", "textformat.size.larger"},
    };
    ASSERT_EQ(allCases<CaseTransform>.size(), std::size(names));
    for (std::size_t i = 0; i < std::size(names); ++i) {
        const auto transform = allCases<CaseTransform>[i];
        EXPECT_EQ(rawValue(transform), names[i].first);
        EXPECT_EQ(icon(transform), names[i].second);
        EXPECT_EQ(id(transform), names[i].first);
        EXPECT_EQ(fromRawValue<CaseTransform>(names[i].first), transform);
    }
}

struct WordsRow {
    std::string_view text;
    Words words;
};

TEST(TextTransformer, ExtractsWords) {
    const WordsRow rows[] = {
        {"", {}},
        {" _-  __", {}},
        {"A", {"A"}},
        {"aB", {"a", "B"}},
        {"ABC", {"ABC"}},
        {"ABCDef", {"ABC", "Def"}},
        {"helloWorld", {"hello", "World"}},
        {"JSONDataLoader", {"JSON", "Data", "Loader"}},
        {"user_id-key name", {"user", "id", "key", "name"}},
        {"version2Update", {"version2Update"}},
        {"hello.world", {"helloworld"}},
        {"hello\nworld", {"helloworld"}},
        {"hello\tworld", {"helloworld"}},
        {"hello\u00A0world", {"helloworld"}},
        {"hello, world", {"hello", "world"}},
        {"__a--b  c__", {"a", "b", "c"}},
        {"a.B", {"aB"}}, // a capital after punctuation begins no word
        {"A_B", {"A", "B"}},
        {"HTMLa", {"HTM", "La"}},
        {"...", {}},
        {"größeÄnderung", {"größe", "Änderung"}},
        {"ÄÖÜber", {"ÄÖ", "Über"}},
        {"gro\u0308ßeA\u0308nderung", {"gro\u0308ße", "A\u0308nderung"}},
        {"漢字 仮名", {"漢字", "仮名"}},
        {"½ ④x 一", {"½", "④x", "一"}},
        {"👍🏽ok 🇳🇴", {"ok"}},
        {"1️⃣", {"1️⃣"}},
        {"नमस्ते", {"नमस्ते"}},
        {"ⓐⒷ", {"ⓐ", "Ⓑ"}},
        {"_\u0301a", {"a"}}, // an underscore with a mark is no separator
    };
    for (const auto& row : rows)
        EXPECT_EQ(TextTransformer::extractWords(row.text), row.words) << row.text;
}

struct CaseRow {
    CaseTransform to;
    std::string_view text;
    std::string_view expected;
};

TEST(TextTransformer, TransformsCase) {
    using enum CaseTransform;
    const CaseRow rows[] = {
        {uppercase, "Straße", "STRASSE"},
        {uppercase, "a\r\nb", "A\r\nB"},
        {lowercase, "HELLO Ä", "hello ä"},
        {titleCase, "hELLO wORLD", "Hello World"},
        {titleCase, "iPhone", "Iphone"},
        {titleCase, "it's o'neill-smith's,\ntoo", "It's O'neill-smith's,\nToo"},
        {sentenceCase, "hello world. GOOD day!", "Hello world. Good day!"},
        {sentenceCase, "hello .world", "Hello.World"},
        {sentenceCase, "Hi. ", "Hi."},
        {sentenceCase, "one.\ntwo", "One.\n\ntwo"},
        {sentenceCase, "one. \n two", "One. \n \n two"},
        {sentenceCase, "a.\r\nb", "A.\r\n\r\nb"},
        {sentenceCase, "  spaces first", "  Spaces first"},
        {sentenceCase, "wait... what?! yes", "Wait... What?! Yes"},
        {sentenceCase, "a. .b", "A. .B"},
        {sentenceCase, "...", "..."},
        {sentenceCase, "   ", ""},
        {sentenceCase, " . ", " ."},
        {sentenceCase, "straße. ßa", "Straße. SSa"},
        {sentenceCase, "e\u0301a! ΑΣ.", "E\u0301a! Ας."},
        {sentenceCase, "\u3000a", "\u3000A"},
        {camelCase, "JSONDataLoader", "jsonDataLoader"},
        {camelCase, "Foo_bar", "fooBar"},
        {camelCase, " _- ", ""},
        {camelCase, "ÉTÉ d'été", "étéDété"},
        {pascalCase, "JSONDataLoader", "JsonDataLoader"},
        {pascalCase, "hello world", "HelloWorld"},
        {pascalCase, ".", ""},
        {snakeCase, "Hello World", "hello_world"},
        {snakeCase, "version2Update", "version2update"},
        {snakeCase, "--", ""},
        {kebabCase, "someVariableName", "some-variable-name"},
        {kebabCase, "__", ""},
        {constantCase, "max-retry count", "MAX_RETRY_COUNT"},
        {constantCase, "straßenName", "STRASSEN_NAME"},
        {constantCase, "", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(TextTransformer::transform(row.text, row.to), row.expected)
            << rawValue(row.to) << ": " << row.text;
}

TEST(TextTransformer, EmptyInputGivesEmptyOutput) {
    for (const auto transform : allCases<CaseTransform>)
        EXPECT_EQ(TextTransformer::transform("", transform), "") << rawValue(transform);
}

TEST(TextTransformer, OffersAFunctionForEachStyle) {
    EXPECT_EQ(TextTransformer::toCamelCase("Max retry-count"), "maxRetryCount");
    EXPECT_EQ(TextTransformer::toPascalCase("max retry-count"), "MaxRetryCount");
    EXPECT_EQ(TextTransformer::toSnakeCase("Max retry-count"), "max_retry_count");
    EXPECT_EQ(TextTransformer::toSentenceCase("MAX. RETRY"), "Max. Retry");
}

std::string someText() {
    const auto pieces = *rc::gen::container<std::vector<std::string>>(
        rc::gen::elementOf(Words{"a", "b", "A", "B", "_", "-", " ", "1", ".", "\n", "\t", "é", "É", "E\u0301",
                                 "漢", "👍🏽", "\r\n", "ß"}));
    std::string text;
    for (const auto& piece : pieces)
        text += piece;
    return text;
}

/// Joined words are split at the separators again, so a second transformation changes nothing.
RC_GTEST_PROP(TextTransformer, SnakeCaseIsIdempotent, ()) {
    const auto snake = TextTransformer::toSnakeCase(someText());
    RC_ASSERT(TextTransformer::toSnakeCase(snake) == snake);
}

RC_GTEST_PROP(TextTransformer, ProgrammingStylesJoinTheExtractedWords, ()) {
    const auto text = someText();
    const auto words = TextTransformer::extractWords(text);
    std::string pascal;
    std::string constant;
    std::string kebab;
    for (const auto& word : words) {
        pascal += capitalized(word);
        constant += (constant.empty() ? "" : "_") + uppercased(word);
        kebab += (kebab.empty() ? "" : "-") + lowercased(word);
    }
    RC_ASSERT(TextTransformer::toPascalCase(text) == pascal);
    RC_ASSERT(TextTransformer::transform(text, CaseTransform::constantCase) == constant);
    RC_ASSERT(TextTransformer::transform(text, CaseTransform::kebabCase) == kebab);
}

RC_GTEST_PROP(TextTransformer, AcceptsAnyBytes, (const std::string& bytes)) {
    for (const auto transform : allCases<CaseTransform>)
        TextTransformer::transform(bytes, transform);
    for (const auto operation : allCases<LineOperation>)
        TextTransformer::applyLineOperation(bytes, operation);
    RC_ASSERT(TextTransformer::getStats(bytes).characters <= static_cast<std::int64_t>(bytes.size()));
}

} // namespace
} // namespace korvane
