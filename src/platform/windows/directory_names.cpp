#include "platform/directory_names.hpp"

#include <memory>

#include "platform/windows/system.hpp"

namespace VELDRIN_2_18::platform {

namespace {

struct search_closer {
    void operator()(HANDLE search) const { ::FindClose(search); }
};

} // namespace

std::vector<path_text> names_in(path_text const& directory) {
    std::vector<path_text> names;
    WIN32_FIND_DATAW entry;
    HANDLE const handle = ::FindFirstFileW((directory + L'*').c_str(), &entry);
    if (handle == INVALID_HANDLE_VALUE) {
        return names;
    }
    std::unique_ptr<void, search_closer> const search(handle);
    do {
        names.emplace_back(entry.cFileName);
    } while (::FindNextFileW(search.get(), &entry));
    return names;
}

} // namespace VELDRIN_2_18::platform
