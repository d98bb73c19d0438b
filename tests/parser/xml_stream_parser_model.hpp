// The plain model that the stream parser is compared with: a whole text behind a header, one index, one loop,
// no chunks and no queue that fills up. Where the parser would ask for more data, the model stops.

#pragma once

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "parser/xml_stream_outcome.hpp"

namespace support {

struct stream_outcome {
    std::vector<std::string> nodes;
    std::string error;
    std::uint32_t line = 1;
    // How many bytes of the text have been read for good.
    std::int64_t offset = 0;

    bool operator==(stream_outcome const&) const = default;
};

inline void PrintTo(stream_outcome const& value, std::ostream* out) {
    *out << value.error << " at line " << value.line << ", offset " << value.offset << " after";
    for (std::string const& node : value.nodes) {
        *out << " [" << node << "]";
    }
}

class xml_stream_parser_model {
public:
    static stream_outcome parse(std::string const& text, unsigned depth) {
        xml_stream_parser_model model(text, depth);
        model.run();
        return model.m_result;
    }

private:
    struct element {
        std::string mark;
        bool available;
        std::string place;
        std::string tag;
        std::string attributes;
        std::string data;
    };

    xml_stream_parser_model(std::string const& text, unsigned depth) : m_text(text), m_depth(depth) {}

    void run() {
        try {
            while (m_index < m_text.size()) {
                m_result.offset = static_cast<std::int64_t>(m_index);
                if (!step()) {
                    break;
                }
            }
            m_result.offset = static_cast<std::int64_t>(m_index);
            m_result.error = m_done ? "end_of_document" : "no_error";
        } catch (char const* error) {
            m_result.error = error;
        }
        for (element const& each : m_elements) {
            if (!each.available) {
                break;
            }
            std::string const data = each.data.empty() ? "" : " '" + each.data + "'";
            m_result.nodes.push_back(each.place + " " + each.mark + each.tag + each.attributes + data);
        }
    }

    static bool is_one_of(char byte, std::string const& set) { return set.find(byte) != std::string::npos; }
    bool here(std::string const& text) const { return m_text.compare(m_index, text.size(), text) == 0; }
    std::size_t left() const { return m_text.size() - m_index; }

    // Each byte that is read comes through here.
    char next() {
        if (left() == 0) {
            throw "need_more_data";
        }
        return m_text[m_index++];
    }
    char peek() const {
        if (left() == 0) {
            throw "need_more_data";
        }
        return m_text[m_index];
    }
    void white_space() {
        while (left() > 0 && is_one_of(peek(), " \t\r\n")) {
            m_result.line += next() == '\n' ? 1U : 0U;
        }
    }
    static bool is_name_byte(char byte) {
        std::string const set = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_";
        return is_one_of(byte, set) || (byte & 0x80) != 0;
    }
    // The byte behind it must be there.
    std::string name() {
        white_space();
        std::string text;
        while (is_name_byte(peek())) {
            text += next();
        }
        return text;
    }

    std::string reference() {
        if (left() < 5) {
            throw "need_more_data";
        }
        std::string const characters = "&'>< \"";
        std::vector<std::string> const names = {"&amp;", "&apos;", "&gt;", "&lt;", "&nbsp;", "&quot;"};
        for (std::size_t index = 0; index < names.size(); ++index) {
            if (here(names[index])) {
                m_index += names[index].size();
                return characters.substr(index, 1);
            }
            if (names[index].compare(0, left(), m_text, m_index, left()) == 0) {
                throw "need_more_data";
            }
        }
        if (!here("&#")) {
            throw "syntax_error";
        }
        bool const hexadecimal = here("&#x");
        m_index += hexadecimal ? 3 : 2;
        std::string digits;
        while (is_one_of(peek(), hexadecimal ? "0123456789abcdefABCDEF" : "0123456789")) {
            digits += next();
        }
        if (next() != ';') {
            throw "syntax_error";
        }
        unsigned const radix = hexadecimal ? 16 : digits.size() > 1 && digits[0] == '0' ? 8 : 10;
        unsigned value = 0;
        for (char const digit : digits) {
            unsigned const plain = digit <= '9' ? static_cast<unsigned>(digit - '0')
                                                : static_cast<unsigned>((digit | 0x20) - 'a' + 10);
            if (plain >= radix) {
                break;
            }
            value = value * radix + plain;
            if (value > 255) {
                value = 255;
                break;
            }
        }
        return {static_cast<char>(value)};
    }

    std::string place(std::size_t id, std::size_t parent) const {
        return std::to_string(id) + "<" + std::to_string(parent) + " @" + std::to_string(m_result.line);
    }

    void start_tag() {
        next();
        std::string const tag = name();
        if (tag.empty()) {
            throw "syntax_error";
        }
        bool const open_node = m_open_nodes.size() < m_depth && tag != "include";
        if (open_node) {
            if (m_root.empty()) {
                m_root = tag;
            }
            m_open_nodes.push_back(tag);
        }
        ++m_last_id;
        m_elements.push_back(
            {"+", open_node, place(m_last_id, m_ids.empty() ? 0 : m_ids.back()), tag, "", ""});
        m_ids.push_back(m_last_id);
        m_tags.push_back(m_elements.size() - 1);
        m_attributes.clear();
        m_in_tag = true;
    }

    static void pop(std::vector<std::size_t>& stack) {
        if (!stack.empty()) {
            stack.pop_back();
        }
    }
    void close_innermost() {
        m_elements[m_tags.back()].mark = ".";
        m_elements[m_tags.back()].available = true;
        pop(m_tags);
        pop(m_ids);
    }

    void end_tag() {
        m_index += 2;
        std::string const tag = name();
        if (tag.empty()) {
            throw "need_more_data";
        }
        bool const fits = !m_tags.empty() && m_elements[m_tags.back()].tag == tag;
        if (m_tags.size() > m_depth || (fits && tag == "include")) {
            if (!fits) {
                throw "tag_mismatch";
            }
            close_innermost();
        } else {
            if (m_open_nodes.empty() || m_open_nodes.back() != tag) {
                throw "tag_mismatch";
            }
            m_elements.push_back(
                {tag == m_root ? "!" : ".", true, place(m_open_nodes.size(), 0), tag, "", ""});
            m_done = m_done || tag == m_root;
            m_open_nodes.pop_back();
            pop(m_tags);
            pop(m_ids);
        }
        m_behind_end_tag = true;
    }

    void comment() {
        m_index += 4;
        for (;; ++m_index) {
            m_result.offset = static_cast<std::int64_t>(m_index);
            if (left() < 4) {
                throw "need_more_data";
            }
            if (here("--")) {
                if (!here("-->")) {
                    throw "syntax_error";
                }
                m_index += 3;
                return;
            }
            m_result.line += peek() == '\n' ? 1U : 0U;
        }
    }

    void attribute() {
        std::string const key = name();
        if (key.empty()) {
            throw "syntax_error";
        }
        if (next() != '=') {
            throw "missing_equals";
        }
        white_space();
        char const quote = next();
        if (!is_one_of(quote, "'\"")) {
            throw "missing_quote";
        }
        std::string value;
        while (peek() != quote) {
            if (peek() == '<') {
                throw "syntax_error";
            }
            value += peek() == '&' ? reference() : std::string(1, next());
        }
        next();
        for (std::string const& other : m_attributes) {
            if (other == key) {
                throw "duplicate_attribute";
            }
        }
        m_attributes.push_back(key);
        m_elements[m_tags.back()].attributes += " " + key + "=" + value;
    }

    void text() {
        std::string run;
        while (peek() != '<') {
            run += peek() == '&' ? reference() : std::string(1, next());
        }
        if (m_tags.size() < 2) {
            throw "syntax_error";
        }
        m_elements[m_tags.back()].data = run;
    }

    // False at the end of the document.
    bool step() {
        if (is_one_of(peek(), " \t\r\n")) {
            white_space();
        } else if (peek() == '<') {
            if (m_in_tag) {
                throw "syntax_error";
            }
            if (left() < 2 || (here("<!") && left() < 4)) {
                throw "need_more_data";
            }
            if (here("</")) {
                end_tag();
            } else if (here("<!--")) {
                comment();
            } else if (here("<!")) {
                next();
            } else {
                start_tag();
            }
        } else if (peek() == '>') {
            bool const ends = !m_in_tag && m_behind_end_tag;
            if (!m_in_tag && !m_behind_end_tag) {
                throw "syntax_error";
            }
            (m_in_tag ? m_in_tag : m_behind_end_tag) = false;
            next();
            return !(ends && m_done);
        } else if (!m_in_tag) {
            text();
        } else if (peek() == '/') {
            if (left() < 2) {
                throw "need_more_data";
            }
            if (!here("/>")) {
                throw "syntax_error";
            }
            m_index += 2;
            m_in_tag = false;
            close_innermost();
        } else {
            attribute();
        }
        return true;
    }

    std::string const m_text;
    std::size_t m_depth;
    std::size_t m_index = 0;
    stream_outcome m_result;
    std::vector<element> m_elements;
    std::vector<std::size_t> m_tags;
    std::vector<std::size_t> m_ids;
    std::vector<std::string> m_open_nodes;
    std::vector<std::string> m_attributes;
    std::string m_root;
    std::size_t m_last_id = 0;
    bool m_in_tag = false;
    bool m_behind_end_tag = false;
    bool m_done = false;
};

} // namespace support
