#pragma once

#include "platform/toolkit/toolkit.h"
#include "plugin/contract/earray.h"

/// A row of text tabs from one skin bitmap. It only reports, by TCN_SELCHANGE; its owner shows the
/// pages.
class CTabSet : public CWnd {
public:
    CTabSet();

    /// An empty row; it gets its place by MoveWindow.
    BOOL Create(CWnd* parent, int id);
    /// Cut to 31 bytes. The index of the tab; -1 without memory.
    int AddTab(const char* text);
    /// An index that is not there changes nothing.
    void RemoveTab(int index);
    int GetCurSel() const { return m_nCurSel; }

protected:
    using CWnd::Create;

    BOOL OnEraseBkgnd(CDC* dc);
    void OnPaint();
    void OnLButtonDown(UINT flags, CPoint point);
    void OnMouseMove(UINT flags, CPoint point);
    LRESULT OnMouseLeave(WPARAM, LPARAM);
    DECLARE_MESSAGE_MAP()

private:
    struct ButtonInfo {
        char szText[32];
        RECT rcTab;
    };
    static_assert(sizeof(ButtonInfo) == 48);

    void PlaceTabs();
    void PaintParentGround(const CDC& dc) const;
    void PaintTab(const CDC& dc, const ButtonInfo& tab, bool selected, HBITMAP skin) const;
    void PaintPicture(const CDC& dc, const RECT& place, bool selected, HBITMAP skin) const;
    int TabAt(CPoint point) const;
    void Notify();

    CWnd* m_pParent = nullptr;
    int m_nID = 0;
    int m_nCurSel = 0;
    int m_nMarked = -1;  ///< looks selected as well
    int m_nTabWidth = 79;
    EArray<ButtonInfo> m_tabs{32};
    CDC m_hMemDC;  ///< the skin is selected into it while a tab is painted
    int m_bHover = 0;
};
