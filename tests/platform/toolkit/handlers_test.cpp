#include <gtest/gtest.h>

#include <sstream>

#include "platform/toolkit/message_handlers.h"
#include "tests/platform/toolkit/test_module.h"

namespace {

/// Writes down what each handler was called with and answers something of its own.
class Recorder : public CWnd {
public:
    Recorder() {
        CreateEx(0, nullptr, "", WS_POPUP, CRect(0, 0, 60, 40), nullptr, 0);
        called.str("");
    }
    ~Recorder() override { DestroyWindow(); }
    std::string Take() {
        const std::string text = called.str();
        called.str("");
        return text;
    }

    std::ostringstream called;

protected:
    template <class... Values>
    void Write(const char* name, Values... values) {
        called << name;
        ((called << ' ' << values), ...);
        called << ';';
    }
    const char* Who(const CWnd* window) const {
        if (window == nullptr) return "nobody";
        return window == this ? "self" : "other";
    }

    int OnCreate(LPCREATESTRUCT create) {
        Write("create", create->cx, create->cy);
        return 0;
    }
    void OnDestroy() { Write("destroy"); }
    void OnSize(UINT kind, int width, int height) { Write("size", kind, width, height); }
    void OnMove(int x, int y) { Write("move", x, y); }
    void OnShowWindow(BOOL show, UINT why) { Write("show", show, why); }
    void OnEnable(BOOL enable) { Write("enable", enable); }
    void OnTimer(UINT_PTR id) { Write("timer", id); }
    BOOL OnEraseBkgnd(CDC* dc) {
        Write("erase", dc->m_hDC != nullptr);
        return TRUE;
    }
    void OnPaint() { Write("paint"); }
    void OnNcPaint() { Write("ncpaint"); }
    HBRUSH OnCtlColor(CDC* dc, CWnd* control, UINT kind) {
        Write("color", dc->m_hDC != nullptr, Who(control), kind);
        return static_cast<HBRUSH>(::GetStockObject(NULL_BRUSH));
    }
    void OnDrawItem(int id, LPDRAWITEMSTRUCT item) { Write("draw", id, item->itemID); }
    void OnMeasureItem(int id, LPMEASUREITEMSTRUCT item) { item->itemHeight = UINT(id) + 1; }
    void OnSetFocus(CWnd* former) { Write("focus", Who(former)); }
    void OnKillFocus(CWnd* next) { Write("unfocus", Who(next)); }
    void OnChar(UINT code, UINT count, UINT flags) { Write("char", code, count, flags); }
    void OnKeyDown(UINT key, UINT count, UINT flags) { Write("down", key, count, flags); }
    void OnKeyUp(UINT key, UINT count, UINT flags) { Write("up", key, count, flags); }
    UINT OnGetDlgCode() { return DLGC_WANTARROWS; }
    void OnLButtonDown(UINT keys, CPoint at) { Write("ldown", keys, at.x, at.y); }
    void OnLButtonUp(UINT keys, CPoint at) { Write("lup", keys, at.x, at.y); }
    void OnLButtonDblClk(UINT keys, CPoint at) { Write("ldouble", keys, at.x, at.y); }
    void OnRButtonUp(UINT keys, CPoint at) { Write("rup", keys, at.x, at.y); }
    void OnNcLButtonDown(UINT hit, CPoint at) { Write("ncdown", hit, at.x, at.y); }
    void OnMouseMove(UINT keys, CPoint at) { Write("mouse", keys, at.x, at.y); }
    BOOL OnMouseWheel(UINT keys, short delta, CPoint at) {
        Write("wheel", keys, delta, at.x, at.y);
        return TRUE;
    }
    void OnHScroll(UINT code, UINT position, CScrollBar* bar) {
        Write("hscroll", code, position, bar != nullptr);
    }
    void OnVScroll(UINT code, UINT position, CScrollBar* bar) {
        Write("vscroll", code, position, bar != nullptr);
    }
    BOOL OnSetCursor(CWnd* over, UINT hit, UINT message) {
        Write("cursor", Who(over), hit, message);
        return TRUE;
    }
    void OnContextMenu(CWnd* over, CPoint at) { Write("menu", Who(over), at.x, at.y); }
    LRESULT OnLeave(WPARAM wParam, LPARAM lParam) {
        Write("leave", wParam, lParam);
        return -3;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Recorder, CWnd)
    ON_WM_CREATE()
    ON_WM_DESTROY()
    ON_WM_SIZE()
    ON_WM_MOVE()
    ON_WM_SHOWWINDOW()
    ON_WM_ENABLE()
    ON_WM_TIMER()
    ON_WM_ERASEBKGND()
    ON_WM_PAINT()
    ON_WM_NCPAINT()
    ON_WM_CTLCOLOR()
    ON_WM_DRAWITEM()
    ON_WM_MEASUREITEM()
    ON_WM_SETFOCUS()
    ON_WM_KILLFOCUS()
    ON_WM_CHAR()
    ON_WM_KEYDOWN()
    ON_WM_KEYUP()
    ON_WM_GETDLGCODE()
    ON_WM_LBUTTONDOWN()
    ON_WM_LBUTTONUP()
    ON_WM_LBUTTONDBLCLK()
    ON_WM_RBUTTONUP()
    ON_WM_NCLBUTTONDOWN()
    ON_WM_MOUSEMOVE()
    ON_WM_MOUSEWHEEL()
    ON_WM_HSCROLL()
    ON_WM_VSCROLL()
    ON_WM_SETCURSOR()
    ON_WM_CONTEXTMENU()
    ON_MESSAGE(WM_MOUSELEAVE, &Recorder::OnLeave)
END_MESSAGE_MAP()

WPARAM Bits(HWND window) { return reinterpret_cast<WPARAM>(window); }

TEST(Handlers, GetTheArgumentsOfTheirMessage) {
    Recorder window;
    const HWND self = window.m_hWnd;
    const WPARAM dc = reinterpret_cast<WPARAM>(::GetDC(self));
    const LPARAM at = MAKELPARAM(-3, 40);
    DRAWITEMSTRUCT item{};
    item.itemID = 6;
    CREATESTRUCT create{};
    create.cx = 30;
    create.cy = 20;

    struct {
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
        const char* called;
        LRESULT answer;
    } const cases[] = {
        {WM_CREATE, 0, reinterpret_cast<LPARAM>(&create), "create 30 20;", 0},
        {WM_SIZE, SIZE_MAXIMIZED, MAKELPARAM(40000, 30), "size 2 40000 30;", 0},
        {WM_MOVE, 0, at, "move -3 40;", 0},
        {WM_SHOWWINDOW, TRUE, SW_PARENTOPENING, "show 1 3;", 0},
        {WM_ENABLE, FALSE, 0, "enable 0;", 0},
        {WM_TIMER, 500, 0, "timer 500;", 0},
        {WM_ERASEBKGND, dc, 0, "erase 1;", 1},
        {WM_PAINT, 0, 0, "paint;", 0},
        {WM_NCPAINT, 1, 0, "ncpaint;", 0},
        {WM_CTLCOLORMSGBOX, dc, LPARAM(Bits(self)), "color 1 self 0;", 1},
        {WM_CTLCOLOREDIT, dc, 0, "color 1 nobody 1;", 1},
        {WM_CTLCOLORSTATIC, dc, LPARAM(Bits(self)), "color 1 self 6;", 1},
        {WM_DRAWITEM, 9, reinterpret_cast<LPARAM>(&item), "draw 9 6;", 1},
        {WM_SETFOCUS, 0, 0, "focus nobody;", 0},
        {WM_KILLFOCUS, Bits(self), 0, "unfocus self;", 0},
        {WM_CHAR, 0xD6, MAKELPARAM(3, 0xC005), "char 214 3 49157;", 0},
        {WM_KEYDOWN, VK_LEFT, 0x00050002, "down 37 2 5;", 0},
        {WM_KEYUP, VK_LEFT, 1, "up 37 1 0;", 0},
        {WM_GETDLGCODE, 0, 0, "", DLGC_WANTARROWS},
        {WM_LBUTTONDOWN, MK_LBUTTON, at, "ldown 1 -3 40;", 0},
        {WM_LBUTTONUP, 0, at, "lup 0 -3 40;", 0},
        {WM_LBUTTONDBLCLK, MK_LBUTTON, at, "ldouble 1 -3 40;", 0},
        {WM_RBUTTONUP, 0, at, "rup 0 -3 40;", 0},
        {WM_NCLBUTTONDOWN, HTCAPTION, at, "ncdown 2 -3 40;", 0},
        {WM_MOUSEMOVE, MK_SHIFT, at, "mouse 4 -3 40;", 0},
        {WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, -120), at, "wheel 8 -120 -3 40;", 1},
        {WM_HSCROLL, MAKEWPARAM(SB_THUMBTRACK, 60000), 0, "hscroll 5 60000 0;", 0},
        {WM_VSCROLL, SB_BOTTOM, 0, "vscroll 7 0 0;", 0},
        {WM_SETCURSOR, Bits(self), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE), "cursor self 1 512;", 1},
        {WM_CONTEXTMENU, Bits(self), at, "menu self -3 40;", 0},
        {WM_MOUSELEAVE, 2, 5, "leave 2 5;", -3},
    };
    for (const auto& row : cases) {
        const LRESULT answer = ::SendMessageA(self, row.message, row.wParam, row.lParam);
        EXPECT_EQ(window.Take(), row.called);
        const bool brush = row.message >= WM_CTLCOLORMSGBOX && row.message <= WM_CTLCOLORSTATIC;
        EXPECT_EQ(brush ? LRESULT{answer == LRESULT(::GetStockObject(NULL_BRUSH))} : answer,
                  row.answer)
            << "message " << row.message;
    }

    MEASUREITEMSTRUCT measure{};
    ::SendMessageA(self, WM_MEASUREITEM, 21, reinterpret_cast<LPARAM>(&measure));
    EXPECT_EQ(measure.itemHeight, 22u);
    ::ReleaseDC(self, reinterpret_cast<HDC>(dc));
}

TEST(Handlers, MessagesWithoutOneTakeTheDefaultStep) {
    Recorder window;
    ::SendMessageA(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>("abc"));
    char text[8] = "";
    EXPECT_EQ(window.GetWindowText(text, sizeof(text)), 3);
    EXPECT_STREQ(text, "abc");
    EXPECT_EQ(window.Take(), "");
}

/// Each handler passes its message on.
class Polite : public tests::Frame {
protected:
    BOOL OnEraseBkgnd(CDC* dc) { return CWnd::OnEraseBkgnd(dc); }
    LRESULT OnText(WPARAM, LPARAM) { return Default(); }
    LRESULT OnNested(WPARAM, LPARAM) {
        // A message of another kind in between must not change what the default step is for.
        SetWindowText("between");
        return Default();
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Polite, CWnd)
    ON_WM_ERASEBKGND()
    ON_MESSAGE(WM_SETTEXT, &Polite::OnText)
    ON_MESSAGE(WM_GETTEXTLENGTH, &Polite::OnNested)
END_MESSAGE_MAP()

TEST(Handlers, DefaultMeansTheMessageAtHand) {
    Polite window;
    window.SetWindowText("text");
    EXPECT_EQ(window.SendMessage(WM_GETTEXTLENGTH), 7);
    char text[16] = "";
    window.GetWindowText(text, sizeof(text));
    EXPECT_STREQ(text, "between");
}

}  // namespace
