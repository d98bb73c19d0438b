// Loads the message catalogues of a small file-synchronising tool and prints one situation in the languages
// asked for. The settings come from the command line, the file messages.cfg and the environment, in this
// order.
//
//     messages -catalogs=DIRECTORY                 a table of all languages
//     messages -catalogs=DIRECTORY -language=de    one language, falling back where it lacks a text
//     messages -check=FILE                         what stands in a catalogue, or what is wrong there first
//
// A path with blanks in it is quoted for the option reader too: -check="\"my file.xmc\"".

#include <iostream>

#include "check.hpp"
#include "situation.hpp"
#include "veldrin/config.hpp"

int main(int argc, char** argv, char** envp) {
    veldrin::config::config_manager settings;
    settings.init(veldrin::config::std_config_dispatch(argc, argv, envp, "messages.cfg", ""));
    settings.load();

    if (settings.value_exist("check")) {
        return check(std::cout, std::cerr, settings.get_value("check", "").as_string());
    }
    ustring8 const directory = settings.get_value("catalogs", ".").as_string();
    std::vector<ustring8> const files = catalog_files(directory);
    if (files.empty()) {
        std::cerr << "no catalogue files in " << directory << '\n';
        return 1;
    }
    ustring8 const language = settings.get_value("language", "all").as_string();
    bool const printed =
        language == "all" ? print_table(std::cout, files) : print_situation(std::cout, files, language);
    return printed ? 0 : 1;
}
