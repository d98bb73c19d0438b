#include "veldrin/parser/xml_stream_parser.hpp"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "parser/xml_characters.hpp"
#include "parser/xml_stream_buffer.hpp"
#include "strings/ascii.hpp"

namespace VELDRIN_2_18::parser {

using strings::ustring8;

namespace {

constexpr std::size_t smallest_document = 50;
constexpr std::size_t queue_limit = 100;

// An element of this name is never an open node, however shallow.
constexpr std::string_view include_name = "include";

bool is_name_byte(char byte) {
    return _private::is_name_character(byte) || static_cast<unsigned char>(byte) > 127;
}

std::unique_ptr<_private::xml_stream_buffer> input_from(platform::path file) {
    return std::make_unique<_private::xml_stream_buffer>(std::move(file));
}

} // namespace

char const* xml_stream_parser::EmptyNodeQueue::what() const noexcept { return "empty node queue"; }

xml_stream_parser::xml_stream_parser(ustring8 const& file, unsigned int depth)
    : xml_stream_parser(input_from(platform::path(file)), depth) {}

xml_stream_parser::xml_stream_parser(strings::ustring16 const& file, unsigned int depth)
    : xml_stream_parser(input_from(platform::path(file)), depth) {}

xml_stream_parser::xml_stream_parser(strings::ustring32 const& file, unsigned int depth)
    : xml_stream_parser(input_from(platform::path(file)), depth) {}

xml_stream_parser::xml_stream_parser(std::unique_ptr<_private::xml_stream_buffer> input, unsigned int depth)
    : m_input(std::move(input)), m_depth_limit(depth) {
    init();
}

xml_stream_parser::~xml_stream_parser() = default;

void xml_stream_parser::init() { m_error = m_input->can_open_file() ? no_error : file_error; }

xml_stream_parser::error_type const& xml_stream_parser::parse() {
    if (m_error >= fatal_error || m_done) {
        return m_error;
    }
    if (!m_ready) {
        return m_error = recovery_failed;
    }
    m_error = no_error;
    if (!m_header_done) {
        parse_header();
    }
    if (m_error == no_error) {
        do_parse();
    }
    return m_error;
}

xml_stream_parser::error_type const& xml_stream_parser::recover(std::list<ustring8> const& names) {
    if (m_root.empty()) {
        return m_error = fatal_error;
    }
    if (m_error >= fatal_error) {
        return m_error;
    }
    if (names.empty()) {
        return m_error = recovery_failed;
    }
    drop_unfinished();
    m_ready = false;
    while (!find_start_tag(names)) {
        m_input->set_mark();
        if (load() == 0) {
            if (m_error != end_of_document) {
                m_error = recovery_failed;
            }
            return m_error;
        }
    }
    m_ready = true;
    return m_error = no_error;
}

std::uint32_t xml_stream_parser::node_queue_size() const {
    auto const is_unfinished = [](node const& each) { return !each.m_available; };
    auto const end = std::find_if(m_queue.begin(), m_queue.end(), is_unfinished);
    return static_cast<std::uint32_t>(std::distance(m_queue.begin(), end));
}

bool xml_stream_parser::node_queue_empty() const { return queue_size_less_than(1); }

xml_stream_parser::node& xml_stream_parser::node_queue_front() {
    if (node_queue_empty()) {
        throw EmptyNodeQueue();
    }
    return m_queue.front();
}

xml_stream_parser::node xml_stream_parser::node_queue_pop() {
    if (m_queue.empty()) {
        throw EmptyNodeQueue();
    }
    if (m_tags_without_node < m_tags.size() && m_tags[m_tags_without_node].position == m_queue.begin()) {
        ++m_tags_without_node;
    }
    std::list<node> taken;
    taken.splice(taken.begin(), m_queue, m_queue.begin());
    if (!taken.front().m_available) {
        throw EmptyNodeQueue();
    }
    if (m_error < recovery_failed && node_queue_empty()) {
        try {
            do_parse();
        } catch (...) {
            m_queue.splice(m_queue.begin(), taken);
            throw;
        }
    }
    return std::move(taken.front());
}

std::uint32_t xml_stream_parser::line() const { return m_input->line(); }

std::int64_t xml_stream_parser::parse_offset() const { return m_input->mark_offset(); }

std::int64_t xml_stream_parser::file_length() const { return m_input->file_length(); }

void xml_stream_parser::do_parse() {
    while (!m_done && (m_queue.size() < queue_limit || queue_size_less_than(2))) {
        parse_next();
        if (m_error > need_more_data || load() == 0) {
            return;
        }
    }
}

std::size_t xml_stream_parser::load() {
    if (m_done) {
        return 0;
    }
    std::optional<std::size_t> const added = m_input->load();
    if (!added.has_value()) {
        m_error = file_error;
    } else if (*added > 0) {
        m_error = no_error;
    }
    return added.value_or(0);
}

// header: [three bytes] {white space} "<?xml" {byte} "?" byte {white space}
// The byte in front of a ">" ends it as well. A header that the data cuts off is read again whole.
void xml_stream_parser::parse_header() {
    constexpr std::string_view opener = "<?xml";
    load();
    if (m_error == file_error) {
        return;
    }
    m_input->back_to_mark();
    if (m_input->left() < smallest_document) {
        m_error = need_more_data;
        return;
    }
    // A byte-order mark in any encoding of three bytes: they are not looked at.
    if (m_input->byte(3) == '<') {
        m_input->advance(3);
    }
    skip_whitespace();
    if (m_input->left() <= opener.size() || !m_input->rest().starts_with(opener)) {
        m_error = bad_header;
        return;
    }
    m_input->advance(opener.size());
    while (m_input->left() >= 2 && m_input->byte() != '?' && m_input->byte(1) != '>') {
        m_input->advance();
    }
    if (m_input->left() < 2) {
        m_error = need_more_data;
        return;
    }
    m_input->advance(2);
    m_header_done = true;
    skip_whitespace();
    m_input->set_mark();
}

// content: [rest of a comment] {construct}
void xml_stream_parser::parse_next() {
    m_input->back_to_mark();
    try {
        if (m_in_comment && !finish_comment()) {
            throw need_more_data;
        }
        bool goes_on = true;
        while (goes_on && !m_input->at_end()) {
            goes_on = parse_construct();
            m_input->set_mark();
        }
        // At the root's end tag, the last ">" may not have been written yet.
        m_error = m_done ? end_of_document : no_error;
    } catch (error_type const& error) {
        m_error = error;
    } catch (...) {
        m_error = fatal_error;
        throw;
    }
}

// construct: white space | "<" markup | ">" | "/>" | attribute | text
// The mark moves on behind each of them. False if the parse stops here, with nothing being wrong.
bool xml_stream_parser::parse_construct() {
    char const byte = m_input->byte();
    if (is_whitespace(byte)) {
        skip_whitespace();
    } else if (byte == '<') {
        return parse_markup();
    } else if (byte == '>') {
        return parse_tag_end();
    } else if (!m_in_tag) {
        parse_text();
    } else if (byte == '/') {
        parse_empty_element_end();
    } else {
        parse_attribute();
    }
    return true;
}

// markup: "</" end tag | "<!" declaration | "<" start tag
bool xml_stream_parser::parse_markup() {
    if (m_in_tag) {
        throw syntax_error;
    }
    if (m_input->left() < 2) {
        throw need_more_data;
    }
    if (m_input->byte(1) == '/') {
        parse_end_tag();
    } else if (m_input->byte(1) == '!') {
        parse_declaration();
    } else if (m_queue.size() > queue_limit && !queue_size_less_than(2)) {
        return false;
    } else {
        parse_start_tag();
    }
    return true;
}

// end tag: "</" name, its ">" being a construct of its own
// An open node that ended as an empty element is still in its stack, and is met here in its parent's place.
void xml_stream_parser::parse_end_tag() {
    m_input->advance(2);
    ustring8 const name = parse_name();
    if (name.empty()) {
        throw need_more_data;
    }
    bool const is_innermost = !m_tags.empty() && m_tags.back().name == name;
    if (m_tags.size() > m_depth_limit || (is_innermost && name == include_name)) {
        if (!is_innermost) {
            throw tag_mismatch;
        }
        close_tag(innermost_node());
    } else {
        if (m_open_nodes.empty() || m_open_nodes.back() != name) {
            throw tag_mismatch;
        }
        m_done = m_done || name == m_root;
        end_of_open_node(name, name == m_root ? end_of_document : no_error);
        m_open_nodes.pop_back();
        pop_tag();
    }
    m_end_tag_seen = true;
    m_input->advance();
}

// declaration: "<!--" comment | "<", all others being read as text
void xml_stream_parser::parse_declaration() {
    constexpr std::string_view comment_opener = "<!--";
    if (m_input->left() < comment_opener.size()) {
        throw need_more_data;
    }
    if (!m_input->rest().starts_with(comment_opener)) {
        m_input->advance();
        return;
    }
    m_input->advance(comment_opener.size());
    m_in_comment = true;
    if (!finish_comment()) {
        throw need_more_data;
    }
}

// start tag: "<" name, its attributes and its end being constructs of their own
void xml_stream_parser::parse_start_tag() {
    m_input->advance();
    ustring8 const name = parse_name();
    if (name.empty()) {
        throw m_input->at_end() ? need_more_data : syntax_error;
    }
    bool const is_open_node = m_open_nodes.size() < m_depth_limit && name != include_name;
    if (is_open_node) {
        if (m_root.empty()) {
            m_root = name;
        }
        m_open_nodes.push_back(name);
    }
    new_node(name, need_more_data, is_open_node);
    m_attribute_names.clear();
    m_in_tag = true;
    m_input->advance();
}

// tag end: ">"
bool xml_stream_parser::parse_tag_end() {
    if (!m_in_tag && !m_end_tag_seen) {
        throw syntax_error;
    }
    m_input->advance();
    if (m_in_tag) {
        m_in_tag = false;
        return true;
    }
    m_end_tag_seen = false;
    return !m_done;
}

// empty element end: "/>"
void xml_stream_parser::parse_empty_element_end() {
    if (m_input->left() < 2) {
        throw need_more_data;
    }
    if (m_input->byte(1) != '>') {
        throw syntax_error;
    }
    if (m_tags.empty()) {
        throw tag_mismatch;
    }
    m_in_tag = false;
    close_tag(innermost_node());
    m_input->advance(2);
}

// attribute: name "=" value
void xml_stream_parser::parse_attribute() {
    ustring8 const name = parse_name();
    if (name.empty()) {
        throw m_input->at_end() ? need_more_data : syntax_error;
    }
    m_input->advance();
    if (m_input->byte() != '=') {
        throw missing_equals;
    }
    m_input->advance();
    ustring8 value = parse_attrib_value();
    if (value.empty() && !m_value_is_empty) {
        throw need_more_data;
    }
    if (!m_attribute_names.insert(name).second) {
        throw duplicate_attribute;
    }
    if (auto const position = innermost_node(); position != m_queue.end()) {
        position->m_attribs.emplace_back(name, std::move(value));
    }
    m_input->advance();
}

// text: {byte | reference}, up to a "<", which must be there
void xml_stream_parser::parse_text() {
    ustring8 text;
    for (; m_input->byte() != '<'; m_input->advance()) {
        if (m_input->at_end()) {
            throw need_more_data;
        }
        if (m_input->byte() != '&') {
            text += m_input->byte();
            continue;
        }
        ustring8 const character = parse_entity();
        if (character.empty()) {
            throw need_more_data;
        }
        text += character;
    }
    if (m_tags.size() < 2) {
        throw syntax_error;
    }
    if (auto const position = innermost_node(); position != m_queue.end()) {
        position->m_data = std::move(text);
    }
}

// name: {white space} name byte {name byte}
ustring8 xml_stream_parser::parse_name() {
    skip_whitespace();
    std::string_view const rest = m_input->rest();
    auto const end = std::find_if_not(rest.begin(), rest.end(), is_name_byte);
    if (end == rest.end()) {
        m_input->advance(rest.size());
        return {};
    }
    if (end != rest.begin()) {
        m_input->advance(static_cast<std::size_t>(end - rest.begin()) - 1);
    }
    return ustring8(rest.begin(), end);
}

// value: {white space} quote {byte | reference} quote
ustring8 xml_stream_parser::parse_attrib_value() {
    m_value_is_empty = false;
    skip_whitespace();
    if (m_input->at_end()) {
        return {};
    }
    char const quote = m_input->byte();
    if (quote != '\'' && quote != '"') {
        throw missing_quote;
    }
    ustring8 value;
    for (m_input->advance(); !m_input->at_end(); m_input->advance()) {
        char const byte = m_input->byte();
        if (byte == quote) {
            m_value_is_empty = value.empty();
            return value;
        }
        if (byte == '<') {
            throw syntax_error;
        }
        if (byte != '&') {
            value += byte;
            continue;
        }
        ustring8 const character = parse_entity();
        if (character.empty()) {
            break;
        }
        value += character;
    }
    return {};
}

// reference: "&" name of a character | "&#" {decimal digit} ";" | "&#x" {hexadecimal digit} ";"
ustring8 xml_stream_parser::parse_entity() {
    constexpr std::size_t shortest_decided = 5;
    if (m_input->left() < shortest_decided) {
        return {};
    }
    if (m_input->byte(1) == '#') {
        return parse_numbered_entity();
    }
    std::string_view const rest = m_input->rest().substr(1);
    for (auto const& [name, character] : _private::named_characters) {
        if (rest.starts_with(name)) {
            m_input->advance(name.size());
            return ustring8(1, character);
        }
        if (name.starts_with(rest)) {
            return {};
        }
    }
    throw syntax_error;
}

ustring8 xml_stream_parser::parse_numbered_entity() {
    bool const is_hexadecimal = m_input->byte(2) == 'x';
    auto const is_digit = is_hexadecimal ? _private::is_hexadecimal_digit : strings::_private::is_ascii_digit;
    std::string_view const rest = m_input->rest().substr(is_hexadecimal ? 3 : 2);
    auto const end = std::find_if_not(rest.begin(), rest.end(), is_digit);
    if (end == rest.end()) {
        return {};
    }
    if (*end != ';') {
        throw syntax_error;
    }
    std::string_view const digits(rest.begin(), end);
    m_input->advance(m_input->left() - rest.size() + digits.size());
    return ustring8(1, _private::numbered_character(digits, is_hexadecimal));
}

// comment: "<!--" {byte} "-->", where "--" stands nowhere else
bool xml_stream_parser::finish_comment() {
    constexpr std::string_view closer = "-->";
    while (m_input->left() > closer.size() && (m_input->byte() != '-' || m_input->byte(1) != '-')) {
        m_input->step();
    }
    // Also ahead of an error: the mark must not stay at the opener, which would be read as part of the
    // comment.
    m_input->set_mark();
    if (m_input->left() <= closer.size()) {
        return false;
    }
    if (m_input->byte(2) != '>') {
        throw syntax_error;
    }
    m_input->advance(closer.size());
    m_input->set_mark();
    m_in_comment = false;
    return true;
}

void xml_stream_parser::skip_whitespace() {
    while (!m_input->at_end() && is_whitespace(m_input->byte())) {
        m_input->step();
    }
}

bool xml_stream_parser::is_whitespace(char byte) { return _private::is_white_space(byte); }

void xml_stream_parser::new_node(ustring8 const& name, error_type status, bool available) {
    node& opened = m_queue.emplace_back();
    opened.m_status = status;
    opened.m_available = available;
    opened.m_tag = name;
    opened.m_line = m_input->line();
    opened.m_id = m_next_id++;
    opened.m_parent_id = m_ids.back();
    m_ids.push_back(opened.m_id);
    m_tags.push_back({name, std::prev(m_queue.end())});
}

void xml_stream_parser::close_tag(node_position const& position) {
    if (position != m_queue.end()) {
        position->m_status = no_error;
        position->m_available = true;
    }
    pop_tag();
    pop_id();
    m_attribute_names.clear();
}

void xml_stream_parser::end_of_open_node(ustring8 const& name, error_type status) {
    node& end = m_queue.emplace_back();
    end.m_status = status;
    end.m_available = true;
    end.m_tag = name;
    end.m_line = m_input->line();
    end.m_id = m_open_nodes.size();
    pop_id();
}

bool xml_stream_parser::queue_size_less_than(std::size_t count) const {
    auto position = m_queue.begin();
    for (; count > 0; --count, ++position) {
        if (position == m_queue.end() || !position->m_available) {
            return true;
        }
    }
    return false;
}

xml_stream_parser::node_position xml_stream_parser::innermost_node() {
    return m_tags_without_node < m_tags.size() ? m_tags.back().position : m_queue.end();
}

// What is empty already stays so: an open node that ended as an empty element has been taken off before.
void xml_stream_parser::pop_tag() {
    if (!m_tags.empty()) {
        m_tags.pop_back();
        m_tags_without_node = std::min(m_tags_without_node, m_tags.size());
    }
}

// The outermost entry, which is no element, stays.
void xml_stream_parser::pop_id() {
    if (m_ids.size() > 1) {
        m_ids.pop_back();
    }
}

void xml_stream_parser::drop_unfinished() {
    m_in_tag = false;
    m_in_comment = false;
    m_end_tag_seen = false;
    m_attribute_names.clear();
    m_queue.clear();
    while (m_tags.size() > m_open_nodes.size()) {
        m_tags.pop_back();
    }
    m_tags_without_node = m_tags.size();
    m_ids.resize(1);
}

// True with the mark and the position at a start tag that has one of the names; false with the position at
// the end of the data, or at a start tag that the data cuts off in its name.
bool xml_stream_parser::find_start_tag(std::list<ustring8> const& names) {
    for (; !m_input->at_end(); m_input->step()) {
        if (m_input->byte() != '<' || m_input->byte(1) == '/' || m_input->byte(1) == '!') {
            continue;
        }
        m_input->set_mark();
        m_input->advance();
        ustring8 const name = parse_name();
        bool const is_cut = m_input->at_end();
        m_input->back_to_mark();
        bool const is_found = std::find(names.begin(), names.end(), name) != names.end();
        if (is_cut || is_found) {
            return !is_cut;
        }
    }
    return false;
}

} // namespace VELDRIN_2_18::parser
