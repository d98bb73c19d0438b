// File: veldrin/serialization.hpp
//
// Typed values as a sequence of bytes, in a binary and in a text form.

#pragma once

#include "veldrin/serialization/serialize_binary_buf.hpp"
#include "veldrin/serialization/serialize_buffer.hpp"
#include "veldrin/serialization/serialize_text_buf.hpp"
