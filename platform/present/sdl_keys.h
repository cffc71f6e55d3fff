#pragma once

#include <SDL.h>

namespace present {

/// The virtual key code of a key, or 0 for keys that the desktop has no use for.
int VirtualKey(const SDL_Keysym& key);

}  // namespace present
