// What a target demands of a result: the run ends where it does not hold.

#pragma once

#include <cstdlib>

inline void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}
