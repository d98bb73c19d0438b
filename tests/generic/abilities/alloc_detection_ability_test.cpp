#include "veldrin/generic/abilities/alloc_detection_ability.hpp"

#include <memory>
#include <type_traits>

#include <gtest/gtest.h>

#include "veldrin/generic/abilities/make_dynamic.hpp"

namespace {

using VELDRIN_2_18::generic::abilities::alloc_detection_ability;
using VELDRIN_2_18::generic::abilities::make_dynamic;

TEST(alloc_detection_ability, flag_is_false_after_construction) {
    alloc_detection_ability const on_the_stack;
    static alloc_detection_ability const in_static_storage;
    std::unique_ptr<alloc_detection_ability> const by_plain_new(new alloc_detection_ability);
    EXPECT_FALSE(on_the_stack.is_created_dynamic());
    EXPECT_FALSE(in_static_storage.is_created_dynamic());
    EXPECT_FALSE(by_plain_new->is_created_dynamic());
}

TEST(alloc_detection_ability, a_copy_is_a_new_object) {
    std::unique_ptr<alloc_detection_ability> const source(make_dynamic<alloc_detection_ability>());
    alloc_detection_ability const copy(*source);
    EXPECT_TRUE(source->is_created_dynamic());
    EXPECT_FALSE(copy.is_created_dynamic());
}

TEST(alloc_detection_ability, assignment_copies_the_flag_as_a_plain_value) {
    std::unique_ptr<alloc_detection_ability> const flagged(make_dynamic<alloc_detection_ability>());
    alloc_detection_ability target;
    EXPECT_EQ(&(target = *flagged), &target);
    EXPECT_TRUE(target.is_created_dynamic());
    target = alloc_detection_ability();
    EXPECT_FALSE(target.is_created_dynamic());
}

TEST(alloc_detection_ability, holds_nothing_but_the_flag) {
    EXPECT_EQ(sizeof(alloc_detection_ability), sizeof(bool));
    EXPECT_FALSE(std::is_polymorphic_v<alloc_detection_ability>);
}

} // namespace
