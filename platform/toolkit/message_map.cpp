#include "platform/toolkit/message_map.h"

#include <windowsx.h>

#include <array>

#include "platform/toolkit/wnd.h"

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

CPoint PointOf(LPARAM lParam) { return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}; }

CWnd* WindowOf(WPARAM wParam) { return CWnd::FromHandle(reinterpret_cast<HWND>(wParam)); }

/// A context that the sender of a message lends for its duration.
class LentDC : public CDC {
public:
    explicit LentDC(WPARAM dc) { Attach(reinterpret_cast<HDC>(dc)); }
    ~LentDC() override { Detach(); }
};

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

bool Invoke(Target& target, void (Target::*handler)(), const Arguments&) {
    (target.*handler)();
    return true;
}

bool Invoke(Target& target, void (Target::*handler)(int, int), const Arguments& arguments) {
    const CPoint point = PointOf(arguments.lParam);
    (target.*handler)(point.x, point.y);
    return true;
}

bool Invoke(Target& target, void (Target::*handler)(UINT, int, int), const Arguments& arguments) {
    (target.*handler)(static_cast<UINT>(arguments.wParam), LOWORD(arguments.lParam),
                      HIWORD(arguments.lParam));
    return true;
}

bool Invoke(Target& target, void (Target::*handler)(BOOL, UINT), const Arguments& arguments) {
    (target.*handler)(static_cast<BOOL>(arguments.wParam), static_cast<UINT>(arguments.lParam));
    return true;
}

bool Invoke(Target& target, void (Target::*handler)(UINT, UINT, UINT), const Arguments& arguments) {
    (target.*handler)(static_cast<UINT>(arguments.wParam), LOWORD(arguments.lParam),
                      HIWORD(arguments.lParam));
    return true;
}

bool Invoke(Target& target, void (Target::*handler)(UINT, CPoint), const Arguments& arguments) {
    (target.*handler)(static_cast<UINT>(arguments.wParam), PointOf(arguments.lParam));
    return true;
}

bool Invoke(Target& target, void (Target::*handler)(UINT, UINT, CScrollBar*),
            const Arguments& arguments) {
    CWnd* bar = CWnd::FromHandlePermanent(reinterpret_cast<HWND>(arguments.lParam));
    (target.*handler)(LOWORD(arguments.wParam), HIWORD(arguments.wParam),
                      dynamic_cast<CScrollBar*>(bar));
    return true;
}

bool Invoke(Target& target, void (Target::*handler)(CWnd*), const Arguments& arguments) {
    (target.*handler)(WindowOf(arguments.wParam));
    return true;
}

bool Invoke(Target& target, void (Target::*handler)(CWnd*, CPoint), const Arguments& arguments) {
    (target.*handler)(WindowOf(arguments.wParam), PointOf(arguments.lParam));
    return true;
}

bool Invoke(Target& target, void (Target::*handler)(int, LPDRAWITEMSTRUCT),
            const Arguments& arguments) {
    (target.*handler)(static_cast<int>(arguments.wParam),
                      reinterpret_cast<LPDRAWITEMSTRUCT>(arguments.lParam));
    *arguments.result = TRUE;
    return true;
}

bool Invoke(Target& target, void (Target::*handler)(int, LPMEASUREITEMSTRUCT),
            const Arguments& arguments) {
    (target.*handler)(static_cast<int>(arguments.wParam),
                      reinterpret_cast<LPMEASUREITEMSTRUCT>(arguments.lParam));
    *arguments.result = TRUE;
    return true;
}

bool Invoke(Target& target, void (Target::*handler)(NMHDR*, LRESULT*), const Arguments& arguments) {
    (target.*handler)(reinterpret_cast<NMHDR*>(arguments.lParam), arguments.result);
    return true;
}

bool Invoke(Target& target, int (Target::*handler)(LPCREATESTRUCT), const Arguments& arguments) {
    *arguments.result = (target.*handler)(reinterpret_cast<LPCREATESTRUCT>(arguments.lParam));
    return true;
}

bool Invoke(Target& target, UINT (Target::*handler)(), const Arguments& arguments) {
    *arguments.result = static_cast<LRESULT>((target.*handler)());
    return true;
}

bool Invoke(Target& target, BOOL (Target::*handler)(CDC*), const Arguments& arguments) {
    LentDC dc(arguments.wParam);
    *arguments.result = (target.*handler)(&dc);
    return true;
}

bool Invoke(Target& target, BOOL (Target::*handler)(CWnd*, UINT, UINT),
            const Arguments& arguments) {
    *arguments.result = (target.*handler)(WindowOf(arguments.wParam), LOWORD(arguments.lParam),
                                          HIWORD(arguments.lParam));
    return true;
}

bool Invoke(Target& target, BOOL (Target::*handler)(UINT, short, CPoint),
            const Arguments& arguments) {
    const BOOL handled =
        (target.*handler)(LOWORD(arguments.wParam), static_cast<short>(HIWORD(arguments.wParam)),
                          PointOf(arguments.lParam));
    *arguments.result = handled;
    return true;
}

bool Invoke(Target& target, HBRUSH (Target::*handler)(CDC*, CWnd*, UINT),
            const Arguments& arguments) {
    LentDC dc(arguments.wParam);
    const HBRUSH brush = (target.*handler)(&dc, WindowOf(static_cast<WPARAM>(arguments.lParam)),
                                           arguments.message - WM_CTLCOLORMSGBOX);
    *arguments.result = reinterpret_cast<LRESULT>(brush);
    return true;
}

bool Invoke(Target& target, HBRUSH (Target::*handler)(CDC*, UINT), const Arguments& arguments) {
    LentDC dc(arguments.wParam);
    const HBRUSH brush = (target.*handler)(&dc, arguments.message - WM_CTLCOLORMSGBOX);
    *arguments.result = reinterpret_cast<LRESULT>(brush);
    return brush != nullptr;
}

bool Invoke(Target& target, LRESULT (Target::*handler)(WPARAM, LPARAM),
            const Arguments& arguments) {
    *arguments.result = (target.*handler)(arguments.wParam, arguments.lParam);
    return true;
}

}  // namespace toolkit
