#pragma once

#include <unistd.h>

#include <cstddef>
#include <utility>

namespace winbase {

/// Owns a file descriptor.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor() {
        if (valid()) close(number_);
    }

    bool valid() const { return number_ >= 0; }
    int get() const { return number_; }

private:
    int number_ = -1;
};

/// Writes every byte; false with `errno` set when that fails.
bool WriteAll(int descriptor, const void* data, std::size_t size);

}  // namespace winbase
