#include "parser/xml_stream_buffer.hpp"

#include <algorithm>
#include <istream>
#include <memory>
#include <utility>

#include "platform/file_stream.hpp"

namespace VELDRIN_2_18::parser::_private {

namespace {

// Negative if the stream has none.
std::int64_t length_of(std::istream& file) {
    file.seekg(0, std::ios_base::end);
    return static_cast<std::streamoff>(file.tellg());
}

} // namespace

xml_stream_buffer::xml_stream_buffer(platform::path file)
    : m_file(std::move(file)), m_chunk(capacity, '\0') {}

bool xml_stream_buffer::can_open_file() const { return platform::open_for_reading(m_file) != nullptr; }

std::int64_t xml_stream_buffer::file_length() const {
    std::unique_ptr<std::istream> const file = platform::open_for_reading(m_file);
    return file == nullptr ? 0 : std::max<std::int64_t>(length_of(*file), 0);
}

std::optional<std::size_t> xml_stream_buffer::load() {
    std::unique_ptr<std::istream> const file = platform::open_for_reading(m_file);
    if (file == nullptr) {
        return std::nullopt;
    }
    std::int64_t const grown = length_of(*file) - m_end_offset;
    if (grown <= 0) {
        return 0;
    }
    make_room(grown);
    auto const room = static_cast<std::int64_t>(capacity - m_end);
    file->seekg(m_end_offset);
    file->read(m_chunk.data() + m_end, std::min(grown, room));
    std::streamsize const added = file->gcount();
    m_end += static_cast<std::size_t>(added);
    m_end_offset += added;
    return static_cast<std::size_t>(added);
}

void xml_stream_buffer::make_room(std::int64_t size) {
    back_to_mark();
    if (m_mark.index == 0 || static_cast<std::int64_t>(capacity - m_end) >= size) {
        return;
    }
    std::copy(m_chunk.begin() + static_cast<std::ptrdiff_t>(m_mark.index),
              m_chunk.begin() + static_cast<std::ptrdiff_t>(m_end), m_chunk.begin());
    m_end -= m_mark.index;
    m_mark.index = 0;
    m_position.index = 0;
}

void xml_stream_buffer::step() {
    if (byte() == '\n') {
        ++m_position.line;
    }
    advance();
}

std::int64_t xml_stream_buffer::mark_offset() const {
    return m_end_offset - static_cast<std::int64_t>(m_end - m_mark.index);
}

} // namespace VELDRIN_2_18::parser::_private
