/// All code points of Unicode, for exhaustive tests.
#pragma once

#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <string>

namespace korvane {

/// Calls `visit` with every code point that Unicode has assigned, surrogates and the null character excepted,
/// and with its UTF-8 form.
template <typename Visit>
void forEachCodePoint(Visit visit) {
    for (UChar32 codePoint = 1; codePoint <= UCHAR_MAX_VALUE; ++codePoint) {
        if (u_charType(codePoint) == U_SURROGATE || u_charType(codePoint) == U_UNASSIGNED)
            continue;
        std::string text;
        visit(codePoint, icu::UnicodeString(codePoint).toUTF8String(text));
    }
}

} // namespace korvane
