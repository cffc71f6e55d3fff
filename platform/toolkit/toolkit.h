#pragma once

// The whole toolkit.

#include "platform/toolkit/app.h"
#include "platform/toolkit/controls.h"
#include "platform/toolkit/dialog.h"
#include "platform/toolkit/file_dialog.h"
