// The answers of the Windows conversion functions for one code page, and the compact text that keeps them.
//
// A line of the text is the name of one of the three maps, a key, and the values of this key and the ones
// behind it. All numbers are hexadecimal. "30*5" is five times the value 30, "30+5" is five values that count
// up from 30. Keys with the value 0 are left out.
//
//     byte 01 1+7f 20ac        the bytes 01 to 7F mean U+0001 to U+007F, the byte 80 means U+20AC

#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace code_page_tools {

inline constexpr int code_pages[] = {932,   936,   949,   950,   1250,  1251,  1252,  1253,  1254,
                                     1255,  1256,  1257,  1258,  20866, 21866, 28591, 28592, 28593,
                                     28594, 28595, 28596, 28597, 28598, 28599, 28605};

using map = std::vector<std::uint32_t>;

struct answers {
    // The unit of each byte that stands alone.
    map byte = map(0x100);

    // The unit of each pair that is read as one character, 0x100 * lead + trail. A lead byte has all its 255
    // pairs.
    map pair = map(0x10000);

    // The bytes of each unit, 0x100 * lead + trail or one byte.
    map unit = map(0x10000);

    bool is_lead(std::size_t value) const { return pair[0x100 * value + 1] != 0; }
};

// The longest run at `key` of equal values, or of values that count up by `step` of 1.
inline std::size_t run_length(map const& values, std::size_t key, std::size_t step) {
    std::size_t length = 1;
    while (key + length < values.size() && values[key + length] == values[key] + step * length) {
        ++length;
    }
    return length;
}

// One value or run at `key` as text, and the number of keys that it covers.
inline std::pair<std::string, std::size_t> run_text(map const& values, std::size_t key) {
    std::size_t const equal = run_length(values, key, 0);
    std::size_t const counting = run_length(values, key, 1);
    std::ostringstream text;
    text << std::hex << values[key];
    if (equal > 1) {
        text << '*' << equal;
    } else if (counting > 1) {
        text << '+' << counting;
    }
    return {text.str(), equal > 1 ? equal : counting};
}

inline void write_map(std::ostream& output, std::string const& name, map const& values) {
    constexpr std::size_t line_limit = 110;
    std::string line;
    auto const end_line = [&] {
        if (!line.empty()) {
            output << line << '\n';
            line.clear();
        }
    };
    for (std::size_t key = 0; key < values.size();) {
        if (values[key] == 0) {
            end_line();
            ++key;
            continue;
        }
        auto const [text, length] = run_text(values, key);
        if (line.size() + 1 + text.size() > line_limit) {
            end_line();
        }
        if (line.empty()) {
            std::ostringstream start;
            start << name << ' ' << std::hex << key;
            line = start.str();
        }
        line += ' ' + text;
        key += length;
    }
    end_line();
}

// Writes the value or run `text` from `key` on, and returns the key behind it.
inline std::size_t read_run(map& values, std::size_t key, std::string const& text) {
    std::size_t sign = 0;
    std::size_t value = std::stoul(text, &sign, 16);
    std::size_t const length = sign == text.size() ? 1 : std::stoul(text.substr(sign + 1), nullptr, 16);
    std::size_t const step = sign != text.size() && text[sign] == '+' ? 1 : 0;
    for (std::size_t count = 0; count < length; ++count, value += step) {
        values.at(key++) = static_cast<std::uint32_t>(value);
    }
    return key;
}

inline void write_answers(std::ostream& output, answers const& given) {
    write_map(output, "byte", given.byte);
    write_map(output, "pair", given.pair);
    write_map(output, "unit", given.unit);
}

inline answers read_answers(std::istream& input) {
    answers result;
    for (std::string line; std::getline(input, line);) {
        std::istringstream words(line);
        std::string name;
        std::string word;
        words >> name >> word;
        if (name != "byte" && name != "pair" && name != "unit") {
            throw std::runtime_error("not a line of answers: " + line);
        }
        map& values = name == "byte" ? result.byte : name == "pair" ? result.pair : result.unit;
        std::size_t key = std::stoul(word, nullptr, 16);
        while (words >> word) {
            key = read_run(values, key, word);
        }
    }
    return result;
}

} // namespace code_page_tools
