#include "Utilities/URLComponents.h"

#include "Utilities/PercentEncoding.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

namespace korvane {

/// For the messages of failures.
void PrintTo(const URLComponentsBreakdown& components, std::ostream* stream) {
    const auto print = [&](std::string_view name, const std::optional<std::string>& text) {
        if (text)
            *stream << name << "=\"" << *text << "\" ";
    };
    print("scheme", components.scheme);
    print("host", components.host);
    if (components.port)
        *stream << "port=" << *components.port << ' ';
    print("path", components.path);
    print("query", components.query);
    print("fragment", components.fragment);
    for (const auto& item : components.queryItems.value_or(std::vector<URLQueryItem>{})) {
        print("item", item.name);
        print("value", item.value);
    }
}

namespace {

using Items = std::vector<URLQueryItem>;

TEST(URLComponents, ParsesEveryComponent) {
    struct Row {
        std::string_view name;
        std::string_view url;
        URLComponentsBreakdown components;
    };

    const Row rows[] = {
        {"all components",
         "http://example.org:8080/a/b?x=1&y#end",
         {"http", "example.org", 8080, "/a/b", "x=1&y", "end", Items{{"x", "1"}, {"y"}}}},
        {"scheme and host", "https://example.org", {.scheme = "https", .host = "example.org"}},
        {"the case is kept", "HTTP://Example.ORG", {.scheme = "HTTP", .host = "Example.ORG"}},
        {"a root", "http://h/", {.scheme = "http", .host = "h", .path = "/"}},
        {"empty segments", "http://h//a//", {.scheme = "http", .host = "h", .path = "//a//"}},
        {"dots are not resolved", "http://h/a/../b/.", {.scheme = "http", .host = "h", .path = "/a/../b/."}},
        {"user and password", "ftp://u:p@h/", {.scheme = "ftp", .host = "h", .path = "/"}},
        {"an IPv4 address",
         "http://192.0.2.1:1/",
         {.scheme = "http", .host = "192.0.2.1", .port = 1, .path = "/"}},
        {"an IPv6 address",
         "http://[2001:db8::1]:80",
         {.scheme = "http", .host = "[2001:db8::1]", .port = 80}},
        {"an IPv6 address with an IPv4 one", "//[::ffff:192.0.2.1]", {.host = "[::ffff:192.0.2.1]"}},
        {"an IPvFuture address", "//[v1.x:y]/", {.host = "[v1.x:y]", .path = "/"}},
        {"an empty host", "file:///etc/hosts", {.scheme = "file", .host = "", .path = "/etc/hosts"}},
        {"no host", "file:/etc/hosts", {.scheme = "file", .path = "/etc/hosts"}},
        {"a mail address", "mailto:a@b.example", {.scheme = "mailto", .path = "a@b.example"}},
        {"a name", "urn:isbn:0", {.scheme = "urn", .path = "isbn:0"}},
        {"only a scheme", "x-y+z.1:", {.scheme = "x-y+z.1"}},
        {"a host that looks like a scheme", "localhost:8080/x", {.scheme = "localhost", .path = "8080/x"}},
        {"no scheme", "//h:1/p", {.host = "h", .port = 1, .path = "/p"}},
        {"an absolute path", "/a/b", {.path = "/a/b"}},
        {"only a slash", "/", {.path = "/"}},
        {"only two slashes", "//", {.host = ""}},
        {"a relative path", "a/b", {.path = "a/b"}},
        {"a word", "word", {.path = "word"}},
        {"a colon after a slash", "./a:b", {.path = "./a:b"}},
        {"nothing", "", {}},
        {"only a query", "?a", {.query = "a", .queryItems = Items{{"a"}}}},
        {"an empty query", "p?", {.path = "p", .query = "", .queryItems = Items{}}},
        {"only a fragment", "#a", {.fragment = "a"}},
        {"an empty fragment", "p#", {.path = "p", .fragment = ""}},
        {"a question mark in the query", "?a?b", {.query = "a?b", .queryItems = Items{{"a?b"}}}},
        {"a question mark in the fragment", "#a?b", {.fragment = "a?b"}},
        {"no port after the colon", "http://h:/", {.scheme = "http", .host = "h", .path = "/"}},
        {"the smallest port", "//h:0", {.host = "h", .port = 0}},
        {"the largest port", "//h:65535", {.host = "h", .port = 65535}},
        {"a port with leading zeros", "//h:00000000000080", {.host = "h", .port = 80}},
        {"encoded characters",
         "http://b%C3%BCcher.example/%E2%9C%93/%2F?q=%26%3d&%20#%23",
         {"http", "bücher.example", std::nullopt, "/✓//", "q=&=& ", "#", Items{{"q", "&="}, {" "}}}},
        {"bytes that are not UTF-8 stay encoded",
         "//%FF/%E2%9C?%FF=%C3%A9#%C0%AF",
         {.host = "%FF",
          .path = "/%E2%9C",
          .query = "%FF=%C3%A9",
          .fragment = "%C0%AF",
          .queryItems = Items{{"%FF", "é"}}}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(URLComponents::parse(row.url), row.components) << row.name;
}

TEST(URLComponents, SplitsAQueryIntoItems) {
    struct Row {
        std::string_view query;
        Items items;
    };

    const Row rows[] = {
        {"", {}},
        {"a=1", {{"a", "1"}}},
        {"a=1&b", {{"a", "1"}, {"b"}}},
        {"a=", {{"a", ""}}},
        {"=1", {{"", "1"}}},
        {"=", {{"", ""}}},
        {"a=b=c", {{"a", "b=c"}}},
        {"a==", {{"a", "="}}},
        {"&", {{""}, {""}}},
        {"a&&b", {{"a"}, {""}, {"b"}}},
        {"a&", {{"a"}, {""}}},
        {"b&a&b", {{"b"}, {"a"}, {"b"}}},
        {"a+b=c+d", {{"a+b", "c+d"}}},
        {"a;b", {{"a;b"}}},
        {"a%26b=c%3Dd", {{"a&b", "c=d"}}},
        {"%61=%E2%9C%93", {{"a", "✓"}}},
    };
    for (const auto& row : rows) {
        const auto components = URLComponents::parse("?" + std::string(row.query));
        ASSERT_TRUE(components) << row.query;
        EXPECT_EQ(components->queryItems, row.items) << row.query;
    }
}

TEST(URLComponents, RejectsInvalidURLs) {
    using namespace std::string_view_literals;
    constexpr std::string_view wrong[] = {
        "a b",
        " http://h",
        "http://h ",
        "http://h\n",
        "\t",
        "http://h/\x01",
        "http://h/é",
        "http://é/",
        "a\0b"sv,
        "\x7f",
        "\xff",
        "100%",
        "http://h/%",
        "http://h/%4",
        "http://h/%4g",
        "http://h/?%zz",
        "#%",
        "http://%/",
        "1http://h",
        "-x:y",
        ":x",
        "://h",
        "%41:b",
        "a_b:c",
        "http://h:8x",
        "http://h:-1",
        "http://h:65536",
        "http://h:99999999999999999999",
        "http://h:1:2",
        "http://a@b@c",
        "http://[::1",
        "http://::1]",
        "http://[]",
        "http://[::1]x",
        "http://[::g]",
        "http://[1:2]",
        "http://[fe80::1%25eth0]",
        "http://[v.x]",
        "http://h/[",
        "http://h/?[]",
        "http://h/a|b",
        "http://h/a\\b",
        "http://h/^",
        "http://h/`",
        "http://h/{x}",
        "http://h/<x>",
        "http://h/\"",
        "#a#b",
        "http://h?q#a#b",
    };
    for (const auto url : wrong)
        EXPECT_FALSE(URLComponents::parse(url)) << '"' << url << '"';
}

TEST(URLComponents, ReportsTheErrorAndItsPosition) {
    struct Row {
        std::string_view url;
        std::size_t offset;
        std::string_view message;
    };

    constexpr Row rows[] = {
        {"http://h/x\n", 10, "Unexpected line break at character 11"},
        {"http://h/x\r\n", 10, "Unexpected line break at character 11"},
        {" http://h", 0, "Unexpected space at character 1"},
        {"not a URL", 3, "Unexpected space at character 4"},
        {"a\tb", 1, "Unexpected tab at character 2"},
        {"http://h/a|b", 10, "Unexpected \"|\" at character 11"},
        {"http://h/{x}", 9, "Unexpected \"{\" at character 10"},
        {"http://h/?a[]=1", 11, "Unexpected \"[\" at character 12"},
        {"http://h/?q=\"x\"", 12, "Unexpected double quote at character 13"},
        {"http://h/\x01", 9, "Unexpected U+0001 at character 10"},
        {"http://h/\u00A0", 9, "Unexpected U+00A0 at character 10"},
        {"http://é/", 7, "Unexpected \"é\" at character 8"},
        {"é😀", 0, "Unexpected \"é\" at character 1"},
        {"http://h/\xff", 9, "Unexpected \"\xff\" at character 10"},
        {"#a#b", 2, "Unexpected \"#\" at character 3"},
        {"http://u@v@h/", 10, "Unexpected \"@\" at character 11"},
        {"1a:b", 2, "Unexpected \":\" at character 3"},
        {"http://[::g]/", 10, "Unexpected \"g\" at character 11"},
        {"http://[::1", 11, "Unexpected end at character 12"},
        {"//[::1%25eth0]/", 6, "Unexpected \"%\" at character 7"},
        {"http://h/100%", 12, "Incomplete \"%\" at character 13"},
        {"http://h/%4", 9, "Incomplete \"%\" at character 10"},
        {"http://h/%4g?", 9, "Incomplete \"%\" at character 10"},
        {"?%41%G1", 4, "Incomplete \"%\" at character 5"},
        {"http://h/%41|", 12, "Unexpected \"|\" at character 13"},
        {"http://h:99x/", 11, "Unexpected \"x\" at character 12"},
        {"http://h:x", 9, "Unexpected \"x\" at character 10"},
        {"http://h:8 0/", 10, "Unexpected space at character 11"},
        {"http://h:65536/", 9, "The port is greater than 65535"},
        {"//h:99999999999999999999", 4, "The port is greater than 65535"},
    };
    for (const auto& [url, offset, message] : rows) {
        const auto components = URLComponents::parse(url);
        ASSERT_FALSE(components) << url;
        EXPECT_EQ(components.error().message, message) << url;
        EXPECT_EQ(components.error().offset, offset) << url;
    }
}

TEST(URLComponents, ParsesLongInput) {
    constexpr std::size_t length = 200'000;
    for (const std::string unit : {"a", "/", "a/", "%41", "&", "a=1&", "?", ":", "@", "1", "#", "[", "%"}) {
        std::string text;
        while (text.size() < length)
            text += unit;
        for (const std::string start : {"", "http://h/", "//", "//h:", "?", "#", "x:", "http://[v1."})
            static_cast<void>(URLComponents::parse(start + text));
    }
    EXPECT_EQ(URLComponents::parse("/" + std::string(length, 'a'))->path->size(), length + 1);
    EXPECT_EQ(URLComponents::parse("http://h" + std::string(length, '/'))->path->size(), length);
    EXPECT_EQ(URLComponents::parse("?" + std::string(length, '&'))->queryItems->size(), length + 1);
}

/// One of the given texts, or any percent-encoded one.
rc::Gen<std::string> piece(std::initializer_list<std::string> texts) {
    return rc::gen::oneOf(rc::gen::elementOf(std::vector<std::string>(texts)),
                          rc::gen::map(rc::gen::string<std::string>(), [](const std::string& text) {
                              std::string letters;
                              for (const auto character : text)
                                  letters +=
                                      static_cast<char>('a' + static_cast<unsigned char>(character) % 26);
                              return letters;
                          }));
}

RC_GTEST_PROP(URLComponents, ParsesURLsBuiltFromComponents, (bool hasQuery, bool hasFragment)) {
    const auto scheme = "s" + *piece({"", "+1", ".x"});
    const auto host = *piece({"", "[::1]", "127.0.0.1", "a.b-c_d~", "%C3%A9"});
    const auto port = *rc::gen::inRange(0, 65536);
    const auto path = *piece({"", "/", "//", "a:b@c", ".", "%E2%9C%93", ";,=+$&!*'()"});
    const auto query = *piece({"", "a=b", "?/:@", "%20"});
    const auto fragment = *piece({"", "?", "/", "%23"});
    auto url = scheme + "://" + host + ':' + std::to_string(port) + '/' + path;
    if (hasQuery)
        url += '?' + query;
    if (hasFragment)
        url += '#' + fragment;
    const auto components = URLComponents::parse(url);
    RC_ASSERT(components.has_value());
    RC_ASSERT(components->scheme == scheme);
    RC_ASSERT(components->host == PercentEncoding::decode(host));
    RC_ASSERT(components->port == port);
    RC_ASSERT(components->path == PercentEncoding::decode('/' + path));
    RC_ASSERT(components->query == (hasQuery ? PercentEncoding::decode(query) : std::nullopt));
    RC_ASSERT(components->queryItems.has_value() == hasQuery);
    RC_ASSERT(components->fragment == (hasFragment ? PercentEncoding::decode(fragment) : std::nullopt));
}

} // namespace
} // namespace korvane
