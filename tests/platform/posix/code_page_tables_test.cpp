// The committed tables are what the generator prints for the committed answers.

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

#include "../../../tools/code_pages/answers.hpp"
#include "../../../tools/code_pages/table_source.hpp"

namespace {

std::string const root = VELDRIN_TEST_DATA "/../..";

std::string file_text(std::string const& path) {
    std::ifstream file(root + path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

code_page_tools::answers committed_answers(int number) {
    std::istringstream text(file_text("/tools/code_pages/answers/" + std::to_string(number) + ".txt"));
    return code_page_tools::read_answers(text);
}

// Compared as a condition: a difference would print megabytes.
TEST(posix_code_page_tables, are_what_the_generator_prints) {
    for (int const number : code_page_tools::code_pages) {
        std::string const path = "/src/platform/posix/code_pages/cp_" + std::to_string(number) + ".cpp";
        EXPECT_TRUE(file_text(path) == code_page_tools::table_source(number, committed_answers(number)))
            << path;
    }
    EXPECT_EQ(file_text("/src/platform/posix/code_pages/tables.hpp"), code_page_tools::table_list());
}

TEST(posix_code_page_tables, the_answers_are_read_and_written_without_loss) {
    for (int const number : code_page_tools::code_pages) {
        std::string const path = "/tools/code_pages/answers/" + std::to_string(number) + ".txt";
        std::ostringstream written;
        code_page_tools::write_answers(written, committed_answers(number));
        EXPECT_TRUE(file_text(path) == written.str()) << path;
    }
}

} // namespace
