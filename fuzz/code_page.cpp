// Decodes and encodes in every code page. The first byte picks the page; the others are the bytes to decode,
// and the UTF-16 text to encode. Checked: sizes, the stop at zero, that encoding is stable under decoding,
// that parts convert like the whole, and that a short output is not overrun (under the address sanitizer,
// since it fits exactly).

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <vector>

#include "platform/code_page.hpp"
#include "require.hpp"
#include "text_of_bytes.hpp"
#include "veldrin/strings/code_page.hpp"
#include "veldrin/strings/unicode.hpp"

namespace {

using namespace VELDRIN_2_18;
using strings::code_page;
using strings::ustring16;

constexpr code_page::encoding_type encodings[] = {
    code_page::system_ansi, code_page::system_oem, code_page::system_oem_alternate,
    code_page::utf8,        code_page::cp_932,     code_page::cp_936,
    code_page::cp_949,      code_page::cp_950,     code_page::cp_1250,
    code_page::cp_1251,     code_page::cp_1252,    code_page::cp_1253,
    code_page::cp_1254,     code_page::cp_1255,    code_page::cp_1256,
    code_page::cp_1257,     code_page::cp_1258,    code_page::cp_20866,
    code_page::cp_21866,    code_page::cp_28591,   code_page::cp_28592,
    code_page::cp_28593,    code_page::cp_28594,   code_page::cp_28595,
    code_page::cp_28596,    code_page::cp_28597,   code_page::cp_28598,
    code_page::cp_28599,    code_page::cp_28605};

template <class Text>
Text up_to_zero(Text const& text) {
    return Text(text.c_str());
}

bool is_unicode(code_page const& page) { return page.type() <= code_page::utf8; }

void check_decoding(code_page const& page, std::string const& bytes) {
    ustring16 const text = page.as_utf16(bytes);
    std::string const used = up_to_zero(bytes);
    require(text.size() <= used.size());
    require(text.find(strings::utf16_unit(0)) == text.npos);
    require(page.as_utf16(used) == text);
    require(page.as_ustring(bytes) == text);
    // The converters end the process for a text that begins with the swapped mark.
    if (text.empty() || text[0] != strings::swapped_byte_order_mark) {
        require(page.as_utf8(bytes) == strings::utf16_to_utf8(text));
        require(page.as_utf32(bytes) == strings::utf16_to_utf32(text));
    }
}

void check_encoding(code_page const& page, ustring16 const& text) {
    ustring16 const used = up_to_zero(text);
    std::string const bytes = page.encode(text);
    require(bytes.size() <= used.size() * 3);
    require(bytes.size() >= used.size());
    require(bytes.find('\0') == bytes.npos);
    require(page.encode(used) == bytes);
    require(page.encode(page.as_utf16(bytes)) == bytes);
}

// An encoded text ends between two characters, so what follows it is decoded on its own.
void check_parts(code_page const& page, ustring16 const& text, std::string const& bytes) {
    std::string const front = page.encode(text);
    require(page.as_utf16(front + bytes) == page.as_utf16(front) + page.as_utf16(bytes));
    if (!is_unicode(page)) {
        ustring16 const used = up_to_zero(text);
        require(page.encode(ustring16(used + used)) == front + front);
    }
}

void check_short_output(ustring16 const& text, std::string const& bytes, int number, std::size_t size) {
    int const output_size = static_cast<int>(size);
    std::vector<char> encoded(size);
    platform::wide_to_multi_byte(number, text.c_str(), encoded.data(), output_size);
    std::vector<strings::utf16_unit> decoded(size);
    platform::multi_byte_to_wide(number, bytes.c_str(), decoded.data(), output_size);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    code_page const page(encodings[data[0] % std::size(encodings)]);
    std::string const bytes(reinterpret_cast<char const*>(data + 1), size - 1);
    ustring16 const text = text_of_bytes<ustring16>(data + 1, size - 1);
    check_decoding(page, bytes);
    check_encoding(page, text);
    check_parts(page, text, bytes);
    int const number = is_unicode(page) ? 65001 : page.type();
    check_short_output(text, bytes, number, size % 16);
    return 0;
}
