#include "veldrin/i18n/message_item.hpp"

#include <string>

#include <gtest/gtest.h>

#include "support/option_text.hpp"

namespace {

using namespace VELDRIN_2_18;
using generic::argument;
using generic::varg_list;
using i18n::message_item;
using support::option_text;

message_item argument_item(std::string const& specification, message_item::type_t type) {
    return message_item(option_text(specification), type);
}

std::string text_of(std::string const& specification, message_item::type_t type,
                    types::variant const& value) {
    return argument_item(specification, type).as_string(varg_list(argument("x", value)));
}

TEST(message_item, types_have_the_numbers_of_their_keywords) {
    EXPECT_EQ(message_item::value_type, 0);
    EXPECT_EQ(message_item::string_type, 1);
    EXPECT_EQ(message_item::number_type, 2);
    EXPECT_EQ(message_item::int_type, 3);
    EXPECT_EQ(message_item::double_type, 4);
    EXPECT_EQ(message_item::time_type, 5);
    EXPECT_EQ(message_item::date_type, 6);
    EXPECT_EQ(message_item::memory_type, 7);
    EXPECT_EQ(message_item::memory_unit_type, 8);
    EXPECT_EQ(message_item::metric_type, 9);
    EXPECT_EQ(message_item::metric_unit_type, 10);
    EXPECT_EQ(message_item::duration_type, 11);
}

TEST(message_item, made_from_a_text_alone_is_literal) {
    message_item const item("50% {done}");
    EXPECT_EQ(item.type(), message_item::value_type);
    EXPECT_EQ(item.data(), "50% {done}");
    EXPECT_EQ(item.name(), "50% {done}");
    EXPECT_EQ(item.as_string(varg_list()), "50% {done}");
}

TEST(message_item, literal_text_is_not_split) {
    message_item const item("a\x01"
                            "b",
                            message_item::value_type);
    EXPECT_EQ(item.as_string(varg_list()), "a\x01"
                                           "b");
    EXPECT_EQ(item.data(), "a\x01"
                           "b");
    EXPECT_EQ(item.name(), "a");
}

TEST(message_item, literal_text_keeps_zero_bytes) {
    strings::ustring8 const text("a\0b", 3);
    EXPECT_EQ(message_item(text).as_string(varg_list()), text);
    EXPECT_EQ(message_item(text).data(), text);
    EXPECT_EQ(message_item(text).name(), text);
}

TEST(message_item, name_is_what_stands_before_the_options) {
    EXPECT_EQ(argument_item("size", message_item::int_type).name(), "size");
    EXPECT_EQ(argument_item("size=base=hex", message_item::int_type).name(), "size");
    EXPECT_EQ(argument_item("=base=hex", message_item::int_type).name(), "");
    EXPECT_EQ(argument_item("", message_item::int_type).name(), "");
}

TEST(message_item, data_is_the_whole_specification) {
    EXPECT_EQ(argument_item("size=base=hex", message_item::int_type).data(), "size\x01"
                                                                             "base\x01"
                                                                             "hex");
}

TEST(message_item, copies_are_independent) {
    message_item const first = argument_item("x=base=hex", message_item::int_type);
    message_item second(first);
    EXPECT_EQ(second.data(), first.data());
    EXPECT_EQ(second.type(), message_item::int_type);

    message_item third("literal");
    EXPECT_EQ(&third.assign(first), &third);
    EXPECT_EQ(third.data(), first.data());
    EXPECT_EQ(third.type(), message_item::int_type);

    second = message_item("other");
    EXPECT_EQ(second.data(), "other");
    EXPECT_EQ(second.type(), message_item::value_type);
    EXPECT_EQ(first.data(), option_text("x=base=hex"));
}

TEST(message_item, string_shows_the_argument_as_text) {
    EXPECT_EQ(text_of("x", message_item::string_type, "notes.txt"), "notes.txt");
    EXPECT_EQ(text_of("x", message_item::string_type, -5), "-5");
    EXPECT_EQ(text_of("x", message_item::string_type, true), "1");
    EXPECT_EQ(text_of("x", message_item::string_type, types::nil), "");
    EXPECT_EQ(text_of("x", message_item::string_type, strings::ustring32(1, 0xE9)), "\xC3\xA9");
}

TEST(message_item, string_does_not_look_at_options) {
    EXPECT_EQ(text_of("x=fieldsize=3", message_item::string_type, "notes.txt"), "notes.txt");
    EXPECT_EQ(text_of("x=nonsense", message_item::string_type, "notes.txt"), "notes.txt");
}

TEST(message_item, each_type_calls_its_formatter) {
    EXPECT_EQ(text_of("x", message_item::int_type, 255), "255");
    EXPECT_EQ(text_of("x=base=hex", message_item::int_type, 255), "0x00ff");
    EXPECT_EQ(text_of("x=base=hex,fieldsize=8", message_item::int_type, 255), "0x0000ff");
    EXPECT_EQ(text_of("x", message_item::double_type, 3.14159), "3.14");
    EXPECT_EQ(text_of("x=p=1", message_item::double_type, 3.14159), "3.1");
    EXPECT_EQ(text_of("x", message_item::duration_type, 93784.5), "1 dy 2 hr 3 min 4.50 sec");
    EXPECT_EQ(text_of("x=short_form=true", message_item::duration_type, 93784.5), "1d 2h 3m 4.50s");
    EXPECT_EQ(text_of("x", message_item::memory_type, 1536), "1");
    EXPECT_EQ(text_of("x=precision=1", message_item::memory_type, 1536), "1.5");
    EXPECT_EQ(text_of("x", message_item::memory_unit_type, 1536), "KB");
    EXPECT_EQ(text_of("x=target_unit=MB", message_item::memory_unit_type, 1536), "MB");
    EXPECT_EQ(text_of("x", message_item::metric_type, 1500), "1.500");
    EXPECT_EQ(text_of("x=precision=1", message_item::metric_type, 1500), "1.5");
    EXPECT_EQ(text_of("x", message_item::metric_unit_type, 1500), "k");
    EXPECT_EQ(text_of("x=short_form=false", message_item::metric_unit_type, 1500), "kilo");
    EXPECT_EQ(text_of("x", message_item::metric_unit_type, 5), "");
}

TEST(message_item, converts_the_argument_for_its_formatter) {
    EXPECT_EQ(text_of("x", message_item::int_type, "0x10"), "16");
    EXPECT_EQ(text_of("x", message_item::int_type, 3.9), "3");
    EXPECT_EQ(text_of("x", message_item::int_type, types::nil), "0");
    EXPECT_EQ(text_of("x", message_item::int_type, std::uint64_t(18446744073709551615U)), "-1");
    EXPECT_EQ(text_of("x", message_item::double_type, "2.5"), "2.50");
    EXPECT_EQ(text_of("x", message_item::duration_type, 3600), "1 hr 0 min 0.00 sec");
    EXPECT_EQ(text_of("x", message_item::memory_type, std::uint64_t(18446744073709551615U)), "15");
    EXPECT_EQ(text_of("x", message_item::metric_type, "1500"), "1.500");
}

TEST(message_item, a_separator_without_options_behind_it_has_none) {
    EXPECT_EQ(text_of("x=", message_item::int_type, 255), "255");
}

TEST(message_item, finds_its_argument_by_name_among_others) {
    varg_list const args(argument("width", 3), argument("x", 4), argument("height", 5));
    EXPECT_EQ(argument_item("x", message_item::int_type).as_string(args), "4");
    EXPECT_EQ(argument_item("height", message_item::int_type).as_string(args), "5");
}

TEST(message_item, an_empty_name_finds_the_first_unnamed_argument) {
    varg_list const args(argument("x", 4), argument(types::variant(5)), argument(types::variant(6)));
    EXPECT_EQ(argument_item("", message_item::int_type).as_string(args), "5");
    EXPECT_EQ(argument_item("=base=bin", message_item::int_type).as_string(args), "101b");
}

TEST(message_item, text_of_an_argument_may_read_like_a_failure) {
    EXPECT_EQ(text_of("x", message_item::string_type, "-0"), "-0");
    EXPECT_EQ(message_item("-0").as_string(varg_list()), "-0");
    EXPECT_EQ(text_of("x=precision=0", message_item::duration_type, -0.2), "-0 sec");
}

} // namespace
