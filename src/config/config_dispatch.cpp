#include "veldrin/config/config_dispatch.hpp"

namespace VELDRIN_2_18::config {

config_dispatch::config_dispatch() = default;

config_dispatch::config_dispatch(config_dispatch const& other) = default;

config_dispatch& config_dispatch::operator=(config_dispatch const& other) = default;

config_dispatch::~config_dispatch() = default;

} // namespace VELDRIN_2_18::config
