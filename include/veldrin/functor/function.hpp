// File: veldrin/functor/function.hpp
//
// A callable that calls a free function.
//
//     functor::delegate_t<void(int)> print = functor::function_t<void(int)>(&print_number);

#pragma once

#include <utility>

#include "veldrin/functor/function_type_interface.hpp"

namespace VELDRIN_2_18::functor {

template <class F>
class function_t;

template <class Result, class... Arguments>
class function_t<Result(Arguments...)> : public function_type_interface<Result(Arguments...)> {
public:
    using pointer_type = Result (*)(Arguments...);

    explicit function_t(pointer_type function) : m_function(function) {}

    Result operator()(Arguments... arguments) override {
        return m_function(std::forward<Arguments>(arguments)...);
    }

    // True for a `function_t` of the same F with the same function.
    bool equal(function_type_interface<Result(Arguments...)> const& other) const override {
        auto const* same_class = dynamic_cast<function_t const*>(&other);
        return same_class != nullptr && same_class->m_function == m_function;
    }

    function_t* clone() const override { return new function_t(*this); }

private:
    pointer_type m_function;
};

// A pointer to a function type names the same class of callable.
template <class Result, class... Arguments>
class function_t<Result (*)(Arguments...)> : public function_t<Result(Arguments...)> {
public:
    using function_t<Result(Arguments...)>::function_t;
};

} // namespace VELDRIN_2_18::functor
