/// A URL taken apart (RFC 3986). Relative references are URLs too; nothing is resolved, corrected or looked
/// up.
#pragma once

#include <cstddef>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// What stands between two `&` of a query.
struct URLQueryItem {
    std::string name{};
    std::optional<std::string> value{}; ///< none without a `=`, as opposed to an empty one

    bool operator==(const URLQueryItem&) const = default;
};

/// The components of a URL, none where one is absent. A URL such as `file:///` has a host that is present and
/// empty, and one that ends with `?` such a query. All are percent-decoded, unless the decoded bytes would
/// not be UTF-8: then the component is as it is written. User and password are not among them.
struct URLComponentsBreakdown {
    std::optional<std::string> scheme{};
    std::optional<std::string> host{}; ///< an IPv6 address in its brackets
    std::optional<int> port{};         ///< 0 to 65535
    std::optional<std::string> path{}; ///< never empty
    std::optional<std::string> query{};
    std::optional<std::string> fragment{};
    /// The parts of the query in its order: none without a query, and no item for an empty one.
    std::optional<std::vector<URLQueryItem>> queryItems{};

    bool operator==(const URLComponentsBreakdown&) const = default;
};

namespace URLComponents {

/// The first thing in a text that no URL has there.
struct ParseError {
    std::size_t offset = 0; ///< in bytes
    std::string message{};  ///< such as `Unexpected "|" at character 12`

    bool operator==(const ParseError&) const = default;
};

/// The components of `url`, or an error if it is no URL: all of it must follow the standard's syntax, so no
/// white space, nothing outside ASCII, no incomplete percent-encoding, and the port must be a port's number.
/// Takes linear time; while it runs, each `/` of the path costs about 60 bytes of memory.
std::expected<URLComponentsBreakdown, ParseError> parse(std::string_view url);

} // namespace URLComponents

} // namespace korvane
