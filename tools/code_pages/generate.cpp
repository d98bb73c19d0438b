// Turns the answers of the Windows conversion functions into the tables of the library:
//
//     generate ANSWERS TABLES    reads ANSWERS/932.txt and so on, writes TABLES/cp_932.cpp and so on,
//     TABLES/tables.hpp

#include <cstdio>
#include <exception>
#include <fstream>
#include <string>

#include "answers.hpp"
#include "table_source.hpp"

namespace {

using namespace code_page_tools;

void write_file(std::string const& path, std::string const& text) {
    std::ofstream file(path, std::ios::binary);
    file << text;
    if (!file.flush()) {
        throw std::runtime_error("cannot write " + path);
    }
}

void generate(std::string const& answers_folder, std::string const& tables_folder) {
    for (int const code_page : code_pages) {
        std::string const name = std::to_string(code_page);
        std::ifstream file(answers_folder + "/" + name + ".txt", std::ios::binary);
        if (!file) {
            throw std::runtime_error("no answers for code page " + name);
        }
        write_file(tables_folder + "/cp_" + name + ".cpp", table_source(code_page, read_answers(file)));
    }
    write_file(tables_folder + "/tables.hpp", table_list());
}

} // namespace

int main(int argument_count, char** arguments) {
    if (argument_count != 3) {
        std::fprintf(stderr, "usage: generate ANSWERS TABLES\n");
        return 2;
    }
    try {
        generate(arguments[1], arguments[2]);
    } catch (std::exception const& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}
