// File: veldrin/memory/pointers/shared_pointer.hpp
//
// A counted pointer, one machine word, to an object of exactly the class T, which needs no virtual
// destructor: the last one ends the object by `~T()`, if `make_dynamic` made it. Objects on the stack and
// static ones are left alone.
//
//     shared_pointer<catalog> held(generic::abilities::make_dynamic<catalog>());

#pragma once

#include <new>

#include "veldrin/memory/pointers/counted_pointer.hpp"

namespace VELDRIN_2_18::memory::pointers {

namespace _private {

struct exact_destroyer {
    template <class T>
    static void destroy(T* object) {
        object->T::~T();
        if constexpr (alignof(T) > __STDCPP_DEFAULT_NEW_ALIGNMENT__) {
            ::operator delete(object, std::align_val_t(alignof(T)));
        } else {
            ::operator delete(object);
        }
    }
};

} // namespace _private

template <class T>
class shared_pointer : public _private::counted_pointer<T, _private::exact_destroyer> {
    using base = _private::counted_pointer<T, _private::exact_destroyer>;

public:
    shared_pointer() = default;
    shared_pointer(T* object) noexcept : base(object) {}

    shared_pointer& operator=(T* object) {
        base::operator=(object);
        return *this;
    }
};

} // namespace VELDRIN_2_18::memory::pointers
