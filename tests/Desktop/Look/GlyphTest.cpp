#include "Desktop/Look/Glyph.h"

#include "Desktop/Window/MainWindow.h"
#include "Views/Components/StatusBadge.h"
#include "Views/Tools/JSONFormatterView.h"
#include "support/FakeServices.h"
#include "support/Scenes.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

namespace korvane {
namespace {

/// Counts the warnings of Qt during its lifetime; they fail no test meanwhile.
class WarningCounter {
public:
    WarningCounter() {
        count = 0;
        m_before =
            qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) { ++count; });
    }

    ~WarningCounter() { qInstallMessageHandler(m_before); }

    WarningCounter(const WarningCounter&) = delete;
    WarningCounter& operator=(const WarningCounter&) = delete;

    static inline int count = 0;

private:
    QtMessageHandler m_before = nullptr;
};

QImage painted(std::string_view glyph) {
    QImage image(16, 16, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    Glyph::paint(painter, glyph, image.rect(), Qt::black);
    return image;
}

TEST(Glyph, WarnsAboutAnUnknownName) {
    const WarningCounter warnings;
    EXPECT_NE(painted("number"), painted(""));
    EXPECT_EQ(WarningCounter::count, 0);
    EXPECT_EQ(painted("no such glyph"), painted(""));
    EXPECT_EQ(WarningCounter::count, 1);
    painted("no such glyph");
    EXPECT_EQ(WarningCounter::count, 2) << "it warns at every painting, so that every such test fails";
}

TEST(Glyph, HasAnIconForEveryStatusAndJSONType) {
    for (const auto status : allCases<Status>)
        EXPECT_TRUE(Glyph::exists(icon(status))) << icon(status);
    for (const auto type : allCases<JSONValueType>)
        EXPECT_TRUE(Glyph::exists(icon(type))) << icon(type);
    EXPECT_FALSE(Glyph::exists("no such glyph"));
}

/// An unknown glyph causes a warning, which fails the test.
TEST(Glyph, HasAnIconForRarelyShownGlyphs) {
    FakeServices fakes;
    MainWindow window(fakes.services);
    const ScreenDriver screen(window, {1100, 900});
    window.store().perform(&ContentView::select, Tool::uuidGenerator);
    screen.press("Copy UUID");
    screen.enter("Search tools...", "json");
    screen.press("Maximize");
    EXPECT_TRUE(screen.hasButton("Copied! UUID"));
    EXPECT_TRUE(screen.hasButton("Clear search"));
    EXPECT_TRUE(window.isMaximized());
    EXPECT_FALSE(window.grab().isNull());
}

struct GlyphSceneTest : testing::TestWithParam<Scene> {};

TEST_P(GlyphSceneTest, EveryGlyphHasAnIcon) {
    FakeServices fakes;
    MainWindow window(fakes.services);
    window.store().perform([](ContentView& state) { state.selectedTool = GetParam().tool; });
    const ScreenDriver screen(window, {1100, 2400}); // high enough that nothing scrolls
    GetParam().play(screen, fakes);
    settle();
    EXPECT_FALSE(window.grab().isNull());
}

INSTANTIATE_TEST_SUITE_P(AllScenes, GlyphSceneTest, testing::ValuesIn(allScenes()), [](const auto& scene) {
    auto name = scene.param.name;
    std::erase(name, '-');
    return name;
});

} // namespace
} // namespace korvane
