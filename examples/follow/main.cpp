// Prints each entry of an XML log when it is finished, and goes on as the log grows: an entry is a child of
// the root element, and is printed with its attributes, its text and what is in it. Where the log is damaged,
// it resumes at the next entry. On a terminal, a line tells how far it has come.
//
//     follow FILE [ENTRY...]          until the root element ends
//     follow --once FILE [ENTRY...]   to where the file ends now
//
// Entries of the names given, or else of those met before, are what it resumes at.

#include <chrono>
#include <iostream>
#include <list>
#include <string>
#include <thread>
#include <vector>

#include "log_reader.hpp"
#include "progress_line.hpp"
#include "terminal.hpp"

namespace {

constexpr std::chrono::milliseconds pause(100);

int follow(std::string const& file, std::list<ustring8> const& names, bool once) {
    log_reader reader(file, names, std::cout, std::cerr);
    progress_line line(std::cerr, error_stream_is_terminal());
    for (;;) {
        line.clear();
        log_reader::progress const progress = reader.read(once);
        std::cout.flush();
        if (progress == log_reader::progress::ends) {
            break;
        }
        line.show(reader.position(), reader.length(), reader.entries());
        if (progress == log_reader::progress::waits) {
            std::this_thread::sleep_for(pause);
        }
    }
    std::cerr << reader.entries() << (reader.entries() == 1 ? " entry, " : " entries, ") << reader.outcome()
              << '\n';
    return reader.has_failed() ? 1 : 0;
}

} // namespace

int main(int argc, char** argv) {
    std::vector<std::string> arguments(argv + 1, argv + argc);
    bool const once = !arguments.empty() && arguments.front() == "--once";
    if (once) {
        arguments.erase(arguments.begin());
    }
    if (arguments.empty()) {
        std::cerr << "usage: follow [--once] FILE [ENTRY...]\n";
        return 2;
    }
    return follow(arguments.front(), {arguments.begin() + 1, arguments.end()}, once);
}
