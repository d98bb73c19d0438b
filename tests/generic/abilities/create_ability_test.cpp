#include "veldrin/generic/abilities/create_ability.hpp"

#include <memory>
#include <type_traits>

#include <gtest/gtest.h>

#include "veldrin/generic/abilities/clone_ability.hpp"

namespace {

namespace abilities = VELDRIN_2_18::generic::abilities;

template <class Ability>
class marker_ability : public testing::Test {};

using both_markers = testing::Types<abilities::create_ability, abilities::clone_ability>;
TYPED_TEST_SUITE(marker_ability, both_markers);

template <class Ability>
struct marked : Ability {
    explicit marked(int& destroyed_count) : destroyed(destroyed_count) {}
    ~marked() override { ++destroyed; }

    int& destroyed;
};

TYPED_TEST(marker_ability, has_a_virtual_destructor_and_no_data) {
    EXPECT_TRUE(std::has_virtual_destructor_v<TypeParam>);
    EXPECT_EQ(sizeof(TypeParam), sizeof(void*));
    int destroyed = 0;
    std::unique_ptr<TypeParam>(std::make_unique<marked<TypeParam>>(destroyed)).reset();
    EXPECT_EQ(destroyed, 1);
}

TYPED_TEST(marker_ability, copies_with_the_class_that_it_marks) {
    int destroyed = 0;
    {
        marked<TypeParam> const original(destroyed);
        marked<TypeParam> const copy(original);
        EXPECT_EQ(&copy.destroyed, &destroyed);
    }
    EXPECT_EQ(destroyed, 2);
}

} // namespace
