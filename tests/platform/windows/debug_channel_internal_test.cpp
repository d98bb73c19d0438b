#include "platform/debug_channel.hpp"

#include <string>

#include <gtest/gtest.h>

#include "platform/windows/system.hpp"
#include "veldrin/i18n/message_item.hpp"

namespace {

using namespace VELDRIN_2_18;

std::string received;

// The system hands a line to a debugger as an exception with the address of the text.
LONG CALLBACK take_line(EXCEPTION_POINTERS* pointers) {
    constexpr DWORD debug_line = 0x40010006;
    EXCEPTION_RECORD const& record = *pointers->ExceptionRecord;
    if (record.ExceptionCode != debug_line || record.NumberParameters < 2) {
        return EXCEPTION_CONTINUE_SEARCH;
    }
    received += reinterpret_cast<char const*>(record.ExceptionInformation[1]);
    return EXCEPTION_CONTINUE_EXECUTION;
}

class debug_channel : public testing::Test {
protected:
    debug_channel() { received.clear(); }
    ~debug_channel() override { ::RemoveVectoredExceptionHandler(m_handler); }

private:
    void* m_handler = ::AddVectoredExceptionHandler(1, take_line);
};

TEST_F(debug_channel, gets_the_text_and_a_line_break) {
    platform::write_debug_line("text");
    EXPECT_EQ(received, "text\n");
    platform::write_debug_line("");
    EXPECT_EQ(received, "text\n\n");
}

TEST_F(debug_channel, gets_the_line_break_behind_a_text_with_a_zero_byte) {
    platform::write_debug_line({"te\0xt", 5});
    EXPECT_EQ(received, "te\n");
}

TEST_F(debug_channel, gets_the_failures_of_message_items) {
    i18n::message_item const item("size\x01"
                                  "base\x01"
                                  "hexa",
                                  i18n::message_item::int_type);
    EXPECT_EQ(item.as_string(generic::varg_list(generic::argument("size", 5))), "?invalid?");
    EXPECT_EQ(received, "Failure -- size\x01"
                        "base\x01"
                        "hexa\n");
}

} // namespace
