#pragma once

namespace winbase {

/// Registers the classes of dialogs and standard controls, which every module finds by name. The
/// class registry calls it before the first class is looked up; later calls do nothing.
void RegisterStandardControls();

}  // namespace winbase
