#include "Utilities/URLComponents.h"

#include "Utilities/PercentEncoding.h"

#include <uriparser/Uri.h>

#include <charconv>
#include <expected>
#include <ranges>
#include <system_error>

namespace korvane::URLComponents {

namespace {

/// A URL as the parser splits it; refers to the text that was parsed.
class ParsedURL {
public:
    explicit ParsedURL(std::string_view url)
        : m_isValid(uriParseSingleUriExA(&m_parts, url.data(), url.data() + url.size(), nullptr) ==
                    URI_SUCCESS) {}

    ~ParsedURL() {
        if (m_isValid)
            uriFreeUriMembersA(&m_parts);
    }

    ParsedURL(const ParsedURL&) = delete;
    ParsedURL& operator=(const ParsedURL&) = delete;

    bool isValid() const { return m_isValid; }

    const UriUriA& parts() const { return m_parts; }

private:
    UriUriA m_parts{};
    bool m_isValid;
};

std::string decoded(std::string_view text) {
    auto bytes = PercentEncoding::decode(text);
    return bytes ? std::move(*bytes) : std::string(text);
}

/// What `range` covers, as it is written; none if the component is absent.
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

/// The port, none without one; an error if it is no port's number.
std::expected<std::optional<int>, std::errc> portOf(const UriUriA& parts) {
    constexpr int highestPort = 65535;
    const auto digits = textOf(parts.portText);
    if (!digits || digits->empty())
        return std::nullopt;
    int port = 0;
    const auto error = std::from_chars(digits->data(), digits->data() + digits->size(), port).ec;
    if (error != std::errc() || port > highestPort)
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

} // namespace

std::optional<URLComponentsBreakdown> parse(std::string_view url) {
    const ParsedURL parsed(url);
    if (!parsed.isValid())
        return std::nullopt;
    const auto& parts = parsed.parts();
    const auto port = portOf(parts);
    if (!port)
        return std::nullopt;
    return URLComponentsBreakdown{.scheme = decodedTextOf(parts.scheme),
                                  .host = hostOf(parts),
                                  .port = *port,
                                  .path = pathOf(parts),
                                  .query = decodedTextOf(parts.query),
                                  .fragment = decodedTextOf(parts.fragment),
                                  .queryItems = queryItemsOf(parts)};
}

} // namespace korvane::URLComponents
