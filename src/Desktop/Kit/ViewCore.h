/// The part of a `View` that does not depend on its state: what to refresh after an operation, and the guard
/// that a refresh performs none.
#pragma once

#include "Views/Services.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

class QWidget;

namespace korvane {

class ViewCore {
public:
    explicit ViewCore(Services& services) : m_services(services) {}

    ViewCore(const ViewCore&) = delete;
    ViewCore& operator=(const ViewCore&) = delete;

    Services& services() const { return m_services; }

    /// Has `refresher` run now and after every operation, for as long as the view lives.
    void onRefresh(std::function<void()> refresher);

    /// Calls `then` with what `text` reads whenever that has become another text, but for an empty one. What
    /// it reads at first is no news.
    void onNewText(std::function<std::string()> text, std::function<void(const std::string&)> then);

    /// Lets every control read the state again. Costs about nothing: what did not change is left alone.
    void refresh();

    /// How many operations have been performed.
    int operationCount() const { return m_operations; }

protected:
    /// Whether an operation may run: not while controls are only being brought up to date.
    bool beginOperation();

    /// Expires with the view.
    std::weak_ptr<const ViewCore*> lifetime() const { return m_lifetime; }

private:
    Services& m_services;
    std::vector<std::function<void()>> m_refreshers;
    std::shared_ptr<const ViewCore*> m_lifetime = std::make_shared<const ViewCore*>(this);
    bool m_refreshing = false;
    int m_operations = 0;
};

} // namespace korvane
