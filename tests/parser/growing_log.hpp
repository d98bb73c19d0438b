// A log of numbered entries that one thread writes while another one reads it.

#pragma once

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <random>
#include <string>
#include <thread>

#include "parser/xml_stream_outcome.hpp"
#include "veldrin/parser/xml_stream_parser.hpp"

namespace support {

inline std::string const log_beginning = long_header + "\n<log created='now'>\n";
inline std::string const log_end = "</log>\n";

inline std::string log_entry(std::uint64_t number) {
    std::string const text = std::to_string(number);
    return "<entry number='" + text + "'>\n  <place file=\"a&amp;b.cpp\" line='" + text + "'/>\n  <!-- " +
           text + " -->\n  <text>entry &lt;" + text + "&gt;\nof the log</text>\n</entry>\n";
}

// Appends entries until the file has that size, in pieces that end at any byte, and ends the log. Returns the
// number of entries.
inline std::uint64_t write_log(std::string const& path, std::size_t size) {
    std::ofstream file(path, std::ios::binary | std::ios::app);
    std::mt19937 random(1);
    std::uint64_t entries = 0;
    std::size_t written = 0;
    std::string pending;
    while (written + pending.size() < size) {
        std::size_t const piece = 1 + random() % 100000;
        while (pending.size() < piece) {
            pending += log_entry(++entries);
        }
        file.write(pending.data(), static_cast<std::streamsize>(piece)).flush();
        written += piece;
        pending.erase(0, piece);
    }
    file << pending << log_end;
    return entries;
}

// Reads the log to its end, however long that is in coming, and returns the number of entries that are as
// they were written; their numbers have no gap.
inline std::uint64_t read_log(std::string const& path) {
    xml_stream_parser parser(path, 1);
    std::uint64_t entries = 0;
    bool is_good = true;
    auto const take = [&](std::string const& expected) {
        is_good = is_good && !parser.node_queue_empty() && text_of(parser.node_queue_pop()) == expected;
    };
    bool is_open = false;
    while (is_good) {
        xml_stream_parser::error_type const error = parser.parse();
        if (error == xml_stream_parser::need_more_data || error == xml_stream_parser::no_error) {
            std::this_thread::yield();
        } else if (error != xml_stream_parser::end_of_document) {
            return entries;
        }
        if (!is_open && parser.node_queue_size() > 1) {
            take("+log created=now");
            is_open = true;
        }
        while (is_open && is_good && !parser.node_queue_empty()) {
            if (parser.node_queue_front().status() == xml_stream_parser::end_of_document) {
                return entries;
            }
            std::string const number = std::to_string(entries + 1);
            take(".entry number=" + number);
            take(".place file=a&b.cpp line=" + number);
            take(".text 'entry <" + number + ">\nof the log'");
            entries += is_good ? 1 : 0;
        }
    }
    return entries;
}

} // namespace support
