#include "veldrin/config/config_token.hpp"

#include <cstddef>
#include <iterator>
#include <string_view>

namespace VELDRIN_2_18::config {

namespace {

constexpr std::string_view unknown_type = "unknown type";

// In the order of the enumerators. The ones with a bracket show the token's text.
constexpr std::string_view renderings[] = {
    "T_VAR :[",    "T_NUM",      "T_NEWLINE",  "T_TABCHAR",
    "T_UNKNOWN:[", "T_END",      "T_SPACE",    "T_EQ",
    "T_EQEQ",      "T_GT",       "T_GTEQ",     "T_LT",
    "T_LTEQ",      "T_COLON",    "T_COLONEQ",  "T_POUND",
    "T_FSFS",      "T_DOT",      "T_SBRACKET", "T_EBRACKET",
    "T_PLUS",      "T_MINUS",    "T_PLUSEQ",   "T_MINUSEQ",
    unknown_type,  unknown_type, "T_TIMES",    "T_DIV",
    "T_TIMESEQ",   "T_DIVEQ",    "T_STRING:[", "T_NON_ALPHA_NUM:[",
};

} // namespace

std::string const config_token::CvtTokStr() const {
    auto const index = static_cast<std::size_t>(type);
    std::string rendered(index < std::size(renderings) ? renderings[index] : unknown_type);
    if (rendered.back() == '[') {
        rendered += text + ']';
    }
    return rendered;
}

} // namespace VELDRIN_2_18::config
