#include "platform/debug_channel.hpp"

#include <atomic>
#include <chrono>
#include <csignal>
#include <string>
#include <thread>

#include <pthread.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "veldrin/i18n/message_item.hpp"

namespace {

using namespace VELDRIN_2_18;

// The standard error stream is a pipe as long as the object lives.
class captured_standard_error {
public:
    captured_standard_error() : m_saved(::dup(STDERR_FILENO)) {
        int ends[2] = {-1, -1};
        EXPECT_EQ(::pipe(ends), 0);
        m_read_end = ends[0];
        ::dup2(ends[1], STDERR_FILENO);
        ::close(ends[1]);
    }

    captured_standard_error(captured_standard_error const&) = delete;
    captured_standard_error& operator=(captured_standard_error const&) = delete;

    ~captured_standard_error() {
        restore();
        ::close(m_read_end);
    }

    int read_end() const { return m_read_end; }

    // From here on the pipe has no writer left.
    void restore() {
        if (m_saved >= 0) {
            ::dup2(m_saved, STDERR_FILENO);
            ::close(m_saved);
            m_saved = -1;
        }
    }

    // Everything up to the last writer's end.
    std::string read_all() const {
        std::string text;
        char buffer[4096];
        for (;;) {
            ssize_t const count = ::read(m_read_end, buffer, sizeof buffer);
            if (count > 0) {
                text.append(buffer, static_cast<std::size_t>(count));
            } else if (count == 0) {
                return text;
            }
        }
    }

private:
    int m_saved;
    int m_read_end = -1;
};

std::string written(std::string const& text) {
    captured_standard_error channel;
    platform::write_debug_line(text);
    channel.restore();
    return channel.read_all();
}

TEST(debug_channel, writes_the_text_and_a_line_break) {
    EXPECT_EQ(written("text"), "text\n");
    EXPECT_EQ(written(""), "\n");
    EXPECT_EQ(written("two\nlines\n"), "two\nlines\n\n");
}

TEST(debug_channel, writes_all_bytes) {
    std::string const text("a\0b\x01\xFF", 5);
    EXPECT_EQ(written(text), text + "\n");
}

TEST(debug_channel, gets_the_failures_of_message_items) {
    i18n::message_item const item("size\x01"
                                  "base\x01"
                                  "hexa",
                                  i18n::message_item::int_type);
    captured_standard_error channel;
    EXPECT_EQ(item.as_string(generic::varg_list(generic::argument("size", 5))), "?invalid?");
    channel.restore();
    EXPECT_EQ(channel.read_all(), "Failure -- size\x01"
                                  "base\x01"
                                  "hexa\n");
}

extern "C" void ignore_signal(int) {}

int bytes_waiting(int descriptor) {
    int count = 0;
    ::ioctl(descriptor, FIONREAD, &count);
    return count;
}

// The pipe holds less than the line, so the write blocks, is cut off by the first signal and fails with the
// next.
TEST(debug_channel, goes_on_after_a_signal) {
    struct sigaction interrupt = {};
    struct sigaction saved = {};
    interrupt.sa_handler = ignore_signal; // without SA_RESTART
    ASSERT_EQ(::sigaction(SIGUSR1, &interrupt, &saved), 0);

    std::string const text(1000000, 'x');
    captured_standard_error channel;
    std::atomic<bool> is_written = false;
    std::thread writer([&] {
        platform::write_debug_line(text);
        channel.restore();
        is_written = true;
    });
    while (bytes_waiting(channel.read_end()) < 65536 && !is_written) {
        std::this_thread::yield();
    }
    for (int signal = 0; signal < 5; ++signal) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        ::pthread_kill(writer.native_handle(), SIGUSR1);
    }
    std::string const received = channel.read_all();
    writer.join();
    ::sigaction(SIGUSR1, &saved, nullptr);

    EXPECT_EQ(received.size(), text.size() + 1);
    EXPECT_TRUE(received == text + "\n");
}

TEST(debug_channel, loses_the_line_when_nothing_takes_it) {
    int const saved = ::dup(STDERR_FILENO);
    ::close(STDERR_FILENO);
    platform::write_debug_line("lost");
    ::dup2(saved, STDERR_FILENO);
    ::close(saved);
    EXPECT_EQ(written("kept"), "kept\n");
}

} // namespace
