#include <objbase.h>

#include <cassert>

namespace {
thread_local int initialised = 0;
}

HRESULT OleInitialize([[maybe_unused]] LPVOID reserved) {
    assert(!reserved && "the parameter is reserved");
    return initialised++ == 0 ? S_OK : S_FALSE;
}

void OleUninitialize() {
    if (initialised > 0) --initialised;
}
