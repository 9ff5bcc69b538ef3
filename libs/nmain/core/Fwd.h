#pragma once

/// Forward declarations of the foundation's classes and of the object model, for headers that only point at them.
#include "foundation/core/Fwd.h"
#include "nmain/core/Names.h"
