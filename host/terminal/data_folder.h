#pragma once

#include <string>

namespace terminal {

/// Where the user's own files are: `goldterm` under the system's folder for such data. Empty if
/// the system tells none.
std::string UserFolder();

/// The sample set that was installed or built with this program; empty if there is none.
std::string SampleFolder();

/// Makes `folder` and copies what it lacks of the samples; existing files stay as they are.
/// Settings files, which are kept readable in the samples, become GBK, as their readers want them.
/// Empty on success, else a line of UTF-8 that says what went wrong.
std::string FillFolder(const std::string& folder, const std::string& samples);

}  // namespace terminal
