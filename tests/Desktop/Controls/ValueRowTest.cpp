#include "Desktop/Controls/ValueRow.h"
#include "Desktop/Binding/Screen.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Layout/Card.h"
#include "Desktop/Layout/ScreenLayout.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Text/TextArea.h"
#include "Desktop/Tools/NumberBase/ValueCard.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QImage>

#include <memory>
#include <string>

namespace korvane {
namespace {

struct Result {
    std::string value = "short";
    bool isBest = false;

    void setBest(bool best) { isBest = best; }

    std::string note() const { return isBest ? "(best)" : ""; }

    bool operator==(const Result&) const = default;
};

QWidget* resultCard(Store& store, std::string title) {
    return valueCard(store, {.title = std::move(title),
                             .icon = "number",
                             .color = PaletteColor::purple,
                             .caption = "caption",
                             .note = &Result::note,
                             .value = &Result::value,
                             .isOutlined = &Result::isBest});
}

QWidget* resultRow(Store& store, std::string name) {
    return valueRow(store, {.label = tag(name, PaletteColor::green, true),
                            .name = name,
                            .value = &Result::value,
                            .height = 36,
                            .gap = 12});
}

QWidget* valueRowBody(Store& store) {
    return screen(
        store, toolHeader(Tool::numberBase),
        {
            grid(2, {.columnGap = 16, .rowGap = 16, .hasEvenRows = true},
                 {resultCard(store, "First"), resultCard(store, "Second"), resultCard(store, "Third")}),
            dividedRows({resultRow(store, "Fourth"), resultRow(store, "Fifth")}),
            stretch(),
        });
}

struct ValueRowTest : testing::Test {
    FakeServices fakes{};
    std::unique_ptr<Screen> frame{std::make_unique<Screen>(fakes.services, Result(), valueRowBody)};
    ScreenDriver screen{*frame, {620, 600}};

    QWidget& card(std::string_view title) const {
        return *screen.button("Copy " + std::string(title)).parentWidget()->parentWidget()->parentWidget();
    }

    void show(std::string value) {
        frame->store().perform([&](Result& state) { state.value = std::move(value); });
        for (int round = 0; round < 3; ++round) // a new height takes several layout passes
            settle();
    }
};

TEST_F(ValueRowTest, CopiesTheValueOfItsRowOrCard) {
    for (const auto* name : {"First", "Third", "Fourth", "Fifth"}) {
        EXPECT_EQ(screen.text(name), "short");
        fakes.clipboard.content.reset();
        screen.press("Copy " + std::string(name));
        EXPECT_EQ(fakes.clipboard.content, "short") << name;
    }
}

TEST_F(ValueRowTest, OutlinesACardWhileItsFlagIsSet) {
    EXPECT_FALSE(screen.shows("(best)"));
    const auto plain = card("First").grab().toImage();
    frame->store().perform([](Result& state) { state.setBest(true); });
    settle();
    EXPECT_TRUE(screen.shows("(best)"));
    const auto outlined = card("First").grab().toImage();
    const auto edge = [](const QImage& image) { return image.pixelColor(image.width() / 2, 0); };
    EXPECT_EQ(edge(outlined), Theme::hue(PaletteColor::purple));
    EXPECT_NE(edge(plain), edge(outlined));
}

TEST_F(ValueRowTest, CardsStayEquallyHighWhenAValueWraps) {
    const auto before = card("First").height();
    show(std::string(100, '1') + " " + std::string(100, '0'));
    EXPECT_GT(card("First").height(), before);
    EXPECT_EQ(card("First").height(), card("Third").height());
    EXPECT_GE(screen.editor("First").height(),
              screen.editor("First").heightForWidth(screen.editor("First").width()));
    show("short");
    EXPECT_EQ(card("First").height(), before);
    EXPECT_EQ(card("Third").height(), before);
}

TEST_F(ValueRowTest, ARowGrowsWithAWrappedValue) {
    const auto height = [this] { return screen.button("Copy Fourth").parentWidget()->height(); };
    EXPECT_EQ(height(), Theme::px(36));
    show(std::string(300, '1'));
    EXPECT_GE(height(), screen.editor("Fourth").heightForWidth(screen.editor("Fourth").width()));
    EXPECT_GT(height(), Theme::px(36));
}

} // namespace
} // namespace korvane
