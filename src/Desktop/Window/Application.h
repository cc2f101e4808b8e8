/// What the program is to the desktop, apart from its window: its names, its icon, its style, what
/// assistive technology sees of its controls, and that it leaves nothing behind.
#pragma once

namespace korvane {

/// Sets all of this up. The application object must exist, and no window yet.
void setUpApplication();

} // namespace korvane
