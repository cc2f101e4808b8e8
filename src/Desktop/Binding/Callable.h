/// Derives the state that a callable reads or changes from its type: it is the first parameter.
#pragma once

#include <type_traits>

namespace korvane {

template <typename CallOperator>
struct FirstOfCall {};

template <typename Result, typename Callable, typename First, typename... Rest>
struct FirstOfCall<Result (Callable::*)(First, Rest...) const> {
    using Type = std::remove_cvref_t<First>;
};

/// `Type` is the class of a pointer to a member, or the first parameter of a function or lambda, without
/// reference and const. Overloaded or templated callables have none.
template <typename Callable>
struct FirstParameter {};

template <typename Member, typename Class>
struct FirstParameter<Member Class::*> {
    using Type = Class;
};

template <typename Result, typename First, typename... Rest>
struct FirstParameter<Result (*)(First, Rest...)> {
    using Type = std::remove_cvref_t<First>;
};

template <typename Callable>
    requires requires { &Callable::operator(); }
struct FirstParameter<Callable> : FirstOfCall<decltype(&Callable::operator())> {};

/// The state type of a reader or an operation.
template <typename Callable>
using StateOf = typename FirstParameter<Callable>::Type;

} // namespace korvane
