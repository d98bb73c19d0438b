#include "platform/file_system.hpp"

#include <cstdio>

#include <direct.h>
#include <sys/stat.h>

#include "platform/windows/system.hpp"

namespace VELDRIN_2_18::platform {

entry_status status_of(path const& path) {
    struct _stat64i32 status;
    if (::_wstat64i32(path.text().c_str(), &status) != 0) {
        return {};
    }
    return {true, (status.st_mode & _S_IFDIR) != 0, (status.st_mode & _S_IFREG) != 0,
            (status.st_mode & _S_IREAD) != 0};
}

std::optional<directory_identity> identity_of(path const& directory) {
    if (!directory.names_something()) {
        return std::nullopt;
    }
    // No access is asked for: what is asked about is not its contents. Only with this flag a directory is
    // opened.
    HANDLE const handle = ::CreateFileW((directory.text() + path_separator).c_str(), 0,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                        OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return std::nullopt;
    }
    BY_HANDLE_FILE_INFORMATION information;
    bool const known = ::GetFileInformationByHandle(handle, &information) != 0;
    ::CloseHandle(handle);
    if (!known) {
        return std::nullopt;
    }
    return directory_identity{information.dwVolumeSerialNumber,
                              std::uint64_t{information.nFileIndexHigh} << 32 | information.nFileIndexLow};
}

bool create_directory(path const& path) { return ::CreateDirectoryW(path.text().c_str(), nullptr) != 0; }

void make_directory(path const& path) { static_cast<void>(::_wmkdir(path.text().c_str())); }

void rename_entry(path const& new_path, path const& old_path) {
    static_cast<void>(::_wrename(old_path.text().c_str(), new_path.text().c_str()));
}

void remove_file(path const& path) { static_cast<void>(::_wremove(path.text().c_str())); }

void remove_directory(path const& path) { static_cast<void>(::_wrmdir(path.text().c_str())); }

} // namespace VELDRIN_2_18::platform
