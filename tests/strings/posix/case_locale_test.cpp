// The case functions under a locale that knows one pair of letters, and those are not ASCII.

#include <clocale>
#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include "support/temporary_directory.hpp"
#include "support/unit_texts.hpp"
#include "veldrin/strings/case.hpp"

namespace {

using namespace VELDRIN_2_18;

char const character_map[] = "<code_set_name> ISO-8859-1\n<escape_char> /\n<mb_cur_min> 1\n<mb_cur_max> 1\n"
                             "CHARMAP\n<U0000>..<U00FE> /x00\n<U00FF> /xff\nEND CHARMAP\n";

// U+00C4 with U+00E4, and "k" as the capital of U+00E5.
char const locale_source[] =
    "LC_CTYPE\n"
    "upper <U0041>..<U005A>;<U00C4>;<U006B>\nlower <U0061>..<U007A>;<U00E4>;<U00E5>\n"
    "tolower (<U00C4>,<U00E4>);(<U006B>,<U00E5>)\n"
    "toupper (<U00E4>,<U00C4>);(<U00E5>,<U006B>)\n"
    "END LC_CTYPE\n";

class case_under_locale : public testing::Test {
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
    support::temporary_directory m_directory;
};

TEST_F(case_under_locale, wider_units_follow_it_up_to_255) {
    EXPECT_EQ(strings::to_lower(support::utf16({0xC4, 0x41, 0x1C4, 0xC5})),
              support::utf16({0xE4, 0x41, 0x1C4, 0xC5}));
    EXPECT_EQ(strings::to_upper(support::utf16({0xE4, 0x61, 0x1E4, 0xE5})),
              support::utf16({0xC4, 0x61, 0x1E4, 0x6B}));
    EXPECT_EQ(strings::to_lower(support::utf32({0xC4, 0x1C4})), support::utf32({0xE4, 0x1C4}));
    EXPECT_EQ(strings::to_upper(support::utf32({0xE4, 0x1E4})), support::utf32({0xC4, 0x1E4}));
    EXPECT_EQ(strings::lower_case(support::utf16({0xC4, 0xC4, 0xC4}), 1, 2),
              support::utf16({0xC4, 0xE4, 0xC4}));
    EXPECT_EQ(strings::gh2::tolower(support::utf16({0xC4, 0x41})), support::utf16({0xE4, 0x41}));
    EXPECT_EQ(strings::gh2::toupper(support::utf16({0xE4, 0x61})), support::utf16({0xC4, 0x61}));
}

TEST_F(case_under_locale, bytes_follow_it_up_to_127) {
    EXPECT_EQ(strings::to_lower(support::utf8({0xC3, 0xC4, 0x41})), support::utf8({0xC3, 0xC4, 0x41}));
    EXPECT_EQ(strings::to_upper(support::utf8({0xE4, 0xE5, 0x61})), support::utf8({0xE4, 0xE5, 0x61}));
    // The result is stored in the width of the unit.
    EXPECT_EQ(strings::to_lower(support::utf8({0x6B})), support::utf8({0xE5}));
}

} // namespace
