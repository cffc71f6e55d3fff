#pragma once

namespace text {

/// Gives a file another name, both written as ResolvePath takes them, in one step: whoever reads
/// the target sees the former file of that name or the new one. A link as the target stays, and
/// what it names is replaced. False, with both left as they are, when the target is a folder or
/// must not be written, or the two are not on one volume.
bool MoveOver(const char* from, const char* to);

}  // namespace text
