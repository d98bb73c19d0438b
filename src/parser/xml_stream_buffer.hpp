// What an `xml_stream_parser` reads from: a chunk of a file, a position in it, and a mark that the position
// can go back to. Data behind the mark stays until it has been read; what lies in front of it makes room.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/path.hpp"
#include "veldrin/strings/ustring.hpp"

namespace VELDRIN_2_18::parser::_private {

class xml_stream_buffer {
public:
    static constexpr std::size_t capacity = 65536;

    explicit xml_stream_buffer(platform::path file);

    bool can_open_file() const;

    // 0 if the file cannot be opened.
    std::int64_t file_length() const;

    // Reads what stands in the file behind the data, as far as there is room, and returns the number of
    // bytes; nothing if the file cannot be opened. A file that shrank has not grown. If data was read, the
    // position is at the mark.
    std::optional<std::size_t> load();

    std::string_view rest() const {
        return std::string_view(m_chunk).substr(m_position.index, m_end - m_position.index);
    }
    std::size_t left() const { return m_end - m_position.index; }
    bool at_end() const { return m_position.index == m_end; }

    // What stands behind the data reads as NUL.
    char byte(std::size_t ahead = 0) const {
        return ahead < left() ? m_chunk[m_position.index + ahead] : '\0';
    }

    // Without a look at the bytes, of which there must be that many.
    void advance(std::size_t count = 1) { m_position.index += count; }

    // Over one byte; a line feed raises the line.
    void step();

    void set_mark() { m_mark = m_position; }
    void back_to_mark() { m_position = m_mark; }

    // From the start of the file.
    std::int64_t mark_offset() const;

    // Of the position.
    std::uint32_t line() const { return m_position.line; }

private:
    struct place {
        std::size_t index = 0;
        std::uint32_t line = 1;
    };

    // Goes back to the mark, and moves the data behind it to the front if there is less room than `size`.
    void make_room(std::int64_t size);

    platform::path m_file;
    strings::ustring8 m_chunk;
    std::size_t m_end = 0;
    place m_position;
    place m_mark;
    // Where in the file the data ends.
    std::int64_t m_end_offset = 0;
};

} // namespace VELDRIN_2_18::parser::_private
