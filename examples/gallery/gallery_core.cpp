#include "examples/gallery/gallery_core.h"

#include "host/skin/palette.h"

namespace gallery {

COLORREF GalleryCore::GetSkinColor() { return skin::kLight.ground; }

void GalleryCore::GetPanelBackColor(COLORREF* color) { *color = skin::kPanelGround; }

}  // namespace gallery
