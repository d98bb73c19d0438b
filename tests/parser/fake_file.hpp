// One file that exists only here, in the place of the system's: tests change it between two reads as they
// like. For the one source of an `*_internal_test.cpp`.

#pragma once

#include <algorithm>
#include <cstddef>
#include <istream>
#include <memory>
#include <ostream>
#include <streambuf>
#include <string>

#include "platform/file_stream.hpp"

namespace support {

struct fake_file {
    std::string contents;
    bool can_be_opened = true;
    // What a reading of its length says more than there is.
    std::size_t length_ahead = 0;
    bool has_positions = true;

    int opened = 0;
    int closed = 0;
    std::size_t bytes_read = 0;
};

inline fake_file* the_file = nullptr;

// Reads from the file's own storage.
class fake_file_buffer : public std::streambuf {
public:
    fake_file_buffer() { ++the_file->opened; }
    fake_file_buffer(fake_file_buffer const&) = delete;
    fake_file_buffer& operator=(fake_file_buffer const&) = delete;
    ~fake_file_buffer() override { ++the_file->closed; }

protected:
    pos_type seekoff(off_type offset, std::ios_base::seekdir direction, std::ios_base::openmode) override {
        if (!the_file->has_positions) {
            return pos_type(off_type(-1));
        }
        auto const end = static_cast<off_type>(the_file->contents.size() + the_file->length_ahead);
        m_position = direction == std::ios_base::beg   ? offset
                     : direction == std::ios_base::end ? end + offset
                                                       : m_position + offset;
        return pos_type(m_position);
    }

    pos_type seekpos(pos_type position, std::ios_base::openmode which) override {
        return seekoff(off_type(position), std::ios_base::beg, which);
    }

    std::streamsize xsgetn(char* to, std::streamsize count) override {
        auto const size = static_cast<off_type>(the_file->contents.size());
        off_type const first = std::min(m_position, size);
        std::streamsize const there = std::min<std::streamsize>(size - first, count);
        std::copy_n(the_file->contents.data() + first, there, to);
        the_file->bytes_read += static_cast<std::size_t>(there);
        m_position += there;
        return there;
    }

private:
    off_type m_position = 0;
};

struct fake_file_stream : private fake_file_buffer, std::istream {
    fake_file_stream() : std::istream(static_cast<fake_file_buffer*>(this)) {}
};

} // namespace support

namespace VELDRIN_2_18::platform {

std::unique_ptr<std::istream> open_for_reading(path const&) {
    if (!support::the_file->can_be_opened) {
        return nullptr;
    }
    return std::make_unique<support::fake_file_stream>();
}

std::unique_ptr<std::ostream> open_for_writing(path const&) { return nullptr; }

} // namespace VELDRIN_2_18::platform
