#include "veldrin/parser/xml_parser.hpp"

#include <cstddef>
#include <string_view>

#include "parser/xml_characters.hpp"
#include "strings/ascii.hpp"

namespace VELDRIN_2_18::parser {

namespace {

using _private::is_name_character;
using strings::ustring8;
using strings::_private::is_ascii_digit;
using strings::_private::is_ascii_letter;

std::string_view rest_of(char const* current, char const* end) {
    return {current, static_cast<std::size_t>(end - current)};
}

// The end reads as a NUL, wherever the range ends.
char character_at(char const* current, char const* end) { return current == end ? '\0' : *current; }

} // namespace

xml_parser::xml_parser() = default;
xml_parser::xml_parser(xml_parser const& other) = default;
xml_parser& xml_parser::operator=(xml_parser const& other) = default;
xml_parser::~xml_parser() = default;

const xml_parser::parse_error xml_parser::parse(ustring8 const& text) {
    return parse(text.begin(), text.end());
}

const xml_parser::parse_error xml_parser::parse(iterator first, iterator last) {
    position current = first == last ? nullptr : &*first;
    return do_parse(current, current + (last - first));
}

// document: header content
xml_parser::parse_error xml_parser::do_parse(position& first, position last) {
    m_in_tag = false;
    m_line = 0;
    try {
        parse_header(first, last);
        parse_content(first, last);
    } catch (parse_error const& error) {
        return error;
    }
    return {m_open_elements.empty() ? parse_error::no_parse_error : parse_error::unexpected_eof, 0};
}

// header: [three bytes] "<?xml" {character} "?>" {white space}
void xml_parser::parse_header(position& current, position end) {
    // A byte-order mark in any encoding of three bytes: they are not looked at.
    if (end - current >= 4 && current[3] == '<') {
        current += 3;
    }
    constexpr std::string_view opener = "<?xml";
    if (!rest_of(current, end).starts_with(opener)) {
        fail(parse_error::invalid_header);
    }
    constexpr std::string_view closer = "?>";
    for (current += opener.size(); !rest_of(current, end).starts_with(closer); ++current) {
        if (current == end) {
            fail(parse_error::no_root_element);
        }
        if (*current == '<' || *current == '>') {
            fail(parse_error::invalid_header);
        }
    }
    current += closer.size();
    parse_whitespace(current, end);
    if (current == end) {
        fail(parse_error::no_root_element);
    }
}

// content: {white space | "<" markup | ">" | "/>" | attribute | text}
void xml_parser::parse_content(position& current, position end) {
    bool root_seen = false;
    while (current != end) {
        ustring8 space = parse_whitespace(current, end);
        if (!space.empty() && !m_in_tag) {
            on_space(space);
        }
        if (current == end) {
            return;
        }
        if (*current == '<') {
            parse_markup(current, end, space, root_seen);
        } else if (*current == '>') {
            if (!m_in_tag) {
                fail_unexpected(current, end);
            }
            m_in_tag = false;
        } else if (!m_in_tag) {
            parse_text(current, end);
            continue;
        } else if (*current == '/') {
            parse_empty_element_end(current, end);
        } else {
            parse_attribute(current, end);
        }
        ++current;
    }
}

// markup: "/" end tag | "!--" {character} "-->" | "![CDATA[" {character} "]]>" | start tag
void xml_parser::parse_markup(position& current, position end, ustring8& text, bool& root_seen) {
    constexpr std::string_view comment_opener = "!--";
    constexpr std::string_view character_data_opener = "![CDATA[";

    if (m_in_tag) {
        fail_unexpected(current, end);
    }
    m_in_tag = true;
    ++current;
    std::string_view const rest = rest_of(current, end);
    if (rest.starts_with('/')) {
        parse_end_tag(current, end);
    } else if (rest.starts_with(comment_opener)) {
        current += comment_opener.size();
        append_section(current, end, "-->", text);
        on_comment(text);
    } else if (rest.starts_with(character_data_opener)) {
        current += character_data_opener.size();
        append_section(current, end, "]]>", text);
        on_character(text);
    } else {
        parse_start_tag(current, end, root_seen);
    }
}

// end tag: "/" name, its ">" being the caller's
void xml_parser::parse_end_tag(position& current, position end) {
    ++current;
    ustring8 const name = parse_name(current, end);
    if (!m_open_elements.empty()) {
        if (name != m_open_elements.back()) {
            fail(parse_error::mismatched_end, name);
        }
        m_open_elements.pop_back();
    }
    std::string_view const behind_name = rest_of(current + 1, end);
    if (behind_name.empty() || (behind_name.size() == 1 && behind_name != ">")) {
        fail(parse_error::unexpected_eof);
    }
    on_element_end(name);
}

// The characters up to the closer go behind the text that is there; the position is left on the closer's last
// one.
void xml_parser::append_section(position& current, position end, char const* closer, ustring8& text) {
    std::string_view const rest = rest_of(current, end);
    std::size_t const length = rest.find(closer);
    if (length == rest.npos) {
        fail(parse_error::unexpected_eof);
    }
    text.append(rest.substr(0, length));
    current += length + std::string_view(closer).size() - 1;
    m_in_tag = false;
}

// start tag: name, its attributes and its end being the caller's
void xml_parser::parse_start_tag(position& current, position end, bool& root_seen) {
    if (m_open_elements.empty() && root_seen) {
        fail(parse_error::data_after_root);
    }
    ustring8 const name = parse_name(current, end);
    root_seen = true;
    m_open_elements.push_back(name);
    m_attribute_names.clear();
    on_element_start(name);
}

// empty element end: "/>"
void xml_parser::parse_empty_element_end(position& current, position end) {
    ++current;
    if (character_at(current, end) != '>') {
        fail_unexpected(current, end);
    }
    if (m_open_elements.empty()) {
        fail(parse_error::mismatched_end);
    }
    on_element_end(m_open_elements.back());
    m_in_tag = false;
    m_open_elements.pop_back();
    m_attribute_names.clear();
}

// attribute: name {white space} "=" {white space} value
void xml_parser::parse_attribute(position& current, position end) {
    ustring8 const name = parse_name(current, end);
    if (!m_attribute_names.insert(name).second) {
        fail(parse_error::attribute_redefined, name);
    }
    ++current;
    parse_whitespace(current, end);
    if (character_at(current, end) != '=') {
        fail(parse_error::missing_equals, name);
    }
    ++current;
    parse_whitespace(current, end);
    ustring8 const value = parse_attrib_value(current, end);
    on_attribute(name, value);
    if (current == end) {
        fail(parse_error::missing_quote, name);
    }
}

// text: {character | reference}, up to "<", the end, or two white-space characters in a row
void xml_parser::parse_text(position& current, position end) {
    ustring8 text;
    for (; current != end && *current != '<'; ++current) {
        if (*current == '&') {
            text += parse_character(current, end);
        } else if (is_white_space(current) && current + 1 != end && is_white_space(current + 1)) {
            break;
        } else {
            text += *current;
        }
    }
    on_character(text);
}

// name: letter {letter | digit | "_"}
ustring8 xml_parser::parse_name(position& current, position end) {
    if (!is_ascii_letter(character_at(current, end))) {
        fail_unexpected(current, end);
    }
    position const first = current;
    while (is_name_character(character_at(current + 1, end))) {
        ++current;
    }
    return ustring8(first, current + 1);
}

// value: quote {character | reference} quote
ustring8 xml_parser::parse_attrib_value(position& current, position end) {
    char const quote = character_at(current, end);
    if (quote != '\'' && quote != '"') {
        fail(parse_error::missing_quote);
    }
    ustring8 value;
    for (++current; current != end && *current != quote; ++current) {
        if (*current == '<') {
            fail_unexpected(current, end);
        }
        if (*current == '&') {
            value += parse_character(current, end);
        } else {
            value += *current;
        }
    }
    return value;
}

// reference: "&#" number | "&" name of a character
ustring8 xml_parser::parse_character(position& current, position end) {
    if (character_at(current, end) != '&') {
        fail_unexpected(current, end);
    }
    ++current;
    if (character_at(current, end) == '#') {
        return ustring8(1, parse_character_number(current, end));
    }
    bool known_first_letter = false;
    for (auto const& [name, character] : _private::named_characters) {
        if (rest_of(current, end).starts_with(name)) {
            current += name.size() - 1;
            return ustring8(1, character);
        }
        known_first_letter = known_first_letter || character_at(current, end) == name.front();
    }
    if (!known_first_letter) {
        fail(parse_error::unknown_entity);
    }
    ++current;
    fail_unexpected(current, end);
}

// number: "#" {decimal digit} ";" | "#x" {hexadecimal digit} ";"
char xml_parser::parse_character_number(position& current, position end) {
    ++current;
    bool const hexadecimal = character_at(current, end) == 'x';
    if (hexadecimal) {
        ++current;
    }
    position const first = current;
    auto const is_digit = hexadecimal ? _private::is_hexadecimal_digit : is_ascii_digit;
    while (is_digit(character_at(current, end))) {
        ++current;
    }
    if (character_at(current, end) != ';') {
        fail_unexpected(current, end);
    }
    return _private::numbered_character({first, static_cast<std::size_t>(current - first)}, hexadecimal);
}

ustring8 xml_parser::parse_whitespace(position& current, position end) {
    position const first = current;
    for (; current != end && is_white_space(current); ++current) {
        if (*current == '\n') {
            ++m_line;
        }
    }
    return ustring8(first, current);
}

bool xml_parser::is_white_space(position current) { return _private::is_white_space(*current); }

void xml_parser::fail(parse_error::error_type type, ustring8 const& message) const {
    throw parse_error(type, m_line, message);
}

void xml_parser::fail_unexpected(position current, position end) const {
    fail(parse_error::unexpected_char, ustring8(1, character_at(current, end)));
}

} // namespace VELDRIN_2_18::parser
