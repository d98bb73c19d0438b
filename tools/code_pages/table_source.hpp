// Prints the answers for one code page as the C++ tables that src/platform/posix/code_page.cpp reads, and the
// header that lists them.

#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "answers.hpp"

namespace code_page_tools {

using row = std::array<std::uint32_t, 0x100>;

// Rows without repetition, in the order of their first use.
class row_set {
public:
    std::size_t index_of(row const& wanted) {
        auto const place = std::find(m_rows.begin(), m_rows.end(), wanted);
        auto const index = static_cast<std::size_t>(place - m_rows.begin());
        if (place == m_rows.end()) {
            m_rows.push_back(wanted);
        }
        return index;
    }

    std::vector<row> const& rows() const { return m_rows; }

private:
    std::vector<row> m_rows;
};

inline row row_of(map const& values, std::size_t upper_half) {
    row result{};
    std::copy_n(values.begin() + static_cast<std::ptrdiff_t>(upper_half * 0x100), 0x100, result.begin());
    return result;
}

// 256 numbers, wrapped at 110 columns.
template <class Numbers>
void print_numbers(std::ostream& output, Numbers const& numbers) {
    constexpr std::size_t line_limit = 110;
    std::string line;
    for (std::size_t const number : numbers) {
        std::string const text = std::to_string(number) + ',';
        if (line.size() + text.size() > line_limit) {
            output << line << '\n';
            line.clear();
        }
        line += text;
    }
    output << line << '\n';
}

template <class Numbers>
void print_array(std::ostream& output, char const* type_and_name, Numbers const& numbers) {
    output << "\nconstexpr " << type_and_name << "[256] = {\n";
    print_numbers(output, numbers);
    output << "};\n";
}

inline void print_rows(std::ostream& output, char const* type_and_name, std::vector<row> const& rows) {
    output << "\nconstexpr " << type_and_name << "[" << rows.size() << "][256] = {\n";
    for (row const& numbers : rows) {
        output << "{\n";
        print_numbers(output, numbers);
        output << "},\n";
    }
    output << "};\n";
}

inline std::string banner() {
    return "// Made by tools/code_pages/generate.cpp from tools/code_pages/answers/: not to be edited.\n"
           "// clang-format off\n\n";
}

inline std::string table_source(int code_page, answers const& given) {
    row_set pair_rows;
    row rows_of_leads{};
    row_set unit_rows;
    row rows_of_units{};
    for (std::size_t upper_half = 0; upper_half <= 0xFF; ++upper_half) {
        if (given.is_lead(upper_half)) {
            std::size_t const index = pair_rows.index_of(row_of(given.pair, upper_half));
            rows_of_leads[upper_half] = static_cast<std::uint32_t>(index + 1);
        }
        rows_of_units[upper_half] =
            static_cast<std::uint32_t>(unit_rows.index_of(row_of(given.unit, upper_half)));
    }
    bool const has_pairs = !pair_rows.rows().empty();

    std::ostringstream output;
    output << banner() << "#include \"platform/posix/code_pages/tables.hpp\"\n\n"
           << "namespace VELDRIN_2_18::platform::code_pages {\n\nnamespace {\n";
    print_array(output, "std::uint16_t units_of_bytes", given.byte);
    print_array(output, "std::uint8_t rows_of_leads", rows_of_leads);
    if (has_pairs) {
        print_rows(output, "std::uint16_t units_of_pairs", pair_rows.rows());
    }
    print_array(output, "std::uint8_t rows_of_units", rows_of_units);
    print_rows(output, "std::uint16_t bytes_of_units", unit_rows.rows());
    output << "\n} // namespace\n\ntable const cp_" << code_page << " = {" << code_page
           << ", units_of_bytes, rows_of_leads, " << (has_pairs ? "units_of_pairs" : "nullptr")
           << ", rows_of_units, bytes_of_units};\n\n"
           << "} // namespace VELDRIN_2_18::platform::code_pages\n";
    return output.str();
}

inline std::string table_list() {
    std::ostringstream output;
    output << banner() << "#pragma once\n\n#include \"platform/posix/code_pages/table.hpp\"\n\n"
           << "namespace VELDRIN_2_18::platform::code_pages {\n\n";
    for (int const code_page : code_pages) {
        output << "extern table const cp_" << code_page << ";\n";
    }
    output << "\ninline constexpr table const* tables[] = {\n";
    for (int const code_page : code_pages) {
        output << "    &cp_" << code_page << ",\n";
    }
    output << "};\n\n} // namespace VELDRIN_2_18::platform::code_pages\n";
    return output.str();
}

} // namespace code_page_tools
