// File: veldrin/serialization/cursor_buffer.hpp
//
// What the two forms of a serialize buffer share: the bytes and the cursor. Callers use
// veldrin/serialization/serialize_binary_buf.hpp and serialize_text_buf.hpp.

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "veldrin/export.hpp"
#include "veldrin/generic/abilities/make_dynamic.hpp"
#include "veldrin/namespace.hpp"
#include "veldrin/serialization/serialize_buffer.hpp"

namespace VELDRIN_2_18::serialization::_private {

class VELDRIN_EXPORT cursor_buffer : public serialize_buffer {
public:
    ~cursor_buffer() override;

    serialize_buffer& assign(char const* bytes, int size) override;
    serialize_buffer& assign(std::string const& bytes) override;
    serialize_buffer& assign(serialize_buffer const& other) override;

    std::string const& as_str() const override;

    bool at_end() const override;
    void reset_read() const override;

protected:
    // The cursor's value where nothing is found any more. It counts as the end.
    static constexpr std::uint64_t no_position = UINT64_MAX;

    cursor_buffer();
    cursor_buffer(serialize_buffer const& other);
    cursor_buffer(std::string const& bytes);

    // These take the cursor over too.
    cursor_buffer(cursor_buffer const& other);
    cursor_buffer& operator=(cursor_buffer const& other);

    // The bytes from the cursor on; none where the cursor is at or behind the end.
    std::string_view unread() const;

    // A new buffer of the form with these bytes, on the heap.
    template <class Form>
    static Form* make_form(std::string_view bytes) {
        std::unique_ptr<Form> buffer(generic::abilities::make_dynamic<Form>());
        buffer->m_data = bytes;
        return buffer.release();
    }

    std::string m_data;
    mutable std::uint64_t m_read_pos = 0;
};

} // namespace VELDRIN_2_18::serialization::_private
