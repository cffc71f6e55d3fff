#pragma once

#include "platform/types.h"

struct CAccountInfo;

/// A listener to what happens in the front end. Six notifications stand side by side, each with a
/// process-wide list of listeners; an object hears those that it listens to, until it is gone.
///
/// A listener may come or go while a notification is on its way: one that is gone by then hears
/// nothing of it, nor does one that came meanwhile. Everything belongs to the windows' thread.
class MyEventUtils {
public:
    MyEventUtils(const MyEventUtils&) = delete;
    MyEventUtils& operator=(const MyEventUtils&) = delete;

    /// Each calls its notification of every listener in the order in which they began to listen.
    static void FireExceptSender(MyEventUtils* sender, LPARAM a, LPARAM b, LPARAM c);
    static void Fire1(LPARAM a, LPARAM b, LPARAM c);
    /// A function reply of the core; every listener sees all of them, others' too.
    static void Fire(const CAccountInfo* account, int function, const char* text);
    static void Fire3(LPARAM a);
    static void Fire4(LPARAM a, LPARAM b, LPARAM c);
    static void Fire5();

protected:
    MyEventUtils();
    ~MyEventUtils();

    /// Begins to hear notification 0 to 5; once more, or another number, changes nothing.
    void Listen(int notification);

    /// Not called for the sender itself.
    virtual void OnNotification0(MyEventUtils* sender, LPARAM a, LPARAM b, LPARAM c);
    virtual void OnNotification1(LPARAM a, LPARAM b, LPARAM c);
    virtual void OnFunctionReply(const CAccountInfo* account, int function, const char* text);
    virtual void OnNotification3(LPARAM a);
    virtual void OnNotification4(LPARAM a, LPARAM b, LPARAM c);
    virtual void OnNotification5();
};
