#include "platform/start.h"

#include <dlfcn.h>
#include <winbase_hooks.h>
#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>

#include "platform/present/screen.h"
#include "platform/win32/gdi/dc_target.h"
#include "platform/win32/user/desktop_setup.h"

namespace {

// The desktop's library lies beside this one.
std::string NextToThisLibrary(const char* name) {
    Dl_info info{};
    if (dladdr(reinterpret_cast<const void*>(&platform::Start), &info) == 0 ||
        info.dli_fname == nullptr)
        return name;
    const std::string path = info.dli_fname;
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? name : path.substr(0, slash + 1) + name;
}

bool DisplayAnnounced() {
    const auto set = [](const char* name) {
        const char* const value = std::getenv(name);
        return value != nullptr && *value != '\0';
    };
    return set("DISPLAY") || set("WAYLAND_DISPLAY");
}

std::unique_ptr<present::Screen> OpenScreen(const platform::StartOptions& options, int scale) {
    using Create = present::Screen* (*)(int, int, int);
    void* const library =
        dlopen(NextToThisLibrary("libpresent_sdl.so").c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) return nullptr;
    const auto create = reinterpret_cast<Create>(dlsym(library, "CreatePresentScreen"));
    return std::unique_ptr<present::Screen>(
        create != nullptr ? create(options.width, options.height, scale) : nullptr);
}

void StopClock() {
    SYSTEMTIME noon{};
    noon.wYear = 2020;
    noon.wMonth = 6;
    noon.wDay = 15;
    noon.wDayOfWeek = 1;
    noon.wHour = 12;
    constexpr DWORD kFirstTick = 100000;
    winbase::hooks::UseManualClock(kFirstTick, noon);
}

}  // namespace

bool platform::Start(const StartOptions& options) {
    static bool started = false;
    if (started) return false;
    started = true;
    const int scale = std::clamp(options.scale, 1, 3);
    winbase::SetDefaultScale(scale);
    if (options.clock == Clock::kManual) StopClock();
    // Undeclared displays would be the console itself, which is nothing to take over unasked.
    const bool wanted = options.display != Display::kHeadless && DisplayAnnounced();
    auto screen = wanted ? OpenScreen(options, scale) : nullptr;
    const bool opened = screen != nullptr;
    const SIZE size =
        opened ? SIZE{screen->Width(), screen->Height()}
               : SIZE{std::clamp(options.width, 320, 8192), std::clamp(options.height, 240, 8192)};
    winbase::SetUpDesktop(std::move(screen), size);
    return opened || options.display != Display::kWindow;
}
