#pragma once

#include <map>
#include <utility>

#include "platform/toolkit/gdi_objects.h"

namespace skin {

/// The bitmaps that the front end asks its core for, drawn when first asked for and kept for all
/// who ask again. They belong to this object; it must outlive every window that shows them.
class SkinBitmaps {
public:
    /// Null for a number that nobody knows.
    HBITMAP Get(int group, int index);

private:
    std::map<std::pair<int, int>, CBitmap> made_;
};

}  // namespace skin
