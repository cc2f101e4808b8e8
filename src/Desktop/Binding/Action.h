/// The operation of a control.
#pragma once

#include "Desktop/Binding/Callable.h"
#include "Desktop/Binding/Store.h"

#include <concepts>
#include <functional>
#include <utility>

namespace korvane {

/// An operation that a control performs on its store, with the values that the user chose. It is constructed
/// from anything that `Store::perform` takes, or from a callable that takes only the values and does not
/// change the state.
template <typename... Values>
class Action {
public:
    template <typename Operation>
        requires(requires { typename StateOf<Operation>; } && !std::invocable<const Operation&, Values...>)
    Action(Operation operation)
        : m_bind([operation](Store& store) -> std::function<void(Values...)> {
              return
                  [operation, &store](Values... values) { store.perform(operation, std::move(values)...); };
          }) {}

    template <typename Call>
        requires(std::invocable<const Call&, Values...> && !std::same_as<Call, Action>)
    Action(Call call) : m_bind([call](Store&) -> std::function<void(Values...)> { return call; }) {}

    /// Performs the operation on `store`, which must outlive the result.
    std::function<void(Values...)> on(Store& store) const { return m_bind(store); }

private:
    std::function<std::function<void(Values...)>(Store&)> m_bind;
};

} // namespace korvane
