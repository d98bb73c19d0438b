// File: veldrin/config/module_config_dispatch.hpp
//
// The sources of a loadable module: its files, the environment, and what the application sets as a fallback.
//
//     config::config_manager manager;
//     manager.init(config::module_config_dispatch(generic::varg_list({"mine.cfg"}, {"shared.cfg"}), envp));
//     manager.get_config_item("user_item")->set("width", 640, 0);
//     manager.load();

#pragma once

#include <vector>

#include "veldrin/config/config_dispatch.hpp"
#include "veldrin/export.hpp"
#include "veldrin/generic/varg_list.hpp"
#include "veldrin/namespace.hpp"
#include "veldrin/strings/ustring.hpp"

namespace VELDRIN_2_18::config {

class VELDRIN_EXPORT module_config_dispatch : public config_dispatch {
public:
    // The texts of `files` are the names of the files; the names of the arguments do not matter. `envp` is as
    // in `enviroment_item`.
    module_config_dispatch(generic::varg_list const& files, char const* const* envp);

    module_config_dispatch(module_config_dispatch const& other);
    module_config_dispatch& operator=(module_config_dispatch const& other);

    ~module_config_dispatch() override;

    // A `file_item` for each file, an `enviroment_item`, a `user_item`, in this order.
    void setup(item_list& items) const override;

    // From the front of the list, so only the user item can tell the first file item where to look.
    void load(item_list& items) const override;
    void unload(item_list& items) const override;

    // Writes no file: see `file_item::save`.
    void save(item_list& items) const override;

    config_dispatch* clone() const override;

private:
    char const* const* m_envp;
    std::vector<strings::ustring8> m_file_names;
};

} // namespace VELDRIN_2_18::config
