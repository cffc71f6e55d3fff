#include "orderentry/price_edit.h"

#include "orderentry/price_word_list.h"
#include "plugin/contract/messages.h"

BEGIN_MESSAGE_MAP(CPriceEdit, CEdit)
    ON_WM_LBUTTONUP()
    ON_WM_KILLFOCUS()
    ON_WM_DESTROY()
    ON_MESSAGE(WM_PRICE_ROW_CHOSEN, &CPriceEdit::OnRowChosen)
END_MESSAGE_MAP()

namespace {

struct MaskedWord {
    int bit;
    const char* word;
};
constexpr MaskedWord kMaskedWords[] = {
    {1, "对手价"}, {2, "最新价"}, {4, "挂单价"}, {8, "涨停价"}, {16, "跌停价"}};

}  // namespace

CPriceEdit::~CPriceEdit() {
    if (m_list.GetSafeHwnd()) m_list.DestroyWindow();
}

bool CPriceEdit::MakeList() {
    if (m_list.GetSafeHwnd()) return true;
    if (!orderentry::CreateWordList(m_list, *this)) return false;
    for (const auto& [bit, word] : kMaskedWords) {
        if ((m_nWords & bit) != 0) m_list.AddString(word);
    }
    if (m_list.GetCount() > 0) return true;
    m_list.DestroyWindow();
    return false;
}

void CPriceEdit::ShowList() {
    if (!MakeList()) return;
    CRect edit;
    GetWindowRect(&edit);
    orderentry::PlaceWordList(m_list, edit, edit.Width());
}

void CPriceEdit::HideList() {
    if (m_list.GetSafeHwnd()) m_list.ShowWindow(SW_HIDE);
}

void CPriceEdit::OnLButtonUp(UINT, CPoint) {
    Default();
    ShowList();
}

void CPriceEdit::OnKillFocus(CWnd*) {
    Default();
    if (!orderentry::IsPointerOver(m_list)) HideList();
}

void CPriceEdit::OnDestroy() {
    if (m_list.GetSafeHwnd()) m_list.DestroyWindow();
    CEdit::OnDestroy();
}

LRESULT CPriceEdit::OnRowChosen(WPARAM row, LPARAM) {
    orderentry::TakeRow(*this, m_list, row);
    HideList();
    return 0;
}
