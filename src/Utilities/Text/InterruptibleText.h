/// UTF-16 text that ICU reads in pieces, so that reading can be interrupted between them.
#pragma once

#include <unicode/unistr.h>
#include <unicode/utext.h>

#include <cstdint>
#include <functional>

namespace korvane {

/// While ICU matches a regular expression, it reports progress only when it saves an alternative for
/// backtracking. It does not report repeated scans of long runs of characters, and it reports nothing while
/// it compiles a pattern. This text calls `shouldContinue` whenever the reader moves to another piece, and
/// stops the reader if the result is false.
class InterruptibleText {
public:
    struct Interrupted {};

    /// The way to stop a reader.
    enum class Stop {
        byException, ///< throws `Interrupted`; the reader must then only be closed
        byEndOfText, ///< the text appears to end; the reader's result must not be used
    };

    struct Options {
        /// In UTF-16 units. A search reads a piece of 8192 in some microseconds; the cost of `shouldContinue`
        /// is negligible in comparison.
        std::int64_t pieceLength = 8192;
        Stop stop = Stop::byException;
    };

    /// `text` and `shouldContinue` must outlive this object.
    InterruptibleText(const icu::UnicodeString& text, const std::function<bool()>& shouldContinue,
                      Options options);
    ~InterruptibleText();
    InterruptibleText(const InterruptibleText&) = delete;
    InterruptibleText& operator=(const InterruptibleText&) = delete;

    UText* handle() { return &m_handle; }

    /// The data of the text's functions, shared by ICU's copies of the handle.
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
