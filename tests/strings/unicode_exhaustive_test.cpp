// Small input spaces, whole, against plain models: each model works on one bit pattern a line and knows
// nothing of the library's code.

#include "veldrin/strings/unicode.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iomanip>
#include <iterator>
#include <optional>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace VELDRIN_2_18::strings;

using unit_list = std::vector<std::uint32_t>;

constexpr auto npos = static_cast<std::size_t>(-1);
unit_list const failure_text = {'-', '1'};

// Zero units behind the text, for walks across its end.
template <class Text>
std::uint32_t unit_at(Text const& text, std::size_t position) {
    using unsigned_unit = std::make_unsigned_t<typename Text::value_type>;
    return position < text.size() ? static_cast<unsigned_unit>(text[position]) : 0;
}

// ----------------------------------------------------------------------------------------------------------
// Models
// ----------------------------------------------------------------------------------------------------------

struct sequence {
    std::size_t units; // 0: malformed
    std::uint32_t value;
};

bool is_continuation(std::uint32_t byte) { return (byte & 0xC0) == 0x80; }

sequence utf8_sequence_at(ustring8 const& text, std::size_t position) {
    std::uint32_t const b0 = unit_at(text, position);
    std::uint32_t const b1 = unit_at(text, position + 1);
    std::uint32_t const b2 = unit_at(text, position + 2);
    std::uint32_t const b3 = unit_at(text, position + 3);
    if (b0 < 0x80) {
        return {1, b0};
    }
    if ((b0 & 0xE0) == 0xC0 && is_continuation(b1)) {
        return {2, ((b0 & 0x1F) << 6) + (b1 & 0x3F)};
    }
    if ((b0 & 0xF0) == 0xE0 && is_continuation(b1) && is_continuation(b2)) {
        return {3, ((b0 & 0x0F) << 12) + ((b1 & 0x3F) << 6) + (b2 & 0x3F)};
    }
    if ((b0 & 0xF8) == 0xF0 && is_continuation(b1) && is_continuation(b2) && is_continuation(b3)) {
        return {4, ((b0 & 7) << 18) + ((b1 & 0x3F) << 12) + ((b2 & 0x3F) << 6) + (b3 & 0x3F)};
    }
    return {0, 0};
}

bool is_high(std::uint32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }

bool is_low(std::uint32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

sequence utf16_sequence_at(ustring16 const& text, std::size_t position) {
    std::uint32_t const u = unit_at(text, position);
    std::uint32_t const v = unit_at(text, position + 1);
    if (is_high(u)) {
        return is_low(v) ? sequence{2, (u << 10) + v - 0x35FDC00} : sequence{0, 0};
    }
    return is_low(u) ? sequence{0, 0} : sequence{1, u};
}

void append_utf8(unit_list& bytes, std::uint32_t c) {
    if (c < 0x80) {
        bytes.insert(bytes.end(), {c});
    } else if (c < 0x800) {
        bytes.insert(bytes.end(), {0xC0 + (c >> 6), 0x80 + (c & 0x3F)});
    } else if (c < 0x10000) {
        bytes.insert(bytes.end(), {0xE0 + (c >> 12), 0x80 + ((c >> 6) & 0x3F), 0x80 + (c & 0x3F)});
    } else if (c < 0x110000) {
        bytes.insert(bytes.end(), {0xF0 + (c >> 18), 0x80 + ((c >> 12) & 0x3F), 0x80 + ((c >> 6) & 0x3F),
                                   0x80 + (c & 0x3F)});
    }
}

unit_list utf8_to_utf16_model(ustring8 const& text) {
    unit_list units;
    for (std::size_t i = 0; i < text.size();) {
        sequence const found = utf8_sequence_at(text, i);
        if (found.units == 0) {
            return failure_text;
        }
        if (found.units == 4) {
            std::uint32_t const b0 = unit_at(text, i);
            std::uint32_t const b1 = unit_at(text, i + 1);
            std::uint32_t const b2 = unit_at(text, i + 2);
            std::uint32_t const b3 = unit_at(text, i + 3);
            std::uint32_t const w = (((b0 & 7) << 2) + ((b1 & 0x3F) >> 4) - 1) & 0xFFFF;
            units.push_back((0xD800 + (w << 6) + ((b1 & 0x0F) << 2) + ((b2 & 0x3F) >> 4)) & 0xFFFF);
            units.push_back(0xDC00 + ((b2 & 0x0F) << 6) + (b3 & 0x3F));
        } else {
            units.push_back(found.value);
        }
        i += found.units;
    }
    return units;
}

unit_list utf8_to_utf32_model(ustring8 const& text) {
    unit_list units;
    for (std::size_t i = 0; i < text.size();) {
        sequence const found = utf8_sequence_at(text, i);
        units.push_back(found.units == 0 ? '?' : found.value);
        i += std::max<std::size_t>(found.units, 1);
    }
    return units;
}

std::optional<unit_list> code_points_of_utf16(ustring16 const& text) {
    unit_list code_points;
    for (std::size_t i = 0; i < text.size();) {
        sequence const found = utf16_sequence_at(text, i);
        if (found.units == 0) {
            return std::nullopt;
        }
        code_points.push_back(found.value);
        i += found.units;
    }
    return code_points;
}

unit_list utf16_to_utf32_model(ustring16 const& text) {
    return code_points_of_utf16(text).value_or(failure_text);
}

unit_list utf16_to_utf8_model(ustring16 const& text) {
    unit_list bytes;
    for (std::uint32_t const c : code_points_of_utf16(text).value_or(failure_text)) {
        append_utf8(bytes, c);
    }
    return bytes;
}

unit_list utf32_to_utf8_model(ustring32 const& text) {
    unit_list bytes;
    for (std::uint32_t const u : text) {
        if (u >= 0xD800 && u <= 0xDFFF) {
            return failure_text;
        }
        append_utf8(bytes, u);
    }
    return bytes;
}

unit_list utf32_to_utf16_model(ustring32 const& text) {
    unit_list units;
    for (std::uint32_t const u : text) {
        if ((u >= 0xD800 && u <= 0xDFFF) || u >= 0x110000) {
            return failure_text;
        }
        if (u < 0xFFFF) {
            units.push_back(u);
        } else {
            units.insert(units.end(), {(u >> 10) + 0xD800, (u & 0x3FF) + 0xDC00});
        }
    }
    return units;
}

std::size_t character_index_model(ustring8 const& text, std::size_t n) {
    if (n >= text.size()) {
        return npos;
    }
    std::size_t position = 0;
    while (n-- > 0) {
        std::size_t const units = utf8_sequence_at(text, position).units;
        if (units == 0) {
            return npos;
        }
        position += units;
    }
    return position;
}

std::size_t character_index_model(ustring16 const& text, std::size_t n) {
    if (n >= text.size()) {
        return npos;
    }
    std::size_t position = 0;
    while (n-- > 0) {
        if (is_high(unit_at(text, position))) {
            if (!is_low(unit_at(text, position + 1))) {
                return npos;
            }
            position += 2;
        } else if (is_low(unit_at(text, 0))) {
            return npos;
        } else {
            position += 1;
        }
    }
    return position;
}

// ----------------------------------------------------------------------------------------------------------
// Everything that reads a text, against the models
// ----------------------------------------------------------------------------------------------------------

template <class Text>
bool equals(Text const& text, unit_list const& units) {
    using unit = typename Text::value_type;
    return std::equal(
        text.begin(), text.end(), units.begin(), units.end(),
        [](unit actual, std::uint32_t expected) { return actual == static_cast<unit>(expected); });
}

template <class Text>
bool decodes_as(Text const& text, std::size_t index, sequence expected) {
    std::size_t units = 0;
    std::uint32_t const code_point = unichar(text.data(), text.size(), index, units);
    return expected.units == 0 ? units == npos && code_point == '?'
                               : units == expected.units && code_point == expected.value;
}

bool behaves(ustring8 const& text) {
    bool right = equals(utf8_to_utf16(text), utf8_to_utf16_model(text)) &&
                 equals(utf8_to_utf32(text), utf8_to_utf32_model(text));
    for (std::size_t i = 0; i < text.size(); ++i) {
        sequence const expected = utf8_sequence_at(text, i);
        right = right && decodes_as(text, i, expected) &&
                gh2::validate_utf8(text.data() + i, text.size() - i) == (expected.units != 0) &&
                character_index(text, i) == character_index_model(text, i);
    }
    return right;
}

// Text with the swapped mark at the front is not for these.
bool behaves(ustring16 const& text) {
    bool right = equals(utf16_to_utf8(text), utf16_to_utf8_model(text)) &&
                 equals(utf16_to_utf32(text), utf16_to_utf32_model(text));
    for (std::size_t i = 0; i < text.size(); ++i) {
        right = right && decodes_as(text, i, utf16_sequence_at(text, i)) &&
                character_index(text, i) == character_index_model(text, i);
    }
    return right;
}

bool behaves(ustring32 const& text) {
    bool right = equals(utf32_to_utf8(text), utf32_to_utf8_model(text)) &&
                 equals(utf32_to_utf16(text), utf32_to_utf16_model(text));
    for (std::size_t i = 0; i < text.size(); ++i) {
        right = right && decodes_as(text, i, {1, unit_at(text, i)});
    }
    return right;
}

template <class Text>
std::string units_of(Text const& text) {
    std::ostringstream stream;
    for (std::size_t i = 0; i < text.size(); ++i) {
        stream << std::hex << std::uppercase << std::setfill('0') << std::setw(2) << unit_at(text, i) << ' ';
    }
    return stream.str();
}

// ----------------------------------------------------------------------------------------------------------
// UTF-8
// ----------------------------------------------------------------------------------------------------------

ustring8 every_byte() {
    ustring8 bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes.push_back(static_cast<char>(byte));
    }
    return bytes;
}

// All texts with one byte of each list.
void expect_right_for_all(std::vector<ustring8> const& choices, ustring8& text, std::size_t position = 0) {
    text.resize(choices.size());
    for (char const byte : choices[position]) {
        text[position] = byte;
        if (position + 1 < choices.size()) {
            expect_right_for_all(choices, text, position + 1);
        } else if (!behaves(text)) {
            ADD_FAILURE() << units_of(text);
        }
        if (testing::Test::HasFailure()) {
            return;
        }
    }
}

TEST(all_utf8, texts_of_1_2_and_3_bytes) {
    ustring8 text;
    expect_right_for_all({every_byte()}, text);
    expect_right_for_all({every_byte(), every_byte()}, text);
    expect_right_for_all({every_byte(), every_byte(), every_byte()}, text);
}

TEST(all_utf8, boundaries_of_4_byte_texts) {
    // Both ends of each range of lead and continuation bytes, and of what standard UTF-8 allows behind some
    // leads.
    ustring8 const ends(
        std::string("\x00\x01\x41\x7F\x80\x8F\x90\x9F\xA0\xBF\xC0\xC1\xC2\xDF\xE0\xE1\xEC\xED\xEE"
                    "\xEF\xF0\xF1\xF3\xF4\xF5\xF7\xF8\xFB\xFC\xFD\xFE\xFF",
                    32));
    ustring8 text;
    expect_right_for_all({ends, ends, ends, ends}, text);
}

TEST(all_utf8, sequences_of_4_byte_leads) {
    ustring8 const leads = "\xF0\xF1\xF2\xF3\xF4\xF5\xF6\xF7";
    ustring8 const ends = "\x7F\x80\x81\x8F\x90\xBE\xBF\xC0";
    ustring8 text;
    expect_right_for_all({leads, every_byte(), ends, ends}, text);
    expect_right_for_all({leads, ends, every_byte(), ends}, text);
    expect_right_for_all({leads, ends, ends, every_byte()}, text);
}

// ----------------------------------------------------------------------------------------------------------
// UTF-16 and UTF-32
// ----------------------------------------------------------------------------------------------------------

TEST(all_utf16, units_alone_and_between_letters) {
    for (std::uint32_t unit = 0; unit < 0x10000; ++unit) {
        ustring16 const alone(1, static_cast<utf16_unit>(unit));
        ustring16 const between = {utf16_unit('a'), static_cast<utf16_unit>(unit), utf16_unit('b')};
        ASSERT_TRUE(unit == swapped_byte_order_mark || behaves(alone)) << std::hex << unit;
        ASSERT_TRUE(behaves(between)) << std::hex << unit;
    }
}

TEST(all_utf16, surrogate_pairs) {
    for (std::uint32_t high = 0xD800; high < 0xDC00; ++high) {
        for (std::uint32_t low = 0xDC00; low < 0xE000; ++low) {
            ustring16 const text = {static_cast<utf16_unit>(high), static_cast<utf16_unit>(low)};
            ASSERT_TRUE(behaves(text)) << units_of(text);
        }
    }
}

TEST(all_utf16, boundaries_of_4_unit_texts) {
    std::uint32_t const ends[] = {0,      'a',    0x7F,   0x80,   0x7FF,  0x800,  0xD7FF, 0xD800,
                                  0xDBFF, 0xDC00, 0xDFFF, 0xE000, 0xFEFF, 0xFFFD, 0xFFFE, 0xFFFF};
    constexpr std::size_t count = std::size(ends);
    for (std::size_t i = 0; i < count * count * count * count; ++i) {
        ustring16 text;
        for (std::size_t rest = i; text.size() < 4; rest /= count) {
            text.push_back(static_cast<utf16_unit>(ends[rest % count]));
        }
        ASSERT_TRUE(text[0] == swapped_byte_order_mark || behaves(text)) << units_of(text);
    }
}

TEST(all_utf32, code_points_and_some_beyond) {
    for (std::uint32_t unit = 0; unit < 0x120000; ++unit) {
        ASSERT_TRUE(behaves(ustring32(1, utf32_unit{unit}))) << std::hex << unit;
    }
    for (std::uint32_t const unit :
         {0x1FFFFFu, 0x200000u, 0x10000041u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        ASSERT_TRUE(behaves(ustring32(3, utf32_unit{unit}))) << std::hex << unit;
    }
}

TEST(all_code_points, come_back_through_every_form) {
    for (std::uint32_t unit = 0; unit < 0x110000; ++unit) {
        if (unit >= 0xD800 && unit <= 0xDFFF) {
            continue;
        }
        ustring32 const as_utf32(1, utf32_unit{unit});
        ustring8 const as_utf8 = utf32_to_utf8(as_utf32);
        ustring16 const as_utf16 = utf8_to_utf16(as_utf8);
        ASSERT_EQ(utf8_to_utf32(as_utf8), as_utf32) << std::hex << unit;
        if (unit != swapped_byte_order_mark) {
            ASSERT_EQ(utf16_to_utf32(as_utf16), as_utf32) << std::hex << unit;
            ASSERT_EQ(utf16_to_utf8(as_utf16), as_utf8) << std::hex << unit;
        }
    }
}

// ----------------------------------------------------------------------------------------------------------
// One odd place in a run of ASCII, at each offset: where a loop over several units at a time would slip
// ----------------------------------------------------------------------------------------------------------

template <class Text>
void expect_right_at_each_offset(std::vector<Text> const& odd_texts) {
    for (Text const& odd : odd_texts) {
        for (std::size_t length = 0; length <= 70; ++length) {
            Text run;
            for (std::size_t i = 0; i < length; ++i) {
                run.push_back(static_cast<typename Text::value_type>('0' + i));
            }
            for (std::size_t offset = 0; offset <= length; ++offset) {
                Text text = run;
                text.insert(offset, odd);
                ASSERT_TRUE(behaves(text)) << units_of(text);
            }
        }
    }
}

TEST(ascii_runs, with_one_odd_place_in_utf8) {
    expect_right_at_each_offset<ustring8>({"", ustring8(1, '\0'), "\x7F", "\x80", "\xC3", "\xC3\xA9",
                                           "\xE2\x82", "\xE2\x82\xAC", "\xED\xA0\x80", "\xF0\x9F\x98",
                                           "\xF0\x9F\x98\x80", "\xF7\xBF\xBF\xBF", "\xFF"});
}

TEST(ascii_runs, with_one_odd_place_in_utf16) {
    using text = ustring16;
    expect_right_at_each_offset<text>({text{0}, text{0x80}, text{0x7FF}, text{0x800}, text{0xFEFF},
                                       text{0xFFFF}, text{0xD83D, 0xDE00}, text{0xD83D}, text{0xDE00}});
}

TEST(ascii_runs, with_one_odd_place_in_utf32) {
    using text = ustring32;
    expect_right_at_each_offset<text>({text{0}, text{0x80}, text{0x7FF}, text{0x800}, text{0xD7FF},
                                       text{0xD800}, text{0xDFFF}, text{0xE000}, text{0xFFFF}, text{0x10000},
                                       text{0x10FFFF}, text{0x110000}, text{0xFFFFFFFF}});
}

} // namespace
