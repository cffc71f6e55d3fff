#pragma once

#include <string>

/// Remembers the current directory as the application's; only the first call counts. A path that is
/// no text of the system's code page, or too long for it, leaves the directory unknown.
void RememberApplicationDirectory();

/// As remembered, without a separator at its end unless it is a root; empty while unknown.
const std::string& ApplicationDirectory();

/// Makes the application's directory the current one again, for the relative names of settings: a
/// file dialog leaves its own behind. Does nothing while the directory is unknown.
void RestoreApplicationDirectory();
