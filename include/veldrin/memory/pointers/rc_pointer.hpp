// File: veldrin/memory/pointers/rc_pointer.hpp
//
// A counted pointer, one machine word, to a polymorphic object: the last one deletes the object through its
// virtual destructor, if `make_dynamic` made it. Objects on the stack and static ones are left alone.
//
//     rc_pointer<shape> held(generic::abilities::make_dynamic<circle>(2.0));

#pragma once

#include <type_traits>

#include "veldrin/memory/pointers/counted_pointer.hpp"

namespace VELDRIN_2_18::memory::pointers {

namespace _private {

struct virtual_destroyer {
    template <class T>
    static void destroy(T* object) {
        static_assert(std::has_virtual_destructor_v<T>,
                      "use shared_pointer for a class with no virtual destructor");
        delete object;
    }
};

} // namespace _private

template <class T>
class rc_pointer : public _private::counted_pointer<T, _private::virtual_destroyer> {
    using base = _private::counted_pointer<T, _private::virtual_destroyer>;

public:
    rc_pointer() = default;
    rc_pointer(T* object) noexcept : base(object) {}

    rc_pointer& operator=(T* object) {
        base::operator=(object);
        return *this;
    }
};

} // namespace VELDRIN_2_18::memory::pointers
