// An empty directory of a test's own, removed with all that is in it.

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

    std::string path() const { return m_path.string(); }

    // The full path of `name`, with whatever parts, below the directory.
    std::string path(std::string_view name) const { return (m_path / name).string(); }

    // Makes the file, and the directories that it needs, and returns its full path.
    std::string file(std::string_view name, std::string_view contents = {}) const {
        std::filesystem::path const path = m_path / name;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << contents;
        return path.string();
    }

    // Makes the directory and those above it, and returns its full path.
    std::string directory(std::string_view name) const {
        std::filesystem::create_directories(m_path / name);
        return path(name);
    }

private:
    std::filesystem::path m_path;
};

} // namespace support
