// The option form that the five formatters share: pairs of key and value, separated by the byte 0x01.

#pragma once

#include <functional>
#include <initializer_list>
#include <string_view>

#include "veldrin/namespace.hpp"
#include "veldrin/strings/ustring.hpp"

namespace VELDRIN_2_18::i18n::_private {

// What a formatter returns for bad input.
inline constexpr char const* failure_text = "-0";

// Takes the value of an option; false if it is a bad one.
using option_setter = std::function<bool(strings::ustring8 const& value)>;

struct option_key {
    std::string_view word;
    option_setter set;
};

// Hands each value in turn to the setter of the first key that its option abbreviates. False at the first
// unknown key or bad value, and for a text in which the last key has no value.
bool read_options(strings::ustring8 const& options, std::initializer_list<option_key> const& keys);

// True if the text is a beginning of the word, as the empty text is of every word.
bool abbreviates(strings::ustring8 const& text, std::string_view word);

// False if the text holds a number beyond `int`. A text without a number, or with a negative one, gives 0.
bool read_count(strings::ustring8 const& text, int& count);

// Setters: a count as above, a field size (a count of up to 65535), "true" or "false", a text as it is.
option_setter sets_count(int& count);
option_setter sets_field_size(int& size);
option_setter sets_flag(bool& flag);
option_setter sets_text(strings::ustring8& text);

} // namespace VELDRIN_2_18::i18n::_private
