// File: veldrin/serialization/labeled_serialize_buffer.hpp
//
// A dictionary: labels, each with a value, a group (a nested dictionary), or both. Where a `serialize_buffer`
// is read in the order in which it was written, members here are asked for by name. This is the interface;
// `labeled_text_buffer` is the form there is.
//
//     void write(serialization::labeled_serialize_buffer& buffer) {
//         buffer.add_value("title", "Log");
//         buffer.create_group("size")->add_value("width", 640);
//     }
//
//     serialization::labeled_text_buffer buffer;
//     write(buffer);
//     buffer.retrieve_value("title").as_string();                           // "Log"
//     buffer.retrieve_group("size")->retrieve_value("width").as_int();      // 640
//     buffer.has_label("position");                                         // false

#pragma once

#include <string>

#include "veldrin/export.hpp"
#include "veldrin/generic/abilities/clone_ability.hpp"
#include "veldrin/generic/abilities/create_ability.hpp"
#include "veldrin/generic/abilities/reference_count_pointer_ability.hpp"
#include "veldrin/namespace.hpp"
#include "veldrin/types/variant.hpp"

namespace VELDRIN_2_18::serialization {

// `add_value` and `create_group` trim blanks, tabs, line feeds and carriage returns off both ends of a label;
// all other operations take it as it stands. The order of the virtual operations is fixed.
class VELDRIN_EXPORT labeled_serialize_buffer
    : public generic::abilities::create_ability,
      public generic::abilities::clone_ability,
      public generic::abilities::reference_count_pointer_ability<labeled_serialize_buffer> {
public:
    enum result_type : int { value_added = 0, value_replaced = 1 };

    labeled_serialize_buffer();
    labeled_serialize_buffer(labeled_serialize_buffer const& other);
    ~labeled_serialize_buffer() override;

    // The same as `assign`.
    labeled_serialize_buffer& operator=(labeled_serialize_buffer const& other) { return assign(other); }
    labeled_serialize_buffer& operator=(std::string const& text) { return assign(text); }

    // Replace all members by those that the text renders; of another buffer the text is `as_str()`, so that
    // all its values become text. Malformed text is read as far as it makes sense. A negative `size` counts
    // as 0.
    virtual labeled_serialize_buffer& assign(char const* data, int size) = 0;
    virtual labeled_serialize_buffer& assign(std::string const& text) = 0;
    virtual labeled_serialize_buffer& assign(labeled_serialize_buffer const& other) = 0;

    // The text that `assign` reads. It is rendered at every call; the reference stands until the next. The
    // buffer keeps it, so no two threads may call this at once.
    virtual std::string const& as_str() const = 0;

    // Gives the label a value and leaves its group alone. `value_replaced` if it had one that was not nil.
    virtual result_type add_value(std::string const& label, types::variant const& value) = 0;

    // Gives the label an empty group, in place of the one it had, and leaves its value alone. The group
    // belongs to the buffer and stands as long as the label does.
    virtual labeled_serialize_buffer* create_group(std::string const& label) = 0;

    // Whether there is such a label; whether it has a value that is not nil; whether it has a group with
    // members.
    virtual bool has_label(std::string const& label) const = 0;
    virtual bool has_value(std::string const& label) const = 0;
    virtual bool has_group(std::string const& label) const = 0;

    // Whether there are no labels.
    virtual bool is_empty() const = 0;

    // The value, or nil if there is no such label.
    virtual types::variant retrieve_value(std::string const& label) = 0;

    // The group, or null if there is no such label. A label without a group has an empty one.
    virtual labeled_serialize_buffer* retrieve_group(std::string const& label) = 0;
    virtual labeled_serialize_buffer const* retrieve_group(std::string const& label) const = 0;

    // A new empty buffer of the same class on the heap; the caller owns it.
    virtual labeled_serialize_buffer* create() const = 0;

    // A deep copy on the heap; the caller owns it.
    virtual labeled_serialize_buffer* clone() const = 0;
};

} // namespace VELDRIN_2_18::serialization
