#include "veldrin/system/file_utility.hpp"

#include <cstddef>
#include <memory>
#include <optional>
#include <utility>

#include "platform/directory.hpp"
#include "platform/file_stream.hpp"
#include "platform/file_system.hpp"
#include "system/directory_visit.hpp"

namespace VELDRIN_2_18::system {

using strings::ustring16;
using strings::ustring32;
using strings::ustring8;

namespace {

bool make_directories(platform::path const& path) {
    if (platform::status_of(path).is_directory) {
        return true;
    }
    platform::path_text const& text = path.text();
    // Fails; its outcome is the result for an empty path.
    bool made = platform::create_directory(path.prefix(0));
    std::size_t position = 1;
    while (position < text.size()) {
        std::size_t const separator = text.find(platform::path_separator, position);
        if (separator == platform::path_text::npos) {
            break;
        }
        made = platform::create_directory(path.prefix(separator));
        position = separator + 1;
    }
    if (!text.empty() && text.back() != platform::path_separator) {
        made = platform::create_directory(path);
    }
    return made;
}

int load(platform::path const& path, std::string& contents) {
    std::unique_ptr<std::istream> const file = platform::open_for_reading(path);
    if (file == nullptr) {
        return 1;
    }
    file->seekg(0, std::ios_base::end);
    // The contract keeps the size in an `int`: what does not fit becomes a length that no string can have.
    auto const size = static_cast<int>(static_cast<std::streamoff>(file->tellg()));
    contents.assign(static_cast<std::size_t>(size), '\0');
    file->seekg(0, std::ios_base::beg);
    file->read(contents.data(), size);
    return 0;
}

int store(platform::path const& path, std::string const& contents) {
    std::unique_ptr<std::ostream> const file = platform::open_for_writing(path);
    if (file == nullptr) {
        return 1;
    }
    file->write(contents.data(), static_cast<std::streamsize>(contents.size()));
    return 0;
}

// An enumeration under way. An exception that leaves it before its end closes it.
class directory_walk {
public:
    // Delivers the first entry, if there is one.
    directory_walk(platform::path const& directory, platform::path_text& name)
        : m_handle(platform::open_directory(directory, name)) {}
    directory_walk(directory_walk const&) = delete;
    directory_walk& operator=(directory_walk const&) = delete;
    ~directory_walk() {
        if (is_open()) {
            platform::close_directory(m_handle);
        }
    }

    bool is_open() const { return m_handle != platform::directory_handle::none; }
    bool next(platform::path_text& name) const { return platform::next_entry(m_handle, name); }

    // The handle is never given back: nothing is held behind it once it has been read to its end.
    void release() { m_handle = platform::directory_handle::none; }

private:
    platform::directory_handle m_handle;
};

bool is_special_name(platform::path_text const& name) {
    return (name.size() == 1 && name[0] == '.') || (name.size() == 2 && name[0] == '.' && name[1] == '.');
}

void collect_files(platform::path const& directory, _private::directory_visit const* parent,
                   std::vector<platform::path>& files) {
    _private::directory_visit const visit(directory, parent);
    if (visit.repeats()) {
        return;
    }
    platform::path_text name;
    directory_walk walk(directory, name);
    if (!walk.is_open()) {
        return;
    }
    do {
        if (is_special_name(name)) {
            continue;
        }
        platform::path path = directory.child(name);
        platform::entry_status const status = platform::status_of(path);
        if (status.is_file && status.owner_may_read) {
            files.push_back(std::move(path));
        } else if (status.is_directory && status.owner_may_read) {
            collect_files(path, &visit, files);
        }
    } while (walk.next(name));
    walk.release();
    // By contract it is a second enumeration that is closed.
    platform::close_directory(platform::open_directory(directory, name));
}

std::vector<platform::path> files_below(platform::path const& directory) {
    std::vector<platform::path> files;
    collect_files(directory, nullptr, files);
    return files;
}

std::vector<platform::path> entries_of(platform::path const& directory) {
    std::vector<platform::path> entries;
    platform::path_text name;
    directory_walk const walk(directory, name);
    if (!walk.is_open()) {
        return entries;
    }
    // By contract the first entry is dropped without a look at it.
    while (walk.next(name)) {
        if (!is_special_name(name)) {
            entries.push_back(directory.child(name));
        }
    }
    return entries;
}

template <class Text>
void append(std::vector<platform::path> const& paths, std::vector<Text>& texts) {
    for (platform::path const& path : paths) {
        if (std::optional<Text> text = path.as<Text>()) {
            texts.push_back(std::move(*text));
        }
    }
}

template <class Text>
std::vector<Text> texts_of(std::vector<platform::path> const& paths) {
    std::vector<Text> texts;
    append(paths, texts);
    return texts;
}

} // namespace

bool have_read_access(ustring8 const& path) {
    return platform::status_of(platform::path(path)).owner_may_read;
}

bool have_read_access(ustring16 const& path) {
    return platform::status_of(platform::path(path)).owner_may_read;
}

bool have_read_access(ustring32 const& path) {
    return platform::status_of(platform::path(path)).owner_may_read;
}

bool create_directory(ustring8 const& path) { return make_directories(platform::path(path)); }

bool create_directory(ustring16 const& path) { return make_directories(platform::path(path)); }

bool create_directory(ustring32 const& path) { return make_directories(platform::path(path)); }

int load_file(ustring8 const& path, ustring8& contents) { return load(platform::path(path), contents); }

int load_file(ustring16 const& path, ustring8& contents) { return load(platform::path(path), contents); }

int load_file(ustring32 const& path, ustring8& contents) { return load(platform::path(path), contents); }

int load_file(ustring8 const& path, std::string& contents) { return load(platform::path(path), contents); }

int load_file(ustring16 const& path, std::string& contents) { return load(platform::path(path), contents); }

int load_file(ustring32 const& path, std::string& contents) { return load(platform::path(path), contents); }

int store_file(ustring8 const& path, ustring8 const& contents) {
    return store(platform::path(path), contents);
}

int store_file(ustring16 const& path, ustring8 const& contents) {
    return store(platform::path(path), contents);
}

int store_file(ustring32 const& path, ustring8 const& contents) {
    return store(platform::path(path), contents);
}

void get_directory_files(ustring8 const& directory, std::vector<ustring8>& files) {
    append(files_below(platform::path(directory)), files);
}

void get_directory_files(ustring16 const& directory, std::vector<ustring16>& files) {
    append(files_below(platform::path(directory)), files);
}

void get_directory_files(ustring32 const& directory, std::vector<ustring32>& files) {
    append(files_below(platform::path(directory)), files);
}

std::vector<ustring8> list_directory(ustring8 const& directory) {
    return texts_of<ustring8>(entries_of(platform::path(directory)));
}

std::vector<ustring16> list_directory(ustring16 const& directory) {
    return texts_of<ustring16>(entries_of(platform::path(directory)));
}

std::vector<ustring32> list_directory(ustring32 const& directory) {
    return texts_of<ustring32>(entries_of(platform::path(directory)));
}

} // namespace VELDRIN_2_18::system
