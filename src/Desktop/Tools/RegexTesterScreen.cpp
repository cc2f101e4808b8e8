#include "Desktop/Kit/MatchList.h"
#include "Desktop/Kit/ReferenceCard.h"
#include "Desktop/Kit/ResultPanel.h"
#include "Desktop/Kit/Screen.h"
#include "Desktop/Tools/Screens.h"
#include "Views/Tools/RegexTesterView.h"

namespace korvane {

namespace {

using Theme::TextStyle;
using Panel = RegexTesterView::MatchesPanel;

constexpr int testStringMinimum = 96;
constexpr int referenceColumns = 6;

auto shows(Panel panel) {
    return [panel](const RegexTesterView& state) { return state.matchesPanel() == panel; };
}

QWidget* patternBlock(View<RegexTesterView>& view) {
    return stack(
        Qt::Vertical, {.spacing = Theme::Size::gapHeading},
        {
            view.caption("Pattern"),
            row({
                view.textField("Pattern", &RegexTesterView::pattern, &RegexTesterView::setPattern,
                               {.placeholder = "Enter regex pattern",
                                .style = TextStyle::code,
                                .leading = view.reading<std::string>("/"),
                                .trailing = view.reading<std::string>("/"),
                                .submit = view.performing(&RegexTesterView::runRegex)}),
                view.pushToggle("Live", {}, PaletteColor::red, &RegexTesterView::liveUpdate,
                                &RegexTesterView::setLiveUpdate),
                view.pushToggle("Case", {}, PaletteColor::red, &RegexTesterView::caseSensitive,
                                &RegexTesterView::setCaseSensitive),
                view.actionButton("Test", "play.fill", PaletteColor::red, &RegexTesterView::runRegex),
            }),
            view.errorMessage(&RegexTesterView::errorMessage),
        });
}

QWidget* testString(View<RegexTesterView>& view) {
    return view.section(
        "Test String", {},
        withMinimumHeight(testStringMinimum,
                          view.codeEditor(&RegexTesterView::testString, &RegexTesterView::setTestString,
                                          "Enter text to test against the pattern...")));
}

/// What the panel says without a list of matches.
QWidget* prompt(View<RegexTesterView>& view, Panel panel, std::string icon) {
    return view.when(shows(panel),
                     view.emptyPrompt(std::move(icon), std::string(RegexTesterView::message(panel))));
}

QWidget* matches(View<RegexTesterView>& view) {
    return view.announcing(
        &RegexTesterView::announcedMessage,
        view.either(shows(Panel::list),
                    view.section("Matches", {},
                                 matchList(view, view.reading<RegexMatches>(&RegexTesterView::matches),
                                           view.reading<std::string>(&RegexTesterView::matchCount))),
                    view.section("Matches", {},
                                 matchPrompt({
                                     prompt(view, Panel::noMatches, "xmark.circle"),
                                     prompt(view, Panel::stopped, "xmark.circle"),
                                     prompt(view, Panel::prompt, "magnifyingglass"),
                                     prompt(view, Panel::busy, "hourglass"),
                                 }))));
}

QWidget* replacementBlock(View<RegexTesterView>& view) {
    return stack(Qt::Vertical, {.spacing = Theme::Size::gapHeading},
                 {
                     view.caption("Replacement Pattern"),
                     view.textField("Replacement Pattern", &RegexTesterView::replacement,
                                    &RegexTesterView::setReplacement,
                                    {.placeholder = R"(e.g., $1 or \1)", .style = TextStyle::code}),
                     stack(Qt::Vertical, {.padding = {0, Theme::Size::gapList, 0, 0}},
                           {view.label("Result", TextStyle::caption, PaletteColor::green)}),
                     resultPanel(view, "Result", view.referring(&RegexTesterView::replacedText),
                                 "Replacement result..."),
                 });
}

QWidget* body(View<RegexTesterView>& view) {
    return screen(
        view.header(Tool::regexTester),
        {
            patternBlock(view),
            sharing(1, testString(view)),
            sharing(2, matches(view)),
            row({
                view.pushToggle("Find & Replace", "arrow.triangle.swap", PaletteColor::red,
                                &RegexTesterView::showReplacement, &RegexTesterView::setShowReplacement),
                stretch(),
            }),
            view.when(&RegexTesterView::showReplacement, replacementBlock(view)),
            referenceCard("Quick Reference", "book", referenceColumns, regexCheatItems),
        });
}

} // namespace

QWidget* regexTesterScreen(Services& services) {
    return makeScreen<RegexTesterView>(services, body);
}

} // namespace korvane
