// The reader and the writer of .cfg files, by a file of this program's own.

#include <cstddef>
#include <cstdint>
#include <string>

#include "../tests/support/files.hpp"
#include "../tests/support/temporary_directory.hpp"
#include "config_nodes.hpp"
#include "require.hpp"
#include "veldrin/config/file_item.hpp"

using namespace VELDRIN_2_18;

namespace {

config_nodes nodes_of_file(support::temporary_directory const& directory, std::string const& text) {
    config::file_item item(directory.file("input.cfg", text));
    return loaded_nodes(item);
}

// Outside of quotes a carriage return in front of a line feed is nothing.
void check_line_ends(support::temporary_directory const& directory, std::string const& text,
                     config_nodes const& nodes) {
    if (text.find_first_of("\"\r") != text.npos) {
        return;
    }
    std::string longer;
    for (char const byte : text) {
        longer += byte == '\n' ? "\r\n" : std::string(1, byte);
    }
    require(same_nodes(nodes_of_file(directory, longer), nodes));
}

// What is written does not depend on the item that holds it, and can be read.
void check_saving(support::temporary_directory const& directory, config::file_item& item) {
    require(item.save());
    std::string const written = support::bytes_of(item.get_filename().c_str());
    config::file_item copy(item);
    require(copy.save());
    require(support::bytes_of(item.get_filename().c_str()) == written);
    nodes_of_file(directory, written);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    static support::temporary_directory const directory;
    std::string const text(data, data + size);
    config_nodes const nodes = nodes_of_file(directory, text);
    check_line_ends(directory, text, nodes);

    config::file_item item(directory.file("input.cfg", text));
    item.load();
    check_saving(directory, item);
    return 0;
}
