// A process locale that knows one pair of letters, and those are not ASCII. For tests in folders posix/.

#pragma once

#include <clocale>
#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include "support/temporary_directory.hpp"

namespace support {

inline char const character_map[] =
    "<code_set_name> ISO-8859-1\n<escape_char> /\n<mb_cur_min> 1\n<mb_cur_max> 1\n"
    "CHARMAP\n<U0000>..<U00FE> /x00\n<U00FF> /xff\nEND CHARMAP\n";

// U+00C4 with U+00E4, and "k" as the capital of U+00E5.
inline char const locale_source[] =
    "LC_CTYPE\n"
    "upper <U0041>..<U005A>;<U00C4>;<U006B>\nlower <U0061>..<U007A>;<U00E4>;<U00E5>\n"
    "tolower (<U00C4>,<U00E4>);(<U006B>,<U00E5>)\n"
    "toupper (<U00E4>,<U00C4>);(<U00E5>,<U006B>)\n"
    "END LC_CTYPE\n";

// The locale is that of each test.
class one_pair_locale : public testing::Test {
protected:
    void SetUp() override {
        std::string const command = "localedef -c -i " + m_directory.file("source", locale_source) + " -f " +
                                    m_directory.file("map", character_map) + " " +
                                    m_directory.path("one_pair") + " 2>/dev/null";
        ASSERT_NE(std::system(command.c_str()), -1);
        ASSERT_EQ(setenv("LOCPATH", m_directory.path().c_str(), 1), 0);
        ASSERT_STREQ(std::setlocale(LC_CTYPE, "one_pair"), "one_pair");
    }

    void TearDown() override {
        std::setlocale(LC_CTYPE, "C");
        unsetenv("LOCPATH");
    }

private:
    temporary_directory m_directory;
};

} // namespace support
