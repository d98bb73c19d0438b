// Reads a log through the stream parser and prints its entries.

#pragma once

#include <cstdint>
#include <iosfwd>
#include <list>
#include <string>
#include <vector>

#include "veldrin/parser.hpp"
#include "veldrin/strings.hpp"

using veldrin::strings::ustring8;

class log_reader {
public:
    // Entries go to `out`, what is wrong with the log to `complaints`.
    log_reader(ustring8 const& file, std::list<ustring8> const& names, std::ostream& out,
               std::ostream& complaints);

    enum class progress { goes_on, waits, ends };

    // Prints some of what has come since the last call, and passes over damage. It ends where nothing more
    // can come; if `once`, also where nothing more is there.
    progress read(bool once);

    std::int64_t position() const { return m_parser.parse_offset(); }
    std::int64_t length() const { return m_parser.file_length(); }
    std::uint64_t entries() const { return m_entries; }

    // In words.
    std::string outcome() const;
    bool has_failed() const;

private:
    using parser_type = veldrin::parser::xml_stream_parser;

    std::uint32_t printable();
    void take();
    void print(parser_type::node const& node);
    void count(parser_type::node const& node);
    bool pass_over_damage();
    bool is_stuck(bool once) const;

    parser_type m_parser;
    std::list<ustring8> m_names;
    bool m_names_are_given;
    std::ostream& m_out;
    std::ostream& m_complaints;
    std::uint64_t m_entries = 0;
    // The elements around the one that was printed last, from its entry on, and that one itself.
    std::vector<std::uint64_t> m_path;
};
