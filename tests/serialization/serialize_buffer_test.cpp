#include "veldrin/serialization/serialize_buffer.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>

#include "support/virtual_slot.hpp"
#include "veldrin/generic/abilities/make_dynamic.hpp"
#include "veldrin/memory/pointers/rc_pointer.hpp"
#include "veldrin/serialization/serialize_binary_buf.hpp"
#include "veldrin/serialization/serialize_text_buf.hpp"

namespace {

using namespace VELDRIN_2_18;
using namespace std::string_literals;
using generic::abilities::make_dynamic;
using serialization::serialize_binary_buf;
using serialization::serialize_buffer;
using serialization::serialize_text_buf;
using support::virtual_slot;

static_assert(std::is_base_of_v<generic::abilities::create_ability, serialize_buffer>);
static_assert(std::is_base_of_v<generic::abilities::clone_ability, serialize_buffer>);
static_assert(std::is_base_of_v<generic::abilities::reference_count_pointer_ability<serialize_buffer>,
                                serialize_buffer>);
static_assert(std::has_virtual_destructor_v<serialize_buffer>);
static_assert(std::is_abstract_v<serialize_buffer>);

TEST(serialize_buffer, has_its_virtual_operations_in_their_fixed_order) {
    using buffer = serialize_buffer;
    using assign_pointer = buffer& (buffer::*)(char const*, int);
    using assign_string = buffer& (buffer::*)(std::string const&);
    using assign_buffer = buffer& (buffer::*)(buffer const&);
    EXPECT_EQ(virtual_slot(static_cast<assign_pointer>(&buffer::assign)), 2U);
    EXPECT_EQ(virtual_slot(static_cast<assign_string>(&buffer::assign)), 3U);
    EXPECT_EQ(virtual_slot(static_cast<assign_buffer>(&buffer::assign)), 4U);
    EXPECT_EQ(virtual_slot(&buffer::as_str), 5U);
    EXPECT_EQ(virtual_slot(&buffer::append_int8), 6U);
    EXPECT_EQ(virtual_slot(&buffer::append_int16), 7U);
    EXPECT_EQ(virtual_slot(&buffer::append_int32), 8U);
    EXPECT_EQ(virtual_slot(&buffer::append_int64), 9U);
    EXPECT_EQ(virtual_slot(&buffer::append_uint8), 10U);
    EXPECT_EQ(virtual_slot(&buffer::append_uint16), 11U);
    EXPECT_EQ(virtual_slot(&buffer::append_uint32), 12U);
    EXPECT_EQ(virtual_slot(&buffer::append_uint64), 13U);
    EXPECT_EQ(virtual_slot(&buffer::append_float), 14U);
    EXPECT_EQ(virtual_slot(&buffer::append_double), 15U);
    EXPECT_EQ(virtual_slot(&buffer::append_string), 16U);
    EXPECT_EQ(virtual_slot(&buffer::append_buffer), 17U);
    EXPECT_EQ(virtual_slot(&buffer::read_int8), 18U);
    EXPECT_EQ(virtual_slot(&buffer::read_int16), 19U);
    EXPECT_EQ(virtual_slot(&buffer::read_int32), 20U);
    EXPECT_EQ(virtual_slot(&buffer::read_int64), 21U);
    EXPECT_EQ(virtual_slot(&buffer::read_uint8), 22U);
    EXPECT_EQ(virtual_slot(&buffer::read_uint16), 23U);
    EXPECT_EQ(virtual_slot(&buffer::read_uint32), 24U);
    EXPECT_EQ(virtual_slot(&buffer::read_uint64), 25U);
    EXPECT_EQ(virtual_slot(&buffer::read_float), 26U);
    EXPECT_EQ(virtual_slot(&buffer::read_double), 27U);
    EXPECT_EQ(virtual_slot(&buffer::read_string), 28U);
    EXPECT_EQ(virtual_slot(&buffer::read_buffer), 29U);
    EXPECT_EQ(virtual_slot(&buffer::at_end), 30U);
    EXPECT_EQ(virtual_slot(&buffer::reset_read), 31U);
    EXPECT_EQ(virtual_slot(&buffer::create), 32U);
    EXPECT_EQ(virtual_slot(&buffer::clone), 33U);
}

TEST(serialize_buffer, has_its_bases_in_their_fixed_order) {
    serialize_binary_buf const buffer;
    auto const offset_of = [&](auto const& base) {
        return reinterpret_cast<std::uintptr_t>(&base) - reinterpret_cast<std::uintptr_t>(&buffer);
    };
    using counted = generic::abilities::reference_count_pointer_ability<serialize_buffer>;
    EXPECT_EQ(offset_of(static_cast<generic::abilities::create_ability const&>(buffer)), 0U);
    EXPECT_EQ(offset_of(static_cast<generic::abilities::clone_ability const&>(buffer)), sizeof(void*));
    EXPECT_EQ(offset_of(static_cast<counted const&>(buffer)), 2 * sizeof(void*));
}

// What holds for both forms.
template <class Form>
class serialize_forms : public testing::Test {
protected:
    using other_form = std::conditional_t<std::is_same_v<Form, serialize_text_buf>, serialize_binary_buf,
                                          serialize_text_buf>;

    static Form three_numbers() {
        Form buffer;
        buffer.append_int32(1);
        buffer.append_int32(2);
        buffer.append_int32(3);
        return buffer;
    }

    static std::unique_ptr<serialize_buffer> owned(serialize_buffer* buffer) {
        return std::unique_ptr<serialize_buffer>(buffer);
    }
};

using both_forms = testing::Types<serialize_binary_buf, serialize_text_buf>;
TYPED_TEST_SUITE(serialize_forms, both_forms);

// ---- Construction and assignment ----

TYPED_TEST(serialize_forms, start_empty) {
    TypeParam const buffer;
    EXPECT_EQ(buffer.as_str(), "");
    EXPECT_TRUE(buffer.at_end());
}

TYPED_TEST(serialize_forms, take_bytes_and_cursor_of_their_own_form) {
    TypeParam const source = this->three_numbers();
    EXPECT_EQ(source.read_int32(), 1);
    TypeParam const copy(source);
    EXPECT_EQ(copy.as_str(), source.as_str());
    EXPECT_EQ(copy.read_int32(), 2);
    EXPECT_EQ(source.read_int32(), 2);

    TypeParam assigned("something else"s);
    TypeParam& result = assigned = source;
    EXPECT_EQ(&result, &assigned);
    EXPECT_EQ(assigned.as_str(), source.as_str());
    EXPECT_EQ(assigned.read_int32(), 3);
    EXPECT_EQ(source.read_int32(), 3);
}

TYPED_TEST(serialize_forms, take_the_bytes_of_any_buffer_and_start_at_the_front) {
    TypeParam const source = this->three_numbers();
    source.read_int32();
    TypeParam const from_own(static_cast<serialize_buffer const&>(source));
    EXPECT_EQ(from_own.as_str(), source.as_str());
    EXPECT_EQ(from_own.read_int32(), 1);

    typename TestFixture::other_form const other(source.as_str());
    other.read_int32();
    TypeParam const from_other(other);
    EXPECT_EQ(from_other.as_str(), source.as_str());
    EXPECT_EQ(from_other.read_int32(), 1);
}

TYPED_TEST(serialize_forms, take_bytes_and_start_at_the_front) {
    std::string const bytes = this->three_numbers().as_str();
    TypeParam const buffer(bytes);
    EXPECT_EQ(buffer.as_str(), bytes);
    EXPECT_EQ(buffer.read_int32(), 1);
    TypeParam const converted = bytes;
    EXPECT_EQ(converted.as_str(), bytes);
}

// Each of these replaces the bytes of a buffer that has read one number.
TYPED_TEST(serialize_forms, leave_the_cursor_where_it_is_when_bytes_are_assigned) {
    TypeParam source;
    source.append_int32(7);
    source.append_int32(8);
    std::string const bytes = source.as_str();
    typename TestFixture::other_form const other(bytes);
    serialize_buffer const& source_base = source;

    auto const expect = [&](char const* name, auto assign) {
        SCOPED_TRACE(name);
        TypeParam buffer = this->three_numbers();
        EXPECT_EQ(buffer.read_int32(), 1);
        serialize_buffer const& result = assign(buffer);
        EXPECT_EQ(&result, &buffer);
        EXPECT_EQ(buffer.as_str(), bytes);
        EXPECT_EQ(buffer.read_int32(), 8);
        EXPECT_TRUE(buffer.at_end());
        buffer.reset_read();
        EXPECT_EQ(buffer.read_int32(), 7);
    };
    using base = serialize_buffer;
    expect("assign pointer", [&](TypeParam& buffer) -> base& {
        return buffer.assign(bytes.data(), static_cast<int>(bytes.size()));
    });
    expect("assign string", [&](TypeParam& buffer) -> base& { return buffer.assign(bytes); });
    expect("assign own form", [&](TypeParam& buffer) -> base& { return buffer.assign(source); });
    expect("assign other form", [&](TypeParam& buffer) -> base& { return buffer.assign(other); });
    expect("= string", [&](TypeParam& buffer) -> base& { return buffer = bytes; });
    expect("= other form", [&](TypeParam& buffer) -> base& { return buffer = other; });
    expect("= interface", [&](TypeParam& buffer) -> base& { return buffer = source_base; });
    expect("interface = string", [&](base& buffer) -> base& { return buffer = bytes; });
    expect("interface = interface", [&](base& buffer) -> base& { return buffer = source_base; });
}

TYPED_TEST(serialize_forms, leave_a_cursor_behind_the_end_when_shorter_bytes_are_assigned) {
    TypeParam buffer = this->three_numbers();
    buffer.read_int32();
    buffer.read_int32();
    buffer.assign("1"s);
    EXPECT_TRUE(buffer.at_end());
    EXPECT_EQ(buffer.read_int8(), 0);
}

TYPED_TEST(serialize_forms, take_as_many_bytes_as_the_size_says) {
    TypeParam buffer("old"s);
    buffer.assign("a\0b\x01ignored", 4);
    EXPECT_EQ(buffer.as_str(), "a\0b\x01"s);
    for (int const size : {0, -1, INT32_MIN}) {
        buffer.assign("x"s);
        buffer.assign("abc", size);
        EXPECT_EQ(buffer.as_str(), "") << size;
    }
    buffer.assign(nullptr, 0);
    EXPECT_EQ(buffer.as_str(), "");
}

TYPED_TEST(serialize_forms, can_be_assigned_their_own_bytes) {
    TypeParam buffer = this->three_numbers();
    std::string const bytes = buffer.as_str();
    TypeParam const& self = buffer;
    buffer = self;
    buffer.assign(self);
    buffer.assign(buffer.as_str());
    EXPECT_EQ(buffer.as_str(), bytes);
    buffer.assign(buffer.as_str().data() + 1, 3);
    EXPECT_EQ(buffer.as_str(), bytes.substr(1, 3));
}

TYPED_TEST(serialize_forms, give_their_bytes_without_a_copy) {
    TypeParam buffer;
    std::string const& bytes = buffer.as_str();
    EXPECT_EQ(&bytes, &buffer.as_str());
    buffer.append_string("abc");
    EXPECT_NE(bytes.find("abc"), std::string::npos);
}

// ---- Objects on the heap ----

TYPED_TEST(serialize_forms, create_an_empty_buffer_of_the_same_class) {
    TypeParam const source = this->three_numbers();
    source.read_int32();
    auto const created = this->owned(source.create());
    EXPECT_EQ(typeid(*created), typeid(TypeParam));
    EXPECT_TRUE(created->is_created_dynamic());
    EXPECT_EQ(created->as_str(), "");
    created->append_int32(5);
    EXPECT_EQ(created->read_int32(), 5);
}

TYPED_TEST(serialize_forms, clone_to_a_buffer_that_goes_on_reading) {
    TypeParam const source = this->three_numbers();
    source.read_int32();
    auto const clone = this->owned(source.clone());
    EXPECT_EQ(typeid(*clone), typeid(TypeParam));
    EXPECT_TRUE(clone->is_created_dynamic());
    EXPECT_EQ(clone->as_str(), source.as_str());
    EXPECT_EQ(clone->read_int32(), 2);
    clone->append_int32(4);
    EXPECT_EQ(clone->read_int32(), 3);
    EXPECT_EQ(clone->read_int32(), 4);
    EXPECT_EQ(source.read_int32(), 2);
    EXPECT_EQ(source.read_int32(), 3);
    EXPECT_TRUE(source.at_end());
}

TYPED_TEST(serialize_forms, are_held_by_counted_pointers) {
    using pointer = memory::pointers::rc_pointer<serialize_buffer>;
    TypeParam local;
    local.append_buffer(this->three_numbers());
    pointer const passing(&local);
    pointer const created(passing->create());
    pointer const cloned(passing->clone());
    pointer const nested(passing->read_buffer());
    pointer const shared(nested);
    EXPECT_EQ(shared->read_int32(), 1);
    EXPECT_TRUE(nested->is_created_dynamic());
}

// A copy is an object of its own, whose last pointer must not take it for one on the heap, nor the other way.
TYPED_TEST(serialize_forms, keep_their_own_count_and_flag) {
    auto const heap = this->owned(make_dynamic<TypeParam>());
    auto const& dynamic = static_cast<TypeParam const&>(*heap);
    TypeParam copy(dynamic);
    EXPECT_FALSE(copy.is_created_dynamic());
    copy = dynamic;
    EXPECT_FALSE(copy.is_created_dynamic());
    static_cast<serialize_buffer&>(copy) = dynamic;
    EXPECT_FALSE(copy.is_created_dynamic());
    *heap = copy;
    EXPECT_TRUE(heap->is_created_dynamic());
}

// ---- Reading and appending ----

TYPED_TEST(serialize_forms, are_read_and_appended_to_in_turns) {
    TypeParam buffer;
    buffer.append_int32(1);
    buffer.append_string("two");
    EXPECT_EQ(buffer.read_int32(), 1);
    buffer.append_int32(3);
    EXPECT_EQ(buffer.read_string(), "two");
    EXPECT_EQ(buffer.read_int32(), 3);
    EXPECT_TRUE(buffer.at_end());
    buffer.append_uint64(4);
    EXPECT_FALSE(buffer.at_end());
    EXPECT_EQ(buffer.read_uint64(), 4U);
    EXPECT_TRUE(buffer.at_end());
}

TYPED_TEST(serialize_forms, are_read_again_from_the_front) {
    TypeParam const buffer = this->three_numbers();
    std::string const bytes = buffer.as_str();
    for (int turn = 0; turn < 2; ++turn) {
        EXPECT_EQ(buffer.read_int32(), 1);
        EXPECT_EQ(buffer.read_int32(), 2);
        EXPECT_EQ(buffer.read_int32(), 3);
        EXPECT_TRUE(buffer.at_end());
        buffer.reset_read();
        EXPECT_FALSE(buffer.at_end());
    }
    EXPECT_EQ(buffer.as_str(), bytes);
}

TYPED_TEST(serialize_forms, frame_a_nested_buffer_as_a_string) {
    typename TestFixture::other_form other;
    other.append_string("abc");
    TypeParam const own = this->three_numbers();
    TypeParam nested;
    nested.append_buffer(own);
    nested.append_buffer(other);
    TypeParam strings;
    strings.append_string(own.as_str());
    strings.append_string(other.as_str());
    EXPECT_EQ(nested.as_str(), strings.as_str());

    EXPECT_EQ(nested.read_string(), own.as_str());
    EXPECT_EQ(nested.read_string(), other.as_str());
    auto const read_own = this->owned(strings.read_buffer());
    EXPECT_EQ(typeid(*read_own), typeid(TypeParam));
    EXPECT_EQ(read_own->read_int32(), 1);
    EXPECT_EQ(read_own->as_str(), own.as_str());
    auto const read_other = this->owned(strings.read_buffer());
    EXPECT_EQ(typeid(*read_other), typeid(TypeParam));
    EXPECT_EQ(read_other->as_str(), other.as_str());
    EXPECT_TRUE(strings.at_end());
}

// The bytes to append grow while they are appended, and move to new storage; each doubling does both.
TYPED_TEST(serialize_forms, can_be_appended_to_themselves) {
    TypeParam buffer("start"s);
    for (int turn = 0; turn < 8; ++turn) {
        std::string const before = buffer.as_str();
        TypeParam expected(before);
        expected.append_string(before);
        if (turn % 2 == 0) {
            buffer.append_buffer(buffer);
        } else {
            buffer.append_string(buffer.as_str());
        }
        ASSERT_EQ(buffer.as_str(), expected.as_str());
    }
}

TYPED_TEST(serialize_forms, nest_to_any_depth) {
    auto buffer = this->owned(make_dynamic<TypeParam>(this->three_numbers()));
    for (int depth = 0; depth < 100; ++depth) {
        auto outer = this->owned(buffer->create());
        outer->append_buffer(*buffer);
        buffer = std::move(outer);
    }
    for (int depth = 0; depth < 100; ++depth) {
        buffer = this->owned(buffer->read_buffer());
    }
    EXPECT_EQ(buffer->as_str(), this->three_numbers().as_str());
}

} // namespace
