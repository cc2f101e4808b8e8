/// Properties of the JSON engine for every text, JSON or not, shared by tests and fuzzers.
#pragma once

#include "Utilities/JSON/JSONFormatter.h"

#include <string>
#include <string_view>

namespace korvane::support {

/// The property that the operations violate for `text`; empty if none.
inline std::string brokenJSONFormatterProperty(std::string_view text) {
    const auto minified = JSONFormatter::minify(text);
    const auto prettified = JSONFormatter::prettify(text, 2);
    const auto valid = JSONFormatter::validate(text);
    const auto tree = JSONFormatter::parseToTree(text);
    if (valid.has_value() != minified.has_value() || valid.has_value() != prettified.has_value())
        return "the operations disagree about whether the text is valid";
    if (!tree && tree.error().errorDescription().empty())
        return "the tree fails without a message";
    if (!minified) {
        if (minified.error() != valid.error() || minified.error() != prettified.error())
            return "the operations fail in different ways";
        const auto message = minified.error().errorDescription();
        if (message.empty() || message.find('\n') != std::string::npos)
            return "the message is not one line: " + message;
        return {};
    }
    if (!tree)
        return "what can be minified has no tree";
    if (JSONFormatter::minify(*minified) != minified)
        return "minifying again changes the text";
    if (JSONFormatter::prettify(*prettified, 2) != prettified)
        return "prettifying again changes the text";
    if (JSONFormatter::minify(*prettified) != minified)
        return "minifying the prettified text gives another text";
    return {};
}

} // namespace korvane::support
