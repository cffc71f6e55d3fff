#include "orderentry/price_edit_rich.h"

#include <cstdlib>

#include "orderentry/price_edit_ex.h"
#include "orderentry/price_word_list.h"
#include "plugin/contract/messages.h"

BEGIN_MESSAGE_MAP(CPriceEditRich, CRichEditCtrl)
    ON_WM_LBUTTONUP()
    ON_WM_SETFOCUS()
    ON_WM_KILLFOCUS()
    ON_WM_CHAR()
    ON_WM_KEYDOWN()
    ON_WM_TIMER()
    ON_WM_DESTROY()
    ON_MESSAGE(WM_PRICE_ROW_CHOSEN, &CPriceEditRich::OnRowChosen)
END_MESSAGE_MAP()

namespace {

constexpr UINT_PTR kFollowTimer = 1;
constexpr UINT_PTR kSelectTimer = 2;
constexpr UINT kTimerMillis = 50;
constexpr const char* kListWords[] = {"对手价",           "最新价", "挂单价",
                                      "挂单价超一个价位", "涨停价", "跌停价"};

bool PassesFilter(UINT character) {
    return (character >= '0' && character <= '9') || character == '.' || character == '\b';
}

}  // namespace

CPriceEditRich::~CPriceEditRich() {
    if (m_list.GetSafeHwnd()) m_list.DestroyWindow();
}

bool CPriceEditRich::MakeList() {
    if (m_list.GetSafeHwnd()) return true;
    if (!m_list.Make(*this)) return false;
    for (const char* word : kListWords) m_list.List().AddString(word);
    return true;
}

int CPriceEditRich::ListWidth() const {
    if (m_nListWidth != 0) return m_nListWidth;
    CRect edit;
    GetWindowRect(&edit);
    return edit.Width() + 20;
}

void CPriceEditRich::ShowList() {
    if (orderentry::IsShown(m_list) || !MakeList()) return;
    GetWindowText(m_szPrevious, sizeof m_szPrevious);
    CRect edit;
    GetWindowRect(&edit);
    m_list.ShowAt(CPoint(edit.left, edit.bottom), ListWidth());
    m_bListOpen = true;
    SetTimer(kFollowTimer, kTimerMillis, nullptr);
}

void CPriceEditRich::HideList() {
    KillTimer(kFollowTimer);
    if (m_list.GetSafeHwnd()) m_list.ShowWindow(SW_HIDE);
    m_bListOpen = false;
}

// Nobody tells a popup that the window below which it stands was moved, or hidden with its page.
void CPriceEditRich::FollowEdit() {
    if (!m_bListOpen) return;
    if (!IsWindowVisible()) {
        HideList();
        return;
    }
    CRect edit;
    CRect list;
    GetWindowRect(&edit);
    m_list.GetWindowRect(&list);
    if (std::abs(list.left - edit.left) < 4 && std::abs(list.top - edit.bottom) < 6) return;
    m_list.ShowAt(CPoint(edit.left, edit.bottom), ListWidth());
}

void CPriceEditRich::SelectWord(const char* text) {
    SetWindowText(text);
    if (!MakeList()) return;
    CListBox& list = m_list.List();
    list.SetCurSel(static_cast<int>(list.SendMessage(LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                                     reinterpret_cast<LPARAM>(text))));
}

void CPriceEditRich::SetListOption(const char* text, int value) {
    if (!MakeList()) return;
    CListBox& list = m_list.List();
    const LRESULT row = list.SendMessage(LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                         reinterpret_cast<LPARAM>(text));
    if (row != LB_ERR) list.SetItemData(static_cast<int>(row), static_cast<DWORD_PTR>(value));
}

void CPriceEditRich::OnClickOutside(CPoint screen) {
    if (!m_bListOpen) return;
    CRect edit;
    CRect list;
    GetWindowRect(&edit);
    m_list.GetWindowRect(&list);
    if (!edit.PtInRect(screen) && !list.PtInRect(screen)) HideList();
}

CPriceEditRich::SelState CPriceEditRich::Selection() const {
    CHARRANGE range{};
    GetSel(range);
    const LONG length = GetWindowTextLength();
    if (range.cpMin == range.cpMax) return kNone;
    if (range.cpMin == 0 && range.cpMax >= length) return kAll;
    if (range.cpMin == length - 1 && range.cpMax >= length) return kLastDigit;
    return kOther;
}

void CPriceEditRich::CycleSelection() {
    char text[64] = {};
    GetWindowText(text, sizeof text);
    if (std::atof(text) < 1e-8) {
        SetSel(0, -1);
        m_nSelState = kAll;
        return;
    }
    const SelState now = Selection();
    if (now != kNone) {
        m_nSelState = now;
        return;
    }
    const LONG length = GetWindowTextLength();
    const bool was_all = m_nSelState == kAll;
    SetSel(was_all ? length - 1 : 0, was_all ? length : -1);
    m_nSelState = was_all ? kLastDigit : kAll;
}

void CPriceEditRich::OnLButtonUp(UINT, CPoint) {
    const HWND window = m_hWnd;
    Default();
    if (!::IsWindow(window)) return;
    ShowList();
    SelectSoon();
}

void CPriceEditRich::OnSetFocus(CWnd*) {
    Default();
    SelectSoon();
}

void CPriceEditRich::SelectSoon() {
    m_bSelectPending = SetTimer(kSelectTimer, kTimerMillis, nullptr) != 0;
}

void CPriceEditRich::SelectNow() {
    if (!m_bSelectPending) return;
    m_bSelectPending = false;
    KillTimer(kSelectTimer);
    CycleSelection();
}

void CPriceEditRich::OnKillFocus(CWnd*) {
    Default();
    if (!orderentry::IsPointerOver(m_list)) HideList();
}

void CPriceEditRich::OnChar(UINT character, UINT, UINT) {
    HideList();
    if (!PassesFilter(character)) return;
    SelectNow();
    m_nSelState = kNone;
    Default();
}

void CPriceEditRich::OnKeyDown(UINT key, UINT, UINT) {
    SelectNow();
    if (!orderentry::StepByKey(*this, key)) Default();
}

void CPriceEditRich::OnTimer(UINT_PTR id) {
    if (id == kFollowTimer) {
        FollowEdit();
    } else if (id == kSelectTimer) {
        SelectNow();
    } else {
        Default();
    }
}

void CPriceEditRich::OnDestroy() {
    if (m_list.GetSafeHwnd()) m_list.DestroyWindow();
    m_bListOpen = false;
    CRichEditCtrl::OnDestroy();
}

LRESULT CPriceEditRich::OnRowChosen(WPARAM row, LPARAM) {
    orderentry::TakeRow(*this, m_list.List(), row);
    HideList();
    return 0;
}
