// File: veldrin/parser/xml_stream_parser.hpp
//
// A pull parser for XML files that are large, or still being written. It reads a file through a buffer of
// fixed size and offers the document as a queue of nodes. The file is opened for each chunk and closed again;
// where it ends for now, the parse stops and can be called once more when the file has grown. After damage,
// `recover` resumes at the next start tag of a known name.
//
//     // log.xml: <?xml version="1.0"?><log><entry level="2">disk full</entry></log>
//     parser::xml_stream_parser log(strings::ustring8("log.xml"), 1);
//     log.parse();                           // end_of_document
//     log.node_queue_pop().tag();            // "log", which was available from its start tag on
//     auto entry = log.node_queue_pop();     // tag() "entry", attribs() {{"level", "2"}}, data() "disk full"
//     log.node_queue_pop().status();         // end_of_document: this is the end of "log"

#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <exception>
#include <list>
#include <memory>
#include <set>
#include <string>
#include <utility>

#include "veldrin/export.hpp"
#include "veldrin/strings/ustring.hpp"

namespace VELDRIN_2_18::parser {

namespace _private {
class xml_stream_buffer;
} // namespace _private

class VELDRIN_EXPORT xml_stream_parser {
public:
    // Below 2 all is well, up to 9 the parse has stopped for this time, from 10 on for good.
    enum error_type : std::int32_t {
        no_error = 0,
        need_more_data = 1,      // the data ended within a construct, or is too short for a document
        recovery_failed = 2,     // nothing to resume at
        end_of_document = 3,     // the root element, or an open node of its name, was closed
        tag_mismatch = 4,        // an end tag that does not fit the innermost open element
        duplicate_attribute = 5, // an attribute given twice
        syntax_error = 6,        // a character that is not allowed here
        missing_quote = 7,       // an attribute's value does not begin with a quote
        missing_equals = 9,      // no "=" directly behind an attribute's name
        fatal_error = 10,        // an exception from below passed through, or `recover` without a root
        file_error = 11,         // the file cannot be opened
        bad_header = 12          // no XML header
    };

    // An element, or the end of one. Elements at a depth below the parser's limit are open nodes, and give
    // two: one at the start tag, at once available, with the status `need_more_data`; and one at the end tag,
    // without attributes or text, with the status `no_error`, or `end_of_document` for the root. All others,
    // and each element named `include`, give one, which is available when the element is closed, with the
    // status `no_error`.
    //
    // An open node that is written as an empty element, `<a/>`, has the status `no_error` and is still open:
    // an end tag `</a>` must follow, which gives the second node. It is taken for the end of the element
    // around, too: what comes behind it is read as if it stood beside that element, not in it.
    class VELDRIN_EXPORT node {
    public:
        // Without a name, not available, `need_more_data`, all numbers 0.
        node() = default;

        error_type status() const { return m_status; }
        bool available() const { return m_available; }
        strings::ustring8 const& tag() const { return m_tag; }

        // Where the name of the start or end tag was read.
        std::uint32_t line() const { return m_line; }

        // Start tags are numbered from 1; a node at an end tag has the number of elements then open as open
        // nodes, itself included.
        std::uint64_t id() const { return m_id; }

        // The element around this one; 0 for the root, for a node at an end tag, and for the element that
        // a recovery resumed at.
        std::uint64_t parent_id() const { return m_parent_id; }

        // Names and values in the order of the document, references replaced.
        std::list<std::pair<strings::ustring8, strings::ustring8>>& attribs() { return m_attribs; }
        std::list<std::pair<strings::ustring8, strings::ustring8>> const& attribs() const {
            return m_attribs;
        }

        // The last run of text directly in the element, without the white space in front of it.
        strings::ustring8 const& data() const { return m_data; }

    private:
        friend class xml_stream_parser;

        error_type m_status = need_more_data;
        bool m_available = false;
        strings::ustring8 m_tag;
        std::uint32_t m_line = 0;
        std::uint64_t m_id = 0;
        std::uint64_t m_parent_id = 0;
        std::list<std::pair<strings::ustring8, strings::ustring8>> m_attribs;
        strings::ustring8 m_data;
    };

    // Not of the library's own tree, but a standard exception.
    class VELDRIN_EXPORT EmptyNodeQueue : public std::exception {
    public:
        // "empty node queue"
        char const* what() const noexcept override;
    };

    // Elements at a depth below `depth`, the root being at depth 0, are open nodes. At 0 there are none, so
    // no `end_of_document` is ever met, and `recover` has no root to go by: take 1 at least.
    //
    // The error is `file_error` if the file cannot be opened, which a directory cannot, and `no_error`
    // otherwise.
    xml_stream_parser(strings::ustring8 const& file, unsigned int depth);
    xml_stream_parser(strings::ustring16 const& file, unsigned int depth);
    xml_stream_parser(strings::ustring32 const& file, unsigned int depth);

    xml_stream_parser(xml_stream_parser const&) = delete;
    xml_stream_parser& operator=(xml_stream_parser const&) = delete;
    ~xml_stream_parser();

    // Reads on until the document ends, the data ends, something is wrong, or 100 nodes and more are in the
    // queue, of which two can be taken. Returns the error as it is then:
    //
    // - `no_error`: to be called again when nodes have been taken, or the file has grown;
    // - `need_more_data`: the same, the data having ended within a construct: a name, an attribute, a run of
    //   text, a comment. A file of fewer than 50 bytes stays at this, and so do an end tag without a name
    //   and a construct, other than a comment, of more than 65536 bytes;
    // - `end_of_document`, and all from `fatal_error` on: for good;
    // - all others: again at each call, until `recover` has found a place to go on from. The nodes up to
    //   there are in the queue; while it is full, a call gives `no_error` and does not come to the place.
    //
    // What the standard library throws, such as `std::bad_alloc`, passes through. It leaves `fatal_error`,
    // unless the file was being opened or read.
    error_type const& parse();

    error_type const& error() const { return m_error; }

    // Drops all nodes in the queue and goes forward to the next start tag with one of the names, compared
    // byte by byte. If there is one, the error becomes `no_error`, and `parse` goes on from it, inside the
    // open nodes that have not ended. If the data ends before, the error is `recovery_failed`, and so `parse`
    // answers until `recover` finds one after all, as it may in a file that has grown. No names give
    // `recovery_failed` too, and nothing else is done. So it is with `fatal_error` before the root element.
    // An error from `fatal_error` on stays. Behind the end of the document only what was read with it is
    // looked at: the error is `no_error` if a name is found there, but `parse` reads nothing more.
    error_type const& recover(std::list<strings::ustring8> const& names);

    // The same for UTF-8 in `std::string`. A template, so that a list in braces means the other.
    template <class Allocator>
    error_type const& recover(std::list<std::string, Allocator> const& names) {
        return recover(std::list<strings::ustring8>(names.begin(), names.end()));
    }

    // The nodes at the front of the queue that can be taken: the first unfinished one holds up all behind it.
    std::uint32_t node_queue_size() const;

    // True if none can be taken.
    bool node_queue_empty() const;

    // Throws `EmptyNodeQueue` if `node_queue_empty()`.
    node& node_queue_front();

    // Takes the front node; if none is available behind it, and the error is below 2, reads on as `parse`
    // does; if that throws, the node stands at the front again. What is met later of the attributes and text
    // of an element whose node has been taken is dropped. Throws `EmptyNodeQueue` if the queue is empty, and
    // also if its front is not available, which is gone by then.
    node node_queue_pop();

    // The name of the first open node; empty before it.
    strings::ustring8 const& root() const { return m_root; }

    // The line of the current position, from 1. Counted are the line feeds in white space of its own (between
    // the runs of text and inside tags), in comments, and in what `recover` skips.
    std::uint32_t line() const;

    // Where in the file the next call goes on, in bytes: behind the last construct that was read whole.
    std::int64_t parse_offset() const;

    // The length that the file has now, in bytes; 0 if it cannot be opened.
    std::int64_t file_length() const;

protected:
    using node_position = std::list<node>::iterator;

    // Tries to open the file, and sets the error accordingly.
    void init();

    // The loop of `parse`: behind the header, and without a look at the error that was there.
    void do_parse();

    // Reads on behind the data, as far as there is room, and returns the number of bytes. 0, with the error
    // as it was, where the file has not grown; 0 and `file_error` if it cannot be opened. Otherwise the error
    // becomes `no_error`. The position is at the mark then.
    std::size_t load();

    // From the mark to the end of the data, or to an error, which is set.
    void parse_next();

    // The functions below start at the current position and throw an `error_type`.

    // Takes white space, and then letters and digits (ASCII), "_" and bytes above 127. Leaves the position on
    // the last of them. Empty if there are none, and also, at the end of the data, if the name may go on.
    strings::ustring8 parse_name();

    // Takes white space and a quoted value. Leaves the position on the closing quote. Empty if the data ends
    // in it; a value that is empty itself is told from that by a flag.
    strings::ustring8 parse_attrib_value();

    // The one byte that a reference stands for. From its "&" on; leaves the position on its ";". Empty if the
    // data ends in it, or if fewer than five bytes are left.
    strings::ustring8 parse_entity();

    // From behind the opener, or from anywhere within. True with the mark behind the comment; false, with the
    // mark at the position, if fewer than four bytes are left.
    bool finish_comment();

    void skip_whitespace();

    // Blank, tab, carriage return or line feed.
    static bool is_whitespace(char byte);

    // Opens an element: its node at the end of the queue, and its tag as the innermost one.
    void new_node(strings::ustring8 const& name, error_type status, bool available);

    // The node of the innermost tag; the end of the queue if it is there no more, or no tag is open.
    node_position innermost_node();

    // Closes the innermost tag. The node at the position is available then, with the status `no_error`.
    void close_tag(node_position const& position);

    // The node at the end of an open node.
    void end_of_open_node(strings::ustring8 const& name, error_type status);

    // True if fewer than `count` nodes can be taken.
    bool queue_size_less_than(std::size_t count) const;

private:
    struct open_tag {
        strings::ustring8 name;
        node_position position;
    };

    xml_stream_parser(std::unique_ptr<_private::xml_stream_buffer> input, unsigned int depth);

    void parse_header();
    bool parse_construct();
    bool parse_markup();
    void parse_end_tag();
    void parse_declaration();
    void parse_start_tag();
    bool parse_tag_end();
    void parse_empty_element_end();
    void parse_attribute();
    void parse_text();
    strings::ustring8 parse_numbered_entity();
    void drop_unfinished();
    bool find_start_tag(std::list<strings::ustring8> const& names);
    void pop_tag();
    void pop_id();

    std::unique_ptr<_private::xml_stream_buffer> m_input;
    error_type m_error = no_error;
    unsigned int m_depth_limit;
    strings::ustring8 m_root;

    bool m_ready = true;
    bool m_header_done = false;
    bool m_done = false;
    bool m_in_tag = false;
    bool m_end_tag_seen = false;
    bool m_in_comment = false;
    bool m_value_is_empty = false;

    std::list<node> m_queue;
    std::deque<open_tag> m_tags;
    // The outermost tags of which the nodes are not in the queue any more: nodes leave it in the order of
    // their start tags.
    std::size_t m_tags_without_node = 0;
    std::deque<strings::ustring8> m_open_nodes;
    std::deque<std::uint64_t> m_ids{0};
    std::uint64_t m_next_id = 1;
    std::set<strings::ustring8> m_attribute_names;
};

} // namespace VELDRIN_2_18::parser
