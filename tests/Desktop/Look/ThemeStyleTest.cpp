/// Menus and dialogs look like the main window, including those that Qt creates.

#include "Desktop/Look/Theme.h"
#include "Desktop/Window/MainWindow.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QtTest/QTest>

#include <functional>
#include <memory>
#include <vector>

namespace korvane {
namespace {

using Theme::Role;
using Theme::Size;

struct ThemeStyleTest : testing::Test {
    FakeServices fakes{};
    MainWindow window{fakes.services};
    ScreenDriver screen{window};

    ~ThemeStyleTest() override { window.showScheme(Theme::Scheme::light); }

    /// Opens `menu`, a menu of a kind that the program has.
    std::unique_ptr<QMenu> opened(QMenu* menu) {
        menu->setParent(&window, menu->windowFlags());
        menu->popup({40, 40});
        settle();
        return std::unique_ptr<QMenu>(menu);
    }

    std::vector<std::function<QMenu*()>> makers() {
        return {[this] {
                    auto* menu = new QMenu(&window);
                    menu->addAction(QStringLiteral("Copy"), QKeySequence(QKeySequence::Copy), [] {});
                    return menu;
                },
                [this] { return window.findChild<QLineEdit*>()->createStandardContextMenu(); },
                [this] { return (new QPlainTextEdit(&window))->createStandardContextMenu(); }};
    }
};

TEST_F(ThemeStyleTest, AllMenusHaveTheColorsOfTheWindow) {
    for (const auto scheme : {Theme::Scheme::light, Theme::Scheme::dark}) {
        window.showScheme(scheme);
        for (const auto& make : makers()) {
            const auto menu = opened(make());
            const auto picture = menu->grab().toImage();
            const auto inset = Theme::px(Size::menuInset) - 2;
            EXPECT_EQ(picture.pixelColor(inset, picture.height() / 2), Theme::color(Role::popupBackground));
            menu->setActiveAction(menu->actions().back());
            const auto chosen = menu->actionGeometry(menu->actions().back());
            EXPECT_EQ(menu->grab().toImage().pixelColor(chosen.left() + 2, chosen.center().y()),
                      menu->actions().back()->isEnabled() ? Theme::color(Role::accent)
                                                          : Theme::color(Role::popupBackground));
        }
    }
}

TEST_F(ThemeStyleTest, MenusAreMaskedToTheirRoundedShape) {
    for (const auto& make : makers()) {
        const auto menu = opened(make());
        const auto shape = menu->mask();
        EXPECT_FALSE(shape.contains(QPoint(0, 0)));
        EXPECT_FALSE(shape.contains(menu->rect().bottomRight()));
        EXPECT_TRUE(shape.contains(QPoint(menu->width() / 2, 0)));
        EXPECT_TRUE(shape.contains(QPoint(0, menu->height() / 2)));
        EXPECT_EQ(shape.boundingRect(), menu->rect());
    }
}

TEST_F(ThemeStyleTest, AMenuHasSpaceForTitleTickAndShortcut) {
    QMenu plain(&window);
    auto* copy = plain.addAction(QStringLiteral("A title that is longer than the minimum width of a menu"));
    const auto width = [&] {
        plain.ensurePolished();
        return plain.sizeHint().width();
    };
    const auto titleOnly = width();
    EXPECT_EQ(plain.actionGeometry(copy).height(), Theme::px(Size::menuRow));
    copy->setShortcut(QKeySequence(QKeySequence::Copy));
    const auto keys = QFontMetrics(plain.font()).horizontalAdvance(QStringLiteral("Ctrl+C"));
    const auto withKeys = width();
    EXPECT_GE(withKeys, titleOnly + Theme::px(Size::menuShortcutGap) + keys);
    copy->setCheckable(true);
    EXPECT_EQ(width(), withKeys + Theme::px(Size::menuTick) + Theme::px(Size::menuTickGap));
}

TEST_F(ThemeStyleTest, DialogsHaveTheColorsOfTheWindow) {
    QFileDialog dialog(&window);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    for (const auto scheme : {Theme::Scheme::dark, Theme::Scheme::light}) {
        window.showScheme(scheme);
        dialog.ensurePolished();
        EXPECT_EQ(dialog.palette().color(QPalette::Base), Theme::color(Role::windowBackground));
        EXPECT_EQ(dialog.palette().color(QPalette::Text), Theme::color(Role::primary));
        EXPECT_NE(dialog.palette().color(QPalette::Disabled, QPalette::Text),
                  dialog.palette().color(QPalette::Text));
    }
}

} // namespace
} // namespace korvane
