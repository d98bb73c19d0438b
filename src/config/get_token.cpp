#include <algorithm>
#include <cstddef>
#include <iterator>
#include <limits>
#include <string_view>

#include "strings/ascii.hpp"
#include "veldrin/config/base_config_item.hpp"

namespace VELDRIN_2_18::config {

namespace {

using strings::_private::is_ascii_digit;
using strings::_private::is_ascii_letter;

// The position behind every token must fit: an open string that ends in a backslash counts two bytes more.
constexpr std::size_t longest_text = std::numeric_limits<unsigned int>::max() - 2U;

bool is_operator(char byte) {
    constexpr std::string_view operators = "#<>*/+.:-[]=\n\t\r";
    return operators.find(byte) != operators.npos;
}

bool is_blank(char byte) { return byte == ' '; }

struct operator_rule {
    std::string_view spelling;
    config_token::tok_types type;
};

// The first one that fits counts.
constexpr operator_rule operator_rules[] = {
    {"\t", config_token::T_TABCHAR},  {"\n", config_token::T_NEWLINE}, {"\r\n", config_token::T_NEWLINE},
    {"\r", config_token::T_UNKNOWN},  {"#", config_token::T_POUND},    {".", config_token::T_DOT},
    {"[", config_token::T_SBRACKET},  {"]", config_token::T_EBRACKET}, {"==", config_token::T_EQEQ},
    {"=", config_token::T_EQ},        {"<=", config_token::T_LTEQ},    {"<", config_token::T_LT},
    {">=", config_token::T_GTEQ},     {">", config_token::T_GT},       {":=", config_token::T_COLONEQ},
    {":", config_token::T_COLON},     {"+=", config_token::T_PLUSEQ},  {"+", config_token::T_PLUS},
    {"-=", config_token::T_MINUSEQ},  {"-", config_token::T_MINUS},    {"*=", config_token::T_TIMESEQ},
    {"*/", config_token::T_TIMESDIV}, {"*", config_token::T_TIMES},    {"/=", config_token::T_DIVEQ},
    {"//", config_token::T_FSFS},     {"/", config_token::T_DIV},
};

// Each function below reads one production at the front of the text, which is not empty, and returns how many
// bytes it took.

template <class Predicate>
std::size_t length_of_run(std::string_view text, Predicate belongs) {
    auto const end = std::find_if_not(text.begin(), text.end(), belongs);
    return static_cast<std::size_t>(end - text.begin());
}

// blanks: " " {" "}. The token keeps its text: the option reader appends it once more.
std::size_t scan_blanks(std::string_view text, config_token& token) {
    token.type = config_token::T_SPACE;
    return length_of_run(text, is_blank);
}

// operator: one of the rules; there is one for each operator byte alone. A line end of two bytes has the text
// of the other.
std::size_t scan_operator(std::string_view text, config_token& token) {
    operator_rule const& rule =
        *std::find_if(std::begin(operator_rules), std::end(operator_rules),
                      [&](operator_rule const& each) { return text.starts_with(each.spelling); });
    token.type = rule.type;
    token.text = rule.type == config_token::T_NEWLINE ? "\n" : rule.spelling;
    return rule.spelling.size();
}

// string: '"' {byte | "\" byte} '"', or up to the end of the text. A zero byte stands behind the end, and a
// backslash at the end takes it in.
std::size_t scan_string(std::string_view text, config_token& token) {
    token.type = config_token::T_STRING;
    token.text.clear();
    std::size_t index = 1;
    for (; index < text.size() && text[index] != '"'; ++index) {
        if (text[index] == '\\') {
            token.text += text[index++];
        }
        token.text += index < text.size() ? text[index] : '\0';
    }
    return index + 1;
}

// word: digit {digit} | letter {letter} | byte
std::size_t scan_word(std::string_view text, config_token& token) {
    std::size_t length = 1;
    if (is_ascii_digit(text.front())) {
        token.type = config_token::T_NUM;
        length = length_of_run(text, is_ascii_digit);
    } else if (is_ascii_letter(text.front())) {
        token.type = config_token::T_VAR;
        length = length_of_run(text, is_ascii_letter);
    } else {
        token.type = config_token::T_NON_ALPHA_NUM;
    }
    token.text = text.substr(0, length);
    return length;
}

// token: blanks | operator | string | word
std::size_t scan_token(std::string_view text, config_token& token) {
    if (is_blank(text.front())) {
        return scan_blanks(text, token);
    }
    if (is_operator(text.front())) {
        return scan_operator(text, token);
    }
    if (text.front() == '"') {
        return scan_string(text, token);
    }
    return scan_word(text, token);
}

} // namespace

bool is_token_delimiter(char byte) {
    constexpr std::string_view delimiters = " +-*^/%=;(),<>~&|{}\n\t[]?$\r";
    return delimiters.find(byte) != delimiters.npos;
}

config_token::tok_types base_config_item::get_token(strings::ustring8 const& text, unsigned int& pos,
                                                    config_token& tok) {
    std::string_view const readable = std::string_view(text).substr(0, longest_text);
    if (pos >= readable.size()) {
        return tok.type = config_token::T_END;
    }
    std::size_t const length = scan_token(readable.substr(pos), tok);
    tok.start_pos = pos;
    tok.end_pos = pos += static_cast<unsigned int>(length);
    // Callers that go by the type read it as text, those that go by the answer as the start of a comment.
    return tok.type == config_token::T_TIMESDIV ? config_token::T_FSFS : tok.type;
}

} // namespace VELDRIN_2_18::config
