#include "i18n/format_options.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <vector>

#include "veldrin/strings/split.hpp"

namespace VELDRIN_2_18::i18n::_private {

using strings::ustring8;

namespace {

constexpr int largest_field_size = 65535;

} // namespace

bool read_options(ustring8 const& options, std::initializer_list<option_key> const& keys) {
    std::vector<ustring8> const parts = strings::split_string(options, "\x01", 0);
    if (parts.size() % 2 != 0) {
        return false;
    }
    for (std::size_t index = 0; index < parts.size(); index += 2) {
        auto const key = std::find_if(keys.begin(), keys.end(), [&](option_key const& candidate) {
            return abbreviates(parts[index], candidate.word);
        });
        if (key == keys.end() || !key->set(parts[index + 1])) {
            return false;
        }
    }
    return true;
}

bool abbreviates(ustring8 const& text, std::string_view word) { return word.substr(0, text.size()) == text; }

bool read_count(ustring8 const& text, int& count) {
    long long const number = std::strtoll(text.c_str(), nullptr, 10);
    if (number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max()) {
        return false;
    }
    count = std::max(static_cast<int>(number), 0);
    return true;
}

option_setter sets_count(int& count) {
    return [&count](ustring8 const& value) { return read_count(value, count); };
}

option_setter sets_field_size(int& size) {
    return [&size](ustring8 const& value) { return read_count(value, size) && size <= largest_field_size; };
}

option_setter sets_flag(bool& flag) {
    return [&flag](ustring8 const& value) {
        flag = abbreviates(value, "true");
        return flag || abbreviates(value, "false");
    };
}

option_setter sets_text(ustring8& text) {
    return [&text](ustring8 const& value) {
        text = value;
        return true;
    };
}

} // namespace VELDRIN_2_18::i18n::_private
