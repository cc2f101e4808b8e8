#include "Views/Tools/URLEncoderView.h"

#include "support/FakeServices.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

using Mode = URLEncoderView::Mode;

URLEncoderView performed(Mode mode, std::string input, std::string output = {}) {
    URLEncoderView view{.outputText = std::move(output), .mode = mode};
    view.setInputText(std::move(input));
    perform(view, &URLEncoderView::performAction);
    return view;
}

TEST(URLEncoderView, StartsEmptyAndEncoding) {
    const URLEncoderView view;
    EXPECT_EQ(view, (URLEncoderView{.inputText = "",
                                    .outputText = "",
                                    .mode = Mode::encode,
                                    .errorMessage = std::nullopt,
                                    .errorDetails = "",
                                    .urlComponents = nullptr}));
    EXPECT_EQ(view.status(), std::nullopt);
    EXPECT_FALSE(view.isAnalyzing());
}

TEST(URLEncoderView, EncodesDecodesOrAnalyzesByItsMode) {
    struct Row {
        std::string_view name;
        Mode mode;
        std::string_view input;
        std::string_view output;
        std::optional<std::string> error = std::nullopt;
    };

    constexpr std::string_view before = "before";
    const Row rows[] = {
        {"query delimiters are kept", Mode::encode, "a b&c=d", "a%20b&c=d"},
        {"white space is part of the text", Mode::encode, " \n", "%20%0A"},
        {"not UTF-8", Mode::encode, "\xff", before, "Could not encode text"},
        {"a check mark", Mode::decode, "%E2%9C%93", "✓"},
        {"a plus sign", Mode::decode, "a+b", "a+b"},
        {"surrounding white space", Mode::decode, " %41\n", " A\n"},
        {"a null byte", Mode::decode, "%00", std::string_view("\0", 1)},
        {"a lone percent sign", Mode::decode, "100%", before, "Could not decode URL"},
        {"not UTF-8", Mode::decode, "%FF", before, "Could not decode URL"},
        {"a URL", Mode::analyze, "http://h", before},
        {"a space", Mode::analyze, "not a URL", before, "Invalid URL format"},
        {"surrounding white space", Mode::analyze, " http://h", before, "Invalid URL format"},
        {"nothing to encode", Mode::encode, "", before, "Input is empty"},
        {"nothing to decode", Mode::decode, "", before, "Input is empty"},
        {"nothing to analyse", Mode::analyze, "", before, "Input is empty"},
    };
    for (const auto& row : rows) {
        const auto view = performed(row.mode, std::string(row.input), std::string(before));
        EXPECT_EQ(view.outputText, row.output) << row.name;
        EXPECT_EQ(view.errorMessage, row.error) << row.name;
        EXPECT_EQ(view.inputText, row.input) << row.name;
    }
}

TEST(URLEncoderView, ShowsItsMessageAsAnError) {
    EXPECT_EQ(performed(Mode::analyze, " ").status(), (StatusBadge{Status::error, "Invalid URL format"}));
    EXPECT_EQ(performed(Mode::analyze, "x").status(), std::nullopt);
}

TEST(URLEncoderView, ListsTheComponentsOfAURL) {
    const auto view = performed(Mode::analyze, "https://example.org:8080/a/b?x=1&y#end");
    EXPECT_EQ(*view.componentRows(), (std::vector<ComponentRow>{
                                         {"Scheme", "https", PaletteColor::purple},
                                         {"Host", "example.org", PaletteColor::blue},
                                         {"Port", "8080", PaletteColor::orange},
                                         {"Path", "/a/b", PaletteColor::green},
                                         {"Query String", "x=1&y", PaletteColor::cyan},
                                         {"Fragment", "end", PaletteColor::pink},
                                     }));
    EXPECT_EQ(*view.queryRows(), (std::vector<ComponentRow>{
                                     {"x", "1", PaletteColor::cyan},
                                     {"y", std::nullopt, PaletteColor::cyan},
                                 }));
    EXPECT_TRUE(view.hasComponents());
    EXPECT_TRUE(view.hasQueryItems());
    EXPECT_FALSE(URLEncoderView().hasComponents());
    EXPECT_EQ(URLEncoderView().componentRows(), nullptr);
    EXPECT_EQ(URLEncoderView().queryRows(), nullptr);
}

TEST(URLEncoderView, DistinguishesAnEmptyValueFromNone) {
    EXPECT_EQ(*performed(Mode::analyze, "?a=&b").queryRows(), (std::vector<ComponentRow>{
                                                                  {"a", "", PaletteColor::cyan},
                                                                  {"b", std::nullopt, PaletteColor::cyan},
                                                              }));
}

TEST(URLEncoderView, ShowsTheErrorInAURLUntilItChanges) {
    auto view = performed(Mode::analyze, "http://h/a b");
    EXPECT_EQ(view.errorMessage, "Invalid URL format");
    EXPECT_EQ(view.errorDetails, "Unexpected space at character 11");
    EXPECT_EQ(view.inputText, "http://h/a b");
    view.setInputText("http://h/ab");
    EXPECT_EQ(view.errorDetails, "");
    view = performed(Mode::analyze, "http://h/a b");
    view.setMode(Mode::decode);
    perform(view, &URLEncoderView::performAction);
    EXPECT_EQ(view.errorDetails, "");
    EXPECT_EQ(performed(Mode::decode, "%").errorDetails, "");
}

TEST(URLEncoderView, OmitsAbsentComponents) {
    struct Row {
        std::string url;
        std::vector<std::string> labels;
    };

    const Row rows[] = {
        {"http://h", {"Scheme", "Host"}}, {"word", {"Path"}},  {"//h:1", {"Host", "Port"}},
        {"p?", {"Path", "Query String"}}, {"#", {"Fragment"}},
    };
    for (const auto& row : rows) {
        const auto view = performed(Mode::analyze, row.url);
        std::vector<std::string> labels;
        for (const auto& component : *view.componentRows())
            labels.push_back(component.label);
        EXPECT_EQ(labels, row.labels) << row.url;
        EXPECT_FALSE(view.hasQueryItems()) << row.url;
    }
}

TEST(URLEncoderView, ChangingTheInputClearsMessageAndComponents) {
    auto view = performed(Mode::decode, "%");
    view.setInputText("%");
    EXPECT_TRUE(view.errorMessage) << "nothing has changed";
    view.setInputText("");
    EXPECT_EQ(view.errorMessage, std::nullopt);
    view = performed(Mode::analyze, "http://h");
    view.setInputText("http://h/");
    EXPECT_EQ(view.urlComponents, nullptr);
}

TEST(URLEncoderView, AnyActionClearsMessageAndComponents) {
    auto view = performed(Mode::analyze, "a b");
    view.setMode(Mode::encode);
    EXPECT_TRUE(view.errorMessage) << "switching is no action";
    perform(view, &URLEncoderView::performAction);
    EXPECT_EQ(view.errorMessage, std::nullopt);
    view = performed(Mode::analyze, "x");
    view.setMode(Mode::decode);
    EXPECT_TRUE(view.urlComponents) << "switching is no action";
    perform(view, &URLEncoderView::performAction);
    EXPECT_EQ(view.urlComponents, nullptr);
}

TEST(URLEncoderView, TypingAndSwitchingDoNotConvert) {
    auto view = performed(Mode::encode, "a b");
    view.setMode(Mode::decode);
    EXPECT_EQ(view.inputText, "a b");
    EXPECT_EQ(view.outputText, "a%20b");
    view.setInputText("");
    EXPECT_EQ(view.outputText, "a%20b");
}

TEST(URLEncoderView, ModesHaveTheirTextsAndIcons) {
    struct Row {
        Mode mode;
        std::string_view rawValue, icon, inputTitle, inputPlaceholder, outputTitle;
    };

    constexpr Row rows[] = {
        {Mode::encode, "Encode", "link.badge.plus", "Plain Text", "Enter text to encode...", "Encoded URL"},
        {Mode::decode, "Decode", "link", "Encoded URL", "Enter encoded URL...", "Decoded Text"},
        {Mode::analyze, "Analyze URL", "magnifyingglass", "URL Input", "Enter a URL to analyze...",
         "URL Components"},
    };
    ASSERT_EQ(allCases<Mode>.size(), std::size(rows));
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        const auto& facts = factsOf(allCases<Mode>[i]);
        EXPECT_EQ(facts.value, rows[i].mode);
        EXPECT_EQ(facts.rawValue, rows[i].rawValue);
        EXPECT_EQ(facts.icon, rows[i].icon);
        EXPECT_EQ(facts.inputTitle, rows[i].inputTitle);
        EXPECT_EQ(facts.inputPlaceholder, rows[i].inputPlaceholder);
        EXPECT_EQ(facts.outputTitle, rows[i].outputTitle);
    }
    EXPECT_EQ(URLEncoderView::emptyPrompt, "Enter a valid URL to see its components");
    EXPECT_EQ(URLComponentsView::queryHeading, "Query Parameters");
}

} // namespace
} // namespace korvane
