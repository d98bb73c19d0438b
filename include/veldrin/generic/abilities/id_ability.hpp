// File: veldrin/generic/abilities/id_ability.hpp
//
// Gives an object an id: its own address, or a number of the caller's.

#pragma once

#include <cstdint>

#include "veldrin/export.hpp"
#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::generic::abilities {

class VELDRIN_EXPORT id_ability {
public:
    // The id is the address of this object. A copy keeps the id of its source.
    id_ability() : m_id(reinterpret_cast<std::uintptr_t>(this)) {}
    id_ability(std::uint64_t id) : m_id(id) {}

    std::uint64_t id() const { return m_id; }

    // Sets the id and returns the new value.
    std::uint64_t id(std::uint64_t const& value) { return m_id = value; }

private:
    std::uint64_t m_id;
};

} // namespace VELDRIN_2_18::generic::abilities
