#include "platform/win32/kernel/kernel_object.h"

#include <mutex>
#include <utility>

#include "platform/win32/kernel/handle_table.h"

namespace winbase {
namespace {

struct Objects {
    std::mutex mutex;
    HandleTable<std::shared_ptr<KernelObject>> table{HandleKind::kKernel};
};

/// Never destroyed: threads may still close handles while the program ends.
Objects& TheObjects() {
    static Objects& objects = *new Objects;
    return objects;
}

}  // namespace

HANDLE AddObject(std::shared_ptr<KernelObject> object) {
    Objects& objects = TheObjects();
    auto entry = std::make_unique<std::shared_ptr<KernelObject>>(std::move(object));
    const std::lock_guard lock(objects.mutex);
    const std::uint32_t number = objects.table.Add(entry.get());
    if (number == 0) {
        SetLastError(ERROR_TOO_MANY_OPEN_FILES);
        return nullptr;
    }
    static_cast<void>(entry.release());
    return ToHandle<HANDLE>(number);
}

std::shared_ptr<KernelObject> FindAnyObject(HANDLE handle) {
    Objects& objects = TheObjects();
    const std::lock_guard lock(objects.mutex);
    const auto* entry = objects.table.Find(handle);
    return entry ? *entry : nullptr;
}

void RemoveObject(HANDLE handle) {
    Objects& objects = TheObjects();
    std::unique_ptr<std::shared_ptr<KernelObject>> entry;
    const std::lock_guard lock(objects.mutex);
    entry.reset(objects.table.Find(handle));
    objects.table.Remove(objects.table.Number(handle));
}

}  // namespace winbase
