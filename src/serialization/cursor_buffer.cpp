#include "veldrin/serialization/cursor_buffer.hpp"

#include <algorithm>
#include <cstddef>

namespace VELDRIN_2_18::serialization::_private {

cursor_buffer::cursor_buffer() = default;

cursor_buffer::cursor_buffer(serialize_buffer const& other) : m_data(other.as_str()) {}

cursor_buffer::cursor_buffer(std::string const& bytes) : m_data(bytes) {}

cursor_buffer::cursor_buffer(cursor_buffer const& other) = default;

cursor_buffer& cursor_buffer::operator=(cursor_buffer const& other) {
    m_data = other.m_data;
    m_read_pos = other.m_read_pos;
    return *this;
}

cursor_buffer::~cursor_buffer() = default;

serialize_buffer& cursor_buffer::assign(char const* bytes, int size) {
    m_data.assign(bytes, static_cast<std::size_t>(std::max(size, 0)));
    return *this;
}

serialize_buffer& cursor_buffer::assign(std::string const& bytes) {
    m_data = bytes;
    return *this;
}

serialize_buffer& cursor_buffer::assign(serialize_buffer const& other) {
    m_data = other.as_str();
    return *this;
}

std::string const& cursor_buffer::as_str() const { return m_data; }

bool cursor_buffer::at_end() const { return m_read_pos >= m_data.size(); }

void cursor_buffer::reset_read() const { m_read_pos = 0; }

std::string_view cursor_buffer::unread() const {
    std::string_view const bytes = m_data;
    return bytes.substr(std::min<std::uint64_t>(m_read_pos, bytes.size()));
}

} // namespace VELDRIN_2_18::serialization::_private
