#pragma once

#include "orderentry/price_list_box.h"
#include "platform/toolkit/toolkit.h"

/// A plain edit with a list of price words to choose from.
class CPriceEdit : public CEdit {
public:
    /// Which words the list has: the sum of 1 "对手价", 2 "最新价", 4 "挂单价", 8 "涨停价" and
    /// 16 "跌停价", other bits ignored. With none of them there is no list.
    explicit CPriceEdit(int words) : m_nWords(words) {}
    ~CPriceEdit() override;

protected:
    void OnLButtonUp(UINT flags, CPoint point);
    void OnKillFocus(CWnd* next);
    void OnDestroy();
    LRESULT OnRowChosen(WPARAM row, LPARAM);
    DECLARE_MESSAGE_MAP()

private:
    bool MakeList();
    void ShowList();
    void HideList();

    int m_nWords;
    CPriceListBox m_list;
};
