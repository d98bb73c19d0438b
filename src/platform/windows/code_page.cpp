#include "platform/code_page.hpp"

#include "platform/bounded_output.hpp"
#include "platform/utf8.hpp"
#include "platform/windows/system.hpp"

namespace VELDRIN_2_18::platform {

namespace {

constexpr int up_to_the_terminator = -1;

} // namespace

int multi_byte_to_wide(int code_page, char const* bytes, strings::utf16_unit* output, int output_size) {
    if (code_page == CP_UTF8) {
        bounded_output<strings::utf16_unit> units(output, output_size);
        decode_utf8(bytes, units);
        units.append(0);
        return units.result();
    }
    return ::MultiByteToWideChar(static_cast<UINT>(code_page), 0, bytes, up_to_the_terminator, output,
                                 output_size);
}

int wide_to_multi_byte(int code_page, strings::utf16_unit const* text, char* output, int output_size) {
    if (code_page == CP_UTF8) {
        bounded_output<char> bytes(output, output_size);
        encode_utf8(text, bytes);
        bytes.append(0);
        return bytes.result();
    }
    return ::WideCharToMultiByte(static_cast<UINT>(code_page), 0, text, up_to_the_terminator, output,
                                 output_size, nullptr, nullptr);
}

} // namespace VELDRIN_2_18::platform
