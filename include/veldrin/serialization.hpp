// File: veldrin/serialization.hpp
//
// Typed values as a sequence of bytes, in a binary and in a text form; labeled values as a dictionary.

#pragma once

#include "veldrin/serialization/labeled_serialize_buffer.hpp"
#include "veldrin/serialization/labeled_text_buffer.hpp"
#include "veldrin/serialization/serialize_binary_buf.hpp"
#include "veldrin/serialization/serialize_buffer.hpp"
#include "veldrin/serialization/serialize_text_buf.hpp"
