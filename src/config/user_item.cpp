#include "veldrin/config/user_item.hpp"

#include "veldrin/generic/abilities/make_dynamic.hpp"

namespace VELDRIN_2_18::config {

user_item::user_item() { id = "user item"; }

user_item::user_item(user_item const& other) : base_config_item(other) { id = "user_item"; }

user_item& user_item::operator=(user_item const& other) = default;

user_item::~user_item() = default;

base_config_item* user_item::clone() const { return generic::abilities::make_dynamic<user_item>(*this); }

} // namespace VELDRIN_2_18::config
