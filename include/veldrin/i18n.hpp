// File: veldrin/i18n.hpp
//
// Message catalogues: loading them, finding messages, formatting them.

#pragma once

#include "veldrin/i18n/catalog.hpp"
#include "veldrin/i18n/format.hpp"
#include "veldrin/i18n/message.hpp"
#include "veldrin/i18n/message_catalogs.hpp"
#include "veldrin/i18n/message_item.hpp"
#include "veldrin/i18n/xmc_file_loader.hpp"
