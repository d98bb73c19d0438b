// One category of the process locale, built from its source. For tests in folders posix/.

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

// The locale is that of each test.
class process_locale : public testing::Test {
protected:
    process_locale(int category, std::string const& name, std::string const& source)
        : m_category(category), m_name(name), m_source(source) {}

    void SetUp() override {
        std::string const command = "localedef -c -i " + m_directory.file("source", m_source) + " -f " +
                                    m_directory.file("map", character_map) + " " + m_directory.path(m_name) +
                                    " 2>/dev/null";
        ASSERT_NE(std::system(command.c_str()), -1);
        ASSERT_EQ(setenv("LOCPATH", m_directory.path().c_str(), 1), 0);
        ASSERT_STREQ(std::setlocale(m_category, m_name.c_str()), m_name.c_str());
    }

    void TearDown() override {
        std::setlocale(m_category, "C");
        unsetenv("LOCPATH");
    }

private:
    int m_category;
    std::string m_name;
    std::string m_source;
    temporary_directory m_directory;
};

} // namespace support
