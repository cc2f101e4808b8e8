/// The state of the Markdown Preview screen: a Markdown text, and which of its views are shown. The preview
/// shows the blocks of `parseBlocks`; the HTML comes from `MarkdownParser` and may differ. It is made only
/// while it is visible, of a large text in the background.
#pragma once

#include "Models/Enumeration.h"
#include "Utilities/Text/Rope.h"
#include "Views/Components/AwaitedWork.h"
#include "Views/Components/LiveStats.h"
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

    Rope markdownText{sampleDocument};
    ViewMode viewMode = ViewMode::sideBySide;
    Rope html{}; ///< of the text, while the HTML is visible
    LiveStats stats{markdownText};
    AwaitedWork converting{}; ///< to `html`

    void setMarkdownText(Rope text, const Context<MarkdownPreviewView>& context);
    void setViewMode(ViewMode mode, const Context<MarkdownPreviewView>& context);

    void cancel() { converting.cancel(); }

    bool isBusy() const { return converting.isBusy(); }

    bool showsEditor() const { return viewMode == ViewMode::sideBySide || viewMode == ViewMode::editorOnly; }

    bool showsPreview() const {
        return viewMode == ViewMode::sideBySide || viewMode == ViewMode::previewOnly;
    }

    bool showsHTML() const { return viewMode == ViewMode::htmlOutput; }

    /// Such as "98 words • 40 lines • 633 characters". Words are separated by white space, an empty text has
    /// no line, CR LF ends one line, and characters are user-perceived. "…" while they are being counted.
    std::string counts() const;

    /// Opens the target of a link in the browser if it is a web or mail address. Other targets do nothing, so
    /// that an untrusted text cannot open files or run programs.
    void openLink(const std::string& target, const Context<MarkdownPreviewView>& context) const;

    bool operator==(const MarkdownPreviewView&) const = default;

private:
    void updateHTML(const Context<MarkdownPreviewView>& context);
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
