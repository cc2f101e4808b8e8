#include "Desktop/Controls/Messages.h"

#include "Desktop/Access/Accessibility.h"
#include "Desktop/Binding/Store.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Layout/ScreenLayout.h"

#include <utility>

namespace korvane {

void reportMessages(Store& store, QWidget& place, const Reader<std::string>& text) {
    store.onNewText(text.of(store), [&place](const std::string& message) {
        announce(place, qString(message));
        bringIntoView(&place);
    });
}

} // namespace korvane
