#pragma once

#include "platform/win32/kernel/descriptor.h"
#include "platform/win32/kernel/kernel_object.h"

namespace winbase {

enum class Inherit { kNo, kYes };

/// One end of an anonymous pipe.
class PipeEnd : public KernelObject {
public:
    enum class Side { kRead, kWrite };

    PipeEnd(Descriptor descriptor, Side side, Inherit inherit)
        : descriptor_(std::move(descriptor)), side_(side), inherit_(inherit) {}

    int descriptor() const { return descriptor_.get(); }
    Side side() const { return side_; }
    /// Whether a started process may be given it.
    bool inheritable() const { return inherit_ == Inherit::kYes; }

private:
    Descriptor descriptor_;
    Side side_;
    Inherit inherit_;
};

}  // namespace winbase
