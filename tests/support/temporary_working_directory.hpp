// A temporary directory that is the working directory as long as it lives, so that tests can use short paths.

#pragma once

#include <filesystem>

#include "support/temporary_directory.hpp"

namespace support {

class temporary_working_directory {
public:
    temporary_working_directory() : m_previous(std::filesystem::current_path()) {
        std::filesystem::current_path(m_directory.path());
    }
    temporary_working_directory(temporary_working_directory const&) = delete;
    temporary_working_directory& operator=(temporary_working_directory const&) = delete;
    ~temporary_working_directory() { std::filesystem::current_path(m_previous); }

    temporary_directory const* operator->() const { return &m_directory; }

private:
    temporary_directory m_directory;
    std::filesystem::path m_previous;
};

} // namespace support
