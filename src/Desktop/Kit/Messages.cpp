#include "Desktop/Kit/Messages.h"

#include "Desktop/Kit/Accessibility.h"
#include "Desktop/Kit/Layout.h"
#include "Desktop/Kit/Strings.h"
#include "Desktop/Kit/ViewCore.h"

#include <utility>

namespace korvane {

void reportMessages(ViewCore& view, QWidget& place, std::function<std::string()> text) {
    view.onNewText(std::move(text), [&place](const std::string& message) {
        announce(place, qString(message));
        bringIntoView(&place);
    });
}

} // namespace korvane
