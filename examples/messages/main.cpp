// Loads the message catalogues of a small file-synchronising tool and prints one situation in the languages
// asked for.
//
//     messages CATALOG_DIRECTORY            a table of all languages
//     messages CATALOG_DIRECTORY LANGUAGE   one language, falling back where it lacks a text
//     messages --check FILE                 what stands in a catalogue file, or all that is wrong with it

#include <iostream>
#include <string>

#include "check.hpp"
#include "situation.hpp"

int main(int argc, char** argv) {
    if (argc == 3 && std::string(argv[1]) == "--check") {
        return check(std::cout, std::cerr, argv[2]);
    }
    if (argc != 2 && argc != 3) {
        std::cerr << "usage: messages CATALOG_DIRECTORY [LANGUAGE] | messages --check FILE\n";
        return 2;
    }
    std::vector<ustring8> const files = catalog_files(argv[1]);
    if (files.empty()) {
        std::cerr << "no catalogue files in " << argv[1] << '\n';
        return 1;
    }
    bool const printed =
        argc == 3 ? print_situation(std::cout, files, argv[2]) : print_table(std::cout, files);
    return printed ? 0 : 1;
}
