#pragma once

#include <string>

#include "platform/toolkit/toolkit.h"

/// A box that a core event shows, GBK.
struct EventBox {
    enum class Kind {
        kSystem,  ///< a system message box with `flags`
        kNotice,  ///< a text box for long texts, captions "okWord" and "退出"
    };

    Kind kind = Kind::kSystem;
    std::string text;
    std::string title;
    UINT flags = MB_OK;
    std::string okWord = {};
};

/// So many boxes of events are open at most.
inline constexpr int kMostEventBoxes = 8;

/// Shows a box and returns when it was answered. Each open box runs a message loop in which further
/// events arrive with boxes of their own; so that a storm of them can't exhaust the stack, a box
/// that comes while the most are open only stands in line, and is shown, in order, once one of them
/// has closed. Boxes in line go with their owner.
void ShowEventBox(HWND owner, const EventBox& box);
