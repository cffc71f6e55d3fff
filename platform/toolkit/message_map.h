#pragma once

#include <bit>
#include <concepts>

#include "platform/toolkit/base.h"

/// Message maps: one table per class, an entry per message, looked up from the most derived class
/// down. The macros convert each handler to the exact signature of its message before they store
/// it, so a handler with another one does not compile.

class CCmdTarget;
class CDC;
class CPoint;
class CScrollBar;
class CWnd;
struct AFX_CMDHANDLERINFO;

namespace toolkit {

/// What a handler is called with, and where its answer goes.
struct Arguments {
    UINT message = 0;
    WPARAM wParam = 0;  ///< of commands: the control's id
    LPARAM lParam = 0;  ///< of notifications: the NMHDR
    LRESULT* result = nullptr;
};

/// All handlers are kept under one type; each entry's invoker knows the true one.
using AnyHandler = void (CCmdTarget::*)();
/// Answers false when the handler left the message to the next in line.
using Invoker = bool (*)(CCmdTarget& target, AnyHandler handler, const Arguments& arguments);

/// Marks entries for what a parent hands back to its control. No window message has this bit.
constexpr UINT kReflected = 0x10000;
/// Stands in maps for all of the WM_CTLCOLOR... messages.
constexpr UINT kCtlColor = 0x0019;

}  // namespace toolkit

struct AFX_MSGMAP_ENTRY {
    UINT nMessage;  ///< 0 ends the table
    UINT nCode;     ///< of commands and notifications
    UINT nID;       ///< first id
    UINT nLastID;   ///< last id, included
    toolkit::Invoker invoke;
    toolkit::AnyHandler handler;
};

struct AFX_MSGMAP {
    const AFX_MSGMAP* (*pfnGetBaseMap)();  ///< null at the root
    const AFX_MSGMAP_ENTRY* lpEntries;
};

/// Notification as OnCmdMsg passes it in its extra argument.
struct AFX_NOTIFY {
    LRESULT* pResult;
    NMHDR* pNMHDR;
};

/// A class with a message map. Commands and notifications arrive at OnCmdMsg.
class TOOLKIT_API CCmdTarget : public CObject {
public:
    /// Notifications have WM_NOTIFY in the high word of the code and an AFX_NOTIFY as extra.
    virtual BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info);

protected:
    virtual const AFX_MSGMAP* GetMessageMap() const { return GetThisMessageMap(); }
    static const AFX_MSGMAP* GetThisMessageMap();
};

namespace toolkit {

/// The nearest entry for a window message, or null. Answers are kept, found or not.
const AFX_MSGMAP_ENTRY* FindMessage(const AFX_MSGMAP* map, UINT message);
/// The nearest entry for a command or notification of a control.
const AFX_MSGMAP_ENTRY* FindCommand(const AFX_MSGMAP* map, UINT message, UINT code, UINT id);
/// Forgets kept answers: maps may go away with their library.
void ForgetMessageMaps();

/// Makes entries for handlers of one signature in the map of one class. A handler may be a base's.
template <class Class, class Signature>
struct EntryOf;
template <class Class, class Result, class... Values>
struct EntryOf<Class, Result(Values...)> {
    template <class Owner>
    requires std::derived_from<Class, Owner> && std::derived_from<Class, CCmdTarget>
    static AFX_MSGMAP_ENTRY Make(UINT message, UINT code, UINT first, UINT last,
                                 Result (Owner::*handler)(Values...)) {
        const Invoker invoke = [](CCmdTarget& target, AnyHandler any, const Arguments& arguments) {
            // Called in its own class, not in CCmdTarget: bases may stand before that one.
            Owner& owner = static_cast<Class&>(target);
            return Invoke(owner, std::bit_cast<Result (Owner::*)(Values...)>(any), arguments);
        };
        return {message, code, first, last, invoke, std::bit_cast<AnyHandler>(handler)};
    }
};

}  // namespace toolkit

#define DECLARE_MESSAGE_MAP()                     \
protected:                                        \
    static const AFX_MSGMAP* GetThisMessageMap(); \
    const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(the_class, base_class)                                       \
    const AFX_MSGMAP* the_class::GetMessageMap() const { return GetThisMessageMap(); } \
    const AFX_MSGMAP* the_class::GetThisMessageMap() {                                 \
        using ThisClass [[maybe_unused]] = the_class;                                  \
        using TheBaseClass = base_class;                                               \
        static const AFX_MSGMAP_ENTRY entries[] = {
#define END_MESSAGE_MAP()                                                      \
    { 0, 0, 0, 0, nullptr, nullptr }                                           \
    }                                                                          \
    ;                                                                          \
    static const AFX_MSGMAP map = {&TheBaseClass::GetThisMessageMap, entries}; \
    return &map;                                                               \
    }

/// An entry whose handler has this signature exactly.
#define TOOLKIT_MAKE(message, code, first, last, result, member, ...) \
    toolkit::EntryOf<ThisClass, result(__VA_ARGS__)>::Make(message, code, first, last, member)
#define TOOLKIT_ENTRY(message, result, member, ...) \
    TOOLKIT_MAKE(message, 0, 0, 0, result, member, __VA_ARGS__),
#define TOOLKIT_RANGE(code, first, last, member) \
    TOOLKIT_MAKE(WM_COMMAND, code, first, last, void, member, UINT),

#define ON_MESSAGE(message, member) TOOLKIT_ENTRY(message, LRESULT, member, WPARAM, LPARAM)
#define ON_CONTROL(code, id, member) TOOLKIT_MAKE(WM_COMMAND, code, id, id, void, member),
#define ON_COMMAND(id, member) ON_CONTROL(0, id, member)
#define ON_BN_CLICKED(id, member) ON_CONTROL(BN_CLICKED, id, member)
#define ON_EN_CHANGE(id, member) ON_CONTROL(EN_CHANGE, id, member)
#define ON_EN_KILLFOCUS(id, member) ON_CONTROL(EN_KILLFOCUS, id, member)
#define ON_CBN_SELCHANGE(id, member) ON_CONTROL(CBN_SELCHANGE, id, member)
#define ON_CBN_EDITCHANGE(id, member) ON_CONTROL(CBN_EDITCHANGE, id, member)
#define ON_LBN_SELCHANGE(id, member) ON_CONTROL(LBN_SELCHANGE, id, member)
#define ON_CONTROL_RANGE(code, first, last, member) TOOLKIT_RANGE(code, first, last, member)
#define ON_COMMAND_RANGE(first, last, member) TOOLKIT_RANGE(0, first, last, member)
#define ON_NOTIFY(code, id, member) \
    TOOLKIT_MAKE(WM_NOTIFY, code, id, id, void, member, NMHDR*, LRESULT*),
#define ON_NOTIFY_REFLECT(code, member) \
    TOOLKIT_MAKE(toolkit::kReflected | WM_NOTIFY, code, 0, 0, void, member, NMHDR*, LRESULT*),
