#include <windows.h>

#include <cassert>
#include <mutex>

namespace {

std::recursive_mutex& MutexOf(LPCRITICAL_SECTION section) {
    assert(section && section->DebugInfo && "critical section is not initialised");
    return *static_cast<std::recursive_mutex*>(section->DebugInfo);
}

}  // namespace

void InitializeCriticalSection(LPCRITICAL_SECTION section) {
    *section = {};
    section->DebugInfo = new std::recursive_mutex;
}

void EnterCriticalSection(LPCRITICAL_SECTION section) { MutexOf(section).lock(); }

BOOL TryEnterCriticalSection(LPCRITICAL_SECTION section) { return MutexOf(section).try_lock(); }

void LeaveCriticalSection(LPCRITICAL_SECTION section) { MutexOf(section).unlock(); }

void DeleteCriticalSection(LPCRITICAL_SECTION section) {
    delete static_cast<std::recursive_mutex*>(section->DebugInfo);
    *section = {};
}
