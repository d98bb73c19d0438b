// File: veldrin/foundation.hpp
//
// Failures, assertions, delegates, abilities and counted pointers.

#pragma once

#include "veldrin/debug/assert.hpp"
#include "veldrin/exceptions/exception.hpp"
#include "veldrin/exceptions/logic_error.hpp"
#include "veldrin/exceptions/runtime_error.hpp"
#include "veldrin/functor/delegate.hpp"
#include "veldrin/functor/function.hpp"
#include "veldrin/functor/member_function.hpp"
#include "veldrin/generic/abilities/clone_ability.hpp"
#include "veldrin/generic/abilities/create_ability.hpp"
#include "veldrin/generic/abilities/id_ability.hpp"
#include "veldrin/generic/abilities/make_dynamic.hpp"
#include "veldrin/generic/abilities/reference_count_pointer_ability.hpp"
#include "veldrin/generic/clone_interface.hpp"
#include "veldrin/memory/pointers/rc_pointer.hpp"
#include "veldrin/memory/pointers/shared_pointer.hpp"
#include "veldrin/types/nil.hpp"
