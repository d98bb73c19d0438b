// The stream parser where memory runs out.

#include <cstddef>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "parser/fake_file.hpp"
#include "parser/xml_stream_outcome.hpp"
#include "support/allocations.hpp"
#include "veldrin/parser/xml_stream_parser.hpp"

namespace {

using namespace VELDRIN_2_18;
using strings::ustring8;
using support::xml_stream_parser;

using support::succeeds_with;
// Names and texts are too long to be kept in a string object itself.
std::string const long_text(40, 'x');

std::string document_text() {
    std::string const element = "element_" + long_text;
    return support::long_header + "<root_" + long_text + "><" + element + " name_" + long_text + "='" +
           long_text + "'>" + long_text + "</" + element + "></root_" + long_text + ">";
}

struct open_parser : xml_stream_parser {
    using xml_stream_parser::load;
    using xml_stream_parser::parse_next;
    using xml_stream_parser::xml_stream_parser;
};

TEST(xml_stream_parser_memory, that_runs_out_in_a_construct_is_fatal) {
    support::fake_file file;
    support::the_file = &file;
    file.contents = document_text();
    open_parser parser(ustring8("f"), 1);
    file.contents.resize(support::long_header.size());
    EXPECT_EQ(parser.parse(), xml_stream_parser::no_error);
    file.contents = document_text();
    parser.load();
    EXPECT_FALSE(succeeds_with(0, [&] { parser.parse_next(); }));
    EXPECT_EQ(parser.error(), xml_stream_parser::fatal_error);
    EXPECT_EQ(parser.parse(), xml_stream_parser::fatal_error);
    EXPECT_EQ(parser.recover({"a"}), xml_stream_parser::fatal_error);
    EXPECT_TRUE(parser.node_queue_empty());
}

TEST(xml_stream_parser_memory, may_run_out_anywhere) {
    support::fake_file file;
    support::the_file = &file;
    file.contents = document_text();
    std::size_t const enough = 200;
    bool has_run_out = true;
    std::size_t allocations = 0;
    for (; has_run_out; ++allocations) {
        ASSERT_LT(allocations, enough);
        xml_stream_parser parser(ustring8("f"), 1);
        has_run_out = !succeeds_with(allocations, [&] { parser.parse(); });
        // Failures to open the file leave the error as it was.
        EXPECT_EQ(parser.error() == xml_stream_parser::end_of_document, !has_run_out);
        bool const is_fatal = parser.error() == xml_stream_parser::fatal_error;
        EXPECT_TRUE(!has_run_out || is_fatal || parser.error() == xml_stream_parser::no_error);
        parser.recover({"element"});
        std::size_t nodes = 0;
        while (!parser.node_queue_empty()) {
            parser.node_queue_pop();
            ++nodes;
        }
        EXPECT_LE(nodes, 3u);
    }
    EXPECT_GT(allocations, 10u);
}

// The node of the root is available alone, so that taking it reads on.
TEST(xml_stream_parser_memory, that_runs_out_while_a_node_is_taken_leaves_it_in_the_queue) {
    support::fake_file file;
    support::the_file = &file;
    std::string const whole = document_text();
    std::string const root = "<root_" + long_text + ">";
    bool has_run_out = true;
    std::size_t allocations = 0;
    for (; has_run_out; ++allocations) {
        ASSERT_LT(allocations, 200u);
        file.contents = whole.substr(0, whole.find(root) + root.size());
        xml_stream_parser parser(ustring8("f"), 1);
        parser.parse();
        ASSERT_EQ(parser.node_queue_size(), 1u);
        file.contents = whole;
        xml_stream_parser::node taken;
        has_run_out = !succeeds_with(allocations, [&] { taken = parser.node_queue_pop(); });
        if (has_run_out) {
            taken = parser.node_queue_pop();
        }
        EXPECT_EQ(taken.tag(), "root_" + long_text) << allocations;
    }
    EXPECT_GT(allocations, 10u);
}

} // namespace
