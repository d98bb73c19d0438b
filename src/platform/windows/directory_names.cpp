#include "platform/directory_names.hpp"

#include "platform/windows/system.hpp"

namespace VELDRIN_2_18::platform {

std::vector<path_text> names_in(path_text const& directory) {
    std::vector<path_text> names;
    WIN32_FIND_DATAW entry;
    HANDLE const search = ::FindFirstFileW((directory + L'*').c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) {
        return names;
    }
    do {
        names.emplace_back(entry.cFileName);
    } while (::FindNextFileW(search, &entry));
    ::FindClose(search);
    return names;
}

} // namespace VELDRIN_2_18::platform
