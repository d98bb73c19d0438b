// The integer parsers against a plain model, over generated texts.

#include "veldrin/generic/convert/str_to_x.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

#include "generic/convert/integer_parsers.hpp"
#include "veldrin/exceptions/logic_error.hpp"
#include "veldrin/exceptions/runtime_error.hpp"

namespace {

using namespace VELDRIN_2_18;

__extension__ typedef __int128 wide;

enum class failure { none, invalid_radix, overflow, underflow };

struct outcome {
    failure thrown;
    std::int64_t low_bits;

    bool operator==(outcome const&) const = default;
};

std::ostream& operator<<(std::ostream& stream, outcome const& value) {
    return stream << "failure " << static_cast<int>(value.thrown) << ", value " << value.low_bits;
}

outcome value_of(wide value) { return {failure::none, static_cast<std::int64_t>(value)}; }

struct kind {
    int width;
    bool is_signed;
    int unit_width;

    wide minimum() const { return is_signed ? -(wide{1} << (width - 1)) : 0; }
    wide maximum() const { return (wide{1} << (is_signed ? width - 1 : width)) - 1; }

    wide wrap(wide value) const {
        wide const modulus = wide{1} << width;
        wide const rest = (value % modulus + modulus) % modulus;
        return rest > maximum() ? rest - modulus : rest;
    }
};

// The value of a digit, or -1.
std::int64_t model_digit(std::int64_t unit, int radix, kind const& number) {
    std::int64_t letters = std::max(radix - 10, 0);
    if (number.unit_width == 16 && radix < 10) {
        letters = 65536 + radix - 10;
    }
    if (unit >= 48 && unit < 48 + std::min(radix, 10)) {
        return unit - 48;
    }
    if (unit >= 65 && unit < 65 + letters) {
        return unit - 55;
    }
    if (unit >= 97 && unit < 97 + letters) {
        return unit - 87;
    }
    return -1;
}

// `units` ends in a terminator, which the length does not count.
outcome model(std::vector<std::int64_t> const& units, std::uint64_t length, int radix, bool throw_on_range,
              kind const& number) {
    std::size_t i = 0;
    if (length == 0 && number.is_signed) {
        length = static_cast<std::uint64_t>(std::find(units.begin(), units.end(), 0) - units.begin());
    }
    auto const is_space = [](std::int64_t unit) { return unit == 32 || (unit >= 9 && unit <= 13); };
    while (is_space(units.at(i))) {
        if (++i >= length) {
            return value_of(0);
        }
    }
    bool const negative = units.at(i) == '-';
    if (negative || units.at(i) == '+') {
        if (++i >= length) {
            return value_of(0);
        }
    }
    if (radix < 0 && number.is_signed) {
        return value_of(0);
    }
    if (radix == 1 || radix > 36 || radix < 0) {
        return {failure::invalid_radix, 0};
    }
    if (radix == 0) {
        radix = 10;
        if (units.at(i) == '0' || units.at(i) == '\\') {
            if (++i >= length) {
                return value_of(0);
            }
            bool const hexadecimal = units.at(i) == 'x' || units.at(i) == 'X';
            bool const binary = units.at(i) == 'b' || units.at(i) == 'B';
            radix = hexadecimal ? 16 : binary ? 2 : 8;
            if ((hexadecimal || binary) && ++i >= length) {
                return value_of(0);
            }
        }
    }
    wide const limit = negative && number.is_signed ? -number.minimum() : number.maximum();
    wide value = 0;
    while (true) {
        std::int64_t const digit = model_digit(units.at(i), radix, number);
        if (digit < 0) {
            break;
        }
        if (value > limit / radix || (value == limit / radix && digit > limit % radix)) {
            if (throw_on_range) {
                return {negative ? failure::underflow : failure::overflow, 0};
            }
            return value_of(negative ? number.minimum() : number.maximum());
        }
        value = number.wrap(value * radix + digit);
        if (++i >= length) {
            break;
        }
    }
    if (number.is_signed) {
        return value_of(negative ? number.wrap(-value) : value);
    }
    if (negative && value != 0) {
        return throw_on_range ? outcome{failure::underflow, 0} : value_of(0);
    }
    return value_of(value);
}

template <class Result, class Unit>
outcome actual(support::integer_parser<Result, Unit> parse, Unit const* text, std::uint64_t length, int radix,
               bool throw_on_range) {
    try {
        return value_of(parse(text, length, static_cast<types::radix_t::base>(radix), throw_on_range));
    } catch (exceptions::invalid_argument_value const&) {
        return {failure::invalid_radix, 0};
    } catch (exceptions::overflow_error const&) {
        return {failure::overflow, 0};
    } catch (exceptions::underflow_error const&) {
        return {failure::underflow, 0};
    }
}

// A text in storage of exactly its size, as the parsers see it and as the model does. With a length that is
// the text's own there is no terminator, so that a read behind the text is a read outside the storage.
template <class Unit>
class sample {
public:
    explicit sample(std::vector<Unit> const& text) : m_bare(text), m_terminated(text) {
        m_bare.shrink_to_fit();
        m_terminated.push_back(Unit{});
        m_terminated.shrink_to_fit();
        m_units.assign(m_terminated.begin(), m_terminated.end());
    }

    // Compares for one length, 0 to the size of the text.
    template <class Overloads>
    bool agrees(Overloads const& overloads, std::uint64_t length, int radix, bool throw_on_range) const {
        using result_type = typename Overloads::result_type;
        kind const number{std::numeric_limits<std::make_unsigned_t<result_type>>::digits,
                          std::is_signed_v<result_type>, static_cast<int>(8 * sizeof(Unit))};
        auto const& storage = length != 0 && length == m_bare.size() ? m_bare : m_terminated;
        outcome const expected = model(m_units, length, radix, throw_on_range, number);
        outcome const given = actual<result_type, Unit>(overloads.template over<Unit>(), storage.data(),
                                                        length, radix, throw_on_range);
        if (given == expected) {
            return true;
        }
        ADD_FAILURE() << overloads.name << " of " << testing::PrintToString(m_units) << ", length " << length
                      << ", radix " << radix << ", throw_on_range " << throw_on_range << ": " << given
                      << " instead of " << expected;
        return false;
    }

    std::uint64_t size() const { return m_bare.size(); }

private:
    std::vector<Unit> m_bare;
    std::vector<Unit> m_terminated;
    std::vector<std::int64_t> m_units;
};

// What the grammar knows, its neighbours in the code table, and the ends of the unit's range.
template <class Unit>
std::vector<Unit> alphabet() {
    std::vector<Unit> units;
    for (char const unit : {' ', '\r', '-', '+', '/',  '0', '1', '7', '8', '9', ':', '@', 'A',
                            'B', 'X',  'Z', '[', '\\', '`', 'a', 'b', 'f', 'x', 'z', '{', '\0'}) {
        units.push_back(static_cast<Unit>(unit));
    }
    units.push_back(static_cast<Unit>(0x80));
    units.push_back(std::numeric_limits<Unit>::max());
    units.push_back(std::numeric_limits<Unit>::min());
    return units;
}

template <class Unit>
class integer_parsers : public testing::Test {};

using unit_types = testing::Types<char, strings::utf16_unit, strings::utf32_unit>;
TYPED_TEST_SUITE(integer_parsers, unit_types);

TYPED_TEST(integer_parsers, agree_on_every_text_of_up_to_two_units_in_every_radix) {
    auto const units = alphabet<TypeParam>();
    std::vector<std::vector<TypeParam>> texts{{}};
    for (auto const first : units) {
        texts.push_back({first});
        for (auto const second : units) {
            texts.push_back({first, second});
        }
    }
    for (auto const& text : texts) {
        sample<TypeParam> const candidate(text);
        support::for_each_integer_parser([&](auto const& overloads) {
            for (int radix = 0; radix <= 36; radix += radix == 0 ? 2 : 1) {
                for (std::uint64_t length = 0; length <= candidate.size(); ++length) {
                    ASSERT_TRUE(candidate.agrees(overloads, length, radix, false));
                }
            }
        });
    }
}

TYPED_TEST(integer_parsers, agree_on_every_text_of_three_units) {
    auto const units = alphabet<TypeParam>();
    for (auto const first : units) {
        for (auto const second : units) {
            for (auto const third : units) {
                sample<TypeParam> const candidate({first, second, third});
                support::for_each_integer_parser([&](auto const& overloads) {
                    for (int const radix : {0, 2, 8, 10, 11, 36}) {
                        ASSERT_TRUE(candidate.agrees(overloads, 3, radix, false));
                    }
                    ASSERT_TRUE(candidate.agrees(overloads, 0, 0, false));
                });
            }
        }
    }
}

TYPED_TEST(integer_parsers, agree_on_bad_radices) {
    using limits = std::numeric_limits<std::int32_t>;
    for (auto const first : alphabet<TypeParam>()) {
        for (auto const second : alphabet<TypeParam>()) {
            sample<TypeParam> const candidate({first, second});
            support::for_each_integer_parser([&](auto const& overloads) {
                for (int const radix : {1, 37, limits::max(), -1, -10, -65536, limits::min()}) {
                    ASSERT_TRUE(candidate.agrees(overloads, 2, radix, false));
                }
            });
        }
    }
}

// Digits of `value` in `radix`, most significant first, in the case asked for.
std::string digits_of(wide value, int radix, bool upper_case) {
    std::string digits;
    for (; value != 0; value /= radix) {
        int const digit = static_cast<int>(value % radix);
        int const zero_or_letter = digit < 10 ? '0' : (upper_case ? 'A' : 'a') - 10;
        digits.push_back(static_cast<char>(zero_or_letter + digit));
    }
    return {digits.rbegin(), digits.rend()};
}

TYPED_TEST(integer_parsers, agree_on_the_numbers_around_every_limit_and_what_follows_them) {
    support::for_each_integer_parser([](auto const& overloads) {
        constexpr int width = std::numeric_limits<
            std::make_unsigned_t<typename std::decay_t<decltype(overloads)>::result_type>>::digits;
        for (wide const limit : {wide{1} << (width - 1), wide{1} << width}) {
            for (int radix = 2; radix <= 36; ++radix) {
                for (int const offset : {-2, -1, 0, 1, 2}) {
                    for (std::string const sign : {"", "+", "-", " \t-"}) {
                        for (std::string const tail : {"", "0", "1", "10", "00000000", "?", " 1"}) {
                            std::string const text =
                                sign + digits_of(limit + offset, radix, offset > 0) + tail;
                            sample<TypeParam> const candidate({text.begin(), text.end()});
                            ASSERT_TRUE(candidate.agrees(overloads, candidate.size(), radix, false));
                            ASSERT_TRUE(candidate.agrees(overloads, 0, radix, false));
                        }
                        std::string const text = sign + digits_of(limit + offset, radix, false);
                        sample<TypeParam> const candidate({text.begin(), text.end()});
                        ASSERT_TRUE(candidate.agrees(overloads, candidate.size(), radix, true));
                    }
                }
            }
        }
    });
}

TYPED_TEST(integer_parsers, agree_on_long_random_texts) {
    std::mt19937 random(20180218);
    auto const units = alphabet<TypeParam>();
    std::string const digits = "0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
    for (int round = 0; round < 20000; ++round) {
        std::vector<TypeParam> text;
        for (auto count = random() % 3; count != 0; --count) {
            text.push_back(units[random() % units.size()]);
        }
        auto const reach = random() % digits.size() + 1;
        for (auto count = random() % 40; count != 0; --count) {
            bool const is_digit = random() % 16 != 0;
            text.push_back(is_digit ? static_cast<TypeParam>(digits[random() % reach])
                                    : static_cast<TypeParam>(random()));
        }
        sample<TypeParam> const candidate(text);
        support::for_each_integer_parser([&](auto const& overloads) {
            int const radix = static_cast<int>(random() % 37);
            ASSERT_TRUE(candidate.agrees(overloads, candidate.size(), radix, random() % 8 == 0));
            ASSERT_TRUE(candidate.agrees(overloads, random() % (candidate.size() + 1), radix, false));
        });
    }
}

TYPED_TEST(integer_parsers, agree_on_every_unit_of_up_to_16_bits_and_some_more_behind_a_digit) {
    // Of the 32-bit units, some whose low half is a digit are among them.
    constexpr unsigned int last = sizeof(TypeParam) == 1 ? 0xFF : sizeof(TypeParam) == 2 ? 0xFFFF : 0x100FF;
    for (unsigned int value = 0; value <= last; ++value) {
        sample<TypeParam> const candidate({TypeParam{'1'}, static_cast<TypeParam>(value)});
        support::for_each_integer_parser([&](auto const& overloads) {
            for (int const radix : {2, 8, 9, 10, 11, 16, 36}) {
                ASSERT_TRUE(candidate.agrees(overloads, 2, radix, false));
            }
        });
    }
}

} // namespace
