// The options of a command line, and the same texts as an environment. A zero byte ends a text.

#include <cstddef>
#include <cstdint>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "config_nodes.hpp"
#include "require.hpp"
#include "veldrin/config/commandline_item.hpp"
#include "veldrin/config/enviroment_item.hpp"

using namespace VELDRIN_2_18;

namespace {

// With a null pointer behind the last one.
std::vector<char const*> texts_in(std::string const& input) {
    std::vector<char const*> texts;
    for (std::size_t start = 0; start < input.size();
         start += std::char_traits<char>::length(texts.back()) + 1) {
        texts.push_back(input.c_str() + start);
    }
    texts.push_back(nullptr);
    return texts;
}

bool is_option(std::string const& argument) { return argument[0] == '-' || argument[0] == '/'; }

std::string warning(std::string const& argument) {
    return "Warning! unknown key:" + argument + "\nIgnoring key and continuing\n";
}

// The warnings are those of some arguments that are no options, in their order.
void check_warnings(std::string output, std::vector<char const*> const& texts) {
    for (std::size_t index = 1; index + 1 < texts.size(); ++index) {
        if (!is_option(texts[index]) && output.rfind(warning(texts[index]), 0) == 0) {
            output.erase(0, warning(texts[index]).size());
        }
    }
    require(output.empty());
}

void check_options(std::vector<char const*> const& texts) {
    std::ostringstream output;
    std::streambuf* const standard_output = std::cout.rdbuf(output.rdbuf());
    config::commandline_item item(static_cast<unsigned int>(texts.size() - 1), texts.data());
    item.load();
    check_warnings(output.str(), texts);
    loaded_nodes(item);
    require(item.get_value("application.name.raw") != nullptr);
    std::cout.rdbuf(standard_output);
}

void check_environment(std::vector<char const*> const& texts) {
    config::enviroment_item item(texts.data());
    std::size_t const nodes = loaded_nodes(item).size();
    require((nodes == 0) == (texts.size() == 1));
    for (std::size_t index = 0; index + 1 < texts.size(); ++index) {
        auto const key_value = item.make_key_value(texts[index], config::config_token::T_EQ);
        require(item.get_value(key_value.first) != nullptr);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string const input(data, data + size);
    std::vector<char const*> const texts = texts_in(input);
    check_options(texts);
    check_environment(texts);
    return 0;
}
