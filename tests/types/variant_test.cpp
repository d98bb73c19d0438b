// The handle: what it is made from, how it is assigned, how it compares and streams. The conversions have a
// test of their own, variant_conversion_test.cpp.

#include "veldrin/types/variant.hpp"

#include <cstddef>
#include <cstdint>
#include <iomanip>
#include <locale>
#include <sstream>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "support/ascii_text.hpp"
#include "support/unit_texts.hpp"

namespace {

using namespace VELDRIN_2_18;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;
using strings::wide_string;
using support::text_of;
using types::variant;

std::string streamed(variant const& value) {
    std::ostringstream stream;
    stream << value;
    return stream.str();
}

// ---- Construction --------------------------------------------------------------------------------------

template <class T>
bool holds(variant const& value) {
    return value.type() == typeid(T);
}

TEST(variant, is_one_machine_word) { EXPECT_EQ(sizeof(variant), sizeof(void*)); }

TEST(variant, holds_nil_by_default_and_from_nil) {
    EXPECT_TRUE(holds<types::nil_t>(variant()));
    EXPECT_TRUE(holds<types::nil_t>(variant(types::nil)));
    types::nil_t another_nil;
    EXPECT_TRUE(holds<types::nil_t>(variant(another_nil)));
}

TEST(variant, holds_the_type_of_its_argument) {
    EXPECT_TRUE(holds<bool>(true));
    EXPECT_TRUE(holds<signed char>(static_cast<signed char>(1)));
    EXPECT_TRUE(holds<unsigned char>(static_cast<unsigned char>(1)));
    EXPECT_TRUE(holds<short>(static_cast<short>(1)));
    EXPECT_TRUE(holds<unsigned short>(static_cast<unsigned short>(1)));
    EXPECT_TRUE(holds<int>(1));
    EXPECT_TRUE(holds<unsigned int>(1U));
    EXPECT_TRUE(holds<long>(1L));
    EXPECT_TRUE(holds<unsigned long>(1UL));
    EXPECT_TRUE(holds<long long>(1LL));
    EXPECT_TRUE(holds<unsigned long long>(1ULL));
    EXPECT_TRUE(holds<float>(1.0F));
    EXPECT_TRUE(holds<double>(1.0));
    EXPECT_TRUE(holds<long double>(1.0L));
    EXPECT_TRUE(holds<std::string>(std::string("1")));
    EXPECT_TRUE(holds<wide_string>(text_of<wide_string>("1")));
    EXPECT_TRUE(holds<ustring8>(ustring8("1")));
    EXPECT_TRUE(holds<ustring16>(text_of<ustring16>("1")));
    EXPECT_TRUE(holds<ustring32>(text_of<ustring32>("1")));
}

enum plain_enumeration { plain_enumerator = 3 };
struct with_bit_field {
    unsigned int bits : 5;
};

// Whatever integer a caller writes finds its constructor.
TEST(variant, takes_every_integer_without_ambiguity) {
    EXPECT_TRUE(holds<int>('A'));
    EXPECT_EQ(variant('A').as_int(), 65);
    EXPECT_TRUE(holds<int>(L'A') || holds<unsigned short>(L'A'));
    EXPECT_EQ(variant(std::int8_t{-3}).as_int(), -3);
    EXPECT_EQ(variant(std::int16_t{-3}).as_int(), -3);
    EXPECT_EQ(variant(std::int32_t{-3}).as_int(), -3);
    EXPECT_EQ(variant(std::int64_t{-3}).as_int(), -3);
    EXPECT_EQ(variant(std::uint64_t{3}).as_int(), 3);
    EXPECT_EQ(variant(std::size_t{3}).as_int(), 3);
    EXPECT_EQ(variant(std::ptrdiff_t{-3}).as_int(), -3);
    EXPECT_EQ(variant(plain_enumerator).as_int(), 3);
    with_bit_field const fields{7};
    EXPECT_EQ(variant(fields.bits).as_int(), 7);
    std::vector<bool> const flags{true};
    EXPECT_TRUE(holds<bool>(flags[0]));
}

TEST(variant, holds_a_literal_and_a_pointer_to_text_as_the_text_class_of_its_unit) {
    EXPECT_TRUE(holds<ustring8>("literal"));
    char const* const pointer = "pointer";
    EXPECT_TRUE(holds<ustring8>(pointer));
    char writable[] = "array";
    EXPECT_TRUE(holds<ustring8>(writable));
    char* const writable_pointer = writable;
    EXPECT_TRUE(holds<ustring8>(writable_pointer));
    EXPECT_EQ(variant(writable).as_string(), "array");

    ustring16 const utf16 = text_of<ustring16>("wide");
    EXPECT_TRUE(holds<ustring16>(utf16.c_str()));
    EXPECT_EQ(variant(utf16.c_str()).as_string(), "wide");
    ustring32 const utf32 = text_of<ustring32>("wider");
    EXPECT_TRUE(holds<ustring32>(utf32.c_str()));
    EXPECT_EQ(variant(utf32.c_str()).as_string(), "wider");
}

TEST(variant, takes_a_utf8_literal_of_the_language) {
    EXPECT_TRUE(holds<ustring8>(u8"\u00E9"));
    EXPECT_EQ(variant(u8"\u00E9").as_string(), "\xC3\xA9");
}

TEST(variant, takes_the_bytes_of_a_literal_as_they_are_up_to_the_first_zero) {
    EXPECT_EQ(variant("\xFF\xC3").as_string(), "\xFF\xC3");
    EXPECT_EQ(variant("front\0back").as_string(), "front");
}

TEST(variant, keeps_all_units_of_a_text_object) {
    std::string const bytes("a\0b", 3);
    EXPECT_EQ(variant(bytes).as_string(), bytes);
    EXPECT_EQ(variant(ustring8(bytes)).as_string(), bytes);
    EXPECT_EQ(variant(support::utf16({'a', 0, 'b'})).as_string(), bytes);
    EXPECT_EQ(variant(support::utf32({'a', 0, 'b'})).as_string(), bytes);
}

struct some_class {
    int field;
};

TEST(variant, takes_no_other_pointer) {
    EXPECT_FALSE((std::is_constructible_v<variant, void*>));
    EXPECT_FALSE((std::is_constructible_v<variant, void const*>));
    EXPECT_FALSE((std::is_constructible_v<variant, int*>));
    EXPECT_FALSE((std::is_constructible_v<variant, some_class const*>));
    EXPECT_FALSE((std::is_constructible_v<variant, variant*>));
    EXPECT_FALSE((std::is_constructible_v<variant, unsigned char const*>));
    EXPECT_FALSE((std::is_constructible_v<variant, int (*)(int)>));
    EXPECT_FALSE((std::is_constructible_v<variant, int (&)(int)>));
    EXPECT_FALSE((std::is_constructible_v<variant, int some_class::*>));
    EXPECT_FALSE((std::is_constructible_v<variant, std::nullptr_t>));
    EXPECT_FALSE((std::is_constructible_v<variant, some_class>));
    EXPECT_EQ((std::is_constructible_v<variant, wchar_t const*>),
              (std::is_same_v<wchar_t, strings::utf16_unit>));
}

TEST(variant, converts_from_values_implicitly) {
    EXPECT_TRUE((std::is_convertible_v<int, variant>));
    EXPECT_TRUE((std::is_convertible_v<bool, variant>));
    EXPECT_TRUE((std::is_convertible_v<char const(&)[3], variant>));
    EXPECT_TRUE((std::is_convertible_v<std::string, variant>));
    EXPECT_TRUE((std::is_convertible_v<ustring32, variant>));
    EXPECT_TRUE((std::is_convertible_v<types::nil_t, variant>));
}

// ---- Copying and assigning -----------------------------------------------------------------------------

// The text of a wide string shows the address of the held object, so equal texts are one object.
TEST(variant, copies_share_the_object) {
    variant const source(text_of<wide_string>("w"));
    variant const copy(source);
    variant assigned;
    assigned = source;
    variant assigned_by_name;
    assigned_by_name.assign(source);
    EXPECT_EQ(streamed(copy), streamed(source));
    EXPECT_EQ(streamed(assigned), streamed(source));
    EXPECT_EQ(streamed(assigned_by_name), streamed(source));
    EXPECT_NE(streamed(variant(text_of<wide_string>("w"))), streamed(source));
}

TEST(variant, assigning_to_one_handle_leaves_the_other_alone) {
    variant b("first");
    variant a = 0;
    a = b;
    b = 2;
    EXPECT_EQ(a.as_string(), "first");
    EXPECT_EQ(b.as_int(), 2);
}

TEST(variant, assignment_returns_the_handle) {
    variant value;
    variant const other(1);
    EXPECT_EQ(&(value = other), &value);
    EXPECT_EQ(&value.assign(other), &value);
    EXPECT_EQ(&(value = types::nil), &value);
    EXPECT_EQ(&value.assign(types::nil), &value);
}

TEST(variant, assigning_a_handle_to_itself_changes_nothing) {
    variant value(text_of<wide_string>("w"));
    std::string const before = streamed(value);
    variant const& itself = value;
    value = itself;
    EXPECT_EQ(streamed(value), before);
    value.assign(itself);
    EXPECT_EQ(streamed(value), before);
}

TEST(variant, assigning_nil_replaces_the_value) {
    variant value("text");
    variant const copy(value);
    value = types::nil;
    EXPECT_TRUE(value == types::nil);
    EXPECT_EQ(copy.as_string(), "text");
    value = 5;
    value.assign(types::nil);
    EXPECT_TRUE(value == types::nil);
}

TEST(variant, is_never_empty_after_a_move) {
    variant source(5);
    variant const constructed(std::move(source));
    EXPECT_EQ(source.as_int(), 5); // NOLINT: a moved-from variant is a whole one
    EXPECT_EQ(constructed.as_int(), 5);
    variant assigned;
    assigned = std::move(source);
    EXPECT_EQ(source.as_int(), 5); // NOLINT
    EXPECT_EQ(assigned.as_int(), 5);
    variant other("x");
    std::swap(other, assigned);
    EXPECT_EQ(other.as_int(), 5);
    EXPECT_EQ(assigned.as_string(), "x");
}

TEST(variant, is_copied_without_a_failure) {
    EXPECT_TRUE(std::is_nothrow_copy_constructible_v<variant>);
    EXPECT_TRUE(std::is_nothrow_move_constructible_v<variant>);
}

// ---- Comparison ----------------------------------------------------------------------------------------

TEST(variant, equals_nil_exactly_when_it_holds_nil) {
    for (variant const& value : {variant(), variant(types::nil)}) {
        EXPECT_TRUE(value == types::nil);
        EXPECT_FALSE(value != types::nil);
        EXPECT_TRUE(value.equal(types::nil));
    }
    for (variant const& value :
         {variant(0), variant(false), variant(""), variant(0.0), variant(std::string())}) {
        EXPECT_FALSE(value == types::nil);
        EXPECT_TRUE(value != types::nil);
        EXPECT_FALSE(value.equal(types::nil));
    }
}

template <class T, class U, class = void>
constexpr bool can_be_compared = false;
template <class T, class U>
constexpr bool can_be_compared<T, U, std::void_t<decltype(std::declval<T>() == std::declval<U>())>> = true;

template <class T, class U, class = void>
constexpr bool can_be_ordered = false;
template <class T, class U>
constexpr bool can_be_ordered<T, U, std::void_t<decltype(std::declval<T>() < std::declval<U>())>> = true;

TEST(variant, compares_with_nothing_but_nil) {
    EXPECT_TRUE((can_be_compared<variant const&, types::nil_t const&>));
    EXPECT_FALSE((can_be_compared<variant const&, variant const&>));
    EXPECT_FALSE((can_be_compared<variant const&, int>));
    EXPECT_FALSE((can_be_ordered<variant const&, variant const&>));
    EXPECT_FALSE((can_be_ordered<variant const&, types::nil_t const&>));
}

// ---- Streaming -----------------------------------------------------------------------------------------

TEST(variant, streaming_returns_the_stream) {
    std::ostringstream stream;
    variant const value(1);
    EXPECT_EQ(&value.ostream(stream), &stream);
    EXPECT_EQ(&(stream << value), &stream);
    EXPECT_EQ(stream.str(), "11");
}

TEST(variant, streams_nil_as_the_number_zero) {
    EXPECT_EQ(streamed(variant()), "0");
    std::ostringstream stream;
    stream << std::showpos << variant();
    EXPECT_EQ(stream.str(), "+0");
}

TEST(variant, streams_numbers_by_the_flags_of_the_stream) {
    std::ostringstream stream;
    stream << std::boolalpha << variant(true) << ' ' << std::noboolalpha << variant(true) << ' ';
    stream << std::hex << std::showbase << variant(255) << ' ' << variant(static_cast<short>(-1)) << ' '
           << std::dec;
    stream << std::showpos << variant(7LL) << ' ' << std::noshowpos;
    stream << std::fixed << std::setprecision(2) << variant(1.0) << ' ' << variant(2.0F) << ' '
           << variant(3.0L);
    EXPECT_EQ(stream.str(), "true 1 0xff 0xffff +7 1.00 2.00 3.00");
}

TEST(variant, streams_the_two_character_types_as_one_character) {
    EXPECT_EQ(streamed(static_cast<signed char>(65)), "A");
    EXPECT_EQ(streamed(static_cast<unsigned char>(0xE9)), "\xE9");
    EXPECT_EQ(streamed(static_cast<signed char>(0)), std::string(1, '\0'));
}

TEST(variant, streams_a_standard_string_whole_and_the_text_classes_up_to_a_zero) {
    std::string const bytes("a\0b", 3);
    EXPECT_EQ(streamed(bytes), bytes);
    EXPECT_EQ(streamed(ustring8(bytes)), "a");
    EXPECT_EQ(streamed(support::utf16({'a', 0, 'b'})), "a");
    EXPECT_EQ(streamed(support::utf32({'a', 0, 'b'})), "a");
}

TEST(variant, streams_the_text_classes_as_utf8) {
    EXPECT_EQ(streamed(ustring8("\xC3\xA9\xFF")), "\xC3\xA9\xFF");
    EXPECT_EQ(streamed(support::utf16({0xE9})), "\xC3\xA9");
    EXPECT_EQ(streamed(support::utf32({0x1F600})), "\xF0\x9F\x98\x80");
    EXPECT_EQ(streamed(support::utf16({0xD800})), "-1");
    EXPECT_EQ(streamed(support::utf32({0xD800})), "-1");
}

TEST(variant, streams_text_into_the_width_of_the_stream) {
    std::ostringstream stream;
    stream << std::setfill('.') << std::setw(4) << variant("ab") << std::setw(4)
           << variant(std::string("cd"));
    EXPECT_EQ(stream.str(), "..ab..cd");
}

TEST(variant, streams_a_wide_string_as_its_type_and_an_address) {
    std::string const text = streamed(text_of<wide_string>("hidden"));
    std::string const front = std::string("< ") + typeid(wide_string).name() + " instance at 0x";
    EXPECT_EQ(text.substr(0, front.size()), front);
    EXPECT_EQ(text.substr(text.size() - 2), " >");
    EXPECT_EQ(text.find("hidden"), std::string::npos);
}

} // namespace
