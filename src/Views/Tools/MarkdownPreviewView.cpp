#include "Views/Tools/MarkdownPreviewView.h"

#include "Utilities/Markdown/MarkdownParser.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <stop_token>
#include <utility>

namespace korvane {

namespace {

bool isWebOrMailAddress(std::string_view target) {
    constexpr auto schemes = std::to_array<std::string_view>({"http://", "https://", "mailto:"});
    return std::ranges::any_of(schemes, [&](std::string_view scheme) {
        return std::ranges::equal(target.substr(0, scheme.size()), scheme, [](char a, char b) {
            return (a >= 'A' && a <= 'Z' ? static_cast<char>(a - 'A' + 'a') : a) == b;
        });
    });
}

} // namespace

void MarkdownPreviewView::setMarkdownText(Rope text, const Context<MarkdownPreviewView>& context) {
    if (text == markdownText)
        return;
    markdownText = std::move(text);
    LiveStats::update(context, *this, &MarkdownPreviewView::stats, markdownText);
    updateHTML(context);
}

void MarkdownPreviewView::setViewMode(ViewMode mode, const Context<MarkdownPreviewView>& context) {
    if (mode == viewMode)
        return;
    viewMode = mode;
    updateHTML(context);
}

void MarkdownPreviewView::updateHTML(const Context<MarkdownPreviewView>& context) {
    html.clear();
    converting.cancel();
    if (!showsHTML())
        return;
    runAwaited(
        context, *this, &MarkdownPreviewView::converting,
        {.verb = "Converting", .bytes = markdownText.size()},
        [text = markdownText](const std::stop_token&) {
            return Rope(MarkdownParser::toHTML(FlatText(text)));
        },
        [](MarkdownPreviewView& view, Rope converted) { view.html = std::move(converted); });
}

std::string MarkdownPreviewView::counts() const {
    return fmt::format(
        "{} words\u2002•\u2002{} lines\u2002•\u2002{} characters", stats.text(&TextStats::words),
        stats.text(&TextTransformer::RunningStats::linesByPairs), stats.text(&TextStats::characters));
}

void MarkdownPreviewView::openLink(const std::string& target,
                                   const Context<MarkdownPreviewView>& context) const {
    if (isWebOrMailAddress(target))
        context.services.browser.open(target);
}

} // namespace korvane
