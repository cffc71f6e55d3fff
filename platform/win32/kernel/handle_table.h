#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <vector>

namespace winbase {

/// What a handle stands for; part of its number, so that a handle of another kind is never found.
enum class HandleKind : std::uint32_t { kWindow = 1, kDeviceContext, kGdiObject, kKernel, kHook };

/// Numbers for objects of one kind: bits 28 to 30 the kind, 16 to 27 how often the slot was used,
/// 0 to 15 the slot. No number is ever 0 or 0xFFFFFFFF, and all fit in 31 bits.
///
/// Add, Remove and Find belong to one thread (or the caller's lock); IsLive may be asked anywhere.
template <class T>
class HandleTable {
public:
    explicit HandleTable(HandleKind kind) : kind_(static_cast<std::uint32_t>(kind)) {}
    HandleTable(const HandleTable&) = delete;
    HandleTable& operator=(const HandleTable&) = delete;

    /// A fresh number for `object`, or 0 when all 65,535 are in use.
    std::uint32_t Add(T* object) {
        const std::uint32_t slot = TakeSlot();
        if (slot == 0) return 0;
        objects_[slot] = object;
        const std::uint32_t uses = (uses_[slot] + 1) & 0xFFF;
        uses_[slot] = uses;
        const std::uint32_t number = kind_ << 28 | uses << 16 | slot;
        live_[slot].store(number, std::memory_order_release);
        return number;
    }

    /// Forgets the number; a later Find answers null. Unknown numbers are ignored.
    void Remove(std::uint32_t number) {
        if (!IsLive(number)) return;
        const std::uint32_t slot = number & 0xFFFF;
        live_[slot].store(0, std::memory_order_release);
        objects_[slot] = nullptr;
        free_.push_back(slot);
    }

    T* Find(std::uint32_t number) const {
        return IsLive(number) ? objects_[number & 0xFFFF] : nullptr;
    }
    T* Find(const void* handle) const { return Find(Number(handle)); }

    bool IsLive(std::uint32_t number) const {
        const std::uint32_t slot = number & 0xFFFF;
        return number != 0 && slot < kSlots &&
               live_[slot].load(std::memory_order_acquire) == number;
    }
    bool IsLive(const void* handle) const { return IsLive(Number(handle)); }

    /// The number of a handle, or 0 when the value is wider than any number.
    static std::uint32_t Number(const void* handle) {
        const auto value = reinterpret_cast<std::uintptr_t>(handle);
        return value <= 0x7FFFFFFF ? static_cast<std::uint32_t>(value) : 0;
    }

    std::size_t size() const { return used_ - free_.size(); }

private:
    static constexpr std::uint32_t kSlots = 0x10000;

    std::uint32_t TakeSlot() {
        if (!free_.empty()) {
            const std::uint32_t slot = free_.back();
            free_.pop_back();
            return slot;
        }
        if (used_ + 1 >= kSlots) return 0;
        return static_cast<std::uint32_t>(++used_);
    }

    std::uint32_t kind_;
    std::size_t used_ = 0;
    std::vector<std::uint32_t> free_;
    std::unique_ptr<T*[]> objects_ = std::make_unique<T*[]>(kSlots);
    std::unique_ptr<std::uint32_t[]> uses_ = std::make_unique<std::uint32_t[]>(kSlots);
    std::unique_ptr<std::atomic<std::uint32_t>[]> live_ =
        std::make_unique<std::atomic<std::uint32_t>[]>(kSlots);
};

/// The handle that carries a number.
template <class Handle>
Handle ToHandle(std::uint32_t number) {
    return reinterpret_cast<Handle>(static_cast<std::uintptr_t>(number));
}

}  // namespace winbase
