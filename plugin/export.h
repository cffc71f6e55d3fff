#pragma once

#include "platform/export.h"

/// On what the shared library offers to hosts and cores; all else of it stays inside.
#define QMGOLDTRADEUI_API SYMBOL_EXPORT
