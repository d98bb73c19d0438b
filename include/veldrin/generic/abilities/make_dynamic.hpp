// File: veldrin/generic/abilities/make_dynamic.hpp
//
// Makes a counted object on the heap. A counted pointer deletes at count zero only what was made here.
//
//     memory::pointers::rc_pointer<shape> held(generic::abilities::make_dynamic<circle>(2.0));

#pragma once

#include <utility>

#include "veldrin/generic/abilities/alloc_detection_ability.hpp"

namespace VELDRIN_2_18::generic::abilities {

namespace _private {

struct dynamic_creation {
    static void raise_flag(alloc_detection_ability& object) { object.m_created_dynamic = true; }
};

} // namespace _private

// The new object has the flag set and the count 0: give it to a counted pointer or delete it.
template <class T, class... Arguments>
T* make_dynamic(Arguments&&... arguments) {
    T* const object = new T(std::forward<Arguments>(arguments)...);
    _private::dynamic_creation::raise_flag(*object);
    return object;
}

} // namespace VELDRIN_2_18::generic::abilities
