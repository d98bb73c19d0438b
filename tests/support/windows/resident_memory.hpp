// How much of this process is resident, in KiB.

#pragma once

#include <cstddef>

#include <windows.h>

#include <psapi.h>

namespace support {

inline std::size_t kibibytes_of(SIZE_T PROCESS_MEMORY_COUNTERS::*counter) {
    PROCESS_MEMORY_COUNTERS counters = {};
    return ::K32GetProcessMemoryInfo(::GetCurrentProcess(), &counters, sizeof counters) != 0
               ? counters.*counter / 1024
               : 0;
}

inline std::size_t resident_memory() { return kibibytes_of(&PROCESS_MEMORY_COUNTERS::WorkingSetSize); }

// The most that ever was.
inline std::size_t peak_resident_memory() {
    return kibibytes_of(&PROCESS_MEMORY_COUNTERS::PeakWorkingSetSize);
}

} // namespace support
