// File: veldrin/config/config_token.hpp
//
// What the configuration lexer, `base_config_item::get_token`, cuts a text into. The caller owns the text,
// the position and the token, and calls until `T_END` comes back; every byte of the text ends up in some
// token.
//
//     file1 = "a b"       // T_VAR file, T_NUM 1, T_SPACE, T_EQ =, T_SPACE, T_STRING a b, T_END

#pragma once

#include <cstdint>
#include <string>

#include "veldrin/export.hpp"
#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::config {

class VELDRIN_EXPORT config_token {
public:
    enum tok_types : std::int32_t {
        T_VAR = 0,           // a run of ASCII letters
        T_NUM = 1,           // a run of ASCII digits
        T_NEWLINE = 2,       // a line feed, or a carriage return and a line feed; the text is a line feed
        T_TABCHAR = 3,       // a tab
        T_UNKNOWN = 4,       // a carriage return with no line feed behind it
        T_END = 5,           // the end of the text
        T_SPACE = 6,         // a run of blanks
        T_EQ = 7,            // =
        T_EQEQ = 8,          // ==
        T_GT = 9,            // >
        T_GTEQ = 10,         // >=
        T_LT = 11,           // <
        T_LTEQ = 12,         // <=
        T_COLON = 13,        // :
        T_COLONEQ = 14,      // :=
        T_POUND = 15,        // #
        T_FSFS = 16,         // two slashes
        T_DOT = 17,          // .
        T_SBRACKET = 18,     // [
        T_EBRACKET = 19,     // ]
        T_PLUS = 20,         // +
        T_MINUS = 21,        // -
        T_PLUSEQ = 22,       // +=
        T_MINUSEQ = 23,      // -=
        T_TIMESDIV = 24,     // a star and a slash
        T_DIVTIMES = 25,     // no text gives this one: a slash and a star are T_DIV and T_TIMES
        T_TIMES = 26,        // *
        T_DIV = 27,          // /
        T_TIMESEQ = 28,      // *=
        T_DIVEQ = 29,        // /=
        T_STRING = 30,       // a text in double quotes; the quotes are not part of its text
        T_NON_ALPHA_NUM = 31 // any other single byte
    };

    // The token for a reader: "T_VAR :[name]", "T_NUM", "T_STRING:[a b]". Only `T_VAR`, `T_UNKNOWN`,
    // `T_STRING` and `T_NON_ALPHA_NUM` show their text. `T_TIMESDIV`, `T_DIVTIMES` and whatever is no
    // enumerator give "unknown type".
    std::string const CvtTokStr() const;

    // The bytes that the token stands for. `T_SPACE` and `T_END` leave the text of the token before them.
    std::string text;

    // The position behind the token and the one in front of it, in bytes. These two and the type say nothing
    // before the first call of the lexer; `T_END` leaves both positions as they were.
    unsigned int end_pos = 0;
    unsigned int start_pos = 0;

    tok_types type = T_VAR;
};

} // namespace VELDRIN_2_18::config
