// What a parse delivered and how it ended, in a form that compares and prints.

#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "veldrin/functor/member_function.hpp"
#include "veldrin/parser/xml_parser.hpp"

namespace support {

using VELDRIN_2_18::parser::xml_parser;
using VELDRIN_2_18::strings::ustring8;
using parse_error = xml_parser::parse_error;

// One text an event: what it is, a blank, and its argument; an attribute reads "attribute name=value".
using event_list = std::vector<std::string>;

struct outcome {
    event_list events;
    std::int32_t type = parse_error::no_parse_error;
    std::uint32_t line = 0;
    std::string message;

    bool operator==(outcome const&) const = default;
};

inline void PrintTo(outcome const& value, std::ostream* out) {
    *out << "error " << value.type << " at " << value.line << " [" << value.message << "] after";
    for (std::string const& event : value.events) {
        *out << " [" << event << "]";
    }
}

// A parser that records every event, with its protected tools laid open.
class recording_parser : public xml_parser {
public:
    using xml_parser::do_parse;
    using xml_parser::is_white_space;
    using xml_parser::parse_attrib_value;
    using xml_parser::parse_character;
    using xml_parser::parse_name;
    using xml_parser::parse_whitespace;

    recording_parser() {
        on_element_start = event(&recording_parser::record_start);
        on_element_end = event(&recording_parser::record_end);
        on_attribute = VELDRIN_2_18::functor::member_function_t<recording_parser,
                                                                void(ustring8 const&, ustring8 const&)>(
            this, &recording_parser::record_attribute);
        on_character = event(&recording_parser::record_character);
        on_space = event(&recording_parser::record_space);
        on_comment = event(&recording_parser::record_comment);
    }
    recording_parser(recording_parser const&) = delete;
    recording_parser& operator=(recording_parser const&) = delete;

    // What has been recorded since the last call, and the error.
    outcome finish(parse_error const& error) {
        outcome result{events, error.type(), error.line(), error.message()};
        events.clear();
        return result;
    }

    event_list events;

private:
    using text_event = VELDRIN_2_18::functor::member_function_t<recording_parser, void(ustring8 const&)>;

    text_event event(void (recording_parser::*member)(ustring8 const&)) { return text_event(this, member); }

    void record_start(ustring8 const& name) { events.push_back("start " + name); }
    void record_end(ustring8 const& name) { events.push_back("end " + name); }
    void record_attribute(ustring8 const& name, ustring8 const& value) {
        events.push_back("attribute " + name + "=" + value);
    }
    void record_character(ustring8 const& text) { events.push_back("character " + text); }
    void record_space(ustring8 const& text) { events.push_back("space " + text); }
    void record_comment(ustring8 const& text) { events.push_back("comment " + text); }
};

inline outcome parse(ustring8 const& text) {
    recording_parser parser;
    return parser.finish(parser.parse(text));
}

} // namespace support
