/// What a screen's file includes: the view, the layouts, and the frame that owns both state and widgets.
#pragma once

#include "Desktop/Kit/Layout.h"
#include "Desktop/Kit/View.h"

#include <QVBoxLayout>

namespace korvane {

/// Any screen, whatever its state.
class ScreenWidget : public QWidget {
public:
    virtual ViewCore& core() = 0;
};

/// A widget that owns a view of `State` and what `body` builds from it. The view is gone before the widgets
/// are, so none of them can read a state that has been destroyed.
template <typename State>
class ScreenFrame final : public ScreenWidget {
public:
    ScreenFrame(Services& services, QWidget* (*body)(View<State>&)) : m_view(services) {
        auto* layout = new QVBoxLayout(this);
        layout->setContentsMargins({});
        layout->addWidget(body(m_view));
    }

    View<State>& view() { return m_view; }

    ViewCore& core() override { return m_view; }

private:
    View<State> m_view;
};

/// A fresh screen with default state.
template <typename State>
QWidget* makeScreen(Services& services, QWidget* (*body)(View<State>&)) {
    return new ScreenFrame<State>(services, body);
}

/// A fresh screen that begins with an operation.
template <typename State, typename Operation>
QWidget* makeScreen(Services& services, QWidget* (*body)(View<State>&), Operation appear) {
    auto* screen = new ScreenFrame<State>(services, body);
    screen->view().perform(appear);
    return screen;
}

} // namespace korvane
