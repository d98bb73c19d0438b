#include "veldrin/config/module_config_dispatch.hpp"

#include "config/dispatch_items.hpp"
#include "veldrin/config/enviroment_item.hpp"
#include "veldrin/config/file_item.hpp"
#include "veldrin/config/user_item.hpp"
#include "veldrin/generic/abilities/make_dynamic.hpp"

namespace VELDRIN_2_18::config {

using strings::ustring8;

module_config_dispatch::module_config_dispatch(generic::varg_list const& files, char const* const* envp)
    : m_envp(envp) {
    for (generic::argument const& file : files) {
        m_file_names.push_back(file.value().as_string());
    }
}

module_config_dispatch::module_config_dispatch(module_config_dispatch const& other) = default;

module_config_dispatch& module_config_dispatch::operator=(module_config_dispatch const& other) = default;

module_config_dispatch::~module_config_dispatch() = default;

void module_config_dispatch::setup(item_list& items) const {
    enviroment_item const environment(m_envp);
    user_item const user;
    for (ustring8 const& name : m_file_names) {
        items.push_back(generic::abilities::make_dynamic<file_item>(name));
    }
    items.push_back(environment.clone());
    items.push_back(user.clone());
}

void module_config_dispatch::load(item_list& items) const { _private::load_items(items); }

void module_config_dispatch::unload(item_list& items) const { _private::unload_items(items); }

void module_config_dispatch::save(item_list& items) const { _private::save_items(items); }

config_dispatch* module_config_dispatch::clone() const { return new module_config_dispatch(*this); }

} // namespace VELDRIN_2_18::config
