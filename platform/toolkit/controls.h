#pragma once

#include "platform/toolkit/wnd.h"

/// The standard controls: each operation is one message to the control. What the message answers
/// for an index or a text that is not there is the operation's answer too.

class TOOLKIT_API CStatic : public CWnd {};

class TOOLKIT_API CButton : public CWnd {
public:
    int GetCheck() const { return static_cast<int>(SendMessage(BM_GETCHECK)); }
    void SetCheck(int check) { SendMessage(BM_SETCHECK, static_cast<WPARAM>(check)); }
    UINT GetState() const { return static_cast<UINT>(SendMessage(BM_GETSTATE)); }
    void SetState(BOOL pushed) { SendMessage(BM_SETSTATE, static_cast<WPARAM>(pushed)); }
    void SetButtonStyle(UINT style, BOOL redraw = TRUE) {
        SendMessage(BM_SETSTYLE, style, MAKELPARAM(redraw, 0));
    }
    /// Draws an owner-drawn button.
    virtual void DrawItem(LPDRAWITEMSTRUCT) {}

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
};

class TOOLKIT_API CEdit : public CWnd {
public:
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);
    void SetSel(int start, int end) {
        SendMessage(EM_SETSEL, static_cast<WPARAM>(start), static_cast<LPARAM>(end));
    }
    void GetSel(int& start, int& end) const;
    void LimitText(int count = 0) { SendMessage(EM_LIMITTEXT, static_cast<WPARAM>(count)); }
    void SetLimitText(UINT count) { SendMessage(EM_LIMITTEXT, count); }
    BOOL SetReadOnly(BOOL read_only = TRUE) {
        return static_cast<BOOL>(SendMessage(EM_SETREADONLY, static_cast<WPARAM>(read_only)));
    }
    void ReplaceSel(LPCSTR text, BOOL undo = FALSE) {
        SendMessage(EM_REPLACESEL, static_cast<WPARAM>(undo), reinterpret_cast<LPARAM>(text));
    }

protected:
    using CWnd::Create;
};

class TOOLKIT_API CRichEditCtrl : public CWnd {
public:
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);
    void SetSel(long start, long end);
    void SetSel(CHARRANGE range) { SendMessage(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range)); }
    void GetSel(long& start, long& end) const;
    void GetSel(CHARRANGE& range) const {
        SendMessage(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
    }
    /// With `system_color` the window colour, whatever `color` says. Answers the former colour.
    COLORREF SetBackgroundColor(BOOL system_color, COLORREF color) {
        return static_cast<COLORREF>(SendMessage(
            EM_SETBKGNDCOLOR, static_cast<WPARAM>(system_color), static_cast<LPARAM>(color)));
    }
    DWORD SetEventMask(DWORD mask) {
        return static_cast<DWORD>(SendMessage(EM_SETEVENTMASK, 0, static_cast<LPARAM>(mask)));
    }
    BOOL SetReadOnly(BOOL read_only = TRUE) {
        return static_cast<BOOL>(SendMessage(EM_SETREADONLY, static_cast<WPARAM>(read_only)));
    }
    /// 0 allows 64 KiB.
    void LimitText(long count = 0) { SendMessage(EM_EXLIMITTEXT, 0, count); }

protected:
    using CWnd::Create;
};

class TOOLKIT_API CComboBox : public CWnd {
public:
    int AddString(LPCSTR text) { return Ask(CB_ADDSTRING, 0, text); }
    void ResetContent() { SendMessage(CB_RESETCONTENT); }
    int GetCount() const { return Ask(CB_GETCOUNT, 0); }
    int SetCurSel(int index) { return Ask(CB_SETCURSEL, index); }
    int GetCurSel() const { return Ask(CB_GETCURSEL, 0); }
    int SetItemData(int index, DWORD_PTR data) {
        return static_cast<int>(
            SendMessage(CB_SETITEMDATA, static_cast<WPARAM>(index), static_cast<LPARAM>(data)));
    }
    DWORD_PTR GetItemData(int index) const {
        return static_cast<DWORD_PTR>(SendMessage(CB_GETITEMDATA, static_cast<WPARAM>(index)));
    }
    /// `text` must have room for GetLBTextLen and the terminator.
    int GetLBText(int index, LPSTR text) const { return Ask(CB_GETLBTEXT, index, text); }
    int GetLBTextLen(int index) const { return Ask(CB_GETLBTEXTLEN, index); }
    /// The next item behind `start` that begins with the text, letter case aside; wraps.
    int FindString(int start, LPCSTR text) const { return Ask(CB_FINDSTRING, start, text); }
    BOOL SetEditSel(int start, int end) {
        return static_cast<BOOL>(SendMessage(CB_SETEDITSEL, 0, MAKELPARAM(start, end)));
    }

private:
    int Ask(UINT message, int index, LPCSTR text = nullptr) const {
        return static_cast<int>(
            SendMessage(message, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text)));
    }
};

class TOOLKIT_API CListBox : public CWnd {
public:
    int AddString(LPCSTR text) { return Ask(LB_ADDSTRING, 0, text); }
    void ResetContent() { SendMessage(LB_RESETCONTENT); }
    int GetCount() const { return Ask(LB_GETCOUNT, 0); }
    int SetCurSel(int index) { return Ask(LB_SETCURSEL, index); }
    int GetCurSel() const { return Ask(LB_GETCURSEL, 0); }
    /// `text` must have room for GetTextLen and the terminator.
    int GetText(int index, LPSTR text) const { return Ask(LB_GETTEXT, index, text); }
    int GetTextLen(int index) const { return Ask(LB_GETTEXTLEN, index); }
    int SetItemHeight(int index, UINT height) {
        return static_cast<int>(
            SendMessage(LB_SETITEMHEIGHT, static_cast<WPARAM>(index), MAKELPARAM(height, 0)));
    }
    int SetItemData(int index, DWORD_PTR data) {
        return static_cast<int>(
            SendMessage(LB_SETITEMDATA, static_cast<WPARAM>(index), static_cast<LPARAM>(data)));
    }
    DWORD_PTR GetItemData(int index) const {
        return static_cast<DWORD_PTR>(SendMessage(LB_GETITEMDATA, static_cast<WPARAM>(index)));
    }
    /// The nearest item; `outside` tells whether the point is not in the client area.
    UINT ItemFromPoint(CPoint point, BOOL& outside) const;
    /// Draws an item of an owner-drawn list.
    virtual void DrawItem(LPDRAWITEMSTRUCT) {}
    /// Tells an item's height. A list of a template asks before it has an object, thus in vain.
    virtual void MeasureItem(LPMEASUREITEMSTRUCT) {}

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

private:
    int Ask(UINT message, int index, LPCSTR text = nullptr) const {
        return static_cast<int>(
            SendMessage(message, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text)));
    }
};

class TOOLKIT_API CSpinButtonCtrl : public CWnd {};

class TOOLKIT_API CTabCtrl : public CWnd {
public:
    /// The index of the new tab, or -1.
    int InsertItem(int index, LPCSTR text);
    int GetCurSel() const { return static_cast<int>(SendMessage(TCM_GETCURSEL)); }
    int SetCurSel(int index) {
        return static_cast<int>(SendMessage(TCM_SETCURSEL, static_cast<WPARAM>(index)));
    }
};

class TOOLKIT_API CTreeCtrl : public CWnd {
public:
    /// The item at a point of the client area, or null; `flags` gets TVHT_...
    HTREEITEM HitTest(CPoint point, UINT* flags = nullptr) const;
    BOOL ItemHasChildren(HTREEITEM item) const;
    /// State bits of the item, as far as the mask asks for them.
    UINT GetItemState(HTREEITEM item, UINT mask) const {
        return static_cast<UINT>(
            SendMessage(TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(item), mask));
    }
    BOOL Expand(HTREEITEM item, UINT action) {
        return static_cast<BOOL>(SendMessage(TVM_EXPAND, action, reinterpret_cast<LPARAM>(item)));
    }
    BOOL SelectItem(HTREEITEM item) {
        return static_cast<BOOL>(
            SendMessage(TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item)));
    }
};

class TOOLKIT_API CDateTimeCtrl : public CWnd {
public:
    /// GDT_VALID, or GDT_NONE when the control shows no date.
    DWORD GetTime(SYSTEMTIME& time) const {
        return static_cast<DWORD>(
            SendMessage(DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&time)));
    }
};
