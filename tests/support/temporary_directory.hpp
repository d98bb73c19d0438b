// An empty directory of a test's own, removed with all that is in it. Names and paths are UTF-8 on every
// platform.

#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>

namespace support {

class temporary_directory {
public:
    temporary_directory() {
        std::random_device random;
        do {
            m_path = std::filesystem::temp_directory_path() / ("veldrin-test-" + std::to_string(random()));
        } while (!std::filesystem::create_directory(m_path));
    }
    temporary_directory(temporary_directory const&) = delete;
    temporary_directory& operator=(temporary_directory const&) = delete;
    ~temporary_directory() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    std::string path() const { return bytes_of(m_path); }

    // The full path of `name`, with whatever parts, below the directory; of an empty name, the path of the
    // directory with a separator behind it. All separators are the platform's.
    std::string path(std::string_view name) const { return bytes_of(below(name)); }

    // Makes the file, and the directories that it needs, and returns its full path.
    std::string file(std::string_view name, std::string_view contents = {}) const {
        std::filesystem::create_directories(below(name).parent_path());
        std::ofstream(below(name), std::ios::binary) << contents;
        return path(name);
    }

    // Makes the directory and those above it, and returns its full path.
    std::string directory(std::string_view name) const {
        std::filesystem::create_directories(below(name));
        return path(name);
    }

private:
    std::filesystem::path below(std::string_view name) const {
        return (m_path / std::u8string(name.begin(), name.end())).make_preferred();
    }

    static std::string bytes_of(std::filesystem::path const& path) {
        std::u8string const text = path.u8string();
        return {text.begin(), text.end()};
    }

    std::filesystem::path m_path;
};

} // namespace support
