#include "Utilities/TextTransformer.h"

#include "Utilities/Text/Characters.h"
#include "Utilities/Text/LetterCase.h"
#include "Utilities/Text/Text.h"
#include "Utilities/Text/UTF8.h"

#include <utility>

namespace korvane::TextTransformer {

namespace {

bool isSeparator(std::string_view character) {
    return character == "_" || character == "-" || character == " ";
}

/// Determines a character's class; marks after it do not matter.
char32_t firstCodePoint(std::string_view character) {
    return decodeAt(character, 0).character;
}

/// Whether a capital between the two characters begins a word: after a small letter, or as the last of
/// several capitals.
bool capitalBeginsWord(std::string_view previous, std::string_view next) {
    return isLowercase(previous) || (isUppercase(previous) && isLowercase(next));
}

/// The words of `text`, each mapped by `map`, joined by `separator`.
template <typename Map>
std::string joiningWords(std::string_view text, std::string_view separator, Map map) {
    std::string result;
    for (bool isFirst = true; const auto& word : extractWords(text)) {
        if (!std::exchange(isFirst, false))
            result += separator;
        result += map(word);
    }
    return result;
}

std::string_view leadingWhiteSpace(std::string_view text) {
    std::size_t length = 0;
    Characters characters(text);
    for (auto character = characters.next(); !character.empty(); character = characters.next()) {
        if (!isWhitespace(firstCodePoint(character)) && !isNewline(firstCodePoint(character)))
            break;
        length += character.size();
    }
    return text.substr(0, length);
}

/// Appends the sentence-case form of `piece`, which is between two marks or after the last one.
void appendSentence(std::string_view piece, bool isLast, std::string& result) {
    const auto trimmed = trimmingWhitespaces(piece);
    if (trimmed.empty()) {
        if (!isLast)
            result += piece;
        return;
    }
    const auto lower = lowercased(trimmed);
    const auto first = firstCharacter(lower);
    result += leadingWhiteSpace(piece);
    result += uppercased(first);
    result += std::string_view(lower).substr(first.size());
}

} // namespace

std::string transform(std::string_view text, CaseTransform to) {
    switch (to) {
    case CaseTransform::uppercase:
        return uppercased(text);
    case CaseTransform::lowercase:
        return lowercased(text);
    case CaseTransform::titleCase:
        return capitalized(text);
    case CaseTransform::sentenceCase:
        return toSentenceCase(text);
    case CaseTransform::camelCase:
        return toCamelCase(text);
    case CaseTransform::pascalCase:
        return toPascalCase(text);
    case CaseTransform::snakeCase:
        return toSnakeCase(text);
    case CaseTransform::kebabCase:
        return joiningWords(text, "-", lowercased);
    case CaseTransform::constantCase:
        return joiningWords(text, "_", uppercased);
    }
    return {};
}

std::vector<std::string> extractWords(std::string_view text) {
    std::vector<std::string> words;
    std::string word;
    const auto endWord = [&] {
        if (!word.empty())
            words.push_back(std::exchange(word, {}));
    };
    Characters characters(text);
    std::string_view previous;
    auto character = characters.next();
    while (!character.empty()) {
        const auto next = characters.next();
        if (isSeparator(character)) {
            endWord();
        } else if (isUppercase(character)) {
            if (capitalBeginsWord(previous, next))
                endWord();
            word += character;
        } else if (isLetter(character) || isNumeric(character)) {
            word += character;
        }
        previous = std::exchange(character, next);
    }
    endWord();
    return words;
}

std::string toCamelCase(std::string_view text) {
    return joiningWords(text, "", [isFirst = true](std::string_view word) mutable {
        return std::exchange(isFirst, false) ? lowercased(word) : capitalized(word);
    });
}

std::string toPascalCase(std::string_view text) {
    return joiningWords(text, "", capitalized);
}

std::string toSnakeCase(std::string_view text) {
    return joiningWords(text, "_", lowercased);
}

std::string toSentenceCase(std::string_view text) {
    std::string result;
    std::size_t start = 0;
    while (true) {
        const auto mark = text.find_first_of(".!?", start);
        const bool isLast = mark == std::string_view::npos;
        appendSentence(text.substr(start, mark - start), isLast, result);
        if (isLast)
            return result;
        result += text[mark];
        start = mark + 1;
    }
}

} // namespace korvane::TextTransformer
