#include "plugin/event_boxes.h"

#include <deque>
#include <utility>

#include "session/msg_dlg.h"

namespace {

struct WaitingBox {
    HWND owner;
    EventBox box;
};

int g_open = 0;

std::deque<WaitingBox>& Waiting() {
    static std::deque<WaitingBox> boxes;
    return boxes;
}

void RunBox(HWND owner, const EventBox& box) {
    if (!::IsWindow(owner)) return;
    ++g_open;
    if (box.kind == EventBox::Kind::kSystem) {
        ::MessageBoxA(owner, box.text.c_str(), box.title.c_str(), box.flags);
    } else {
        CMsgDlg dialog(box.text.c_str(), box.okWord.c_str(), "退出", box.title.c_str(), nullptr);
        dialog.DoModal();
    }
    --g_open;
}

}  // namespace

void ShowEventBox(HWND owner, const EventBox& box) {
    if (g_open >= kMostEventBoxes) {
        Waiting().push_back({owner, box});
        return;
    }
    RunBox(owner, box);
    while (!Waiting().empty() && g_open < kMostEventBoxes) {
        const WaitingBox next = std::move(Waiting().front());
        Waiting().pop_front();
        RunBox(next.owner, next.box);
    }
}
