// Asks the Windows conversion functions, with flags 0 and zero-terminated input, about every unit, byte and
// byte pair of every code page, and writes down what they answer:
//
//     probe FOLDER DIGESTS       FOLDER/932.txt and so on get the answers, the file DIGESTS their digests
//
// It stops where an answer does not have the shape that the tables rely on.

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "answers.hpp"
#include "digests.hpp"

namespace {

using namespace code_page_tools;

[[noreturn]] void stop(int code_page, char const* reason, std::size_t input) {
    std::fprintf(stderr, "code page %d: %s: %04zx\n", code_page, reason, input);
    std::exit(1);
}

std::string encode(int code_page, std::wstring const& text) {
    auto const number = static_cast<UINT>(code_page);
    int const size = WideCharToMultiByte(number, 0, text.c_str(), -1, nullptr, 0, nullptr, nullptr);
    if (size == 0) {
        stop(code_page, "a text does not encode", text.front());
    }
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(number, 0, text.c_str(), -1, bytes.data(), size, nullptr, nullptr);
    bytes.pop_back();
    return bytes;
}

std::wstring decode(int code_page, std::string const& bytes) {
    auto const number = static_cast<UINT>(code_page);
    int const size = MultiByteToWideChar(number, 0, bytes.c_str(), -1, nullptr, 0);
    if (size == 0) {
        stop(code_page, "a text does not decode", static_cast<unsigned char>(bytes.front()));
    }
    std::wstring text(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(number, 0, bytes.c_str(), -1, text.data(), size);
    text.pop_back();
    return text;
}

void ask_bytes(int code_page, answers& result) {
    for (std::size_t byte = 1; byte <= 0xFF; ++byte) {
        std::wstring const text = decode(code_page, {static_cast<char>(byte)});
        if (text.size() != 1 || text[0] == 0) {
            stop(code_page, "a byte is not one unit", byte);
        }
        result.byte[byte] = text[0];
    }
}

// A pair is either two characters or one, and a byte that leads one pair leads all.
void ask_pairs(int code_page, answers& result) {
    for (std::size_t pair = 0x0101; pair <= 0xFFFF; ++pair) {
        std::size_t const lead = pair >> 8;
        std::size_t const trail = pair & 0xFF;
        if (trail == 0) {
            continue;
        }
        std::wstring const text = decode(code_page, {static_cast<char>(lead), static_cast<char>(trail)});
        if (text.size() == 1 && text[0] != 0) {
            result.pair[pair] = text[0];
        } else if (text.size() != 2 || text[0] != result.byte[lead] || text[1] != result.byte[trail]) {
            stop(code_page, "a pair is neither one character nor two", pair);
        }
        if ((text.size() == 1) != result.is_lead(lead)) {
            stop(code_page, "a lead byte stands alone in front of some bytes", pair);
        }
    }
}

void ask_units(int code_page, answers& result) {
    for (std::size_t unit = 1; unit <= 0xFFFF; ++unit) {
        std::string const bytes = encode(code_page, {static_cast<wchar_t>(unit)});
        if (bytes.empty() || bytes.size() > 2 || bytes.find('\0') != std::string::npos) {
            stop(code_page, "a unit is not one byte or two", unit);
        }
        for (char const byte : bytes) {
            result.unit[unit] = result.unit[unit] * 0x100 + static_cast<unsigned char>(byte);
        }
    }
}

std::ofstream open(std::string const& path) {
    std::ofstream file(path, std::ios::binary);
    if (!file) {
        std::fprintf(stderr, "cannot write %s\n", path.c_str());
        std::exit(1);
    }
    return file;
}

} // namespace

int main(int argument_count, char** arguments) {
    if (argument_count != 3) {
        std::fprintf(stderr, "usage: probe FOLDER DIGESTS\n");
        return 2;
    }
    std::ofstream digests = open(arguments[2]);
    for (int const code_page : code_pages) {
        answers result;
        ask_bytes(code_page, result);
        ask_pairs(code_page, result);
        ask_units(code_page, result);
        std::ofstream file = open(std::string(arguments[1]) + "/" + std::to_string(code_page) + ".txt");
        write_answers(file, result);
        write_digests<wchar_t>(digests, code_page,
                               {[&](std::wstring const& text) { return encode(code_page, text); },
                                [&](std::string const& bytes) { return decode(code_page, bytes); }});
    }
}
