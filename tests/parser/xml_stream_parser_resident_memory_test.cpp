// A file of any length is read in little memory.

#include "veldrin/parser/xml_stream_parser.hpp"

#include <cstddef>
#include <cstdint>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "parser/growing_log.hpp"
#include "resident_memory.hpp"
#include "support/temporary_directory.hpp"

namespace {

TEST(xml_stream_parser_memory, is_bounded_while_200_megabytes_are_written_and_read) {
    support::temporary_directory const directory;
    std::string const path = directory.file("log.xml", support::log_beginning);
    std::size_t const before = support::resident_memory();
    ASSERT_GT(before, 0u);

    std::uint64_t written = 0;
    std::thread writer([&] { written = support::write_log(path, 200000000); });
    std::uint64_t const read = support::read_log(path);
    writer.join();
    std::size_t const peak = support::peak_resident_memory() - before;

    EXPECT_GT(written, 1000000u);
    EXPECT_EQ(read, written);
    EXPECT_LT(peak, 16u * 1024);
    RecordProperty("peak_kibibytes", std::to_string(peak));
}

} // namespace
