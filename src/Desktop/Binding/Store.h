/// A `Store` holds the state of a screen. After every operation on the state, all controls read it again;
/// controls do not know each other. A `Reader` and an `Action` connect a control to the store.
#pragma once

#include "Desktop/Binding/Callable.h"
#include "Desktop/Binding/WidthClass.h"
#include "Views/Services.h"

#include <any>
#include <cassert>
#include <concepts>
#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace korvane {

class Store {
public:
    template <typename State>
        requires(!std::same_as<State, Store>)
    Store(Services& services, State state) : m_services(services), m_state(std::move(state)) {}

    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    Services& services() const { return m_services; }

    WidthClass& widthClass() { return m_widthClass; }

    /// The state. `State` must be the type that the store was constructed with.
    template <typename State>
    const State& state() const {
        const auto* state = std::any_cast<State>(&m_state);
        assert(state != nullptr);
        return *state;
    }

    /// Changes the state and refreshes the controls. An operation is anything that can be invoked with a
    /// `State&` and the arguments, followed by a `Context<State>` if it uses services. Does nothing during a
    /// refresh, in which controls only update and must not act, or once the store is closed.
    template <typename Operation, typename... Arguments>
    void perform(const Operation& operation, Arguments&&... arguments) {
        using State = StateOf<Operation>;
        if (!beginOperation())
            return;
        auto* state = std::any_cast<State>(&m_state);
        assert(state != nullptr);
        if constexpr (std::is_invocable_v<Operation, State&, Arguments...>)
            std::invoke(operation, *state, std::forward<Arguments>(arguments)...);
        else
            std::invoke(operation, *state, std::forward<Arguments>(arguments)..., context<State>());
        refresh();
    }

    /// The context of an operation that uses services or changes the state later.
    template <typename State>
    Context<State> context() {
        return {m_services,
                [this, lifetime = std::weak_ptr(m_lifetime)](const std::function<void(State&)>& change) {
                    if (!lifetime.expired())
                        perform([&change](State& state) { change(state); });
                }};
    }

    /// Calls `refresher` now and after every operation.
    void onRefresh(std::function<void()> refresher);

    /// Calls `then` with the value of `text` whenever it has changed and is not empty. The initial value does
    /// not count as a change.
    void onNewText(std::function<std::string()> text, std::function<void(const std::string&)> then);

    /// Makes every control read the state again. Controls update only what has changed, so this is cheap.
    void refresh();

    /// Stops all later operations and refreshes. Must be called before the controls are destroyed, while the
    /// state can still be read.
    void close();

    /// The number of performed operations.
    int operationCount() const { return m_operations; }

private:
    /// Returns whether an operation may run; counts it if so.
    bool beginOperation();

    Services& m_services;
    std::any m_state;
    WidthClass m_widthClass;
    std::vector<std::function<void()>> m_refreshers;
    std::shared_ptr<const Store*> m_lifetime = std::make_shared<const Store*>(this);
    bool m_refreshing = false;
    int m_operations = 0;
};

} // namespace korvane
