#include <gtest/gtest.h>

#include <string>

#include "platform/windows/system.hpp"
#include "support/unit_texts.hpp"
#include "veldrin/strings/code_page.hpp"

namespace {

using namespace VELDRIN_2_18;
using strings::code_page;

// Every byte that is no part of a pair, by the system itself.
std::wstring decoded(UINT number, std::string const& bytes) {
    std::wstring text(bytes.size(), L'\0');
    int const size = ::MultiByteToWideChar(number, 0, bytes.data(), static_cast<int>(bytes.size()),
                                           text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(size));
    return text;
}

void expect_page(code_page::encoding_type type, UINT number) {
    code_page const page(type);
    for (int value = 1; value < 256; ++value) {
        std::string const bytes(1, static_cast<char>(value));
        if (::IsDBCSLeadByteEx(number, static_cast<BYTE>(value)) == 0 && number != CP_UTF8) {
            EXPECT_EQ(page.as_utf16(bytes), decoded(number, bytes)) << value;
        }
    }
}

TEST(windows_code_page, the_pages_of_the_system_are_the_systems) {
    expect_page(code_page::system_ansi, ::GetACP());
    expect_page(code_page::system_oem, ::GetOEMCP());
    expect_page(code_page::system_oem_alternate, ::GetOEMCP());
}

TEST(windows_code_page, a_listed_page_is_the_systems) {
    expect_page(code_page::cp_1251, 1251);
    EXPECT_EQ(code_page(code_page::cp_932).encode(support::utf16({0x65E5, 0x672C})), "\x93\xFA\x96\x7B");
}

} // namespace
