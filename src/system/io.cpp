#include "veldrin/system/io.hpp"

#include "platform/file_system.hpp"

namespace VELDRIN_2_18::system::io {

using strings::ustring16;
using strings::ustring32;
using strings::ustring8;

bool exists(ustring8 const& path) { return platform::status_of(platform::path(path)).exists; }

bool exists(ustring16 const& path) { return platform::status_of(platform::path(path)).exists; }

bool exists(ustring32 const& path) { return platform::status_of(platform::path(path)).exists; }

bool is_directory(ustring8 const& path) { return platform::status_of(platform::path(path)).is_directory; }

bool is_directory(ustring16 const& path) { return platform::status_of(platform::path(path)).is_directory; }

bool is_directory(ustring32 const& path) { return platform::status_of(platform::path(path)).is_directory; }

bool is_file(ustring8 const& path) { return platform::status_of(platform::path(path)).is_file; }

bool is_file(ustring16 const& path) { return platform::status_of(platform::path(path)).is_file; }

bool is_file(ustring32 const& path) { return platform::status_of(platform::path(path)).is_file; }

void mkdir(ustring8 const& path) { platform::make_directory(platform::path(path)); }

void mkdir(ustring16 const& path) { platform::make_directory(platform::path(path)); }

void mkdir(ustring32 const& path) { platform::make_directory(platform::path(path)); }

void move(ustring8 const& new_path, ustring8 const& old_path) {
    platform::rename_entry(platform::path(new_path), platform::path(old_path));
}

void move(ustring16 const& new_path, ustring16 const& old_path) {
    platform::rename_entry(platform::path(new_path), platform::path(old_path));
}

void move(ustring32 const& new_path, ustring32 const& old_path) {
    platform::rename_entry(platform::path(new_path), platform::path(old_path));
}

void remove_file(ustring8 const& path) { platform::remove_file(platform::path(path)); }

void remove_file(ustring16 const& path) { platform::remove_file(platform::path(path)); }

void remove_file(ustring32 const& path) { platform::remove_file(platform::path(path)); }

void remove_dir(ustring8 const& path) { platform::remove_directory(platform::path(path)); }

void remove_dir(ustring16 const& path) { platform::remove_directory(platform::path(path)); }

void remove_dir(ustring32 const& path) { platform::remove_directory(platform::path(path)); }

} // namespace VELDRIN_2_18::system::io
