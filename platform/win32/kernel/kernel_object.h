#pragma once

#include <windows.h>

#include <memory>

#include "platform/win32/kernel/last_error.h"

// What stands behind the handles of pipes, processes, searches and modules. Any thread may use
// them.

namespace winbase {

class KernelObject {
public:
    virtual ~KernelObject() = default;
};

/// A handle for the object, or null with the last error set when there is none left.
HANDLE AddObject(std::shared_ptr<KernelObject> object);

/// The object of a live handle, or null. The last error stays.
std::shared_ptr<KernelObject> FindAnyObject(HANDLE handle);

/// Forgets a handle; the object lives on while a call on another thread still works with it.
void RemoveObject(HANDLE handle);

/// The object of this type behind a handle, or null with last error ERROR_INVALID_HANDLE.
template <class T>
std::shared_ptr<T> FindObject(HANDLE handle) {
    auto object = std::dynamic_pointer_cast<T>(FindAnyObject(handle));
    if (!object) SetLastError(ERROR_INVALID_HANDLE);
    return object;
}

}  // namespace winbase
