// A user's first program: a catalogue written to disk, loaded, and one of its messages printed.

#include <iostream>

#include <veldrin/veldrin.hpp>

int main() {
    veldrin::strings::ustring8 const path("consumer.xmc");
    veldrin::system::store_file(
        path, "<?xml version=\"1.0\"?><xmc version=\"1.1\"><catalog name=\"status\" lang=\"en\">"
              "<msg name=\"copied\"><arg name=\"count\" type=\"int\"/> files copied</msg>"
              "</catalog></xmc>");

    veldrin::i18n::message_catalogs catalogs;
    auto const result = catalogs.load(path, "en");
    if (result.type() != veldrin::i18n::message_catalogs::no_error) {
        std::cerr << result << '\n';
        return 1;
    }
    veldrin::generic::varg_list const arguments(veldrin::generic::argument("count", 3));
    std::cout << catalogs.message("status", "copied").as_utf8(arguments) << '\n';
    return 0;
}
