#include "veldrin/memory/pointers/rc_pointer.hpp"

#include <string>

#include <gtest/gtest.h>

#include "veldrin/generic/abilities/clone_ability.hpp"
#include "veldrin/generic/abilities/make_dynamic.hpp"

namespace {

namespace abilities = VELDRIN_2_18::generic::abilities;
using VELDRIN_2_18::memory::pointers::rc_pointer;

struct shape : abilities::reference_count_pointer_ability<shape>, abilities::clone_ability {
    explicit shape(std::string& text) : log(text) {}
    shape(shape const& other) : reference_count_pointer_ability(), clone_ability(other), log(other.log) {}
    ~shape() override { log += "shape "; }
    virtual shape* clone() const = 0;
    using reference_count_pointer_ability::get_ref_count;

    std::string& log;
};

struct circle : shape {
    using shape::shape;
    ~circle() override { log += "circle "; }
    circle* clone() const override { return abilities::make_dynamic<circle>(*this); }
};

TEST(rc_pointer, destroys_through_the_virtual_destructor) {
    std::string log;
    rc_pointer<shape> pointer(abilities::make_dynamic<circle>(log));
    pointer = nullptr;
    EXPECT_EQ(log, "circle shape ");
}

TEST(rc_pointer, takes_a_clone_as_an_object_of_its_own) {
    std::string log;
    rc_pointer<shape> const original(abilities::make_dynamic<circle>(log));
    rc_pointer<shape> const second(original);
    shape* const raw = original->clone();
    EXPECT_EQ(raw->get_ref_count(), 0U);
    EXPECT_TRUE(raw->is_created_dynamic());
    {
        rc_pointer<shape> const copy(raw);
        EXPECT_EQ(copy->get_ref_count(), 1U);
        EXPECT_EQ(original->get_ref_count(), 2U);
    }
    EXPECT_EQ(log, "circle shape ");
}

} // namespace
