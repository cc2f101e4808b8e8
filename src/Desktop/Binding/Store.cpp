#include "Desktop/Binding/Store.h"

#include <optional>
#include <utility>

namespace korvane {

void Store::onRefresh(std::function<void()> refresher) {
    const bool wasRefreshing = std::exchange(m_refreshing, true);
    refresher();
    m_refreshing = wasRefreshing;
    m_refreshers.push_back(std::move(refresher));
}

void Store::onNewText(std::function<std::string()> text, std::function<void(const std::string&)> then) {
    onRefresh(
        [read = std::move(text), then = std::move(then), last = std::optional<std::string>()]() mutable {
            const auto current = read();
            if (last && *last != current && !current.empty())
                then(current);
            last = current;
        });
}

void Store::refresh() {
    m_refreshing = true;
    for (const auto& refresher : m_refreshers)
        refresher();
    m_refreshing = false;
}

void Store::close() {
    m_lifetime.reset();
}

bool Store::beginOperation() {
    if (m_refreshing || !m_lifetime)
        return false;
    ++m_operations;
    return true;
}

} // namespace korvane
