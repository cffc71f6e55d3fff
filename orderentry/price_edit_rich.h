#pragma once

#include "orderentry/list_box_dlg.h"
#include "platform/toolkit/toolkit.h"

/// A price edit: a number, or a word from its popup list. Clicks on a number select it whole and
/// its last digit by turns, so that the next key replaces what is most often changed.
class CPriceEditRich : public CRichEditCtrl {
public:
    ~CPriceEditRich() override;

    /// 0 makes the list 20 pixels wider than the edit.
    void SetListWidth(int width) { m_nListWidth = width; }
    /// Sets the text and marks its row in the list.
    void SelectWord(const char* text);
    /// Attaches a number to the row with this text.
    void SetListOption(const char* text, int value);
    bool IsListOpen() const { return m_bListOpen; }
    /// The text that the edit had when its list was opened last, at most 63 bytes of it.
    const char* PreviousText() const { return m_szPrevious; }
    void HideList();
    /// Hides the list for a press at a place of the screen that is neither in it nor in the edit.
    void OnClickOutside(CPoint screen);

protected:
    void OnLButtonUp(UINT flags, CPoint point);
    void OnSetFocus(CWnd* former);
    void OnKillFocus(CWnd* next);
    void OnChar(UINT character, UINT repeat, UINT flags);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnTimer(UINT_PTR id);
    void OnDestroy();
    LRESULT OnRowChosen(WPARAM row, LPARAM);
    DECLARE_MESSAGE_MAP()

private:
    /// What of the text is selected.
    enum SelState { kNone = 0, kAll = 1, kLastDigit = 2, kOther = 3 };

    bool MakeList();
    void ShowList();
    void FollowEdit();
    int ListWidth() const;
    SelState Selection() const;
    void CycleSelection();
    void SelectSoon();
    /// Makes the selection that is due. Keys do it first: one that comes before the timer would
    /// else go into the old selection, and the next one replace it.
    void SelectNow();

    SelState m_nSelState = kNone;
    bool m_bSelectPending = false;
    bool m_bListOpen = false;
    CListBoxDlg m_list;
    int m_nListWidth = 0;
    char m_szPrevious[64] = {};  ///< the text when the list was opened last
};
