#include "veldrin/generic/abilities/make_dynamic.hpp"

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "veldrin/generic/abilities/reference_count_pointer_ability.hpp"

namespace {

namespace abilities = VELDRIN_2_18::generic::abilities;

struct labelled : abilities::reference_count_pointer_ability<labelled> {
    labelled(std::string first, std::unique_ptr<int> second)
        : flag_while_constructed(is_created_dynamic()), label(std::move(first)), number(std::move(second)) {}
    using reference_count_pointer_ability::get_ref_count;

    bool flag_while_constructed;
    std::string label;
    std::unique_ptr<int> number;
};

TEST(make_dynamic, sets_the_flag_behind_the_construction_and_leaves_the_count_at_zero) {
    std::unique_ptr<labelled> const object(
        abilities::make_dynamic<labelled>("name", std::make_unique<int>(4)));
    EXPECT_FALSE(object->flag_while_constructed);
    EXPECT_TRUE(object->is_created_dynamic());
    EXPECT_EQ(object->get_ref_count(), 0U);
    EXPECT_EQ(object->label, "name");
    EXPECT_EQ(*object->number, 4);
}

struct throwing : abilities::alloc_detection_ability {
    throwing() { throw std::runtime_error("no object"); }
};

TEST(make_dynamic, passes_on_what_the_constructor_throws) {
    EXPECT_THROW(abilities::make_dynamic<throwing>(), std::runtime_error);
}

} // namespace
