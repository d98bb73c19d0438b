// The integer parsers and formatters allocate nothing, but for a failure; the real ones tell when they
// cannot. Every allocation of this program is counted, the library's too, since it is linked in.

#include "veldrin/generic/convert/str_to_x.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "generic/convert/integer_parsers.hpp"
#include "support/allocations.hpp"
#include "support/ascii_text.hpp"
#include "veldrin/exceptions/runtime_error.hpp"

namespace {

using namespace VELDRIN_2_18;

TEST(integer_parsers, allocate_nothing_on_any_way_to_a_value) {
    for (std::string_view const bytes :
         {"", " ", "-", "abc", "42", "-42", " +0x7F and a text that is longer than a small string", "0b101",
          "\\17", "99999999999999999999999999999999999999999999",
          "-99999999999999999999999999999999999999999999"}) {
        support::for_each_integer_overload([&](auto unit, auto const& overloads) {
            auto const text = support::text_of<std::basic_string<decltype(unit)>>(bytes);
            auto const parse = overloads.template over<decltype(unit)>();
            std::size_t const before = support::allocations;
            parse(text.c_str(), text.size(), types::radix_t::detect, false);
            parse(text.c_str(), 0, types::radix_t::maximum, false);
            EXPECT_EQ(support::allocations, before) << overloads.name << " of " << bytes;
        });
    }
}

TEST(integer_parsers, allocate_for_a_failure) {
    std::size_t const before = support::allocations;
    EXPECT_THROW(generic::convert::str_to_uint8("256", 3, types::radix_t::decimal, true),
                 exceptions::overflow_error);
    EXPECT_GT(support::allocations, before);
}

TEST(integer_formatters, allocate_nothing) {
    strings::utf32_unit buffer[66];
    std::size_t const before = support::allocations;
    generic::convert::ltoa(-5, buffer, 2);
    generic::convert::ultoa(5, buffer, 10);
    generic::convert::lltoa(INT64_MIN, buffer, 2);
    generic::convert::ulltoa(UINT64_MAX, buffer, 36);
    EXPECT_EQ(support::allocations, before);
}

// Calls `parse` with memory for one allocation more each time, until it has a result.
template <class Parse>
auto result_when_memory_suffices(Parse parse) {
    decltype(parse()) value = 0;
    for (std::size_t available = 0; !support::succeeds_with(available, [&] { value = parse(); });
         ++available) {
    }
    return value;
}

TEST(real_parsers, never_take_exhausted_memory_for_a_text_without_a_number) {
    std::string const text = "1.5" + std::string(100, '0');
    strings::ustring8 const number = text;
    EXPECT_EQ(result_when_memory_suffices([&] { return generic::convert::str_to_float(number); }), 1.5F);
    EXPECT_EQ(result_when_memory_suffices([&] { return generic::convert::str_to_double(number); }), 1.5);
    EXPECT_EQ(result_when_memory_suffices([&] { return generic::convert::str_to_long_double(number); }),
              1.5L);
}

} // namespace
