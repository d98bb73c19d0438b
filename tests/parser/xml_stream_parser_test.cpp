#include "veldrin/parser/xml_stream_parser.hpp"

#include <cstdint>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <list>
#include <ostream>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "parser/xml_stream_outcome.hpp"
#include "support/ascii_text.hpp"
#include "support/temporary_directory.hpp"

namespace {

using namespace VELDRIN_2_18;
using namespace support;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;

using text_list = std::vector<std::string>;
using name_list = std::list<ustring8>;
using parser_type = xml_stream_parser;

// A file that grows, and what is read of it.
class document {
public:
    explicit document(std::string_view contents) : m_path(m_directory.file("document.xml", contents)) {}

    std::string const& path() const { return m_path; }
    void append(std::string_view more) const {
        std::ofstream(m_path, std::ios::binary | std::ios::app) << more;
    }
    void rewrite(std::string_view contents) const { std::ofstream(m_path, std::ios::binary) << contents; }

private:
    temporary_directory m_directory;
    std::string m_path;
};

struct outcome {
    text_list nodes;
    std::string error;

    bool operator==(outcome const&) const = default;
};

void PrintTo(outcome const& value, std::ostream* out) {
    *out << value.error << " after";
    for (std::string const& node : value.nodes) {
        *out << " [" << node << "]";
    }
}

outcome parse(std::string const& text, unsigned depth = 1) {
    document const file(text);
    parser_type parser(file.path(), depth);
    std::string const error = name_of(parser.parse());
    return {nodes_in(parser), error};
}

outcome parse_body(std::string const& body, unsigned depth = 1) { return parse(long_header + body, depth); }

// ---- The values -----------------------------------------------------------------------------------------

TEST(xml_stream_error_type, has_the_values_that_readers_compare_against) {
    EXPECT_EQ(parser_type::no_error, 0);
    EXPECT_EQ(parser_type::need_more_data, 1);
    EXPECT_EQ(parser_type::recovery_failed, 2);
    EXPECT_EQ(parser_type::end_of_document, 3);
    EXPECT_EQ(parser_type::tag_mismatch, 4);
    EXPECT_EQ(parser_type::duplicate_attribute, 5);
    EXPECT_EQ(parser_type::syntax_error, 6);
    EXPECT_EQ(parser_type::missing_quote, 7);
    EXPECT_EQ(parser_type::missing_equals, 9);
    EXPECT_EQ(parser_type::fatal_error, 10);
    EXPECT_EQ(parser_type::file_error, 11);
    EXPECT_EQ(parser_type::bad_header, 12);
    // Unscoped.
    EXPECT_TRUE((std::is_convertible_v<parser_type::error_type, int>));
}

TEST(xml_stream_node, is_an_open_one_without_anything) {
    parser_type::node const node;
    EXPECT_EQ(node.status(), parser_type::need_more_data);
    EXPECT_FALSE(node.available());
    EXPECT_EQ(node.tag(), "");
    EXPECT_EQ(node.line(), 0u);
    EXPECT_EQ(node.id(), 0u);
    EXPECT_EQ(node.parent_id(), 0u);
    EXPECT_TRUE(node.attribs().empty());
    EXPECT_EQ(node.data(), "");
    EXPECT_TRUE((std::is_same_v<decltype(node.line()), std::uint32_t>));
    EXPECT_TRUE((std::is_same_v<decltype(node.id()), std::uint64_t>));
    EXPECT_TRUE((std::is_same_v<decltype(node.parent_id()), std::uint64_t>));
}

TEST(xml_stream_node, is_a_value) {
    document const file(long_header + "\n<r><a x='1' y='2'>t</a></r>");
    parser_type parser(file.path(), 1);
    parser.parse();
    parser.node_queue_pop();
    parser_type::node const original = parser.node_queue_pop();
    parser_type::node copy = original;
    copy.attribs().pop_front();
    parser_type::node assigned;
    assigned = copy;
    EXPECT_EQ(numbered_text_of(original), "2<1 @2 .a x=1 y=2 't'");
    EXPECT_EQ(numbered_text_of(copy), "2<1 @2 .a y=2 't'");
    EXPECT_EQ(numbered_text_of(assigned), "2<1 @2 .a y=2 't'");
    EXPECT_TRUE(original.available() && copy.available() && assigned.available());
}

TEST(xml_stream_parser, gives_the_front_node_to_be_changed) {
    document const file(long_header + "<r><a x='1'/></r>");
    parser_type parser(file.path(), 1);
    parser.parse();
    parser.node_queue_front().attribs().emplace_back("own", "2");
    EXPECT_EQ(text_of(parser.node_queue_front()), "+r own=2");
    EXPECT_EQ(text_of(parser.node_queue_pop()), "+r own=2");
}

TEST(xml_stream_parser, has_no_node_at_the_beginning) {
    document const file(long_header + "<r/>");
    parser_type parser(file.path(), 1);
    EXPECT_TRUE(parser.node_queue_empty());
    EXPECT_EQ(parser.node_queue_size(), 0u);
    EXPECT_THROW(parser.node_queue_front(), parser_type::EmptyNodeQueue);
    EXPECT_THROW(parser.node_queue_pop(), parser_type::EmptyNodeQueue);
    EXPECT_EQ(parser.error(), parser_type::no_error);
    EXPECT_EQ(parser.root(), "");
    EXPECT_EQ(parser.line(), 1u);
    EXPECT_EQ(parser.parse_offset(), 0);
    EXPECT_TRUE((std::is_same_v<decltype(parser.node_queue_size()), std::uint32_t>));
    EXPECT_TRUE((std::is_same_v<decltype(parser.line()), std::uint32_t>));
    EXPECT_TRUE((std::is_same_v<decltype(parser.parse_offset()), std::int64_t>));
    EXPECT_TRUE((std::is_same_v<decltype(parser.file_length()), std::int64_t>));
    EXPECT_FALSE(std::is_copy_constructible_v<parser_type>);
    EXPECT_FALSE(std::is_copy_assignable_v<parser_type>);
}

TEST(xml_stream_parser, throws_a_standard_exception_for_an_empty_queue) {
    document const file(long_header + "<r/>");
    parser_type parser(file.path(), 1);
    try {
        parser.node_queue_front();
        FAIL();
    } catch (std::exception const& error) {
        EXPECT_STREQ(error.what(), "empty node queue");
    }
}

TEST(xml_stream_parser, returns_its_error_by_reference) {
    document const file(long_header + "<r>");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(&parser.parse(), &parser.error());
    EXPECT_EQ(&parser.recover(name_list{"a"}), &parser.error());
}

// ---- The file -------------------------------------------------------------------------------------------

TEST(xml_stream_file, is_named_in_any_form) {
    document const file(long_header + "<r></r>");
    parser_type narrow(ustring8(file.path()), 1);
    parser_type wide(text_of<ustring16>(file.path()), 1);
    parser_type widest(text_of<ustring32>(file.path()), 1);
    for (parser_type* const parser : {&narrow, &wide, &widest}) {
        EXPECT_EQ(parser->error(), parser_type::no_error);
        EXPECT_EQ(parser->parse(), parser_type::end_of_document);
        EXPECT_EQ(parser->file_length(), std::ssize(long_header) + 7);
    }
}

TEST(xml_stream_file, must_be_there_from_the_beginning) {
    temporary_directory directory;
    parser_type parser(directory.path("missing.xml"), 1);
    EXPECT_EQ(parser.error(), parser_type::file_error);
    EXPECT_EQ(parser.parse(), parser_type::file_error);
    EXPECT_EQ(parser.file_length(), 0);
    directory.file("missing.xml", long_header + "<r></r>");
    EXPECT_EQ(parser.parse(), parser_type::file_error);
    EXPECT_TRUE(parser.node_queue_empty());
    EXPECT_EQ(parser.file_length(), std::ssize(long_header) + 7);
}

TEST(xml_stream_file, is_not_a_directory) {
    temporary_directory directory;
    parser_type parser(directory.path(), 1);
    EXPECT_EQ(parser.error(), parser_type::file_error);
    EXPECT_EQ(parser.parse(), parser_type::file_error);
    EXPECT_EQ(parser.file_length(), 0);
}

TEST(xml_stream_file, that_vanishes_between_calls_is_an_error_for_good) {
    document const file(long_header + "<r><a>1</a>");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    std::filesystem::remove(file.path());
    EXPECT_EQ(parser.parse(), parser_type::file_error);
    EXPECT_EQ(parser.file_length(), 0);
    file.rewrite(long_header + "<r><a>1</a><a>2</a></r>");
    EXPECT_EQ(parser.parse(), parser_type::file_error);
    EXPECT_EQ(parser.recover(name_list{"a"}), parser_type::file_error);
    EXPECT_EQ(parser.parse(), parser_type::file_error);
    // What was read before stays to be taken, and nothing is read behind it.
    EXPECT_EQ(nodes_in(parser), (text_list{"+r", ".a '1'"}));
    EXPECT_EQ(parser.error(), parser_type::file_error);
    EXPECT_TRUE(parser.node_queue_empty());
}

TEST(xml_stream_file, that_vanishes_before_the_header_is_an_error_for_good) {
    document const file(long_header + "<r></r>");
    parser_type parser(file.path(), 1);
    std::filesystem::remove(file.path());
    EXPECT_EQ(parser.parse(), parser_type::file_error);
    EXPECT_EQ(parser.recover(name_list{"r"}), parser_type::fatal_error);
}

TEST(xml_stream_file, that_becomes_a_directory_is_an_error_for_good) {
    document const file(long_header + "<r>");
    parser_type parser(file.path(), 1);
    parser.parse();
    std::filesystem::remove(file.path());
    std::filesystem::create_directory(file.path());
    EXPECT_EQ(parser.parse(), parser_type::file_error);
}

TEST(xml_stream_file, that_shrank_has_not_grown) {
    std::string const beginning = long_header + "<r><a>1</a><a>";
    document const file(beginning);
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    file.rewrite("");
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    EXPECT_EQ(parser.file_length(), 0);
    file.rewrite(beginning.substr(0, beginning.size() - 1) + ">");
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    file.append("2</a></r>");
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
    EXPECT_EQ(nodes_in(parser), (text_list{"+r", ".a '1'", ".a '2'", "!r"}));
}

TEST(xml_stream_file, is_measured_when_asked_for_its_length) {
    document const file(long_header);
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.file_length(), std::ssize(long_header));
    file.append("<r>");
    EXPECT_EQ(parser.file_length(), std::ssize(long_header) + 3);
}

TEST(xml_stream_file, of_fewer_than_50_bytes_needs_more_data_at_every_call) {
    std::string const header = "<?xml?>";
    for (std::size_t size : {0u, 1u, 7u, 14u, 48u, 49u}) {
        std::string text = header + "<r></r>";
        text.resize(size, ' ');
        document const file(text);
        parser_type parser(file.path(), 1);
        EXPECT_EQ(parser.parse(), parser_type::need_more_data) << size;
        EXPECT_EQ(parser.parse(), parser_type::need_more_data) << size;
        EXPECT_TRUE(parser.node_queue_empty()) << size;
        EXPECT_EQ(parser.parse_offset(), 0) << size;
    }
    std::string const fifty = header + std::string(36, ' ') + "<r></r>";
    ASSERT_EQ(fifty.size(), 50u);
    EXPECT_EQ(parse(fifty), (outcome{{"+r", "!r"}, "end_of_document"}));

    document const file(fifty.substr(0, 49));
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::need_more_data);
    file.append(">");
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
}

// ---- The header -----------------------------------------------------------------------------------------

struct header_case {
    std::string header;
    outcome result;
    std::uint32_t line = 1;
};

outcome const read_well = {{"+r", "!r"}, "end_of_document"};
outcome const bad_header = {{}, "bad_header"};

TEST(xml_stream_header, table) {
    std::string const blanks(50, ' ');
    header_case const rows[] = {
        {"<?xml?>", read_well},
        {"<?xml version='1.0'?>", read_well},
        {"<?xml anything < \xFF at all?>", read_well},
        {"<?xmlanything?>", read_well},
        // A mark of three bytes, which are not looked at.
        {"\xEF\xBB\xBF<?xml?>", read_well},
        {"abc<?xml?>", read_well},
        {"<<<<?xml?>", read_well},
        {"\n\n\n<?xml?>", read_well},
        {"\xEF\xBB<?xml?>", bad_header},
        {"abcd<?xml?>", bad_header},
        // White space in front counts its lines, unlike that in the place of the mark.
        {" <?xml?>", read_well},
        {"  <?xml?>", read_well},
        {"\n\n<?xml?>", read_well, 3},
        {" \t\r\n \n<?xml?>", read_well, 3},
        {"\xEF\xBB\xBF\n<?xml?>", bad_header},
        // The end: any "?" and the byte behind it, or any byte and a ">" behind it.
        {"<?xml>?>", read_well},
        {"<?xml\n\n?>", read_well},
        {"<?xml ??", read_well},
        {"<?xml ?x", read_well},
        {"<?xml version='1.0'>", read_well},
        {"<?xml x>", read_well},
        {"<?xml?>\n\n", read_well, 3},
        {"<?xml >?>", {{}, "syntax_error"}},
        {"<?xml a?b?>", {{}, "syntax_error"}},
        {"<?XML?>", bad_header},
        {"< ?xml?>", bad_header},
        {"<!-- c --><?xml?>", bad_header},
        {"", bad_header},
    };
    for (header_case const& row : rows) {
        document const file(row.header + "<r></r>" + blanks);
        parser_type parser(file.path(), 1);
        std::string const error = name_of(parser.parse());
        EXPECT_EQ((outcome{nodes_in(parser), error}), row.result) << row.header;
        EXPECT_EQ(parser.line(), row.line) << row.header;
    }
}

TEST(xml_stream_header, ends_at_a_tag_that_ends_before_it_does) {
    // The "a" in front of the ">" ends it.
    EXPECT_EQ(parse("<?xml<a><r></r>" + std::string(50, ' ')), read_well);
}

TEST(xml_stream_header, must_be_there_with_more_than_its_opener) {
    EXPECT_EQ(parse(std::string(44, ' ') + "<?xml?"), (outcome{{}, "need_more_data"}));
    EXPECT_EQ(parse(std::string(45, ' ') + "<?xml"), bad_header);
    EXPECT_EQ(parse(std::string(50, ' ')), bad_header);
}

TEST(xml_stream_header, that_is_bad_is_bad_for_good) {
    document const file("<r>" + std::string(50, ' '));
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::bad_header);
    file.rewrite(long_header + "<r></r>");
    EXPECT_EQ(parser.parse(), parser_type::bad_header);
    EXPECT_EQ(parser.recover(name_list{"r"}), parser_type::fatal_error);
}

TEST(xml_stream_header, that_is_cut_is_read_again_whole) {
    std::string const text = "\n\n<?xml" + std::string(60, 'x') + "?>\n<r></r>";
    std::size_t const end = text.find("\n<r>");
    document const file(text.substr(0, 50));
    parser_type parser(file.path(), 1);
    for (std::size_t size = 50; size < end; ++size) {
        ASSERT_EQ(parser.parse(), parser_type::need_more_data) << size;
        ASSERT_EQ(parser.parse_offset(), 0) << size;
        ASSERT_EQ(parser.parse(), parser_type::need_more_data) << size;
        file.append(text.substr(size, 1));
    }
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    EXPECT_EQ(parser.parse_offset(), static_cast<std::int64_t>(end));
    file.append(text.substr(end));
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
    EXPECT_EQ(nodes_in(parser, numbered_text_of), (text_list{"1<0 @4 +r", "1<0 @4 !r"}));
}

TEST(xml_stream_header, that_is_longer_than_the_buffer_never_ends) {
    document const file("<?xml" + std::string(65536 - 5, 'x') + "?><r></r>");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::need_more_data);
    EXPECT_EQ(parser.parse(), parser_type::need_more_data);
    EXPECT_EQ(parse("<?xml" + std::string(65536 - 7, 'x') + "?><r></r>"), read_well);
}

// ---- The queue as the caller sees it --------------------------------------------------------------------

struct node_case {
    unsigned depth;
    std::string body;
    text_list nodes;
    std::string error = "end_of_document";
};

TEST(xml_stream_queue, nodes) {
    node_case const rows[] = {
        {1, "<r><a x=\"1\">t</a></r>", {"1<0 @1 +r", "2<1 @1 .a x=1 't'", "1<0 @1 !r"}},
        {1, "<r></r>", {"1<0 @1 +r", "1<0 @1 !r"}},
        {1, "<r x='1' y='2'></r>", {"1<0 @1 +r x=1 y=2", "1<0 @1 !r"}},
        {1,
         "<r><a><b><c/></b></a><d/></r>",
         {"1<0 @1 +r", "2<1 @1 .a", "3<2 @1 .b", "4<3 @1 .c", "5<1 @1 .d", "1<0 @1 !r"}},
        {2,
         "<r><a x='1'><b>t</b></a><a></a></r>",
         {"1<0 @1 +r", "2<1 @1 +a x=1", "3<2 @1 .b 't'", "2<0 @1 .a", "4<1 @1 +a", "2<0 @1 .a", "1<0 @1 !r"}},
        {3,
         "<r><a><b>t</b></a></r>",
         {"1<0 @1 +r", "2<1 @1 +a", "3<2 @1 +b 't'", "3<0 @1 .b", "2<0 @1 .a", "1<0 @1 !r"}},
        {9, "<r></r>", {"1<0 @1 +r", "1<0 @1 !r"}},
        // No open nodes at all, and so no root and no end.
        {0, "<r><a>t</a></r>", {"1<0 @1 .r", "2<1 @1 .a 't'"}, "no_error"},
        {0, "<r></r><s></s>", {"1<0 @1 .r", "2<0 @1 .s"}, "no_error"},
        // An element named like the root ends the document, if it is an open node.
        {2, "<r><r></r>", {"1<0 @1 +r", "2<1 @1 +r", "2<0 @1 !r"}},
        {1, "<r><r></r></r>", {"1<0 @1 +r", "2<1 @1 .r", "1<0 @1 !r"}},
        {2, "<r><a></a><r></r><a>", {"1<0 @1 +r", "2<1 @1 +a", "2<0 @1 .a", "3<1 @1 +r", "2<0 @1 !r"}},
    };
    for (node_case const& row : rows) {
        document const file(long_header + row.body);
        parser_type parser(file.path(), row.depth);
        EXPECT_EQ(name_of(parser.parse()), row.error) << row.body;
        EXPECT_EQ(nodes_in(parser, numbered_text_of), row.nodes) << row.body << " at " << row.depth;
        EXPECT_TRUE(parser.node_queue_empty()) << row.body;
    }
}

TEST(xml_stream_queue, ends_for_good_at_the_end_of_the_document) {
    document const file(long_header + "<r></r>");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
    file.append("<s></s>");
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
    EXPECT_EQ(nodes_in(parser), (text_list{"+r", "!r"}));
    EXPECT_EQ(parser.parse_offset(), std::ssize(long_header) + 7);
    EXPECT_EQ(parser.root(), "r");
}

TEST(xml_stream_queue, ends_at_the_end_of_the_document_whatever_follows) {
    EXPECT_EQ(parse_body("<r></r><s></s> text & <"), read_well);
    EXPECT_EQ(parse_body("<r></r>>"), read_well);
    // Between the name and the ">" the content goes on.
    EXPECT_EQ(parse_body("<r></r \n>"), read_well);
    EXPECT_EQ(parse_body("<r></r x></r>"), (outcome{{"+r", "!r"}, "syntax_error"}));
    EXPECT_EQ(parse_body("<r></r<!-- c -->>"), read_well);
    EXPECT_EQ(parse_body("<r></r<s></s>"), (outcome{{"+r", "!r", "+s", ".s"}, "end_of_document"}));
}

TEST(xml_stream_queue, ends_at_the_name_of_the_roots_end_tag) {
    document const file(long_header + "<r></r ");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
    EXPECT_EQ(nodes_in(parser), (text_list{"+r", "!r"}));
}

TEST(xml_stream_queue, delivers_an_open_node_at_once) {
    document const file(long_header + "<r ");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    EXPECT_EQ(parser.node_queue_size(), 1u);
    EXPECT_EQ(parser.root(), "r");
    EXPECT_TRUE(parser.node_queue_front().available());
    EXPECT_EQ(text_of(parser.node_queue_front()), "+r");
    file.append("x='1' y='2");
    EXPECT_EQ(parser.parse(), parser_type::need_more_data);
    EXPECT_EQ(text_of(parser.node_queue_front()), "+r x=1");
    file.append("'>");
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    EXPECT_EQ(text_of(parser.node_queue_front()), "+r x=1 y=2");
}

TEST(xml_stream_queue, holds_up_at_the_first_unfinished_node) {
    document const file(long_header + "<r><a><b/><c/>");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    EXPECT_EQ(parser.node_queue_size(), 1u);
    EXPECT_FALSE(parser.node_queue_empty());
    EXPECT_EQ(text_of(parser.node_queue_pop()), "+r");
    EXPECT_EQ(parser.node_queue_size(), 0u);
    EXPECT_TRUE(parser.node_queue_empty());
    EXPECT_THROW(parser.node_queue_front(), parser_type::EmptyNodeQueue);
    file.append("</a>");
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    EXPECT_EQ(nodes_in(parser), (text_list{".a", ".b", ".c"}));
}

TEST(xml_stream_queue, loses_a_node_that_is_taken_before_it_is_available) {
    document const file(long_header + "<r><a><b x='1'>t</b>");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    parser.node_queue_pop();
    EXPECT_THROW(parser.node_queue_pop(), parser_type::EmptyNodeQueue);
    EXPECT_EQ(nodes_in(parser), (text_list{".b x=1 't'"}));
    EXPECT_THROW(parser.node_queue_pop(), parser_type::EmptyNodeQueue);
    // The element is still open.
    file.append("late</a><c/></r>");
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
    EXPECT_EQ(nodes_in(parser, numbered_text_of), (text_list{"4<1 @1 .c", "1<0 @1 !r"}));
}

TEST(xml_stream_queue, does_not_read_on_when_an_unavailable_node_was_taken) {
    document const file(long_header + "<r><a>");
    parser_type parser(file.path(), 1);
    parser.parse();
    parser.node_queue_pop();
    file.append("</a><b/>");
    EXPECT_THROW(parser.node_queue_pop(), parser_type::EmptyNodeQueue);
    EXPECT_TRUE(parser.node_queue_empty());
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    EXPECT_EQ(nodes_in(parser), (text_list{".b"}));
}

// The nodes of all elements may be gone while their attributes and text come in.
TEST(xml_stream_queue, drops_what_comes_for_a_node_that_has_been_taken) {
    std::string const text = "<r x='1' y='2'>\n<a z='3'>first<b q='4'>t</b>second<c>u</c></a></r>";
    document const file(long_header);
    parser_type parser(file.path(), 2);
    text_list taken;
    auto const take_all = [&] {
        while (!parser.node_queue_empty()) {
            taken.push_back(numbered_text_of(parser.node_queue_pop()));
        }
    };
    for (char const byte : text) {
        file.append({&byte, 1});
        parser.parse();
        take_all();
    }
    EXPECT_EQ(parser.error(), parser_type::end_of_document);
    EXPECT_EQ(taken, (text_list{"1<0 @1 +r", "2<1 @2 +a", "3<2 @2 .b q=4 't'", "4<2 @2 .c 'u'", "2<0 @2 .a",
                                "1<0 @2 !r"}));
}

TEST(xml_stream_queue, drops_what_comes_for_the_taken_but_not_for_the_others) {
    document const file(long_header + "<r><a><b>");
    parser_type parser(file.path(), 3);
    parser.parse();
    EXPECT_EQ(text_of(parser.node_queue_pop()), "+r");
    EXPECT_EQ(text_of(parser.node_queue_pop()), "+a");
    file.append("text of b</b>text of a<c x='1'>text of c</c></a></r>");
    parser.parse();
    EXPECT_EQ(nodes_in(parser), (text_list{"+b 'text of b'", ".b", "+c x=1 'text of c'", ".c", ".a", "!r"}));
}

TEST(xml_stream_queue, reads_on_when_the_last_node_is_taken) {
    document const file(long_header + "<r>");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    file.append("<a/><b");
    EXPECT_EQ(parser.node_queue_size(), 1u);
    EXPECT_EQ(text_of(parser.node_queue_pop()), "+r");
    EXPECT_EQ(parser.node_queue_size(), 1u);
    EXPECT_EQ(parser.error(), parser_type::need_more_data);
    file.append("/></r>");
    EXPECT_EQ(text_of(parser.node_queue_pop()), ".a");
    EXPECT_EQ(parser.error(), parser_type::end_of_document);
    EXPECT_EQ(text_of(parser.node_queue_pop()), ".b");
    EXPECT_EQ(text_of(parser.node_queue_pop()), "!r");
    EXPECT_THROW(parser.node_queue_pop(), parser_type::EmptyNodeQueue);
}

TEST(xml_stream_queue, does_not_read_on_after_an_error) {
    document const file(long_header + "<r></s>");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::tag_mismatch);
    file.append("<a/>");
    EXPECT_EQ(text_of(parser.node_queue_pop()), "+r");
    EXPECT_EQ(parser.error(), parser_type::tag_mismatch);
    EXPECT_TRUE(parser.node_queue_empty());
}

std::string elements(int count) {
    std::string text;
    for (int number = 1; number <= count; ++number) {
        text += "<e n='" + std::to_string(number) + "'/>";
    }
    return text;
}

TEST(xml_stream_queue, stops_a_parse_of_which_nothing_is_taken) {
    document const file(long_header + "<r>" + elements(500) + "</r>");
    parser_type parser(file.path(), 1);
    // A start tag is put off from 101 nodes on.
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    EXPECT_EQ(parser.node_queue_size(), 101u);
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    EXPECT_EQ(parser.node_queue_size(), 101u);
    // And a parse does not begin from 100 on.
    parser.node_queue_pop();
    parser.parse();
    EXPECT_EQ(parser.node_queue_size(), 100u);
    parser.node_queue_pop();
    EXPECT_EQ(parser.node_queue_size(), 99u);
    parser.parse();
    EXPECT_EQ(parser.node_queue_size(), 101u);
    EXPECT_EQ(text_of(parser.node_queue_front()), ".e n=2");
}

TEST(xml_stream_queue, stops_at_the_start_tag_that_was_put_off) {
    std::string const text = long_header + "<r>" + elements(100);
    document const file(text + "\n\n<x y='1'/><z/></r>");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    EXPECT_EQ(parser.parse_offset(), std::ssize(text) + 2);
    EXPECT_EQ(parser.line(), 3u);
    for (int number = 0; number <= 100; ++number) {
        EXPECT_EQ(parser.node_queue_pop().id(), static_cast<std::uint64_t>(number) + 1);
    }
    EXPECT_EQ(nodes_in(parser, numbered_text_of), (text_list{"102<1 @3 .x y=1", "103<1 @3 .z", "1<0 @3 !r"}));
}

TEST(xml_stream_queue, puts_off_nothing_before_it_is_known_to_be_a_start_tag) {
    document const file(long_header + "<r>" + elements(100) + "<");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::need_more_data);
    EXPECT_EQ(parser.node_queue_size(), 101u);
}

TEST(xml_stream_queue, is_emptied_by_taking_alone) {
    document const file(long_header + "<r>" + elements(5000) + "</r>");
    parser_type parser(file.path(), 1);
    parser.parse();
    EXPECT_EQ(text_of(parser.node_queue_pop()), "+r");
    for (int number = 1; number <= 5000; ++number) {
        ASSERT_EQ(text_of(parser.node_queue_pop()), ".e n=" + std::to_string(number));
        ASSERT_LE(parser.node_queue_size(), 101u);
    }
    EXPECT_EQ(text_of(parser.node_queue_pop()), "!r");
    EXPECT_EQ(parser.error(), parser_type::end_of_document);
}

TEST(xml_stream_queue, is_not_held_back_while_fewer_than_two_can_be_taken) {
    document const file(long_header + "<r><a>" + elements(500));
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    EXPECT_EQ(parser.node_queue_size(), 1u);
    file.append("</a></r>");
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
    EXPECT_EQ(parser.node_queue_size(), 503u);
}

TEST(xml_stream_queue, is_held_back_as_soon_as_two_can_be_taken) {
    document const file(long_header + "<r><a/><b>" + elements(50));
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    EXPECT_EQ(parser.node_queue_size(), 2u);
    file.append(elements(100));
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    // Of the 101 nodes, three stand in front of those.
    std::int64_t const held_back = parser.parse_offset();
    EXPECT_EQ(held_back, std::ssize(long_header) + 10 + std::ssize(elements(50)) + std::ssize(elements(48)));
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    EXPECT_EQ(parser.parse_offset(), held_back);
    EXPECT_EQ(text_of(parser.node_queue_pop()), "+r");
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    EXPECT_EQ(parser.parse_offset(), parser.file_length());
}

// A parse that does not begin reads no end tags either.
TEST(xml_stream_queue, is_held_back_while_just_two_can_be_taken) {
    document const file(long_header + "<r><a/><b>" + elements(98));
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    EXPECT_EQ(parser.node_queue_size(), 2u);
    file.append("</b>");
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    EXPECT_EQ(parser.node_queue_size(), 2u);
    parser.node_queue_pop();
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    EXPECT_EQ(parser.node_queue_size(), 100u);
}

TEST(xml_stream_queue, is_not_held_back_by_end_tags) {
    std::string text;
    std::string end;
    for (int depth = 0; depth < 90; ++depth) {
        text += "<a" + std::to_string(depth) + ">";
        end = "</a" + std::to_string(depth) + ">" + end;
    }
    document const file(long_header + text + end);
    parser_type parser(file.path(), 200);
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
    EXPECT_EQ(parser.node_queue_size(), 180u);
}

// ---- Elements -------------------------------------------------------------------------------------------

struct body_case {
    std::string body;
    outcome result;
    unsigned depth = 1;
};

void check(std::vector<body_case> const& rows) {
    for (body_case const& row : rows) {
        EXPECT_EQ(parse_body(row.body, row.depth), row.result) << row.body << " at " << row.depth;
    }
}

// The outcome of a content of the root.
outcome content(text_list const& nodes, std::string const& error = "end_of_document") {
    outcome result{{"+r"}, error};
    result.nodes.insert(result.nodes.end(), nodes.begin(), nodes.end());
    if (error == "end_of_document") {
        result.nodes.push_back("!r");
    }
    return result;
}

TEST(xml_stream_elements, names) {
    check({
        {"<r><a/><B/><_c/><d1_2/><9/></r>", content({".a", ".B", "._c", ".d1_2", ".9"})},
        {"<r><\xC3\xA9/><a\xFF\x80/></r>", content({".\xC3\xA9", ".a\xFF\x80"})},
        {"<r>< \n a/></ r>", content({".a"})},
        {"<r><a:b/></r>", content({}, "syntax_error")},
        {"<r><a-b/></r>", content({}, "syntax_error")},
        {"<r><a.b/></r>", content({}, "syntax_error")},
        {"<r><:a/></r>", content({}, "syntax_error")},
        {"<r><?a?></r>", content({}, "syntax_error")},
        {"<r><></r>", content({}, "syntax_error")},
        {"<r><\x01/></r>", content({}, "syntax_error")},
        {"<?pi?><r></r>", {{}, "syntax_error"}},
    });
}

TEST(xml_stream_elements, tags) {
    check({
        {"<r><a></a></r>", content({".a"})},
        {"<r><a ></a ></r >", content({".a"})},
        {"<r\n><a\t/></r\n>", content({".a"})},
        {"<r><a<b/></a></r>", content({}, "syntax_error")},
        {"<r><a/ ></r>", content({}, "syntax_error")},
        {"<r><a/b/></r>", content({}, "syntax_error")},
        {"<r>></r>", content({}, "syntax_error")},
        {"<r><a>></a></r>", content({}, "syntax_error")},
        {"<r><a/>></r>", content({".a"}, "syntax_error")},
        {"<r><a></a>></r>", content({".a"}, "syntax_error")},
        {"><r></r>", {{}, "syntax_error"}},
        // One ">" is let through behind an end tag that has lost its own.
        {"<r><a></a<b></b></r>", content({".a", ".b"})},
        {"<r><a></a<b/>></r>", content({".a", ".b"})},
        {"<r><a></a<b/>>></r>", content({".a", ".b"}, "syntax_error")},
        {"<r><a><b></b x></a></r>", content({".a 'x>'", ".b"})},
        {"<r></>", content({}, "need_more_data")},
        {"<r></></r>", content({}, "need_more_data")},
        {"<r></:a></r>", content({}, "need_more_data")},
    });
}

TEST(xml_stream_elements, mismatches) {
    check({
        {"<r><a></b></a></r>", content({}, "tag_mismatch")},
        {"<r><a></r>", content({}, "tag_mismatch")},
        {"<r></a></r>", content({}, "tag_mismatch")},
        {"<r></R>", content({}, "tag_mismatch")},
        {"<r></r1>", content({}, "tag_mismatch")},
        {"</r>", {{}, "tag_mismatch"}},
        {"</include>", {{}, "tag_mismatch"}},
        {"</r>", {{}, "tag_mismatch"}, 0},
        {"<r><a></b></a></r>", {{"+r", "+a"}, "tag_mismatch"}, 2},
        {"<r></a></r>", {{}, "tag_mismatch"}, 0},
    });
}

// An empty element that is an open node is closed, and stays where an end tag will look for it.
TEST(xml_stream_elements, empty_open_nodes) {
    check({
        {"<r/>", {{".r"}, "no_error"}},
        {"<r/></r>", {{".r", "!r"}, "end_of_document"}},
        {"<r/><a/></r>", {{".r", ".a", "!r"}, "end_of_document"}},
        {"<r/>text</r>", {{".r"}, "syntax_error"}},
        {"<r x='1'/>", {{".r x=1"}, "no_error"}},
        {"<r><a/></r>", {{"+r", ".a"}, "tag_mismatch"}, 2},
        {"<r><a/></a></r>", {{"+r", ".a", ".a", "!r"}, "end_of_document"}, 2},
        {"<r><a/><b/></r>", {{"+r", ".a", ".b"}, "tag_mismatch"}, 2},
        {"<r><a/><b/></a></r>", {{"+r", ".a", ".b", ".a", "!r"}, "end_of_document"}, 2},
        {"<r><a/><b>t</b></a></r>", {{"+r", ".a"}, "tag_mismatch"}, 2},
        {"<r/></r></r>", {{".r", "!r"}, "end_of_document"}},
        // The text counts as one of the root's.
        {"<r><s><a/></a>text</s></r>", {{"+r", "+s", ".a", ".a"}, "syntax_error"}, 3},
    });
}

TEST(xml_stream_elements, ids_behind_an_empty_open_node) {
    document const file(long_header + "<r><a/></a><b/></b></r>");
    parser_type parser(file.path(), 2);
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
    EXPECT_EQ(nodes_in(parser, numbered_text_of),
              (text_list{"1<0 @1 +r", "2<1 @1 .a", "2<0 @1 .a", "3<0 @1 .b", "2<0 @1 .b", "1<0 @1 !r"}));
}

TEST(xml_stream_elements, includes_are_no_open_nodes) {
    check({
        {"<r><include/></r>", content({".include"})},
        {"<r><include/></r>", content({".include"}), 2},
        {"<r><include>t</include></r>", content({".include 't'"}), 1},
        {"<r><include>t</include></r>", content({".include 't'"}), 2},
        {"<r><include f='1'>t</include></r>", content({".include f=1 't'"}), 9},
        {"<r><Include></Include></r>", content({"+Include", ".Include"}), 2},
        {"<r><a><include></include></a></r>", content({"+a", ".include", ".a"}), 2},
        {"<r><include><include></include></include></r>", content({".include", ".include"}), 3},
        // At the top it is no root either.
        {"<include></include>", {{".include"}, "no_error"}},
        {"<include/><r></r>", {{".include", "+r", "!r"}, "end_of_document"}},
        // What stands in one is an open node if it is shallow enough, and is closed by its place.
        {"<include><a></a></include>", {{".include", ".a"}, "no_error"}},
        {"<r></include></r>", content({}, "tag_mismatch")},
        {"<r><a></include></a></r>", content({"+a"}, "tag_mismatch"), 2},
    });
    document const file(long_header + "<include><a></a></include>");
    parser_type parser(file.path(), 1);
    parser.parse();
    EXPECT_EQ(parser.root(), "a");
}

TEST(xml_stream_elements, root_is_the_first_open_node) {
    document const file(long_header + "<include/><top x='1'><r></r>");
    parser_type parser(file.path(), 2);
    parser.parse();
    EXPECT_EQ(parser.root(), "top");
}

// ---- Attributes -----------------------------------------------------------------------------------------

TEST(xml_stream_attributes, table) {
    check({
        {"<r><a b=\"1\"/></r>", content({".a b=1"})},
        {"<r><a b='1' c=\"2\" />t</r>", content({".a b=1 c=2"}, "syntax_error")},
        {"<r><a\n\tb='1'\r\n c='2'\n/></r>", content({".a b=1 c=2"})},
        {"<r><a b='1'c='2'/></r>", content({".a b=1 c=2"})},
        {"<r><a b=''/></r>", content({".a b="})},
        {"<r><a b='' c=\"\" d='x'/></r>", content({".a b= c= d=x"})},
        {"<r><a b= \n '1'/></r>", content({".a b=1"})},
        {"<r><a b='\"' c=\"'\"/></r>", content({".a b=\" c='"})},
        {"<r><a b='>/ \n= '/></r>", content({".a b=>/ \n= "})},
        {"<r><a 9='1' _='2' \xC3\xA9='3'/></r>", content({".a 9=1 _=2 \xC3\xA9=3"})},
        {"<r><a b = \"1\"/></r>", content({}, "missing_equals")},
        {"<r><a b/></r>", content({}, "missing_equals")},
        {"<r><a b></a></r>", content({}, "missing_equals")},
        {"<r><a b:c='1'/></r>", content({}, "missing_equals")},
        {"<r><a b=1/></r>", content({}, "missing_quote")},
        {"<r><a b=/></r>", content({}, "missing_quote")},
        {"<r><a b=></a></r>", content({}, "missing_quote")},
        {"<r><a ='1'/></r>", content({}, "syntax_error")},
        {"<r><a 'b'/></r>", content({}, "syntax_error")},
        {"<r><a b='<'/></r>", content({}, "syntax_error")},
        {"<r><a b='1/><c/></r>", content({}, "syntax_error")},
        {"<r><a b='1' b='2'/></r>", content({}, "duplicate_attribute")},
        {"<r><a b='1' c='2' b=''/></r>", content({}, "duplicate_attribute")},
        {"<r><a b='1' B='2'/></r>", content({".a b=1 B=2"})},
        {"<r><a b='1'/><c b='2'/></r>", content({".a b=1", ".c b=2"})},
        {"<r b='1'><a b='2'><c b='3'/></a></r>", {{"+r b=1", ".a b=2", ".c b=3", "!r"}, "end_of_document"}},
    });
}

TEST(xml_stream_attributes, up_to_a_duplicate_are_kept) {
    document const file(long_header + "<r b='1' c='2' b='3'>");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::duplicate_attribute);
    EXPECT_EQ(parser.parse(), parser_type::duplicate_attribute);
    EXPECT_EQ(nodes_in(parser), (text_list{"+r b=1 c=2"}));
}

// ---- References -----------------------------------------------------------------------------------------

struct reference_case {
    std::string reference;
    std::string byte;
};

TEST(xml_stream_references, give_one_byte) {
    reference_case const rows[] = {
        {"&amp;", "&"},
        {"&apos;", "'"},
        {"&gt;", ">"},
        {"&lt;", "<"},
        {"&nbsp;", " "},
        {"&quot;", "\""},
        {"&#65;", "A"},
        {"&#10;", "\n"},
        {"&#233;", "\xE9"},
        {"&#255;", "\xFF"},
        {"&#256;", "\xFF"},
        {"&#99999999999999999999;", "\xFF"},
        // Digits that start with "0" are octal.
        {"&#010;", "\x08"},
        {"&#0101;", "A"},
        {"&#x41;", "A"},
        {"&#xe9;", "\xE9"},
        {"&#xE9;", "\xE9"},
        {"&#x0041;", "A"},
        {"&#x100;", "\xFF"},
        {"&#;", std::string(1, '\0')},
        {"&#x;", std::string(1, '\0')},
        {"&#0;", std::string(1, '\0')},
    };
    for (reference_case const& row : rows) {
        std::string const text = "1" + row.reference + row.reference + "2";
        std::string const read = "1" + row.byte + row.byte + "2";
        EXPECT_EQ(parse_body("<r><a>" + text + "</a><b c='" + text + "'/></r>"),
                  content({".a '" + read + "'", ".b c=" + read}))
            << row.reference;
    }
}

TEST(xml_stream_references, that_are_none_are_all_one_error) {
    for (std::string const reference :
         {"&;",    "& ;",     "&unknown;", "&AMP;",  "&amp ;", "&ampx;", "&am;",   "&a",
          "&quo;", "&quot",   "&nbs;",     "&#a;",   "&#-1;",  "&#xg;",  "&#X41;", "&#65",
          "&#x41", "&#x41 ;", "&#6 5;",    "&&amp;", "&copy;", "&lt",    "& lt;"}) {
        EXPECT_EQ(parse_body("<r><a>" + reference + " and more</a></r>"), content({}, "syntax_error"))
            << reference;
        EXPECT_EQ(parse_body("<r><a b='" + reference + " and more'/></r>"), content({}, "syntax_error"))
            << reference;
    }
}

// ---- Comments and other declarations --------------------------------------------------------------------

TEST(xml_stream_comments, table) {
    check({
        {"<!-- c --><r></r>", read_well},
        {"<r><!-- c --></r>", read_well},
        {"<r><!----></r>", read_well},
        {"<r><!--> <a> & </b> --></r>", read_well},
        {"<r><!-- - -> > --></r>", read_well},
        {"<r><!-->--></r>", read_well},
        {"<r><!-- a -- b --></r>", content({}, "syntax_error")},
        {"<r><!-- a ---></r>", content({}, "syntax_error")},
        {"<r><!-----></r>", content({}, "syntax_error")},
        {"<r><a>one<!-- c -->two</a></r>", content({".a 'two'"})},
        {"<r><a <!-- c -->/></r>", content({}, "syntax_error")},
        {"<r><!-- c </r>", content({}, "need_more_data")},
        {"<r><!- c --></r>", content({}, "syntax_error")},
    });
}

TEST(xml_stream_comments, end_when_one_more_byte_is_there) {
    document const file(long_header + "<r><!-- c -->");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::need_more_data);
    EXPECT_EQ(parser.parse_offset(), std::ssize(long_header) + 3 + 7);
    EXPECT_EQ(parser.parse(), parser_type::need_more_data);
    file.append(" ");
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    EXPECT_EQ(parser.parse_offset(), std::ssize(long_header) + 3 + 11);
}

TEST(xml_stream_comments, are_not_kept_in_the_buffer) {
    std::string const comment = "<!--" + std::string(200000, '\n') + "-->";
    document const file(long_header + "<r>" + comment + "<a/></r>");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
    EXPECT_EQ(nodes_in(parser, numbered_text_of),
              (text_list{"1<0 @1 +r", "2<1 @200001 .a", "1<0 @200001 !r"}));
}

TEST(xml_stream_comments, stay_wrong) {
    // The second call must not take the opener for the end.
    document const file(long_header + "<r><a><!--> -- b --></a><a/></r>");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::syntax_error);
    EXPECT_EQ(parser.parse(), parser_type::syntax_error);
}

TEST(xml_stream_declarations, are_text_behind_the_first_byte) {
    check({
        {"<!DOCTYPE r><r></r>", {{}, "syntax_error"}},
        {"<r><!DOCTYPE r><a/></r>", content({}, "syntax_error")},
        {"<r><a><![CDATA[text]]></a></r>", content({".a '![CDATA[text]]>'"})},
        {"<r><a><![CDATA[<]]></a></r>", content({}, "syntax_error")},
        {"<r><a>one<!two</a></r>", content({".a '!two'"})},
        {"<r><!></r>", content({}, "syntax_error")},
    });
}

// ---- Text -----------------------------------------------------------------------------------------------

TEST(xml_stream_text, table) {
    std::string const nul(1, '\0');
    check({
        {"<r><a>t</a></r>", content({".a 't'"})},
        {"<r><a> \n\t\r one \n two \n</a></r>", content({".a 'one \n two \n'"})},
        {"<r><a> \n </a></r>", content({".a"})},
        {"<r><a>/x/</a></r>", content({".a '/x/'"})},
        {"<r><a>1 > 0; b='c'</a></r>", content({".a '1 > 0; b='c''"})},
        {"<r><a>\xC3\xA9" + nul + "\x01</a></r>", content({".a '\xC3\xA9" + nul + "\x01'"})},
        {"<r><a>]]>--></a></r>", content({".a ']]>-->'"})},
        // A second run replaces the first.
        {"<r><a>one<b/>two</a></r>", content({".a 'two'", ".b"})},
        {"<r><a>one<b>three</b></a></r>", content({".a 'one'", ".b 'three'"})},
        {"<r><a>one<b/> \n </a></r>", content({".a 'one'", ".b"})},
        {"<r><a>one<b/>two<c/>three</a></r>", content({".a 'three'", ".b", ".c"})},
        // Only below the root.
        {"<r>t</r>", content({}, "syntax_error")},
        {"<r><a/>t</r>", content({".a"}, "syntax_error")},
        {"t<r></r>", {{}, "syntax_error"}},
        {"<r>t</r>", {{}, "syntax_error"}, 0},
        {"<r>&amp;</r>", content({}, "syntax_error")},
        // The element's own text, and not that of the root: an open node has it too.
        {"<r><a>t</a></r>", content({"+a 't'", ".a"}), 2},
    });
}

TEST(xml_stream_text, is_only_taken_whole) {
    document const file(long_header + "<r>\n<a>one\ntwo");
    std::int64_t const begin = std::ssize(long_header) + 7;
    parser_type parser(file.path(), 2);
    EXPECT_EQ(parser.parse(), parser_type::need_more_data);
    EXPECT_EQ(nodes_in(parser), (text_list{"+r", "+a"}));
    EXPECT_EQ(parser.parse_offset(), begin);
    EXPECT_EQ(parser.parse(), parser_type::need_more_data);
    file.append(" three");
    EXPECT_EQ(parser.parse(), parser_type::need_more_data);
    EXPECT_EQ(parser.parse_offset(), begin);
    file.append("<b>x</b>four<c");
    EXPECT_EQ(parser.parse(), parser_type::need_more_data);
    EXPECT_EQ(parser.parse_offset(), begin + 25);
}

TEST(xml_stream_text, in_the_root_is_read_to_its_end_before_it_is_an_error) {
    document const file(long_header + "<r>text");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::need_more_data);
    file.append("<");
    EXPECT_EQ(parser.parse(), parser_type::syntax_error);
}

TEST(xml_stream_text, of_the_buffers_size_is_read) {
    // The "<" must be in the buffer too.
    std::string const longest(65535, 'x');
    EXPECT_EQ(parse_body("<r><a>" + longest + "</a></r>"), content({".a '" + longest + "'"}));
    EXPECT_EQ(parse_body("<r><a>" + longest + "x</a></r>"), content({}, "need_more_data"));
}

TEST(xml_stream_text, beyond_the_buffers_size_never_ends) {
    document const file(long_header + "<r><a>" + std::string(70000, 'x') + "</a></r>");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::need_more_data);
    EXPECT_EQ(parser.parse(), parser_type::need_more_data);
    EXPECT_EQ(parser.parse_offset(), std::ssize(long_header) + 6);
}

// ---- Lines ----------------------------------------------------------------------------------------------

TEST(xml_stream_lines, are_counted_in_white_space_and_comments) {
    document const file("<?xml\n?>\n" + std::string(50, ' ') +
                        "\n"
                        "<!-- \n\n -->\n"
                        "<r>\n"
                        "\t<a x=\n'\n'\n y='1'>one\ntwo</a>\n"
                        "\t<b\n>\n three \n</b></\n"
                        "r\n>");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
    // Not in the header, in values or in runs of text.
    EXPECT_EQ(nodes_in(parser, numbered_text_of), (text_list{"1<0 @6 +r", "2<1 @7 .a x=\n y=1 'one\ntwo'",
                                                             "3<1 @10 .b 'three \n'", "1<0 @13 !r"}));
    EXPECT_EQ(parser.line(), 14u);
}

TEST(xml_stream_lines, are_those_of_the_place_where_a_parse_stops) {
    document const file(long_header + "\n<r>\n<a\n\nb = '1'/>");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::missing_equals);
    EXPECT_EQ(parser.line(), 5u);
    EXPECT_EQ(parser.parse(), parser_type::missing_equals);
    EXPECT_EQ(parser.line(), 5u);
}

// ---- Running out of data --------------------------------------------------------------------------------

struct cut_case {
    std::string body;
    // Where the parse goes on: so many bytes of the body have been read for good.
    int offset;
    std::string error;
};

TEST(xml_stream_cuts, table) {
    cut_case const rows[] = {
        // Between two constructs nothing is missing.
        {"", 0, "no_error"},
        {" \n", 2, "no_error"},
        {"<r>", 3, "no_error"},
        {"<r> ", 4, "no_error"},
        {"<r ", 3, "no_error"},
        {"<r x='1'", 8, "no_error"},
        {"<r><a></a ", 10, "no_error"},
        {"<r><a/>", 7, "no_error"},
        // Within one it is.
        {"<", 0, "need_more_data"},
        {"<r", 0, "need_more_data"},
        {"< ", 0, "need_more_data"},
        {"<r><", 3, "need_more_data"},
        {"<r></", 3, "need_more_data"},
        {"<r></r", 3, "need_more_data"},
        {"<r></ ", 3, "need_more_data"},
        {"<r/", 2, "need_more_data"},
        {"<r x", 3, "need_more_data"},
        {"<r x=", 3, "need_more_data"},
        {"<r x= ", 3, "need_more_data"},
        {"<r x='", 3, "need_more_data"},
        {"<r x='1", 3, "need_more_data"},
        {"<r x='1' y='", 9, "need_more_data"},
        {"<r x='' y='", 8, "need_more_data"},
        {"<r x='&amp", 3, "need_more_data"},
        {"<r x='&\"/>", 3, "need_more_data"},
        {"<r x='&lt;", 3, "need_more_data"},
        {"<r x='&#12345", 3, "need_more_data"},
        {"<r x='&#x12345", 3, "need_more_data"},
        {"<!", 0, "need_more_data"},
        {"<!-", 0, "need_more_data"},
        {"<!D", 0, "need_more_data"},
        {"<!--", 4, "need_more_data"},
        {"<!-- c", 4, "need_more_data"},
        {"<!-- 34567890 --", 13, "need_more_data"},
        {"<!-- 34567890 -->", 14, "need_more_data"},
        {"<r><a>t", 6, "need_more_data"},
        {"<r><a>&", 6, "need_more_data"},
        {"<r><a>&x;<", 6, "need_more_data"},
        {"<r><a>&quot", 6, "need_more_data"},
        {"<r><a>&nbsp", 6, "need_more_data"},
        {"<r><a>&#65;", 6, "need_more_data"},
        {"<r><a>t<", 7, "need_more_data"},
    };
    for (cut_case const& row : rows) {
        document const file(long_header + row.body);
        parser_type parser(file.path(), 1);
        EXPECT_EQ(name_of(parser.parse()), row.error) << row.body;
        EXPECT_EQ(parser.parse_offset() - std::ssize(long_header), row.offset) << row.body;
        // As long as the file does not grow.
        EXPECT_EQ(name_of(parser.parse()), row.error) << row.body;
        EXPECT_EQ(parser.parse_offset() - std::ssize(long_header), row.offset) << row.body;
    }
}

TEST(xml_stream_cuts, a_start_tag_cut_in_its_name_is_read_again_whole) {
    document const file(long_header + "<r>\n<\nent");
    parser_type parser(file.path(), 1);
    for (int call = 0; call < 3; ++call) {
        EXPECT_EQ(parser.parse(), parser_type::need_more_data);
        EXPECT_EQ(parser.parse_offset(), std::ssize(long_header) + 4);
    }
    file.append("ry");
    EXPECT_EQ(parser.parse(), parser_type::need_more_data);
    file.append("><x/></entry></r>");
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
    // No number was lost to the attempts.
    EXPECT_EQ(nodes_in(parser, numbered_text_of),
              (text_list{"1<0 @1 +r", "2<1 @3 .entry", "3<2 @3 .x", "1<0 @3 !r"}));
}

TEST(xml_stream_cuts, a_start_tag_cut_later_goes_on_at_its_attribute) {
    document const file(long_header + "<r><a b='1' c='2");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::need_more_data);
    EXPECT_EQ(parser.parse_offset(), std::ssize(long_header) + 12);
    file.append("3' b='x'");
    EXPECT_EQ(parser.parse(), parser_type::duplicate_attribute);
    EXPECT_EQ(parser.parse_offset(), std::ssize(long_header) + 19);
}

TEST(xml_stream_cuts, an_end_tag_cut_in_its_name_is_no_mismatch) {
    document const file(long_header + "<r><entry></ent");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::need_more_data);
    file.append("ry></r>");
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
}

TEST(xml_stream_cuts, do_not_change_what_is_read) {
    std::string const bodies[] = {
        "<r></r>",
        "<r x='1' y=\"&quot;&#65;\">\n <a b= ' ' >text &amp; more</a>\n</r>",
        "<!-- one\n -- ><r>",
        "\n<!-- one\n - two --><r><!----><a/><!-- - -->\n<b></b></r>",
        "<r><a><b><c>t</c>u</b></a><include f='1'>v</include></r>",
        "<r><a/><b></b></r>",
        "<r>text</r>",
        "<r><a b='1' b='2'/></r>",
        "<r><a><![CDATA[x]]></a></r>",
        "<r><a></b></r>",
        "<r><a b = '1'/></r>",
        "<r><a>&unknown;</a></r>",
        "<r><\xC3\xA9t\xC3\xA9 \xC3\xA9='\xC3\xA9'>\xC3\xA9</\xC3\xA9t\xC3\xA9 ></r>",
    };
    for (std::string const& body : bodies) {
        for (unsigned const depth : {0u, 1u, 2u, 3u}) {
            document const whole_file(long_header + body);
            parser_type whole(whole_file.path(), depth);
            std::string const error = name_of(whole.parse());
            text_list const nodes = nodes_in(whole, numbered_text_of);

            document const file("");
            parser_type growing(file.path(), depth);
            for (char const byte : long_header + body) {
                growing.parse();
                file.append({&byte, 1});
            }
            EXPECT_EQ(name_of(growing.parse()), error) << body;
            EXPECT_EQ(growing.line(), whole.line()) << body;
            EXPECT_EQ(growing.parse_offset(), whole.parse_offset()) << body;
            EXPECT_EQ(nodes_in(growing, numbered_text_of), nodes) << body;
        }
    }
}

// ---- Recovery -------------------------------------------------------------------------------------------

TEST(xml_stream_recovery, goes_on_at_an_element_of_that_name) {
    document const file(long_header + "<r>\n<a/>\n<a b = '1'>\n<b/>\n<c/>t</a>\n<a x='1'>t</a></r>");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::missing_equals);
    EXPECT_EQ(nodes_in(parser), (text_list{"+r", ".a"}));
    EXPECT_EQ(parser.recover(name_list{"a", "x"}), parser_type::no_error);
    EXPECT_EQ(parser.parse_offset(), std::ssize(long_header) + 36);
    EXPECT_EQ(parser.line(), 6u);
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
    // Under the open nodes that there are, but with no number of a parent.
    EXPECT_EQ(nodes_in(parser, numbered_text_of), (text_list{"4<0 @6 .a x=1 't'", "1<0 @6 !r"}));
}

TEST(xml_stream_recovery, takes_names_in_three_forms) {
    for (int form = 0; form < 3; ++form) {
        document const file(long_header + "<r></b><c/><\xC3\xA9/></r>");
        parser_type parser(file.path(), 1);
        EXPECT_EQ(parser.parse(), parser_type::tag_mismatch);
        auto const error = form == 0   ? parser.recover(name_list{"\xC3\xA9"})
                           : form == 1 ? parser.recover(std::list<std::string>{"a", "\xC3\xA9"})
                                       : parser.recover({"\xC3\xA9", "a"});
        EXPECT_EQ(error, parser_type::no_error);
        EXPECT_EQ(parser.parse(), parser_type::end_of_document);
        EXPECT_EQ(nodes_in(parser), (text_list{".\xC3\xA9", "!r"}));
    }
}

TEST(xml_stream_recovery, compares_whole_names) {
    document const file(long_header + "<r></b><aa/><A/><a1/></a><!a><a:b/><?a?>< a/><a/></r>");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::tag_mismatch);
    EXPECT_EQ(parser.recover(name_list{"a"}), parser_type::no_error);
    // A name ends at the first byte that it cannot hold.
    EXPECT_EQ(parser.parse_offset(), std::ssize(long_header) + 29);
    EXPECT_EQ(parser.parse(), parser_type::syntax_error);
    EXPECT_EQ(parser.recover(name_list{"a"}), parser_type::no_error);
    EXPECT_EQ(parser.parse_offset(), std::ssize(long_header) + 40);
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
    EXPECT_EQ(nodes_in(parser), (text_list{".a", ".a", "!r"}));
}

TEST(xml_stream_recovery, finds_the_element_at_which_the_parse_stopped) {
    document const file(long_header + "<r><a <b/></r>");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::syntax_error);
    EXPECT_EQ(parser.recover(name_list{"a", "b"}), parser_type::no_error);
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
    EXPECT_EQ(nodes_in(parser), (text_list{".b", "!r"}));
}

TEST(xml_stream_recovery, drops_what_was_in_the_queue) {
    document const file(long_header + "<r><a/><b><c/></x></b><a/></r>");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::tag_mismatch);
    EXPECT_EQ(parser.node_queue_size(), 2u);
    EXPECT_EQ(parser.recover(name_list{"a"}), parser_type::no_error);
    EXPECT_TRUE(parser.node_queue_empty());
    EXPECT_THROW(parser.node_queue_pop(), parser_type::EmptyNodeQueue);
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
    EXPECT_EQ(nodes_in(parser, numbered_text_of), (text_list{"5<0 @1 .a", "1<0 @1 !r"}));
}

// The nodes of the open elements are gone then; what still comes for them is dropped.
TEST(xml_stream_recovery, drops_what_comes_for_a_node_that_is_gone) {
    document const file(long_header + "<r><a x='1'><b></x><c>t</c>u</a>v<b w='1'>x</b></r>");
    parser_type parser(file.path(), 2);
    EXPECT_EQ(parser.parse(), parser_type::tag_mismatch);
    EXPECT_EQ(parser.recover(name_list{"c"}), parser_type::no_error);
    EXPECT_EQ(parser.parse(), parser_type::syntax_error);
    EXPECT_EQ(nodes_in(parser, numbered_text_of), (text_list{"4<0 @1 .c 't'", "2<0 @1 .a"}));
    EXPECT_EQ(parser.recover(name_list{"b"}), parser_type::no_error);
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
    EXPECT_EQ(nodes_in(parser, numbered_text_of), (text_list{"5<0 @1 +b w=1 'x'", "2<0 @1 .b", "1<0 @1 !r"}));
}

TEST(xml_stream_recovery, from_within_each_construct) {
    for (std::string const damage : {"<x a='1' a='2' ", "<x a", "<x a='<", "<!-- -- ", "<x></x ?", "<x></x y",
                                     "<x></y>", "<x>>", "&;;;; <", "<?", "<x a=1>", "<x/x>", "text </"}) {
        document const file(long_header + "<r>" + damage + "<a k='v'>t</a>\n</r>");
        parser_type parser(file.path(), 1);
        parser.parse();
        ASSERT_EQ(parser.recover(name_list{"a"}), parser_type::no_error) << damage;
        ASSERT_EQ(parser.parse(), parser_type::end_of_document) << damage;
        EXPECT_EQ(nodes_in(parser), (text_list{".a k=v 't'", "!r"})) << damage;
    }
}

TEST(xml_stream_recovery, from_a_half_read_attribute_forgets_the_names_of_the_others) {
    document const file(long_header + "<r a='1'><a b='1' c></a><a b='2'/></r>");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::missing_equals);
    EXPECT_EQ(parser.recover(name_list{"a"}), parser_type::no_error);
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
    EXPECT_EQ(nodes_in(parser), (text_list{".a b=2", "!r"}));
}

TEST(xml_stream_recovery, from_a_half_read_end_tag_forgets_that_it_was_one) {
    document const file(long_header + "<r><x></x y<a/>></r>");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::syntax_error);
    EXPECT_EQ(parser.recover(name_list{"a"}), parser_type::no_error);
    EXPECT_EQ(parser.parse(), parser_type::syntax_error);
    EXPECT_EQ(nodes_in(parser), (text_list{".a"}));
}

TEST(xml_stream_recovery, looks_at_start_tags_alone) {
    document const file(long_header + "<r></x></a><!a><!-- <?a> -->");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::tag_mismatch);
    // A start tag without a name is the one of that name.
    EXPECT_EQ(parser.recover(name_list{""}), parser_type::no_error);
    EXPECT_EQ(parser.parse_offset(), std::ssize(long_header) + 20);
    EXPECT_EQ(parser.parse(), parser_type::syntax_error);
    EXPECT_EQ(parser.recover(name_list{""}), parser_type::recovery_failed);
}

TEST(xml_stream_recovery, of_a_name_that_never_comes_fails) {
    document const file(long_header + "<r></b><c/></r>");
    parser_type parser(file.path(), 1);
    parser.parse();
    EXPECT_EQ(parser.recover(name_list{"a"}), parser_type::recovery_failed);
    EXPECT_EQ(parser.parse(), parser_type::recovery_failed);
    EXPECT_EQ(parser.parse_offset(), parser.file_length());
    file.append("<a/></r>");
    EXPECT_EQ(parser.parse(), parser_type::recovery_failed);
    EXPECT_EQ(parser.error(), parser_type::recovery_failed);
    // But a further attempt may find it.
    EXPECT_EQ(parser.recover(name_list{"a"}), parser_type::no_error);
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
    EXPECT_EQ(nodes_in(parser), (text_list{".a", "!r"}));
}

TEST(xml_stream_recovery, waits_at_a_name_that_is_cut) {
    for (std::string const cut : {"<", "< ", "<ent", "<entry"}) {
        document const file(long_header + "<r></b>" + cut);
        parser_type parser(file.path(), 1);
        parser.parse();
        EXPECT_EQ(parser.recover(name_list{"entry"}), parser_type::recovery_failed) << cut;
        EXPECT_EQ(parser.parse_offset(), std::ssize(long_header) + 7) << cut;
        file.append(std::string("<entry").substr(cut == "< " ? 1 : cut.size()) + "/></r>");
        EXPECT_EQ(parser.recover(name_list{"entry"}), parser_type::no_error) << cut;
        EXPECT_EQ(parser.parse(), parser_type::end_of_document) << cut;
        EXPECT_EQ(nodes_in(parser), (text_list{".entry", "!r"})) << cut;
    }
}

TEST(xml_stream_recovery, without_names_does_nothing_but_fail) {
    document const file(long_header + "<r><a/></b>");
    parser_type parser(file.path(), 1);
    parser.parse();
    EXPECT_EQ(parser.recover(name_list()), parser_type::recovery_failed);
    EXPECT_EQ(nodes_in(parser), (text_list{"+r", ".a"}));
    // It is an error like others: taking the last node has not read on.
    EXPECT_EQ(parser.error(), parser_type::recovery_failed);
    EXPECT_EQ(parser.parse(), parser_type::tag_mismatch);
}

TEST(xml_stream_recovery, before_the_root_is_fatal) {
    document const file(long_header + "<include/></x>");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::tag_mismatch);
    EXPECT_EQ(parser.recover(name_list()), parser_type::fatal_error);
    EXPECT_EQ(parser.parse(), parser_type::fatal_error);
    EXPECT_EQ(parser.recover(name_list{"include"}), parser_type::fatal_error);
}

TEST(xml_stream_recovery, needs_no_error_to_go_forward) {
    document const file(long_header + "<r><a><b>1</b>");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    file.append("</a><b>2</b></r>");
    EXPECT_EQ(parser.recover(name_list{"b"}), parser_type::no_error);
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
    EXPECT_EQ(nodes_in(parser), (text_list{".b '2'", "!r"}));
}

TEST(xml_stream_recovery, does_not_undo_the_end_of_the_document) {
    document const file(long_header + "<r></r>");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
    file.append("<r></r>");
    EXPECT_EQ(parser.recover(name_list{"r"}), parser_type::end_of_document);
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
    EXPECT_TRUE(parser.node_queue_empty());
}

TEST(xml_stream_recovery, looks_behind_the_end_of_the_document_but_reads_nothing_there) {
    document const file(long_header + "<r></r><s></s>");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
    EXPECT_EQ(parser.recover(name_list{"s"}), parser_type::no_error);
    EXPECT_EQ(parser.parse_offset(), std::ssize(long_header) + 7);
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    EXPECT_TRUE(parser.node_queue_empty());
}

TEST(xml_stream_recovery, fails_where_the_file_has_gone) {
    document const file(long_header + "<r></b>");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::tag_mismatch);
    std::filesystem::remove(file.path());
    EXPECT_EQ(parser.recover(name_list{"a"}), parser_type::recovery_failed);
    file.rewrite(long_header + "<r></b><a/></r>");
    EXPECT_EQ(parser.recover(name_list{"a"}), parser_type::no_error);
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
}

TEST(xml_stream_recovery, counts_the_lines_that_it_skips) {
    document const file(long_header + "<r>\n<\n?\n\n<x/>\n<a/></r>");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::syntax_error);
    EXPECT_EQ(parser.line(), 3u);
    EXPECT_EQ(parser.recover(name_list{"a"}), parser_type::no_error);
    EXPECT_EQ(parser.line(), 6u);
    parser.parse();
    EXPECT_EQ(nodes_in(parser, numbered_text_of), (text_list{"2<0 @6 .a", "1<0 @6 !r"}));
}

// Without a recovery a parse goes on from its mark, where the same error lies.
TEST(xml_stream_errors, come_again_without_a_recovery) {
    for (std::string const body : {"<r></b>", "<r>t<", "<r><a <", "<r>>", "<r a='1' a='2'>", "<r a>",
                                   "<r a=1>", "<r><!-- -- -->", "<r><?>", "<r a='&#x;&&&&&'>"}) {
        document const file(long_header + body);
        parser_type parser(file.path(), 1);
        parser_type::error_type const error = parser.parse();
        EXPECT_GE(error, parser_type::tag_mismatch) << body;
        EXPECT_LE(error, parser_type::missing_equals) << body;
        std::int64_t const offset = parser.parse_offset();
        std::uint32_t const line = parser.line();
        file.append("><a/></r>");
        EXPECT_EQ(parser.parse(), error) << body;
        EXPECT_EQ(parser.parse_offset(), offset) << body;
        EXPECT_EQ(parser.line(), line) << body;
        EXPECT_EQ(parser.node_queue_size(), 1u) << body;
    }
}

TEST(xml_stream_errors, wait_behind_a_full_queue) {
    document const file(long_header + "<r>" + elements(99) + "</x>");
    parser_type parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::tag_mismatch);
    EXPECT_EQ(parser.node_queue_size(), 100u);
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    parser.node_queue_pop();
    EXPECT_EQ(parser.parse(), parser_type::tag_mismatch);
    EXPECT_EQ(parser.node_queue_size(), 99u);
}

// ---- The tools, as a derived class has them -------------------------------------------------------------

struct open_parser : parser_type {
    using parser_type::close_tag;
    using parser_type::do_parse;
    using parser_type::end_of_open_node;
    using parser_type::finish_comment;
    using parser_type::init;
    using parser_type::innermost_node;
    using parser_type::is_whitespace;
    using parser_type::load;
    using parser_type::new_node;
    using parser_type::parse_attrib_value;
    using parser_type::parse_entity;
    using parser_type::parse_name;
    using parser_type::parse_next;
    using parser_type::queue_size_less_than;
    using parser_type::skip_whitespace;
    using xml_stream_parser::xml_stream_parser;
};

TEST(xml_stream_tools, is_whitespace) {
    for (int byte = 0; byte < 256; ++byte) {
        EXPECT_EQ(open_parser::is_whitespace(static_cast<char>(byte)),
                  byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n');
    }
}

TEST(xml_stream_tools, init_tries_the_file) {
    document const file("");
    open_parser parser(file.path(), 1);
    std::filesystem::remove(file.path());
    parser.init();
    EXPECT_EQ(parser.error(), parser_type::file_error);
    file.rewrite("");
    parser.init();
    EXPECT_EQ(parser.error(), parser_type::no_error);
}

TEST(xml_stream_tools, load_tells_how_many_bytes_it_added) {
    document const file("abc");
    open_parser parser(file.path(), 1);
    EXPECT_EQ(parser.load(), 3u);
    EXPECT_EQ(parser.load(), 0u);
    file.append(std::string(100000, 'd'));
    EXPECT_EQ(parser.load(), 65533u);
    EXPECT_EQ(parser.load(), 0u);
    EXPECT_EQ(parser.error(), parser_type::no_error);
    EXPECT_EQ(parser.parse_offset(), 0);
    std::filesystem::remove(file.path());
    EXPECT_EQ(parser.load(), 0u);
    EXPECT_EQ(parser.error(), parser_type::file_error);
}

TEST(xml_stream_tools, load_clears_an_error_only_when_it_reads) {
    document const file(long_header + "<r></");
    open_parser parser(file.path(), 1);
    EXPECT_EQ(parser.parse(), parser_type::need_more_data);
    EXPECT_EQ(parser.load(), 0u);
    EXPECT_EQ(parser.error(), parser_type::need_more_data);
    file.append("r>");
    EXPECT_EQ(parser.load(), 2u);
    EXPECT_EQ(parser.error(), parser_type::no_error);
    parser.parse_next();
    EXPECT_EQ(parser.error(), parser_type::end_of_document);
    file.append("more");
    EXPECT_EQ(parser.load(), 0u);
    parser.do_parse();
    EXPECT_EQ(nodes_in(parser), (text_list{"+r", "!r"}));
}

TEST(xml_stream_tools, skip_whitespace_stops_at_the_end) {
    document const file(" \t\r\n\n");
    open_parser parser(file.path(), 1);
    parser.skip_whitespace();
    parser.load();
    parser.skip_whitespace();
    EXPECT_EQ(parser.line(), 3u);
    parser.skip_whitespace();
    EXPECT_EQ(parser.line(), 3u);
}

TEST(xml_stream_tools, parse_name_leaves_the_position_on_the_last_byte) {
    document const file(" \n name_1\xC3\xA9='cut");
    open_parser parser(file.path(), 1);
    parser.load();
    EXPECT_EQ(parser.parse_name(), "name_1\xC3\xA9");
    EXPECT_EQ(parser.line(), 2u);
    EXPECT_EQ(parser.parse_name(), "\xA9");
}

TEST(xml_stream_tools, parse_name_is_empty_without_a_name_and_at_the_end) {
    document const file(" =");
    open_parser parser(file.path(), 1);
    EXPECT_EQ(parser.parse_name(), "");
    parser.load();
    EXPECT_EQ(parser.parse_name(), "");
    document const cut("name");
    open_parser at_end(cut.path(), 1);
    at_end.load();
    EXPECT_EQ(at_end.parse_name(), "");
}

TEST(xml_stream_tools, parse_attrib_value_leaves_the_position_on_the_quote) {
    document const file(" 'a&amp;b''' ");
    open_parser parser(file.path(), 1);
    EXPECT_EQ(parser.parse_attrib_value(), "");
    parser.load();
    EXPECT_EQ(parser.parse_attrib_value(), "a&b");
    // From the closing quote on, and so on.
    EXPECT_EQ(parser.parse_attrib_value(), "");
    EXPECT_EQ(parser.parse_attrib_value(), "");
    EXPECT_EQ(parser.parse_attrib_value(), "");
    document const wrong("x");
    open_parser without_quote(wrong.path(), 1);
    without_quote.load();
    try {
        without_quote.parse_attrib_value();
        FAIL();
    } catch (parser_type::error_type const& error) {
        EXPECT_EQ(error, parser_type::missing_quote);
    }
}

TEST(xml_stream_tools, parse_entity_leaves_the_position_on_the_semicolon) {
    document const file("&amp;    ");
    open_parser parser(file.path(), 1);
    EXPECT_EQ(parser.parse_entity(), "");
    parser.load();
    EXPECT_EQ(parser.parse_entity(), "&");
    EXPECT_THROW(parser.parse_entity(), parser_type::error_type);
}

TEST(xml_stream_tools, finish_comment_tells_whether_it_is_one) {
    document const file("one\n two");
    open_parser parser(file.path(), 1);
    parser.load();
    EXPECT_FALSE(parser.finish_comment());
    EXPECT_EQ(parser.line(), 2u);
    EXPECT_EQ(parser.parse_offset(), 5);
    file.append("-->.");
    parser.load();
    EXPECT_TRUE(parser.finish_comment());
    EXPECT_EQ(parser.parse_offset(), 11);
}

TEST(xml_stream_tools, nodes_are_opened_and_closed) {
    document const file("");
    open_parser parser(file.path(), 1);
    EXPECT_TRUE(parser.queue_size_less_than(1));
    EXPECT_FALSE(parser.queue_size_less_than(0));
    parser.new_node("a", parser_type::need_more_data, true);
    parser.new_node("b", parser_type::syntax_error, true);
    parser.end_of_open_node("c", parser_type::no_error);
    EXPECT_FALSE(parser.queue_size_less_than(3));
    EXPECT_TRUE(parser.queue_size_less_than(4));
    EXPECT_EQ(parser.node_queue_size(), 3u);
    EXPECT_EQ(parser.node_queue_front().status(), parser_type::need_more_data);
    EXPECT_EQ(nodes_in(parser, numbered_text_of), (text_list{"1<0 @1 +a", "2<1 @1 .b", "0<0 @1 .c"}));
}

TEST(xml_stream_tools, stacks_are_never_popped_below_their_bottom) {
    document const file(long_header + "<r a='0' ");
    open_parser parser(file.path(), 1);
    parser.parse();
    for (int round = 0; round < 3; ++round) {
        parser.close_tag(parser.innermost_node());
        parser.end_of_open_node("x", parser_type::no_error);
    }
    // The tag that was open has been closed from outside, and its attributes are forgotten.
    file.append("a='1'/>");
    EXPECT_EQ(parser.parse(), parser_type::tag_mismatch);
    EXPECT_EQ(parser.parse(), parser_type::tag_mismatch);
    parser.new_node("y", parser_type::no_error, true);
    EXPECT_EQ(nodes_in(parser, numbered_text_of),
              (text_list{"1<0 @1 .r a=0", "1<0 @1 .x", "1<0 @1 .x", "1<0 @1 .x", "2<0 @1 .y"}));
}

} // namespace
