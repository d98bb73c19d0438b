#include "veldrin/generic/abilities/reference_count_pointer_ability.hpp"

#include <cstdint>
#include <memory>
#include <type_traits>

#include <gtest/gtest.h>

#include "veldrin/generic/abilities/make_dynamic.hpp"

namespace {

namespace abilities = VELDRIN_2_18::generic::abilities;

struct counted : abilities::reference_count_pointer_ability<counted> {
    using reference_count_pointer_ability::dec_pointer_ref;
    using reference_count_pointer_ability::get_ref_count;
    using reference_count_pointer_ability::inc_pointer_ref;
    using reference_count_pointer_ability::is_pointer_referenced;
};

TEST(reference_count_pointer_ability, counts_from_zero) {
    counted object;
    EXPECT_EQ(object.get_ref_count(), 0U);
    EXPECT_FALSE(object.is_pointer_referenced());
    object.inc_pointer_ref();
    object.inc_pointer_ref();
    EXPECT_EQ(object.get_ref_count(), 2U);
    EXPECT_TRUE(object.is_pointer_referenced());
}

TEST(reference_count_pointer_ability, decrement_returns_the_new_count) {
    counted object;
    object.inc_pointer_ref();
    object.inc_pointer_ref();
    EXPECT_EQ(object.dec_pointer_ref(), 1);
    EXPECT_EQ(object.dec_pointer_ref(), 0);
    EXPECT_FALSE(object.is_pointer_referenced());
}

TEST(reference_count_pointer_ability, the_count_has_32_unsigned_bits) {
    counted object;
    EXPECT_EQ(object.dec_pointer_ref(), -1);
    EXPECT_EQ(object.get_ref_count(), 4294967295U);
    EXPECT_TRUE((std::is_same_v<decltype(object.get_ref_count()), std::uint32_t>));
    EXPECT_TRUE((std::is_same_v<decltype(object.dec_pointer_ref()), int>));
}

TEST(reference_count_pointer_ability, a_copy_starts_a_new_count) {
    std::unique_ptr<counted> const source(abilities::make_dynamic<counted>());
    source->inc_pointer_ref();
    counted const copy(*source);
    EXPECT_EQ(copy.get_ref_count(), 0U);
    EXPECT_FALSE(copy.is_created_dynamic());
    EXPECT_EQ(source->get_ref_count(), 1U);
    EXPECT_TRUE(source->is_created_dynamic());
}

TEST(reference_count_pointer_ability, assignment_copies_flag_and_count_as_plain_values) {
    std::unique_ptr<counted> const source(abilities::make_dynamic<counted>());
    source->inc_pointer_ref();
    source->inc_pointer_ref();
    counted target;
    target = *source;
    EXPECT_EQ(target.get_ref_count(), 2U);
    EXPECT_TRUE(target.is_created_dynamic());
    EXPECT_EQ(source->get_ref_count(), 2U);
}

TEST(reference_count_pointer_ability, the_template_adds_no_data) {
    using base = abilities::reference_count_pointer_ability_b;
    EXPECT_EQ(sizeof(abilities::reference_count_pointer_ability<counted>), sizeof(base));
    EXPECT_EQ(sizeof(base), 2 * sizeof(std::uint32_t));
    EXPECT_TRUE((std::is_base_of_v<abilities::alloc_detection_ability, base>));
    EXPECT_TRUE((std::is_base_of_v<base, abilities::reference_count_pointer_ability<counted>>));
}

// Counting is for derived classes and counted pointers: callers see constructor, destructor, assignment and
// flag.
template <class T, class = void>
constexpr bool callers_can_count = false;
template <class T>
constexpr bool callers_can_count<T, std::void_t<decltype(std::declval<T&>().inc_pointer_ref())>> = true;

TEST(reference_count_pointer_ability, counting_is_protected) {
    EXPECT_FALSE(callers_can_count<abilities::reference_count_pointer_ability<counted>>);
    EXPECT_TRUE(callers_can_count<counted>);
}

} // namespace
