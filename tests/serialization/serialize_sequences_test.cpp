// Sequences of values in both forms: generated ones read back as they were written, and a committed one has
// the bytes of its file, so that what is stored today is read for good.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <functional>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "support/files.hpp"
#include "veldrin/serialization.hpp"

namespace {

using namespace VELDRIN_2_18;
using namespace std::string_literals;
using serialization::serialize_binary_buf;
using serialization::serialize_buffer;
using serialization::serialize_text_buf;

// One value, as far as a sequence goes.
struct item {
    std::function<void(serialize_buffer&)> append;
    std::function<void(serialize_buffer const&)> expect_to_read;
};

using sequence = std::vector<item>;

void append(serialize_buffer& buffer, sequence const& items) {
    for (item const& each : items) {
        each.append(buffer);
    }
}

void expect_to_read(serialize_buffer const& buffer, sequence const& items) {
    for (std::size_t index = 0; index < items.size(); ++index) {
        SCOPED_TRACE(index);
        EXPECT_FALSE(buffer.at_end());
        items[index].expect_to_read(buffer);
    }
    EXPECT_TRUE(buffer.at_end());
}

template <class T>
item integer(T value, void (serialize_buffer::*append)(T const&), T (serialize_buffer::*read)() const) {
    return {[=](serialize_buffer& buffer) { (buffer.*append)(value); },
            [=](serialize_buffer const& buffer) { EXPECT_EQ((buffer.*read)(), value); }};
}

using interface = serialize_buffer;

item int8(signed char value) { return integer(value, &interface::append_int8, &interface::read_int8); }
item int16(short value) { return integer(value, &interface::append_int16, &interface::read_int16); }
item int32(std::int32_t value) { return integer(value, &interface::append_int32, &interface::read_int32); }
item int64(std::int64_t value) { return integer(value, &interface::append_int64, &interface::read_int64); }
item uint8(unsigned char value) { return integer(value, &interface::append_uint8, &interface::read_uint8); }
item uint16(unsigned short value) {
    return integer(value, &interface::append_uint16, &interface::read_uint16);
}
item uint32(std::uint32_t value) {
    return integer(value, &interface::append_uint32, &interface::read_uint32);
}
item uint64(std::uint64_t value) {
    return integer(value, &interface::append_uint64, &interface::read_uint64);
}

// With all digits, so that the text form keeps the value too.
item real(float value) {
    return {[=](serialize_buffer& buffer) { buffer.append_float(value, 9); },
            [=](serialize_buffer const& buffer) { EXPECT_EQ(buffer.read_float(), value); }};
}

item real(double value) {
    return {[=](serialize_buffer& buffer) { buffer.append_double(value, 17); },
            [=](serialize_buffer const& buffer) { EXPECT_EQ(buffer.read_double(), value); }};
}

item text(std::string const& value) {
    return {[=](serialize_buffer& buffer) { buffer.append_string(value); },
            [=](serialize_buffer const& buffer) { EXPECT_EQ(buffer.read_string(), value); }};
}

item nested(sequence const& items) {
    return {[=](serialize_buffer& buffer) {
                std::unique_ptr<serialize_buffer> const inner(buffer.create());
                append(*inner, items);
                buffer.append_buffer(*inner);
            },
            [=](serialize_buffer const& buffer) {
                std::unique_ptr<serialize_buffer const> const inner(buffer.read_buffer());
                ASSERT_NE(inner, nullptr);
                expect_to_read(*inner, items);
            }};
}

// ---- Generated sequences ----

class generator {
public:
    explicit generator(std::uint64_t seed) : m_random(seed) {}

    // The last item has bytes: a nested buffer without any that stands last is none in the binary form.
    sequence items(int depth) {
        sequence result;
        for (auto count = below(12); count > 0; --count) {
            result.push_back(any_item(depth));
        }
        result.push_back(uint8(static_cast<unsigned char>(bits())));
        return result;
    }

private:
    std::uint64_t below(std::uint64_t bound) { return m_random() % bound; }

    // Small and large magnitudes alike.
    std::uint64_t bits() { return m_random() >> below(64); }

    template <class Real, class Bits>
    Real finite() {
        Bits const pattern = static_cast<Bits>(m_random());
        Real value;
        std::memcpy(&value, &pattern, sizeof value);
        return std::isfinite(value) ? value : Real{0};
    }

    std::string any_text() {
        std::string result(below(4) == 0 ? below(600) : below(6), '\0');
        for (char& byte : result) {
            byte = static_cast<char>(below(2) == 0 ? below(4) : below(256));
        }
        return result;
    }

    item any_item(int depth) {
        switch (below(depth == 0 ? 11 : 12)) {
        case 0:
            return int8(static_cast<signed char>(bits()));
        case 1:
            return int16(static_cast<short>(bits()));
        case 2:
            return int32(static_cast<std::int32_t>(bits()));
        case 3:
            return int64(static_cast<std::int64_t>(0 - bits()));
        case 4:
            return uint8(static_cast<unsigned char>(bits()));
        case 5:
            return uint16(static_cast<unsigned short>(bits()));
        case 6:
            return uint32(static_cast<std::uint32_t>(bits()));
        case 7:
            return uint64(bits());
        case 8:
            return real(finite<float, std::uint32_t>());
        case 9:
            return real(finite<double, std::uint64_t>());
        case 10:
            return text(any_text());
        default:
            return nested(below(4) == 0 ? sequence() : items(depth - 1));
        }
    }

    std::mt19937_64 m_random;
};

// The bytes go through another buffer, and through a clone in the middle of the reading.
template <class Form>
void expect_round_trip(sequence const& items) {
    Form written;
    append(written, items);
    expect_to_read(written, items);

    Form const stored(written.as_str());
    sequence const front(items.begin(), items.begin() + static_cast<std::ptrdiff_t>(items.size() / 2));
    for (item const& each : front) {
        each.expect_to_read(stored);
    }
    std::unique_ptr<serialize_buffer const> const clone(stored.clone());
    expect_to_read(*clone, sequence(items.begin() + static_cast<std::ptrdiff_t>(front.size()), items.end()));
}

TEST(serialize_sequences, read_back_as_they_were_written) {
    for (std::uint64_t seed = 0; seed < 2000; ++seed) {
        SCOPED_TRACE(seed);
        sequence const items = generator(seed).items(3);
        expect_round_trip<serialize_binary_buf>(items);
        expect_round_trip<serialize_text_buf>(items);
        ASSERT_FALSE(testing::Test::HasFailure());
    }
}

// ---- The committed sequence ----

sequence committed_items() {
    using reals = std::numeric_limits<float>;
    using long_reals = std::numeric_limits<double>;
    sequence const inner = {int32(7), text("in"), nested({real(0.25)})};
    return {int8(0),
            int8(-1),
            int8(INT8_MIN),
            int8(INT8_MAX),
            int16(258),
            int16(INT16_MIN),
            int16(INT16_MAX),
            int32(-5),
            int32(INT32_MIN),
            int32(INT32_MAX),
            int64(1000000007),
            int64(INT64_MIN),
            int64(INT64_MAX),
            uint8(UINT8_MAX),
            uint16(UINT16_MAX),
            uint32(UINT32_MAX),
            uint64(UINT64_MAX),
            real(1.0F),
            real(0.1F),
            real(reals::max()),
            real(-reals::denorm_min()),
            real(0.5),
            real(-0.1),
            real(1e6),
            real(1e300),
            real(long_reals::max()),
            real(long_reals::min()),
            text(""),
            text("ab"),
            text("blank, comma\r\n\0\x01\xff"s),
            text(std::string(300, 'x')),
            nested({}),
            nested(inner),
            int32(42)};
}

template <class Form>
void expect_bytes_of_file(char const* name) {
    std::string const committed =
        support::bytes_of(support::joined(VELDRIN_TEST_DATA, "serialization", name));
    ASSERT_FALSE(committed.empty());
    Form written;
    append(written, committed_items());
    EXPECT_EQ(written.as_str(), committed);
    expect_to_read(Form(committed), committed_items());
}

TEST(serialize_sequences, keep_their_bytes_in_the_binary_form) {
    expect_bytes_of_file<serialize_binary_buf>("sequence.bin");
}

TEST(serialize_sequences, keep_their_bytes_in_the_text_form) {
    expect_bytes_of_file<serialize_text_buf>("sequence.txt");
}

} // namespace
