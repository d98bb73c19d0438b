// Digests of what a pair of conversion functions answers for one code page, over inputs that are the same
// everywhere. The probe takes them of the Windows functions, the tests of `strings::code_page`.

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iomanip>
#include <ostream>
#include <random>
#include <string>

namespace code_page_tools {

// 64-bit FNV-1a over texts, each closed by a zero byte.
class digest {
public:
    template <class Text>
    void add(Text const& text) {
        for (auto const unit : text) {
            auto const value = static_cast<std::uint16_t>(unit);
            if constexpr (sizeof(unit) == 2) {
                add_byte(static_cast<unsigned char>(value >> 8));
            }
            add_byte(static_cast<unsigned char>(value & 0xFF));
        }
        add_byte(0);
    }

    std::uint64_t value() const { return m_value; }

private:
    void add_byte(unsigned char byte) { m_value = (m_value ^ byte) * 0x100000001B3; }

    std::uint64_t m_value = 0xCBF29CE484222325;
};

template <class Unit>
struct converter {
    std::function<std::string(std::basic_string<Unit> const&)> encode;
    std::function<std::basic_string<Unit>(std::string const&)> decode;
};

// Every unit as a text of its own, zero included, which makes an empty text.
template <class Unit>
std::uint64_t digest_of_units(converter<Unit> const& convert) {
    digest result;
    for (std::size_t unit = 0; unit <= 0xFFFF; ++unit) {
        result.add(convert.encode({static_cast<Unit>(unit)}));
    }
    return result.value();
}

// Every pair of bytes as a text of its own. A zero byte ends the text, so single bytes are among them.
template <class Unit>
std::uint64_t digest_of_byte_pairs(converter<Unit> const& convert) {
    digest result;
    for (std::size_t pair = 0; pair <= 0xFFFF; ++pair) {
        result.add(convert.decode({static_cast<char>(pair >> 8), static_cast<char>(pair & 0xFF)}));
    }
    return result.value();
}

// Surrogate pairs: every first half with 16 second halves, all those in one text.
template <class Unit>
std::uint64_t digest_of_surrogate_pairs(converter<Unit> const& convert) {
    digest result;
    for (std::size_t high = 0xD800; high <= 0xDBFF; ++high) {
        std::basic_string<Unit> text;
        for (std::size_t low = 0xDC00; low <= 0xDFFF; low += 0x40) {
            text += static_cast<Unit>(high);
            text += static_cast<Unit>(low);
        }
        result.add(convert.encode(text));
    }
    return result.value();
}

// Texts of 0 to 255 random bytes, most of them from the upper half, where the lead bytes are.
template <class Unit>
std::uint64_t digest_of_random_bytes(converter<Unit> const& convert) {
    digest result;
    std::minstd_rand random;
    for (std::size_t length = 0; length <= 0xFF; ++length) {
        std::string bytes;
        while (bytes.size() < length) {
            auto const drawn = random() >> 8;
            bytes += static_cast<char>(drawn % 4 == 0 ? 1 + drawn / 4 % 0xFF : 0x80 + drawn / 4 % 0x80);
        }
        result.add(convert.decode(bytes));
    }
    return result.value();
}

// One line: the code page's number and the four digests.
template <class Unit>
void write_digests(std::ostream& output, int code_page, converter<Unit> const& convert) {
    output << std::dec << code_page << std::hex << std::setfill('0');
    for (std::uint64_t const value : {digest_of_units(convert), digest_of_byte_pairs(convert),
                                      digest_of_surrogate_pairs(convert), digest_of_random_bytes(convert)}) {
        output << ' ' << std::setw(16) << value;
    }
    output << '\n';
}

} // namespace code_page_tools
