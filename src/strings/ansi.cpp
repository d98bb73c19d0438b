#include "veldrin/strings/ansi.hpp"

#include "veldrin/strings/code_page.hpp"

namespace VELDRIN_2_18::strings::gh2 {

std::string to_ansi(wide_string const& text) {
    return code_page(code_page::system_ansi).encode(ustring16(text));
}

wide_string from_ansi(std::string const& text) { return code_page(code_page::system_ansi).as_ustring(text); }

} // namespace VELDRIN_2_18::strings::gh2
