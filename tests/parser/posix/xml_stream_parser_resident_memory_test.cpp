// A file of any length is read in little memory.

#include "veldrin/parser/xml_stream_parser.hpp"

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "parser/growing_log.hpp"
#include "support/temporary_directory.hpp"

namespace {

// Of this process: "VmRSS:" is what is resident now, "VmHWM:" the most that ever was.
std::size_t kibibytes_of(std::string const& what) {
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word && word != what) {
    }
    std::size_t kibibytes = 0;
    status >> kibibytes;
    return kibibytes;
}

TEST(xml_stream_parser_memory, is_bounded_while_200_megabytes_are_written_and_read) {
    support::temporary_directory const directory;
    std::string const path = directory.file("log.xml", support::log_beginning);
    std::size_t const before = kibibytes_of("VmRSS:");
    ASSERT_GT(before, 0u);

    std::uint64_t written = 0;
    std::thread writer([&] { written = support::write_log(path, 200000000); });
    std::uint64_t const read = support::read_log(path);
    writer.join();
    std::size_t const peak = kibibytes_of("VmHWM:") - before;

    EXPECT_GT(written, 1000000u);
    EXPECT_EQ(read, written);
    EXPECT_LT(peak, 16u * 1024);
    RecordProperty("peak_kibibytes", std::to_string(peak));
}

} // namespace
