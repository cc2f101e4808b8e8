/// The state of the Markdown Preview screen: a Markdown text, and which of its views are shown. The preview
/// shows the blocks of `parseBlocks`; the HTML comes from `MarkdownParser` and may differ.
#pragma once

#include "Models/Enumeration.h"
#include "Views/Services.h"

#include <array>
#include <string>
#include <string_view>

namespace korvane {

struct MarkdownPreviewView {
    enum class ViewMode { sideBySide, editorOnly, previewOnly, htmlOutput };

    /// Uses every construct that the preview supports.
    static constexpr std::string_view sampleDocument = R"(# Welcome to Markdown Preview

This is a **live preview** of your Markdown.

## Features

- Real-time preview
- Syntax highlighting
- HTML export

### Code Example

Call the function `greet()` to print a greeting:

```javascript
function greet(name) {
  console.log("Hello, " + name + "!");
}
```

### Formatting

- **Bold** with double asterisks
- *Italic* with single asterisks
- ~~Strikethrough~~ with double tildes

### Links and Images

Visit the project: [Korvane](https://korvane.org)

> This is a blockquote.
> It can span multiple lines.

---

1. First ordered item
2. Second ordered item
3. Third ordered item

That's all for now!)";

    std::string markdownText{sampleDocument};
    ViewMode viewMode = ViewMode::sideBySide;

    void setMarkdownText(std::string text) { markdownText = std::move(text); }

    void setViewMode(ViewMode mode) { viewMode = mode; }

    bool showsEditor() const { return viewMode == ViewMode::sideBySide || viewMode == ViewMode::editorOnly; }

    bool showsPreview() const {
        return viewMode == ViewMode::sideBySide || viewMode == ViewMode::previewOnly;
    }

    bool showsHTML() const { return viewMode == ViewMode::htmlOutput; }

    /// The text as HTML, computed at each call.
    std::string html() const;

    /// The visible HTML; empty in other modes, which saves computing it.
    std::string shownHTML() const { return showsHTML() ? html() : std::string(); }

    /// Such as "98 words • 40 lines • 633 characters". Words are separated by white space, an empty text has
    /// no line, CR LF ends one line, and characters are user-perceived.
    std::string counts() const;

    /// Opens the target of a link in the browser if it is a web or mail address. Other targets do nothing, so
    /// that an untrusted text cannot open files or run programs.
    void openLink(const std::string& target, const Context<MarkdownPreviewView>& context) const;

    bool operator==(const MarkdownPreviewView&) const = default;
};

struct ViewModeFacts {
    MarkdownPreviewView::ViewMode value;
    std::string_view rawValue;
};

template <>
inline constexpr auto facts<MarkdownPreviewView::ViewMode> = std::to_array<ViewModeFacts>({
    {MarkdownPreviewView::ViewMode::sideBySide, "Side by Side"},
    {MarkdownPreviewView::ViewMode::editorOnly, "Editor"},
    {MarkdownPreviewView::ViewMode::previewOnly, "Preview"},
    {MarkdownPreviewView::ViewMode::htmlOutput, "HTML Output"},
});

} // namespace korvane
