/// A `Store` holds the state of a screen. An operation changes the state, and then every control reads it
/// again; no control is ever told about another. Controls are tied to it by a `Reader` and an `Action`.
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

    /// The state, which is of the type that the store was made with.
    template <typename State>
    const State& state() const {
        const auto* state = std::any_cast<State>(&m_state);
        assert(state != nullptr);
        return *state;
    }

    /// Changes the state and refreshes the controls. An operation is anything that can be invoked with a
    /// `State&` and the arguments, and, if it reaches beyond the state, with a `Context<State>` behind these.
    /// Does nothing while the controls are being refreshed: a control that is only brought up to date must
    /// not act. Nor does it once the store is closed.
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

    /// What an operation gets that reaches beyond the state.
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

    /// Calls `then` with what `text` reads whenever that has changed, unless it is empty. What it reads at
    /// first does not count as a change.
    void onNewText(std::function<std::string()> text, std::function<void(const std::string&)> then);

    /// Has every control read the state again. Controls leave alone what has not changed, so this is cheap.
    void refresh();

    /// Ends all operations and refreshes: to be called before the controls are destroyed, while the state
    /// can still be read.
    void close();

    /// How many operations have been performed.
    int operationCount() const { return m_operations; }

private:
    /// Whether an operation may run, which is then counted.
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
