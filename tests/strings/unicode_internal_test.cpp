// The converters over a kernel that miscounts, and the constants before their own unit is set up.

#include "veldrin/strings/unicode.hpp"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "strings/kernels/transcoding_kernels.hpp"
#include "support/unit_texts.hpp"
#include "veldrin/debug/assert.hpp"
#include "veldrin/functor/function.hpp"

namespace VELDRIN_2_18::strings::_private {

namespace {

std::size_t units_too_many = 0;

template <auto kernel, class From, class To>
transcoding_result miscounted(From const* text, std::size_t length, To* output) {
    transcoding_result result = (scalar_transcoding_kernels.*kernel)(text, length, output);
    for (std::size_t i = 0; i < units_too_many; ++i) {
        output[result.units_written++] = To('x');
    }
    return result;
}

} // namespace

// Linked in the place of the library's own.
transcoding_kernels const& selected_transcoding_kernels() {
    static transcoding_kernels const kernels = [] {
        transcoding_kernels table = scalar_transcoding_kernels;
        table.utf8_to_utf16 = miscounted<&transcoding_kernels::utf8_to_utf16>;
        table.utf16_to_utf8 = miscounted<&transcoding_kernels::utf16_to_utf8>;
        return table;
    }();
    return kernels;
}

} // namespace VELDRIN_2_18::strings::_private

namespace {

using namespace VELDRIN_2_18;
using strings::_private::units_too_many;
using support::utf16;

std::vector<std::string> expressions;

void record(char const* const expression, char const* const, unsigned int&) {
    expressions.emplace_back(expression);
}

class converter_assertions : public testing::Test {
protected:
    converter_assertions() {
        expressions.clear();
        debug::set_assert_hook(functor::function_t<debug::assert_hook_function>(&record));
    }

    ~converter_assertions() override {
        debug::set_assert_hook(types::nil);
        units_too_many = 0;
    }
};

TEST_F(converter_assertions, hold_up_to_the_last_unit) {
    strings::utf8_to_utf16("abc");
    strings::utf8_to_utf16("\xC3");
    strings::utf16_to_utf8(utf16({0xFFFF, 'a'}));
    units_too_many = 3;
    strings::utf16_to_utf8(utf16({'a'}));
    EXPECT_EQ(expressions, std::vector<std::string>());
}

TEST_F(converter_assertions, report_more_units_than_bytes_read) {
    units_too_many = 1;
    strings::utf8_to_utf16("abc");
    EXPECT_EQ(expressions, std::vector<std::string>{"k <= length"});
}

TEST_F(converter_assertions, report_more_bytes_than_there_is_room_for) {
    units_too_many = 4;
    strings::utf16_to_utf8(utf16({'a'}));
    EXPECT_EQ(expressions, std::vector<std::string>{"k <= output.size()"});
}

// In an archive nothing orders the set-up of this unit and the library's, so the marks have to come ahead.
strings::ustring8 const early_mark = strings::utf8_byte_order_mark;
strings::ustring16 const early_text = strings::remove_BOM(utf16({0xFEFF, 'a'}));
strings::ustring32 const early_mark_32 = strings::utf32_byte_order_mark;

TEST(byte_order_marks, stand_before_other_static_objects) {
    EXPECT_EQ(early_mark, "\xEF\xBB\xBF");
    EXPECT_EQ(early_text, utf16({'a'}));
    EXPECT_EQ(early_mark_32, support::utf32({0xFEFF}));
}

} // namespace
