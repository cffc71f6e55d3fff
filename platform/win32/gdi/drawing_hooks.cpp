#include <winbase_hooks.h>

#include "platform/win32/gdi/dc.h"

namespace winbase::hooks {

void RecordTexts(bool on) { winbase::RecordTexts(on); }

std::vector<ShownText> ShownTexts(HDC handle) {
    std::vector<ShownText> texts;
    const Dc* dc = FindDcToDraw(handle);
    if (!dc || !dc->surface) return texts;
    const POINT offset = dc->Offset();
    for (const TextRecord& record : dc->surface->records().All()) {
        Region seen(record.rect);
        seen.Intersect(dc->reach);
        if (seen.Empty()) continue;
        texts.push_back(
            {record.text, Moved(seen.Bounds(), -offset.x, -offset.y), record.color, record.weight});
    }
    return texts;
}

bool WritePng(HDC handle, const char* path) {
    const Dc* dc = FindDcToDraw(handle);
    return dc && dc->surface && path && winbase::WritePng(*dc->surface, dc->reach.Bounds(), path);
}

void SetScale(int scale) { SetDefaultScale(scale); }

}  // namespace winbase::hooks
