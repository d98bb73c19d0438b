// File: veldrin/serialization/labeled_text_buffer.hpp
//
// A dictionary in memory that is rendered as text. `01` is the byte of that value:
//
//     serialization::labeled_text_buffer buffer;
//     buffer.add_value("title", "Log");
//     buffer.create_group("size")->add_value("width", 640);
//     buffer.as_str();         // "5" 01 "size " 01 "14" 01 "5" 01 "width" 01 "3" 01 "640" 01 01
//                              // "5" 01 "title" 01 "3" 01 "Log" 01
//     serialization::labeled_text_buffer copy(buffer.as_str());
//     copy.retrieve_group("size")->retrieve_value("width").type();     // std::string: types are not kept

#pragma once

#include <map>
#include <memory>
#include <string>

#include "veldrin/export.hpp"
#include "veldrin/namespace.hpp"
#include "veldrin/serialization/labeled_serialize_buffer.hpp"
#include "veldrin/serialization/serialize_text_buf.hpp"
#include "veldrin/types/variant.hpp"

namespace VELDRIN_2_18::serialization {

// A rendering is a sequence of strings as `serialize_text_buf` writes them, in byte order of the labels:
//
// | member                             | strings                                                  |
// |------------------------------------|----------------------------------------------------------|
// | a label with a value or nothing    | the label; its value as `types::variant::as_string`      |
// | a label with a group with members  | the label and a blank, the group mark; the group's text  |
// | both                               | both pairs, the value's first                            |
//
// It reads back as the same labels and nesting, with each value as a `std::string`; a nil value of a label
// without members in its group reads back as an empty text.
//
// Reading ends at an empty label. So a buffer with a value under the empty label, which is rendered first,
// reads back empty, whatever else it held. It also ends behind a label with nothing behind it, which gets an
// empty text or group, behind a string of negative length, which takes all that is left, and at a string that
// makes no sense. Groups nested more than 1000 deep read as empty; in memory they may nest as deep as the
// stack carries.
class VELDRIN_EXPORT labeled_text_buffer : public labeled_serialize_buffer {
public:
    // Empty.
    labeled_text_buffer();

    // What `assign` makes of the text.
    labeled_text_buffer(std::string const& text);

    // Copies are deep and keep the types of the values. Either side of an assignment may be a group of the
    // other; an assignment to itself does nothing.
    labeled_text_buffer(labeled_text_buffer const& other);
    labeled_text_buffer& operator=(labeled_text_buffer const& other) { return assign(other); }
    using labeled_serialize_buffer::operator=;

    ~labeled_text_buffer() override;

    labeled_serialize_buffer& assign(char const* data, int size) override;
    labeled_serialize_buffer& assign(std::string const& text) override;
    labeled_serialize_buffer& assign(labeled_serialize_buffer const& other) override;

    std::string const& as_str() const override;

    result_type add_value(std::string const& label, types::variant const& value) override;
    labeled_serialize_buffer* create_group(std::string const& label) override;

    bool has_label(std::string const& label) const override;
    bool has_value(std::string const& label) const override;
    bool has_group(std::string const& label) const override;
    bool is_empty() const override;

    types::variant retrieve_value(std::string const& label) override;
    labeled_serialize_buffer* retrieve_group(std::string const& label) override;
    labeled_serialize_buffer const* retrieve_group(std::string const& label) const override;

    labeled_serialize_buffer* create() const override;
    labeled_serialize_buffer* clone() const override;

    virtual labeled_text_buffer& assign(labeled_text_buffer const& other);

    // Merges the other buffer, which may be a group of this one, into this one. A label that is only there is
    // copied. One that is in both takes the other's value, unless that is nil and the other's group has
    // members; and the members of the other's group are merged into its group. So a nil value overwrites
    // where there is no group to merge.
    void overlay(labeled_text_buffer const& other);

private:
    struct entry;

    entry* find(std::string const& label) const;
    entry& entry_for(std::string const& label);
    labeled_text_buffer& emptied_group(std::string const& label);
    void render(serialize_text_buf& text) const;
    void read(std::string text, int depth);
    std::map<labeled_text_buffer*, std::string> read_members(std::string text);
    void merge(labeled_text_buffer& other);

    mutable serialize_text_buf m_text;
    std::map<std::string, std::unique_ptr<entry>> m_entries;
};

} // namespace VELDRIN_2_18::serialization
