/// The fixed parts of the design of each screen: title, glyph and colour of the action buttons, and fixed
/// sizes.

#include "Desktop/Binding/Strings.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Text/TextArea.h"
#include "Desktop/Tools/Screens.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace korvane {
namespace {

struct ButtonDesign {
    std::string title;
    std::string icon; ///< empty: none
    PaletteColor color;

    bool operator==(const ButtonDesign&) const = default;
};

void PrintTo(const ButtonDesign& button, std::ostream* out) {
    *out << button.title << ", " << button.icon << ", " << static_cast<int>(button.color);
}

/// All action buttons, visible or hidden, in the order of the screen.
std::vector<ButtonDesign> actionButtons(const QWidget& screen) {
    std::vector<ButtonDesign> found;
    for (const auto* child : screen.findChildren<QAbstractButton*>()) {
        if (const auto* button = dynamic_cast<const ActionButton*>(child))
            found.push_back({utf8String(button->text()), button->iconName(), button->color()});
    }
    return found;
}

TEST(Design, EveryActionButtonHasItsTitleGlyphAndColour) {
    struct Row {
        Tool tool;
        std::string segment; ///< chosen first, if any
        std::vector<ButtonDesign> buttons;
    };

    using enum PaletteColor;
    const std::vector<Row> rows = {
        {Tool::jsonFormatter,
         "",
         {{"Prettify", "wand.and.stars", cyan},
          {"Minify", "arrow.down.right.and.arrow.up.left", orange},
          {"Validate", "checkmark.seal", green}}},
        {Tool::base64, "", {{"Encode", "lock", orange}}},
        {Tool::base64, "Decode", {{"Decode", "lock.open", orange}}},
        {Tool::urlEncoder, "", {{"Encode", "link.badge.plus", blue}}},
        {Tool::urlEncoder, "Decode", {{"Decode", "link", blue}}},
        {Tool::urlEncoder, "Analyze URL", {{"Analyze URL", "magnifyingglass", blue}}},
        {Tool::jwtDecoder, "", {{"Decode", "lock.open", purple}}},
        {Tool::hashGenerator, "", {{"Generate All", "number", green}}},
        {Tool::uuidGenerator,
         "",
         {{"Generate New", "arrow.clockwise", pink}, {"Generate 5", "plus.square.on.square", indigo}}},
        {Tool::timestamp, "", {{"Convert to Date", "", yellow}}},
        {Tool::regexTester, "", {{"Test", "play.fill", red}}},
        {Tool::colorPicker, "", {}},
        {Tool::textDiff, "", {{"Compare", "arrow.left.arrow.right", mint}}},
        {Tool::textTransformer, "", {}},
        {Tool::numberBase, "", {}},
        {Tool::loremIpsum, "", {{"Generate", "", brown}}},
        {Tool::passwordGenerator,
         "",
         {{"Generate", "arrow.clockwise", red}, {"Generate 5", "plus.square.on.square", indigo}}},
        {Tool::markdownPreview, "", {}},
        {Tool::imageConverter, "", {{"Apply Transforms", "wand.and.stars", cyan}}},
    };
    for (const auto& row : rows) {
        FakeServices fakes;
        const std::unique_ptr<QWidget> widget(toolScreen(row.tool, fakes.services));
        const ScreenDriver screen(*widget);
        if (!row.segment.empty())
            screen.choose(row.segment);
        EXPECT_EQ(actionButtons(*widget), row.buttons) << rawValue(row.tool) << " " << row.segment;
    }
}

TEST(Design, AnActionButtonIsFilledWithItsColour) {
    for (const auto tool : allCases<Tool>) {
        FakeServices fakes;
        const std::unique_ptr<QWidget> widget(toolScreen(tool, fakes.services));
        const ScreenDriver screen(*widget);
        for (auto* child : widget->findChildren<QAbstractButton*>()) {
            auto* button = dynamic_cast<ActionButton*>(child);
            if (!button || !button->isVisible() || !button->isEnabled())
                continue;
            const auto picture = button->grab().toImage();
            EXPECT_EQ(picture.pixelColor(picture.width() / 2, 2), Theme::solid(button->color()))
                << rawValue(tool) << " " << utf8String(button->text());
        }
    }
}

enum class Kind { picker, stepper, tag, label, field, editor };

/// The visible parts of the given kind and name.
std::vector<const QWidget*> parts(const QWidget& screen, Kind kind, std::string_view name) {
    std::vector<const QWidget*> found;
    const auto expectedName = qString(name);
    for (const auto* child : screen.findChildren<QWidget*>()) {
        if (!child->isVisible())
            continue;
        const bool isNamed = child->accessibleName() == expectedName;
        const auto* label = qobject_cast<const QLabel*>(child);
        const bool isTag = label && label->accessibleName().isEmpty();
        if ((kind == Kind::picker && isNamed &&
             std::string_view(child->metaObject()->className()) == "QWidget") ||
            (kind == Kind::stepper && isNamed && qobject_cast<const QSpinBox*>(child)) ||
            (kind == Kind::tag && isTag && label->text() == expectedName) ||
            (kind == Kind::label && label && !isTag && label->text() == expectedName))
            found.push_back(child);
        else if ((kind == Kind::field && isNamed && qobject_cast<const QLineEdit*>(child)) ||
                 (kind == Kind::editor && isNamed && dynamic_cast<const TextArea*>(child)))
            found.push_back(child->parentWidget()); // the surface below it
    }
    return found;
}

TEST(Design, FixedSizesAreAsDesigned) {
    struct Row {
        Tool tool;
        Kind kind;
        std::string name;
        int width;      ///< in pixels at a 13-pixel body text; 0: any
        int height = 0; ///< like `width`
    };

    using enum Kind;
    const std::vector<Row> rows = {
        {Tool::base64, picker, "Mode", 200},
        {Tool::jwtDecoder, editor, "JWT Token", 0, 100},
        {Tool::hashGenerator, tag, "MD5", 70},
        {Tool::hashGenerator, tag, "SHA1", 70},
        {Tool::hashGenerator, tag, "SHA256", 70},
        {Tool::hashGenerator, tag, "SHA512", 70},
        {Tool::uuidGenerator, stepper, "Count", 120},
        {Tool::timestamp, picker, "Unit", 180},
        {Tool::colorPicker, tag, "HEX", 70},
        {Tool::colorPicker, tag, "RGB", 70},
        {Tool::colorPicker, tag, "RGBA", 70},
        {Tool::colorPicker, tag, "HSL", 70},
        {Tool::colorPicker, tag, "SwiftUI", 70},
        {Tool::colorPicker, tag, "UIKit", 70},
        {Tool::colorPicker, tag, "CSS Var", 70},
        {Tool::colorPicker, label, "R", 20},
        {Tool::colorPicker, label, "G", 20},
        {Tool::colorPicker, label, "B", 20},
        {Tool::colorPicker, label, "0", 35},
        {Tool::colorPicker, label, "200", 35},
        {Tool::colorPicker, label, "255", 35},
        {Tool::textDiff, picker, "View", 220},
        {Tool::textTransformer, picker, "Mode", 360},
        {Tool::numberBase, picker, "Source Base", 400},
        {Tool::loremIpsum, picker, "Type", 280},
        {Tool::loremIpsum, label, "Count: 3", 100},
        {Tool::passwordGenerator, stepper, "Count", 100},
        {Tool::imageConverter, field, "Width", 80},
        {Tool::imageConverter, field, "Height", 80},
    };
    for (const auto& row : rows) {
        FakeServices fakes;
        const std::unique_ptr<QWidget> widget(toolScreen(row.tool, fakes.services));
        const ScreenDriver screen(*widget, {1100, 900});
        const auto found = parts(*widget, row.kind, row.name);
        ASSERT_EQ(found.size(), 1U) << rawValue(row.tool) << " " << row.name;
        // A picker is wider where its titles need it.
        const auto needed = row.kind == picker ? found.front()->sizeHint().width() : 0;
        if (row.width > 0) {
            EXPECT_EQ(found.front()->width(), std::max(Theme::px(row.width), needed))
                << rawValue(row.tool) << " " << row.name;
        }
        if (row.height > 0) {
            EXPECT_EQ(found.front()->height(), Theme::px(row.height))
                << rawValue(row.tool) << " " << row.name;
        }
    }
}

} // namespace
} // namespace korvane
