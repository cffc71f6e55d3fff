#pragma once

#include <algorithm>
#include <cstring>

#include "plugin/contract/earray.h"

/// Reads a list of the core in its two steps: `read(buffer, capacity)` is asked for the count, then
/// for the records, which are zero before. The list gets the count that was promised and the answer
/// is how many records came; those behind stay zero. `spare` records of room are added, since the
/// core may have more by then.
template <class Record, class Read>
int ReadRecords(EArray<Record>& list, int spare, const Read& read) {
    constexpr int kMost = 1 << 24;
    const int promised = std::clamp(read(static_cast<Record*>(nullptr), 0), 0, kMost);
    const int used = list.GetCount();
    list.RemoveAll();
    const int room = list.SetSize(promised + spare);
    // Those in use are zero by now.
    if (room > used) {
        std::memset(static_cast<void*>(list.GetData() + used), 0,
                    static_cast<std::size_t>(room - used) * sizeof(Record));
    }
    const int count = std::min(promised, room);
    const int came = room > 0 ? std::clamp(read(list.GetData(), count), 0, count) : 0;
    list.SetSize(count);
    return came;
}
