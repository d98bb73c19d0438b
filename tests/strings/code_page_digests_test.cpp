// Every unit and byte pair of every code page, surrogate pairs and random bytes, against digests of what the
// Windows functions answered. tools/code_pages/run makes the digests; they hold on every platform.

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "../../tools/code_pages/answers.hpp"
#include "../../tools/code_pages/digests.hpp"
#include "veldrin/strings/code_page.hpp"

namespace {

using namespace VELDRIN_2_18;

std::string digest_line(int number) {
    strings::code_page const page(static_cast<strings::code_page::encoding_type>(number));
    std::ostringstream line;
    code_page_tools::write_digests<strings::utf16_unit>(
        line, number,
        {[&](strings::wide_string const& text) { return page.encode(strings::ustring16(text)); },
         [&](std::string const& bytes) { return page.as_ustring(bytes); }});
    return line.str();
}

TEST(code_page_digests, every_answer_is_the_one_of_the_windows_functions) {
    std::ifstream file(VELDRIN_TEST_DATA "/code_page_digests.txt");
    std::vector<int> numbers;
    for (std::string line; std::getline(file, line);) {
        numbers.push_back(std::stoi(line));
        EXPECT_EQ(digest_line(numbers.back()), line + '\n');
    }
    EXPECT_EQ(numbers, std::vector<int>(std::begin(code_page_tools::code_pages),
                                        std::end(code_page_tools::code_pages)));
}

} // namespace
