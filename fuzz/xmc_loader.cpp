// The loader of XMC files, fed with texts. What was read is merged into a store and every message formatted.
//
// Includes read files, so a text may name only those that stand ready in a directory of this program's own;
// texts that name others are left out. Whatever names the file of an include is a token `file` followed by a
// token of the name.

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "require.hpp"
#include "veldrin/i18n/xmc_file_loader.hpp"
#include "veldrin/parser/xml_token_stream.hpp"

namespace {

using namespace VELDRIN_2_18;
using strings::ustring8;
using store_type = std::map<ustring8, memory::pointers::shared_pointer<i18n::catalog_t>>;

class include_directory {
public:
    include_directory() {
        std::random_device random;
        do {
            m_path = std::filesystem::temp_directory_path() / ("veldrin-fuzz-" + std::to_string(random()));
        } while (!std::filesystem::create_directory(m_path));
        write("good.xmc", "<catalog name='c' lang='en'><msg name='m'>included</msg></catalog>");
        write("bad.xmc", "<catalog name='c' lang='en'><msg name='m'><b/></msg></catalog>");
        write("self.xmc", "<include file='self.xmc'/>");
    }
    ~include_directory() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    ustring8 path() const { return m_path.string() + "/"; }

private:
    void write(char const* name, char const* content) const {
        std::ofstream(m_path / name) << "<?xml?><xmc version='1.1'>" << content << "</xmc>";
    }

    std::filesystem::path m_path;
};

bool names_only_known_files(ustring8 const& text) {
    static std::set<ustring8> const known{"", "good.xmc", "bad.xmc", "self.xmc", "missing.xmc"};
    parser::xml_token_stream stream;
    stream.parse(text);
    auto const is_file = [](auto const& token) { return token.value() == "file"; };
    for (auto token = std::find_if(stream.begin(), stream.end(), is_file); token != stream.end();
         token = std::find_if(token, stream.end(), is_file)) {
        if (++token != stream.end() && known.count(token->value()) == 0) {
            return false;
        }
    }
    return true;
}

struct open_loader : i18n::_private::xmc_file_loader {
    explicit open_loader(ustring8 const& directory) {
        base_dir = directory;
        handle_language("fr_CA");
    }
    using xmc_file_loader::get_locale_weight;
    using xmc_file_loader::parse_string;
};

void check_store(open_loader const& loader, store_type const& store, std::size_t written) {
    generic::varg_list args;
    args.push_back("x", 1536);
    args.push_back("y", -2.5);
    args.push_back("z", "text");
    std::size_t messages = 0;
    for (auto const& [name, catalog] : store) {
        require(catalog->name() == name && catalog->size() != 0);
        for (auto const& [key, message] : *catalog) {
            require(message.name() == key);
            require(loader.get_locale_weight(message._orginal_locale()) != 0);
            require(message.argument_count() <= message.count());
            message.as_string(args);
            ++messages;
        }
    }
    require(messages == written);
}

} // namespace

// Items that cannot be formatted write to the standard error stream: the fuzzer keeps it for its own reports.
extern "C" int LLVMFuzzerInitialize(int* count, char*** values) {
    static char flag[] = "-close_fd_mask=2";
    static std::vector<char*> arguments(*values, *values + *count);
    arguments.push_back(flag);
    *count = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);
    *values = arguments.data();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    static include_directory const directory;
    // As a file's text ends.
    ustring8 const text = ustring8(data, data + size) + '\0';
    if (!names_only_known_files(text)) {
        return 0;
    }
    open_loader loader(directory.path());
    auto const error = loader.parse_string(text, "input");
    require(!error.message().empty());
    require(error.type() != open_loader::no_default_locale && error.type() != open_loader::msg_end_missing);
    store_type store;
    std::size_t const written = loader.combine_data(store);
    check_store(loader, store, written);
    require(loader.combine_data(store) == written);
    return 0;
}
