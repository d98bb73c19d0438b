#include "veldrin/strings/case.hpp"

#include <cctype>
#include <cstddef>
#include <string_view>
#include <type_traits>

#include <gtest/gtest.h>

#include "support/ascii_text.hpp"
#include "support/unit_texts.hpp"

namespace {

using namespace VELDRIN_2_18;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;
using strings::wide_string;

template <class Text>
class case_of : public testing::Test {};

using text_classes = testing::Types<ustring8, ustring16, ustring32>;
TYPED_TEST_SUITE(case_of, text_classes);

constexpr std::string_view printable = " !\"#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                       "[\\]^_`abcdefghijklmnopqrstuvwxyz{|}~";
constexpr std::string_view lower = " !\"#$%&'()*+,-./0123456789:;<=>?@abcdefghijklmnopqrstuvwxyz"
                                   "[\\]^_`abcdefghijklmnopqrstuvwxyz{|}~";
constexpr std::string_view upper = " !\"#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                   "[\\]^_`ABCDEFGHIJKLMNOPQRSTUVWXYZ{|}~";

TYPED_TEST(case_of, changes_the_ascii_letters) {
    EXPECT_EQ(strings::to_lower(support::text_of<TypeParam>(printable)), support::text_of<TypeParam>(lower));
    EXPECT_EQ(strings::to_upper(support::text_of<TypeParam>(printable)), support::text_of<TypeParam>(upper));
}

TYPED_TEST(case_of, gives_an_empty_text_for_an_empty_text) {
    EXPECT_EQ(strings::to_lower(TypeParam()), TypeParam());
    EXPECT_EQ(strings::to_upper(TypeParam()), TypeParam());
    EXPECT_EQ(strings::lower_case(TypeParam(), 0, std::size_t(-1)), TypeParam());
}

TYPED_TEST(case_of, goes_on_behind_a_zero_unit) {
    EXPECT_EQ(strings::to_lower(support::text_of<TypeParam>({"A\0B", 3})),
              support::text_of<TypeParam>({"a\0b", 3}));
}

TYPED_TEST(case_of, leaves_its_argument_alone) {
    TypeParam const text = support::text_of<TypeParam>("AbC");
    strings::to_lower(text);
    strings::to_upper(text);
    strings::lower_case(text, 0, 3);
    EXPECT_EQ(text, support::text_of<TypeParam>("AbC"));
}

struct range_case {
    std::uint64_t first;
    std::uint64_t last;
    std::string_view result;
};

constexpr std::uint64_t far_end = std::size_t(-1);

range_case const ranges[] = {
    {1, 3, "AbcDEF"},
    {0, 6, "abcdef"},
    {0, 1, "aBCDEF"},
    {5, 6, "ABCDEf"},
    {0, far_end, "abcdef"},
    {4, far_end, "ABCDef"},
    // An end beyond the text is the end of the text.
    {4, 7, "ABCDef"},
    {4, far_end - 1, "ABCDef"},
    {0, 0x100000001, "abcdef"},
    // Nothing to change.
    {3, 3, "ABCDEF"},
    {3, 1, "ABCDEF"},
    {6, 6, "ABCDEF"},
    {6, far_end, "ABCDEF"},
    {7, 9, "ABCDEF"},
    {0x100000000, 0x100000003, "ABCDEF"},
    {far_end - 1, far_end, "ABCDEF"},
    {far_end, far_end, "ABCDEF"},
    {0, 0, "ABCDEF"},
};

TYPED_TEST(case_of, lower_case_changes_a_range_of_positions) {
    for (range_case const& range : ranges) {
        EXPECT_EQ(strings::lower_case(support::text_of<TypeParam>("ABCDEF"), range.first, range.last),
                  support::text_of<TypeParam>(range.result))
            << range.first << " to " << range.last;
    }
}

TEST(case_of_bytes, leaves_every_byte_beyond_ascii_alone) {
    EXPECT_EQ(strings::to_lower(ustring8("\xC3\x84PFEL")), ustring8("\xC3\x84pfel"));
    EXPECT_EQ(strings::to_upper(ustring8("\xC3\xA4pfel")), ustring8("\xC3\xA4PFEL"));
    EXPECT_EQ(strings::lower_case(ustring8("\xC3\x84PFEL"), 0, 3), ustring8("\xC3\x84pFEL"));
    for (std::uint32_t byte = 128; byte < 256; ++byte) {
        ustring8 const text = support::utf8({byte});
        EXPECT_EQ(strings::to_lower(text), text);
        EXPECT_EQ(strings::to_upper(text), text);
    }
}

// Every unit: what the standard functions say up to 255, itself beyond.
template <class Text>
void expect_rule_for_units_up_to(std::uint32_t last, Text (&to_lower)(Text const&),
                                 Text (&to_upper)(Text const&)) {
    Text text;
    Text in_lower_case;
    Text in_upper_case;
    for (std::uint32_t value = 0; value <= last; ++value) {
        auto const unit = static_cast<typename Text::value_type>(value);
        text.push_back(unit);
        in_lower_case.push_back(
            value < 256 ? static_cast<typename Text::value_type>(std::tolower(static_cast<int>(value)))
                        : unit);
        in_upper_case.push_back(
            value < 256 ? static_cast<typename Text::value_type>(std::toupper(static_cast<int>(value)))
                        : unit);
    }
    EXPECT_EQ(to_lower(text), in_lower_case);
    EXPECT_EQ(to_upper(text), in_upper_case);
}

TEST(case_of_wider_units, leaves_every_unit_beyond_255_alone) {
    expect_rule_for_units_up_to<ustring16>(0xFFFF, strings::to_lower, strings::to_upper);
    expect_rule_for_units_up_to<wide_string>(0xFFFF, strings::gh2::tolower, strings::gh2::toupper);
    expect_rule_for_units_up_to<ustring32>(0x11FFFF, strings::to_lower, strings::to_upper);
    ustring32 const large = support::utf32({0x80000041, 0xFFFFFFFF, 0x141});
    EXPECT_EQ(strings::to_lower(large), large);
    EXPECT_EQ(strings::to_upper(large), large);
}

TEST(case_of_gh2, changes_the_wide_string) {
    EXPECT_EQ(strings::gh2::tolower(support::text_of<wide_string>(printable)),
              support::text_of<wide_string>(lower));
    EXPECT_EQ(strings::gh2::toupper(support::text_of<wide_string>(printable)),
              support::text_of<wide_string>(upper));
    EXPECT_EQ(strings::gh2::tolower(wide_string()), wide_string());
}

} // namespace
