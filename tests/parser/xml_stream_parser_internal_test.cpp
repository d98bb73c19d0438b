// The stream parser on a file that exists only here: how it opens and reads it, what becomes of reads that
// fail, and very many documents against a plain model.

#include "veldrin/parser/xml_stream_parser.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <list>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "parser/fake_file.hpp"
#include "parser/xml_stream_outcome.hpp"
#include "parser/xml_stream_parser_model.hpp"

namespace {

using namespace VELDRIN_2_18;
using namespace support;
using strings::ustring8;
using text_list = std::vector<std::string>;
using parser_type = xml_stream_parser;

class xml_stream_file : public testing::Test {
protected:
    xml_stream_file() { the_file = &m_file; }
    ~xml_stream_file() override { the_file = nullptr; }

    fake_file m_file;
};

// ---- How the file is used -------------------------------------------------------------------------------

TEST_F(xml_stream_file, is_opened_for_each_read_and_never_kept_open) {
    m_file.contents = long_header + "<r>";
    parser_type parser(ustring8("f"), 1);
    EXPECT_EQ(m_file.opened, 1);
    EXPECT_EQ(m_file.closed, 1);
    EXPECT_EQ(m_file.bytes_read, 0u);
    // One that reads, and one that finds nothing more.
    parser.parse();
    EXPECT_EQ(m_file.opened, 3);
    EXPECT_EQ(m_file.closed, 3);
    EXPECT_EQ(m_file.bytes_read, m_file.contents.size());
    parser.parse();
    EXPECT_EQ(m_file.opened, 4);
    EXPECT_EQ(m_file.closed, 4);
    parser.file_length();
    EXPECT_EQ(m_file.opened, 5);
    EXPECT_EQ(m_file.closed, 5);
    EXPECT_EQ(m_file.bytes_read, m_file.contents.size());
}

TEST_F(xml_stream_file, is_read_once_and_a_buffer_at_a_time) {
    m_file.contents = long_header + "<r>";
    while (m_file.contents.size() < 1000000) {
        m_file.contents += "<a>text</a>\n";
    }
    m_file.contents += "</r>";
    parser_type parser(ustring8("f"), 1);
    std::size_t longest = 0;
    std::size_t nodes = 0;
    while (parser.parse() == parser_type::no_error) {
        while (!parser.node_queue_empty()) {
            std::size_t const before = m_file.bytes_read;
            parser.node_queue_pop();
            ++nodes;
            longest = std::max(longest, m_file.bytes_read - before);
        }
    }
    EXPECT_EQ(parser.error(), parser_type::end_of_document);
    EXPECT_EQ(m_file.bytes_read, m_file.contents.size());
    EXPECT_LE(longest, 65536u);
    EXPECT_EQ(parser.parse_offset(), std::ssize(m_file.contents));
    EXPECT_GT(nodes, 80000u);
}

TEST_F(xml_stream_file, that_cannot_be_read_for_a_while_is_an_error_for_good) {
    m_file.contents = long_header + "<r><a/>";
    parser_type parser(ustring8("f"), 1);
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    m_file.can_be_opened = false;
    EXPECT_EQ(parser.parse(), parser_type::file_error);
    EXPECT_EQ(parser.file_length(), 0);
    m_file.can_be_opened = true;
    m_file.contents += "</r>";
    EXPECT_EQ(parser.parse(), parser_type::file_error);
    EXPECT_EQ(parser.file_length(), std::ssize(m_file.contents));
}

TEST_F(xml_stream_file, that_cannot_be_opened_while_nodes_are_taken_is_an_error) {
    m_file.contents = long_header + "<r>";
    parser_type parser(ustring8("f"), 1);
    parser.parse();
    m_file.can_be_opened = false;
    EXPECT_EQ(text_of(parser.node_queue_pop()), "+r");
    EXPECT_EQ(parser.error(), parser_type::file_error);
}

// A file can shrink between the look at its length and the read.
TEST_F(xml_stream_file, that_gives_less_than_its_length_is_read_as_far_as_it_goes) {
    m_file.contents = long_header + "<r><a/>";
    m_file.length_ahead = 100;
    parser_type parser(ustring8("f"), 1);
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    EXPECT_EQ(nodes_in(parser), (text_list{"+r", ".a"}));
    EXPECT_EQ(parser.parse_offset(), std::ssize(m_file.contents));
    m_file.contents += "<b/></";
    EXPECT_EQ(parser.parse(), parser_type::need_more_data);
    EXPECT_EQ(parser.parse(), parser_type::need_more_data);
    m_file.contents += "r>";
    m_file.length_ahead = 0;
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
    EXPECT_EQ(nodes_in(parser), (text_list{".b", "!r"}));
}

TEST_F(xml_stream_file, without_positions_has_no_length) {
    m_file.contents = long_header + "<r></r>";
    m_file.has_positions = false;
    parser_type parser(ustring8("f"), 1);
    EXPECT_EQ(parser.error(), parser_type::no_error);
    EXPECT_EQ(parser.parse(), parser_type::need_more_data);
    EXPECT_EQ(parser.file_length(), 0);
}

TEST_F(xml_stream_file, that_shrinks_and_grows_is_read_on_from_where_it_was) {
    m_file.contents = long_header + "<r><a/>";
    parser_type parser(ustring8("f"), 1);
    parser.parse();
    m_file.contents.resize(10);
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    m_file.contents.resize(long_header.size() + 7, '?');
    EXPECT_EQ(parser.parse(), parser_type::no_error);
    m_file.contents += "<b/></r>";
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
    EXPECT_EQ(nodes_in(parser), (text_list{"+r", ".a", ".b", "!r"}));
}

// ---- The buffer's bounds --------------------------------------------------------------------------------

// Whatever stands across the end of a chunk is read as if it stood elsewhere.
TEST_F(xml_stream_file, may_have_a_chunk_end_at_any_byte) {
    std::string const body = "\n<a x='&amp;1'  y= \"&#65;\">one&lt;two</a>\n<!-- c\n -- -->";
    std::string const good = body.substr(0, body.find(" -- ")) + "--></r>";
    for (std::size_t shift = 0; shift <= good.size(); ++shift) {
        std::string const beginning = long_header + "<r>";
        std::size_t const filling = 65536 - beginning.size() - shift;
        m_file.contents = beginning + std::string(filling, ' ') + good;
        parser_type parser(ustring8("f"), 1);
        ASSERT_EQ(parser.parse(), parser_type::end_of_document) << shift;
        ASSERT_EQ(nodes_in(parser, numbered_text_of),
                  (text_list{"1<0 @1 +r", "2<1 @2 .a x=&1 y=A 'one<two'", "1<0 @4 !r"}))
            << shift;
    }
}

TEST_F(xml_stream_file, may_have_a_chunk_end_at_any_byte_of_a_name_to_recover_at) {
    for (std::size_t shift = 0; shift <= 10; ++shift) {
        std::string const beginning = long_header + "<r></x>";
        m_file.contents = beginning + std::string(65536 - beginning.size() - shift, '\n') + "<entry/></r>";
        parser_type parser(ustring8("f"), 1);
        ASSERT_EQ(parser.parse(), parser_type::tag_mismatch) << shift;
        ASSERT_EQ(parser.recover({"entry"}), parser_type::no_error) << shift;
        ASSERT_EQ(parser.parse_offset(), std::ssize(m_file.contents) - 12) << shift;
        ASSERT_EQ(parser.parse(), parser_type::end_of_document) << shift;
        ASSERT_EQ(nodes_in(parser), (text_list{".entry", "!r"})) << shift;
    }
}

TEST_F(xml_stream_file, may_name_an_element_as_long_as_the_buffer) {
    // "<", the name, and the byte behind it must be in the buffer.
    for (std::size_t const length : {65534u, 65535u}) {
        std::string const name(length, 'n');
        m_file.contents = long_header + "<r></x><" + name + "/></r>";
        parser_type parser(ustring8("f"), 1);
        ASSERT_EQ(parser.parse(), parser_type::tag_mismatch);
        bool const fits = length == 65534;
        EXPECT_EQ(parser.recover({ustring8(name)}),
                  fits ? parser_type::no_error : parser_type::recovery_failed);
        EXPECT_EQ(parser.parse(), fits ? parser_type::end_of_document : parser_type::recovery_failed);
    }
}

// ---- Damage in the middle of a large file ---------------------------------------------------------------

std::string entry(std::size_t number) {
    std::string const text = std::to_string(number);
    return "<entry n='" + text + "'><from>" + text + "</from>entry " + text + "</entry>\n";
}

// Takes all that can be taken, and adds the numbers of the entries that are as they were written.
void take_entries(parser_type& parser, std::vector<std::size_t>& numbers) {
    while (!parser.node_queue_empty()) {
        parser_type::node const node = parser.node_queue_pop();
        std::string const number = node.attribs().empty() ? "" : node.attribs().front().second;
        if (node.tag() == "entry" && node.data() == "entry " + number) {
            numbers.push_back(std::stoul(number));
        }
    }
}

TEST_F(xml_stream_file, is_read_on_behind_each_damage) {
    std::size_t const count = 200000;
    std::vector<std::size_t> begins;
    m_file.contents = long_header + "<log>\n";
    for (std::size_t number = 0; number < count; ++number) {
        begins.push_back(m_file.contents.size());
        m_file.contents += entry(number);
    }
    begins.push_back(m_file.contents.size());
    m_file.contents += "</log>";
    ASSERT_GT(m_file.contents.size(), 10000000u);

    // From within each part of an entry, over as many bytes.
    std::vector<bool> is_damaged(count);
    for (std::size_t damage = 0; damage < 1000; ++damage) {
        std::size_t const first = 100 + damage * 190;
        std::size_t const begin = begins[first] + damage % (begins[first + 1] - begins[first]);
        std::size_t const length = 2 + damage * 7;
        std::string bytes(length, '?');
        bytes[0] = bytes[1] = '<';
        // An end tag without a name would be waited at.
        if (m_file.contents.compare(begin - 2, 2, "</") == 0) {
            bytes[0] = 'x';
        }
        m_file.contents.replace(begin, length, bytes);
        for (std::size_t number = first; begins[number] < begin + length; ++number) {
            is_damaged[number] = true;
        }
    }

    parser_type parser(ustring8("f"), 1);
    std::vector<std::size_t> numbers;
    std::size_t recoveries = 0;
    while (parser.parse() != parser_type::end_of_document) {
        take_entries(parser, numbers);
        if (parser.error() >= parser_type::recovery_failed &&
            parser.error() != parser_type::end_of_document) {
            ++recoveries;
            ASSERT_EQ(parser.recover({"entry"}), parser_type::no_error);
        }
        ASSERT_NE(parser.error(), parser_type::need_more_data);
    }
    take_entries(parser, numbers);
    // The damage at the end of some leaves enough of them to be read.
    std::erase_if(numbers, [&](std::size_t number) { return is_damaged[number]; });
    std::vector<std::size_t> expected;
    for (std::size_t number = 0; number < count; ++number) {
        if (!is_damaged[number]) {
            expected.push_back(number);
        }
    }
    EXPECT_EQ(numbers, expected);
    EXPECT_GE(recoveries, 1000u);
    EXPECT_EQ(parser.root(), "log");
}

// There its name might still come; only the caller knows that it will not.
TEST_F(xml_stream_file, waits_at_an_end_tag_that_has_lost_its_name) {
    m_file.contents = long_header + "<r><a></?></a>" + std::string(200000, '\n') + "<b/></r>";
    parser_type parser(ustring8("f"), 1);
    EXPECT_EQ(parser.parse(), parser_type::need_more_data);
    EXPECT_EQ(parser.parse(), parser_type::need_more_data);
    EXPECT_EQ(parser.parse_offset(), std::ssize(long_header) + 6);
    EXPECT_EQ(parser.recover({"b"}), parser_type::no_error);
    EXPECT_EQ(parser.parse(), parser_type::end_of_document);
    EXPECT_EQ(nodes_in(parser, numbered_text_of), (text_list{"3<0 @200001 .b", "1<0 @200001 !r"}));
}

// ---- Against the model ----------------------------------------------------------------------------------

stream_outcome finish(parser_type& parser) {
    stream_outcome result;
    result.error = name_of(parser.error());
    result.line = parser.line();
    result.offset = parser.parse_offset() - std::ssize(long_header);
    result.nodes = nodes_in(parser, numbered_text_of);
    return result;
}

stream_outcome parse_whole(std::string const& body, unsigned depth) {
    the_file->contents = long_header + body;
    parser_type parser(ustring8("f"), depth);
    parser.parse();
    return finish(parser);
}

// Taking nothing on the way, so that attributes and texts find their nodes.
template <class Random>
stream_outcome parse_in_chunks(std::string const& body, unsigned depth, Random& random) {
    the_file->contents.clear();
    parser_type parser(ustring8("f"), depth);
    std::string const text = long_header + body;
    for (std::size_t written = 0; written < text.size();) {
        std::size_t const size = std::min<std::size_t>(1 + random() % 9, text.size() - written);
        the_file->contents.append(text, written, size);
        written += size;
        parser.parse();
    }
    return finish(parser);
}

// Behind the root's end tag only that is read which is there at the same time.
stream_outcome up_to_the_end(stream_outcome const& outcome) {
    auto const is_end = [](std::string const& node) { return node.find(" !") != std::string::npos; };
    auto const end = std::find_if(outcome.nodes.begin(), outcome.nodes.end(), is_end);
    if (end == outcome.nodes.end()) {
        return outcome;
    }
    stream_outcome result;
    result.nodes.assign(outcome.nodes.begin(), end + 1);
    return result;
}

// All sequences of pieces up to a length.
template <class Function>
void for_all_sequences(text_list const& pieces, int length, std::string const& beginning, Function function) {
    function(beginning);
    if (length > 0) {
        for (std::string const& piece : pieces) {
            for_all_sequences(pieces, length - 1, beginning + piece, function);
        }
    }
}

TEST_F(xml_stream_file, reads_like_the_model_all_sequences_of_elements) {
    text_list const pieces = {"<r>", "</r>", "<a>", "</a>", "<a/>", "<include>", "</include>", "t", "\n"};
    for_all_sequences(pieces, 5, "", [](std::string const& body) {
        for (unsigned const depth : {1u, 2u}) {
            ASSERT_EQ(parse_whole(body, depth), xml_stream_parser_model::parse(body, depth))
                << body << " at " << depth;
        }
    });
    for_all_sequences(pieces, 3, "<r><a>", [](std::string const& body) {
        for (unsigned const depth : {0u, 3u, 9u}) {
            ASSERT_EQ(parse_whole(body, depth), xml_stream_parser_model::parse(body, depth))
                << body << " at " << depth;
        }
    });
}

TEST_F(xml_stream_file, reads_like_the_model_all_short_contents) {
    text_list const bytes = {"<", ">", "/", "!", "-", "a", " ", "\n", "=", "'", "&", ";", "\x80"};
    for (std::string const beginning : {"", "<r><a>", "<r a", "<r a='x", "<r><!-"}) {
        for_all_sequences(bytes, 4, beginning, [](std::string const& body) {
            ASSERT_EQ(parse_whole(body, 1), xml_stream_parser_model::parse(body, 1)) << body;
        });
    }
}

TEST_F(xml_stream_file, reads_like_the_model_in_whatever_chunks_it_grows) {
    text_list const pieces = {"<r>",        "<r>",       "</r>",      "<a>",    "</a>",  "<a/>", "<b x='1'>",
                              "</b>",       "text",      "&amp;",     "&#x41;", "&#65;", " ",    "\n",
                              "<!-- c -->", "<!--\n-->", "<b ",       "x='",    "y=\"",  "'",    "\"",
                              "/>",         ">",         "<include>", "</",     "b",     "<",    "</include>",
                              "\xC3\xA9",   "<![C[",     "&l",        "--"};
    std::mt19937 random(1);
    for (int round = 0; round < 20000; ++round) {
        std::string body = round % 2 == 0 ? "" : "<r><a>";
        for (std::size_t count = random() % 12; count > 0; --count) {
            body += pieces[random() % pieces.size()];
        }
        unsigned const depth = random() % 4;
        stream_outcome const expected = xml_stream_parser_model::parse(body, depth);
        ASSERT_EQ(parse_whole(body, depth), expected) << body << " at " << depth;
        ASSERT_EQ(up_to_the_end(parse_in_chunks(body, depth, random)), up_to_the_end(expected))
            << body << " at " << depth;
    }
}

} // namespace
