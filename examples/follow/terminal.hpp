// The one thing that the standard library does not tell; one source for each platform.

#pragma once

// True if somebody watches the standard error stream.
bool error_stream_is_terminal();
