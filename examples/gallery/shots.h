#pragma once

#include <string>

namespace gallery {

class GalleryFrame;

/// Works the gallery as a person would and writes a picture of the desktop at each step into a
/// folder. False when a picture could not be written. Not on Windows, where nothing reads a desktop
/// back.
bool TakeShots(GalleryFrame& frame, const std::string& folder);

/// Writes the texts that the gallery shows, one a line in UTF-8, in the order in which they were
/// drawn. They are only known if texts have been remembered since before the window was made.
bool WriteTexts(GalleryFrame& frame, const std::string& path);

}  // namespace gallery
