#include "Desktop/Access/TabStops.h"
#include "Desktop/Binding/Screen.h"
#include "Desktop/Controls/BusyLabel.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Controls/Section.h"
#include "Desktop/Controls/Slider.h"
#include "Desktop/Controls/Toggle.h"
#include "Desktop/Layout/Alternatives.h"
#include "Desktop/Layout/Card.h"
#include "Desktop/Layout/Overlay.h"
#include "Desktop/Layout/ScreenLayout.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Tools/Image/DropTarget.h"
#include "Desktop/Tools/Image/FactGrid.h"
#include "Desktop/Tools/Image/IntegerField.h"
#include "Desktop/Tools/Image/MenuPicker.h"
#include "Desktop/Tools/Image/Picture.h"
#include "Desktop/Tools/Image/SecondaryButton.h"
#include "Desktop/Tools/Screens.h"
#include "Views/Tools/ImageConverterView.h"

namespace korvane {

namespace {

/// The opacity of the drop zone's glyph.
constexpr double dropGlyphOpacity = 0.8;

// Sizes are in pixels at a 13-pixel body text.
constexpr int dropGlyphSize = 40;

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

using State = ImageConverterView;

constexpr int sourceHeight = 300;
constexpr int optionsWidth = 316;
constexpr int formatWidth = 88;
constexpr int percentWidth = 34;
constexpr int sizeFieldWidth = 80;
constexpr int rotationWidth = 82;
constexpr int flipWidth = 110;
constexpr int noteGlyph = 12;

QWidget* dropGlyph(Role color) {
    return centered(new GlyphLabel("photo.badge.plus", dropGlyphSize, color, dropGlyphOpacity));
}

QWidget* emptySource(Store& store) {
    return dropZone(
        store, &State::isDropTargeted,
        {stretch(),
         either(store, &State::isDropTargeted, dropGlyph(Role::accent), dropGlyph(Role::secondary)),
         centered(textLabel(store, "Drop an image here", TextStyle::headline), Size::gapList),
         centered(textLabel(store, "or", TextStyle::subheadline, Role::secondary)),
         centered(secondaryButton(store, "Choose File", "", &State::openFilePicker, {.isProminent = true})),
         centered(textLabel(store, "Supports: PNG, JPEG, TIFF, GIF, BMP, HEIC", TextStyle::caption,
                            Role::secondary),
                  Size::gapList),
         stretch()});
}

QWidget* loadedSource(Store& store) {
    return card({.padding = {Size::gapControl, Size::gapControl, Size::gapControl, Size::gapControl},
                 .radius = Size::radiusMedium},
                {overlay(picture(store, "Source Image", &State::sourcePreview),
                         excludeFromFocusHandover(
                             quietButton(store, "Remove", "trash", &State::remove, {.isOverlay = true})))});
}

QWidget* factsOfImage(Store& store) {
    return factGrid(store, 3,
                    {{"Dimensions", &State::dimensionsText},
                     {"Format", &State::formatText},
                     {"File Size", &State::fileSizeText},
                     {"Color Space", &State::colorSpaceText},
                     {"Alpha", &State::alphaText},
                     {"DPI", &State::resolutionText}});
}

QWidget* source(Store& store) {
    return section(
        store, "Source Image", "",
        stack(Qt::Vertical, {.spacing = Size::gapHeader},
              {dropTarget(store, &State::setDropTargeted, &State::handleDrop,
                          withHeight(sourceHeight, either(store, &State::hasSource, loadedSource(store),
                                                          emptySource(store)))),
               when(store, &State::hasSource, factsOfImage(store)),
               when(store, &State::isFirstOfMany, caption(store, &State::firstOfManyText)), stretch()}));
}

QWidget* quality(Store& store) {
    return stack(
        Qt::Horizontal, {.padding = {Size::gapControl, 0, 0, 0}},
        {textLabel(store, "Quality:", TextStyle::body, Role::secondary),
         textLabel(store, &State::qualityText, TextStyle::body, Role::primary, {.width = percentWidth}),
         slider(store, "Quality", &State::quality, &State::setQuality,
                {.minimum = 0.1, .maximum = 1, .color = PaletteColor::cyan})});
}

QWidget* outputFormat(Store& store) {
    return row({menuPicker(store, "Format", &State::targetFormat, &State::setTargetFormat, formatWidth,
                           &State::missingEncoder),
                growing(either(store, &State::showsQuality, quality(store), row({stretch()})))});
}

QWidget* resize(Store& store) {
    return stack(
        Qt::Vertical, {},
        {row({textLabel(store, "Width", TextStyle::body, Role::secondary),
              integerField(store, "Width", &State::resizeWidth, &State::setResizeWidth, sizeFieldWidth),
              textLabel(store, "×", TextStyle::body, Role::secondary),
              textLabel(store, "Height", TextStyle::body, Role::secondary),
              integerField(store, "Height", &State::resizeHeight, &State::setResizeHeight, sizeFieldWidth),
              stretch()}),
         toggle(store, "Maintain aspect ratio", &State::maintainAspectRatio, &State::setMaintainAspectRatio,
                {.look = ToggleLook::trailSwitch})});
}

QWidget* transform(Store& store) {
    return row({textLabel(store, "Rotate:", TextStyle::body, Role::secondary),
                menuPicker(store, "Rotation", &State::rotation, &State::setRotation, rotationWidth),
                stretch(), textLabel(store, "Flip:", TextStyle::body, Role::secondary),
                menuPicker(store, "Flip", &State::flipDirection, &State::setFlipDirection, flipWidth)});
}

QWidget* unappliedNote(Store& store) {
    return stack(Qt::Horizontal, {.spacing = Size::gapBadge},
                 {stretch(), new GlyphLabel(icon(Status::warning), noteGlyph, PaletteColor::orange),
                  announcing(store, &State::unappliedChangesText,
                             textLabel(store, &State::unappliedChangesText, TextStyle::quiet,
                                       PaletteColor::orange, {.lineCount = 2})),
                  stretch()});
}

QWidget* actions(Store& store) {
    auto* apply = actionButton(store, "Apply Transforms", "wand.and.stars", PaletteColor::cyan,
                               &State::applyTransforms, &State::cannotApply);
    return stack(Qt::Vertical, {},
                 {withHeight(Size::actionHeight,
                             stack(Qt::Horizontal, {.equalShares = true},
                                   {growing(described(store, &State::unappliedChangesText, apply)),
                                    when(store, &State::hasUnappliedChanges, unappliedNote(store))})),
                  stack(Qt::Horizontal, {.equalShares = true},
                        {secondaryButton(store, "Save As...", "square.and.arrow.down", &State::saveImage,
                                         {.isProminent = true, .isDisabled = &State::cannotSave}),
                         secondaryButton(store, "Reset", "arrow.counterclockwise", &State::reset)}),
                  when(store, &State::isLoading, busyLabel("Loading…")),
                  when(store, &State::isApplying, busyLabel("Applying…")),
                  when(store, &State::isSaving, busyLabel("Saving…"))});
}

QWidget* options(Store& store) {
    return withWidth(optionsWidth, stack(Qt::Vertical, {.spacing = Size::gapSectionWide},
                                         {section(store, "Output Format", "", outputFormat(store)),
                                          section(store, "Resize", "", resize(store)),
                                          section(store, "Transform", "", transform(store)), actions(store),
                                          statusBadge(store, &State::savedBadge), stretch()}));
}

QWidget* processed(Store& store) {
    return section(store, "Processed Preview", "",
                   growing(either(store, &State::hasProcessed,
                                  picture(store, "Processed Preview", &State::processedPreview, true),
                                  picturePlaceholder("Apply transformations to see preview"))),
                   caption(store, &State::processedDimensionsText));
}

QWidget* body(Store& store) {
    return screen(
        store, toolHeader(Tool::imageConverter),
        {rigidHeight(stack(Qt::Horizontal, {.spacing = Size::gapSection}, {source(store), options(store)})),
         growing(processed(store)), errorMessage(store, &State::errorMessage)});
}

} // namespace

QWidget* imageConverterScreen(Services& services) {
    return makeScreen<ImageConverterView>(services, body, &ImageConverterView::appear);
}

} // namespace korvane
