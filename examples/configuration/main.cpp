// The settings of a small file-synchronising tool, from the command line, a file and the environment.
//
//     configuration [-key=value ...]              prints the settings
//     configuration --explain [-key=value ...]    and where each of them comes from
//
// The file is mirror.cfg in the current directory, or the one that -cfg_file names.

#include <iostream>
#include <utility>
#include <vector>

#include "veldrin/config.hpp"

using veldrin::config::base_config_item;
using veldrin::config::config_manager;
using veldrin::config::config_tree;
using veldrin::memory::pointers::rc_pointer;
using veldrin::strings::ustring8;
using veldrin::types::variant;

namespace {

// The settings that the tool knows, with their values where no source has one.
std::vector<std::pair<ustring8, variant>> const& settings() {
    static std::vector<std::pair<ustring8, variant>> const all = {
        {"source", "."},        {"target", "."},         {"destination", "."}, {"limits.files", 1000},
        {"limits.size", 65536}, {"limits.pause", "0.0"}, {"limits.depth", 64}, {"messages.language", "."},
    };
    return all;
}

variant value_of(config_manager const& manager, ustring8 const& wanted) {
    for (auto const& [key, default_value] : settings()) {
        if (key == wanted) {
            return manager.get_value(key, default_value);
        }
    }
    return variant();
}

// The source that decides: the first in the manager's order that has a node at the key. Null if none has.
rc_pointer<base_config_item> deciding_item(config_manager const& manager, ustring8 const& key) {
    for (char const* const id : {"command line", "standard file", "enviroment"}) {
        rc_pointer<base_config_item> const item = manager.get_config_item(id);
        if (item->get_value(key) != nullptr) {
            return item;
        }
    }
    return {};
}

ustring8 source_of(config_manager const& manager, ustring8 const& key) {
    rc_pointer<base_config_item> const item = deciding_item(manager, key);
    if (item.is_null()) {
        return "default";
    }
    auto const& [flags, value] = *item->get_value(key);
    if ((flags & config_tree::flag_alias) == 0) {
        return item->get_id();
    }
    ustring8 const target = value.as_string();
    return "stands for " + target + ": " + source_of(manager, target);
}

// An array, or a single text: "-include=*.raw" is one. The manager's own `get_array` passes over a source
// with a text, to the first one with an array.
std::vector<variant> values_of(config_manager const& manager, ustring8 const& key) {
    rc_pointer<base_config_item> const item = deciding_item(manager, key);
    if (item.is_null()) {
        return {};
    }
    auto const& [flags, value] = *item->get_value(key);
    if ((flags & config_tree::flag_array) == 0) {
        return {value};
    }
    config_tree::entry_list elements;
    item->get_array(key, elements);
    std::vector<variant> values;
    for (auto const& [name, element] : elements) {
        values.push_back(element.second);
    }
    return values;
}

void print(ustring8 const& key, ustring8 const& value, ustring8 const& source, bool explain) {
    std::cout << key << " = " << value;
    if (explain) {
        std::cout << "    (" << source << ")";
    }
    std::cout << '\n';
}

} // namespace

int main(int argc, char** argv, char** envp) {
    config_manager manager;
    manager.init(veldrin::config::std_config_dispatch(argc, argv, envp, "mirror.cfg", ""));

    // An older name of a setting: the question for it is answered by the setting that it names.
    manager.get_config_item("enviroment")->set("destination", "target", config_tree::flag_alias);
    manager.load();

    // The second "-" of an option belongs to its key.
    bool const explain = manager.value_exist("-explain");
    for (auto const& [key, default_value] : settings()) {
        print(key, manager.get_value(key, default_value).as_string(), source_of(manager, key), explain);
    }

    for (variant const& pattern : values_of(manager, "include")) {
        print("include[]", pattern.as_string(), source_of(manager, "include"), explain);
    }

    // A value becomes a number when it is asked for as one.
    std::cout << "room for " << value_of(manager, "limits.size").as_uint64() << " bytes in "
              << value_of(manager, "limits.files").as_uint32() << " files\n";
    return 0;
}
