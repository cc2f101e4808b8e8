/// The widget of a screen, which owns both its state and its controls.
#pragma once

#include "Desktop/Binding/Store.h"

#include <QVBoxLayout>
#include <QWidget>

#include <memory>
#include <utility>

namespace korvane {

/// Owns a store and what `body` builds from it. The controls are destroyed before the state that they read.
class Screen final : public QWidget {
public:
    template <typename State>
    Screen(Services& services, State state, QWidget* (*body)(Store&))
        : m_store(services, std::move(state)), m_body(body(m_store)) {
        auto* layout = new QVBoxLayout(this);
        layout->setContentsMargins({});
        layout->addWidget(m_body.get());
    }

    ~Screen() override { m_store.close(); }

    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    Store& store() { return m_store; }

private:
    Store m_store;
    std::unique_ptr<QWidget> m_body;
};

/// A new screen with the default state.
template <typename State>
QWidget* makeScreen(Services& services, QWidget* (*body)(Store&)) {
    return new Screen(services, State(), body);
}

/// A new screen with the default state, on which `appear` is performed.
template <typename State, typename Operation>
QWidget* makeScreen(Services& services, QWidget* (*body)(Store&), Operation appear) {
    auto* screen = new Screen(services, State(), body);
    screen->store().perform(appear);
    return screen;
}

} // namespace korvane
