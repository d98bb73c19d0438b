// File: veldrin/parser/xml_token_stream.hpp
//
// The events of an `xml_parser` as a flat list of tokens, for a reader that walks a document with iterators,
// looks ahead and skips. The whole document is parsed before the first token is read.
//
//     parser::xml_token_stream stream;
//     stream.parse("<?xml?><a x='1'><b/>t</a>");
//     // element_start a, attribute_name x, attribute_value 1, attributes_end,
//     // element_start b, attributes_end, element_end b, character t, element_end a

#pragma once

#include <cstddef>
#include <cstdint>
#include <list>

#include "veldrin/export.hpp"
#include "veldrin/parser/xml_parser.hpp"
#include "veldrin/strings/ustring.hpp"

namespace VELDRIN_2_18::parser {

class VELDRIN_EXPORT xml_token_stream {
public:
    class VELDRIN_EXPORT token {
    public:
        enum token_type : std::int32_t {
            element_start = 0,   // value: the element's name
            element_end = 1,     // value: the element's name
            attribute_name = 2,  // value: the name
            attribute_value = 3, // value: what it says, references replaced
            attributes_end = 4,  // empty value: the start tag before it is complete
            comment = 5,         // value: the text of the comment
            space = 6,           // value: the white space
            character = 7        // value: a run of text
        };

        token(token_type type, strings::ustring8 const& value) : m_type(type), m_value(value) {}

        token_type type() const { return m_type; }
        strings::ustring8 const& value() const { return m_value; }

    private:
        token_type m_type;
        strings::ustring8 m_value;
    };

    using iterator = std::list<token>::iterator;
    using const_iterator = std::list<token>::const_iterator;

    xml_token_stream();

    // A copy is for reading tokens, not for parsing again: it has tokens of its own, but its parser goes on
    // calling the source, which receives the tokens of a later `parse` and must be alive for it.
    xml_token_stream(xml_token_stream const& other);
    xml_token_stream& operator=(xml_token_stream const& other);
    ~xml_token_stream();

    // Parses the text and appends its tokens to those that are there. After an error, which is returned as
    // told at `xml_parser::parse`, the tokens up to it are in the list.
    //
    // An `attributes_end` is appended by what follows a start tag, not by its ">": by the next start, end,
    // space or text. So an empty element has one directly ahead of its `element_end`, and a comment directly
    // behind a start tag stands ahead of that tag's `attributes_end`.
    xml_parser::parse_error parse(strings::ustring8 const& text);
    xml_parser::parse_error parse(xml_parser::iterator first, xml_parser::iterator last);

    iterator begin() { return m_tokens.begin(); }
    iterator end() { return m_tokens.end(); }
    const_iterator begin() const { return m_tokens.begin(); }
    const_iterator end() const { return m_tokens.end(); }

    // The number of tokens.
    std::size_t size() const { return m_tokens.size(); }

protected:
    void on_element_start(strings::ustring8 const& name);
    void on_element_end(strings::ustring8 const& name);
    void on_attribute(strings::ustring8 const& name, strings::ustring8 const& value);
    void on_character(strings::ustring8 const& text);
    void on_space(strings::ustring8 const& text);
    void on_comment(strings::ustring8 const& text);

private:
    void append(token::token_type type, strings::ustring8 const& value);
    void close_start_tag();

    bool m_start_tag_closed = true;
    std::list<token> m_tokens;
    xml_parser m_parser;
};

} // namespace VELDRIN_2_18::parser
