#include "veldrin/config/std_config_dispatch.hpp"

#include <algorithm>

#include "config/dispatch_items.hpp"
#include "veldrin/config/commandline_item.hpp"
#include "veldrin/config/enviroment_item.hpp"
#include "veldrin/config/file_item.hpp"

namespace VELDRIN_2_18::config {

using strings::ustring8;

std_config_dispatch::std_config_dispatch(int argc, char const* const* argv, char const* const* envp,
                                         ustring8 const& file_name, ustring8 const& spare_name)
    : m_argv(argv), m_envp(envp), m_argc(argc), m_file_name(file_name), m_spare_name(spare_name) {}

std_config_dispatch::std_config_dispatch(std_config_dispatch const& other) = default;

std_config_dispatch& std_config_dispatch::operator=(std_config_dispatch const& other) = default;

std_config_dispatch::~std_config_dispatch() = default;

void std_config_dispatch::setup(item_list& items) const {
    commandline_item const options(static_cast<unsigned int>(std::max(m_argc, 0)), m_argv);
    enviroment_item const environment(m_envp);
    file_item const file(m_file_name);
    items.push_back(options.clone());
    items.push_back(file.clone());
    items.push_back(environment.clone());
}

void std_config_dispatch::load(item_list& items) const { _private::load_items(items); }

void std_config_dispatch::unload(item_list& items) const { _private::unload_items(items); }

void std_config_dispatch::save(item_list& items) const { _private::save_items(items); }

config_dispatch* std_config_dispatch::clone() const { return new std_config_dispatch(*this); }

} // namespace VELDRIN_2_18::config
