#include "veldrin/strings/console.hpp"

#include <sstream>
#include <type_traits>

#include <gtest/gtest.h>

namespace {

using namespace VELDRIN_2_18;

// Built before `main`, as a user's static object may be.
struct early_user {
    early_user() {
        found_all = &strings::gh2::ucin == &std::wcin && &strings::gh2::ucout == &std::wcout &&
                    &strings::gh2::ucerr == &std::wcerr;
        works = strings::gh2::ucout.good() && strings::gh2::ucout.rdbuf() != nullptr;
    }
    bool found_all;
    bool works;
};

early_user const user;

TEST(console, is_the_standard_wide_streams) {
    static_assert(std::is_same_v<decltype(strings::gh2::ucin), std::basic_istream<wchar_t>&>);
    static_assert(std::is_same_v<decltype(strings::gh2::ucout), std::basic_ostream<wchar_t>&>);
    static_assert(std::is_same_v<decltype(strings::gh2::ucerr), std::basic_ostream<wchar_t>&>);
    EXPECT_EQ(&strings::gh2::ucin, &std::wcin);
    EXPECT_EQ(&strings::gh2::ucout, &std::wcout);
    EXPECT_EQ(&strings::gh2::ucerr, &std::wcerr);
}

TEST(console, is_bound_before_user_code_runs) {
    EXPECT_TRUE(user.found_all);
    EXPECT_TRUE(user.works);
}

TEST(console, passes_text_through) {
    std::wstringbuf buffer;
    std::wstreambuf* const previous = std::wcout.rdbuf(&buffer);
    strings::gh2::ucout << L"ready " << 7;
    std::wcout.rdbuf(previous);
    EXPECT_EQ(buffer.str(), L"ready 7");
}

} // namespace
