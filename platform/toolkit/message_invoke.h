#pragma once

#include <concepts>

#include "platform/toolkit/wnd.h"

/// How the arguments of a message become those of its handler: one function for each signature.
namespace toolkit {

/// A context that the sender of a message lends for its duration.
class LentDC : public CDC {
public:
    explicit LentDC(WPARAM dc) { Attach(reinterpret_cast<HDC>(dc)); }
    ~LentDC() override { Detach(); }
};

inline CPoint PointOf(LPARAM lParam) { return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}; }

inline CWnd* WindowOf(WPARAM wParam) { return CWnd::FromHandle(reinterpret_cast<HWND>(wParam)); }

/// One number: a timer, a flag, the id of a control out of a range.
template <class Object, std::integral Value>
bool Invoke(Object& target, void (Object::*handler)(Value), const Arguments& arguments) {
    (target.*handler)(static_cast<Value>(arguments.wParam));
    return true;
}

template <class Object>
bool Invoke(Object& target, void (Object::*handler)(), const Arguments&) {
    (target.*handler)();
    return true;
}

template <class Object>
bool Invoke(Object& target, void (Object::*handler)(int, int), const Arguments& arguments) {
    const CPoint point = PointOf(arguments.lParam);
    (target.*handler)(point.x, point.y);
    return true;
}

template <class Object>
bool Invoke(Object& target, void (Object::*handler)(UINT, int, int), const Arguments& arguments) {
    (target.*handler)(static_cast<UINT>(arguments.wParam), LOWORD(arguments.lParam),
                      HIWORD(arguments.lParam));
    return true;
}

template <class Object>
bool Invoke(Object& target, void (Object::*handler)(BOOL, UINT), const Arguments& arguments) {
    (target.*handler)(static_cast<BOOL>(arguments.wParam), static_cast<UINT>(arguments.lParam));
    return true;
}

template <class Object>
bool Invoke(Object& target, void (Object::*handler)(UINT, UINT, UINT), const Arguments& arguments) {
    (target.*handler)(static_cast<UINT>(arguments.wParam), LOWORD(arguments.lParam),
                      HIWORD(arguments.lParam));
    return true;
}

template <class Object>
bool Invoke(Object& target, void (Object::*handler)(UINT, CPoint), const Arguments& arguments) {
    (target.*handler)(static_cast<UINT>(arguments.wParam), PointOf(arguments.lParam));
    return true;
}

template <class Object>
bool Invoke(Object& target, void (Object::*handler)(UINT, UINT, CScrollBar*),
            const Arguments& arguments) {
    CWnd* bar = CWnd::FromHandlePermanent(reinterpret_cast<HWND>(arguments.lParam));
    (target.*handler)(LOWORD(arguments.wParam), HIWORD(arguments.wParam),
                      dynamic_cast<CScrollBar*>(bar));
    return true;
}

template <class Object>
bool Invoke(Object& target, void (Object::*handler)(CWnd*), const Arguments& arguments) {
    (target.*handler)(WindowOf(arguments.wParam));
    return true;
}

template <class Object>
bool Invoke(Object& target, void (Object::*handler)(CWnd*, CPoint), const Arguments& arguments) {
    (target.*handler)(WindowOf(arguments.wParam), PointOf(arguments.lParam));
    return true;
}

template <class Object>
bool Invoke(Object& target, void (Object::*handler)(int, LPDRAWITEMSTRUCT),
            const Arguments& arguments) {
    (target.*handler)(static_cast<int>(arguments.wParam),
                      reinterpret_cast<LPDRAWITEMSTRUCT>(arguments.lParam));
    *arguments.result = TRUE;
    return true;
}

template <class Object>
bool Invoke(Object& target, void (Object::*handler)(int, LPMEASUREITEMSTRUCT),
            const Arguments& arguments) {
    (target.*handler)(static_cast<int>(arguments.wParam),
                      reinterpret_cast<LPMEASUREITEMSTRUCT>(arguments.lParam));
    *arguments.result = TRUE;
    return true;
}

template <class Object>
bool Invoke(Object& target, void (Object::*handler)(NMHDR*, LRESULT*), const Arguments& arguments) {
    (target.*handler)(reinterpret_cast<NMHDR*>(arguments.lParam), arguments.result);
    return true;
}

template <class Object>
bool Invoke(Object& target, int (Object::*handler)(LPCREATESTRUCT), const Arguments& arguments) {
    *arguments.result = (target.*handler)(reinterpret_cast<LPCREATESTRUCT>(arguments.lParam));
    return true;
}

template <class Object>
bool Invoke(Object& target, UINT (Object::*handler)(), const Arguments& arguments) {
    *arguments.result = static_cast<LRESULT>((target.*handler)());
    return true;
}

template <class Object>
bool Invoke(Object& target, BOOL (Object::*handler)(CDC*), const Arguments& arguments) {
    LentDC dc(arguments.wParam);
    *arguments.result = (target.*handler)(&dc);
    return true;
}

template <class Object>
bool Invoke(Object& target, BOOL (Object::*handler)(CWnd*, UINT, UINT),
            const Arguments& arguments) {
    *arguments.result = (target.*handler)(WindowOf(arguments.wParam), LOWORD(arguments.lParam),
                                          HIWORD(arguments.lParam));
    return true;
}

template <class Object>
bool Invoke(Object& target, BOOL (Object::*handler)(UINT, short, CPoint),
            const Arguments& arguments) {
    const BOOL handled =
        (target.*handler)(LOWORD(arguments.wParam), static_cast<short>(HIWORD(arguments.wParam)),
                          PointOf(arguments.lParam));
    *arguments.result = handled;
    return true;
}

template <class Object>
bool Invoke(Object& target, HBRUSH (Object::*handler)(CDC*, CWnd*, UINT),
            const Arguments& arguments) {
    LentDC dc(arguments.wParam);
    const HBRUSH brush = (target.*handler)(&dc, WindowOf(static_cast<WPARAM>(arguments.lParam)),
                                           arguments.message - WM_CTLCOLORMSGBOX);
    *arguments.result = reinterpret_cast<LRESULT>(brush);
    return true;
}

template <class Object>
bool Invoke(Object& target, HBRUSH (Object::*handler)(CDC*, UINT), const Arguments& arguments) {
    LentDC dc(arguments.wParam);
    const HBRUSH brush = (target.*handler)(&dc, arguments.message - WM_CTLCOLORMSGBOX);
    *arguments.result = reinterpret_cast<LRESULT>(brush);
    return brush != nullptr;
}

template <class Object>
bool Invoke(Object& target, LRESULT (Object::*handler)(WPARAM, LPARAM),
            const Arguments& arguments) {
    *arguments.result = (target.*handler)(arguments.wParam, arguments.lParam);
    return true;
}

}  // namespace toolkit
