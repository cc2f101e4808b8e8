#include "Views/Tools/MarkdownPreviewView.h"

#include "Utilities/LinkOpener.h"
#include "Utilities/Markdown/MarkdownParser.h"

#include <fmt/format.h>

#include <stop_token>
#include <utility>

namespace korvane {

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
    if (isWebOrMailLink(target))
        context.services.browser.open(target);
}

} // namespace korvane
