// The configuration lexer over any bytes: each byte belongs to one token, each token says what its bytes are,
// and nothing depends on the tokens before it. Then the same bytes as a line that is set.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "require.hpp"
#include "text_of_bytes.hpp"
#include "veldrin/config/base_config_item.hpp"
#include "veldrin/generic/abilities/make_dynamic.hpp"
#include "veldrin/strings/ustring.hpp"

namespace {

using namespace VELDRIN_2_18;
using config::config_token;
using strings::ustring8;

class fuzzed_item : public config::base_config_item {
public:
    using config::base_config_item::get_token;

    config::base_config_item* clone() const override {
        return generic::abilities::make_dynamic<fuzzed_item>(*this);
    }
};

bool is_run(std::string const& bytes, bool (*belongs)(char)) {
    return !bytes.empty() && std::all_of(bytes.begin(), bytes.end(), belongs);
}

bool is_digit(char byte) { return byte >= '0' && byte <= '9'; }

bool is_letter(char byte) { return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z'); }

bool is_blank(char byte) { return byte == ' '; }

// The bytes of a string token, its quote in front included, without the terminating zero that a backslash at
// the end of the text takes in.
std::string string_source(config_token const& token, std::size_t text_size) {
    return '"' + token.text.substr(0, text_size - token.start_pos - 1);
}

// `source` are the token's bytes, `before` the text of the token in front.
void require_text(config_token const& token, std::string const& source, std::string const& before,
                  std::size_t text_size) {
    switch (token.type) {
    case config_token::T_SPACE:
        require(token.text == before && is_run(source, is_blank));
        break;
    case config_token::T_NEWLINE:
        require(token.text == "\n" && (source == "\n" || source == "\r\n"));
        break;
    case config_token::T_STRING: {
        std::string const start = string_source(token, text_size);
        require(source == start || source == start + '"');
        require(token.end_pos == token.start_pos + token.text.size() + 2);
        break;
    }
    case config_token::T_NUM:
        require(token.text == source && is_run(source, is_digit));
        break;
    case config_token::T_VAR:
        require(token.text == source && is_run(source, is_letter));
        break;
    default:
        require(token.text == source && !source.empty() && source.size() <= 2);
    }
}

void require_tokens(ustring8 const& text) {
    unsigned int position = 0;
    config_token token;
    while (position < text.size()) {
        config_token const before = token;
        unsigned int const start = position;
        config_token::tok_types const answer = fuzzed_item::get_token(text, position, token);
        require(answer == (token.type == config_token::T_TIMESDIV ? config_token::T_FSFS : token.type));
        require(answer != config_token::T_END && answer != config_token::T_DIVTIMES);
        require(token.start_pos == start && token.end_pos == position && position > start);
        require_text(token, text.substr(start, position - start), before.text, text.size());

        // Runs are as long as they can be.
        bool const is_run_token = token.type == config_token::T_NUM || token.type == config_token::T_VAR ||
                                  token.type == config_token::T_SPACE;
        require(!is_run_token || start == 0 || before.type != token.type);

        config_token alone;
        unsigned int again = start;
        require(fuzzed_item::get_token(text, again, alone) == answer && again == position);
        require(alone.type == token.type &&
                (token.type == config_token::T_SPACE ? alone.text.empty() : alone.text == token.text));
    }
    require(position <= text.size() + 2);
    config_token const last = token;
    unsigned int const end = position;
    require(fuzzed_item::get_token(text, position, token) == config_token::T_END);
    require(position == end && token.type == config_token::T_END && token.text == last.text);
}

void require_set(ustring8 const& text) {
    fuzzed_item item;
    auto const [key, value] = item.make_key_value(text, config_token::T_EQ);
    require(key.size() + value.as_utf8().size() <= text.size() + 1);
    item.set(text, 0);
    auto const* const entry = item.get_value(key);
    require(entry != nullptr && entry->first == 1 && entry->second.as_utf8() == value.as_utf8());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    ustring8 const text = text_of_bytes<ustring8>(data, size);
    require_tokens(text);
    require_set(text);
    return 0;
}
