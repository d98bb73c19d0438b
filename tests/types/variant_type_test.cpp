#include "veldrin/types/variant_type.hpp"

#include <cstdint>
#include <memory>
#include <sstream>
#include <string>
#include <type_traits>
#include <typeinfo>

#include <gtest/gtest.h>

#include "support/unit_texts.hpp"
#include "support/virtual_slot.hpp"
#include "veldrin/generic/abilities/make_dynamic.hpp"
#include "veldrin/memory/pointers/rc_pointer.hpp"
#include "veldrin/strings/unicode.hpp"
#include "veldrin/types/nil.hpp"

namespace {

using namespace VELDRIN_2_18;
using generic::abilities::make_dynamic;
using strings::ustring8;
using support::virtual_slot;
using types::variant_type;
using types::variant_value_t;
using pointer = memory::pointers::rc_pointer<variant_type>;

// Makes the protected count of an object visible.
struct count_access : variant_type {
    static std::uint32_t count(variant_type const& object) {
        auto const get_count = &count_access::get_ref_count;
        return (object.*get_count)();
    }
};

// ---- The virtual table ---------------------------------------------------------------------------------

TEST(variant_type, virtual_operations_stand_in_their_fixed_order) {
    EXPECT_TRUE(std::has_virtual_destructor_v<variant_type>);
    EXPECT_TRUE(std::is_abstract_v<variant_type>);
    EXPECT_EQ(virtual_slot(&variant_type::always_one), 2U);
    EXPECT_EQ(virtual_slot(&variant_type::type), 3U);
    EXPECT_EQ(virtual_slot(&variant_type::clone), 4U);
    EXPECT_EQ(virtual_slot(&variant_type::ostream), 5U);
    EXPECT_EQ(virtual_slot(&variant_type::as_int), 6U);
    EXPECT_EQ(virtual_slot(&variant_type::as_short), 7U);
    EXPECT_EQ(virtual_slot(&variant_type::as_long), 8U);
    EXPECT_EQ(virtual_slot(&variant_type::as_int8), 9U);
    EXPECT_EQ(virtual_slot(&variant_type::as_int16), 10U);
    EXPECT_EQ(virtual_slot(&variant_type::as_int32), 11U);
    EXPECT_EQ(virtual_slot(&variant_type::as_int64), 12U);
    EXPECT_EQ(virtual_slot(&variant_type::as_uint8), 13U);
    EXPECT_EQ(virtual_slot(&variant_type::as_uint16), 14U);
    EXPECT_EQ(virtual_slot(&variant_type::as_uint32), 15U);
    EXPECT_EQ(virtual_slot(&variant_type::as_uint64), 16U);
    EXPECT_EQ(virtual_slot(&variant_type::as_bool), 17U);
    EXPECT_EQ(virtual_slot(&variant_type::as_string), 18U);
    EXPECT_EQ(virtual_slot(&variant_type::as_wstring), 19U);
    EXPECT_EQ(virtual_slot(&variant_type::as_ustring), 20U);
    EXPECT_EQ(virtual_slot(&variant_type::as_utf8), 21U);
    EXPECT_EQ(virtual_slot(&variant_type::as_utf16), 22U);
    EXPECT_EQ(virtual_slot(&variant_type::as_utf32), 23U);
    EXPECT_EQ(virtual_slot(&variant_type::as_float), 24U);
    EXPECT_EQ(virtual_slot(&variant_type::as_double), 25U);
    EXPECT_EQ(virtual_slot(&variant_type::as_long_double), 26U);
}

TEST(variant_type, is_counted_and_clonable) {
    EXPECT_TRUE(
        (std::is_base_of_v<generic::abilities::reference_count_pointer_ability<variant_type>, variant_type>));
    EXPECT_TRUE((std::is_base_of_v<generic::abilities::clone_ability, variant_type>));
}

TEST(variant_type, cannot_be_copied_over) {
    EXPECT_FALSE(std::is_copy_constructible_v<variant_value_t<int>>);
    EXPECT_FALSE(std::is_copy_assignable_v<variant_value_t<int>>);
}

// ---- The twenty instantiations -------------------------------------------------------------------------

template <class T>
T sample() {
    if constexpr (std::is_same_v<T, types::nil_t>) {
        return types::nil;
    } else if constexpr (std::is_arithmetic_v<T>) {
        return T(1);
    } else {
        return support::text_of_units<T>({'1'});
    }
}

template <class T>
class variant_value : public testing::Test {};

using kinds = testing::Types<bool, signed char, unsigned char, short, unsigned short, int, unsigned int, long,
                             unsigned long, long long, unsigned long long, float, double, long double,
                             std::string, strings::wide_string, strings::ustring8, strings::ustring16,
                             strings::ustring32, types::nil_t>;
TYPED_TEST_SUITE(variant_value, kinds);

TYPED_TEST(variant_value, always_one_is_one) {
    pointer const held(make_dynamic<variant_value_t<TypeParam>>(sample<TypeParam>()));
    EXPECT_EQ(held->always_one(), 1);
}

TYPED_TEST(variant_value, type_is_that_of_the_value) {
    pointer const held(make_dynamic<variant_value_t<TypeParam>>(sample<TypeParam>()));
    EXPECT_TRUE(held->type() == typeid(TypeParam));
}

TYPED_TEST(variant_value, clone_is_an_object_of_its_own_with_a_copy_of_the_value) {
    pointer const held(make_dynamic<variant_value_t<TypeParam>>(sample<TypeParam>()));
    pointer const second(held);
    variant_type* const raw = held->clone();
    EXPECT_NE(raw, held.get());
    EXPECT_EQ(count_access::count(*raw), 0U);
    EXPECT_TRUE(raw->is_created_dynamic());
    pointer const copy(raw);
    EXPECT_EQ(count_access::count(*copy), 1U);
    EXPECT_EQ(count_access::count(*held), 2U);
    EXPECT_NE(dynamic_cast<variant_value_t<TypeParam> const*>(copy.get()), nullptr);
    EXPECT_TRUE(copy->type() == typeid(TypeParam));
    EXPECT_EQ(copy->as_utf8(), (std::is_same_v<TypeParam, types::nil_t> ? "0" : "1"));
}

TYPED_TEST(variant_value, every_operation_reads_the_value_one) {
    pointer const held(make_dynamic<variant_value_t<TypeParam>>(sample<TypeParam>()));
    bool const is_nil = std::is_same_v<TypeParam, types::nil_t>;
    int const number = is_nil ? 0 : 1;
    std::string const text = is_nil ? "0" : "1";
    EXPECT_EQ(held->as_int(), number);
    EXPECT_EQ(held->as_short(), number);
    EXPECT_EQ(held->as_long(), number);
    EXPECT_EQ(held->as_int8(), number);
    EXPECT_EQ(held->as_int16(), number);
    EXPECT_EQ(held->as_int32(), number);
    EXPECT_EQ(held->as_int64(), number);
    EXPECT_EQ(held->as_uint8(), number);
    EXPECT_EQ(held->as_uint16(), number);
    EXPECT_EQ(held->as_uint32(), static_cast<unsigned>(number));
    EXPECT_EQ(held->as_uint64(), static_cast<unsigned>(number));
    EXPECT_EQ(held->as_bool(), !is_nil);
    EXPECT_EQ(held->as_string(), text);
    EXPECT_EQ(strings::utf16_to_utf8(held->as_wstring()), text);
    EXPECT_EQ(strings::utf16_to_utf8(held->as_ustring()), text);
    EXPECT_EQ(held->as_utf8(), text);
    EXPECT_EQ(strings::utf16_to_utf8(held->as_utf16()), text);
    EXPECT_EQ(strings::utf32_to_utf8(held->as_utf32()), text);
    EXPECT_EQ(held->as_float(), static_cast<float>(number));
    EXPECT_EQ(held->as_double(), number);
    EXPECT_EQ(held->as_long_double(), number);
}

TEST(variant_value, a_wide_string_writes_its_type_and_the_address_of_the_held_value) {
    auto* const object = make_dynamic<variant_value_t<strings::wide_string>>(support::utf16({'a'}));
    pointer const held(object);
    std::ostringstream stream;
    EXPECT_EQ(&held->ostream(stream), &stream);
    std::string const text = stream.str();
    std::string const front = std::string("< ") + typeid(strings::wide_string).name() + " instance at ";
    ASSERT_EQ(text.substr(0, front.size()), front);
    ASSERT_EQ(text.substr(text.size() - 2), " >");

    std::istringstream address_text(text.substr(front.size(), text.size() - 2 - front.size()));
    void* address = nullptr;
    address_text >> address;
    auto const* const first = reinterpret_cast<char const*>(object);
    EXPECT_GT(static_cast<char const*>(address), first);
    EXPECT_EQ(static_cast<char const*>(address) + sizeof(strings::wide_string), first + sizeof *object);
}

} // namespace
