#include "veldrin/strings/code_page.hpp"

#include <cstddef>

#include "platform/code_page.hpp"
#include "veldrin/exceptions/logic_error.hpp"
#include "veldrin/strings/unicode.hpp"

namespace VELDRIN_2_18::strings {

namespace {

constexpr char const* source_unit = "strings/code_page";

// Asks `convert(output, output_size)` for the size, then for the units without their terminator. A size of 0
// is the platform's failure: it asks for more than a string can hold, so the string throws.
template <class Text, class Convert>
Text convert_by_size(Convert const& convert) {
    int const size = convert(nullptr, 0);
    Text result;
    result.resize(static_cast<std::size_t>(size) - 1);
    convert(result.data(), size - 1);
    return result;
}

} // namespace

std::string code_page::encode(ustring8 const& text) const { return encode(utf8_to_utf16(text)); }

std::string code_page::encode(ustring16 const& text) const {
    int const number = to_system_type(m_type);
    return convert_by_size<std::string>([&](char* output, int output_size) {
        return platform::wide_to_multi_byte(number, text.c_str(), output, output_size);
    });
}

std::string code_page::encode(ustring32 const& text) const { return encode(utf32_to_utf16(text)); }

ustring8 code_page::as_utf8(std::string const& bytes) const { return utf16_to_utf8(as_utf16(bytes)); }

ustring16 code_page::as_utf16(std::string const& bytes) const {
    int const number = to_system_type(m_type);
    return convert_by_size<ustring16>([&](utf16_unit* output, int output_size) {
        return platform::multi_byte_to_wide(number, bytes.c_str(), output, output_size);
    });
}

ustring32 code_page::as_utf32(std::string const& bytes) const { return utf16_to_utf32(as_utf16(bytes)); }

wide_string code_page::as_ustring(std::string const& bytes) const { return as_utf16(bytes); }

int code_page::to_system_type(encoding_type type) const {
    bool const is_single_byte_page =
        (type >= cp_1250 && type <= cp_1258) || (type >= cp_28591 && type <= cp_28599) || type == cp_28605;
    if (is_single_byte_page) {
        return type;
    }
    switch (type) {
    case system_ansi:
        return 0;
    case system_oem:
    case system_oem_alternate:
        return 1;
    case utf8:
        return 65001;
    case cp_932:
    case cp_936:
    case cp_949:
    case cp_950:
    case cp_20866:
    case cp_21866:
        return type;
    default:
        throw exceptions::invalid_argument_value("Not valid code_page type", __LINE__, source_unit,
                                                 "VELDRIN_2_18::strings::code_page::to_system_type");
    }
}

} // namespace VELDRIN_2_18::strings
