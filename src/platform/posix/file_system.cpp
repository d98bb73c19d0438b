#include "platform/file_system.hpp"

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace VELDRIN_2_18::platform {

entry_status status_of(path const& path) {
    struct stat status;
    if (::stat(path.text().c_str(), &status) != 0) {
        return {};
    }
    return {true, S_ISDIR(status.st_mode), S_ISREG(status.st_mode), (status.st_mode & S_IRUSR) != 0};
}

std::optional<directory_identity> identity_of(path const& directory) {
    struct stat status;
    if (!directory.names_something() || ::stat((directory.text() + path_separator).c_str(), &status) != 0) {
        return std::nullopt;
    }
    return directory_identity{status.st_dev, status.st_ino};
}

bool create_directory(path const& path) { return ::mkdir(path.text().c_str(), 0777) == 0; }

void make_directory(path const& path) { static_cast<void>(create_directory(path)); }

void rename_entry(path const& new_path, path const& old_path) {
    char const* const from = old_path.text().c_str();
    char const* const to = new_path.text().c_str();
    if (::renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE) == 0) {
        return;
    }
    // Some file systems and older kernels cannot do both in one step.
    bool const unsupported = errno == EINVAL || errno == ENOSYS;
    struct stat status;
    if (unsupported && ::lstat(to, &status) != 0 && errno == ENOENT) {
        // Any failure is the caller's to find out.
        static_cast<void>(::rename(from, to));
    }
}

void remove_file(path const& path) { static_cast<void>(::unlink(path.text().c_str())); }

void remove_directory(path const& path) { static_cast<void>(::rmdir(path.text().c_str())); }

} // namespace VELDRIN_2_18::platform
