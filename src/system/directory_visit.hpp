// Keeps a recursive walk from going round in circles where a link leads back up.

#pragma once

#include <optional>

#include "platform/file_system.hpp"

namespace VELDRIN_2_18::system::_private {

// One directory that a walk is inside of, chained to the one in which it was met. The chain lives on the
// stack:
//
//     void walk(platform::path const& directory, directory_visit const* parent) {
//         directory_visit const visit(directory, parent);
//         if (visit.repeats()) {
//             return;
//         }
//         ... walk(directory.child(name), &visit);
//     }
class directory_visit {
public:
    // `parent` is null for the directory at which the walk starts, and must outlive the visit.
    directory_visit(platform::path const& directory, directory_visit const* parent)
        : m_identity(platform::identity_of(directory)), m_parent(parent) {}

    // True if one of the directories further up is this one. One whose identity cannot be told never is.
    bool repeats() const {
        for (directory_visit const* visit = m_parent; m_identity && visit != nullptr;
             visit = visit->m_parent) {
            if (visit->m_identity == m_identity) {
                return true;
            }
        }
        return false;
    }

private:
    std::optional<platform::directory_identity> m_identity;
    directory_visit const* m_parent;
};

} // namespace VELDRIN_2_18::system::_private
