// Every byte, byte pair and unit against the platform's iconv. The differences are known, one by one:
// tests/data/code_page_iconv/ lists for each code page the keys at which the two differ with both answers, in
// the notation of tools/code_pages/answers.hpp. A key that has no answer of iconv is one that iconv refuses.

#include <gtest/gtest.h>
#include <iconv.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

#include "../../../tools/code_pages/answers.hpp"
#include "veldrin/strings/code_page.hpp"

namespace {

using namespace VELDRIN_2_18;
using code_page_tools::map;
using strings::code_page;

struct page_row {
    code_page::encoding_type type;
    char const* iconv_name;
    std::uint32_t replacement;
};

constexpr page_row pages[] = {
    {code_page::cp_932, "CP932", 0x30FB},      {code_page::cp_936, "CP936", '?'},
    {code_page::cp_949, "CP949", '?'},         {code_page::cp_950, "CP950", '?'},
    {code_page::cp_1250, "CP1250", '?'},       {code_page::cp_1251, "CP1251", '?'},
    {code_page::cp_1252, "CP1252", '?'},       {code_page::cp_1253, "CP1253", '?'},
    {code_page::cp_1254, "CP1254", '?'},       {code_page::cp_1255, "CP1255", '?'},
    {code_page::cp_1256, "CP1256", '?'},       {code_page::cp_1257, "CP1257", '?'},
    {code_page::cp_1258, "CP1258", '?'},       {code_page::cp_20866, "KOI8-R", '?'},
    {code_page::cp_21866, "KOI8-U", '?'},      {code_page::cp_28591, "ISO-8859-1", '?'},
    {code_page::cp_28592, "ISO-8859-2", '?'},  {code_page::cp_28593, "ISO-8859-3", '?'},
    {code_page::cp_28594, "ISO-8859-4", '?'},  {code_page::cp_28595, "ISO-8859-5", '?'},
    {code_page::cp_28596, "ISO-8859-6", '?'},  {code_page::cp_28597, "ISO-8859-7", '?'},
    {code_page::cp_28598, "ISO-8859-8", '?'},  {code_page::cp_28599, "ISO-8859-9", '?'},
    {code_page::cp_28605, "ISO-8859-15", '?'},
};

class iconv_converter {
public:
    iconv_converter(char const* to, char const* from) : m_handle(iconv_open(to, from)) {}
    iconv_converter(iconv_converter const&) = delete;
    iconv_converter& operator=(iconv_converter const&) = delete;
    ~iconv_converter() { iconv_close(m_handle); }

    bool is_open() const { return m_handle != reinterpret_cast<iconv_t>(-1); }

    // The bytes of the result, or none if the input is refused or incomplete.
    std::string convert(std::string input) {
        std::array<char, 16> output{};
        char* input_position = input.data();
        std::size_t input_left = input.size();
        char* output_position = output.data();
        std::size_t output_left = output.size();
        bool const is_good =
            iconv(m_handle, &input_position, &input_left, &output_position, &output_left) == 0 &&
            iconv(m_handle, nullptr, nullptr, &output_position, &output_left) == 0;
        iconv(m_handle, nullptr, nullptr, nullptr, nullptr);
        return is_good ? std::string(output.data(), output_position) : std::string();
    }

private:
    iconv_t m_handle;
};

// One byte, or two with the first in the upper half, as bytes and back.
std::string bytes_of(std::size_t value) {
    if (value > 0xFF) {
        return {static_cast<char>(value >> 8), static_cast<char>(value & 0xFF)};
    }
    return {static_cast<char>(value)};
}

std::uint32_t value_of(std::string const& bytes) {
    EXPECT_LE(bytes.size(), 4u);
    std::uint32_t value = 0;
    for (char const byte : bytes) {
        value = value * 0x100 + static_cast<unsigned char>(byte);
    }
    return value;
}

struct differences {
    map ours = map(0x10000);
    map theirs = map(0x10000);

    // Where one has a replacement and the other refuses, both lack the key.
    void compare(std::size_t key, std::uint32_t our_value, std::uint32_t their_value,
                 std::uint32_t replacement) {
        if (our_value != their_value && !(our_value == replacement && their_value == 0)) {
            ours[key] = our_value;
            theirs[key] = their_value;
        }
    }

    void write(std::ostream& output, std::string const& direction) const {
        code_page_tools::write_map(output, direction + " ours", ours);
        code_page_tools::write_map(output, direction + " iconv", theirs);
    }
};

// The one unit that the bytes mean, or 0.
std::uint32_t our_unit(code_page const& page, std::string const& bytes) {
    strings::ustring16 const text = page.as_utf16(bytes);
    return text.size() == 1 ? static_cast<std::uint32_t>(text[0]) : std::uint32_t{0};
}

differences decoding_differences(page_row const& row) {
    differences result;
    iconv_converter decoder("UTF-16BE", row.iconv_name);
    EXPECT_TRUE(decoder.is_open()) << row.iconv_name;
    code_page const page(row.type);
    for (std::size_t key = 1; key <= 0xFFFF; ++key) {
        std::string const bytes = bytes_of(key);
        if (bytes.back() != '\0') {
            std::string const unit = decoder.convert(bytes);
            result.compare(key, our_unit(page, bytes), unit.size() == 2 ? value_of(unit) : std::uint32_t{0},
                           row.replacement);
        }
    }
    return result;
}

differences encoding_differences(page_row const& row) {
    differences result;
    iconv_converter encoder(row.iconv_name, "UTF-16BE");
    EXPECT_TRUE(encoder.is_open()) << row.iconv_name;
    code_page const page(row.type);
    for (std::size_t unit = 1; unit <= 0xFFFF; ++unit) {
        std::string const unit_bytes = {static_cast<char>(unit >> 8), static_cast<char>(unit & 0xFF)};
        strings::ustring16 const text(1, static_cast<strings::utf16_unit>(unit));
        result.compare(unit, value_of(page.encode(text)), value_of(encoder.convert(unit_bytes)), '?');
    }
    return result;
}

std::string file_text(std::string const& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

TEST(posix_code_page_iconv, differs_where_it_is_known_to_differ_and_nowhere_else) {
    for (page_row const& row : pages) {
        std::ostringstream found;
        decoding_differences(row).write(found, "decode");
        encoding_differences(row).write(found, "encode");
        std::string const name = std::to_string(row.type) + ".txt";
        std::string const known = file_text(VELDRIN_TEST_DATA "/code_page_iconv/" + name);
        if (found.str() != known) {
            std::string const path = testing::TempDir() + "code_page_iconv_" + name;
            std::ofstream(path, std::ios::binary) << found.str();
            ADD_FAILURE() << "other differences are found for " << name << ": see " << path;
        }
    }
}

} // namespace
