#include "support/Scenes.h"

namespace korvane {

std::vector<Scene> textScenes() {
    return {};
}

} // namespace korvane
