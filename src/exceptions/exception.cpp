#include "veldrin/exceptions/exception.hpp"

#include <cstddef>
#include <cstring>

namespace VELDRIN_2_18::exceptions {

namespace {

template <std::size_t Size>
void copy_text(char (&field)[Size], char const* text) {
    std::size_t const length = text == nullptr ? 0 : strnlen(text, Size - 1);
    if (length != 0) {
        std::memcpy(field, text, length);
    }
    field[length] = '\0';
}

} // namespace

// The fields are not filled: only what the texts need is written.
exception::state::state(unsigned int line, char const* file, char const* function) : m_line(line) {
    copy_text(m_file, file);
    copy_text(m_function, function);
}

exception::state::state(state const& other) : state(other.m_line, other.m_file, other.m_function) {}

exception::state& exception::state::operator=(state const& other) {
    m_line = other.m_line;
    std::memmove(m_file, other.m_file, sizeof m_file);
    std::memmove(m_function, other.m_function, sizeof m_function);
    return *this;
}

exception::exception(unsigned int line, char const* file, char const* function)
    : m_state(line, file, function) {}

exception::exception(state const& error_state) : m_state(error_state) {}

exception::~exception() = default;

} // namespace VELDRIN_2_18::exceptions
