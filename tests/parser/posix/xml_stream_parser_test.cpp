#include "veldrin/parser/xml_stream_parser.hpp"

#include <string>

#include <gtest/gtest.h>

#include "parser/xml_stream_outcome.hpp"
#include "support/temporary_directory.hpp"
#include "support/unit_texts.hpp"

namespace {

using namespace VELDRIN_2_18;
using parser::xml_stream_parser;
using strings::ustring8;

TEST(xml_stream_parser_path, is_passed_as_its_bytes) {
    support::temporary_directory const directory;
    ustring8 const path = directory.file("\xFF.xml", support::long_header + "<r></r>");
    xml_stream_parser parser(path, 1);
    EXPECT_EQ(parser.parse(), xml_stream_parser::end_of_document);
}

TEST(xml_stream_parser_path, that_cannot_be_converted_names_nothing) {
    xml_stream_parser wide(support::utf16({0x61, 0xD800}), 1);
    EXPECT_EQ(wide.error(), xml_stream_parser::file_error);
    xml_stream_parser swapped(support::utf16({0xFFFE, 0x61}), 1);
    EXPECT_EQ(swapped.error(), xml_stream_parser::file_error);
    xml_stream_parser widest(support::utf32({0x110000, 0x61}), 1);
    EXPECT_EQ(widest.error(), xml_stream_parser::file_error);
    xml_stream_parser cut(ustring8("a\0b", 3), 1);
    EXPECT_EQ(cut.error(), xml_stream_parser::file_error);
}

} // namespace
