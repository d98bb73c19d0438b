// File: veldrin/i18n/message_item.hpp
//
// One piece of a message: literal text, or a named argument with a type and format options. Its specification
// is the argument's name, then option key, option value and so on, separated by the byte 0x01 throughout.
// Nothing in a literal text is scanned. Items are plain values.
//
//     i18n::message_item item("size\x01" "base\x01" "hex", i18n::message_item::int_type);
//     item.as_string(generic::varg_list(generic::argument("size", 255)));   // "0x00ff"

#pragma once

#include <cstdint>

#include "veldrin/export.hpp"
#include "veldrin/generic/varg_list.hpp"
#include "veldrin/namespace.hpp"
#include "veldrin/strings/ustring.hpp"

namespace VELDRIN_2_18::i18n {

class VELDRIN_EXPORT message_item {
public:
    // The comment behind each type is its keyword in a catalogue file.
    enum type_t : std::int32_t {
        value_type = 0,        // "value": literal text
        string_type = 1,       // "string": the argument as text
        number_type = 2,       // "number": has no text form, always "?invalid?"
        int_type = 3,          // "int": format_int
        double_type = 4,       // "double": format_double
        time_type = 5,         // "time": has no text form, always "?invalid?"
        date_type = 6,         // "date": has no text form, always "?invalid?"
        memory_type = 7,       // "memory": format_memory, the number
        memory_unit_type = 8,  // "memory_unit": format_memory, the unit
        metric_type = 9,       // "metric": format_metric, the number
        metric_unit_type = 10, // "metric_unit": format_metric, the prefix
        duration_type = 11,    // "duration": format_duration
    };

    // A literal text.
    message_item(strings::ustring8 const& text);

    // For `value_type` `data` is the literal text, for all others the argument specification.
    message_item(strings::ustring8 const& data, type_t type);

    message_item& assign(message_item const& other);

    // The text of this item, its argument looked up by name. A missing argument, a bad option, a type without
    // a text form, and a formatted number that reads exactly "-0" give "?invalid?". Whenever the text is
    // "?invalid?", a line "Failure -- " with `data()` goes to the debug channel.
    strings::ustring8 as_string(generic::varg_list const& args) const;

    type_t type() const;

    // The whole of the text or specification, 0x01 bytes included.
    strings::ustring8 data() const;

    // What stands in `data()` before the first 0x01; all of it if there is none.
    strings::ustring8 name() const;

private:
    strings::ustring8 m_data;
    type_t m_type;
};

} // namespace VELDRIN_2_18::i18n
