// The calls that the class makes of the platform, which is a fake here.

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "platform/code_page.hpp"
#include "support/unit_texts.hpp"
#include "veldrin/strings/code_page.hpp"

namespace {

using namespace VELDRIN_2_18;
using support::utf16;

struct platform_call {
    int code_page;
    strings::ustring16 input;
    bool has_output;
    int output_size;

    bool operator==(platform_call const&) const = default;
};

std::vector<platform_call> calls;

// What the calls answer.
constexpr char fake_output[] = "xyz";
bool platform_fails = false;

template <class Input, class Output>
int fake_conversion(int code_page, Input const* input, Output* output, int output_size) {
    strings::ustring16 text;
    for (; *input != 0; ++input) {
        text += static_cast<strings::utf16_unit>(*input);
    }
    calls.push_back({code_page, text, output != nullptr, output_size});
    if (platform_fails) {
        return 0;
    }
    for (int index = 0; index < output_size; ++index) {
        output[index] = static_cast<Output>(fake_output[index]);
    }
    return sizeof fake_output;
}

} // namespace

namespace VELDRIN_2_18::platform {

int multi_byte_to_wide(int code_page, char const* bytes, strings::utf16_unit* output, int output_size) {
    return fake_conversion(code_page, bytes, output, output_size);
}

int wide_to_multi_byte(int code_page, strings::utf16_unit const* text, char* output, int output_size) {
    return fake_conversion(code_page, text, output, output_size);
}

} // namespace VELDRIN_2_18::platform

namespace {

class code_page_calls : public testing::Test {
protected:
    code_page_calls() {
        calls.clear();
        platform_fails = false;
    }
};

TEST_F(code_page_calls, encoding_asks_for_the_size_and_then_for_one_byte_less) {
    EXPECT_EQ(strings::code_page(strings::code_page::system_oem_alternate).encode(utf16({'a', 'b', 0, 'c'})),
              "xyz");
    EXPECT_EQ(calls, (std::vector<platform_call>{{1, utf16({'a', 'b'}), false, 0},
                                                 {1, utf16({'a', 'b'}), true, 3}}));
}

TEST_F(code_page_calls, decoding_asks_for_the_size_and_then_for_one_unit_less) {
    EXPECT_EQ(strings::code_page(strings::code_page::utf8).as_utf16(std::string("ab\0c", 4)),
              utf16({'x', 'y', 'z'}));
    EXPECT_EQ(calls, (std::vector<platform_call>{{65001, utf16({'a', 'b'}), false, 0},
                                                 {65001, utf16({'a', 'b'}), true, 3}}));
}

TEST_F(code_page_calls, every_form_goes_through_utf16) {
    strings::code_page const page(strings::code_page::system_ansi);
    EXPECT_EQ(page.encode(support::utf8({0xE2, 0x82, 0xAC})), "xyz");
    EXPECT_EQ(page.encode(support::utf32({0x20AC})), "xyz");
    platform_call const query{0, utf16({0x20AC}), false, 0};
    platform_call const conversion{0, utf16({0x20AC}), true, 3};
    EXPECT_EQ(calls, (std::vector<platform_call>{query, conversion, query, conversion}));
    EXPECT_EQ(page.as_utf8("a"), support::utf8({'x', 'y', 'z'}));
    EXPECT_EQ(page.as_utf32("a"), support::utf32({'x', 'y', 'z'}));
    EXPECT_EQ(page.as_ustring("a"), utf16({'x', 'y', 'z'}));
}

TEST_F(code_page_calls, a_failure_of_the_platform_is_a_length_that_no_string_has) {
    platform_fails = true;
    strings::code_page const page(strings::code_page::cp_1252);
    EXPECT_THROW(page.encode(utf16({'a'})), std::length_error);
    EXPECT_THROW(page.as_utf16("a"), std::length_error);
    EXPECT_EQ(calls.size(), 2u);
}

} // namespace
