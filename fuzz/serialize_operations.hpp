// The driver of the targets that read a serialize buffer: the first byte of the input is the number of
// operations, each of the next bytes one of them, the rest the bytes of the buffer.

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "require.hpp"
#include "veldrin/serialization/serialize_buffer.hpp"

// A buffer with its cursor visible.
template <class Form>
struct open_buffer : Form {
    using Form::Form;
    using Form::m_read_pos;
};

template <class Form>
using operation = void (*)(open_buffer<Form>&);

template <class Form, std::size_t number_of_operations>
void run_operations(std::uint8_t const* data, std::size_t size,
                    operation<Form> const (&operations)[number_of_operations]) {
    if (size == 0) {
        return;
    }
    std::size_t const count = std::min<std::size_t>(*data++, --size);
    // The bytes have storage of their own size, so that a read behind them is one outside of it.
    open_buffer<Form> buffer(std::string(reinterpret_cast<char const*>(data + count), size - count));
    for (std::size_t index = 0; index < count; ++index) {
        operations[data[index] % number_of_operations](buffer);
    }
}

// Reading changes no bytes.
template <class Form, class Read>
auto unchanging(open_buffer<Form> const& buffer, Read read) {
    std::string const before = buffer.as_str();
    auto result = read(buffer);
    require(buffer.as_str() == before);
    return result;
}

// What does not read, in either form.
template <class Form>
void check_end(open_buffer<Form>& buffer) {
    require(buffer.at_end() == (buffer.m_read_pos >= buffer.as_str().size()));
}

template <class Form>
void reset(open_buffer<Form>& buffer) {
    buffer.reset_read();
    require(buffer.m_read_pos == 0);
}

template <class Form>
void assign_shorter_bytes(open_buffer<Form>& buffer) {
    std::uint64_t const position = buffer.m_read_pos;
    buffer.assign(buffer.as_str().substr(0, buffer.as_str().size() * 3 / 4));
    require(buffer.m_read_pos == position);
}

// What is appended reads back, from a buffer of its own and from one where it follows the others. The limit
// keeps the doubling in bounds.
template <class Form>
void append_to_itself(open_buffer<Form>& buffer) {
    std::string const before = buffer.as_str();
    if (before.size() > 10000) {
        return;
    }
    buffer.append_buffer(buffer);
    require(buffer.as_str().compare(0, before.size(), before) == 0);
    require(Form(buffer.as_str().substr(before.size())).read_string() == before);
}
