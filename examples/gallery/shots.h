#pragma once

#include <string>

namespace gallery {

class GalleryFrame;

/// Works the gallery as a person would and writes a picture of the desktop at each step into a folder.
/// False when a picture could not be written. Not on Windows, where nothing reads a desktop back.
bool TakeShots(GalleryFrame& frame, const std::string& folder);

}  // namespace gallery
