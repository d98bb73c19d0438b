// The plain model that the parser is compared with: one loop over an index, one state for everything, every
// read through `at`, no thought of speed. It knows fresh parsers only.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "parser/xml_outcome.hpp"

namespace support {

class xml_parser_model {
public:
    static outcome parse(std::string const& text) { return xml_parser_model(text).run(); }

private:
    explicit xml_parser_model(std::string const& text) : m_text(text) {}

    struct stop {};

    outcome run() {
        try {
            header();
            content();
            m_result.line = 0;
            m_result.type = m_open.empty() ? parse_error::no_parse_error : parse_error::unexpected_eof;
        } catch (stop) {
        }
        return m_result;
    }

    char at(std::size_t index) const { return index < m_text.size() ? m_text[index] : '\0'; }
    bool at_end() const { return m_index >= m_text.size(); }
    bool here(std::string const& text) const { return m_text.compare(m_index, text.size(), text) == 0; }
    static bool is_one_of(char character, std::string const& set) {
        return set.find(character) != std::string::npos;
    }
    bool space_at(std::size_t index) const {
        return index < m_text.size() && is_one_of(m_text[index], " \t\r\n");
    }

    void event(std::string const& kind, std::string const& text) {
        m_result.events.push_back(kind + " " + text);
    }

    [[noreturn]] void error(parse_error::error_type type, std::string const& message = "") {
        m_result.type = type;
        m_result.message = message;
        throw stop();
    }
    [[noreturn]] void unexpected(std::size_t index) {
        error(parse_error::unexpected_char, std::string(1, at(index)));
    }

    std::string white_space() {
        std::string text;
        for (; space_at(m_index); ++m_index) {
            text += m_text[m_index];
            m_result.line += m_text[m_index] == '\n' ? 1U : 0U;
        }
        return text;
    }

    // Unlike the parser's tools, these leave the index behind what they read.
    std::string name() {
        std::string const letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
        if (at_end() || !is_one_of(m_text[m_index], letters)) {
            unexpected(m_index);
        }
        std::size_t const first = m_index;
        while (!at_end() && is_one_of(m_text[m_index], letters + "0123456789_")) {
            ++m_index;
        }
        return m_text.substr(first, m_index - first);
    }

    char character_number() {
        bool const hexadecimal = here("&#x");
        m_index += hexadecimal ? 3 : 2;
        std::string const set = hexadecimal ? "0123456789abcdefABCDEF" : "0123456789";
        std::string digits;
        for (; !at_end() && is_one_of(m_text[m_index], set); ++m_index) {
            digits += m_text[m_index];
        }
        if (at(m_index) != ';') {
            unexpected(m_index);
        }
        ++m_index;
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
        return static_cast<char>(value);
    }

    char reference() {
        if (here("&#")) {
            return character_number();
        }
        std::string const characters = "&'>< \"";
        std::vector<std::string> const names = {"&amp;", "&apos;", "&gt;", "&lt;", "&nbsp;", "&quot;"};
        for (std::size_t index = 0; index < names.size(); ++index) {
            if (here(names[index])) {
                m_index += names[index].size();
                return characters[index];
            }
        }
        if (is_one_of(at(m_index + 1), "aglnq")) {
            unexpected(m_index + 2);
        }
        error(parse_error::unknown_entity);
    }

    void header() {
        if (m_text.size() >= 4 && m_text[3] == '<') {
            m_index = 3;
        }
        if (!here("<?xml")) {
            error(parse_error::invalid_header);
        }
        for (m_index += 5; !here("?>"); ++m_index) {
            if (at_end()) {
                error(parse_error::no_root_element);
            }
            if (is_one_of(m_text[m_index], "<>")) {
                error(parse_error::invalid_header);
            }
        }
        m_index += 2;
        white_space();
        if (at_end()) {
            error(parse_error::no_root_element);
        }
    }

    void section(std::string const& kind, std::string const& space, std::size_t opener,
                 std::string const& closer) {
        std::size_t const close = m_text.find(closer, m_index + opener);
        if (close == std::string::npos) {
            error(parse_error::unexpected_eof);
        }
        event(kind, space + m_text.substr(m_index + opener, close - m_index - opener));
        m_index = close + 3;
        m_in_tag = false;
    }

    void end_tag() {
        m_index += 2;
        std::string const tag = name();
        if (!m_open.empty()) {
            if (m_open.back() != tag) {
                error(parse_error::mismatched_end, tag);
            }
            m_open.pop_back();
        }
        std::string const rest = m_text.substr(m_index);
        if (rest.empty() || (rest.size() == 1 && rest != ">")) {
            error(parse_error::unexpected_eof);
        }
        event("end", tag);
    }

    void start_tag() {
        if (m_open.empty() && m_root_seen) {
            error(parse_error::data_after_root);
        }
        ++m_index;
        m_open.push_back(name());
        m_attributes.clear();
        m_root_seen = true;
        event("start", m_open.back());
    }

    void attribute() {
        std::string const key = name();
        for (std::string const& other : m_attributes) {
            if (other == key) {
                error(parse_error::attribute_redefined, key);
            }
        }
        m_attributes.push_back(key);
        white_space();
        if (at(m_index) != '=') {
            error(parse_error::missing_equals, key);
        }
        ++m_index;
        white_space();
        char const quote = at(m_index);
        if (quote != '\'' && quote != '"') {
            error(parse_error::missing_quote);
        }
        std::string value;
        for (++m_index; !at_end() && m_text[m_index] != quote;) {
            if (m_text[m_index] == '<') {
                unexpected(m_index);
            }
            value += m_text[m_index] == '&' ? reference() : m_text[m_index++];
        }
        event("attribute", key + "=" + value);
        if (at_end()) {
            error(parse_error::missing_quote, key);
        }
        ++m_index;
    }

    void text() {
        std::string run;
        while (!at_end() && m_text[m_index] != '<' && !(space_at(m_index) && space_at(m_index + 1))) {
            run += m_text[m_index] == '&' ? reference() : m_text[m_index++];
        }
        event("character", run);
    }

    void content() {
        while (!at_end()) {
            std::string const space = white_space();
            if (!space.empty() && !m_in_tag) {
                event("space", space);
            }
            if (at_end()) {
                return;
            }
            char const character = m_text[m_index];
            if ((character == '<' && m_in_tag) || (character == '>' && !m_in_tag)) {
                unexpected(m_index);
            } else if (character == '<') {
                m_in_tag = true;
                if (here("</")) {
                    end_tag();
                } else if (here("<!--")) {
                    section("comment", space, 4, "-->");
                } else if (here("<![CDATA[")) {
                    section("character", space, 9, "]]>");
                } else {
                    start_tag();
                }
            } else if (character == '>') {
                m_in_tag = false;
                ++m_index;
            } else if (!m_in_tag) {
                text();
            } else if (character == '/') {
                if (at(m_index + 1) != '>') {
                    unexpected(m_index + 1);
                }
                if (m_open.empty()) {
                    error(parse_error::mismatched_end);
                }
                event("end", m_open.back());
                m_open.pop_back();
                m_attributes.clear();
                m_in_tag = false;
                m_index += 2;
            } else {
                attribute();
            }
        }
    }

    std::string const m_text;
    std::size_t m_index = 0;
    outcome m_result;
    std::vector<std::string> m_open;
    std::vector<std::string> m_attributes;
    bool m_in_tag = false;
    bool m_root_seen = false;
};

} // namespace support
