#include <algorithm>
#include <cstddef>
#include <limits>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "veldrin/config/base_config_item.hpp"

namespace {

using namespace VELDRIN_2_18;
using config::config_token;
using strings::ustring8;
using tok_types = config_token::tok_types;
using namespace std::string_literals;

struct reader : config::base_config_item {
    using config::base_config_item::get_token;
};

// What one call answered and left in the token.
struct step {
    tok_types answer;
    tok_types type;
    std::string text;
    unsigned int start_pos;
    unsigned int end_pos;

    bool operator==(step const&) const = default;
};

using steps = std::vector<step>;

void PrintTo(step const& each, std::ostream* out) {
    *out << each.answer << "/" << each.type << " " << testing::PrintToString(each.text) << " "
         << each.start_pos << "-" << each.end_pos;
}

// A token as it was before the first call.
config_token fresh_token() {
    config_token token;
    token.text = "stale";
    token.start_pos = 98;
    token.end_pos = 99;
    return token;
}

// All calls, up to the first `T_END`.
steps lex(ustring8 const& text) {
    steps result;
    config_token token = fresh_token();
    unsigned int position = 0;
    do {
        tok_types const answer = reader::get_token(text, position, token);
        result.push_back({answer, token.type, token.text, token.start_pos, token.end_pos});
        EXPECT_EQ(position, answer == config_token::T_END && result.size() == 1 ? 0 : token.end_pos);
    } while (result.back().answer != config_token::T_END && result.size() <= text.size());
    EXPECT_EQ(result.back().answer, config_token::T_END);
    return result;
}

// ---- The rules one by one ----

struct operator_row {
    std::string text;
    tok_types answer;
    std::string token_text;
};

std::vector<operator_row> const operator_rows = {
    {"\t", config_token::T_TABCHAR, "\t"},   {"\n", config_token::T_NEWLINE, "\n"},
    {"\r\n", config_token::T_NEWLINE, "\n"}, {"\r", config_token::T_UNKNOWN, "\r"},
    {"#", config_token::T_POUND, "#"},       {".", config_token::T_DOT, "."},
    {"[", config_token::T_SBRACKET, "["},    {"]", config_token::T_EBRACKET, "]"},
    {"==", config_token::T_EQEQ, "=="},      {"=", config_token::T_EQ, "="},
    {"<=", config_token::T_LTEQ, "<="},      {"<", config_token::T_LT, "<"},
    {">=", config_token::T_GTEQ, ">="},      {">", config_token::T_GT, ">"},
    {":=", config_token::T_COLONEQ, ":="},   {":", config_token::T_COLON, ":"},
    {"+=", config_token::T_PLUSEQ, "+="},    {"+", config_token::T_PLUS, "+"},
    {"-=", config_token::T_MINUSEQ, "-="},   {"-", config_token::T_MINUS, "-"},
    {"*=", config_token::T_TIMESEQ, "*="},   {"*", config_token::T_TIMES, "*"},
    {"/=", config_token::T_DIVEQ, "/="},     {"//", config_token::T_FSFS, "//"},
    {"/", config_token::T_DIV, "/"},
};

TEST(get_token, reads_each_operator_at_the_end_and_in_front_of_a_letter) {
    for (operator_row const& row : operator_rows) {
        auto const length = static_cast<unsigned int>(row.text.size());
        step const expected = {row.answer, row.answer, row.token_text, 0, length};
        step const end = {config_token::T_END, config_token::T_END, row.token_text, 0, length};
        EXPECT_EQ(lex(row.text), (steps{expected, end})) << testing::PrintToString(row.text);
        EXPECT_EQ(lex(row.text + 'x').front(), expected) << testing::PrintToString(row.text);
    }
}

TEST(get_token, answers_a_comment_for_star_slash_and_stores_another_type) {
    config_token token;
    unsigned int position = 0;
    EXPECT_EQ(reader::get_token("*/", position, token), config_token::T_FSFS);
    EXPECT_EQ(token.type, config_token::T_TIMESDIV);
    EXPECT_EQ(token.text, "*/");
    EXPECT_EQ(position, 2U);
    EXPECT_EQ(token.CvtTokStr(), "unknown type");
}

TEST(get_token, has_no_token_for_slash_star) {
    EXPECT_EQ(lex("/*"), (steps{{config_token::T_DIV, config_token::T_DIV, "/", 0, 1},
                                {config_token::T_TIMES, config_token::T_TIMES, "*", 1, 2},
                                {config_token::T_END, config_token::T_END, "*", 1, 2}}));
}

struct rendered_row {
    std::string text;
    std::string tokens; // type and text of each, by their rendering, without the end
};

// `T_NUM`, whose rendering has no text, with its text.
std::string rendered(ustring8 const& text) {
    std::string result;
    config_token token;
    unsigned int position = 0;
    while (reader::get_token(text, position, token) != config_token::T_END) {
        result += (result.empty() ? "" : " ") + token.CvtTokStr();
        result += token.type == config_token::T_NUM ? ":" + token.text : "";
    }
    return result;
}

TEST(get_token, cuts_words_strings_and_blanks) {
    rendered_row const rows[] = {
        {"", ""},
        {"abc12", "T_VAR :[abc] T_NUM:12"},
        {"12abc", "T_NUM:12 T_VAR :[abc]"},
        {"aZzA", "T_VAR :[aZzA]"},
        {"0123456789", "T_NUM:0123456789"},
        {"a_b", "T_VAR :[a] T_NON_ALPHA_NUM:[_] T_VAR :[b]"},
        {"1.5", "T_NUM:1 T_DOT T_NUM:5"},
        {"-1e+5", "T_MINUS T_NUM:1 T_VAR :[e] T_PLUS T_NUM:5"},
        {"@", "T_NON_ALPHA_NUM:[@]"},
        {"[`{/:", "T_SBRACKET T_NON_ALPHA_NUM:[`] T_NON_ALPHA_NUM:[{] T_DIV T_COLON"},
        {",,", "T_NON_ALPHA_NUM:[,] T_NON_ALPHA_NUM:[,]"},
        {"$'\\", "T_NON_ALPHA_NUM:[$] T_NON_ALPHA_NUM:['] T_NON_ALPHA_NUM:[\\]"},
        {"\x0B\x0C\x7F", "T_NON_ALPHA_NUM:[\x0B] T_NON_ALPHA_NUM:[\x0C] T_NON_ALPHA_NUM:[\x7F]"},
        {"== = =", "T_EQEQ T_SPACE T_EQ T_SPACE T_EQ"},
        {"===", "T_EQEQ T_EQ"},
        {"///=", "T_FSFS T_DIVEQ"},
        {"**/", "T_TIMES unknown type"},
        {"*//", "unknown type T_DIV"},
        {"\r\r\n\n\r", "T_UNKNOWN:[\r] T_NEWLINE T_NEWLINE T_UNKNOWN:[\r]"},
        {"\t\t  \t", "T_TABCHAR T_TABCHAR T_SPACE T_TABCHAR"},
        {"\"a b\"c", "T_STRING:[a b] T_VAR :[c]"},
        {"a\"b\"", "T_VAR :[a] T_STRING:[b]"},
        {"\"\"\"\"", "T_STRING:[] T_STRING:[]"},
        {"\"\"\"", "T_STRING:[] T_STRING:[]"},
    };
    for (rendered_row const& row : rows) {
        EXPECT_EQ(rendered(row.text), row.tokens) << testing::PrintToString(row.text);
    }
}

struct string_row {
    std::string text;
    std::string value;
    unsigned int end_pos;
};

TEST(get_token, keeps_what_stands_between_quotes) {
    string_row const rows[] = {
        {R"("abc")", "abc", 5},
        {R"("")", "", 2},
        {R"("a\"b")", R"(a\"b)", 6},
        {R"("\\")", R"(\\)", 4},
        {R"("\\"x)", R"(\\)", 4},
        {R"("\n")", R"(\n)", 4},
        {"\"\\\n\"", "\\\n", 4},
        {"\"a \t\r\n# // b\"", "a \t\r\n# // b", 13},
        {"\"a\0b\""s, "a\0b"s, 5},
        {"\"\xC3\xA9\"", "\xC3\xA9", 4},
        // Never closed: the position is one past the end.
        {R"("abc)", "abc", 5},
        {R"(")", "", 2},
        {R"("a\")", R"(a\")", 5},
        {R"("a b # =)", "a b # =", 9},
        // A backslash at the end takes the terminating zero in, and the position is two past the end.
        {R"("a\)", "a\\\0"s, 5},
        {R"("\)", "\\\0"s, 4},
        {R"("\\\)", "\\\\\\\0"s, 6},
    };
    for (string_row const& row : rows) {
        EXPECT_EQ(lex(row.text).front(),
                  (step{config_token::T_STRING, config_token::T_STRING, row.value, 0, row.end_pos}))
            << row.text;
    }
}

TEST(get_token, ends_behind_a_string_that_is_never_closed) {
    for (std::string const& text : {R"("abc)"s, R"("abc\)"s}) {
        steps const all = lex(text);
        ASSERT_EQ(all.size(), 2U);
        EXPECT_EQ(all.back().answer, config_token::T_END);
        EXPECT_EQ(all.back().text, all.front().text);
    }
}

TEST(get_token, leaves_the_text_of_the_token_before_at_a_blank) {
    EXPECT_EQ(lex("a  b"), (steps{{config_token::T_VAR, config_token::T_VAR, "a", 0, 1},
                                  {config_token::T_SPACE, config_token::T_SPACE, "a", 1, 3},
                                  {config_token::T_VAR, config_token::T_VAR, "b", 3, 4},
                                  {config_token::T_END, config_token::T_END, "b", 3, 4}}));
    EXPECT_EQ(lex("   "), (steps{{config_token::T_SPACE, config_token::T_SPACE, "stale", 0, 3},
                                 {config_token::T_END, config_token::T_END, "stale", 0, 3}}));
    EXPECT_EQ(lex("\"\" ").at(1), (step{config_token::T_SPACE, config_token::T_SPACE, "", 2, 3}));
}

TEST(get_token, changes_only_the_type_at_the_end) {
    config_token token = fresh_token();
    for (unsigned int const beyond : {3U, 4U, 1000U, std::numeric_limits<unsigned int>::max()}) {
        token.type = config_token::T_VAR;
        unsigned int position = beyond;
        EXPECT_EQ(reader::get_token("abc", position, token), config_token::T_END);
        EXPECT_EQ(position, beyond);
        EXPECT_EQ(token.type, config_token::T_END);
        EXPECT_EQ(token.text, "stale");
        EXPECT_EQ(token.start_pos, 98U);
        EXPECT_EQ(token.end_pos, 99U);
    }
    EXPECT_EQ(lex(""), (steps{{config_token::T_END, config_token::T_END, "stale", 98, 99}}));
}

TEST(get_token, reads_from_the_position_on) {
    config_token token;
    unsigned int position = 2;
    EXPECT_EQ(reader::get_token("abc", position, token), config_token::T_VAR);
    EXPECT_EQ(token.text, "c");
    EXPECT_EQ(token.start_pos, 2U);
    EXPECT_EQ(position, 3U);
}

TEST(get_token, takes_a_position_that_is_part_of_the_token) {
    config_token token;
    token.end_pos = 0;
    std::string words;
    while (reader::get_token("ab+12", token.end_pos, token) != config_token::T_END) {
        words += token.text + "|";
    }
    EXPECT_EQ(words, "ab|+|12|");
}

TEST(get_token, takes_a_zero_byte_as_any_other) {
    EXPECT_EQ(rendered("a\0b"s), "T_VAR :[a] T_NON_ALPHA_NUM:[\0] T_VAR :[b]"s);
    EXPECT_EQ(rendered("=\0"s), "T_EQ T_NON_ALPHA_NUM:[\0]"s);
}

TEST(get_token, cuts_a_multi_byte_character_into_bytes_that_restore_it) {
    ustring8 const text = "\xE2\x82\xAC\xC3\x9F";
    std::string restored;
    for (step const& each : lex(text)) {
        if (each.answer != config_token::T_END) {
            EXPECT_EQ(each.answer, config_token::T_NON_ALPHA_NUM);
            EXPECT_EQ(each.text.size(), 1U);
            restored += each.text;
        }
    }
    EXPECT_EQ(restored, text);
}

TEST(get_token, reads_long_tokens_whole) {
    std::size_t const length = 10'000'000;
    for (char const byte : {'7', 'x', ' '}) {
        EXPECT_EQ(lex(ustring8(length, byte)).front().end_pos, length);
    }
    EXPECT_EQ(lex('"' + ustring8(length, '\\') + '"').front().text.size(), length);
    EXPECT_EQ(lex('"' + ustring8(length, '#')).front().text, std::string(length, '#'));
}

// ---- Against a plain model ----

// The lexer again, in the plainest words.
class model {
public:
    explicit model(std::string const& text) : m_text(text) {}

    steps all() {
        steps result;
        step token = {config_token::T_END, config_token::T_END, "stale", 98, 99};
        do {
            next(token);
            result.push_back(token);
        } while (token.answer != config_token::T_END);
        return result;
    }

private:
    static bool among(char byte, char first, char last) { return byte >= first && byte <= last; }

    char at(std::size_t index) const { return index < m_text.size() ? m_text[index] : '\0'; }

    void next(step& token) {
        if (m_position >= m_text.size()) {
            token.answer = token.type = config_token::T_END;
            return;
        }
        std::size_t const start = m_position;
        while (at(m_position) == ' ') {
            ++m_position;
        }
        if (m_position != start) {
            token.type = config_token::T_SPACE;
        } else if (!operators(token)) {
            words(token);
        }
        token.answer = token.type == config_token::T_TIMESDIV ? config_token::T_FSFS : token.type;
        token.start_pos = static_cast<unsigned int>(start);
        token.end_pos = static_cast<unsigned int>(m_position);
    }

    bool operators(step& token) {
        char const first = at(m_position);
        char const second = at(m_position + 1);
        if (first == '\t')
            return one(token, config_token::T_TABCHAR);
        if (first == '\n')
            return one(token, config_token::T_NEWLINE);
        if (first == '\r' && second == '\n') {
            two(token, config_token::T_NEWLINE);
            token.text = "\n";
            return true;
        }
        if (first == '\r')
            return one(token, config_token::T_UNKNOWN);
        if (first == '#')
            return one(token, config_token::T_POUND);
        if (first == '.')
            return one(token, config_token::T_DOT);
        if (first == '[')
            return one(token, config_token::T_SBRACKET);
        if (first == ']')
            return one(token, config_token::T_EBRACKET);
        if (first == '*' && second == '/')
            return two(token, config_token::T_TIMESDIV);
        if (first == '/' && second == '/')
            return two(token, config_token::T_FSFS);
        return with_equals(token, '=', config_token::T_EQ, config_token::T_EQEQ) ||
               with_equals(token, '<', config_token::T_LT, config_token::T_LTEQ) ||
               with_equals(token, '>', config_token::T_GT, config_token::T_GTEQ) ||
               with_equals(token, ':', config_token::T_COLON, config_token::T_COLONEQ) ||
               with_equals(token, '+', config_token::T_PLUS, config_token::T_PLUSEQ) ||
               with_equals(token, '-', config_token::T_MINUS, config_token::T_MINUSEQ) ||
               with_equals(token, '*', config_token::T_TIMES, config_token::T_TIMESEQ) ||
               with_equals(token, '/', config_token::T_DIV, config_token::T_DIVEQ);
    }

    bool with_equals(step& token, char byte, tok_types alone, tok_types assigning) {
        if (at(m_position) != byte)
            return false;
        return at(m_position + 1) == '=' ? two(token, assigning) : one(token, alone);
    }

    bool one(step& token, tok_types type) { return take(token, type, 1); }
    bool two(step& token, tok_types type) { return take(token, type, 2); }

    bool take(step& token, tok_types type, std::size_t length) {
        token.type = type;
        token.text = m_text.substr(m_position, length);
        m_position += length;
        return true;
    }

    void words(step& token) {
        std::size_t length = 0;
        if (at(m_position) == '"') {
            string(token);
        } else if (among(at(m_position), '0', '9')) {
            while (among(at(m_position + length), '0', '9'))
                ++length;
            take(token, config_token::T_NUM, length);
        } else if (letter(at(m_position))) {
            while (letter(at(m_position + length)))
                ++length;
            take(token, config_token::T_VAR, length);
        } else {
            one(token, config_token::T_NON_ALPHA_NUM);
        }
    }

    static bool letter(char byte) { return among(byte, 'a', 'z') || among(byte, 'A', 'Z'); }

    void string(step& token) {
        token.type = config_token::T_STRING;
        token.text = "";
        std::size_t index = m_position + 1;
        while (at(index) != '"' && index < m_text.size()) {
            if (at(index) == '\\') {
                token.text += at(index++);
            }
            token.text += at(index++);
        }
        m_position = index + 1;
    }

    std::string m_text;
    std::size_t m_position = 0;
};

TEST(get_token, cuts_every_text_of_one_and_two_bytes_like_the_model) {
    for (int first = 0; first < 256; ++first) {
        std::string const one(1, static_cast<char>(first));
        ASSERT_EQ(lex(one), model(one).all()) << first;
        for (int second = 0; second < 256; ++second) {
            std::string const two = one + static_cast<char>(second);
            ASSERT_EQ(lex(two), model(two).all()) << first << " " << second;
        }
    }
}

TEST(get_token, cuts_texts_of_five_bytes_like_the_model) {
    constexpr std::string_view alphabet = " \t\n\r=*/\"\\a1";
    std::string text(5, ' ');
    std::size_t number = 0;
    do {
        std::size_t rest = number++;
        for (char& byte : text) {
            byte = alphabet[rest % alphabet.size()];
            rest /= alphabet.size();
        }
        ASSERT_EQ(lex(text), model(text).all()) << testing::PrintToString(text);
    } while (!std::all_of(text.begin(), text.end(), [&](char byte) { return byte == alphabet.back(); }));
}

// ---- The delimiters beside it ----

TEST(is_token_delimiter, knows_the_delimiters_and_nothing_else) {
    std::string const delimiters = " +-*^/%=;(),<>~&|{}\n\t[]?$\r";
    for (int value = 0; value < 256; ++value) {
        char const byte = static_cast<char>(value);
        EXPECT_EQ(config::is_token_delimiter(byte), delimiters.find(byte) != std::string::npos) << value;
    }
}

} // namespace
