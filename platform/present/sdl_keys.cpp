#include "platform/present/sdl_keys.h"

#include <map>

namespace present {

int VirtualKey(const SDL_Keysym& key) {
    static const std::map<SDL_Keycode, int> kKeys = {
        {SDLK_BACKSPACE, 0x08},   {SDLK_TAB, 0x09},          {SDLK_RETURN, 0x0D},
        {SDLK_KP_ENTER, 0x0D},    {SDLK_LSHIFT, 0x10},       {SDLK_RSHIFT, 0x10},
        {SDLK_LCTRL, 0x11},       {SDLK_RCTRL, 0x11},        {SDLK_LALT, 0x12},
        {SDLK_RALT, 0x12},        {SDLK_PAUSE, 0x13},        {SDLK_CAPSLOCK, 0x14},
        {SDLK_ESCAPE, 0x1B},      {SDLK_SPACE, 0x20},        {SDLK_PAGEUP, 0x21},
        {SDLK_PAGEDOWN, 0x22},    {SDLK_END, 0x23},          {SDLK_HOME, 0x24},
        {SDLK_LEFT, 0x25},        {SDLK_UP, 0x26},           {SDLK_RIGHT, 0x27},
        {SDLK_DOWN, 0x28},        {SDLK_INSERT, 0x2D},       {SDLK_DELETE, 0x2E},
        {SDLK_KP_MULTIPLY, 0x6A}, {SDLK_KP_PLUS, 0x6B},      {SDLK_KP_MINUS, 0x6D},
        {SDLK_KP_PERIOD, 0x6E},   {SDLK_KP_DIVIDE, 0x6F},    {SDLK_NUMLOCKCLEAR, 0x90},
        {SDLK_SCROLLLOCK, 0x91},  {SDLK_SEMICOLON, 0xBA},    {SDLK_EQUALS, 0xBB},
        {SDLK_COMMA, 0xBC},       {SDLK_MINUS, 0xBD},        {SDLK_PERIOD, 0xBE},
        {SDLK_SLASH, 0xBF},       {SDLK_BACKQUOTE, 0xC0},    {SDLK_LEFTBRACKET, 0xDB},
        {SDLK_BACKSLASH, 0xDC},   {SDLK_RIGHTBRACKET, 0xDD}, {SDLK_QUOTE, 0xDE}};
    const SDL_Keycode code = key.sym;
    if (code >= SDLK_a && code <= SDLK_z) return code - SDLK_a + 'A';
    if (code >= SDLK_0 && code <= SDLK_9) return code;
    if (code >= SDLK_F1 && code <= SDLK_F12) return code - SDLK_F1 + 0x70;
    if (code >= SDLK_KP_1 && code <= SDLK_KP_9) return code - SDLK_KP_1 + 0x61;
    if (code == SDLK_KP_0) return 0x60;
    const auto found = kKeys.find(code);
    return found == kKeys.end() ? 0 : found->second;
}

}  // namespace present
