/// UTF-16 text that ICU reads piece by piece, so that somebody can look up now and then while it reads.
#pragma once

#include <unicode/unistr.h>
#include <unicode/utext.h>

#include <functional>

namespace korvane {

/// ICU matches regular expressions in one go and reports progress only when it puts off an alternative. A
/// long run of characters that it takes at once, again and again, goes unreported for as long as it takes.
/// This text asks `goesOn` whenever the reader comes to another piece, and throws `Interrupted` when the
/// answer is no: the one way out of ICU at that point. What was reading must not be used again, only closed.
class InterruptibleText {
public:
    struct Interrupted {};

    /// Both arguments are only referred to.
    InterruptibleText(const icu::UnicodeString& text, const std::function<bool()>& goesOn);
    ~InterruptibleText();
    InterruptibleText(const InterruptibleText&) = delete;
    InterruptibleText& operator=(const InterruptibleText&) = delete;

    UText* handle() { return &m_handle; }

    /// What the text's functions work on, shared by the copies of the handle that ICU makes.
    struct Source {
        const icu::UnicodeString& text;
        const std::function<bool()>& goesOn;
    };

private:
    Source m_source;
    UText m_handle = UTEXT_INITIALIZER;
};

} // namespace korvane
