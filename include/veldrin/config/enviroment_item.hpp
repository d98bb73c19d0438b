// File: veldrin/config/enviroment_item.hpp
//
// The source of what stands in the environment.
//
//     // HOME=/home/me
//     config::enviroment_item item(envp);
//     item.load();
//     item.get_value("home")->second.as_string();     // "/home/me"

#pragma once

#include "veldrin/config/base_config_item.hpp"
#include "veldrin/export.hpp"
#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::config {

// The id is "enviroment".
class VELDRIN_EXPORT enviroment_item : public base_config_item {
public:
    // `envp` is null or ends in a null pointer. The texts are not copied: they must outlive the item and its
    // copies.
    enviroment_item(char const* const* envp);

    enviroment_item(enviroment_item const& other);
    enviroment_item& operator=(enviroment_item const& other);

    ~enviroment_item() override;

    // What was passed.
    char const* const* get_envp() const;

    // Sets each entry as the text form of `set` does: a name with a separator in it nests, and a value loses
    // its double quotes and the blanks and tabs that are not between them. An entry that starts with "=" has
    // the empty key.
    bool load() override;

    // The list is not looked at.
    bool load(item_list const& items) override;

    void unload() override;

    base_config_item* clone() const override;

private:
    char const* const* m_envp;
};

} // namespace VELDRIN_2_18::config
