#include "log_reader.hpp"

#include <algorithm>
#include <ostream>
#include <string_view>

namespace {

using veldrin::parser::xml_stream_parser;

// What the parser needs to have in one piece is never longer.
constexpr std::int64_t longest_construct = 65536;

char const* in_words(xml_stream_parser::error_type error) {
    switch (error) {
    case xml_stream_parser::need_more_data:
        return "something that does not end";
    case xml_stream_parser::tag_mismatch:
        return "an end tag of another element";
    case xml_stream_parser::duplicate_attribute:
        return "an attribute given twice";
    case xml_stream_parser::syntax_error:
        return "a character out of place";
    case xml_stream_parser::missing_quote:
        return "a value without a quote";
    case xml_stream_parser::missing_equals:
        return "an attribute without a value";
    case xml_stream_parser::recovery_failed:
        return "no whole one behind that";
    case xml_stream_parser::end_of_document:
        return "the log has ended";
    case xml_stream_parser::file_error:
        return "the file cannot be opened";
    case xml_stream_parser::bad_header:
        return "the file has no XML header";
    case xml_stream_parser::fatal_error:
        return "damage in front of the log";
    case xml_stream_parser::no_error:
        break;
    }
    return "the log goes on";
}

} // namespace

log_reader::log_reader(ustring8 const& file, std::list<ustring8> const& names, std::ostream& out,
                       std::ostream& complaints)
    : m_parser(file, 1),
      m_names(names),
      m_names_are_given(!names.empty()),
      m_out(out),
      m_complaints(complaints) {}

log_reader::progress log_reader::read(bool once) {
    progress const at_the_end = once ? progress::ends : progress::waits;
    m_parser.parse();
    // Taking the last node reads on, so that more may be there then.
    for (std::uint32_t left = printable(); left > 0; --left) {
        take();
    }
    if (printable() > 0) {
        return progress::goes_on;
    }
    if (m_parser.error() < parser_type::recovery_failed && !is_stuck(once)) {
        return at_the_end;
    }
    if (!m_parser.node_queue_empty()) {
        take();
    }
    if (m_parser.error() == parser_type::end_of_document || has_failed()) {
        return progress::ends;
    }
    return pass_over_damage() ? progress::goes_on : at_the_end;
}

std::string log_reader::outcome() const { return in_words(m_parser.error()); }

bool log_reader::has_failed() const { return m_parser.error() >= parser_type::fatal_error; }

// A root with nothing behind it may lack attributes.
std::uint32_t log_reader::printable() {
    std::uint32_t const size = m_parser.node_queue_size();
    bool const is_root_alone =
        size == 1 && m_parser.node_queue_front().status() == parser_type::need_more_data;
    return is_root_alone ? 0 : size;
}

void log_reader::take() {
    parser_type::node const node = m_parser.node_queue_pop();
    if (node.status() != parser_type::end_of_document) {
        print(node);
    }
    if (node.status() == parser_type::no_error) {
        count(node);
    }
}

void log_reader::print(parser_type::node const& node) {
    while (!m_path.empty() && m_path.back() != node.parent_id()) {
        m_path.pop_back();
    }
    m_out << node.line() << ": " << std::string(2 * m_path.size(), ' ') << node.tag();
    for (auto const& [name, value] : node.attribs()) {
        m_out << ' ' << name << '=' << value;
    }
    std::size_t const end = node.data().find_last_not_of(" \t\r\n");
    if (end != ustring8::npos) {
        m_out << ": " << std::string_view(node.data()).substr(0, end + 1);
    }
    m_out << '\n';
}

void log_reader::count(parser_type::node const& node) {
    if (m_path.empty()) {
        ++m_entries;
        if (!m_names_are_given && std::find(m_names.begin(), m_names.end(), node.tag()) == m_names.end()) {
            m_names.push_back(node.tag());
        }
    }
    m_path.push_back(node.id());
}

// More is there than any construct is long, or all that there will be.
bool log_reader::is_stuck(bool once) const {
    return m_parser.error() == parser_type::need_more_data &&
           (once || m_parser.file_length() - m_parser.parse_offset() >= longest_construct);
}

bool log_reader::pass_over_damage() {
    parser_type::error_type const damage = m_parser.error();
    if (damage != parser_type::recovery_failed) {
        m_complaints << m_parser.line() << ": " << in_words(damage) << '\n';
    }
    m_path.clear();
    if (m_parser.recover(m_names) != parser_type::no_error) {
        return false;
    }
    m_complaints << m_parser.line() << ": going on\n";
    return true;
}
