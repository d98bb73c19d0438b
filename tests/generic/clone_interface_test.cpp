#include "veldrin/generic/clone_interface.hpp"

#include <memory>
#include <type_traits>

#include <gtest/gtest.h>

#include "support/virtual_slot.hpp"

namespace {

using VELDRIN_2_18::generic::clone_interface;
namespace abilities = VELDRIN_2_18::generic::abilities;

struct number : clone_interface {
    explicit number(int initial, int& destroyed_count) : value(initial), destroyed(destroyed_count) {}
    ~number() override { ++destroyed; }
    number* clone() const override { return new number(value, destroyed); }

    int value;
    int& destroyed;
};

TEST(clone_interface, clones_and_destroys_through_the_interface) {
    int destroyed = 0;
    {
        number const original(9, destroyed);
        std::unique_ptr<clone_interface> const copy(static_cast<clone_interface const&>(original).clone());
        EXPECT_EQ(dynamic_cast<number&>(*copy).value, 9);
        EXPECT_NE(copy.get(), &original);
    }
    EXPECT_EQ(destroyed, 2);
}

TEST(clone_interface, is_abstract_and_marked_as_clonable) {
    EXPECT_TRUE(std::is_abstract_v<clone_interface>);
    EXPECT_TRUE(std::has_virtual_destructor_v<clone_interface>);
    EXPECT_TRUE((std::is_base_of_v<abilities::clone_ability, clone_interface>));
    EXPECT_EQ(support::virtual_slot(&clone_interface::clone), 2U);
}

} // namespace
