// File: veldrin/generic/clone_interface.hpp
//
// The plain interface of a class that can be cloned when the exact type does not matter.

#pragma once

#include "veldrin/generic/abilities/clone_ability.hpp"

namespace VELDRIN_2_18::generic {

class clone_interface : public abilities::clone_ability {
public:
    ~clone_interface() override = default;

    // A copy on the heap; the caller owns it.
    virtual clone_interface* clone() const = 0;
};

} // namespace VELDRIN_2_18::generic
