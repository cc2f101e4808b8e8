#include "Views/ContentView.h"

#include "Views/Services.h"

namespace korvane {

void postSelectTool(Tool tool, Services& services) {
    services.notifications.post(selectToolNotification, tool);
}

} // namespace korvane
