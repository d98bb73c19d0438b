// Writes a few typed records in the binary and in the text form of a serialize buffer, prints the bytes of
// both side by side, reads both back, and does the same with a labeled buffer.

#include <cctype>
#include <cstdint>
#include <cstdio>
#include <iomanip>
#include <iostream>
#include <string>
#include <vector>

#include "veldrin/serialization.hpp"

using namespace veldrin::serialization;

namespace {

struct record {
    std::int32_t id;
    std::string name;
    std::uint64_t size;
    double share;
    bool is_new;
};

std::vector<record> const records = {
    {1, "mountain.raw", 25165824, 0.625, true},
    {-7, "notes, old", 512, 0.125, false},
};

// Writer and reader agree on this order: nothing in the bytes says what they are.
void write(serialize_buffer& buffer, record const& written) {
    buffer.append_int32(written.id);
    buffer.append_string(written.name);
    buffer.append_uint64(written.size);
    buffer.append_double(written.share, 6);
    buffer.append_uint8(written.is_new ? 1 : 0);
}

record read(serialize_buffer const& buffer) {
    record result;
    result.id = buffer.read_int32();
    result.name = buffer.read_string();
    result.size = buffer.read_uint64();
    result.share = buffer.read_double();
    result.is_new = buffer.read_uint8() != 0;
    return result;
}

// Printable bytes as they are, others as two hexadecimal digits in brackets.
std::string shown(std::string const& bytes) {
    std::string text;
    for (char const character : bytes) {
        auto const byte = static_cast<unsigned char>(character);
        if (std::isprint(byte) != 0) {
            text += character;
        } else {
            char digits[5];
            std::snprintf(digits, sizeof digits, "[%02x]", byte);
            text += digits;
        }
    }
    return text;
}

std::string row_of(std::string const& bytes, std::size_t row) {
    constexpr std::size_t bytes_a_row = 12;
    std::size_t const start = row * bytes_a_row;
    return start < bytes.size() ? shown(bytes.substr(start, bytes_a_row)) : std::string();
}

void print_side_by_side(std::string const& left, std::string const& right) {
    for (std::size_t row = 0;; ++row) {
        std::string const left_row = row_of(left, row);
        std::string const right_row = row_of(right, row);
        if (left_row.empty() && right_row.empty()) {
            break;
        }
        std::cout << "  " << std::left << std::setw(right_row.empty() ? 0 : 50) << left_row << right_row
                  << '\n';
    }
}

void print(record const& read) {
    std::cout << "  " << read.id << ", " << read.name << ", " << read.size << " bytes, " << read.share
              << (read.is_new ? ", new\n" : ", known\n");
}

void show_sequences() {
    serialize_binary_buf binary;
    serialize_text_buf text;
    for (record const& written : records) {
        write(binary, written);
        write(text, written);
    }
    std::cout << "binary form, " << binary.as_str().size() << " bytes, and text form, "
              << text.as_str().size() << " bytes:\n";
    print_side_by_side(binary.as_str(), text.as_str());
    for (serialize_buffer const* const form :
         {static_cast<serialize_buffer const*>(&binary), static_cast<serialize_buffer const*>(&text)}) {
        std::cout << "read back:\n";
        while (!form->at_end()) {
            print(read(*form));
        }
    }
}

void show_labels() {
    labeled_text_buffer buffer;
    for (record const& written : records) {
        labeled_serialize_buffer* const group = buffer.create_group(written.name);
        group->add_value("id", written.id);
        group->add_value("size", written.size);
        group->add_value("share", written.share);
    }
    std::string const bytes = buffer.as_str();
    std::cout << "labeled form, " << bytes.size() << " bytes:\n  " << shown(bytes) << "\nread back:\n";

    labeled_text_buffer copy(bytes);
    for (record const& written : records) {
        labeled_serialize_buffer* const group = copy.retrieve_group(written.name);
        std::cout << "  " << written.name << ": " << group->retrieve_value("size").as_uint64() << " bytes\n";
    }
}

} // namespace

int main() {
    show_sequences();
    show_labels();
    return 0;
}
