#include "Utilities/URLComponents.h"

#include "Utilities/PercentEncoding.h"
#include "Utilities/Text/CharacterName.h"
#include "Utilities/Text/Text.h"

#include <fmt/format.h>
#include <uriparser/Uri.h>

#include <charconv>
#include <cstddef>
#include <ranges>
#include <system_error>

namespace korvane::URLComponents {

namespace {

/// A URL as split by the parser; refers to the parsed text.
class ParsedURL {
public:
    explicit ParsedURL(std::string_view url)
        : m_isValid(uriParseSingleUriExA(&m_parts, url.data(), url.data() + url.size(), &m_error) ==
                    URI_SUCCESS) {}

    ~ParsedURL() {
        if (m_isValid)
            uriFreeUriMembersA(&m_parts);
    }

    ParsedURL(const ParsedURL&) = delete;
    ParsedURL& operator=(const ParsedURL&) = delete;

    bool isValid() const { return m_isValid; }

    const UriUriA& parts() const { return m_parts; }

    /// Where the parser stopped.
    const char* error() const { return m_error; }

private:
    UriUriA m_parts{};
    const char* m_error = nullptr;
    bool m_isValid;
};

std::string decoded(std::string_view text) {
    auto bytes = PercentEncoding::decode(text);
    return bytes ? std::move(*bytes) : std::string(text);
}

/// The undecoded text of `range`; none if the component is absent.
std::optional<std::string_view> textOf(const UriTextRangeA& range) {
    if (!range.first)
        return std::nullopt;
    return std::string_view(range.first, range.afterLast);
}

std::optional<std::string> decodedTextOf(const UriTextRangeA& range) {
    const auto text = textOf(range);
    return text ? std::optional(decoded(*text)) : std::nullopt;
}

std::optional<std::string> hostOf(const UriUriA& parts) {
    auto host = decodedTextOf(parts.hostText);
    const bool isBracketed = parts.hostData.ip6 || parts.hostData.ipFuture.first;
    return isBracketed ? '[' + *host + ']' : host;
}

constexpr int maxPort = 65535;

/// The port, none without one; an error if it exceeds `maxPort`.
std::expected<std::optional<int>, std::errc> portOf(const UriUriA& parts) {
    const auto digits = textOf(parts.portText);
    if (!digits || digits->empty())
        return std::nullopt;
    int port = 0;
    const auto error = std::from_chars(digits->data(), digits->data() + digits->size(), port).ec;
    if (error != std::errc() || port > maxPort)
        return std::unexpected(std::errc::result_out_of_range);
    return port;
}

std::optional<std::string> pathOf(const UriUriA& parts) {
    std::string path;
    const bool isRooted = parts.absolutePath || (parts.hostText.first && parts.pathHead);
    for (const auto* segment = parts.pathHead; segment; segment = segment->next) {
        if (isRooted || segment != parts.pathHead)
            path += '/';
        path += *textOf(segment->text);
    }
    if (isRooted && !parts.pathHead)
        path = '/';
    return path.empty() ? std::nullopt : std::optional(decoded(path));
}

URLQueryItem queryItem(std::string_view text) {
    const auto equalsSign = text.find('=');
    if (equalsSign == std::string_view::npos)
        return {.name = decoded(text)};
    return {.name = decoded(text.substr(0, equalsSign)), .value = decoded(text.substr(equalsSign + 1))};
}

std::optional<std::vector<URLQueryItem>> queryItemsOf(const UriUriA& parts) {
    const auto query = textOf(parts.query);
    if (!query)
        return std::nullopt;
    std::vector<URLQueryItem> items;
    for (const auto item : std::views::split(*query, '&'))
        items.push_back(queryItem(std::string_view(item)));
    return items;
}

/// The offset of the actual error when the parser stopped at `offset`. Until the authority ends, the parser
/// treats the colon before a port as the separator after a user name; and it reads the whole triplet of a
/// percent-encoding before it fails.
std::size_t errorOffset(std::string_view url, std::size_t offset) {
    const auto percent = url.substr(0, offset).rfind('%');
    if (percent != std::string_view::npos && offset - percent < 3)
        return percent;
    const auto colon = url.substr(0, offset).rfind(':');
    const bool isAtEnd = offset == url.size() || std::string_view("/?#").contains(url[offset]);
    if (!isAtEnd || colon == std::string_view::npos || url.substr(colon).starts_with("://"))
        return offset;
    const auto inPort = url.substr(0, offset).find_first_not_of("0123456789", colon + 1);
    return inPort == std::string_view::npos ? offset : inPort;
}

bool isTriplet(std::string_view text) {
    constexpr std::string_view hexDigits = "0123456789ABCDEFabcdef";
    return text.size() >= 3 && hexDigits.contains(text[1]) && hexDigits.contains(text[2]);
}

std::string foundAt(std::string_view url, std::size_t offset) {
    if (offset == url.size())
        return "end";
    switch (url[offset]) {
    case ' ':
        return "space";
    case '\t':
        return "tab";
    case '\n':
    case '\r':
        return "line break";
    default:
        return characterName(url, offset);
    }
}

ParseError errorAt(std::string_view url, std::size_t offset) {
    const auto place = characterCount(url.substr(0, offset)) + 1;
    if (url.substr(offset).starts_with('%') && !isTriplet(url.substr(offset)))
        return {offset, fmt::format("Incomplete \"%\" at character {}", place)};
    return {offset, fmt::format("Unexpected {} at character {}", foundAt(url, offset), place)};
}

} // namespace

std::expected<URLComponentsBreakdown, ParseError> parse(std::string_view url) {
    const ParsedURL parsed(url);
    if (!parsed.isValid())
        return std::unexpected(
            errorAt(url, errorOffset(url, static_cast<std::size_t>(parsed.error() - url.data()))));
    const auto& parts = parsed.parts();
    const auto port = portOf(parts);
    if (!port)
        return std::unexpected(ParseError{static_cast<std::size_t>(parts.portText.first - url.data()),
                                          fmt::format("The port is greater than {}", maxPort)});
    return URLComponentsBreakdown{.scheme = decodedTextOf(parts.scheme),
                                  .host = hostOf(parts),
                                  .port = *port,
                                  .path = pathOf(parts),
                                  .query = decodedTextOf(parts.query),
                                  .fragment = decodedTextOf(parts.fragment),
                                  .queryItems = queryItemsOf(parts)};
}

} // namespace korvane::URLComponents
