// A process locale with a decimal comma.

#pragma once

#include "support/process_locale.hpp"

namespace support {

class comma_locale : public process_locale {
protected:
    comma_locale()
        : process_locale(
              LC_NUMERIC, "comma",
              "LC_NUMERIC\ndecimal_point \",\"\nthousands_sep \".\"\ngrouping 3\nEND LC_NUMERIC\n") {}
};

} // namespace support
