#pragma once

// The Windows functions that the programs of this project call, with code page 936 behind every
// function on text. Each companion header declares one part; what a part supports and where it
// differs from the public documentation stands in docs/platform.md.

#include "windef.h"
// The order follows the needs of the parts: system services, drawing, windows.
#include "winbase.h"
#include "wingdi.h"
#include "winnls.h"
#include "winuser.h"
