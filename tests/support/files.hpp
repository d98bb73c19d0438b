// Files as bytes, by the standard library alone.

#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace support {

inline std::string bytes_of(std::filesystem::path const& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// The parts with the platform's separator between them.
template <class... Parts>
std::string joined(Parts const&... parts) {
    std::string path;
    ((path += parts, path += static_cast<char>(std::filesystem::path::preferred_separator)), ...);
    path.pop_back();
    return path;
}

} // namespace support
