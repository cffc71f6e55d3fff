#include "platform/toolkit/message_map.h"

#include <array>

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap() {
    static const AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, 0, nullptr, nullptr}};
    static const AFX_MSGMAP map = {nullptr, entries};
    return &map;
}

BOOL CCmdTarget::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO*) {
    const bool notification = HIWORD(code) == WM_NOTIFY;
    const AFX_MSGMAP_ENTRY* entry = toolkit::FindCommand(
        GetMessageMap(), notification ? WM_NOTIFY : WM_COMMAND, LOWORD(code), id);
    if (entry == nullptr) return FALSE;

    LRESULT unused = 0;
    toolkit::Arguments arguments{entry->nMessage, id, 0, &unused};
    if (notification) {
        const auto* notify = static_cast<const AFX_NOTIFY*>(extra);
        arguments.lParam = reinterpret_cast<LPARAM>(notify->pNMHDR);
        arguments.result = notify->pResult;
    }
    return entry->invoke(*this, entry->handler, arguments);
}

namespace toolkit {

namespace {

/// Remembers the entry that answers a message in the map of a class. One slot for each hash: what
/// collides is looked up again.
struct KnownAnswer {
    const AFX_MSGMAP* map = nullptr;
    UINT message = 0;
    const AFX_MSGMAP_ENTRY* entry = nullptr;
};

constexpr std::size_t kKnownAnswers = 512;
thread_local std::array<KnownAnswer, kKnownAnswers> known_answers;

std::size_t Slot(const AFX_MSGMAP* map, UINT message) {
    return (reinterpret_cast<std::size_t>(map) / sizeof(void*) + message * 31) % kKnownAnswers;
}

template <class Matches>
const AFX_MSGMAP_ENTRY* Search(const AFX_MSGMAP* map, Matches matches) {
    while (map != nullptr) {
        for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->nMessage != 0; ++entry) {
            if (matches(*entry)) return entry;
        }
        map = map->pfnGetBaseMap != nullptr ? map->pfnGetBaseMap() : nullptr;
    }
    return nullptr;
}

}  // namespace

const AFX_MSGMAP_ENTRY* FindMessage(const AFX_MSGMAP* map, UINT message) {
    KnownAnswer& known = known_answers[Slot(map, message)];
    if (known.map != map || known.message != message) {
        known = {map, message, Search(map, [message](const AFX_MSGMAP_ENTRY& entry) {
                     return entry.nMessage == message;
                 })};
    }
    return known.entry;
}

const AFX_MSGMAP_ENTRY* FindCommand(const AFX_MSGMAP* map, UINT message, UINT code, UINT id) {
    return Search(map, [=](const AFX_MSGMAP_ENTRY& entry) {
        return entry.nMessage == message && LOWORD(entry.nCode) == LOWORD(code) &&
               id >= entry.nID && id <= entry.nLastID;
    });
}

void ForgetMessageMaps() { known_answers.fill({}); }

}  // namespace toolkit
