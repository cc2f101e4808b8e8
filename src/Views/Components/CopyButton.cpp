#include "Views/Components/CopyButton.h"

namespace korvane {

void CopyButton::copyToClipboard(const Context<CopyButton>& context) {
    auto& clipboard = context.services.clipboard;
    if (isSecret)
        clipboard.setSecret(text.string());
    else
        clipboard.setText(text);
    copied = true;
    context.services.timers.after(feedbackDuration, [update = context.update] {
        update([](CopyButton& button) { button.copied = false; });
    });
}

} // namespace korvane
