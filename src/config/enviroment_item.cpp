#include "veldrin/config/enviroment_item.hpp"

#include "veldrin/generic/abilities/make_dynamic.hpp"

namespace VELDRIN_2_18::config {

namespace {

constexpr char const* own_id = "enviroment";

} // namespace

enviroment_item::enviroment_item(char const* const* envp) : m_envp(envp) { id = own_id; }

enviroment_item::enviroment_item(enviroment_item const& other)
    : base_config_item(other), m_envp(other.m_envp) {
    id = own_id;
}

enviroment_item& enviroment_item::operator=(enviroment_item const& other) = default;

enviroment_item::~enviroment_item() = default;

char const* const* enviroment_item::get_envp() const { return m_envp; }

bool enviroment_item::load() {
    if (m_envp != nullptr) {
        for (char const* const* entry = m_envp; *entry != nullptr; ++entry) {
            set(*entry, 0);
        }
    }
    return true;
}

bool enviroment_item::load(item_list const&) { return load(); }

void enviroment_item::unload() { tree.erase(); }

base_config_item* enviroment_item::clone() const {
    return generic::abilities::make_dynamic<enviroment_item>(*this);
}

} // namespace VELDRIN_2_18::config
