#include "plugin/contract/my_event_utils.h"

#include <algorithm>
#include <array>
#include <vector>

#include "plugin/contract/account_records.h"

namespace {

enum Notification {
    NOTIFICATION_0,
    NOTIFICATION_1,
    NOTIFICATION_FUNCTION_REPLY,
    NOTIFICATION_3,
    NOTIFICATION_4,
    NOTIFICATION_5,
    NOTIFICATION_COUNT,
};

// The number tells a listener from a later one that lies at the same address.
struct Entry {
    MyEventUtils* listener;
    unsigned long long number;
    bool operator==(const Entry&) const = default;
};

struct ListenerLists {
    std::array<std::vector<Entry>, NOTIFICATION_COUNT> lists;
    unsigned long long last_number = 0;
};

// Never freed: listeners that are process-wide objects may go after everything else.
ListenerLists& Listeners() {
    static auto* const listeners = new ListenerLists;
    return *listeners;
}

template <class Call>
void FireTo(Notification notification, Call call) {
    const std::vector<Entry>& list = Listeners().lists[notification];
    const std::vector<Entry> all = list;
    for (const Entry& entry : all) {
        if (std::ranges::find(list, entry) != list.end()) call(*entry.listener);
    }
}

}  // namespace

MyEventUtils::MyEventUtils() { Listeners(); }

MyEventUtils::~MyEventUtils() {
    for (std::vector<Entry>& list : Listeners().lists) {
        std::erase_if(list, [this](const Entry& entry) { return entry.listener == this; });
    }
}

void MyEventUtils::Listen(int notification) {
    if (notification < 0 || notification >= NOTIFICATION_COUNT) return;
    ListenerLists& listeners = Listeners();
    std::vector<Entry>& list = listeners.lists[static_cast<std::size_t>(notification)];
    if (std::ranges::find(list, this, &Entry::listener) != list.end()) return;
    list.push_back({this, ++listeners.last_number});
}

void MyEventUtils::FireExceptSender(MyEventUtils* sender, LPARAM a, LPARAM b, LPARAM c) {
    FireTo(NOTIFICATION_0, [=](MyEventUtils& listener) {
        if (&listener != sender) listener.OnNotification0(sender, a, b, c);
    });
}

void MyEventUtils::Fire1(LPARAM a, LPARAM b, LPARAM c) {
    FireTo(NOTIFICATION_1, [=](MyEventUtils& listener) { listener.OnNotification1(a, b, c); });
}

void MyEventUtils::Fire(const CAccountInfo* account, int function, const char* text) {
    FireTo(NOTIFICATION_FUNCTION_REPLY,
           [=](MyEventUtils& listener) { listener.OnFunctionReply(account, function, text); });
}

void MyEventUtils::Fire3(LPARAM a) {
    FireTo(NOTIFICATION_3, [=](MyEventUtils& listener) { listener.OnNotification3(a); });
}

void MyEventUtils::Fire4(LPARAM a, LPARAM b, LPARAM c) {
    FireTo(NOTIFICATION_4, [=](MyEventUtils& listener) { listener.OnNotification4(a, b, c); });
}

void MyEventUtils::Fire5() {
    FireTo(NOTIFICATION_5, [](MyEventUtils& listener) { listener.OnNotification5(); });
}

void MyEventUtils::OnNotification0(MyEventUtils*, LPARAM, LPARAM, LPARAM) {}
void MyEventUtils::OnNotification1(LPARAM, LPARAM, LPARAM) {}
void MyEventUtils::OnFunctionReply(const CAccountInfo*, int, const char*) {}
void MyEventUtils::OnNotification3(LPARAM) {}
void MyEventUtils::OnNotification4(LPARAM, LPARAM, LPARAM) {}
void MyEventUtils::OnNotification5() {}
