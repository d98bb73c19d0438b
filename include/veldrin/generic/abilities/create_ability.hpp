// File: veldrin/generic/abilities/create_ability.hpp
//
// Marks a class that has a `create` operation, which the class declares with its own return type.

#pragma once

#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::generic::abilities {

class create_ability {
public:
    virtual ~create_ability() = default;

protected:
    create_ability() = default;
    create_ability(create_ability const&) = default;
    create_ability& operator=(create_ability const&) = default;
};

} // namespace VELDRIN_2_18::generic::abilities
