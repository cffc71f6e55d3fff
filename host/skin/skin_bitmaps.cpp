#include "host/skin/skin_bitmaps.h"

namespace skin {

HBITMAP SkinBitmaps::Get(int group, int index) {
    const auto found = made_.find({group, index});
    return found == made_.end() ? nullptr : HBITMAP{found->second};
}

}  // namespace skin
