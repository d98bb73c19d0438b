// File: veldrin/system.hpp
//
// Files and directories; dates, times of day, durations and a stopwatch.

#pragma once

#include "veldrin/system/date_time/basic_date.hpp"
#include "veldrin/system/date_time/basic_time.hpp"
#include "veldrin/system/date_time/date.hpp"
#include "veldrin/system/date_time/date_duration.hpp"
#include "veldrin/system/date_time/date_time.hpp"
#include "veldrin/system/date_time/milliseconds.hpp"
#include "veldrin/system/date_time/time.hpp"
#include "veldrin/system/date_time/time_duration.hpp"
#include "veldrin/system/date_time/timer.hpp"
#include "veldrin/system/file_utility.hpp"
#include "veldrin/system/io.hpp"
