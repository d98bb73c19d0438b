// File: veldrin/generic/abilities/alloc_detection_ability.hpp
//
// Lets an object know that it was made on the heap. The flag is false after construction and only
// `make_dynamic` raises it.

#pragma once

#include "veldrin/export.hpp"
#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::generic::abilities {

namespace _private {
struct dynamic_creation;
}

class VELDRIN_EXPORT alloc_detection_ability {
public:
    alloc_detection_ability() = default;
    ~alloc_detection_ability() = default;

    // A copy is a new object: its flag is false.
    alloc_detection_ability(alloc_detection_ability const&) {}

    // Copies the flag as a plain value. A class that assigns its bases must not bring this into a live
    // object.
    alloc_detection_ability& operator=(alloc_detection_ability const&) = default;

    // True if the object was made by `make_dynamic`.
    bool is_created_dynamic() const { return m_created_dynamic; }

private:
    friend struct _private::dynamic_creation;

    bool m_created_dynamic = false;
};

} // namespace VELDRIN_2_18::generic::abilities
