// File: veldrin/functor/function_type_interface.hpp
//
// The base of everything a `delegate_t` can hold: a callable of one function type that can be compared and
// cloned.

#pragma once

#include "veldrin/functor/function_traits.hpp"
#include "veldrin/generic/abilities/clone_ability.hpp"

namespace VELDRIN_2_18::functor {

template <class F>
class function_type_interface;

template <class Result, class... Arguments>
class function_type_interface<Result(Arguments...)> : public traits::function_traits<Result(Arguments...)>,
                                                      public generic::abilities::clone_ability {
public:
    ~function_type_interface() override = default;

    virtual Result operator()(Arguments... arguments) = 0;

    // True if the other object is of the same class and calls the same thing.
    virtual bool equal(function_type_interface const& other) const = 0;

    // A copy on the heap; the caller owns it.
    virtual function_type_interface* clone() const = 0;

protected:
    function_type_interface() = default;
    function_type_interface(function_type_interface const&) = default;
    function_type_interface& operator=(function_type_interface const&) = default;
};

} // namespace VELDRIN_2_18::functor
