#include "Desktop/Kit/ViewCore.h"

#include <optional>
#include <utility>

namespace korvane {

void ViewCore::onRefresh(std::function<void()> refresher) {
    const bool wasRefreshing = std::exchange(m_refreshing, true);
    refresher();
    m_refreshing = wasRefreshing;
    m_refreshers.push_back(std::move(refresher));
}

void ViewCore::onNewText(std::function<std::string()> text, std::function<void(const std::string&)> then) {
    onRefresh(
        [read = std::move(text), then = std::move(then), last = std::optional<std::string>()]() mutable {
            const auto current = read();
            if (last && *last != current && !current.empty())
                then(current);
            last = current;
        });
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
