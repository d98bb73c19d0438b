// How much of this process is resident, in KiB.

#pragma once

#include <cstddef>
#include <fstream>
#include <string>

namespace support {

inline std::size_t kibibytes_of(std::string const& what) {
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word && word != what) {
    }
    std::size_t kibibytes = 0;
    status >> kibibytes;
    return kibibytes;
}

inline std::size_t resident_memory() { return kibibytes_of("VmRSS:"); }

// The most that ever was.
inline std::size_t peak_resident_memory() { return kibibytes_of("VmHWM:"); }

} // namespace support
