#include "platform/directory.hpp"

#include <mutex>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/directory_names.hpp"

namespace VELDRIN_2_18::platform {

namespace {

// The enumerations under way in all threads.
class enumeration_table {
public:
    directory_handle add(std::vector<path_text> names) {
        std::lock_guard const lock(m_mutex);
        directory_handle const handle{++m_last_handle};
        m_enumerations.emplace(handle, enumeration{std::move(names), 0});
        return handle;
    }

    bool next(directory_handle handle, path_text& entry) {
        std::lock_guard const lock(m_mutex);
        auto const found = m_enumerations.find(handle);
        if (found == m_enumerations.end()) {
            return false;
        }
        enumeration& current = found->second;
        if (current.next == current.names.size()) {
            m_enumerations.erase(found);
            return false;
        }
        entry = std::move(current.names[current.next++]);
        return true;
    }

    void remove(directory_handle handle) {
        std::lock_guard const lock(m_mutex);
        m_enumerations.erase(handle);
    }

private:
    struct enumeration {
        std::vector<path_text> names;
        std::size_t next;
    };

    std::mutex m_mutex;
    std::uint64_t m_last_handle = 0;
    std::unordered_map<directory_handle, enumeration> m_enumerations;
};

// Never destroyed: objects that are older than the table walk directories in their destructors too.
enumeration_table& enumerations() {
    static enumeration_table& table = *new enumeration_table;
    return table;
}

} // namespace

directory_handle open_directory(path const& directory, path_text& entry) {
    if (!directory.names_something()) {
        return directory_handle::none;
    }
    std::vector<path_text> names = names_in(directory.text() + path_separator);
    if (names.empty()) {
        return directory_handle::none;
    }
    directory_handle const handle = enumerations().add(std::move(names));
    enumerations().next(handle, entry);
    return handle;
}

bool next_entry(directory_handle handle, path_text& entry) { return enumerations().next(handle, entry); }

void close_directory(directory_handle handle) { enumerations().remove(handle); }

} // namespace VELDRIN_2_18::platform
