// File: veldrin/functor/function_traits.hpp
//
// Type definitions over a function type: its result and its arguments.
//
//     function_traits<int(char)>::result_type    // int

#pragma once

#include <cstddef>
#include <tuple>

#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::traits {

namespace _private {

template <class F>
struct function_traits_helper;

template <class Result, class... Arguments>
struct function_traits_helper<Result(Arguments...)> {
    using function_type = Result(Arguments...);
    using result_type = Result;
    using argument_types = std::tuple<Arguments...>;
    static constexpr std::size_t arity = sizeof...(Arguments);
};

template <class Result, class... Arguments>
struct function_traits_helper<Result (*)(Arguments...)> : function_traits_helper<Result(Arguments...)> {};

} // namespace _private

// For F a function type or a pointer to one; both give the definitions of the function type.
template <class F>
struct function_traits : _private::function_traits_helper<F> {};

} // namespace VELDRIN_2_18::traits
