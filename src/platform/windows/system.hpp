// The system's own header, without its macros `min` and `max` and without what is rarely used.

#pragma once

#define WIN32_LEAN_AND_MEAN
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
