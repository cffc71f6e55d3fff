#include "platform/win32/kernel/descriptor.h"

#include <cerrno>

namespace winbase {

bool WriteAll(int descriptor, const void* data, std::size_t size) {
    const char* position = static_cast<const char*>(data);
    while (size > 0) {
        const ssize_t count = write(descriptor, position, size);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return false;
        position += count;
        size -= static_cast<std::size_t>(count);
    }
    return true;
}

}  // namespace winbase
