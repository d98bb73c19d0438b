// A process locale that knows one pair of letters, and those are not ASCII. For tests in folders posix/.

#pragma once

#include "support/process_locale.hpp"

namespace support {

class one_pair_locale : public process_locale {
protected:
    // U+00C4 with U+00E4, and "k" as the capital of U+00E5.
    one_pair_locale()
        : process_locale(LC_CTYPE, "one_pair",
                         "LC_CTYPE\n"
                         "upper <U0041>..<U005A>;<U00C4>;<U006B>\nlower <U0061>..<U007A>;<U00E4>;<U00E5>\n"
                         "tolower (<U00C4>,<U00E4>);(<U006B>,<U00E5>)\n"
                         "toupper (<U00E4>,<U00C4>);(<U00E5>,<U006B>)\n"
                         "END LC_CTYPE\n") {}
};

} // namespace support
