// The XML parser and the token stream over any bytes: the events nest, a range parses like a whole text and
// is not read behind its end, and the tokens say what the events say.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "require.hpp"
#include "text_of_bytes.hpp"
#include "veldrin/functor/member_function.hpp"
#include "veldrin/parser/xml_parser.hpp"
#include "veldrin/parser/xml_token_stream.hpp"
#include "veldrin/strings/ustring.hpp"

namespace {

using namespace VELDRIN_2_18;
using parser::xml_parser;
using parser::xml_token_stream;
using strings::ustring8;
using token = xml_token_stream::token;
using parse_error = xml_parser::parse_error;

// The events as the tokens that they become, without the ends of the attributes.
using event = std::pair<token::token_type, ustring8>;

class recorder {
public:
    recorder() {
        m_parser.on_element_start = text_event(this, &recorder::start);
        m_parser.on_element_end = text_event(this, &recorder::end);
        m_parser.on_attribute = functor::member_function_t<recorder, void(ustring8 const&, ustring8 const&)>(
            this, &recorder::attribute);
        m_parser.on_character = text_event(this, &recorder::character);
        m_parser.on_space = text_event(this, &recorder::space);
        m_parser.on_comment = text_event(this, &recorder::comment);
    }
    recorder(recorder const&) = delete;
    recorder& operator=(recorder const&) = delete;

    void parse(ustring8::const_iterator first, ustring8::const_iterator last) {
        events.clear();
        m_open.clear();
        m_roots = 0;
        error = m_parser.parse(first, last);
        require(error.type() != parse_error::no_parse_error || m_open.empty());
    }

    std::vector<event> events;
    parse_error error;

private:
    using text_event = functor::member_function_t<recorder, void(ustring8 const&)>;

    void start(ustring8 const& name) {
        m_roots += m_open.empty() ? 1U : 0U;
        require(m_roots <= 1);
        m_open.push_back(name);
        events.emplace_back(token::element_start, name);
    }
    void end(ustring8 const& name) {
        if (!m_open.empty()) {
            require(m_open.back() == name);
            m_open.pop_back();
        }
        events.emplace_back(token::element_end, name);
    }
    void attribute(ustring8 const& name, ustring8 const& value) {
        events.emplace_back(token::attribute_name, name);
        events.emplace_back(token::attribute_value, value);
    }
    void character(ustring8 const& text) { events.emplace_back(token::character, text); }
    void space(ustring8 const& text) {
        require(!text.empty() && text.find_first_not_of(" \t\r\n") == text.npos);
        events.emplace_back(token::space, text);
    }
    void comment(ustring8 const& text) { events.emplace_back(token::comment, text); }

    xml_parser m_parser;
    std::vector<ustring8> m_open;
    unsigned m_roots = 0;
};

bool same(parse_error const& left, parse_error const& right) {
    return left.type() == right.type() && left.line() == right.line() && left.message() == right.message();
}

void require_bounds(recorder const& recorded, ustring8 const& text) {
    require(static_cast<std::ptrdiff_t>(recorded.error.line()) <= std::count(text.begin(), text.end(), '\n'));
    std::size_t size = recorded.error.message().size();
    for (event const& each : recorded.events) {
        size += each.second.size();
    }
    // White space comes twice in front of a comment; "/>" gives an element's name once more, so that it is
    // left out.
    std::size_t ends = 0;
    for (event const& each : recorded.events) {
        ends += each.first == token::element_end ? each.second.size() : 0;
    }
    require(size - ends <= 2 * text.size() + 1);
}

void require_same_tokens(recorder const& recorded, ustring8 const& text) {
    xml_token_stream stream;
    require(same(stream.parse(text), recorded.error));

    std::vector<event> events;
    std::ptrdiff_t open_start_tags = 0;
    for (token const& each : stream) {
        if (each.type() == token::attributes_end) {
            require(each.value().empty());
            --open_start_tags;
        } else {
            open_start_tags += each.type() == token::element_start ? 1 : 0;
            events.emplace_back(each.type(), each.value());
        }
        require(open_start_tags == 0 || open_start_tags == 1);
    }
    require(events == recorded.events);
    require(open_start_tags == 0 || recorded.error.type() != parse_error::no_parse_error);
}

bool has_attribute_without_element(std::vector<event> const& events) {
    auto const first = std::find_if(events.begin(), events.end(), [](event const& each) {
        return each.first == token::element_start || each.first == token::attribute_name;
    });
    return first != events.end() && first->first == token::attribute_name;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    ustring8 const text = text_of_bytes<ustring8>(data, size);
    recorder whole;
    whole.parse(text.begin(), text.end());
    require_bounds(whole, text);
    require_same_tokens(whole, text);

    // What stands behind a range must not count.
    for (char const* behind : {">", "-->]]>", "a;='x'"}) {
        ustring8 const longer = text + behind;
        recorder range;
        range.parse(longer.begin(), longer.begin() + static_cast<std::ptrdiff_t>(size));
        require(range.events == whole.events && same(range.error, whole.error));
    }

    // A parser that has done well starts anew. The attribute names of its last tag stay until the next start
    // tag, so texts with an attribute in front of that are left out.
    if (whole.error.type() == parse_error::no_parse_error && !has_attribute_without_element(whole.events)) {
        std::vector<event> const events = whole.events;
        whole.parse(text.begin(), text.end());
        require(whole.error.type() == parse_error::no_parse_error && whole.events == events);
    }
    return 0;
}
