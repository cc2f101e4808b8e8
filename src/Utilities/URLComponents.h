/// Splits a URL into its components (RFC 3986). Accepts relative references; resolves, corrects and looks up
/// nothing.
#pragma once

#include <cstddef>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// A part of a query between two `&`.
struct URLQueryItem {
    std::string name{};
    std::optional<std::string> value{}; ///< none without a `=`, empty after a final `=`

    bool operator==(const URLQueryItem&) const = default;
};

/// The components of a URL; an absent component is none. `file:///` has a present but empty host, and a URL
/// that ends with `?` a present but empty query. Components are percent-decoded, unless the decoded bytes
/// are not UTF-8: then the component is unchanged. User and password are not included.
struct URLComponentsBreakdown {
    std::optional<std::string> scheme{};
    std::optional<std::string> host{}; ///< an IPv6 address in its brackets
    std::optional<int> port{};         ///< 0 to 65535
    std::optional<std::string> path{}; ///< never empty
    std::optional<std::string> query{};
    std::optional<std::string> fragment{};
    /// The parts of the query in order: none without a query; an empty query has no items.
    std::optional<std::vector<URLQueryItem>> queryItems{};

    bool operator==(const URLComponentsBreakdown&) const = default;
};

namespace URLComponents {

/// The first violation of URL syntax in a text.
struct ParseError {
    std::size_t offset = 0; ///< in bytes
    std::string message{};  ///< such as `Unexpected "|" at character 12`

    bool operator==(const ParseError&) const = default;
};

/// The components of `url`, or an error if it is not a URL: the whole text must follow the standard's syntax
/// (no white space, only ASCII, complete percent-encodings), and the port must be valid. Takes linear time;
/// while it runs, each `/` of the path costs about 60 bytes of memory.
std::expected<URLComponentsBreakdown, ParseError> parse(std::string_view url);

} // namespace URLComponents

} // namespace korvane
