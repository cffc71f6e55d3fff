#pragma once

// How the layer starts. A program that says nothing gets a window where a display is announced and
// runs headless elsewhere. On Windows there is nothing to start.

namespace platform {

enum class Display { kAutomatic, kWindow, kHeadless };
enum class Clock { kReal, kManual };

struct StartOptions {
    Display display = Display::kAutomatic;
    Clock clock = Clock::kReal;
    int scale = 1;     ///< device pixels a logical one, 1 to 3; anything else counts as the nearest
    int width = 1280;  ///< logical size of the desktop
    int height = 800;
};

/// Before the first window and at most once a run; later calls change nothing and answer false.
/// Answers false as well when a window was asked for and none could be had: the layer is headless
/// then.
#ifdef _WIN32
inline bool Start(const StartOptions&) { return true; }
#else
__attribute__((visibility("default"))) bool Start(const StartOptions& options);
#endif

}  // namespace platform
