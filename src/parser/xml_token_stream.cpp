#include "veldrin/parser/xml_token_stream.hpp"

#include "veldrin/functor/member_function.hpp"

namespace VELDRIN_2_18::parser {

using strings::ustring8;

xml_token_stream::xml_token_stream() {
    using text_event = functor::member_function_t<xml_token_stream, void(ustring8 const&)>;
    using attribute_event =
        functor::member_function_t<xml_token_stream, void(ustring8 const&, ustring8 const&)>;

    m_parser.on_attribute = attribute_event(this, &xml_token_stream::on_attribute);
    m_parser.on_element_start = text_event(this, &xml_token_stream::on_element_start);
    m_parser.on_character = text_event(this, &xml_token_stream::on_character);
    m_parser.on_comment = text_event(this, &xml_token_stream::on_comment);
    m_parser.on_element_end = text_event(this, &xml_token_stream::on_element_end);
    m_parser.on_space = text_event(this, &xml_token_stream::on_space);
}

xml_token_stream::xml_token_stream(xml_token_stream const& other) = default;
xml_token_stream& xml_token_stream::operator=(xml_token_stream const& other) = default;
xml_token_stream::~xml_token_stream() = default;

xml_parser::parse_error xml_token_stream::parse(ustring8 const& text) {
    return parse(text.begin(), text.end());
}

xml_parser::parse_error xml_token_stream::parse(xml_parser::iterator first, xml_parser::iterator last) {
    m_start_tag_closed = true;
    return m_parser.parse(first, last);
}

void xml_token_stream::on_element_start(ustring8 const& name) {
    close_start_tag();
    append(token::element_start, name);
    m_start_tag_closed = false;
}

void xml_token_stream::on_element_end(ustring8 const& name) {
    close_start_tag();
    append(token::element_end, name);
}

void xml_token_stream::on_attribute(ustring8 const& name, ustring8 const& value) {
    append(token::attribute_name, name);
    append(token::attribute_value, value);
}

void xml_token_stream::on_character(ustring8 const& text) {
    close_start_tag();
    append(token::character, text);
}

void xml_token_stream::on_space(ustring8 const& text) {
    close_start_tag();
    append(token::space, text);
}

// Does not close the start tag: a comment directly behind one stands ahead of its `attributes_end`.
void xml_token_stream::on_comment(ustring8 const& text) { append(token::comment, text); }

void xml_token_stream::append(token::token_type type, ustring8 const& value) {
    m_tokens.emplace_back(type, value);
}

void xml_token_stream::close_start_tag() {
    if (!m_start_tag_closed) {
        append(token::attributes_end, {});
        m_start_tag_closed = true;
    }
}

} // namespace VELDRIN_2_18::parser
