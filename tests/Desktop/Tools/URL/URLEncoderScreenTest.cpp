#include "Desktop/Tools/Screens.h"

#include "Desktop/Look/Theme.h"
#include "Desktop/Text/TextArea.h"
#include "Desktop/Tools/URL/ComponentRows.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>

#include <memory>
#include <stdexcept>
#include <string>

namespace korvane {
namespace {

struct URLEncoderScreenTest : testing::Test {
    FakeServices fakes{};
    std::unique_ptr<QWidget> widget{urlEncoderScreen(fakes.services)};
    ScreenDriver screen{*widget};

    void analyze(std::string url) {
        screen.choose("Analyze URL");
        fakes.clipboard.content = std::move(url);
        screen.press("Paste");
        screen.press("Analyze URL");
        fakes.background.runAll();
    }
};

TEST_F(URLEncoderScreenTest, EncodesAndCopies) {
    EXPECT_EQ(screen.placeholder("Plain Text"), "Enter text to encode...");
    EXPECT_FALSE(screen.hasButton("Copy Encoded URL"));
    screen.type("Plain Text", "a b&c=d");
    screen.press("Encode");
    EXPECT_EQ(screen.text("Encoded URL"), "a%20b&c=d");
    screen.press("Copy Encoded URL");
    EXPECT_EQ(fakes.clipboard.content, "a%20b&c=d");
}

TEST_F(URLEncoderScreenTest, DecodesOrShowsAnError) {
    screen.choose("Decode");
    EXPECT_EQ(screen.placeholder("Encoded URL"), "Enter encoded URL...");
    screen.type("Encoded URL", "%E2%9C%93");
    screen.press("Decode");
    EXPECT_EQ(screen.text("Decoded Text"), "✓");
    screen.press("Clear");
    screen.type("Encoded URL", "100%");
    screen.press("Decode");
    EXPECT_TRUE(screen.shows("Could not decode URL"));
    EXPECT_EQ(screen.text("Decoded Text"), "✓");
}

TEST_F(URLEncoderScreenTest, ListsTheComponentsOfAURL) {
    screen.choose("Analyze URL");
    EXPECT_EQ(screen.placeholder("URL Input"), "Enter a URL to analyze...");
    EXPECT_TRUE(screen.shows("Enter a valid URL to see its components"));
    analyze("https://example.org:8080/a?x=1&y#end");
    EXPECT_FALSE(screen.shows("Enter a valid URL to see its components"));
    for (const auto label : {"Scheme", "https", "Host", "example.org", "Port", "8080", "Path", "/a",
                             "Query String", "x=1&y", "Fragment", "end", "Query Parameters", "x", "1", "y"})
        EXPECT_TRUE(screen.shows(label)) << label;
    screen.press("Copy Port");
    EXPECT_EQ(fakes.clipboard.content, "8080");
    screen.press("Copy x");
    EXPECT_EQ(fakes.clipboard.content, "1");
    EXPECT_EQ(screen.button("Copy y").text(), "Copy");
    screen.press("Copy y");
    EXPECT_EQ(fakes.clipboard.content, "");
    screen.type("URL Input", "x");
    EXPECT_TRUE(screen.shows("Enter a valid URL to see its components"));
    EXPECT_FALSE(screen.hasButton("Copy Port"));
}

TEST_F(URLEncoderScreenTest, OmitsAbsentComponents) {
    analyze("word");
    EXPECT_TRUE(screen.shows("Path"));
    for (const auto label : {"Scheme", "Host", "Port", "Query String", "Fragment", "Query Parameters"})
        EXPECT_FALSE(screen.shows(label)) << label;
    analyze("not a URL");
    EXPECT_TRUE(screen.shows("Invalid URL format"));
    EXPECT_FALSE(screen.shows("Path"));
}

TEST_F(URLEncoderScreenTest, ShowsTheErrorAndItsPosition) {
    analyze("https://example.org/{id}\n");
    EXPECT_TRUE(screen.shows("Invalid URL format"));
    EXPECT_TRUE(screen.shows("Unexpected \"{\" at character 21"));
    EXPECT_EQ(screen.announcement(), "Invalid URL format, Unexpected \"{\" at character 21");
    EXPECT_EQ(screen.text("URL Input"), "https://example.org/{id}\n");
}

TEST_F(URLEncoderScreenTest, MarksEmptyValues) {
    analyze("?without");
    EXPECT_FALSE(screen.shows("(empty)"));
    analyze("?empty=");
    EXPECT_TRUE(screen.shows("(empty)"));
    analyze("file:///p");
    EXPECT_TRUE(screen.shows("(empty)")) << "the host";
    screen.press("Copy Host");
    EXPECT_EQ(fakes.clipboard.content, "");
}

TEST_F(URLEncoderScreenTest, NamesOfParametersAreNotCutOffUpToHalfTheWidth) {
    const auto nameLabel = [this](const std::string& name) {
        for (auto* label : widget->findChildren<QLabel*>()) {
            if (label->text().toStdString() == name && label->isVisible())
                return label;
        }
        throw std::runtime_error("there is no name " + name);
    };
    widget->resize(Theme::px(900), 750);
    settle();
    analyze("?a=1&a_rather_long_name_of_a_parameter=2");
    const auto* longLabel = nameLabel("a_rather_long_name_of_a_parameter");
    EXPECT_GE(longLabel->width(), longLabel->sizeHint().width());
    EXPECT_EQ(nameLabel("a")->width(), longLabel->width()) << "the values line up";
    analyze("?a=1&" + std::string(500, 'n') + "=value");
    longLabel = nameLabel(std::string(500, 'n'));
    EXPECT_LT(longLabel->width(), widget->width() / 2) << "the value needs space, too";
    EXPECT_EQ(longLabel->toolTip(), longLabel->text());
    widget->resize(Theme::px(620), 750);
    settle();
    EXPECT_EQ(widget->width(), Theme::px(620));
    EXPECT_LT(longLabel->width(), widget->width() / 2);
}

TEST_F(URLEncoderScreenTest, KeepsInputAndOutputWhenTheModeChanges) {
    screen.type("Plain Text", "a b");
    screen.press("Encode");
    screen.choose("Analyze URL");
    EXPECT_EQ(screen.text("URL Input"), "a b");
    EXPECT_FALSE(screen.hasEditor("Plain Text"));
    screen.choose("Decode");
    EXPECT_EQ(screen.text("Encoded URL"), "a b");
    EXPECT_EQ(screen.text("Decoded Text"), "a%20b");
}

TEST_F(URLEncoderScreenTest, TheFocusStaysInTheInputWhenTheModeChanges) {
    screen.editor("Plain Text").setFocus();
    screen.choose("Analyze URL");
    EXPECT_EQ(widget->focusWidget(), &screen.editor("URL Input"));
    screen.choose("Decode");
    EXPECT_EQ(widget->focusWidget(), &screen.editor("Encoded URL"));
    screen.button("Paste").setFocus();
    screen.choose("Analyze URL");
    EXPECT_EQ(widget->focusWidget(), &screen.button("Paste")) << "a control that stays keeps the focus";
}

TEST_F(URLEncoderScreenTest, CopyButtonsHideTheirLabelsInANarrowScreen) {
    widget->resize(Theme::px(620), 750);
    settle();
    analyze("?x=1");
    auto& copy = screen.button("Copy x");
    EXPECT_EQ(copy.width(), Theme::px(Theme::Size::quietCompact));
    widget->resize(Theme::px(820), 750);
    settle();
    EXPECT_GT(copy.width(), Theme::px(Theme::Size::quietCompact));
}

TEST_F(URLEncoderScreenTest, ShowsAndCopiesManyAndLongParameters) {
    std::string url = "?";
    for (std::size_t i = 0; i < maxComponentRows + 7; ++i)
        url += "p" + std::to_string(i) + "=v&";
    url += "long=" + std::string(1'000'000, 'x');
    analyze(url);
    EXPECT_TRUE(screen.hasButton("Copy p" + std::to_string(maxComponentRows - 1)));
    EXPECT_FALSE(screen.hasButton("Copy p" + std::to_string(maxComponentRows)));
    EXPECT_TRUE(screen.shows("and 8 more"));
    analyze("x:" + std::string(1'000'000, 'y') + "%0Az");
    screen.press("Copy Path");
    EXPECT_EQ(fakes.clipboard.content, std::string(1'000'000, 'y') + "\nz");
    analyze("x:a%0Ab");
    EXPECT_TRUE(screen.shows("a b")) << "on one line";
}

} // namespace
} // namespace korvane
