// The debug channel is a fake here, so that its lines can be read.

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "platform/debug_channel.hpp"
#include "support/option_text.hpp"
#include "veldrin/i18n/message.hpp"

namespace {

std::vector<std::string> debug_lines;

} // namespace

namespace VELDRIN_2_18::platform {

void write_debug_line(std::string_view text) { debug_lines.emplace_back(text); }

} // namespace VELDRIN_2_18::platform

namespace {

using namespace VELDRIN_2_18;
using generic::argument;
using generic::varg_list;
using i18n::message_item;
using support::option_text;

using lines = std::vector<std::string>;

lines taken_lines() { return std::exchange(debug_lines, {}); }

// The item gives "?invalid?" for the arguments and one line with its whole specification.
void expect_failure(std::string const& specification, message_item::type_t type, varg_list const& args) {
    strings::ustring8 const data = option_text(specification);
    EXPECT_EQ(message_item(data, type).as_string(args), "?invalid?") << specification << " " << type;
    EXPECT_EQ(taken_lines(), lines{"Failure -- " + data}) << specification << " " << type;
}

TEST(message_item_failure, is_a_missing_argument) {
    for (int type = message_item::string_type; type <= message_item::duration_type; ++type) {
        expect_failure("x", static_cast<message_item::type_t>(type), varg_list());
        expect_failure("x=precision=1", static_cast<message_item::type_t>(type), varg_list(argument("X", 1)));
    }
}

TEST(message_item_failure, is_a_type_without_a_text_form) {
    varg_list const args(argument("x", 1));
    expect_failure("x", message_item::number_type, args);
    expect_failure("x", message_item::time_type, args);
    expect_failure("x", message_item::date_type, args);
    expect_failure("x", static_cast<message_item::type_t>(12), args);
    expect_failure("x", static_cast<message_item::type_t>(-1), args);
}

TEST(message_item_failure, is_a_bad_option) {
    varg_list const args(argument("x", 1234));
    for (message_item::type_t const type :
         {message_item::int_type, message_item::double_type, message_item::duration_type,
          message_item::memory_type, message_item::memory_unit_type, message_item::metric_type,
          message_item::metric_unit_type}) {
        expect_failure("x=unknown=1", type, args);
        expect_failure("x=precision", type, args);
    }
    expect_failure("x=fieldsize=3", message_item::int_type, args);
    expect_failure("x=precision=99", message_item::memory_unit_type, args);
    expect_failure("x=precision=99", message_item::metric_unit_type, args);
}

TEST(message_item_failure, is_a_number_that_reads_like_one) {
    expect_failure("x=precision=0", message_item::double_type, varg_list(argument("x", -0.2)));
    expect_failure("x=precision=1;p;0", message_item::metric_type, varg_list(argument("x", -0.2)));
}

TEST(message_item_failure, is_any_text_that_reads_like_one) {
    EXPECT_EQ(message_item("?invalid?").as_string(varg_list()), "?invalid?");
    EXPECT_EQ(taken_lines(), lines{"Failure -- ?invalid?"});
    expect_failure("x", message_item::string_type, varg_list(argument("x", "?invalid?")));
}

TEST(message_item_failure, writes_all_bytes_of_the_specification) {
    strings::ustring8 const data("x\0y\x01\xFF", 5);
    EXPECT_EQ(message_item(data, message_item::time_type).as_string(varg_list()), "?invalid?");
    EXPECT_EQ(taken_lines(), lines{std::string("Failure -- x\0y\x01\xFF", 16)});
}

TEST(message_item_failure, leaves_no_line_where_all_is_well) {
    EXPECT_EQ(message_item("text").as_string(varg_list()), "text");
    EXPECT_EQ(message_item("x", message_item::int_type).as_string(varg_list(argument("x", 1))), "1");
    EXPECT_EQ(message_item("x", message_item::string_type).as_string(varg_list(argument("x", "-0"))), "-0");
    EXPECT_EQ(taken_lines(), lines{});
}

TEST(message_failure, does_not_stop_the_message) {
    i18n::message_t const message({message_item("["), message_item("a", message_item::int_type),
                                   message_item("|"), message_item("b", message_item::time_type),
                                   message_item("|"), message_item("c", message_item::int_type),
                                   message_item("]")});
    EXPECT_EQ(message.as_string(varg_list(argument("b", 1), argument("c", 2))), "[?invalid?|?invalid?|2]");
    EXPECT_EQ(taken_lines(), (lines{"Failure -- a", "Failure -- b"}));
}

} // namespace
