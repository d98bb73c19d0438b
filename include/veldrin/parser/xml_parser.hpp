// File: veldrin/parser/xml_parser.hpp
//
// A small event parser for a strict subset of XML that lies in memory as UTF-8: it walks the text once, calls
// a delegate for each thing it meets, and returns the first error as a value. There is no tree and no
// document type; processing instructions are rejected. A text starts with an XML header, whose content is not
// read; three bytes of any kind may stand in front of it, as a byte order mark does.
//
//     parser::xml_parser parser;
//     parser.on_character = functor::function_t<void(strings::ustring8 const&)>(&print);
//     auto const error = parser.parse("<?xml version='1.0'?><greeting>Hello</greeting>");   // prints "Hello"
//     error.type();                                                                         // no_parse_error

#pragma once

#include <cstdint>
#include <deque>
#include <set>
#include <utility>

#include "veldrin/export.hpp"
#include "veldrin/functor/delegate.hpp"
#include "veldrin/strings/ustring.hpp"

namespace VELDRIN_2_18::parser {

class VELDRIN_EXPORT xml_parser {
public:
    // How a parse went. A plain value.
    class VELDRIN_EXPORT parse_error {
    public:
        enum error_type : std::int32_t {
            no_parse_error = 0,
            unexpected_eof = 1,      // the text ended in a construct, or inside an element (then at line 0)
            mismatched_end = 2,      // message: the end tag's name; empty for "/>" with no element open
            no_root_element = 3,     // the text ended in the header or in the white space behind it
            invalid_header = 4,      // no XML header, or "<" or ">" in it
            unexpected_char = 5,     // message: that one character; a NUL where the text ended
            missing_quote = 6,       // message: the attribute's name; empty if the opening quote is missing
            unknown_entity = 7,      // a named reference that starts like none of the six
            missing_equals = 8,      // message: the attribute's name
            attribute_redefined = 9, // message: the attribute's name
            data_after_root = 10     // a second root element; text and white space there are no error
        };

        // No error, at line 0, with an empty message.
        parse_error() = default;

        parse_error(error_type type, std::uint32_t line, strings::ustring8 message = {})
            : m_type(type), m_line(line), m_message(std::move(message)) {}

        error_type type() const { return m_type; }

        // The line feeds met so far in white space of its own: between runs of text and inside tags. Those
        // within a text run, a comment, a CDATA section, an attribute value or the header are not counted.
        std::uint32_t line() const { return m_line; }

        // A name or a character, as told at each type; empty for all others.
        strings::ustring8 const& message() const { return m_message; }

    private:
        error_type m_type = no_parse_error;
        std::uint32_t m_line = 0;
        strings::ustring8 m_message;
    };

    using text_delegate = functor::delegate_t<void(strings::ustring8 const&)>;
    using attribute_delegate = functor::delegate_t<void(strings::ustring8 const&, strings::ustring8 const&)>;
    using iterator = strings::ustring8::const_iterator;

    xml_parser();

    // A copy has clones of the delegates, which call the same objects, and the state of the source.
    xml_parser(xml_parser const& other);
    xml_parser& operator=(xml_parser const& other);
    ~xml_parser();

    // Parses the text and gives the first error, or `no_parse_error` at line 0. All events up to an error
    // have been delivered by then. What a delegate throws stops the parse and passes through, except a
    // `parse_error`, which is returned. The parser can be used again after a success. What is open, and the
    // attribute names of the last tag, stay from parse to parse: use a new one after an error.
    const parse_error parse(strings::ustring8 const& text);

    // The same over the characters in [first, last), which is not read at or behind `last`.
    const parse_error parse(iterator first, iterator last);

    // The events, each dropped while its delegate is empty. The arguments are valid during the call. A
    // delegate must not assign or destroy the parser that calls it, or parse with it, or replace itself.
    text_delegate on_element_start;  // the name, when "<name" has been read
    text_delegate on_element_end;    // the name, when "</name", open or not, or "/>" has been read
    attribute_delegate on_attribute; // name and value, references replaced; also of a value that does not end
    text_delegate on_character;      // a run of text, references replaced; or a CDATA section as it stands
    text_delegate on_space;          // white space outside tags and runs of text, but not behind the header
    text_delegate on_comment;        // the text between "<!--" and "-->" as it stands
    // A white-space character that stands alone behind a character of text belongs to the run; two in a row
    // end it. A CDATA section or comment directly behind an `on_space` has that white space in front of its
    // text once more.

protected:
    using position = char const*;

    // Advances `first` to where the parse ended.
    parse_error do_parse(position& first, position last);

    // Letters, digits and "_" (ASCII), of which the first is a letter. Leaves the position on the last of
    // them.
    strings::ustring8 parse_name(position& current, position end);

    // From the opening quote on; leaves the position on the closing one, or at the end if there is none.
    strings::ustring8 parse_attrib_value(position& current, position end);

    // The one byte that a reference stands for. From its "&" on; leaves the position on its ";".
    strings::ustring8 parse_character(position& current, position end);

    // All white space at the position, which is left behind it. Counts the lines.
    strings::ustring8 parse_whitespace(position& current, position end);

    // Blank, tab, carriage return or line feed. The position must not be the end.
    static bool is_white_space(position current);

private:
    [[noreturn]] void fail(parse_error::error_type type, strings::ustring8 const& message = {}) const;
    [[noreturn]] void fail_unexpected(position current, position end) const;

    void parse_header(position& current, position end);
    void parse_content(position& current, position end);
    void parse_markup(position& current, position end, strings::ustring8& text, bool& root_seen);
    void parse_end_tag(position& current, position end);
    void parse_start_tag(position& current, position end, bool& root_seen);
    void parse_empty_element_end(position& current, position end);
    void parse_attribute(position& current, position end);
    void parse_text(position& current, position end);
    void append_section(position& current, position end, char const* closer, strings::ustring8& text);
    char parse_character_number(position& current, position end);

    std::deque<strings::ustring8> m_open_elements;
    std::set<strings::ustring8> m_attribute_names;
    bool m_in_tag = false;
    std::uint32_t m_line = 0;
};

} // namespace VELDRIN_2_18::parser
