#include "veldrin/parser/xml_parser.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "parser/xml_outcome.hpp"
#include "parser/xml_parser_model.hpp"
#include "veldrin/functor/function.hpp"
#include "veldrin/functor/member_function.hpp"

namespace {

using namespace VELDRIN_2_18;
using namespace support;

std::string const nul(1, '\0');
std::string const utf8_mark = "\xEF\xBB\xBF";

// The outcome of a text without an error.
outcome good(event_list const& events) { return {events, parse_error::no_parse_error, 0, ""}; }

outcome parse_body(std::string const& body) { return support::parse("<?xml?>" + body); }

// ---- parse_error ----------------------------------------------------------------------------------------

TEST(parse_error, has_the_values_that_readers_compare_against) {
    EXPECT_EQ(parse_error::no_parse_error, 0);
    EXPECT_EQ(parse_error::unexpected_eof, 1);
    EXPECT_EQ(parse_error::mismatched_end, 2);
    EXPECT_EQ(parse_error::no_root_element, 3);
    EXPECT_EQ(parse_error::invalid_header, 4);
    EXPECT_EQ(parse_error::unexpected_char, 5);
    EXPECT_EQ(parse_error::missing_quote, 6);
    EXPECT_EQ(parse_error::unknown_entity, 7);
    EXPECT_EQ(parse_error::missing_equals, 8);
    EXPECT_EQ(parse_error::attribute_redefined, 9);
    EXPECT_EQ(parse_error::data_after_root, 10);
    EXPECT_EQ(sizeof(parse_error::error_type), 4U);
}

TEST(parse_error, is_no_error_by_default) {
    parse_error const error;
    EXPECT_EQ(error.type(), parse_error::no_parse_error);
    EXPECT_EQ(error.line(), 0U);
    EXPECT_EQ(error.message(), "");
}

TEST(parse_error, is_a_value) {
    parse_error const error(parse_error::missing_equals, 7, "name");
    parse_error copy(error);
    EXPECT_EQ(copy.type(), parse_error::missing_equals);
    EXPECT_EQ(copy.line(), 7U);
    EXPECT_EQ(copy.message(), "name");
    copy = parse_error(parse_error::unknown_entity, 2);
    EXPECT_EQ(copy.type(), parse_error::unknown_entity);
    EXPECT_EQ(copy.line(), 2U);
    EXPECT_EQ(copy.message(), "");
    EXPECT_EQ(error.message(), "name");
}

TEST(parse_error, comes_back_as_a_const_value) {
    xml_parser parser;
    static_assert(std::is_same_v<decltype(parser.parse(ustring8())), parse_error const>);
    static_assert(
        std::is_same_v<decltype(parser.parse(ustring8().begin(), ustring8().end())), parse_error const>);
}

// ---- Every error, with its line, its message, and the events before it ------------------------------------

struct error_row {
    char const* text;
    parse_error::error_type type;
    std::uint32_t line;
    std::string message;
    event_list events;
};

void PrintTo(error_row const& row, std::ostream* out) { *out << row.text; }

class xml_parser_error : public testing::TestWithParam<error_row> {};

TEST_P(xml_parser_error, is_returned_behind_the_events_before_it) {
    error_row const& row = GetParam();
    EXPECT_EQ(support::parse(row.text), (outcome{row.events, row.type, row.line, row.message})) << row.text;
}

error_row const unexpected_eof_rows[] = {
    {"<?xml?>\n<a>\n\n</a", parse_error::unexpected_eof, 3, "", {"start a", "space \n\n"}},
    {"<?xml?>\n<a></a ", parse_error::unexpected_eof, 1, "", {"start a"}},
    {"<?xml?><a></ax", parse_error::mismatched_end, 0, "ax", {"start a"}},
    {"<?xml?><a></a?", parse_error::unexpected_eof, 0, "", {"start a"}},
    {"<?xml?></a", parse_error::unexpected_eof, 0, "", {}},
    {"<?xml?></a ", parse_error::unexpected_eof, 0, "", {}},
    {"<?xml?>\n\n<!-- c --", parse_error::unexpected_eof, 2, "", {}},
    {"<?xml?><!--", parse_error::unexpected_eof, 0, "", {}},
    {"<?xml?><!--x", parse_error::unexpected_eof, 0, "", {}},
    {"<?xml?><!-->", parse_error::unexpected_eof, 0, "", {}},
    {"<?xml?><!--->", parse_error::unexpected_eof, 0, "", {}},
    {"<?xml?><a>\n\n <![CDATA[ c ]]", parse_error::unexpected_eof, 2, "", {"start a", "space \n\n "}},
    {"<?xml?><![CDATA[", parse_error::unexpected_eof, 0, "", {}},
    {"<?xml?><![CDATA[x", parse_error::unexpected_eof, 0, "", {}},
    {"<?xml?><![CDATA[]", parse_error::unexpected_eof, 0, "", {}},
    {"<?xml?><![CDATA[]]", parse_error::unexpected_eof, 0, "", {}},
    // The text ends inside an element: no line.
    {"<?xml?>\n<a>\n\n", parse_error::unexpected_eof, 0, "", {"start a", "space \n\n"}},
    {"<?xml?>\n<a", parse_error::unexpected_eof, 0, "", {"start a"}},
    {"<?xml?>\n<a\n", parse_error::unexpected_eof, 0, "", {"start a"}},
    {"<?xml?>\n<a b='1'", parse_error::unexpected_eof, 0, "", {"start a", "attribute b=1"}},
    {"<?xml?>\n<a>text", parse_error::unexpected_eof, 0, "", {"start a", "character text"}},
    {"<?xml?>\n<a><b></b>", parse_error::unexpected_eof, 0, "", {"start a", "start b", "end b"}},
    {"<?xml?>\n<a><b></b  ", parse_error::unexpected_eof, 0, "", {"start a", "start b", "end b"}},
};
INSTANTIATE_TEST_SUITE_P(unexpected_eof, xml_parser_error, testing::ValuesIn(unexpected_eof_rows));

error_row const mismatched_end_rows[] = {
    {"<?xml?><a></b>", parse_error::mismatched_end, 0, "b", {"start a"}},
    {"<?xml?><a></b", parse_error::mismatched_end, 0, "b", {"start a"}},
    {"<?xml?>\n<a>\n\n<b></a></b>",
     parse_error::mismatched_end,
     3,
     "a",
     {"start a", "space \n\n", "start b"}},
    {"<?xml?><a></A>", parse_error::mismatched_end, 0, "A", {"start a"}},
    {"<?xml?><ab></a>", parse_error::mismatched_end, 0, "a", {"start ab"}},
    {"<?xml?>\n<a></a\n/>", parse_error::mismatched_end, 2, "", {"start a", "end a"}},
    {"<?xml?></a/>", parse_error::mismatched_end, 0, "", {"end a"}},
};
INSTANTIATE_TEST_SUITE_P(mismatched_end, xml_parser_error, testing::ValuesIn(mismatched_end_rows));

error_row const no_root_element_rows[] = {
    {"<?xml?>", parse_error::no_root_element, 0, "", {}},
    {"<?xml?> \n\t\r\n ", parse_error::no_root_element, 2, "", {}},
    {"<?xml", parse_error::no_root_element, 0, "", {}},
    {"<?xml version='1.0'\n\n", parse_error::no_root_element, 0, "", {}},
    {"<?xml?", parse_error::no_root_element, 0, "", {}},
    {"<?xml???", parse_error::no_root_element, 0, "", {}},
};
INSTANTIATE_TEST_SUITE_P(no_root_element, xml_parser_error, testing::ValuesIn(no_root_element_rows));

error_row const invalid_header_rows[] = {
    {"", parse_error::invalid_header, 0, "", {}},
    {"<", parse_error::invalid_header, 0, "", {}},
    {"<?", parse_error::invalid_header, 0, "", {}},
    {"<?x", parse_error::invalid_header, 0, "", {}},
    {"<?xm", parse_error::invalid_header, 0, "", {}},
    {"abc<", parse_error::invalid_header, 0, "", {}},
    {"abc<?xm", parse_error::invalid_header, 0, "", {}},
    {"<?xmL?><a/>", parse_error::invalid_header, 0, "", {}},
    {"<?XML?><a/>", parse_error::invalid_header, 0, "", {}},
    {" <?xml?><a/>", parse_error::invalid_header, 0, "", {}},
    {"\n\n<?xml?><a/>", parse_error::invalid_header, 0, "", {}},
    {"abcd<?xml?><a/>", parse_error::invalid_header, 0, "", {}},
    {"<a/>", parse_error::invalid_header, 0, "", {}},
    {"text", parse_error::invalid_header, 0, "", {}},
    {"<?xml version='1.0'\n <", parse_error::invalid_header, 0, "", {}},
    {"<?xml version='1.0' <?>", parse_error::invalid_header, 0, "", {}},
    {"<?xml>", parse_error::invalid_header, 0, "", {}},
    {"<?xml version='1.0'><a/>", parse_error::invalid_header, 0, "", {}},
    {"<?xml ? ><a/>", parse_error::invalid_header, 0, "", {}},
};
INSTANTIATE_TEST_SUITE_P(invalid_header, xml_parser_error, testing::ValuesIn(invalid_header_rows));

error_row const unexpected_char_rows[] = {
    // Markup.
    {"<?xml?>\n<", parse_error::unexpected_char, 1, nul, {}},
    {"<?xml?></", parse_error::unexpected_char, 0, nul, {}},
    {"<?xml?></ a>", parse_error::unexpected_char, 0, " ", {}},
    {"<?xml?>< a/>", parse_error::unexpected_char, 0, " ", {}},
    {"<?xml?><<a/>", parse_error::unexpected_char, 0, "<", {}},
    {"<?xml?><a<b/>", parse_error::unexpected_char, 0, "<", {"start a"}},
    {"<?xml?><a></a<b/>", parse_error::unexpected_char, 0, "<", {"start a", "end a"}},
    {"<?xml?>>", parse_error::unexpected_char, 0, ">", {}},
    {"<?xml?><a>><", parse_error::unexpected_char, 0, ">", {"start a"}},
    {"<?xml?><a>b \n>", parse_error::unexpected_char, 1, ">", {"start a", "character b", "space  \n"}},
    {"<?xml?>\n<!DOCTYPE a>", parse_error::unexpected_char, 1, "!", {}},
    {"<?xml?><!-x-><a/>", parse_error::unexpected_char, 0, "!", {}},
    {"<?xml?><!", parse_error::unexpected_char, 0, "!", {}},
    {"<?xml?><!-", parse_error::unexpected_char, 0, "!", {}},
    {"<?xml?><![cdata[x]]>", parse_error::unexpected_char, 0, "!", {}},
    {"<?xml?><![CDATA", parse_error::unexpected_char, 0, "!", {}},
    {"<?xml?><a><?php ?></a>", parse_error::unexpected_char, 0, "?", {"start a"}},
    {"<?xml?><a:b/>", parse_error::unexpected_char, 0, ":", {"start a"}},
    {"<?xml?><a-b/>", parse_error::unexpected_char, 0, "-", {"start a"}},
    {"<?xml?><a.b/>", parse_error::unexpected_char, 0, ".", {"start a"}},
    {"<?xml?><_a/>", parse_error::unexpected_char, 0, "_", {}},
    {"<?xml?><1a/>", parse_error::unexpected_char, 0, "1", {}},
    {"<?xml?><a\xC3\xA9/>", parse_error::unexpected_char, 0, "\xC3", {"start a"}},
    {"<?xml?><\xC3\xA9/>", parse_error::unexpected_char, 0, "\xC3", {}},
    // The end of a tag.
    {"<?xml?><a/", parse_error::unexpected_char, 0, nul, {"start a"}},
    {"<?xml?><a\n/\n>", parse_error::unexpected_char, 1, "\n", {"start a"}},
    {"<?xml?><a></a?>", parse_error::unexpected_char, 0, "?", {"start a", "end a"}},
    // Attributes.
    {"<?xml?><a =''>", parse_error::unexpected_char, 0, "=", {"start a"}},
    {"<?xml?><a 'b'>", parse_error::unexpected_char, 0, "'", {"start a"}},
    {"<?xml?><a b=\"<\">", parse_error::unexpected_char, 0, "<", {"start a"}},
    {"<?xml?><a\nb='1'\nc='2<'>", parse_error::unexpected_char, 2, "<", {"start a", "attribute b=1"}},
    // References.
    {"<?xml?><a>&ampx;", parse_error::unexpected_char, 0, "m", {"start a"}},
    {"<?xml?><a>&amp", parse_error::unexpected_char, 0, "m", {"start a"}},
    {"<?xml?><a>&apox;", parse_error::unexpected_char, 0, "p", {"start a"}},
    {"<?xml?><a>&axe;", parse_error::unexpected_char, 0, "x", {"start a"}},
    {"<?xml?><a>&gT;", parse_error::unexpected_char, 0, "T", {"start a"}},
    {"<?xml?><a>&l;", parse_error::unexpected_char, 0, ";", {"start a"}},
    {"<?xml?><a>&nbsq;", parse_error::unexpected_char, 0, "b", {"start a"}},
    {"<?xml?><a>&quota;", parse_error::unexpected_char, 0, "u", {"start a"}},
    {"<?xml?><a>&a", parse_error::unexpected_char, 0, nul, {"start a"}},
    {"<?xml?><a>&#", parse_error::unexpected_char, 0, nul, {"start a"}},
    {"<?xml?><a>&#65", parse_error::unexpected_char, 0, nul, {"start a"}},
    {"<?xml?><a>&#6x;", parse_error::unexpected_char, 0, "x", {"start a"}},
    {"<?xml?><a>&#-6;", parse_error::unexpected_char, 0, "-", {"start a"}},
    {"<?xml?><a>&#X41;", parse_error::unexpected_char, 0, "X", {"start a"}},
    {"<?xml?><a>&#x", parse_error::unexpected_char, 0, nul, {"start a"}},
    {"<?xml?><a>&#x4g;", parse_error::unexpected_char, 0, "g", {"start a"}},
    {"<?xml?><a>&#x41 ;", parse_error::unexpected_char, 0, " ", {"start a"}},
    {"<?xml?>\n<a b='&#65 ;'", parse_error::unexpected_char, 1, " ", {"start a"}},
};
INSTANTIATE_TEST_SUITE_P(unexpected_char, xml_parser_error, testing::ValuesIn(unexpected_char_rows));

error_row const missing_quote_rows[] = {
    {"<?xml?><a b=1>", parse_error::missing_quote, 0, "", {"start a"}},
    {"<?xml?>\n<a b=\n", parse_error::missing_quote, 2, "", {"start a"}},
    {"<?xml?><a b=>", parse_error::missing_quote, 0, "", {"start a"}},
    {"<?xml?><a b='", parse_error::missing_quote, 0, "b", {"start a", "attribute b="}},
    {"<?xml?>\n<a\nb='1\n>", parse_error::missing_quote, 2, "b", {"start a", "attribute b=1\n>"}},
    {"<?xml?><a b='1\">", parse_error::missing_quote, 0, "b", {"start a", "attribute b=1\">"}},
    {"<?xml?><a b='1&amp;", parse_error::missing_quote, 0, "b", {"start a", "attribute b=1&"}},
};
INSTANTIATE_TEST_SUITE_P(missing_quote, xml_parser_error, testing::ValuesIn(missing_quote_rows));

error_row const unknown_entity_rows[] = {
    {"<?xml?><a>&unknown;</a>", parse_error::unknown_entity, 0, "", {"start a"}},
    {"<?xml?>\n<a>\n&", parse_error::unknown_entity, 2, "", {"start a", "space \n"}},
    {"<?xml?><a>text &;", parse_error::unknown_entity, 0, "", {"start a"}},
    {"<?xml?><a>& b", parse_error::unknown_entity, 0, "", {"start a"}},
    {"<?xml?><a>&AMP;", parse_error::unknown_entity, 0, "", {"start a"}},
    {"<?xml?><a b='&copy;'>", parse_error::unknown_entity, 0, "", {"start a"}},
    {"<?xml?><a b='&", parse_error::unknown_entity, 0, "", {"start a"}},
};
INSTANTIATE_TEST_SUITE_P(unknown_entity, xml_parser_error, testing::ValuesIn(unknown_entity_rows));

error_row const missing_equals_rows[] = {
    {"<?xml?><a b>", parse_error::missing_equals, 0, "b", {"start a"}},
    {"<?xml?><a b", parse_error::missing_equals, 0, "b", {"start a"}},
    {"<?xml?>\n<a\nb\n'1'>", parse_error::missing_equals, 3, "b", {"start a"}},
    {"<?xml?><a b='1' name2/>", parse_error::missing_equals, 0, "name2", {"start a", "attribute b=1"}},
    {"<?xml?><a></a b>", parse_error::missing_equals, 0, "b", {"start a", "end a"}},
};
INSTANTIATE_TEST_SUITE_P(missing_equals, xml_parser_error, testing::ValuesIn(missing_equals_rows));

error_row const attribute_redefined_rows[] = {
    {"<?xml?><a b=\"1\" b=\"2\">", parse_error::attribute_redefined, 0, "b", {"start a", "attribute b=1"}},
    {"<?xml?>\n<a b='1'\nc='2'\nb",
     parse_error::attribute_redefined,
     3,
     "b",
     {"start a", "attribute b=1", "attribute c=2"}},
    // An end tag does not forget the names of the last start tag.
    {"<?xml?><a b='1'></a b='2'>",
     parse_error::attribute_redefined,
     0,
     "b",
     {"start a", "attribute b=1", "end a"}},
};
INSTANTIATE_TEST_SUITE_P(attribute_redefined, xml_parser_error, testing::ValuesIn(attribute_redefined_rows));

error_row const data_after_root_rows[] = {
    {"<?xml?><a/><b/>", parse_error::data_after_root, 0, "", {"start a", "end a"}},
    {"<?xml?>\n<a></a>\n<a/>", parse_error::data_after_root, 2, "", {"start a", "end a", "space \n"}},
    {"<?xml?><a/><", parse_error::data_after_root, 0, "", {"start a", "end a"}},
    {"<?xml?><a/><!DOCTYPE a>", parse_error::data_after_root, 0, "", {"start a", "end a"}},
};
INSTANTIATE_TEST_SUITE_P(data_after_root, xml_parser_error, testing::ValuesIn(data_after_root_rows));

// ---- Header ---------------------------------------------------------------------------------------------

TEST(xml_parser_header, is_not_read) {
    for (char const* header : {"<?xml?>", "<?xml version='1.0' encoding=\"UTF-8\"?>", "<?xmlanything &x;?>",
                               "<?xml ? ?"
                               "?>",
                               "<?xml?"
                               "?"
                               "?>"}) {
        EXPECT_EQ(support::parse(ustring8(header) + "<a/>"), good({"start a", "end a"})) << header;
    }
}

TEST(xml_parser_header, may_have_any_three_bytes_before_it) {
    for (std::string const& mark :
         {utf8_mark, std::string("abc"), std::string("<?x"), std::string(3, '\0')}) {
        EXPECT_EQ(support::parse(mark + "<?xml?><a/>"), good({"start a", "end a"})) << mark;
    }
}

TEST(xml_parser_header, gives_no_space_event_for_the_white_space_behind_it) {
    EXPECT_EQ(support::parse("<?xml?> \n\t<a/>"), good({"start a", "end a"}));
}

// ---- Elements -------------------------------------------------------------------------------------------

TEST(xml_parser_element, starts_and_ends) {
    EXPECT_EQ(parse_body("<a></a>"), good({"start a", "end a"}));
    EXPECT_EQ(parse_body("<a/>"), good({"start a", "end a"}));
    EXPECT_EQ(parse_body("<a />"), good({"start a", "end a"}));
    EXPECT_EQ(parse_body("<a\n></a\t>"), good({"start a", "end a"}));
    EXPECT_EQ(parse_body("<a><b/><c></c></a>"),
              good({"start a", "start b", "end b", "start c", "end c", "end a"}));
    EXPECT_EQ(parse_body("<a><a><a/></a></a>"),
              good({"start a", "start a", "start a", "end a", "end a", "end a"}));
}

TEST(xml_parser_element, has_a_name_of_letters_digits_and_underscores) {
    EXPECT_EQ(parse_body("<Az09_z/>"), good({"start Az09_z", "end Az09_z"}));
}

TEST(xml_parser_element, ends_the_text_with_a_complete_end_tag) {
    EXPECT_EQ(parse_body("<a></a>"), good({"start a", "end a"}));
    EXPECT_EQ(parse_body("<a></a>\n"), good({"start a", "end a", "space \n"}));
}

TEST(xml_parser_element, may_lack_its_last_bracket_if_two_blanks_stand_there) {
    EXPECT_EQ(parse_body("<a></a  "), good({"start a", "end a"}));
    EXPECT_EQ(parse_body("<a></a \n"), good({"start a", "end a"}));
}

TEST(xml_parser_element, takes_attributes_and_a_slash_in_an_end_tag) {
    EXPECT_EQ(parse_body("<a></a b='1'>"), good({"start a", "end a", "attribute b=1"}));
    EXPECT_EQ(parse_body("<a><b></b/>"), good({"start a", "start b", "end b", "end a"}));
}

TEST(xml_parser_element, that_is_not_open_ends_all_the_same) {
    EXPECT_EQ(parse_body("</a>"), good({"end a"}));
    EXPECT_EQ(parse_body("<a/></a></b></a>"), good({"start a", "end a", "end a", "end b", "end a"}));
    EXPECT_EQ(parse_body("</a><b></b>"), good({"end a", "start b", "end b"}));
}

TEST(xml_parser_element, is_not_required) {
    EXPECT_EQ(parse_body("<!-- c -->"), good({"comment  c "}));
    EXPECT_EQ(parse_body("text"), good({"character text"}));
    EXPECT_EQ(parse_body("<![CDATA[]]>"), good({"character "}));
}

TEST(xml_parser_element, may_nest_without_bound) {
    constexpr std::size_t depth = 300'000;
    std::string text = "<?xml?>";
    for (std::size_t level = 0; level < depth; ++level) {
        text += "<a>";
    }
    xml_parser parser;
    EXPECT_EQ(parser.parse(text).type(), parse_error::unexpected_eof);
    for (std::size_t level = 0; level < depth; ++level) {
        text += "</a>";
    }
    EXPECT_EQ(xml_parser().parse(text).type(), parse_error::no_parse_error);
    EXPECT_EQ(xml_parser().parse(text + "<b/>").type(), parse_error::data_after_root);
}

// ---- Attributes -----------------------------------------------------------------------------------------

TEST(xml_parser_attribute, has_a_name_and_a_value_in_either_quote) {
    EXPECT_EQ(parse_body("<a b='1' c=\"2\"/>"), good({"start a", "attribute b=1", "attribute c=2", "end a"}));
    EXPECT_EQ(parse_body("<a b='\"' c=\"'\"></a>"),
              good({"start a", "attribute b=\"", "attribute c='", "end a"}));
    EXPECT_EQ(parse_body("<a b=''/>"), good({"start a", "attribute b=", "end a"}));
}

TEST(xml_parser_attribute, may_have_white_space_around_its_equals_sign_or_none_before_it) {
    EXPECT_EQ(parse_body("<a b \n=\t'1'c='2'/>"),
              good({"start a", "attribute b=1", "attribute c=2", "end a"}));
}

TEST(xml_parser_attribute, keeps_what_stands_in_its_value) {
    EXPECT_EQ(parse_body("<a b=' x\n\t >/= \xC3\xA9'/>"),
              good({"start a", "attribute b= x\n\t >/= \xC3\xA9", "end a"}));
}

TEST(xml_parser_attribute, decodes_references_in_its_value) {
    EXPECT_EQ(parse_body("<a b='&lt;&#65;&apos;'/>"), good({"start a", "attribute b=<A'", "end a"}));
}

TEST(xml_parser_attribute, may_have_a_name_that_another_element_has) {
    EXPECT_EQ(parse_body("<a b='1'><c b='2'/><d b='3'></d></a>"),
              good({"start a", "attribute b=1", "start c", "attribute b=2", "end c", "start d",
                    "attribute b=3", "end d", "end a"}));
}

TEST(xml_parser_attribute, is_forgotten_by_an_empty_element) {
    EXPECT_EQ(parse_body("<a b='1'/></a b='2'>"),
              good({"start a", "attribute b=1", "end a", "end a", "attribute b=2"}));
}

// ---- Text and white space ---------------------------------------------------------------------------------

TEST(xml_parser_text, is_one_run_while_white_space_stands_alone) {
    EXPECT_EQ(parse_body("<a>x y\nz\tw\r.</a>"), good({"start a", "character x y\nz\tw\r.", "end a"}));
}

TEST(xml_parser_text, is_split_in_front_of_two_white_space_characters) {
    EXPECT_EQ(parse_body("<a>x  y \n z</a>"), good({"start a", "character x", "space   ", "character y",
                                                    "space  \n ", "character z", "end a"}));
}

TEST(xml_parser_text, keeps_one_white_space_character_at_its_end) {
    EXPECT_EQ(parse_body("<a>x </a>"), good({"start a", "character x ", "end a"}));
    EXPECT_EQ(parse_body("<a>x  </a>"), good({"start a", "character x", "space   ", "end a"}));
    EXPECT_EQ(parse_body("<a/>x "), good({"start a", "end a", "character x "}));
    EXPECT_EQ(parse_body("<a/>x  "), good({"start a", "end a", "character x", "space   "}));
}

TEST(xml_parser_text, has_the_white_space_at_its_front_as_an_event_of_its_own) {
    EXPECT_EQ(parse_body("<a> x</a>"), good({"start a", "space  ", "character x", "end a"}));
}

TEST(xml_parser_text, may_hold_slashes_and_behind_its_first_character_brackets) {
    EXPECT_EQ(parse_body("<a>/x> = '\"</a>"), good({"start a", "character /x> = '\"", "end a"}));
    EXPECT_EQ(parse_body("<a>/</a>"), good({"start a", "character /", "end a"}));
    EXPECT_EQ(parse_body("<a>]]></a>"), good({"start a", "character ]]>", "end a"}));
}

TEST(xml_parser_text, may_stand_outside_the_root_element) {
    EXPECT_EQ(parse_body("x<a></a>text  \n"),
              good({"character x", "start a", "end a", "character text", "space   \n"}));
}

TEST(xml_parser_text, passes_bytes_as_they_are) {
    std::string const bytes("\x01\x7F\x80\xFF\xC3\0\xA9", 7);
    EXPECT_EQ(parse_body("<a>" + bytes + "</a>"), good({"start a", "character " + bytes, "end a"}));
}

TEST(xml_parser_space, is_blank_tab_carriage_return_and_line_feed) {
    for (int byte = 0; byte < 256; ++byte) {
        char const character = static_cast<char>(byte);
        EXPECT_EQ(recording_parser::is_white_space(&character),
                  character == ' ' || character == '\t' || character == '\r' || character == '\n')
            << byte;
    }
}

TEST(xml_parser_space, gives_no_event_inside_tags) {
    EXPECT_EQ(parse_body("<a  b = '1'  ></a  >"), good({"start a", "attribute b=1", "end a"}));
}

TEST(xml_parser_space, comes_before_comments_and_elements) {
    EXPECT_EQ(parse_body("<a> <b/>\n<!--c--></a>"),
              good({"start a", "space  ", "start b", "end b", "space \n", "comment \nc", "end a"}));
}

// ---- Comments and CDATA -----------------------------------------------------------------------------------

TEST(xml_parser_comment, is_delivered_as_it_stands) {
    EXPECT_EQ(parse_body("<a><!-- &lt; <b> -- > - \n --></a>"),
              good({"start a", "comment  &lt; <b> -- > - \n ", "end a"}));
    EXPECT_EQ(parse_body("<a><!----></a>"), good({"start a", "comment ", "end a"}));
    EXPECT_EQ(parse_body("<a><!-----></a>"), good({"start a", "comment -", "end a"}));
}

TEST(xml_parser_comment, begins_with_the_white_space_before_it) {
    EXPECT_EQ(parse_body("<a>  <!--c--></a>"), good({"start a", "space   ", "comment   c", "end a"}));
    EXPECT_EQ(parse_body("<a>x \n<!--c--></a>"),
              good({"start a", "character x", "space  \n", "comment  \nc", "end a"}));
    // One blank is part of the text before it.
    EXPECT_EQ(parse_body("<a>x <!--c--></a>"), good({"start a", "character x ", "comment c", "end a"}));
    // White space that was skipped with the header is gone.
    EXPECT_EQ(parse_body("\n<!--c-->"), good({"comment c"}));
}

TEST(xml_parser_comment, leaves_the_parser_outside_tags) {
    EXPECT_EQ(parse_body("<!--c--> x<a/>"),
              good({"comment c", "space  ", "character x", "start a", "end a"}));
}

TEST(xml_parser_character_data, is_delivered_as_it_stands) {
    EXPECT_EQ(parse_body("<a><![CDATA[<b> &lt; ]] > ]>  \n]]></a>"),
              good({"start a", "character <b> &lt; ]] > ]>  \n", "end a"}));
    EXPECT_EQ(parse_body("<a><![CDATA[]]]></a>"), good({"start a", "character ]", "end a"}));
    EXPECT_EQ(parse_body("<a><![CDATA[]]>]]></a>"),
              good({"start a", "character ", "character ]]>", "end a"}));
}

TEST(xml_parser_character_data, begins_with_the_white_space_before_it) {
    EXPECT_EQ(parse_body("<a>\n <![CDATA[c]]></a>"),
              good({"start a", "space \n ", "character \n c", "end a"}));
}

TEST(xml_parser_character_data, may_hold_a_zero_byte) {
    EXPECT_EQ(parse_body("<![CDATA[a" + nul + "b]]>"), good({"character a" + nul + "b"}));
    EXPECT_EQ(parse_body("<!--a" + nul + "b-->"), good({"comment a" + nul + "b"}));
}

// ---- References -------------------------------------------------------------------------------------------

TEST(xml_parser_reference, stands_for_one_byte) {
    struct row {
        char const* reference;
        int byte;
    };
    for (row const& each : {
             row{"&amp;", '&'},
             row{"&apos;", '\''},
             row{"&gt;", '>'},
             row{"&lt;", '<'},
             row{"&quot;", '"'},
             row{"&nbsp;", ' '},
             row{"&#65;", 'A'},
             row{"&#x41;", 'A'},
             row{"&#x4a;", 'J'},
             row{"&#x4A;", 'J'},
             row{"&#xE9;", 0xE9},
             row{"&#233;", 0xE9},
             row{"&#255;", 255},
             row{"&#256;", 255},
             row{"&#8364;", 255},
             row{"&#x100;", 255},
             row{"&#x20AC;", 255},
             row{"&#010;", 8},
             row{"&#0101;", 'A'},
             row{"&#07;", 7},
             row{"&#08;", 0},
             row{"&#09;", 0},
             row{"&#019;", 1},
             row{"&#0400;", 255},
             row{"&#0;", 0},
             row{"&#00;", 0},
             row{"&#x0;", 0},
             row{"&#x0041;", 'A'},
             row{"&#x0b1;", 0xB1},
             row{"&#;", 0},
             row{"&#x;", 0},
             row{"&#10;", 10},
             row{"&#60;", '<'},
             row{"&#99999999999999999999;", 255},
             row{"&#xFFFFFFFFFFFFFFFFFF;", 255},
         }) {
        std::string const byte(1, static_cast<char>(each.byte));
        EXPECT_EQ(parse_body(std::string("<a>") + each.reference + "</a>"),
                  good({"start a", "character " + byte, "end a"}))
            << each.reference;
        EXPECT_EQ(parse_body(std::string("<a b='") + each.reference + "'/>"),
                  good({"start a", "attribute b=" + byte, "end a"}))
            << each.reference;
    }
}

TEST(xml_parser_reference, stands_amid_text) {
    EXPECT_EQ(parse_body("<a>a &#65; b</a>"), good({"start a", "character a A b", "end a"}));
    EXPECT_EQ(parse_body("<a>a &#x41; b</a>"), good({"start a", "character a A b", "end a"}));
    EXPECT_EQ(parse_body("<a>&lt;b&gt; &amp;amp;</a>"), good({"start a", "character <b> &amp;", "end a"}));
}

TEST(xml_parser_reference, is_no_white_space_of_the_text) {
    EXPECT_EQ(parse_body("<a>&nbsp;&nbsp; &#10; x</a>"), good({"start a", "character    \n x", "end a"}));
}

TEST(xml_parser_reference, is_unknown_by_its_first_letter) {
    for (int byte = 0; byte < 256; ++byte) {
        char const character = static_cast<char>(byte);
        if (character == '#') {
            continue;
        }
        outcome const result = parse_body(std::string("<a>&") + character + "$;</a>");
        if (character != '\0' && std::strchr("aglnq", character) != nullptr) {
            EXPECT_EQ(result, (outcome{{"start a"}, parse_error::unexpected_char, 0, "$"})) << byte;
        } else {
            EXPECT_EQ(result, (outcome{{"start a"}, parse_error::unknown_entity, 0, ""})) << byte;
        }
    }
}

// ---- Lines ------------------------------------------------------------------------------------------------

TEST(xml_parser_line, counts_line_feeds_of_white_space_only) {
    struct row {
        char const* body;
        std::uint32_t line;
    };
    for (row const& each : {
             row{"<", 0},
             row{"\n\n<", 2},
             row{"<a>\n <", 1},
             row{"<a>x\ny<", 0},
             row{"<a>x\n<", 0},
             row{"<a>x\n\ny<", 2},
             row{"<a>x \n y<", 1},
             row{"<a\n\nb\n=\n'1'\n><", 5},
             row{"<a b='\n\n'><", 0},
             row{"<a></a\n><!DOCTYPE", 1},
             row{"<!--\n\n--><", 0},
             row{"<![CDATA[\n\n]]><", 0},
             row{"<a>\n<!--\n--><", 1},
             row{"<a>\r\r\n\r<", 1},
             row{"<a>&#10;&#10;<", 0},
         }) {
        EXPECT_EQ(parse_body(each.body).line, each.line) << each.body;
    }
    EXPECT_EQ(support::parse("<?xml\n\n?>\n<").line, 1U);
}

TEST(xml_parser_line, is_zero_after_a_success) { EXPECT_EQ(parse_body("\n\n<a>\n\n</a>\n").line, 0U); }

// ---- Protected tools --------------------------------------------------------------------------------------

template <class Parser>
concept offers_a_tool = requires(Parser& parser, char const*& position) {
    parser.do_parse(position, position);
}
|| requires(Parser& parser, char const*& position) { parser.parse_name(position, position); }
|| requires(Parser& parser, char const*& position) { parser.parse_attrib_value(position, position); }
|| requires(Parser& parser, char const*& position) { parser.parse_character(position, position); }
|| requires(Parser& parser, char const*& position) { parser.parse_whitespace(position, position); }
|| requires(Parser& parser, char const* position) { parser.is_white_space(position); };

TEST(xml_parser_tool, is_for_derived_classes) {
    static_assert(!offers_a_tool<xml_parser>);
    static_assert(offers_a_tool<recording_parser>);
}

struct tool_result {
    std::string text;
    std::ptrdiff_t position;
};

using tool = ustring8 (recording_parser::*)(char const*&, char const*);

// What a tool gives for a text that does not end in a NUL, and where it leaves the position.
tool_result use(recording_parser& parser, tool function, std::string_view text) {
    std::unique_ptr<char[]> const copy(new char[text.size()]);
    std::copy(text.begin(), text.end(), copy.get());
    char const* position = copy.get();
    ustring8 const result = (parser.*function)(position, copy.get() + text.size());
    return {result, position - copy.get()};
}

parse_error failure_of(tool function, std::string_view text) {
    recording_parser parser;
    try {
        use(parser, function, text);
    } catch (parse_error const& error) {
        return error;
    }
    ADD_FAILURE() << "no failure for " << text;
    return {};
}

TEST(xml_parser_tool, parse_name_leaves_the_position_on_the_last_character) {
    recording_parser parser;
    for (char const* text : {"name_1 x", "name_1", "name_1-"}) {
        auto const result = use(parser, &recording_parser::parse_name, text);
        EXPECT_EQ(result.text, "name_1");
        EXPECT_EQ(result.position, 5);
    }
    EXPECT_EQ(use(parser, &recording_parser::parse_name, "n").position, 0);
}

TEST(xml_parser_tool, parse_name_takes_ascii_only) {
    auto const is_letter = [](int byte) {
        return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
    };
    for (int byte = 0; byte < 256; ++byte) {
        std::string const character(1, static_cast<char>(byte));
        recording_parser parser;
        if (is_letter(byte)) {
            EXPECT_EQ(use(parser, &recording_parser::parse_name, character).text, character);
        } else {
            parse_error const error = failure_of(&recording_parser::parse_name, character);
            EXPECT_EQ(error.type(), parse_error::unexpected_char) << byte;
            EXPECT_EQ(error.message(), character) << byte;
        }
        bool const goes_on = is_letter(byte) || (byte >= '0' && byte <= '9') || byte == '_';
        EXPECT_EQ(use(parser, &recording_parser::parse_name, "a" + character).text,
                  goes_on ? "a" + character : "a")
            << byte;
    }
    parse_error const error = failure_of(&recording_parser::parse_name, "");
    EXPECT_EQ(error.type(), parse_error::unexpected_char);
    EXPECT_EQ(error.message(), nul);
}

TEST(xml_parser_tool, parse_attrib_value_leaves_the_position_on_the_closing_quote) {
    recording_parser parser;
    auto result = use(parser, &recording_parser::parse_attrib_value, "'a\"b' x");
    EXPECT_EQ(result.text, "a\"b");
    EXPECT_EQ(result.position, 4);
    result = use(parser, &recording_parser::parse_attrib_value, "\"a&lt;'");
    EXPECT_EQ(result.text, "a<'");
    EXPECT_EQ(result.position, 7) << "the end, since the quote is not closed";
    result = use(parser, &recording_parser::parse_attrib_value, "'");
    EXPECT_EQ(result.text, "");
    EXPECT_EQ(result.position, 1);
}

TEST(xml_parser_tool, parse_attrib_value_requires_a_quote) {
    for (char const* text : {"", "a", "`a`"}) {
        parse_error const error = failure_of(&recording_parser::parse_attrib_value, text);
        EXPECT_EQ(error.type(), parse_error::missing_quote);
        EXPECT_EQ(error.message(), "");
    }
}

TEST(xml_parser_tool, parse_character_leaves_the_position_on_the_semicolon) {
    recording_parser parser;
    for (char const* text : {"&amp;", "&#38;", "&#38;38;", "&#x26;", "&amp;amp;"}) {
        auto const result = use(parser, &recording_parser::parse_character, text);
        EXPECT_EQ(result.text, "&") << text;
        EXPECT_EQ(result.position, static_cast<std::ptrdiff_t>(std::string(text).find(';'))) << text;
    }
}

TEST(xml_parser_tool, parse_character_requires_an_ampersand) {
    EXPECT_EQ(failure_of(&recording_parser::parse_character, "x").type(), parse_error::unexpected_char);
    EXPECT_EQ(failure_of(&recording_parser::parse_character, "x").message(), "x");
    EXPECT_EQ(failure_of(&recording_parser::parse_character, "").message(), nul);
}

TEST(xml_parser_tool, parse_whitespace_stops_behind_the_white_space) {
    recording_parser parser;
    auto result = use(parser, &recording_parser::parse_whitespace, " \t\r\nx");
    EXPECT_EQ(result.text, " \t\r\n");
    EXPECT_EQ(result.position, 4);
    result = use(parser, &recording_parser::parse_whitespace, "\n\n");
    EXPECT_EQ(result.text, "\n\n");
    EXPECT_EQ(result.position, 2);
    result = use(parser, &recording_parser::parse_whitespace, "\v");
    EXPECT_EQ(result.text, "");
    EXPECT_EQ(result.position, 0);
}

TEST(xml_parser_tool, do_parse_advances_the_position) {
    std::string const text = "<?xml?><a><!";
    recording_parser parser;
    char const* position = text.data();
    EXPECT_EQ(parser.do_parse(position, text.data() + text.size()).type(), parse_error::unexpected_char);
    EXPECT_EQ(position - text.data(), 11) << "on the character that is not allowed";
    position = text.data();
    EXPECT_EQ(parser.do_parse(position, text.data() + 10).type(), parse_error::unexpected_eof);
    EXPECT_EQ(position - text.data(), 10);
}

// ---- Every end ----------------------------------------------------------------------------------------

// Parses by pointer a copy on the heap that ends where the text ends, so that a sanitizer sees a read behind
// it.
outcome parse_exact(std::string const& text) {
    std::unique_ptr<char[]> const copy(new char[text.size()]);
    std::copy(text.begin(), text.end(), copy.get());
    recording_parser parser;
    char const* position = copy.get();
    return parser.finish(parser.do_parse(position, copy.get() + text.size()));
}

// Whole, as a range in front of other characters, and exact.
void expect_same_in_every_form(std::string const& text, std::string const& behind, outcome const& expected) {
    ASSERT_EQ(support::parse(text), expected) << text;
    ustring8 const longer = text + behind;
    recording_parser parser;
    ASSERT_EQ(parser.finish(
                  parser.parse(longer.begin(), longer.begin() + static_cast<std::ptrdiff_t>(text.size()))),
              expected)
        << text << " in front of " << behind;
    ASSERT_EQ(parse_exact(text), expected) << text;
}

// The pieces of a document. A row tells how the text ends that is cut behind any character of its piece, and
// how many events there are by then, of which the last may be cut too.
struct cut_row {
    char const* piece;
    parse_error::error_type type;
    std::uint32_t line;
    std::string message;
    std::size_t events;
};

cut_row const cut_rows[] = {
    {"\xEF\xBB\xBF<?xm", parse_error::invalid_header, 0, "", 0},
    {"l version='1.0'?>", parse_error::no_root_element, 0, "", 0},
    {"\n", parse_error::no_root_element, 1, "", 0},
    {"<", parse_error::unexpected_char, 1, nul, 0},
    {"!-", parse_error::unexpected_char, 1, "!", 0},
    {"-c--", parse_error::unexpected_eof, 1, "", 0},
    {">", parse_error::no_parse_error, 0, "", 1},
    {"\n", parse_error::no_parse_error, 0, "", 2},
    {"<", parse_error::unexpected_char, 2, nul, 2},
    {"a ", parse_error::unexpected_eof, 0, "", 3},
    {"x", parse_error::missing_equals, 2, "x", 3},
    {"=", parse_error::missing_quote, 2, "", 3},
    {"'1", parse_error::missing_quote, 2, "x", 4},
    {"' ", parse_error::unexpected_eof, 0, "", 4},
    {"y ", parse_error::missing_equals, 2, "y", 4},
    {"= ", parse_error::missing_quote, 2, "", 4},
    {"\"", parse_error::missing_quote, 2, "y", 5},
    {"&", parse_error::unknown_entity, 2, "", 4},
    {"l", parse_error::unexpected_char, 2, nul, 4},
    {"t", parse_error::unexpected_char, 2, "t", 4},
    {";", parse_error::missing_quote, 2, "y", 5},
    {"&", parse_error::unknown_entity, 2, "", 4},
    {"#65", parse_error::unexpected_char, 2, nul, 4},
    {";", parse_error::missing_quote, 2, "y", 5},
    {"\">", parse_error::unexpected_eof, 0, "", 5},
    {"t u ", parse_error::unexpected_eof, 0, "", 6},
    {" ", parse_error::unexpected_eof, 0, "", 7},
    {"v", parse_error::unexpected_eof, 0, "", 8},
    {"&", parse_error::unknown_entity, 2, "", 7},
    {"a", parse_error::unexpected_char, 2, nul, 7},
    {"mp", parse_error::unexpected_char, 2, "m", 7},
    {";\n", parse_error::unexpected_eof, 0, "", 8},
    {"\n", parse_error::unexpected_eof, 0, "", 9},
    {"<", parse_error::unexpected_char, 4, nul, 9},
    {"b", parse_error::unexpected_eof, 0, "", 10},
    {"/", parse_error::unexpected_char, 4, nul, 10},
    {">", parse_error::unexpected_eof, 0, "", 11},
    {"<", parse_error::unexpected_char, 4, nul, 11},
    {"![CDATA", parse_error::unexpected_char, 4, "!", 11},
    {"[<d>]]", parse_error::unexpected_eof, 4, "", 11},
    {">", parse_error::unexpected_eof, 0, "", 12},
    {"</", parse_error::unexpected_char, 4, nul, 12},
    {"a ", parse_error::unexpected_eof, 4, "", 12},
    {">", parse_error::no_parse_error, 0, "", 13},
    {"\n", parse_error::no_parse_error, 0, "", 14},
};

std::string rich_document() {
    std::string document;
    for (cut_row const& row : cut_rows) {
        document += row.piece;
    }
    return document;
}

TEST(xml_parser_cut, gives_the_error_of_its_place) {
    event_list const events = {"comment c",      "space \n",      "start a",  "attribute x=1",
                               "attribute y=<A", "character t u", "space   ", "character v&",
                               "space \n\n",     "start b",       "end b",    "character <d>",
                               "end a",          "space \n"};
    ASSERT_EQ(support::parse(rich_document()), good(events));

    std::string text;
    for (cut_row const& row : cut_rows) {
        for (char const* character = row.piece; *character != '\0'; ++character) {
            text += *character;
            outcome const result = support::parse(text);
            EXPECT_EQ(result.type, row.type) << text;
            EXPECT_EQ(result.line, row.line) << text;
            EXPECT_EQ(result.message, row.message) << text;
            ASSERT_EQ(result.events.size(), row.events) << text;
            for (std::size_t index = 0; index + 1 < row.events; ++index) {
                EXPECT_EQ(result.events[index], events[index]) << text;
            }
        }
    }
}

TEST(xml_parser_cut, gives_what_the_model_gives_and_reads_nothing_behind_the_cut) {
    std::string const document = rich_document();
    for (std::size_t cut = 0; cut <= document.size(); ++cut) {
        std::string const text = document.substr(0, cut);
        outcome const expected = xml_parser_model::parse(text);
        for (char const* behind :
             {document.c_str() + cut, ">", "/>", "-->", "]]>", "a;", "'", "\"", "= 'x'>"}) {
            expect_same_in_every_form(text, behind, expected);
        }
    }
}

// ---- Every small text ---------------------------------------------------------------------------------

TEST(xml_parser_exhaustive, gives_what_the_model_gives_for_every_changed_byte) {
    std::string const document = rich_document();
    for (std::size_t index = 0; index < document.size(); ++index) {
        for (int byte = 0; byte < 256; ++byte) {
            std::string text = document;
            text[index] = static_cast<char>(byte);
            ASSERT_EQ(support::parse(text), xml_parser_model::parse(text)) << text;
        }
        std::string const shorter = document.substr(0, index) + document.substr(index + 1);
        ASSERT_EQ(support::parse(shorter), xml_parser_model::parse(shorter)) << shorter;
        std::string const doubled = document.substr(0, index + 1) + document.substr(index);
        ASSERT_EQ(support::parse(doubled), xml_parser_model::parse(doubled)) << doubled;
    }
}

// All texts of up to `length` characters of the alphabet between the given ones.
void expect_what_the_model_gives(std::string const& front, std::string const& alphabet, std::size_t length,
                                 std::string const& back = "") {
    std::vector<std::size_t> digits;
    while (digits.size() <= length) {
        std::string text = front;
        for (std::size_t const digit : digits) {
            text += alphabet[digit];
        }
        text += back;
        ASSERT_EQ(parse_exact(text), xml_parser_model::parse(text)) << text;

        std::size_t index = 0;
        while (index < digits.size() && ++digits[index] == alphabet.size()) {
            digits[index++] = 0;
        }
        if (index == digits.size()) {
            digits.push_back(0);
        }
    }
}

TEST(xml_parser_exhaustive, gives_what_the_model_gives_for_every_small_header) {
    expect_what_the_model_gives("", "<?xml>", 5, "?><a/>");
    expect_what_the_model_gives("<?xml", "<?> \n", 5);
    expect_what_the_model_gives("<?xml", "<?> \n", 4, "<a/>");
}

TEST(xml_parser_exhaustive, gives_what_the_model_gives_for_every_small_body) {
    std::string const alphabet = "<>/ab='& \n!-";
    expect_what_the_model_gives("<?xml?>", alphabet, 5);
    expect_what_the_model_gives("<?xml?><a>", alphabet, 4);
    expect_what_the_model_gives("<?xml?><a>", alphabet, 3, "</a>");
    expect_what_the_model_gives("<?xml?><a ", alphabet, 4);
    expect_what_the_model_gives("<?xml?><a b='", alphabet, 4);
    expect_what_the_model_gives("<?xml?><a b='1'", alphabet, 3, "/>");
    expect_what_the_model_gives("<?xml?><a></", alphabet, 4);
    expect_what_the_model_gives("<?xml?><a/>", alphabet, 4);
}

TEST(xml_parser_exhaustive, gives_what_the_model_gives_for_every_small_section) {
    expect_what_the_model_gives("<?xml?><a>  <", "!->x\n", 6, "</a>");
    expect_what_the_model_gives("<?xml?><a>  <!", "->x\n", 6);
    expect_what_the_model_gives("<?xml?><a>  <![CDATA", "[]>x&", 6);
}

TEST(xml_parser_exhaustive, gives_what_the_model_gives_for_every_small_reference) {
    expect_what_the_model_gives("<?xml?>&#", "x0179afAg; ", 4);
    expect_what_the_model_gives("<?xml?>&#x", "0179afAg; ", 4);
    expect_what_the_model_gives("<?xml?>&", "ampos;x", 5);
    expect_what_the_model_gives("<?xml?>&", "nbspgltquo;", 4);
    expect_what_the_model_gives("<?xml?><a b='&", "amp;gt'", 4, "'/>");
}

// ---- Delegates ----------------------------------------------------------------------------------------

TEST(xml_parser_delegates, may_be_missing) {
    xml_parser parser;
    EXPECT_EQ(parser.parse(rich_document()).type(), parse_error::no_parse_error);
    EXPECT_TRUE(parser.on_element_start == types::nil);
}

TEST(xml_parser_delegates, are_dropped_one_by_one) {
    ustring8 const text = rich_document();
    auto const events_without = [&](auto const& drop) {
        recording_parser parser;
        drop(parser);
        return parser.finish(parser.parse(text)).events.size();
    };
    EXPECT_EQ(events_without([](xml_parser& parser) { parser.on_element_start = types::nil; }), 12U);
    EXPECT_EQ(events_without([](xml_parser& parser) { parser.on_element_end = types::nil; }), 12U);
    EXPECT_EQ(events_without([](xml_parser& parser) { parser.on_attribute = types::nil; }), 12U);
    EXPECT_EQ(events_without([](xml_parser& parser) { parser.on_character = types::nil; }), 11U);
    EXPECT_EQ(events_without([](xml_parser& parser) { parser.on_space = types::nil; }), 10U);
    EXPECT_EQ(events_without([](xml_parser& parser) { parser.on_comment = types::nil; }), 13U);
}

void throw_number(ustring8 const&) { throw 42; }

void throw_number_for_attribute(ustring8 const&, ustring8 const&) { throw 42; }

TEST(xml_parser_delegates, may_throw_which_stops_the_parse) {
    using text_function = functor::function_t<void(ustring8 const&)>;
    using attribute_function = functor::function_t<void(ustring8 const&, ustring8 const&)>;
    auto const events_before = [&](auto const& set) {
        recording_parser parser;
        set(parser);
        EXPECT_THROW(parser.parse(rich_document()), int);
        return parser.events.size();
    };
    text_function const thrower(&throw_number);
    EXPECT_EQ(events_before([&](xml_parser& parser) { parser.on_comment = thrower; }), 0U);
    EXPECT_EQ(events_before([&](xml_parser& parser) { parser.on_space = thrower; }), 1U);
    EXPECT_EQ(events_before([&](xml_parser& parser) { parser.on_element_start = thrower; }), 2U);
    EXPECT_EQ(events_before([&](xml_parser& parser) {
                  parser.on_attribute = attribute_function(&throw_number_for_attribute);
              }),
              3U);
    EXPECT_EQ(events_before([&](xml_parser& parser) { parser.on_character = thrower; }), 5U);
    EXPECT_EQ(events_before([&](xml_parser& parser) { parser.on_element_end = thrower; }), 10U);
}

void throw_parse_error(ustring8 const& name) { throw parse_error(parse_error::unknown_entity, 77, name); }

TEST(xml_parser_delegates, may_end_the_parse_with_an_error_of_their_own) {
    recording_parser parser;
    parser.on_element_start = functor::function_t<void(ustring8 const&)>(&throw_parse_error);
    EXPECT_EQ(parser.finish(parser.parse("<?xml?>x<name/>")),
              (outcome{{"character x"}, parse_error::unknown_entity, 77, "name"}));
}

// ---- A parser's life ----------------------------------------------------------------------------------

TEST(xml_parser_life, leaves_the_text_untouched) {
    ustring8 const text = rich_document();
    recording_parser parser;
    parser.parse(text);
    EXPECT_EQ(text, rich_document());
}

TEST(xml_parser_life, takes_a_part_of_a_text) {
    ustring8 text = "...<?xml?><a/>...";
    recording_parser parser;
    EXPECT_EQ(parser.finish(parser.parse(text.cbegin() + 3, text.cend() - 3)), good({"start a", "end a"}));
    EXPECT_EQ(parser.finish(parser.parse(text.begin() + 3, text.end() - 3)), good({"start a", "end a"}));
    EXPECT_EQ(parser.parse(text.begin(), text.begin()).type(), parse_error::invalid_header);
    EXPECT_EQ(parser.parse(ustring8::const_iterator(), ustring8::const_iterator()).type(),
              parse_error::invalid_header);
}

TEST(xml_parser_life, starts_anew_after_a_success) {
    recording_parser parser;
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(parser.finish(parser.parse("<?xml?>\n<a b='1'></a  ")),
                  good({"start a", "attribute b=1", "end a"}));
    }
    EXPECT_EQ(parser.finish(parser.parse("<?xml?>\n<a><")),
              (outcome{{"start a"}, parse_error::unexpected_char, 1, nul}));
}

TEST(xml_parser_life, keeps_open_elements_behind_an_error) {
    recording_parser parser;
    EXPECT_EQ(parser.parse("<?xml?>\n\n<a><b c='").type(), parse_error::missing_quote);
    parser.events.clear();
    // The flag and the line are reset; the open elements are not.
    EXPECT_EQ(parser.finish(parser.parse("<?xml?>\n</a>")),
              (outcome{{}, parse_error::mismatched_end, 1, "a"}));
    EXPECT_EQ(parser.finish(parser.parse("<?xml?>x")),
              (outcome{{"character x"}, parse_error::unexpected_eof, 0, ""}));
    EXPECT_EQ(parser.finish(parser.parse("<?xml?></b></a>")), good({"end b", "end a"}));
}

TEST(xml_parser_life, keeps_attribute_names_behind_an_error) {
    recording_parser parser;
    EXPECT_EQ(parser.parse("<?xml?><a b='").type(), parse_error::missing_quote);
    parser.events.clear();
    EXPECT_EQ(parser.finish(parser.parse("<?xml?></a b='2'>")),
              (outcome{{"end a"}, parse_error::attribute_redefined, 0, "b"}));
}

TEST(xml_parser_life, keeps_the_attribute_names_of_the_last_tag_behind_a_success) {
    recording_parser parser;
    EXPECT_EQ(parser.finish(parser.parse("<?xml?></a b='1'>")), good({"end a", "attribute b=1"}));
    EXPECT_EQ(parser.finish(parser.parse("<?xml?></a b='1'>")),
              (outcome{{"end a"}, parse_error::attribute_redefined, 0, "b"}));
    EXPECT_EQ(parser.finish(parser.parse("<?xml?><a b='1'></a>")),
              good({"start a", "attribute b=1", "end a"}));
}

TEST(xml_parser_life, keeps_a_name_whose_end_was_not_delivered_to_the_end) {
    recording_parser parser;
    auto const recorder = parser.on_element_end;
    parser.on_element_end = functor::function_t<void(ustring8 const&)>(&throw_number);
    EXPECT_THROW(parser.parse("<?xml?><a/>"), int);
    parser.on_element_end = recorder;
    parser.events.clear();
    // "/>" takes the name away behind its event, an end tag before it.
    EXPECT_EQ(parser.finish(parser.parse("<?xml?>x")),
              (outcome{{"character x"}, parse_error::unexpected_eof, 0, ""}));
    EXPECT_EQ(parser.finish(parser.parse("<?xml?></a>")), good({"end a"}));
    parser.on_element_end = functor::function_t<void(ustring8 const&)>(&throw_number);
    EXPECT_THROW(parser.parse("<?xml?><a></a>"), int);
    parser.on_element_end = recorder;
    parser.events.clear();
    EXPECT_EQ(parser.finish(parser.parse("<?xml?>x")), good({"character x"}));
}

// An element is open, and the attributes of the one before it forgotten, ahead of its event.
TEST(xml_parser_life, keeps_an_element_whose_start_was_not_delivered_to_the_end) {
    recording_parser parser;
    auto const recorder = parser.on_element_start;
    EXPECT_EQ(parser.parse("<?xml?><a c='1'>").type(), parse_error::unexpected_eof);
    parser.on_element_start = functor::function_t<void(ustring8 const&)>(&throw_number);
    EXPECT_THROW(parser.parse("<?xml?><b>"), int);
    parser.on_element_start = recorder;
    parser.events.clear();
    EXPECT_EQ(parser.finish(parser.parse("<?xml?></b c='2'></a>")),
              good({"end b", "attribute c=2", "end a"}));
}

struct text_collector {
    std::string text;
    void add(ustring8 const& run) { text += run; }
};

TEST(xml_parser_life, copies_clone_the_delegates_and_the_state) {
    using collect = functor::member_function_t<text_collector, void(ustring8 const&)>;
    text_collector first;
    text_collector second;
    xml_parser source;
    source.on_character = collect(&first, &text_collector::add);
    EXPECT_EQ(source.parse("<?xml?><a>x").type(), parse_error::unexpected_eof);

    xml_parser copy(source);
    xml_parser assigned;
    assigned.on_comment = collect(&second, &text_collector::add);
    assigned = source;
    assigned = static_cast<xml_parser const&>(assigned);
    source.on_character = collect(&second, &text_collector::add);

    EXPECT_EQ(copy.parse("<?xml?>y</a>").type(), parse_error::no_parse_error) << "a was open in the copy too";
    EXPECT_EQ(assigned.parse("<?xml?>z</a><!--c-->").type(), parse_error::no_parse_error);
    EXPECT_EQ(source.parse("<?xml?>w</a>").type(), parse_error::no_parse_error);
    EXPECT_EQ(first.text, "xyz");
    EXPECT_EQ(second.text, "w");
}

TEST(xml_parser_life, copies_clone_every_delegate) {
    outcome const expected = support::parse(rich_document());
    recording_parser source;
    xml_parser copy(static_cast<xml_parser const&>(source));
    EXPECT_EQ(source.finish(copy.parse(rich_document())), expected);
    xml_parser assigned;
    assigned = static_cast<xml_parser const&>(source);
    EXPECT_EQ(source.finish(assigned.parse(rich_document())), expected);
}

TEST(xml_parser_life, copies_know_the_attribute_names_of_the_last_tag) {
    xml_parser source;
    EXPECT_EQ(source.parse("<?xml?></a b='1'>").type(), parse_error::no_parse_error);
    xml_parser copy(source);
    xml_parser assigned;
    assigned = source;
    EXPECT_EQ(copy.parse("<?xml?></a b='1'>").type(), parse_error::attribute_redefined);
    EXPECT_EQ(assigned.parse("<?xml?></a b='1'>").type(), parse_error::attribute_redefined);
}

} // namespace
