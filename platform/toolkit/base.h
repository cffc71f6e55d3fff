#pragma once

// What every header of the toolkit stands on: the system, and how names leave the library.

#include "platform/system.h"

// The system has a helper macro of this name, which would take the place of CWnd's member.
#undef SubclassWindow

#ifdef _WIN32
#ifdef BUILDING_WINTOOLKIT
#define TOOLKIT_API __declspec(dllexport)
#else
#define TOOLKIT_API __declspec(dllimport)
#endif
#define TOOLKIT_MODULE_LOCAL
#else
#define TOOLKIT_API __attribute__((visibility("default")))
#define TOOLKIT_MODULE_LOCAL __attribute__((visibility("hidden")))
#endif

#define afx_msg

/// Root of the toolkit's classes. Objects stand for things of the system, so they are never copied.
class TOOLKIT_API CObject {
public:
    CObject() = default;
    virtual ~CObject() = default;
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;
};
