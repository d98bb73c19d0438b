#include "veldrin/i18n/message.hpp"

#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "support/option_text.hpp"

namespace {

using namespace VELDRIN_2_18;
using generic::argument;
using generic::varg_list;
using i18n::message_item;
using i18n::message_t;
using support::option_text;

std::vector<message_item> copied_items() {
    return {message_item("copied "), message_item("count", message_item::int_type), message_item(" of "),
            message_item("file", message_item::string_type)};
}

varg_list copied_args() { return varg_list(argument("file", "caf\xC3\xA9"), argument("count", 3)); }

// ----------------------------------------------------------------------------------------------------------
// Construction and assignment
// ----------------------------------------------------------------------------------------------------------

TEST(message, default_and_nil_are_the_nil_message) {
    for (message_t const& message : {message_t(), message_t(types::nil)}) {
        EXPECT_TRUE(message == types::nil);
        EXPECT_TRUE(message.equal(types::nil));
        EXPECT_EQ(message.count(), 0U);
        EXPECT_EQ(message.name(), "");
        EXPECT_EQ(message.meta(), "");
        EXPECT_EQ(message._orginal_locale(), "");
    }
}

TEST(message, takes_items) {
    message_t const message(copied_items());
    EXPECT_EQ(message.count(), 4U);
    EXPECT_EQ(message.name(), "");
    EXPECT_EQ(message.meta(), "");
    EXPECT_EQ(message._orginal_locale(), "");
}

TEST(message, takes_a_name_and_items) {
    message_t const message("copied", copied_items());
    EXPECT_EQ(message.count(), 4U);
    EXPECT_EQ(message.name(), "copied");
    EXPECT_EQ(message.meta(), "");
    EXPECT_EQ(message._orginal_locale(), "");
}

TEST(message, takes_a_name_items_and_meta) {
    message_t const message("copied", copied_items(), "status");
    EXPECT_EQ(message.count(), 4U);
    EXPECT_EQ(message.name(), "copied");
    EXPECT_EQ(message.meta(), "status");
    EXPECT_EQ(message._orginal_locale(), "");
}

TEST(message, is_nil_without_items_name_and_meta) {
    std::vector<message_item> const none;
    EXPECT_TRUE(message_t("", none, "") == types::nil);
    EXPECT_FALSE(message_t("name", none) == types::nil);
    EXPECT_FALSE(message_t("", none, "meta") == types::nil);
    EXPECT_FALSE(message_t(std::vector<message_item>{message_item("")}) == types::nil);
    EXPECT_FALSE(message_t("name", none).equal(types::nil));

    message_t with_locale;
    with_locale._orginal_locale("de");
    EXPECT_TRUE(with_locale == types::nil);
}

TEST(message, copies_deeply) {
    message_t original("copied", copied_items(), "status");
    original._orginal_locale("de_AT");
    message_t const copy(original);
    message_t assigned;
    EXPECT_EQ(&assigned.assign(original), &assigned);
    message_t set_equal;
    EXPECT_EQ(&(set_equal = original), &set_equal);

    *original.begin() = message_item("moved ");
    original.name("moved");
    original.meta("other");
    original._orginal_locale("fr");
    for (message_t const& message : {copy, assigned, set_equal}) {
        EXPECT_EQ(message.as_string(copied_args()), "copied 3 of caf\xC3\xA9");
        EXPECT_EQ(message.name(), "copied");
        EXPECT_EQ(message.meta(), "status");
        EXPECT_EQ(message._orginal_locale(), "de_AT");
    }
    EXPECT_EQ(original.as_string(copied_args()), "moved 3 of caf\xC3\xA9");
}

TEST(message, assigned_nil_empties_all_fields) {
    message_t first("copied", copied_items(), "status");
    first._orginal_locale("de");
    message_t second(first);
    EXPECT_EQ(&first.assign(types::nil), &first);
    EXPECT_EQ(&(second = types::nil), &second);
    for (message_t const& message : {first, second}) {
        EXPECT_TRUE(message == types::nil);
        EXPECT_EQ(message.count(), 0U);
        EXPECT_EQ(message.name(), "");
        EXPECT_EQ(message.meta(), "");
        EXPECT_EQ(message._orginal_locale(), "");
    }
}

// ----------------------------------------------------------------------------------------------------------
// Fields
// ----------------------------------------------------------------------------------------------------------

TEST(message, setters_return_the_new_value) {
    message_t message;
    static_assert(std::is_same_v<decltype(message.name("")), strings::ustring8 const&>);
    EXPECT_EQ(&message.name("n"), &message.name());
    EXPECT_EQ(&message.meta("m"), &message.meta());
    EXPECT_EQ(&message._orginal_locale("l"), &message._orginal_locale());
    EXPECT_EQ(message.name(), "n");
    EXPECT_EQ(message.meta(), "m");
    EXPECT_EQ(message._orginal_locale(), "l");
}

TEST(message, counts_items_and_arguments) {
    message_t const message(copied_items());
    EXPECT_EQ(message.count(), 4U);
    EXPECT_EQ(message.size(), 4U);
    EXPECT_EQ(message.argument_count(), 2U);
    EXPECT_EQ(message_t().argument_count(), 0U);

    message_t const twice(
        {message_item("x", message_item::int_type), message_item("x", message_item::time_type)});
    EXPECT_EQ(twice.argument_count(), 2U);
}

TEST(message, iterates_over_its_items_in_order) {
    message_t message(copied_items());
    std::string data;
    for (message_item const& item : static_cast<message_t const&>(message)) {
        data += item.data() + ";";
    }
    EXPECT_EQ(data, "copied ;count; of ;file;");
    for (message_item& item : message) {
        item = message_item("x");
    }
    EXPECT_EQ(message.as_string(varg_list()), "xxxx");
}

// ----------------------------------------------------------------------------------------------------------
// Text
// ----------------------------------------------------------------------------------------------------------

TEST(message, concatenates_the_texts_of_its_items) {
    EXPECT_EQ(message_t(copied_items()).as_string(copied_args()), "copied 3 of caf\xC3\xA9");
}

TEST(message, has_an_empty_text_without_items) {
    EXPECT_EQ(message_t().as_string(copied_args()), "");
    EXPECT_EQ(message_t().as_utf8(copied_args()), "");
    EXPECT_TRUE(message_t().as_utf16(copied_args()).empty());
    EXPECT_TRUE(message_t().as_utf32(copied_args()).empty());
}

TEST(message, of_literal_items_needs_no_arguments) {
    message_t const message({message_item("100% "), message_item("{done}")});
    EXPECT_EQ(message.as_string(varg_list()), "100% {done}");
    EXPECT_TRUE(message.has_valid_args(varg_list()));
}

TEST(message, may_use_an_argument_twice) {
    message_t const message({message_item(option_text("size"), message_item::memory_type), message_item(" "),
                             message_item(option_text("size"), message_item::memory_unit_type),
                             message_item(option_text(" ("), message_item::value_type),
                             message_item(option_text("size=base=hex"), message_item::int_type),
                             message_item(")")});
    EXPECT_EQ(message.as_string(varg_list(argument("size", 2048))), "2 KB (0x0800)");
}

TEST(message, has_its_text_in_each_encoding) {
    message_t const message(copied_items());
    static_assert(std::is_same_v<decltype(message.as_string(varg_list())), std::string>);
    static_assert(std::is_same_v<decltype(message.as_utf8(varg_list())), strings::ustring8>);
    static_assert(std::is_same_v<decltype(message.as_utf16(varg_list())), strings::ustring16>);
    static_assert(std::is_same_v<decltype(message.as_utf32(varg_list())), strings::ustring32>);
    static_assert(std::is_same_v<decltype(message.as_wstring(varg_list())), strings::wide_string>);
    static_assert(std::is_same_v<decltype(message.as_ustring(varg_list())), strings::wide_string>);

    strings::ustring8 const utf8 = "\xC3\xA9\xF0\x9F\x98\x80"; // U+00E9 and U+1F600
    strings::ustring16 const utf16{0xE9, 0xD83D, 0xDE00};
    strings::ustring32 const utf32{0xE9, 0x1F600};
    message_t const smile({message_item("x", message_item::string_type)});
    varg_list const args(argument("x", utf32));
    EXPECT_EQ(smile.as_string(args), utf8);
    EXPECT_EQ(smile.as_utf8(args), utf8);
    EXPECT_EQ(smile.as_utf16(args), utf16);
    EXPECT_EQ(smile.as_utf32(args), utf32);
    EXPECT_EQ(smile.as_wstring(args), utf16);
    EXPECT_EQ(smile.as_ustring(args), utf16);
}

TEST(message, keeps_zero_bytes_in_each_encoding) {
    message_t const message({message_item(strings::ustring8("a\0", 2)), message_item("b")});
    EXPECT_EQ(message.as_string(varg_list()), std::string("a\0b", 3));
    EXPECT_EQ(message.as_utf8(varg_list()), std::string("a\0b", 3));
    EXPECT_EQ(message.as_utf16(varg_list()), (strings::ustring16{'a', 0, 'b'}));
    EXPECT_EQ(message.as_utf32(varg_list()), (strings::ustring32{'a', 0, 'b'}));
    EXPECT_EQ(message.as_wstring(varg_list()), (strings::ustring16{'a', 0, 'b'}));
}

TEST(message, keeps_bad_text_in_bytes_and_fails_by_the_converters) {
    message_t const message({message_item("\xFF")});
    EXPECT_EQ(message.as_string(varg_list()), "\xFF");
    EXPECT_EQ(message.as_utf8(varg_list()), "\xFF");
    strings::ustring16 const failure{'-', '1'};
    EXPECT_EQ(message.as_utf16(varg_list()), failure);
    EXPECT_EQ(message.as_wstring(varg_list()), failure);
}

// ----------------------------------------------------------------------------------------------------------
// Arguments
// ----------------------------------------------------------------------------------------------------------

TEST(message, lists_its_arguments_under_their_whole_specification) {
    message_t const message({message_item("text"),
                             message_item(option_text("x=base=hex"), message_item::int_type),
                             message_item("y", message_item::time_type)});
    varg_list const list = message.arguments();
    ASSERT_EQ(list.count(), 2U);
    EXPECT_EQ(list.at(std::uint64_t(0)).name(), "x\x01"
                                                "base\x01"
                                                "hex");
    EXPECT_TRUE(list.at(std::uint64_t(0)).value() == types::nil);
    EXPECT_EQ(list.at(std::uint64_t(1)).name(), "y");
    EXPECT_TRUE(list.at(std::uint64_t(1)).value() == types::nil);
    EXPECT_FALSE(list.has_argument("x"));
    EXPECT_TRUE(message.has_valid_args(varg_list(argument("x", 1), argument("y", 2))));
    EXPECT_FALSE(message.has_valid_args(list));
}

TEST(message, lists_items_of_one_specification_once) {
    message_t const message({message_item("x", message_item::memory_type),
                             message_item("x", message_item::memory_unit_type),
                             message_item(option_text("x=base=hex"), message_item::int_type)});
    EXPECT_EQ(message.argument_count(), 3U);
    varg_list const list = message.arguments();
    ASSERT_EQ(list.count(), 2U);
    EXPECT_EQ(list.at(std::uint64_t(0)).name(), "x");
    EXPECT_EQ(list.at(std::uint64_t(1)).name(), option_text("x=base=hex"));
}

TEST(message, lists_each_item_of_an_empty_specification) {
    varg_list const list =
        message_t({message_item("", message_item::int_type), message_item("", message_item::int_type)})
            .arguments();
    ASSERT_EQ(list.count(), 2U);
    EXPECT_EQ(list.at(std::uint64_t(1)).name(), "");
    EXPECT_TRUE(list.at(std::uint64_t(1)).value() == types::nil);
}

TEST(message, of_literal_items_lists_no_arguments) {
    EXPECT_TRUE(message_t({message_item("a"), message_item("b")}).arguments().empty());
    EXPECT_TRUE(message_t().arguments().empty());
}

TEST(message, without_items_has_no_valid_arguments) {
    EXPECT_FALSE(message_t().has_valid_args(varg_list()));
    EXPECT_FALSE(message_t().has_valid_args(copied_args()));
    EXPECT_FALSE(message_t("name", std::vector<message_item>()).has_valid_args(varg_list()));
}

TEST(message, needs_each_argument_by_its_name) {
    message_t const message(copied_items());
    EXPECT_TRUE(message.has_valid_args(copied_args()));
    EXPECT_TRUE(
        message.has_valid_args(varg_list(argument("extra", 0), argument("count", 3), argument("file", "x"))));
    EXPECT_TRUE(
        message.has_valid_args(varg_list(argument("count", types::nil), argument("file", types::nil))));
    EXPECT_FALSE(message.has_valid_args(varg_list()));
    EXPECT_FALSE(message.has_valid_args(varg_list(argument("count", 3))));
    EXPECT_FALSE(message.has_valid_args(varg_list(argument("count", 3), argument("File", "x"))));
}

TEST(message, counts_entries_for_a_name_that_stands_twice) {
    message_t const message(
        {message_item("x", message_item::memory_type), message_item("x", message_item::memory_unit_type)});
    EXPECT_FALSE(message.has_valid_args(varg_list(argument("x", 1))));
    EXPECT_TRUE(message.has_valid_args(varg_list(argument("x", 1), argument("extra", 2))));
    EXPECT_EQ(message.as_string(varg_list(argument("x", 1))), "1B");
}

} // namespace
