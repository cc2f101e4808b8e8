#include "Desktop/Tools/Screens.h"

#include "Desktop/Look/Theme.h"
#include "Desktop/Text/TextArea.h"
#include "Utilities/DateText.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <memory>

namespace korvane {
namespace {

struct JWTDecoderScreenTest : testing::Test {
    FakeServices fakes{};
    std::unique_ptr<QWidget> widget{jwtDecoderScreen(fakes.services)};
    ScreenDriver screen{*widget};

    void decode(std::string_view token) {
        fakes.clipboard.content = token;
        screen.press("Paste");
        screen.press("Decode");
    }
};

constexpr std::string_view token = "eyJhbGciOiJub25lIn0.eyJleHAiOjE3OTUyNTE2MDB9.c2ln"; // exp 1795251600

TEST_F(JWTDecoderScreenTest, ShowsThePartsOfAToken) {
    EXPECT_EQ(screen.placeholder("JWT Token"), "Paste your JWT token here (eyJhbG...)");
    EXPECT_EQ(screen.placeholder("Header"), "Decode to see header");
    EXPECT_EQ(screen.placeholder("Payload"), "Decode to see payload");
    EXPECT_EQ(screen.placeholder("Signature"), "Decode to see signature");
    EXPECT_FALSE(screen.hasButton("Copy Header"));
    decode(token);
    EXPECT_EQ(screen.text("Header"), "{\n  \"alg\" : \"none\"\n}");
    EXPECT_EQ(screen.text("Payload"), "{\n  \"exp\" : 1795251600\n}");
    EXPECT_EQ(screen.text("Signature"), "c2ln");
    EXPECT_TRUE(screen.shows("Token Valid"));
    EXPECT_TRUE(screen.shows("Expires: " + *DateText::mediumDateAndTime(1795251600)));
}

TEST_F(JWTDecoderScreenTest, ShowsThatATokenHasExpired) {
    fakes.clock.moment = std::chrono::system_clock::time_point(std::chrono::seconds(1795251601));
    decode(token);
    EXPECT_TRUE(screen.shows("Token Expired"));
    EXPECT_FALSE(screen.shows("Token Valid"));
}

TEST_F(JWTDecoderScreenTest, HintsWhatToRemoveFromAToken) {
    decode("Bearer " + std::string(token));
    EXPECT_TRUE(screen.shows("Could not decode header"));
    EXPECT_TRUE(screen.shows("Remove \"Bearer \" from the start"));
    EXPECT_EQ(screen.announcement(), "Could not decode header, Remove \"Bearer \" from the start");
}

TEST_F(JWTDecoderScreenTest, GivesThePayloadTheWidestColumn) {
    decode(token);
    const auto header = screen.editor("Header").width();
    EXPECT_GT(screen.editor("Payload").width(), header);
    EXPECT_LT(screen.editor("Signature").width(), header);
}

TEST_F(JWTDecoderScreenTest, OffersCopyOnlyForNonemptyPanels) {
    decode("e30.e30.");
    EXPECT_TRUE(screen.hasButton("Copy Header"));
    EXPECT_TRUE(screen.hasButton("Copy Payload"));
    EXPECT_FALSE(screen.hasButton("Copy Signature"));
    EXPECT_EQ(screen.text("Signature"), "");
    EXPECT_FALSE(screen.shows("Token Valid"));
    decode("e30.?.");
    EXPECT_TRUE(screen.shows("Could not decode payload"));
    screen.press("Copy Header");
    EXPECT_EQ(fakes.clipboard.content, "{}");
}

TEST_F(JWTDecoderScreenTest, ChangingTheTokenEmptiesThePanels) {
    decode(token);
    screen.type("JWT Token", "x");
    for (const auto panel : {"Header", "Payload", "Signature"})
        EXPECT_EQ(screen.text(panel), "") << panel;
    EXPECT_FALSE(screen.shows("Token Valid"));
    screen.press("Clear");
    screen.press("Decode");
    EXPECT_FALSE(screen.shows("Invalid JWT format. Expected 3 parts separated by dots."));
    decode("e30");
    EXPECT_TRUE(screen.shows("Invalid JWT format. Expected 3 parts separated by dots."));
}

TEST_F(JWTDecoderScreenTest, ThePanelsGetTheRemainingHeight) {
    const auto height = [this](std::string_view panel) {
        return screen.editor(panel).parentWidget()->height();
    };
    for (const int screenHeight : {500, 700, 900}) {
        widget->resize(820, Theme::px(screenHeight));
        settle();
        EXPECT_EQ(height("JWT Token"), Theme::px(100));
        EXPECT_GE(height("Header"), Theme::px(screenHeight - 380));
        EXPECT_EQ(height("Header"), height("Signature"));
    }
}

} // namespace
} // namespace korvane
