// File: veldrin/parser.hpp
//
// The XML parsers.

#pragma once

#include "veldrin/parser/xml_parser.hpp"
#include "veldrin/parser/xml_stream_parser.hpp"
#include "veldrin/parser/xml_token_stream.hpp"
