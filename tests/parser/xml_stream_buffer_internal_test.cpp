#include "parser/xml_stream_buffer.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "parser/fake_file.hpp"

namespace {

using namespace VELDRIN_2_18;
using parser::_private::xml_stream_buffer;
using strings::ustring8;

class xml_stream_buffer_on_a_file : public testing::Test {
protected:
    xml_stream_buffer_on_a_file() : m_buffer(platform::path(ustring8("f"))) { support::the_file = &m_file; }
    ~xml_stream_buffer_on_a_file() override { support::the_file = nullptr; }

    support::fake_file m_file;
    xml_stream_buffer m_buffer;
};

TEST_F(xml_stream_buffer_on_a_file, begins_empty_at_line_1) {
    EXPECT_TRUE(m_buffer.at_end());
    EXPECT_EQ(m_buffer.left(), 0u);
    EXPECT_EQ(m_buffer.rest(), "");
    EXPECT_EQ(m_buffer.byte(), '\0');
    EXPECT_EQ(m_buffer.line(), 1u);
    EXPECT_EQ(m_buffer.mark_offset(), 0);
    EXPECT_TRUE(m_buffer.can_open_file());
    m_file.can_be_opened = false;
    EXPECT_FALSE(m_buffer.can_open_file());
    EXPECT_EQ(m_buffer.load(), std::nullopt);
}

TEST_F(xml_stream_buffer_on_a_file, reads_as_zero_behind_the_data) {
    m_file.contents = "ab";
    EXPECT_EQ(m_buffer.load(), 2u);
    EXPECT_EQ(m_buffer.byte(), 'a');
    EXPECT_EQ(m_buffer.byte(1), 'b');
    EXPECT_EQ(m_buffer.byte(2), '\0');
    EXPECT_EQ(m_buffer.byte(70000), '\0');
    m_buffer.advance();
    EXPECT_EQ(m_buffer.rest(), "b");
    EXPECT_EQ(m_buffer.left(), 1u);
    EXPECT_FALSE(m_buffer.at_end());
    m_buffer.advance();
    EXPECT_TRUE(m_buffer.at_end());
}

TEST_F(xml_stream_buffer_on_a_file, goes_back_to_the_mark_and_its_line) {
    m_file.contents = "\na\n\nb";
    m_buffer.load();
    m_buffer.step();
    m_buffer.set_mark();
    for (int count = 0; count < 3; ++count) {
        m_buffer.step();
    }
    EXPECT_EQ(m_buffer.rest(), "b");
    EXPECT_EQ(m_buffer.line(), 4u);
    EXPECT_EQ(m_buffer.mark_offset(), 1);
    m_buffer.back_to_mark();
    EXPECT_EQ(m_buffer.rest(), "a\n\nb");
    EXPECT_EQ(m_buffer.line(), 2u);
    m_buffer.advance(2);
    EXPECT_EQ(m_buffer.line(), 2u);
}

TEST_F(xml_stream_buffer_on_a_file, keeps_what_stands_behind_the_mark) {
    m_file.contents = std::string(65000, 'a') + std::string(65000, 'b');
    EXPECT_EQ(m_buffer.load(), 65536u);
    // No room, as long as the mark stands at the front.
    EXPECT_EQ(m_buffer.load(), 0u);
    m_buffer.advance(64990);
    m_buffer.set_mark();
    m_buffer.advance(100);
    EXPECT_EQ(m_buffer.load(), 64464u);
    EXPECT_EQ(m_buffer.rest(), std::string(10, 'a') + std::string(65000, 'b'));
    EXPECT_EQ(m_buffer.mark_offset(), 64990);
    EXPECT_EQ(m_buffer.load(), 0u);
}

TEST_F(xml_stream_buffer_on_a_file, moves_its_data_only_for_want_of_room) {
    m_file.contents = std::string(60000, 'a');
    m_buffer.load();
    m_buffer.advance(50000);
    m_buffer.set_mark();
    char const* const data = m_buffer.rest().data();
    m_file.contents += std::string(5536, 'b');
    EXPECT_EQ(m_buffer.load(), 5536u);
    EXPECT_EQ(m_buffer.rest().data(), data);
    m_file.contents += "c";
    EXPECT_EQ(m_buffer.load(), 1u);
    EXPECT_EQ(m_buffer.rest().data(), data - 50000);
    EXPECT_EQ(m_buffer.rest(), std::string(10000, 'a') + std::string(5536, 'b') + "c");
    EXPECT_EQ(m_buffer.mark_offset(), 50000);
}

TEST_F(xml_stream_buffer_on_a_file, reads_nothing_from_a_file_that_has_not_grown) {
    m_file.contents = "abc";
    m_buffer.load();
    m_buffer.advance(2);
    EXPECT_EQ(m_buffer.load(), 0u);
    m_file.contents = "a";
    EXPECT_EQ(m_buffer.load(), 0u);
    // The position stays.
    EXPECT_EQ(m_buffer.rest(), "c");
    EXPECT_EQ(m_buffer.file_length(), 1);
    m_file.contents = "abcd";
    EXPECT_EQ(m_buffer.load(), 1u);
    EXPECT_EQ(m_buffer.rest(), "abcd");
    EXPECT_EQ(m_buffer.file_length(), 4);
    m_file.can_be_opened = false;
    EXPECT_EQ(m_buffer.file_length(), 0);
}

} // namespace
