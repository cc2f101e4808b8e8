#include "Desktop/Access/Accessibility.h"
#include "Desktop/Binding/Screen.h"
#include "Desktop/Controls/BusyBadge.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Editors.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Controls/Section.h"
#include "Desktop/Controls/TextField.h"
#include "Desktop/Layout/Alternatives.h"
#include "Desktop/Layout/Overlay.h"
#include "Desktop/Layout/ScreenLayout.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Tools/Regex/MatchList.h"
#include "Desktop/Tools/Regex/ReferenceCard.h"
#include "Desktop/Tools/Screens.h"
#include "Views/Tools/RegexTesterView.h"

namespace korvane {

namespace {

using Theme::TextStyle;
using Panel = RegexTesterView::MatchesPanel;

constexpr int minTestStringHeight = 96;
constexpr int referenceColumns = 6;
constexpr int minResultHeight = 66;
constexpr int maxResultHeight = 192;
constexpr int copyButtonRoom = 84;

auto shows(Panel panel) {
    return [panel](const RegexTesterView& state) { return state.matchesPanel() == panel; };
}

QWidget* patternBlock(Store& store) {
    return stack(
        Qt::Vertical, {.spacing = Theme::Size::gapHeading},
        {
            caption(store, "Pattern"),
            row({
                textField(store, "Pattern", &RegexTesterView::pattern, &RegexTesterView::setPattern,
                          {.placeholder = "Enter regex pattern",
                           .style = TextStyle::code,
                           .leading = "/",
                           .trailing = "/",
                           .submit = &RegexTesterView::runRegex}),
                pushToggle(store, "Live", {}, PaletteColor::red, &RegexTesterView::liveUpdate,
                           &RegexTesterView::setLiveUpdate),
                pushToggle(store, "Case", {}, PaletteColor::red, &RegexTesterView::caseSensitive,
                           &RegexTesterView::setCaseSensitive),
                actionButton(store, "Test", "play.fill", PaletteColor::red, &RegexTesterView::runRegex),
            }),
            errorMessage(store, &RegexTesterView::errorMessage),
        });
}

QWidget* testString(Store& store) {
    return section(
        store, "Test String", "",
        withMinHeight(minTestStringHeight,
                      codeEditor(store, &RegexTesterView::testString, &RegexTesterView::setTestString,
                                 "Enter text to test against the pattern...",
                                 {.marks = &RegexTesterView::matchMarks,
                                  .chosenMarks = &RegexTesterView::selectedMarks,
                                  .place = &RegexTesterView::shownPlace,
                                  .onSelect = &RegexTesterView::selectAt})));
}

/// The panel's text without a list of matches.
QWidget* prompt(Store& store, Panel panel, std::string icon) {
    return when(store, shows(panel),
                emptyPrompt(store, std::move(icon), std::string(RegexTesterView::message(panel))));
}

/// The same while the search runs, which can be cancelled.
QWidget* busyPrompt(Store& store) {
    return when(store, shows(Panel::busy),
                stack(Qt::Vertical, {},
                      {
                          growing(emptyPrompt(store, "hourglass",
                                              std::string(RegexTesterView::message(Panel::busy)))),
                          centered(quietButton(store, "Cancel", "", &RegexTesterView::cancel)),
                      }));
}

QWidget* matches(Store& store) {
    return announcing(store, &RegexTesterView::announcedMessage,
                      either(store, shows(Panel::list),
                             section(store, "Matches", "",
                                     matchList(store, &RegexTesterView::matches, &RegexTesterView::matchCount,
                                               &RegexTesterView::selectedLine, &RegexTesterView::selectLine)),
                             section(store, "Matches", "",
                                     matchPrompt({
                                         prompt(store, Panel::noMatches, "xmark.circle"),
                                         prompt(store, Panel::stopped, "xmark.circle"),
                                         prompt(store, Panel::prompt, "magnifyingglass"),
                                         busyPrompt(store),
                                     }))));
}

/// The result of the replacement, as high as its text within limits, with a labelled button over its corner.
QWidget* replacedText(Store& store) {
    auto* result = readOnlyEditor(store, &RegexTesterView::replacedText, "Replacement result...",
                                  {.lineNumbers = false,
                                   .buttonRoom = copyButtonRoom,
                                   .minHeight = minResultHeight,
                                   .maxHeight = maxResultHeight,
                                   .placeholderInk = Theme::Role::secondary});
    auto* whole = overlay(result, copyButton(store, &RegexTesterView::replacedText,
                                             {.look = {.dropsLabel = true, .isOverlay = true}}));
    giveName(*whole, "Result");
    return whole;
}

QWidget* replacementBlock(Store& store) {
    return stack(Qt::Vertical, {.spacing = Theme::Size::gapHeading},
                 {
                     caption(store, "Replacement Pattern"),
                     textField(store, "Replacement Pattern", &RegexTesterView::replacement,
                               &RegexTesterView::setReplacement,
                               {.placeholder = R"(e.g., $1 or \1)", .style = TextStyle::code}),
                     stack(Qt::Vertical, {.padding = {0, Theme::Size::gapList, 0, 0}},
                           {textLabel(store, "Result", TextStyle::caption, PaletteColor::green)}),
                     replacedText(store),
                 });
}

QWidget* body(Store& store) {
    auto* content =
        screen(store, toolHeader(Tool::regexTester),
               {
                   patternBlock(store),
                   sharing(1, testString(store)),
                   sharing(2, matches(store)),
                   row({
                       pushToggle(store, "Find & Replace", "arrow.triangle.swap", PaletteColor::red,
                                  &RegexTesterView::showReplacement, &RegexTesterView::setShowReplacement),
                       stretch(),
                   }),
                   when(store, &RegexTesterView::showReplacement, replacementBlock(store)),
                   referenceCard("Quick Reference", "book", referenceColumns, regexCheatItems),
               });
    return cancellable(store, &RegexTesterView::isBusy, &RegexTesterView::cancel, content);
}

} // namespace

QWidget* regexTesterScreen(Services& services) {
    return makeScreen<RegexTesterView>(services, body);
}

} // namespace korvane
