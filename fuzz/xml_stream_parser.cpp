// The stream parser on a file of any bytes. It reads the same from a file that grows in random chunks as from
// one that is whole; and it stands whatever its caller does, and whatever becomes of the file, between two
// reads.
//
// The first byte of an input chooses the depth limit and whether a header is put in front, the second the
// chunks; all others are the document.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <list>
#include <random>
#include <string>
#include <vector>

#include "require.hpp"
#include "veldrin/parser/xml_stream_parser.hpp"

namespace {

using namespace VELDRIN_2_18;
using parser::xml_stream_parser;

class document {
public:
    document() {
        std::random_device random;
        do {
            m_path = std::filesystem::temp_directory_path() / ("veldrin-fuzz-" + std::to_string(random()));
        } while (std::filesystem::exists(m_path));
        write("");
    }
    document(document const&) = delete;
    document& operator=(document const&) = delete;
    ~document() {
        std::error_code ignored;
        std::filesystem::remove(m_path, ignored);
    }

    std::string path() const { return m_path.string(); }
    // Anew: some file systems are slow to empty a file.
    void write(std::string const& text) const {
        remove();
        append(text);
    }
    void append(std::string const& text) const {
        std::ofstream(m_path, std::ios::binary | std::ios::app) << text;
    }
    void remove() const { std::filesystem::remove(m_path); }

private:
    std::filesystem::path m_path;
};

struct outcome {
    // Up to the end of the root: behind that, only what is there at the same time is read.
    std::vector<std::string> nodes;
    bool has_ended = false;
    // At an end tag of the root's name with other elements still open: what is behind it goes to them, as far
    // as it is there at the same time.
    bool has_ended_early = false;
    xml_stream_parser::error_type error = xml_stream_parser::no_error;
    std::uint32_t line = 0;
    std::int64_t offset = 0;
};

std::string text_of(xml_stream_parser::node const& node) {
    std::string text = std::to_string(node.status()) + " " + std::to_string(node.id()) + "<" +
                       std::to_string(node.parent_id()) + " @" + std::to_string(node.line()) + " " +
                       node.tag();
    for (auto const& [name, value] : node.attribs()) {
        text += " " + name + "='" + value + "'";
    }
    return text + " '" + node.data() + "'";
}

// Whether the parser still looks at its file, which is gone afterwards.
bool reads_on(xml_stream_parser& parser, document const& file) {
    file.remove();
    return parser.parse() == xml_stream_parser::file_error;
}

outcome finish(xml_stream_parser& parser, document const& file) {
    outcome result;
    result.error = parser.error();
    result.line = parser.line();
    result.offset = parser.parse_offset();
    for (auto left = parser.node_queue_size(); left > 0 && !result.has_ended; --left) {
        xml_stream_parser::node const node = parser.node_queue_pop();
        require(node.available());
        result.nodes.push_back(text_of(node));
        result.has_ended = node.status() == xml_stream_parser::end_of_document;
        result.has_ended_early = result.has_ended && node.id() > 1;
    }
    // An element that never ended holds back the end of the document.
    if (!result.has_ended && result.error <= xml_stream_parser::end_of_document) {
        result.has_ended_early = !reads_on(parser, file);
    }
    return result;
}

// Nothing is taken on the way, so that attributes and texts find their nodes.
outcome read_whole(document const& file, std::string const& text, unsigned depth) {
    file.write(text);
    xml_stream_parser parser(file.path(), depth);
    parser.parse();
    return finish(parser, file);
}

outcome read_growing(document const& file, std::string const& text, unsigned depth, std::mt19937& random) {
    file.write("");
    xml_stream_parser parser(file.path(), depth);
    for (std::size_t written = 0; written < text.size();) {
        std::string const chunk = text.substr(written, 1 + random() % (1 + text.size() / 3));
        file.append(chunk);
        written += chunk.size();
        parser.parse();
        require(parser.parse_offset() >= 0);
        require(parser.parse_offset() <= static_cast<std::int64_t>(written));
    }
    parser.parse();
    return finish(parser, file);
}

// A queue that is full stops a parse, sooner or later by one node.
bool is_held_up(outcome const& result, std::string const& text) {
    return result.error == xml_stream_parser::no_error &&
           result.offset < static_cast<std::int64_t>(text.size());
}

void require_same(outcome const& whole, outcome const& growing, std::string const& text) {
    // White space in front of the header may fill the first chunk that is long enough to be looked at.
    if (is_held_up(whole, text) || is_held_up(growing, text) ||
        growing.error == xml_stream_parser::bad_header) {
        return;
    }
    require(whole.has_ended == growing.has_ended);
    if (whole.has_ended_early || growing.has_ended_early) {
        return;
    }
    require(whole.nodes == growing.nodes);
    require(whole.has_ended ||
            (whole.error == growing.error && whole.line == growing.line && whole.offset == growing.offset));
}

// One thing that a caller, or whoever writes the file, may do.
void disturb(xml_stream_parser& parser, document const& file, std::string const& text, std::mt19937& random) {
    switch (random() % 16) {
    case 0:
        parser.recover({"a", "entry", "b"});
        break;
    case 1:
        parser.recover(std::list<std::string>());
        break;
    case 2:
        file.write(text.substr(0, random() % (text.size() + 1)));
        break;
    case 3:
        if (random() % 8 == 0) {
            file.remove();
        }
        break;
    case 4:
        try {
            parser.node_queue_pop();
        } catch (xml_stream_parser::EmptyNodeQueue const&) {
        }
        break;
    default:
        if (!parser.node_queue_empty()) {
            parser.node_queue_front().attribs().emplace_back("own", "value");
            require(parser.node_queue_pop().attribs().back().second == "value");
        }
    }
}

void read_disturbed(document const& file, std::string const& text, unsigned depth, std::mt19937& random) {
    file.write("");
    xml_stream_parser parser(file.path(), depth);
    for (std::size_t written = 0; written < text.size();) {
        std::string const chunk = text.substr(written, 1 + random() % (1 + text.size() / 3));
        file.append(chunk);
        written += chunk.size();
        auto const before = parser.error();
        auto const after = parser.parse();
        require(before < xml_stream_parser::fatal_error || after == before);
        require(parser.node_queue_empty() == (parser.node_queue_size() == 0));
        require(parser.parse_offset() >= 0 && parser.line() >= 1);
        disturb(parser, file, text, random);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    static document const file;
    if (size < 2) {
        return 0;
    }
    unsigned const depth = data[0] % 4;
    bool const has_header = data[0] / 4 % 2 == 0;
    std::mt19937 random(data[1]);
    std::string const header = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\"?>";
    std::string const text = (has_header ? header : "") + std::string(data + 2, data + size);

    outcome const whole = read_whole(file, text, depth);
    require(whole.error != xml_stream_parser::file_error && whole.error != xml_stream_parser::fatal_error);
    require_same(whole, read_growing(file, text, depth, random), text);
    read_disturbed(file, text, depth, random);
    return 0;
}
