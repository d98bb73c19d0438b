#include "veldrin/parser/xml_token_stream.hpp"

#include <iterator>
#include <memory>
#include <ostream>
#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace VELDRIN_2_18;
using parser::xml_token_stream;
using strings::ustring8;
using token = xml_token_stream::token;
using parse_error = parser::xml_parser::parse_error;

struct token_value {
    token::token_type type;
    std::string value;

    bool operator==(token_value const&) const = default;
};

void PrintTo(token_value const& each, std::ostream* out) { *out << each.type << " [" << each.value << "]"; }

using token_values = std::vector<token_value>;

token_values values_of(xml_token_stream const& stream) {
    token_values values;
    for (token const& each : stream) {
        values.push_back({each.type(), each.value()});
    }
    return values;
}

token_values tokens_of(std::string const& body) {
    xml_token_stream stream;
    EXPECT_EQ(stream.parse("<?xml?>" + body).type(), parse_error::no_parse_error) << body;
    return values_of(stream);
}

TEST(token, has_the_types_that_readers_compare_against) {
    EXPECT_EQ(token::element_start, 0);
    EXPECT_EQ(token::element_end, 1);
    EXPECT_EQ(token::attribute_name, 2);
    EXPECT_EQ(token::attribute_value, 3);
    EXPECT_EQ(token::attributes_end, 4);
    EXPECT_EQ(token::comment, 5);
    EXPECT_EQ(token::space, 6);
    EXPECT_EQ(token::character, 7);
}

TEST(token, is_a_value) {
    token first(token::comment, "text");
    token const copy(first);
    first = token(token::space, " ");
    EXPECT_EQ(first.type(), token::space);
    EXPECT_EQ(first.value(), " ");
    EXPECT_EQ(copy.type(), token::comment);
    EXPECT_EQ(copy.value(), "text");
}

template <class Stream>
concept offers_an_event = requires(Stream& stream, ustring8 const& text) {
    stream.on_element_start(text);
}
|| requires(Stream& stream, ustring8 const& text) { stream.on_element_end(text); }
|| requires(Stream& stream, ustring8 const& text) { stream.on_attribute(text, text); }
|| requires(Stream& stream, ustring8 const& text) { stream.on_character(text); }
|| requires(Stream& stream, ustring8 const& text) { stream.on_space(text); }
|| requires(Stream& stream, ustring8 const& text) { stream.on_comment(text); };

// Reaches a protected member.
class open_token_stream : public xml_token_stream {
public:
    using xml_token_stream::on_comment;
};

TEST(xml_token_stream, events_are_for_derived_classes) {
    static_assert(!offers_an_event<xml_token_stream>);
    static_assert(offers_an_event<open_token_stream>);
}

TEST(xml_token_stream, is_empty_at_first) {
    xml_token_stream const stream;
    EXPECT_EQ(stream.size(), 0U);
    EXPECT_EQ(stream.begin(), stream.end());
}

TEST(xml_token_stream, lists_every_event) {
    EXPECT_EQ(tokens_of("<a x=\"1\"><b/>t</a>"), (token_values{{token::element_start, "a"},
                                                               {token::attribute_name, "x"},
                                                               {token::attribute_value, "1"},
                                                               {token::attributes_end, ""},
                                                               {token::element_start, "b"},
                                                               {token::attributes_end, ""},
                                                               {token::element_end, "b"},
                                                               {token::character, "t"},
                                                               {token::element_end, "a"}}));
}

TEST(xml_token_stream, lists_several_attributes) {
    EXPECT_EQ(tokens_of("<a x='&lt;' y=''/>"), (token_values{{token::element_start, "a"},
                                                             {token::attribute_name, "x"},
                                                             {token::attribute_value, "<"},
                                                             {token::attribute_name, "y"},
                                                             {token::attribute_value, ""},
                                                             {token::attributes_end, ""},
                                                             {token::element_end, "a"}}));
}

TEST(xml_token_stream, ends_the_attributes_of_an_empty_element_however_it_is_written) {
    token_values const expected = {
        {token::element_start, "b"}, {token::attributes_end, ""}, {token::element_end, "b"}};
    EXPECT_EQ(tokens_of("<b/>"), expected);
    EXPECT_EQ(tokens_of("<b></b>"), expected);
}

TEST(xml_token_stream, ends_the_attributes_at_the_next_start) {
    EXPECT_EQ(tokens_of("<a><b></b></a>"), (token_values{{token::element_start, "a"},
                                                         {token::attributes_end, ""},
                                                         {token::element_start, "b"},
                                                         {token::attributes_end, ""},
                                                         {token::element_end, "b"},
                                                         {token::element_end, "a"}}));
}

TEST(xml_token_stream, ends_the_attributes_at_space_and_text) {
    EXPECT_EQ(tokens_of("<a> t</a>"), (token_values{{token::element_start, "a"},
                                                    {token::attributes_end, ""},
                                                    {token::space, " "},
                                                    {token::character, "t"},
                                                    {token::element_end, "a"}}));
    EXPECT_EQ(tokens_of("<a>t</a>"), (token_values{{token::element_start, "a"},
                                                   {token::attributes_end, ""},
                                                   {token::character, "t"},
                                                   {token::element_end, "a"}}));
}

TEST(xml_token_stream, puts_a_comment_directly_behind_a_start_tag_ahead_of_the_end_of_its_attributes) {
    EXPECT_EQ(tokens_of("<a><!-- c --></a>"), (token_values{{token::element_start, "a"},
                                                            {token::comment, " c "},
                                                            {token::attributes_end, ""},
                                                            {token::element_end, "a"}}));
    EXPECT_EQ(tokens_of("<a> <!-- c --></a>"), (token_values{{token::element_start, "a"},
                                                             {token::attributes_end, ""},
                                                             {token::space, " "},
                                                             {token::comment, "  c "},
                                                             {token::element_end, "a"}}));
}

TEST(xml_token_stream, has_no_attributes_end_without_an_element) {
    EXPECT_EQ(tokens_of("<!--c--> <![CDATA[d]]></e>"), (token_values{{token::comment, "c"},
                                                                     {token::space, " "},
                                                                     {token::character, " d"},
                                                                     {token::element_end, "e"}}));
}

TEST(xml_token_stream, lists_text_outside_the_root) {
    EXPECT_EQ(tokens_of("<a/>  t"), (token_values{{token::element_start, "a"},
                                                  {token::attributes_end, ""},
                                                  {token::element_end, "a"},
                                                  {token::space, "  "},
                                                  {token::character, "t"}}));
}

TEST(xml_token_stream, returns_the_error_and_keeps_the_tokens_before_it) {
    xml_token_stream stream;
    parse_error const error = stream.parse("<?xml?>\n<a>\n<b c='1");
    EXPECT_EQ(error.type(), parse_error::missing_quote);
    EXPECT_EQ(error.line(), 2U);
    EXPECT_EQ(error.message(), "c");
    EXPECT_EQ(values_of(stream), (token_values{{token::element_start, "a"},
                                               {token::attributes_end, ""},
                                               {token::space, "\n"},
                                               {token::element_start, "b"},
                                               {token::attribute_name, "c"},
                                               {token::attribute_value, "1"}}));
    static_assert(std::is_same_v<decltype(stream.parse(ustring8())), parse_error>);
}

TEST(xml_token_stream, appends_the_tokens_of_a_second_parse) {
    xml_token_stream stream;
    stream.parse("<?xml?><a/>");
    EXPECT_EQ(stream.size(), 3U);
    stream.parse("<?xml?><b/>");
    EXPECT_EQ(stream.size(), 6U);
    EXPECT_EQ(values_of(stream), (token_values{{token::element_start, "a"},
                                               {token::attributes_end, ""},
                                               {token::element_end, "a"},
                                               {token::element_start, "b"},
                                               {token::attributes_end, ""},
                                               {token::element_end, "b"}}));
}

TEST(xml_token_stream, takes_the_start_tag_for_closed_at_the_start_of_a_parse) {
    xml_token_stream stream;
    EXPECT_EQ(stream.parse("<?xml?><a").type(), parse_error::unexpected_eof);
    EXPECT_EQ(stream.parse("<?xml?>t</a>").type(), parse_error::no_parse_error);
    EXPECT_EQ(
        values_of(stream),
        (token_values{{token::element_start, "a"}, {token::character, "t"}, {token::element_end, "a"}}));
}

TEST(xml_token_stream, takes_a_part_of_a_text) {
    ustring8 text = "...<?xml?><a/>...";
    xml_token_stream stream;
    EXPECT_EQ(stream.parse(text.cbegin() + 3, text.cend() - 3).type(), parse_error::no_parse_error);
    EXPECT_EQ(stream.parse(text.begin() + 3, text.end() - 3).type(), parse_error::no_parse_error);
    EXPECT_EQ(stream.size(), 6U);
    EXPECT_EQ(stream.parse(text.begin(), text.begin()).type(), parse_error::invalid_header);
    EXPECT_EQ(stream.size(), 6U);
}

TEST(xml_token_stream, is_walked_by_iterators_of_both_kinds) {
    xml_token_stream stream;
    stream.parse("<?xml?><a/>");
    static_assert(std::is_same_v<decltype(stream.begin()), xml_token_stream::iterator>);
    stream.begin()->operator=(token(token::comment, "changed"));
    xml_token_stream const& constant = stream;
    static_assert(std::is_same_v<decltype(constant.begin()), xml_token_stream::const_iterator>);
    EXPECT_EQ(constant.begin()->value(), "changed");
    EXPECT_EQ(std::distance(constant.begin(), constant.end()), 3);
    EXPECT_EQ(std::distance(stream.begin(), stream.end()), 3);
}

TEST(xml_token_stream, copies_its_tokens) {
    auto source = std::make_unique<xml_token_stream>();
    source->parse("<?xml?><a/>");
    token_values const values = values_of(*source);
    xml_token_stream const copy(*source);
    xml_token_stream assigned;
    assigned.parse("<?xml?><b>text</b>");
    assigned = *source;
    source->parse("<?xml?><c/>");
    EXPECT_EQ(source->size(), 6U);
    EXPECT_EQ(values_of(copy), values);
    EXPECT_EQ(values_of(assigned), values);
    source.reset();
    EXPECT_EQ(values_of(copy), values);
    EXPECT_EQ(values_of(assigned), values);
}

TEST(xml_token_stream, assigned_to_itself_stays_as_it_is) {
    xml_token_stream stream;
    stream.parse("<?xml?><a/>");
    stream = static_cast<xml_token_stream const&>(stream);
    EXPECT_EQ(stream.size(), 3U);
    EXPECT_EQ(stream.parse("<?xml?><b/>").type(), parse_error::no_parse_error);
    EXPECT_EQ(stream.size(), 6U);
}

TEST(xml_token_stream, copies_go_on_calling_the_source) {
    xml_token_stream source;
    source.parse("<?xml?><a/>");
    xml_token_stream copy(source);
    xml_token_stream assigned;
    assigned = source;
    EXPECT_EQ(copy.parse("<?xml?><b/>").type(), parse_error::no_parse_error);
    EXPECT_EQ(copy.size(), 3U);
    EXPECT_EQ(source.size(), 6U);
    EXPECT_EQ(assigned.parse("<?xml?><b/>").type(), parse_error::no_parse_error);
    EXPECT_EQ(assigned.size(), 3U);
    EXPECT_EQ(source.size(), 9U);
}

} // namespace
