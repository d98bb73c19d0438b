// File: veldrin/generic/abilities/clone_ability.hpp
//
// Marks a class that has a `clone` operation, which the class declares with its own return type.

#pragma once

#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::generic::abilities {

class clone_ability {
public:
    virtual ~clone_ability() = default;

protected:
    clone_ability() = default;
    clone_ability(clone_ability const&) = default;
    clone_ability& operator=(clone_ability const&) = default;
};

} // namespace VELDRIN_2_18::generic::abilities
