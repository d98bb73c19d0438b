// Parsers in several threads, and a file that grows while it is read.

#include "veldrin/parser/xml_stream_parser.hpp"

#include <cstdint>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "parser/growing_log.hpp"
#include "support/temporary_directory.hpp"

namespace {

TEST(xml_stream_parser_threads, read_a_file_that_another_one_writes) {
    support::temporary_directory const directory;
    std::string const path = directory.file("log.xml", support::log_beginning);
    std::uint64_t written = 0;
    std::thread writer([&] { written = support::write_log(path, 2000000); });
    std::vector<std::uint64_t> read(2);
    std::vector<std::thread> readers;
    for (std::uint64_t& entries : read) {
        readers.emplace_back([&] { entries = support::read_log(path); });
    }
    for (std::thread& reader : readers) {
        reader.join();
    }
    writer.join();
    EXPECT_GT(written, 10000u);
    EXPECT_EQ(read, std::vector<std::uint64_t>(2, written));
}

} // namespace
