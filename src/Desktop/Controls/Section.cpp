#include "Desktop/Controls/Section.h"

#include "Desktop/Access/Accessibility.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Theme.h"

namespace korvane {

using Theme::Size;

namespace {

constexpr int headingGlyph = 12;

QWidget* sectionHeading(Store& store, const Reader<std::string>& title, const Reader<std::string>& icon) {
    auto* glyph = new GlyphLabel({}, headingGlyph, Theme::Role::secondary);
    auto* label = new Label({}, Theme::TextStyle::heading, Theme::Role::secondary);
    auto* line = stack(Qt::Horizontal, {.spacing = Size::gapBadge}, {glyph, label, stretch()});
    store.onRefresh([glyph, label, title = title.of(store), icon = icon.of(store)] {
        const auto text = qString(title());
        label->display(utf8String(text.toUpper()));
        setAccessibleName(*label, text);
        const auto name = icon();
        glyph->setName(name);
        glyph->setVisible(!name.empty());
    });
    return line;
}

} // namespace

QWidget* section(Store& store, const Reader<std::string>& title, const Reader<std::string>& icon,
                 QWidget* content, QWidget* trailing) {
    store.onRefresh([content, title = title.of(store)] { giveName(*content, title()); });
    auto* heading = sectionHeading(store, title, icon);
    return stack(Qt::Vertical, {.spacing = Size::gapHeading},
                 {trailing ? row({heading, trailing}) : heading, content});
}

} // namespace korvane
