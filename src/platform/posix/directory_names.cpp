#include "platform/directory_names.hpp"

#include <memory>

#include <dirent.h>

namespace VELDRIN_2_18::platform {

namespace {

struct directory_closer {
    void operator()(DIR* directory) const { ::closedir(directory); }
};

} // namespace

std::vector<path_text> names_in(path_text const& directory) {
    std::vector<path_text> names;
    std::unique_ptr<DIR, directory_closer> const stream(::opendir(directory.c_str()));
    if (stream != nullptr) {
        while (dirent const* const entry = ::readdir(stream.get())) {
            names.emplace_back(entry->d_name);
        }
    }
    return names;
}

} // namespace VELDRIN_2_18::platform
