#pragma once

/// A text of a profile file, as it stood when it was first asked for: later changes of the file are
/// not seen, and a default that was given once stays the answer. Each "\n" of the file has become a
/// line feed. Valid for the rest of the process.
///
/// Texts of more than 1023 bytes are cut between two characters. When section and key have 255
/// bytes or more together, the default itself comes back and nothing is kept. A null text counts as
/// empty. Only for the windows' thread.
const char* GetCachedProfileString(const char* section, const char* key, const char* defaultValue,
                                   const char* file);
