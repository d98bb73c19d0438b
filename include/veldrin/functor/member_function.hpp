// File: veldrin/functor/member_function.hpp
//
// A callable that calls a member function on an object.
//
//     using counter_call = functor::member_function_t<counter, void(int)>;
//     functor::delegate_t<void(int)> add = counter_call(&tally, &counter::add);
//     add(3);    // tally.add(3)

#pragma once

#include <utility>

#include "veldrin/functor/function_type_interface.hpp"

namespace VELDRIN_2_18::functor {

template <class T, class F>
class member_function_t;

// The object is not owned and must outlive every call.
template <class T, class Result, class... Arguments>
class member_function_t<T, Result(Arguments...)> : public function_type_interface<Result(Arguments...)> {
public:
    using member_type = Result (T::*)(Arguments...);

    member_function_t(T* object, member_type member) : m_object(object), m_member(member) {}

    Result operator()(Arguments... arguments) override {
        return (m_object->*m_member)(std::forward<Arguments>(arguments)...);
    }

    // True for a `member_function_t` of the same T and F with the same object and the same member.
    bool equal(function_type_interface<Result(Arguments...)> const& other) const override {
        auto const* same_class = dynamic_cast<member_function_t const*>(&other);
        return same_class != nullptr && same_class->m_object == m_object && same_class->m_member == m_member;
    }

    member_function_t* clone() const override { return new member_function_t(*this); }

private:
    T* m_object;
    member_type m_member;
};

} // namespace VELDRIN_2_18::functor
