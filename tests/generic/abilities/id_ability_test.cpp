#include "veldrin/generic/abilities/id_ability.hpp"

#include <cstdint>

#include <gtest/gtest.h>

namespace {

using VELDRIN_2_18::generic::abilities::id_ability;

struct leading {
    int filler = 0;
};
struct identified : leading, id_ability {};

TEST(id_ability, default_id_is_the_address_of_the_ability_object) {
    id_ability const first;
    id_ability const second;
    EXPECT_EQ(first.id(), reinterpret_cast<std::uintptr_t>(&first));
    EXPECT_NE(first.id(), second.id());
    identified const derived;
    EXPECT_EQ(derived.id(), reinterpret_cast<std::uintptr_t>(static_cast<id_ability const*>(&derived)));
}

TEST(id_ability, takes_a_number) {
    EXPECT_EQ(id_ability(7).id(), 7U);
    EXPECT_EQ(id_ability(0).id(), 0U);
    EXPECT_EQ(id_ability(18446744073709551615U).id(), 18446744073709551615U);
}

TEST(id_ability, a_copy_keeps_the_id_of_its_source) {
    id_ability const source;
    id_ability const copy(source);
    EXPECT_EQ(copy.id(), reinterpret_cast<std::uintptr_t>(&source));
    id_ability assigned(3);
    assigned = source;
    EXPECT_EQ(assigned.id(), source.id());
}

TEST(id_ability, the_setter_returns_the_new_value) {
    id_ability object;
    EXPECT_EQ(object.id(5), 5U);
    EXPECT_EQ(object.id(), 5U);
}

} // namespace
