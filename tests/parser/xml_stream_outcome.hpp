// What a stream parser delivers, as texts that compare and print.

#pragma once

#include <list>
#include <string>
#include <string_view>
#include <vector>

#include "veldrin/parser/xml_stream_parser.hpp"

namespace support {

using VELDRIN_2_18::parser::xml_stream_parser;

// A header that is long enough for any document to be parsed.
inline std::string const long_header = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\"?>";

inline std::string name_of(xml_stream_parser::error_type error) {
    switch (error) {
    case xml_stream_parser::no_error:
        return "no_error";
    case xml_stream_parser::need_more_data:
        return "need_more_data";
    case xml_stream_parser::recovery_failed:
        return "recovery_failed";
    case xml_stream_parser::end_of_document:
        return "end_of_document";
    case xml_stream_parser::tag_mismatch:
        return "tag_mismatch";
    case xml_stream_parser::duplicate_attribute:
        return "duplicate_attribute";
    case xml_stream_parser::syntax_error:
        return "syntax_error";
    case xml_stream_parser::missing_quote:
        return "missing_quote";
    case xml_stream_parser::missing_equals:
        return "missing_equals";
    case xml_stream_parser::fatal_error:
        return "fatal_error";
    case xml_stream_parser::file_error:
        return "file_error";
    case xml_stream_parser::bad_header:
        return "bad_header";
    }
    return "none";
}

// What is read of the document itself: "+r" is available and not finished, ".a x=1 'text'" is, "!r" ends it.
inline std::string text_of(xml_stream_parser::node const& node) {
    std::string text = node.status() == xml_stream_parser::need_more_data    ? "+"
                       : node.status() == xml_stream_parser::end_of_document ? "!"
                                                                             : ".";
    text += node.tag();
    for (auto const& [name, value] : node.attribs()) {
        text += " " + name + "=" + value;
    }
    if (!node.data().empty()) {
        text += " '" + node.data() + "'";
    }
    return text;
}

// The same with its numbers: "2<1 @3 .a" is element 2, in element 1, at line 3.
inline std::string numbered_text_of(xml_stream_parser::node const& node) {
    return std::to_string(node.id()) + "<" + std::to_string(node.parent_id()) + " @" +
           std::to_string(node.line()) + " " + text_of(node);
}

// All nodes that can be taken, as far as taking them does not read on.
template <class Printer>
std::vector<std::string> nodes_in(xml_stream_parser& parser, Printer print) {
    std::vector<std::string> nodes;
    for (auto left = parser.node_queue_size(); left > 0; --left) {
        nodes.push_back(print(parser.node_queue_pop()));
    }
    return nodes;
}

inline std::vector<std::string> nodes_in(xml_stream_parser& parser) { return nodes_in(parser, text_of); }

} // namespace support
