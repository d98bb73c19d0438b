// File: veldrin/generic/convert/byte_order.hpp
//
// Numbers packed into a byte string and read back, in a stated order of bytes: `little_endian` has the least
// significant byte first, `big_endian` the most significant one, and the functions right in this namespace
// use the machine's own order, whichever that is. A byte string holds raw bytes; zeros are ordinary content.
//
//     big_endian::uint32_to_bin_str(0x01020304);               // the bytes 01 02 03 04
//     little_endian::uint32_to_bin_str(0x01020304);            // the bytes 04 03 02 01
//     big_endian::bin_str_to_int16(std::string("\xff\xfe"));   // -2

#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::generic::convert {

namespace _private {

enum class byte_order { of_the_machine, least_significant_first, most_significant_first };

// The unsigned integer with as many bytes as T.
template <class T>
using bits_of =
    std::conditional_t<sizeof(T) == 1, std::uint8_t,
                       std::conditional_t<sizeof(T) == 2, std::uint16_t,
                                          std::conditional_t<sizeof(T) == 4, std::uint32_t, std::uint64_t>>>;

// Values are moved as bits, so a NaN keeps its payload. Each member compiles to one load or store, with a
// swap where the machine's order is the other one.
template <byte_order order>
class byte_conversion {
public:
    template <class T>
    static T read(char const* bytes) {
        bits_of<T> const bits = read_bits<bits_of<T>>(bytes, std::make_index_sequence<sizeof(T)>());
        T value;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }

    // 0 where there are fewer bytes than `guard`; those that lack beyond it read as zeros.
    template <class T, std::size_t guard = sizeof(T)>
    static T read(std::string_view bytes) {
        if (bytes.size() < guard) {
            return 0;
        }
        if (bytes.size() >= sizeof(T)) {
            return read<T>(bytes.data());
        }
        char padded[sizeof(T)] = {};
        bytes.copy(padded, sizeof padded);
        return read<T>(padded);
    }

    template <class T>
    static std::string write(T const& value) {
        auto const bits = ordered(value);
        return std::string(reinterpret_cast<char const*>(&bits), sizeof bits);
    }

    template <class T>
    static void append(std::string& bytes, T const& value) {
        auto const bits = ordered(value);
        bytes.append(reinterpret_cast<char const*>(&bits), sizeof bits);
    }

private:
    // The value with its bytes in memory in this order. What swaps them on the way in swaps them back, so the
    // reading of an order makes it too.
    template <class T>
    static bits_of<T> ordered(T const& value) {
        return read<bits_of<T>>(reinterpret_cast<char const*>(&value));
    }

    // No loop: compilers see a single load in an expression, but not always in a loop.
    template <class Bits, std::size_t... indexes>
    static Bits read_bits(char const* bytes, std::index_sequence<indexes...>) {
        if constexpr (order == byte_order::of_the_machine) {
            Bits bits;
            std::memcpy(&bits, bytes, sizeof bits);
            return bits;
        } else {
            return static_cast<Bits>((shifted<sizeof(Bits), indexes>(bytes) | ...));
        }
    }

    template <std::size_t size, std::size_t index>
    static std::uint64_t shifted(char const* bytes) {
        std::uint64_t const byte = static_cast<unsigned char>(bytes[index]);
        return byte << 8 * (order == byte_order::least_significant_first ? index : size - 1 - index);
    }
};

using machine_order = byte_conversion<byte_order::of_the_machine>;
using little_endian_order = byte_conversion<byte_order::least_significant_first>;
using big_endian_order = byte_conversion<byte_order::most_significant_first>;

} // namespace _private

// `bin_str_to_X` of a pointer reads as many bytes as the value has, at any address; nothing tests that they
// are there. Of a string it reads the front and ignores what follows; a string that is too short gives 0.
// Neither allocates. `X_to_bin_str` gives a string of exactly the size of the value. Every value comes back
// with the same bits, a NaN included.

// ---- The order of the machine ---------------------------------------------------------------------------
//
// Of the two real types the sizes tested for are exchanged, and only here: `bin_str_to_float` of a string
// gives 0 for fewer than 8 bytes, of which it reads 4; `bin_str_to_double` takes 4 bytes for enough, and
// those that lack of 8 read as zeros.

inline std::int16_t bin_str_to_int16(char const* bytes) {
    return _private::machine_order::read<std::int16_t>(bytes);
}
inline std::int16_t bin_str_to_int16(std::string const& bytes) {
    return _private::machine_order::read<std::int16_t>(bytes);
}
inline std::string int16_to_bin_str(std::int16_t const& value) {
    return _private::machine_order::write(value);
}

inline std::int32_t bin_str_to_int32(char const* bytes) {
    return _private::machine_order::read<std::int32_t>(bytes);
}
inline std::int32_t bin_str_to_int32(std::string const& bytes) {
    return _private::machine_order::read<std::int32_t>(bytes);
}
inline std::string int32_to_bin_str(std::int32_t const& value) {
    return _private::machine_order::write(value);
}

inline std::int64_t bin_str_to_int64(char const* bytes) {
    return _private::machine_order::read<std::int64_t>(bytes);
}
inline std::int64_t bin_str_to_int64(std::string const& bytes) {
    return _private::machine_order::read<std::int64_t>(bytes);
}
inline std::string int64_to_bin_str(std::int64_t const& value) {
    return _private::machine_order::write(value);
}

inline std::uint16_t bin_str_to_uint16(char const* bytes) {
    return _private::machine_order::read<std::uint16_t>(bytes);
}
inline std::uint16_t bin_str_to_uint16(std::string const& bytes) {
    return _private::machine_order::read<std::uint16_t>(bytes);
}
inline std::string uint16_to_bin_str(std::uint16_t const& value) {
    return _private::machine_order::write(value);
}

inline std::uint32_t bin_str_to_uint32(char const* bytes) {
    return _private::machine_order::read<std::uint32_t>(bytes);
}
inline std::uint32_t bin_str_to_uint32(std::string const& bytes) {
    return _private::machine_order::read<std::uint32_t>(bytes);
}
inline std::string uint32_to_bin_str(std::uint32_t const& value) {
    return _private::machine_order::write(value);
}

inline std::uint64_t bin_str_to_uint64(char const* bytes) {
    return _private::machine_order::read<std::uint64_t>(bytes);
}
inline std::uint64_t bin_str_to_uint64(std::string const& bytes) {
    return _private::machine_order::read<std::uint64_t>(bytes);
}
inline std::string uint64_to_bin_str(std::uint64_t const& value) {
    return _private::machine_order::write(value);
}

inline float bin_str_to_float(char const* bytes) { return _private::machine_order::read<float>(bytes); }
inline float bin_str_to_float(std::string const& bytes) {
    return _private::machine_order::read<float, 8>(bytes);
}
inline std::string float_to_bin_str(float const& value) { return _private::machine_order::write(value); }

inline double bin_str_to_double(char const* bytes) { return _private::machine_order::read<double>(bytes); }
inline double bin_str_to_double(std::string const& bytes) {
    return _private::machine_order::read<double, 4>(bytes);
}
inline std::string double_to_bin_str(double const& value) { return _private::machine_order::write(value); }

// ---- The least significant byte first --------------------------------------------------------------------

namespace little_endian {

inline std::int16_t bin_str_to_int16(char const* bytes) {
    return _private::little_endian_order::read<std::int16_t>(bytes);
}
inline std::int16_t bin_str_to_int16(std::string const& bytes) {
    return _private::little_endian_order::read<std::int16_t>(bytes);
}
inline std::string int16_to_bin_str(std::int16_t const& value) {
    return _private::little_endian_order::write(value);
}

inline std::int32_t bin_str_to_int32(char const* bytes) {
    return _private::little_endian_order::read<std::int32_t>(bytes);
}
inline std::int32_t bin_str_to_int32(std::string const& bytes) {
    return _private::little_endian_order::read<std::int32_t>(bytes);
}
inline std::string int32_to_bin_str(std::int32_t const& value) {
    return _private::little_endian_order::write(value);
}

inline std::int64_t bin_str_to_int64(char const* bytes) {
    return _private::little_endian_order::read<std::int64_t>(bytes);
}
inline std::int64_t bin_str_to_int64(std::string const& bytes) {
    return _private::little_endian_order::read<std::int64_t>(bytes);
}
inline std::string int64_to_bin_str(std::int64_t const& value) {
    return _private::little_endian_order::write(value);
}

inline std::uint16_t bin_str_to_uint16(char const* bytes) {
    return _private::little_endian_order::read<std::uint16_t>(bytes);
}
inline std::uint16_t bin_str_to_uint16(std::string const& bytes) {
    return _private::little_endian_order::read<std::uint16_t>(bytes);
}
inline std::string uint16_to_bin_str(std::uint16_t const& value) {
    return _private::little_endian_order::write(value);
}

inline std::uint32_t bin_str_to_uint32(char const* bytes) {
    return _private::little_endian_order::read<std::uint32_t>(bytes);
}
inline std::uint32_t bin_str_to_uint32(std::string const& bytes) {
    return _private::little_endian_order::read<std::uint32_t>(bytes);
}
inline std::string uint32_to_bin_str(std::uint32_t const& value) {
    return _private::little_endian_order::write(value);
}

inline std::uint64_t bin_str_to_uint64(char const* bytes) {
    return _private::little_endian_order::read<std::uint64_t>(bytes);
}
inline std::uint64_t bin_str_to_uint64(std::string const& bytes) {
    return _private::little_endian_order::read<std::uint64_t>(bytes);
}
inline std::string uint64_to_bin_str(std::uint64_t const& value) {
    return _private::little_endian_order::write(value);
}

inline float bin_str_to_float(char const* bytes) { return _private::little_endian_order::read<float>(bytes); }
inline float bin_str_to_float(std::string const& bytes) {
    return _private::little_endian_order::read<float>(bytes);
}
inline std::string float_to_bin_str(float const& value) {
    return _private::little_endian_order::write(value);
}

inline double bin_str_to_double(char const* bytes) {
    return _private::little_endian_order::read<double>(bytes);
}
inline double bin_str_to_double(std::string const& bytes) {
    return _private::little_endian_order::read<double>(bytes);
}
inline std::string double_to_bin_str(double const& value) {
    return _private::little_endian_order::write(value);
}

} // namespace little_endian

// ---- The most significant byte first ---------------------------------------------------------------------

namespace big_endian {

inline std::int16_t bin_str_to_int16(char const* bytes) {
    return _private::big_endian_order::read<std::int16_t>(bytes);
}
inline std::int16_t bin_str_to_int16(std::string const& bytes) {
    return _private::big_endian_order::read<std::int16_t>(bytes);
}
inline std::string int16_to_bin_str(std::int16_t const& value) {
    return _private::big_endian_order::write(value);
}

inline std::int32_t bin_str_to_int32(char const* bytes) {
    return _private::big_endian_order::read<std::int32_t>(bytes);
}
inline std::int32_t bin_str_to_int32(std::string const& bytes) {
    return _private::big_endian_order::read<std::int32_t>(bytes);
}
inline std::string int32_to_bin_str(std::int32_t const& value) {
    return _private::big_endian_order::write(value);
}

inline std::int64_t bin_str_to_int64(char const* bytes) {
    return _private::big_endian_order::read<std::int64_t>(bytes);
}
inline std::int64_t bin_str_to_int64(std::string const& bytes) {
    return _private::big_endian_order::read<std::int64_t>(bytes);
}
inline std::string int64_to_bin_str(std::int64_t const& value) {
    return _private::big_endian_order::write(value);
}

inline std::uint16_t bin_str_to_uint16(char const* bytes) {
    return _private::big_endian_order::read<std::uint16_t>(bytes);
}
inline std::uint16_t bin_str_to_uint16(std::string const& bytes) {
    return _private::big_endian_order::read<std::uint16_t>(bytes);
}
inline std::string uint16_to_bin_str(std::uint16_t const& value) {
    return _private::big_endian_order::write(value);
}

inline std::uint32_t bin_str_to_uint32(char const* bytes) {
    return _private::big_endian_order::read<std::uint32_t>(bytes);
}
inline std::uint32_t bin_str_to_uint32(std::string const& bytes) {
    return _private::big_endian_order::read<std::uint32_t>(bytes);
}
inline std::string uint32_to_bin_str(std::uint32_t const& value) {
    return _private::big_endian_order::write(value);
}

inline std::uint64_t bin_str_to_uint64(char const* bytes) {
    return _private::big_endian_order::read<std::uint64_t>(bytes);
}
inline std::uint64_t bin_str_to_uint64(std::string const& bytes) {
    return _private::big_endian_order::read<std::uint64_t>(bytes);
}
inline std::string uint64_to_bin_str(std::uint64_t const& value) {
    return _private::big_endian_order::write(value);
}

inline float bin_str_to_float(char const* bytes) { return _private::big_endian_order::read<float>(bytes); }
inline float bin_str_to_float(std::string const& bytes) {
    return _private::big_endian_order::read<float>(bytes);
}
inline std::string float_to_bin_str(float const& value) { return _private::big_endian_order::write(value); }

inline double bin_str_to_double(char const* bytes) { return _private::big_endian_order::read<double>(bytes); }
inline double bin_str_to_double(std::string const& bytes) {
    return _private::big_endian_order::read<double>(bytes);
}
inline std::string double_to_bin_str(double const& value) { return _private::big_endian_order::write(value); }

} // namespace big_endian

} // namespace VELDRIN_2_18::generic::convert
