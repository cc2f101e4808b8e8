#include "Views/Components/CopyButton.h"

namespace korvane {

void CopyButton::copyToClipboard(const Context<CopyButton>& context) {
    context.services.clipboard.setText(text);
    copied = true;
    context.services.timers.after(feedbackDuration, [update = context.update] {
        update([](CopyButton& button) { button.copied = false; });
    });
}

} // namespace korvane
