/// The source of a value that a control shows.
#pragma once

#include "Desktop/Binding/Callable.h"
#include "Desktop/Binding/Store.h"

#include <concepts>
#include <functional>
#include <type_traits>
#include <utility>

namespace korvane {

/// Whether `Read` can be invoked with its state type: a field, a member function, a function or a lambda.
template <typename Read>
concept StateReader =
    requires { typename StateOf<Read>; } && std::invocable<const Read&, const StateOf<Read>&>;

/// Reads a `Value` from the state of a store, from a callable without arguments, or from a constant. `Value`
/// may be a reference to const, for texts too large to copy; then readers must return a reference.
template <typename Value>
class Reader {
public:
    template <StateReader Read>
        requires(!std::invocable<const Read&>)
    Reader(Read read)
        : m_bind([read](const Store& store) -> std::function<Value()> {
              using Result = std::invoke_result_t<const Read&, const StateOf<Read>&>;
              static_assert(!std::is_reference_v<Value> || std::is_reference_v<Result>);
              return [read, &store]() -> Value {
                  return static_cast<Value>(std::invoke(read, store.state<StateOf<Read>>()));
              };
          }) {}

    template <typename Read>
        requires(std::invocable<const Read&> && !std::same_as<Read, Reader>)
    Reader(Read read)
        : m_bind([read](const Store&) -> std::function<Value()> {
              return [read]() -> Value { return static_cast<Value>(read()); };
          }) {}

    template <typename Constant>
        requires(!StateReader<Constant> && !std::invocable<const Constant&> &&
                 !std::same_as<Constant, Reader> && std::constructible_from<Value, Constant>)
    Reader(Constant constant)
        : m_bind([value = Value(std::move(constant))](const Store&) -> std::function<Value()> {
              return [value] { return value; };
          }) {}

    /// Converts what another reader reads.
    template <typename Other>
        requires(std::convertible_to<Other, Value> && !std::is_reference_v<Value>)
    Reader(const Reader<Other>& other)
        : m_bind([other](const Store& store) -> std::function<Value()> {
              return [read = other.of(store)]() -> Value { return read(); };
          }) {}

    /// Reads from the state of `store`, which must outlive the result.
    std::function<Value()> of(const Store& store) const { return m_bind(store); }

private:
    std::function<std::function<Value()>(const Store&)> m_bind;
};

} // namespace korvane
