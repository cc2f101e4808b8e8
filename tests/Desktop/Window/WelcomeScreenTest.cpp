#include "Desktop/Window/WelcomeScreen.h"

#include "Desktop/Binding/Strings.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Look/Theme.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QImage>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {
namespace {

struct WelcomeScreenTest : testing::Test {
    std::unique_ptr<QWidget> widget{welcomeScreen()};
    ScreenDriver screen{*widget};

    QLabel& label(std::string_view text) const {
        for (auto* label : widget->findChildren<QLabel*>()) {
            if (label->text() == qString(text))
                return *label;
        }
        throw std::runtime_error("no label has the text " + std::string(text));
    }

    static std::vector<GlyphLabel*> glyphs(const QWidget& parent) {
        std::vector<GlyphLabel*> found;
        for (auto* child : parent.findChildren<QWidget*>()) {
            if (auto* glyph = dynamic_cast<GlyphLabel*>(child))
                found.push_back(glyph);
        }
        return found;
    }

    /// The painting of `widget` without its background and its children.
    static QImage picture(QWidget& widget) {
        QImage image(widget.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        widget.render(&image, {}, {}, QWidget::RenderFlags());
        return image;
    }

    static QImage glyphPicture(std::string_view name, int size, GlyphLabel::Color color) {
        GlyphLabel glyph(name, size, color);
        return picture(glyph);
    }
};

TEST_F(WelcomeScreenTest, ShowsItsTextsAndGlyph) {
    EXPECT_TRUE(screen.shows("Korvane"));
    EXPECT_TRUE(screen.shows("Select a tool from the sidebar to get started"));
    EXPECT_EQ(picture(*glyphs(*widget).front()), glyphPicture("hammer.fill", 64, GlyphLabel::Brand()));
}

TEST_F(WelcomeScreenTest, ShowsFourToolsSideBySideWithoutButtons) {
    struct Tile {
        std::string_view name;
        std::string_view icon;
        PaletteColor color;
    };

    constexpr Tile tiles[] = {
        {"JSON Formatter", "curlybraces", PaletteColor::cyan},
        {"Base64", "doc.text", PaletteColor::orange},
        {"URL Encoder", "link", PaletteColor::blue},
        {"Hash Generator", "number", PaletteColor::green},
    };
    constexpr int glyphSize = 20;
    int end = 0;
    for (const auto& tile : tiles) {
        const auto& surface = *label(tile.name).parentWidget();
        const auto left = surface.mapTo(widget.get(), QPoint()).x();
        if (end > 0) {
            EXPECT_EQ(left - end, Theme::px(16)) << tile.name;
        }
        end = left + surface.width();
        const auto icons = glyphs(surface);
        ASSERT_EQ(icons.size(), 1U) << tile.name;
        EXPECT_EQ(picture(*icons.front()), glyphPicture(tile.icon, glyphSize, tile.color)) << tile.name;
    }
    EXPECT_TRUE(widget->findChildren<QAbstractButton*>().isEmpty());
}

} // namespace
} // namespace korvane
