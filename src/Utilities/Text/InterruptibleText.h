/// UTF-16 text that ICU reads piece by piece, so that somebody can look up now and then while it reads.
#pragma once

#include <unicode/unistr.h>
#include <unicode/utext.h>

#include <cstdint>
#include <functional>

namespace korvane {

/// ICU matches regular expressions in one go and reports progress only when it puts off an alternative. A
/// long run of characters that it takes at once, again and again, goes unreported for as long as it takes;
/// and while it compiles a pattern it reports nothing at all. This text asks `shouldContinue` whenever the
/// reader comes to another piece, and stops it when the answer is no.
class InterruptibleText {
public:
    struct Interrupted {};

    /// How a reader is stopped.
    enum class Stop {
        byException, ///< throws `Interrupted`; what was reading must not be used again, only closed
        byEndOfText, ///< the text seems to end, and whatever the reader makes of it is not to be used
    };

    struct Options {
        /// How many UTF-16 units make a piece. To read one of 8192 takes a search some microseconds, against
        /// which asking is nothing.
        std::int64_t pieceLength = 8192;
        Stop stop = Stop::byException;
    };

    /// `text` and `shouldContinue` are only referred to.
    InterruptibleText(const icu::UnicodeString& text, const std::function<bool()>& shouldContinue,
                      Options options);
    ~InterruptibleText();
    InterruptibleText(const InterruptibleText&) = delete;
    InterruptibleText& operator=(const InterruptibleText&) = delete;

    UText* handle() { return &m_handle; }

    /// What the text's functions work on, shared by the copies of the handle that ICU makes.
    struct Source {
        const icu::UnicodeString& text;
        const std::function<bool()>& shouldContinue;
        Options options;
    };

private:
    Source m_source;
    UText m_handle = UTEXT_INITIALIZER;
};

} // namespace korvane
