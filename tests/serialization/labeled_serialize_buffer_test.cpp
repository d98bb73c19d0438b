#include "veldrin/serialization/labeled_serialize_buffer.hpp"

#include <cstdint>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include "support/virtual_slot.hpp"
#include "veldrin/generic/abilities/clone_ability.hpp"
#include "veldrin/generic/abilities/create_ability.hpp"
#include "veldrin/generic/abilities/reference_count_pointer_ability.hpp"
#include "veldrin/serialization/labeled_text_buffer.hpp"

namespace {

using namespace VELDRIN_2_18;
using serialization::labeled_serialize_buffer;
using serialization::labeled_text_buffer;
using support::virtual_slot;

static_assert(std::is_abstract_v<labeled_serialize_buffer>);
static_assert(std::has_virtual_destructor_v<labeled_serialize_buffer>);
static_assert(std::is_base_of_v<generic::abilities::create_ability, labeled_serialize_buffer>);
static_assert(std::is_base_of_v<generic::abilities::clone_ability, labeled_serialize_buffer>);
static_assert(std::is_base_of_v<generic::abilities::reference_count_pointer_ability<labeled_serialize_buffer>,
                                labeled_serialize_buffer>);
static_assert(labeled_serialize_buffer::value_added == 0 && labeled_serialize_buffer::value_replaced == 1);

TEST(labeled_serialize_buffer, virtual_operations_stand_in_their_fixed_order) {
    using buffer = labeled_serialize_buffer;
    using text = std::string const&;
    using of_text = buffer& (buffer::*)(text);
    using of_bytes = buffer& (buffer::*)(char const*, int);
    using of_buffer = buffer& (buffer::*)(buffer const&);
    using group = buffer* (buffer::*)(text);
    using constant_group = buffer const* (buffer::*)(text) const;
    EXPECT_EQ(virtual_slot<of_bytes>(&buffer::assign), 2U);
    EXPECT_EQ(virtual_slot<of_text>(&buffer::assign), 3U);
    EXPECT_EQ(virtual_slot<of_buffer>(&buffer::assign), 4U);
    EXPECT_EQ(virtual_slot(&buffer::as_str), 5U);
    EXPECT_EQ(virtual_slot(&buffer::add_value), 6U);
    EXPECT_EQ(virtual_slot(&buffer::create_group), 7U);
    EXPECT_EQ(virtual_slot(&buffer::has_label), 8U);
    EXPECT_EQ(virtual_slot(&buffer::has_value), 9U);
    EXPECT_EQ(virtual_slot(&buffer::has_group), 10U);
    EXPECT_EQ(virtual_slot(&buffer::is_empty), 11U);
    EXPECT_EQ(virtual_slot(&buffer::retrieve_value), 12U);
    EXPECT_EQ(virtual_slot<group>(&buffer::retrieve_group), 13U);
    EXPECT_EQ(virtual_slot<constant_group>(&buffer::retrieve_group), 14U);
    EXPECT_EQ(virtual_slot(&buffer::create), 15U);
    EXPECT_EQ(virtual_slot(&buffer::clone), 16U);

    using of_text_buffer = labeled_text_buffer& (labeled_text_buffer::*)(labeled_text_buffer const&);
    EXPECT_EQ(virtual_slot<of_text_buffer>(&labeled_text_buffer::assign), 17U);
}

TEST(labeled_serialize_buffer, has_its_bases_in_their_fixed_order) {
    labeled_text_buffer const buffer;
    auto const offset_of = [&](auto const& base) {
        return reinterpret_cast<std::uintptr_t>(&base) - reinterpret_cast<std::uintptr_t>(&buffer);
    };
    using counted = generic::abilities::reference_count_pointer_ability<labeled_serialize_buffer>;
    EXPECT_EQ(offset_of(static_cast<generic::abilities::create_ability const&>(buffer)), 0U);
    EXPECT_EQ(offset_of(static_cast<generic::abilities::clone_ability const&>(buffer)), sizeof(void*));
    EXPECT_EQ(offset_of(static_cast<counted const&>(buffer)), 2 * sizeof(void*));
}

TEST(labeled_serialize_buffer, is_assigned_by_assign) {
    labeled_text_buffer source;
    source.add_value("a", 5);

    labeled_text_buffer from_text;
    labeled_serialize_buffer& target = from_text;
    EXPECT_EQ(&(target = source.as_str()), &target);
    EXPECT_EQ(target.retrieve_value("a").type(), typeid(std::string));

    labeled_text_buffer from_buffer;
    labeled_serialize_buffer& other_target = from_buffer;
    labeled_serialize_buffer const& other = source;
    EXPECT_EQ(&(other_target = other), &other_target);
    EXPECT_EQ(other_target.retrieve_value("a").type(), typeid(std::string));
}

} // namespace
