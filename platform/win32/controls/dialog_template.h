#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace winbase {

/// One control of a dialog; place and size in dialog units.
struct ControlTemplate {
    DWORD style = 0;
    DWORD ex_style = 0;
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    int id = 0;
    std::string window_class;
    std::string text;
    std::vector<unsigned char> data;  ///< what the control's WM_CREATE gets
};

/// A dialog before it is created; place and size in dialog units, texts in code page 936.
struct DialogTemplate {
    DWORD style = 0;
    DWORD ex_style = 0;
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    std::string window_class;  ///< empty for the dialogs' own
    std::string title;
    int point_size = 0;  ///< with DS_SETFONT
    std::string face;
    std::vector<ControlTemplate> controls;
};

/// Reads a template as it lies in memory (DLGTEMPLATE and what follows it). Nothing for a null
/// pointer and for the extended form (DLGTEMPLATEEX), which is not supported.
std::optional<DialogTemplate> ReadTemplate(const DLGTEMPLATE* memory);

}  // namespace winbase
