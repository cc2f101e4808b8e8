#include "Desktop/Kit/ViewCore.h"

#include <utility>

namespace korvane {

void ViewCore::onRefresh(std::function<void()> refresher) {
    const bool wasRefreshing = std::exchange(m_refreshing, true);
    refresher();
    m_refreshing = wasRefreshing;
    m_refreshers.push_back(std::move(refresher));
}

void ViewCore::refresh() {
    m_refreshing = true;
    for (const auto& refresher : m_refreshers)
        refresher();
    m_refreshing = false;
}

bool ViewCore::beginOperation() {
    if (m_refreshing)
        return false;
    ++m_operations;
    return true;
}

} // namespace korvane
