// File: veldrin/config/std_config_dispatch.hpp
//
// The sources of a program: its command line, one file, the environment.
//
//     int main(int argc, char** argv, char** envp) {
//         config::config_manager manager;
//         manager.init(config::std_config_dispatch(argc, argv, envp, "sync.cfg", ""));
//         manager.load();
//     }

#pragma once

#include "veldrin/config/config_dispatch.hpp"
#include "veldrin/export.hpp"
#include "veldrin/namespace.hpp"
#include "veldrin/strings/ustring.hpp"

namespace VELDRIN_2_18::config {

class VELDRIN_EXPORT std_config_dispatch : public config_dispatch {
public:
    // `argc`, `argv` and `envp` are as in `commandline_item` and `enviroment_item`; a negative `argc` counts
    // as 0. An empty `file_name` leaves the choice of the file to `file_item`. `spare_name` is kept and has
    // no influence.
    std_config_dispatch(int argc, char const* const* argv, char const* const* envp,
                        strings::ustring8 const& file_name, strings::ustring8 const& spare_name);

    std_config_dispatch(std_config_dispatch const& other);
    std_config_dispatch& operator=(std_config_dispatch const& other);

    ~std_config_dispatch() override;

    // A `commandline_item`, a `file_item`, an `enviroment_item`, in this order.
    void setup(item_list& items) const override;

    // From the front of the list, so the file is searched for when the command line is loaded.
    void load(item_list& items) const override;
    void unload(item_list& items) const override;

    // Writes no file: see `file_item::save`.
    void save(item_list& items) const override;

    config_dispatch* clone() const override;

private:
    std_config_dispatch() = default;

    char const* const* m_argv = nullptr;
    char const* const* m_envp = nullptr;
    int m_argc = 0;
    strings::ustring8 m_file_name;
    strings::ustring8 m_spare_name;
};

} // namespace VELDRIN_2_18::config
