#include "veldrin/strings/unicode.hpp"

#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <type_traits>

#include <gtest/gtest.h>

#include "support/unit_texts.hpp"

namespace {

using namespace VELDRIN_2_18::strings;
using support::utf16;
using support::utf32;
using support::utf8;

constexpr auto npos = static_cast<std::size_t>(-1);

ustring16 const failed16 = utf16({'-', '1'});
ustring32 const failed32 = utf32({'-', '1'});
ustring8 const failed8 = "-1";

struct decoded {
    std::uint32_t code_point;
    std::size_t units;

    bool operator==(decoded const&) const = default;
};

std::ostream& operator<<(std::ostream& stream, decoded const& character) {
    return stream << std::hex << character.code_point << " of " << std::dec << character.units << " units";
}

template <class Text>
decoded decode_at(Text const& text, std::size_t index) {
    std::size_t units = 12345;
    auto const code_point = unichar(text.data(), text.size(), index, units);
    return {static_cast<std::uint32_t>(code_point), units};
}

decoded const undecodable = {'?', npos};

// ----------------------------------------------------------------------------------------------------------
// Bad input, by converter
// ----------------------------------------------------------------------------------------------------------

struct utf8_row {
    char const* input_is;
    ustring8 input;
    ustring16 as_utf16;
    ustring32 as_utf32;
    decoded first;
};

utf8_row const utf8_rows[] = {
    {"a stray continuation byte", utf8({0x80}), failed16, utf32({'?'}), undecodable},
    {"the last continuation byte", utf8({0xBF}), failed16, utf32({'?'}), undecodable},
    {"a stray continuation byte between letters",
     utf8({'a', 0x80, 'b'}),
     failed16,
     utf32({'a', '?', 'b'}),
     {'a', 1}},
    {"byte F8", utf8({0xF8, 0x80, 0x80, 0x80, 0x80}), failed16, utf32({'?', '?', '?', '?', '?'}),
     undecodable},
    {"byte FF", utf8({0xFF, 'a'}), failed16, utf32({'?', 'a'}), undecodable},
    {"a 2-byte lead with a letter behind it", utf8({0xC3, 'a'}), failed16, utf32({'?', 'a'}), undecodable},
    {"a 2-byte lead with a lead behind it", utf8({0xC3, 0xC3, 0xA9}), failed16, utf32({'?', 0xE9}),
     undecodable},
    {"a 3-byte lead with a bad 1st continuation", utf8({0xE2, 'a', 0xAC}), failed16, utf32({'?', 'a', '?'}),
     undecodable},
    {"a 3-byte lead with a bad 2nd continuation", utf8({0xE2, 0x82, 'A'}), failed16, utf32({'?', '?', 'A'}),
     undecodable},
    {"a 4-byte lead with a bad 1st continuation", utf8({0xF0, 'a', 0x98, 0x80}), failed16,
     utf32({'?', 'a', '?', '?'}), undecodable},
    {"a 4-byte lead with a bad 2nd continuation", utf8({0xF0, 0x9F, 'a', 0x80}), failed16,
     utf32({'?', '?', 'a', '?'}), undecodable},
    {"a 4-byte lead with a bad 3rd continuation", utf8({0xF0, 0x9F, 0x98, 'a'}), failed16,
     utf32({'?', '?', '?', 'a'}), undecodable},
    {"a zero byte in the place of a continuation", utf8({0xC3, 0, 'a'}), failed16, utf32({'?', 0, 'a'}),
     undecodable},
    {"a 2-byte sequence cut off", utf8({0xC3}), failed16, utf32({'?'}), undecodable},
    {"a 3-byte sequence cut off after 1", utf8({0xE2}), failed16, utf32({'?'}), undecodable},
    {"a 3-byte sequence cut off after 2", utf8({0xE2, 0x82}), failed16, utf32({'?', '?'}), undecodable},
    {"a 4-byte sequence cut off after 1", utf8({0xF0}), failed16, utf32({'?'}), undecodable},
    {"a 4-byte sequence cut off after 3", utf8({0xF0, 0x9F, 0x98}), failed16, utf32({'?', '?', '?'}),
     undecodable},
    {"an overlong zero of 2 bytes", utf8({0xC0, 0x80}), utf16({0}), utf32({0}), {0, 2}},
    {"an overlong zero of 3 bytes", utf8({0xE0, 0x80, 0x80}), utf16({0}), utf32({0}), {0, 3}},
    {"an overlong slash", utf8({0xC0, 0xAF}), utf16({'/'}), utf32({'/'}), {'/', 2}},
    {"an overlong zero of 4 bytes",
     utf8({0xF0, 0x80, 0x80, 0x80}),
     utf16({0xD7C0, 0xDC00}),
     utf32({0}),
     {0, 4}},
    {"an overlong euro sign",
     utf8({0xF0, 0x82, 0x82, 0xAC}),
     utf16({0xD7C8, 0xDCAC}),
     utf32({0x20AC}),
     {0x20AC, 4}},
    {"the greatest overlong form",
     utf8({0xF0, 0x8F, 0xBF, 0xBF}),
     utf16({0xD7FF, 0xDFFF}),
     utf32({0xFFFF}),
     {0xFFFF, 4}},
    {"the first encoded surrogate", utf8({0xED, 0xA0, 0x80}), utf16({0xD800}), utf32({0xD800}), {0xD800, 3}},
    {"the last encoded surrogate", utf8({0xED, 0xBF, 0xBF}), utf16({0xDFFF}), utf32({0xDFFF}), {0xDFFF, 3}},
    {"an encoded surrogate pair",
     utf8({0xED, 0xA0, 0xBD, 0xED, 0xB8, 0x80}),
     utf16({0xD83D, 0xDE00}),
     utf32({0xD83D, 0xDE00}),
     {0xD83D, 3}},
    {"the first form above U+10FFFF",
     utf8({0xF4, 0x90, 0x80, 0x80}),
     utf16({0xDC00, 0xDC00}),
     utf32({0x110000}),
     {0x110000, 4}},
    {"the greatest form",
     utf8({0xF7, 0xBF, 0xBF, 0xBF}),
     utf16({0xDFBF, 0xDFFF}),
     utf32({0x1FFFFF}),
     {0x1FFFFF, 4}},
};

TEST(bad_input, in_utf8) {
    for (utf8_row const& row : utf8_rows) {
        SCOPED_TRACE(row.input_is);
        EXPECT_EQ(utf8_to_utf16(row.input), row.as_utf16);
        EXPECT_EQ(utf8_to_utf32(row.input), row.as_utf32);
        EXPECT_EQ(decode_at(row.input, 0), row.first);
    }
}

struct utf16_row {
    char const* input_is;
    ustring16 input;
    ustring8 as_utf8;
    ustring32 as_utf32;
    decoded first;
};

utf16_row const utf16_rows[] = {
    {"a high surrogate at the end", utf16({0xD83D}), failed8, failed32, undecodable},
    {"the last high surrogate at the end", utf16({'a', 0xDBFF}), failed8, failed32, {'a', 1}},
    {"a high surrogate before a letter", utf16({0xD83D, 'a'}), failed8, failed32, undecodable},
    {"a high surrogate before a high one", utf16({0xD800, 0xD800, 0xDC00}), failed8, failed32, undecodable},
    {"a high surrogate before U+E000", utf16({0xD800, 0xE000}), failed8, failed32, undecodable},
    {"a high surrogate before a zero unit", utf16({0xD800, 0}), failed8, failed32, undecodable},
    {"a lone low surrogate", utf16({0xDC00}), failed8, failed32, undecodable},
    {"the last low surrogate", utf16({0xDFFF, 'a'}), failed8, failed32, undecodable},
    {"a low surrogate behind a pair", utf16({0xD83D, 0xDE00, 0xDE00}), failed8, failed32, {0x1F600, 2}},
};

TEST(bad_input, in_utf16) {
    for (utf16_row const& row : utf16_rows) {
        SCOPED_TRACE(row.input_is);
        EXPECT_EQ(utf16_to_utf8(row.input), row.as_utf8);
        EXPECT_EQ(utf16_to_utf32(row.input), row.as_utf32);
        EXPECT_EQ(decode_at(row.input, 0), row.first);
    }
}

struct utf32_row {
    char const* input_is;
    ustring32 input;
    ustring8 as_utf8;
    ustring16 as_utf16;
};

utf32_row const utf32_rows[] = {
    {"the first surrogate", utf32({0xD800}), failed8, failed16},
    {"the last surrogate", utf32({0xDFFF}), failed8, failed16},
    {"a surrogate between letters", utf32({'a', 0xDBFF, 'b'}), failed8, failed16},
    {"a surrogate pair", utf32({0xD83D, 0xDE00}), failed8, failed16},
    {"the first unit beyond Unicode", utf32({0x110000}), "", failed16},
    {"a unit beyond Unicode between letters", utf32({0x41, 0x110000, 0x42}), "AB", failed16},
    {"the greatest unit", utf32({0xFFFFFFFF, 'a'}), "a", failed16},
    {"a unit beyond Unicode, then a surrogate", utf32({0x110000, 0xD800}), failed8, failed16},
};

TEST(bad_input, in_utf32) {
    for (utf32_row const& row : utf32_rows) {
        SCOPED_TRACE(row.input_is);
        EXPECT_EQ(utf32_to_utf8(row.input), row.as_utf8);
        EXPECT_EQ(utf32_to_utf16(row.input), row.as_utf16);
        EXPECT_EQ(decode_at(row.input, 0), (decoded{static_cast<std::uint32_t>(row.input[0]), 1}));
    }
}

// Not to return is settled; not to recurse until the stack ends is ours. The handler tells an abort from a
// crash.
void report_abort(int) {
    std::fputs("aborted\n", stderr);
    std::_Exit(3);
}

template <class Convert>
void convert_and_report_abort(Convert convert, ustring16 const& text) {
    std::signal(SIGABRT, report_abort);
    convert(text);
}

TEST(swapped_mark_DeathTest, at_the_front_ends_the_process) {
    for (ustring16 const& text : {utf16({0xFFFE}), utf16({0xFFFE, 0x4100}), utf16({0xFFFE, 0xD800})}) {
        EXPECT_EXIT(convert_and_report_abort(utf16_to_utf8, text), testing::ExitedWithCode(3), "aborted");
        EXPECT_EXIT(convert_and_report_abort(utf16_to_utf32, text), testing::ExitedWithCode(3), "aborted");
    }
}

TEST(swapped_mark, elsewhere_is_a_character_like_any_other) {
    EXPECT_EQ(utf16_to_utf8(utf16({'a', 0xFFFE, 0xFFFF})), utf8({'a', 0xEF, 0xBF, 0xBE, 0xEF, 0xBF, 0xBF}));
    EXPECT_EQ(utf16_to_utf32(utf16({'a', 0xFFFE, 0xFFFF})), utf32({'a', 0xFFFE, 0xFFFF}));
    EXPECT_EQ(utf16_to_utf8(utf16({0xFFFF})), utf8({0xEF, 0xBF, 0xBF}));
    EXPECT_EQ(utf8_to_utf16(utf8({0xEF, 0xBF, 0xBE})), utf16({0xFFFE}));
    EXPECT_EQ(utf32_to_utf16(utf32({0xFFFE})), utf16({0xFFFE}));
    EXPECT_EQ(utf32_to_utf8(utf32({0xFFFE})), utf8({0xEF, 0xBF, 0xBE}));
}

TEST(swapped_mark, does_not_trap_what_only_reads_it) {
    EXPECT_EQ(decode_at(utf16({0xFFFE}), 0), (decoded{0xFFFE, 1}));
    EXPECT_EQ(character_index(utf16({0xFFFE, 0x4100}), 1), 1u);
    EXPECT_EQ(remove_BOM(utf16({0xFFFE})), utf16({0xFFFE}));
}

// ----------------------------------------------------------------------------------------------------------
// Good input
// ----------------------------------------------------------------------------------------------------------

TEST(converters, turn_an_empty_text_into_an_empty_text) {
    EXPECT_EQ(utf8_to_utf16(ustring8()), ustring16());
    EXPECT_EQ(utf16_to_utf8(ustring16()), ustring8());
    EXPECT_EQ(utf8_to_utf32(ustring8()), ustring32());
    EXPECT_EQ(utf32_to_utf8(ustring32()), ustring8());
    EXPECT_EQ(utf16_to_utf32(ustring16()), ustring32());
    EXPECT_EQ(utf32_to_utf16(ustring32()), ustring16());
}

// One character of each length, at both ends of it.
struct text_row {
    ustring8 as_utf8;
    ustring16 as_utf16;
    ustring32 as_utf32;
};

text_row const text_rows[] = {
    {utf8({0x00}), utf16({0x00}), utf32({0x00})},
    {utf8({0x7F}), utf16({0x7F}), utf32({0x7F})},
    {utf8({0xC2, 0x80}), utf16({0x80}), utf32({0x80})},
    {utf8({0xDF, 0xBF}), utf16({0x7FF}), utf32({0x7FF})},
    {utf8({0xE0, 0xA0, 0x80}), utf16({0x800}), utf32({0x800})},
    {utf8({0xED, 0x9F, 0xBF}), utf16({0xD7FF}), utf32({0xD7FF})},
    {utf8({0xEE, 0x80, 0x80}), utf16({0xE000}), utf32({0xE000})},
    {utf8({0xEF, 0xBF, 0xBF}), utf16({0xFFFF}), utf32({0xFFFF})},
    {utf8({0xF0, 0x90, 0x80, 0x80}), utf16({0xD800, 0xDC00}), utf32({0x10000})},
    {utf8({0xF0, 0x9F, 0x98, 0x80}), utf16({0xD83D, 0xDE00}), utf32({0x1F600})},
    {utf8({0xF4, 0x8F, 0xBF, 0xBF}), utf16({0xDBFF, 0xDFFF}), utf32({0x10FFFF})},
    {utf8({'a', 0xC3, 0xA9, 0xE2, 0x82, 0xAC, 0xF0, 0x9F, 0x98, 0x80, 0, 'z'}),
     utf16({'a', 0xE9, 0x20AC, 0xD83D, 0xDE00, 0, 'z'}), utf32({'a', 0xE9, 0x20AC, 0x1F600, 0, 'z'})},
};

TEST(converters, keep_well_formed_text) {
    for (text_row const& row : text_rows) {
        EXPECT_EQ(utf8_to_utf16(row.as_utf8), row.as_utf16);
        EXPECT_EQ(utf8_to_utf32(row.as_utf8), row.as_utf32);
        EXPECT_EQ(utf16_to_utf8(row.as_utf16), row.as_utf8);
        EXPECT_EQ(utf16_to_utf32(row.as_utf16), row.as_utf32);
        EXPECT_EQ(utf32_to_utf8(row.as_utf32), row.as_utf8);
    }
}

TEST(converters, take_a_mark_at_the_front_for_data) {
    EXPECT_EQ(utf8_to_utf16(utf8({0xEF, 0xBB, 0xBF, 0x41})), utf16({0xFEFF, 0x41}));
    EXPECT_EQ(utf8_to_utf32(utf8({0xEF, 0xBB, 0xBF, 0x41})), utf32({0xFEFF, 0x41}));
    EXPECT_EQ(utf16_to_utf8(utf16({0xFEFF, 0x41})), utf8({0xEF, 0xBB, 0xBF, 0x41}));
    EXPECT_EQ(utf16_to_utf32(utf16({0xFEFF, 0x41})), utf32({0xFEFF, 0x41}));
    EXPECT_EQ(utf32_to_utf8(utf32({0xFEFF, 0x41})), utf8({0xEF, 0xBB, 0xBF, 0x41}));
    EXPECT_EQ(utf32_to_utf16(utf32({0xFEFF, 0x41})), utf16({0xFEFF, 0x41}));
}

TEST(utf32_to_utf16, splits_from_ffff_on_and_takes_nothing_off) {
    struct {
        std::uint32_t unit;
        ustring16 expected;
    } const rows[] = {
        {0xFFFE, utf16({0xFFFE})},           {0xFFFF, utf16({0xD83F, 0xDFFF})},
        {0x10000, utf16({0xD840, 0xDC00})},  {0x1F600, utf16({0xD87D, 0xDE00})},
        {0xFFFFF, utf16({0xDBFF, 0xDFFF})},  {0x100000, utf16({0xDC00, 0xDC00})},
        {0x10FFFF, utf16({0xDC3F, 0xDFFF})},
    };
    for (auto const& row : rows) {
        EXPECT_EQ(utf32_to_utf16(utf32({row.unit})), row.expected) << std::hex << row.unit;
    }
}

TEST(utf32_to_utf16, is_no_inverse_of_utf16_to_utf32) {
    EXPECT_EQ(utf16_to_utf32(utf32_to_utf16(utf32({0x10000}))), utf32({0x20000}));
    EXPECT_EQ(utf16_to_utf32(utf32_to_utf16(utf32({0x1F600}))), utf32({0x2F600}));
    EXPECT_EQ(utf16_to_utf32(utf32_to_utf16(utf32({0x100000}))), failed32);
    EXPECT_EQ(utf16_to_utf8(utf32_to_utf16(utf32({0x100000}))), failed8);
}

// The work storage changes from the stack to the heap on the way.
TEST(converters, keep_texts_of_any_length) {
    for (std::size_t const count : {127u, 128u, 129u, 170u, 171u, 256u, 257u, 511u, 512u, 513u, 100000u}) {
        SCOPED_TRACE(count);
        ustring32 const as_utf32(count, utf32_unit{0x20AC});
        ustring16 const as_utf16(count, utf16_unit{0x20AC});
        ustring8 as_utf8;
        for (std::size_t i = 0; i < count; ++i) {
            as_utf8 += "\xE2\x82\xAC";
        }
        EXPECT_EQ(utf8_to_utf16(as_utf8), as_utf16);
        EXPECT_EQ(utf8_to_utf32(as_utf8), as_utf32);
        EXPECT_EQ(utf16_to_utf8(as_utf16), as_utf8);
        EXPECT_EQ(utf16_to_utf32(as_utf16), as_utf32);
        EXPECT_EQ(utf32_to_utf8(as_utf32), as_utf8);
        EXPECT_EQ(utf32_to_utf16(as_utf32), as_utf16);
    }
}

// ----------------------------------------------------------------------------------------------------------
// unichar
// ----------------------------------------------------------------------------------------------------------

TEST(unichar, decodes_at_an_index) {
    ustring8 const text = utf8({'a', 0xC3, 0xA9, 0xE2, 0x82, 0xAC, 0xF0, 0x9F, 0x98, 0x80});
    EXPECT_EQ(decode_at(text, 0), (decoded{'a', 1}));
    EXPECT_EQ(decode_at(text, 1), (decoded{0xE9, 2}));
    EXPECT_EQ(decode_at(text, 3), (decoded{0x20AC, 3}));
    EXPECT_EQ(decode_at(text, 6), (decoded{0x1F600, 4}));
    EXPECT_EQ(decode_at(text, 2), undecodable);

    ustring16 const pairs = utf16({0xD83D, 0xDE00, 'a', 0xFFFF});
    EXPECT_EQ(decode_at(pairs, 0), (decoded{0x1F600, 2}));
    EXPECT_EQ(decode_at(pairs, 1), undecodable);
    EXPECT_EQ(decode_at(pairs, 2), (decoded{'a', 1}));
    EXPECT_EQ(decode_at(pairs, 3), (decoded{0xFFFF, 1}));
}

TEST(unichar, fails_from_the_length_on) {
    for (std::size_t const index : {1u, 2u, 1000u}) {
        EXPECT_EQ(decode_at(utf8({'a'}), index), undecodable);
        EXPECT_EQ(decode_at(utf16({'a'}), index), undecodable);
        EXPECT_EQ(decode_at(utf32({'a'}), index), undecodable);
    }
    EXPECT_EQ(decode_at(ustring8(), 0), undecodable);
    EXPECT_EQ(decode_at(ustring16(), 0), undecodable);
    EXPECT_EQ(decode_at(ustring32(), 0), undecodable);
    EXPECT_EQ(decode_at(utf8({'a'}), npos), undecodable);
}

TEST(unichar, is_bounded_by_the_length_and_not_by_the_text) {
    ustring8 const text = utf8({'a', 0xF0, 0x9F, 0x98, 0x80});
    ustring16 const pair = utf16({'a', 0xD83D, 0xDE00});
    // Without the letter and with it.
    for (std::size_t const index : {0u, 1u}) {
        std::size_t const skipped = 1 - index;
        for (std::size_t length = index; length < index + 4; ++length) {
            std::size_t units = 0;
            EXPECT_EQ(unichar(text.data() + skipped, length, index, units), utf32_unit{'?'});
            EXPECT_EQ(units, npos);
        }
        std::size_t units = 0;
        EXPECT_EQ(unichar(pair.data() + skipped, index + 1, index, units), utf32_unit{'?'});
        EXPECT_EQ(units, npos);
    }
}

TEST(unichar, takes_a_32_bit_unit_as_it_stands) {
    for (std::uint32_t const unit : {0x0u, 0xD800u, 0xDFFFu, 0xFFFEu, 0x10FFFFu, 0x110000u, 0xFFFFFFFFu}) {
        EXPECT_EQ(decode_at(utf32({'a', unit}), 1), (decoded{unit, 1}));
    }
}

TEST(unichar, tells_a_question_mark_from_a_failure_by_units) {
    EXPECT_EQ(decode_at(utf8({'?'}), 0), (decoded{'?', 1}));
    EXPECT_EQ(decode_at(utf16({'?'}), 0), (decoded{'?', 1}));
}

// ----------------------------------------------------------------------------------------------------------
// character_index
// ----------------------------------------------------------------------------------------------------------

TEST(character_index, walks_utf8_by_whole_characters) {
    ustring8 const text = utf8({'a', 0xC3, 0xA9, 0xE2, 0x82, 0xAC, 0xF0, 0x9F, 0x98, 0x80, 'z'});
    std::size_t const expected[] = {0, 1, 3, 6, 10};
    for (std::size_t n = 0; n < 5; ++n) {
        EXPECT_EQ(character_index(text, n), expected[n]) << n;
    }
}

TEST(character_index, of_utf8_is_bounded_by_the_units_only) {
    ustring8 const text = utf8({0xC3, 0xA9, 0xC3, 0xA9});
    EXPECT_EQ(character_index(text, 1), 2u);
    EXPECT_EQ(character_index(text, 2), 4u);
    EXPECT_EQ(character_index(text, 3), 5u);
    EXPECT_EQ(character_index(text, 4), npos);
    EXPECT_EQ(character_index(text, 5), npos);
    EXPECT_EQ(character_index(ustring8(), 0), npos);
    EXPECT_EQ(character_index(ustring16(), 0), npos);
}

// What lies behind the text is not read, on the heap or in the object: each step there is one unit.
TEST(character_index, steps_by_one_behind_the_text) {
    ustring8 const text = utf8({0xF0, 0x9F, 0x98, 0x80});
    EXPECT_EQ(character_index(text, 1), 4u);
    EXPECT_EQ(character_index(text, 2), 5u);
    EXPECT_EQ(character_index(text, 3), 6u);

    ustring8 long_text;
    ustring16 long_pairs;
    for (int i = 0; i < 100; ++i) {
        long_text += text;
        long_pairs += utf16({0xD83D, 0xDE00});
    }
    EXPECT_EQ(character_index(long_text, 100), 400u);
    EXPECT_EQ(character_index(long_text, 399), 699u);
    EXPECT_EQ(character_index(long_pairs, 100), 200u);
    EXPECT_EQ(character_index(long_pairs, 199), 299u);
}

TEST(character_index, finds_a_malformed_character_only_on_the_way) {
    ustring8 const text = utf8({'a', 0xC3, 'b'});
    EXPECT_EQ(character_index(text, 0), 0u);
    EXPECT_EQ(character_index(text, 1), 1u);
    EXPECT_EQ(character_index(text, 2), npos);
    EXPECT_EQ(character_index(utf8({0x80, 'a'}), 0), 0u);
    EXPECT_EQ(character_index(utf8({0x80, 'a'}), 1), npos);
    EXPECT_EQ(character_index(utf8({'a', 'b', 0xE2, 0x82}), 2), 2u);
    EXPECT_EQ(character_index(utf8({'a', 'b', 0xE2, 0x82}), 3), npos);
}

TEST(character_index, checks_the_form_of_utf8_only) {
    EXPECT_EQ(character_index(utf8({0xC0, 0x80, 'a'}), 1), 2u);
    EXPECT_EQ(character_index(utf8({0xED, 0xA0, 0x80, 'a'}), 1), 3u);
    EXPECT_EQ(character_index(utf8({0xF7, 0xBF, 0xBF, 0xBF, 'a'}), 1), 4u);
}

TEST(character_index, walks_utf16_by_pairs) {
    ustring16 const text = utf16({'a', 0xD83D, 0xDE00, 'b', 0xD83D});
    EXPECT_EQ(character_index(text, 0), 0u);
    EXPECT_EQ(character_index(text, 1), 1u);
    EXPECT_EQ(character_index(text, 2), 3u);
    EXPECT_EQ(character_index(text, 3), 4u);
    EXPECT_EQ(character_index(text, 4), npos);
    EXPECT_EQ(character_index(text, 5), npos);
    EXPECT_EQ(character_index(utf16({0xD83D, 'a'}), 1), npos);
    EXPECT_EQ(character_index(utf16({0xD83D, 0xD83D, 0xDE00}), 1), npos);
}

TEST(character_index, of_utf16_looks_for_a_low_surrogate_at_unit_0) {
    EXPECT_EQ(character_index(utf16({'a', 0xDE00, 'b'}), 1), 1u);
    EXPECT_EQ(character_index(utf16({'a', 0xDE00, 'b'}), 2), 2u);
    EXPECT_EQ(character_index(utf16({0xDE00, 'a'}), 0), 0u);
    EXPECT_EQ(character_index(utf16({0xDE00, 'a'}), 1), npos);
    EXPECT_EQ(character_index(utf16({0xDC00, 0xD83D, 0xDE00, 'a'}), 1), npos);
    EXPECT_EQ(character_index(utf16({0xDFFF, 'a', 'b'}), 2), npos);
    EXPECT_EQ(character_index(utf16({0xD83D, 0xDE00, 0xDE00, 'a'}), 2), 3u);
}

// ----------------------------------------------------------------------------------------------------------
// Lengths
// ----------------------------------------------------------------------------------------------------------

TEST(string_length, counts_the_units_before_the_first_zero_of_a_pointer) {
    EXPECT_EQ(string_length("\xC3\xA9z"), 3u);
    EXPECT_EQ(string_length(""), 0u);
    EXPECT_EQ(string_length("ab\0cd"), 2u);
    EXPECT_EQ(string_length(utf16({0xD83D, 0xDE00, 'z', 0, 'a'}).c_str()), 3u);
    EXPECT_EQ(string_length(utf32({0x1F600, 'z', 0, 'a'}).c_str()), 2u);
}

TEST(string_length, is_the_size_of_a_text) {
    EXPECT_EQ(string_length(utf8({0xC3, 0xA9, 0, 'z'})), 4u);
    EXPECT_EQ(string_length(utf16({0xD83D, 0xDE00, 0, 'z'})), 4u);
    EXPECT_EQ(string_length(utf32({0x1F600, 0, 'z'})), 3u);
    EXPECT_EQ(string_length(ustring8()), 0u);
}

TEST(get_utf8_length, goes_by_the_lead_byte) {
    for (unsigned int byte = 0; byte < 256; ++byte) {
        std::size_t const expected = byte < 0x80   ? 1
                                     : byte < 0xC0 ? 0
                                     : byte < 0xE0 ? 2
                                     : byte < 0xF0 ? 3
                                     : byte < 0xF8 ? 4
                                                   : 0;
        auto const as_unsigned = static_cast<unsigned char>(byte);
        auto const as_char = static_cast<char>(byte);
        EXPECT_EQ(gh2::get_utf8_length(&as_char, 1), expected) << byte;
        EXPECT_EQ(gh2::get_utf8_length(&as_unsigned, 1), expected) << byte;
        EXPECT_EQ(gh2::get_utf8_length(&as_char, 0), 0u) << byte;
        EXPECT_EQ(gh2::get_utf8_length(&as_unsigned, 0), 0u) << byte;
    }
}

TEST(get_utf8_length, of_no_text_is_0) {
    EXPECT_EQ(gh2::get_utf8_length(static_cast<char const*>(nullptr), 4), 0u);
    EXPECT_EQ(gh2::get_utf8_length(static_cast<unsigned char const*>(nullptr), 4), 0u);
}

bool is_valid(ustring8 const& text) {
    bool const valid = gh2::validate_utf8(text.data(), text.size());
    auto const* const bytes = reinterpret_cast<unsigned char const*>(text.data());
    EXPECT_EQ(gh2::validate_utf8(bytes, text.size()), valid);
    return valid;
}

TEST(validate_utf8, checks_the_first_character_only) {
    EXPECT_TRUE(is_valid(utf8({0x41, 0xFF})));
    EXPECT_TRUE(is_valid(utf8({0xC3, 0xA9, 0x80})));
    EXPECT_TRUE(is_valid(utf8({0xE2, 0x82, 0xAC})));
    EXPECT_TRUE(is_valid(utf8({0xF0, 0x9F, 0x98, 0x80})));
    EXPECT_TRUE(is_valid(utf8({0x00})));
    EXPECT_FALSE(is_valid(utf8({0xC3, 'a'})));
    EXPECT_FALSE(is_valid(utf8({0xE2, 0x82, 'a'})));
    EXPECT_FALSE(is_valid(utf8({0xF0, 0x9F, 0x98, 'a'})));
    EXPECT_FALSE(is_valid(utf8({0x80})));
    EXPECT_FALSE(is_valid(utf8({0xF8, 0x80, 0x80, 0x80, 0x80})));
}

TEST(validate_utf8, needs_all_of_it_within_the_length) {
    EXPECT_FALSE(is_valid(utf8({0xE2, 0x82})));
    EXPECT_FALSE(gh2::validate_utf8("\xE2\x82\xAC", 2));
    EXPECT_FALSE(gh2::validate_utf8("a", 0));
    EXPECT_FALSE(gh2::validate_utf8(static_cast<char const*>(nullptr), 1));
    EXPECT_FALSE(gh2::validate_utf8(static_cast<unsigned char const*>(nullptr), 1));
}

TEST(validate_utf8, checks_the_form_only) {
    EXPECT_TRUE(is_valid(utf8({0xC0, 0x80})));
    EXPECT_TRUE(is_valid(utf8({0xED, 0xA0, 0x80})));
    EXPECT_TRUE(is_valid(utf8({0xF7, 0xBF, 0xBF, 0xBF})));
}

// ----------------------------------------------------------------------------------------------------------
// Byte order
// ----------------------------------------------------------------------------------------------------------

TEST(byte_order_marks, are_one_character_in_each_form) {
    EXPECT_EQ(utf8_byte_order_mark, utf8({0xEF, 0xBB, 0xBF}));
    EXPECT_EQ(utf16_byte_order_mark, utf16({0xFEFF}));
    EXPECT_EQ(utf32_byte_order_mark, utf32({0xFEFF}));
    EXPECT_EQ(utf8_to_utf16(utf8_byte_order_mark), utf16_byte_order_mark);
    EXPECT_EQ(utf8_to_utf32(utf8_byte_order_mark), utf32_byte_order_mark);
    static_assert(swapped_byte_order_mark == 0xFFFE);
    static_assert(std::is_same_v<decltype(swapped_byte_order_mark), utf16_unit const>);
}

TEST(remove_BOM, strips_one_mark) {
    EXPECT_EQ(remove_BOM(utf8({0xEF, 0xBB, 0xBF, 'a'})), utf8({'a'}));
    EXPECT_EQ(remove_BOM(utf16({0xFEFF, 'a'})), utf16({'a'}));
    EXPECT_EQ(remove_BOM(utf32({0xFEFF, 'a'})), utf32({'a'}));
    EXPECT_EQ(remove_BOM(utf8_byte_order_mark), ustring8());
    EXPECT_EQ(remove_BOM(utf8_byte_order_mark + utf8_byte_order_mark), utf8_byte_order_mark);
    EXPECT_EQ(remove_BOM(utf16({0xFEFF, 0xFEFF})), utf16({0xFEFF}));
    EXPECT_EQ(remove_BOM(utf32({0xFEFF, 0xFEFF})), utf32({0xFEFF}));
}

TEST(remove_BOM, copies_any_other_text) {
    for (ustring8 const& text : {utf8({}), utf8({0xEF}), utf8({0xEF, 0xBB}), utf8({0xEF, 0xBB, 'a'}),
                                 utf8({0xEF, 'a', 0xBF}), utf8({'a', 0xEF, 0xBB, 0xBF})}) {
        EXPECT_EQ(remove_BOM(text), text);
    }
    for (ustring16 const& text : {utf16({}), utf16({'a', 0xFEFF}), utf16({0xFFFE, 'a'})}) {
        EXPECT_EQ(remove_BOM(text), text);
    }
    for (ustring32 const& text : {utf32({}), utf32({'a', 0xFEFF}), utf32({0xFFFE0000, 'a'})}) {
        EXPECT_EQ(remove_BOM(text), text);
    }
}

TEST(modify_swap_string_bytes_order, exchanges_the_bytes_of_every_unit_whatever_the_text) {
    ustring16 text = utf16({0x4100, 0x0041, 0xD83D, 0xFEFF, 0});
    modify_swap_string_bytes_order(text);
    EXPECT_EQ(text, utf16({0x0041, 0x4100, 0x3DD8, 0xFFFE, 0}));
    modify_swap_string_bytes_order(text);
    EXPECT_EQ(text, utf16({0x4100, 0x0041, 0xD83D, 0xFEFF, 0}));

    ustring16 empty;
    modify_swap_string_bytes_order(empty);
    EXPECT_EQ(empty, ustring16());
}

TEST(swap_string_bytes_order, gives_back_its_argument_unswapped) {
    EXPECT_EQ(swap_string_bytes_order(utf16({0x4100})), utf16({0x4100}));
    EXPECT_EQ(swap_string_bytes_order(utf16({0xFFFE, 0x4100})), utf16({0xFFFE, 0x4100}));
    EXPECT_EQ(swap_string_bytes_order(ustring16()), ustring16());
}

TEST(check_BOM_and_swap, gives_back_its_argument_unswapped) {
    for (ustring16 const& text :
         {utf16({0xFFFE, 0x4100}), utf16({0xFEFF, 0x41}), utf16({0x4100}), utf16({})}) {
        EXPECT_EQ(check_BOM_and_swap(text), text);
        wide_string const wide = text;
        EXPECT_EQ(check_BOM_and_swap(wide), wide);
    }
    static_assert(std::is_same_v<decltype(check_BOM_and_swap(ustring16())), ustring16>);
    static_assert(std::is_same_v<decltype(check_BOM_and_swap(wide_string())), wide_string>);
}

template <class Text>
Text checked_and_swapped(Text text) {
    check_BOM_and_modify_swap(text);
    return text;
}

TEST(check_BOM_and_modify_swap, swaps_text_with_a_swapped_mark_and_keeps_the_mark) {
    EXPECT_EQ(checked_and_swapped(utf16({0xFFFE, 0x4100})), utf16({0xFEFF, 0x0041}));
    EXPECT_EQ(checked_and_swapped<wide_string>(utf16({0xFFFE, 0x4100})), utf16({0xFEFF, 0x0041}));
    EXPECT_EQ(utf16_to_utf8(checked_and_swapped(utf16({0xFFFE, 0x4100}))), utf8({0xEF, 0xBB, 0xBF, 'A'}));
}

TEST(check_BOM_and_modify_swap, leaves_any_other_text_alone) {
    for (ustring16 const& text :
         {utf16({}), utf16({0xFEFF, 0x41}), utf16({0x4100}), utf16({0x4100, 0xFFFE, 0x4200})}) {
        EXPECT_EQ(checked_and_swapped(text), text);
        EXPECT_EQ(checked_and_swapped<wide_string>(text), text);
    }
}

} // namespace
