#include "Desktop/Kit/BusyLabel.h"
#include "Desktop/Kit/DropTarget.h"
#include "Desktop/Kit/FactGrid.h"
#include "Desktop/Kit/ImageView.h"
#include "Desktop/Kit/IntegerField.h"
#include "Desktop/Kit/MenuPicker.h"
#include "Desktop/Kit/Screen.h"
#include "Desktop/Kit/SecondaryButton.h"
#include "Desktop/Kit/TabStops.h"
#include "Desktop/Tools/Screens.h"
#include "Views/Tools/ImageConverterView.h"

namespace korvane {

namespace {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

using Screen = View<ImageConverterView>;
using State = ImageConverterView;

constexpr int sourceHeight = 300;
constexpr int optionsWidth = 316;
constexpr int formatWidth = 88;
constexpr int percentWidth = 34;
constexpr int sizeFieldWidth = 80;
constexpr int rotationWidth = 82;
constexpr int flipWidth = 110;
constexpr int noteGlyph = 12;

/// `widget` in the middle, below some room of its own.
QWidget* centred(QWidget* widget, int room = 0) {
    return stack(Qt::Horizontal, {.padding = {0, room, 0, 0}}, {stretch(), widget, stretch()});
}

QWidget* dropGlyph(Role color) {
    return centred(new GlyphLabel("photo.badge.plus", Size::dropGlyph, color, Theme::dropGlyphOpacity));
}

QWidget* emptySource(Screen& view) {
    return dropZone(
        view, view.reading<bool>(&State::isDropTargeted),
        {stretch(), view.either(&State::isDropTargeted, dropGlyph(Role::accent), dropGlyph(Role::secondary)),
         centred(view.label("Drop an image here", TextStyle::headline), Size::gapList),
         centred(view.label("or", TextStyle::subheadline, Role::secondary)),
         centred(secondaryButton(view, {.title = "Choose File",
                                        .isProminent = true,
                                        .action = view.performing(&State::openFilePicker)})),
         centred(view.label("Supports: PNG, JPEG, TIFF, GIF, BMP, HEIC", TextStyle::caption, Role::secondary),
                 Size::gapList),
         stretch()});
}

QWidget* loadedSource(Screen& view) {
    return card(
        {.padding = {Size::gapControl, Size::gapControl, Size::gapControl, Size::gapControl},
         .radius = Size::radiusMedium},
        {overlay(imageView(view, {.name = "Source Image",
                                  .image = view.reading<std::optional<Image>>(&State::sourcePreview)}),
                 neverSucceeding(view.quietButton("Remove", "trash", &State::remove, {.isOverlay = true})))});
}

QWidget* factsOfImage(Screen& view) {
    const auto text = [&](std::string (State::*read)() const) { return view.reading<std::string>(read); };
    return factGrid(view, 3,
                    {{"Dimensions", text(&State::dimensionsText)},
                     {"Format", text(&State::formatText)},
                     {"File Size", text(&State::fileSizeText)},
                     {"Color Space", text(&State::colorSpaceText)},
                     {"Alpha", text(&State::alphaText)},
                     {"DPI", text(&State::resolutionText)}});
}

QWidget* source(Screen& view) {
    const auto setTargeted = view.setting<bool>(&State::setDropTargeted);
    const auto drop = view.setting<DroppedItems>(&State::handleDrop);
    return view.section(
        "Source Image", "",
        stack(Qt::Vertical, {.spacing = Size::gapHeader},
              {dropTarget({.setTargeted = setTargeted, .drop = drop},
                          withHeight(sourceHeight,
                                     view.either(&State::hasSource, loadedSource(view), emptySource(view)))),
               view.when(&State::hasSource, factsOfImage(view)),
               view.when(&State::isFirstOfMany, view.caption(&State::firstOfManyText)), stretch()}));
}

QWidget* quality(Screen& view) {
    return stack(Qt::Horizontal, {.padding = {Size::gapControl, 0, 0, 0}},
                 {view.label("Quality:", TextStyle::body, Role::secondary),
                  view.label(&State::qualityText, TextStyle::body, Role::primary, {.width = percentWidth}),
                  view.slider("Quality", &State::quality, &State::setQuality,
                              {.minimum = 0.1, .maximum = 1, .color = PaletteColor::cyan})});
}

QWidget* outputFormat(Screen& view) {
    return row({menuPicker(view, "Format", &State::targetFormat, &State::setTargetFormat, formatWidth,
                           &State::missingEncoder),
                growing(view.either(&State::showsQuality, quality(view), row({stretch()})))});
}

QWidget* sizeField(Screen& view, std::string name, int State::* value, void (State::*setValue)(int)) {
    return integerField(view, {.name = std::move(name),
                               .value = view.reading<int>(value),
                               .setValue = view.setting<int>(setValue),
                               .width = sizeFieldWidth});
}

QWidget* resize(Screen& view) {
    return stack(Qt::Vertical, {},
                 {row({view.label("Width", TextStyle::body, Role::secondary),
                       sizeField(view, "Width", &State::resizeWidth, &State::setResizeWidth),
                       view.label("×", TextStyle::body, Role::secondary),
                       view.label("Height", TextStyle::body, Role::secondary),
                       sizeField(view, "Height", &State::resizeHeight, &State::setResizeHeight), stretch()}),
                  view.toggle("Maintain aspect ratio", &State::maintainAspectRatio,
                              &State::setMaintainAspectRatio, {.look = ToggleLook::trailSwitch})});
}

QWidget* transform(Screen& view) {
    return row({view.label("Rotate:", TextStyle::body, Role::secondary),
                menuPicker(view, "Rotation", &State::rotation, &State::setRotation, rotationWidth), stretch(),
                view.label("Flip:", TextStyle::body, Role::secondary),
                menuPicker(view, "Flip", &State::flipDirection, &State::setFlipDirection, flipWidth)});
}

QWidget* unappliedNote(Screen& view) {
    return stack(Qt::Horizontal, {.spacing = Size::gapBadge},
                 {stretch(), new GlyphLabel(icon(Status::warning), noteGlyph, PaletteColor::orange),
                  view.announcing(&State::unappliedChangesText,
                                  view.label(&State::unappliedChangesText, TextStyle::quiet,
                                             PaletteColor::orange, {.lineCount = 2})),
                  stretch()});
}

QWidget* actions(Screen& view) {
    auto* apply = view.actionButton("Apply Transforms", "wand.and.stars", PaletteColor::cyan,
                                    &State::applyTransforms, &State::cannotApply);
    return stack(
        Qt::Vertical, {},
        {withHeight(Size::actionHeight, stack(Qt::Horizontal, {.equalShares = true},
                                              {growing(view.described(&State::unappliedChangesText, apply)),
                                               view.when(&State::hasUnappliedChanges, unappliedNote(view))})),
         stack(Qt::Horizontal, {.equalShares = true},
               {secondaryButton(view, {.title = "Save As...",
                                       .icon = "square.and.arrow.down",
                                       .isProminent = true,
                                       .isDisabled = view.reading<bool>(&State::cannotSave),
                                       .action = view.performing(&State::saveImage)}),
                secondaryButton(view, {.title = "Reset",
                                       .icon = "arrow.counterclockwise",
                                       .action = view.performing(&State::reset)})}),
         view.when(&State::isLoading, busyLabel("Loading…")),
         view.when(&State::isApplying, busyLabel("Applying…")),
         view.when(&State::isSaving, busyLabel("Saving…"))});
}

QWidget* options(Screen& view) {
    return withWidth(optionsWidth, stack(Qt::Vertical, {.spacing = Size::gapSectionWide},
                                         {view.section("Output Format", "", outputFormat(view)),
                                          view.section("Resize", "", resize(view)),
                                          view.section("Transform", "", transform(view)), actions(view),
                                          view.statusBadge(&State::savedBadge), stretch()}));
}

QWidget* processed(Screen& view) {
    return view.section("Processed Preview", "",
                        growing(view.either(&State::hasProcessed,
                                            imageView(view, {.name = "Processed Preview",
                                                             .image = view.reading<std::optional<Image>>(
                                                                 &State::processedPreview),
                                                             .hasCheckerboard = true}),
                                            imagePlaceholder("Apply transformations to see preview"))),
                        view.caption(&State::processedDimensionsText));
}

QWidget* body(Screen& view) {
    return screen(
        view.header(Tool::imageConverter),
        {rigidHeight(stack(Qt::Horizontal, {.spacing = Size::gapSection}, {source(view), options(view)})),
         growing(processed(view)), view.errorMessage(&State::errorMessage)});
}

} // namespace

QWidget* imageConverterScreen(Services& services) {
    return makeScreen<ImageConverterView>(services, body, &ImageConverterView::appear);
}

} // namespace korvane
