// A process locale with a decimal comma.

#pragma once

#include "support/german_locale.hpp"

namespace support {

using comma_locale = german_locale;

} // namespace support
