#include "controls/my_list_box.h"

#include <vector>

namespace {

constexpr int kPictureSize = 16;
constexpr int kPictureLeft = 15;  // from the item's left edge
constexpr int kBandLeft = 35;     // the picture is not in the selection's band
constexpr int kTextLeft = 40;
constexpr COLORREF kGround = RGB(0xFF, 0xFF, 0xFF);
constexpr COLORREF kBand = RGB(0xDE, 0xDE, 0xDE);

void Fill(HDC dc, const RECT& rect, COLORREF color) { ::FillRect(dc, &rect, CBrush(color)); }

}  // namespace

BEGIN_MESSAGE_MAP(CMyListBox, CListBox)
    ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

void CMyListBox::SetBitmap(HBITMAP strip) {
    strip_ = strip;
    if (m_hWnd) Invalidate();
}

int CMyListBox::AddItem(LPCSTR text, int picture) {
    const int index = AddString(text);
    if (index >= 0) SetItemData(index, static_cast<DWORD_PTR>(picture));
    return index;
}

BOOL CMyListBox::OnEraseBkgnd(CDC* dc) {
    CRect client;
    GetClientRect(client);
    dc->FillSolidRect(client, kGround);
    return TRUE;
}

void CMyListBox::DrawItem(LPDRAWITEMSTRUCT item) {
    if (item->itemID == static_cast<UINT>(-1)) return;  // an empty list tells of its focus
    Fill(item->hDC, item->rcItem, kGround);
    if ((item->itemState & ODS_SELECTED) != 0) {
        RECT band = item->rcItem;
        band.left += kBandLeft;
        Fill(item->hDC, band, kBand);
    }
    DrawPicture(*item);
    DrawItemText(*item);
}

void CMyListBox::DrawPicture(const DRAWITEMSTRUCT& item) const {
    BITMAP info{};
    if (!strip_ || ::GetObjectA(strip_, sizeof(info), &info) == 0) return;
    const auto count = static_cast<ULONG_PTR>(info.bmWidth / kPictureSize);
    if (item.itemData >= count) return;
    const RECT& rect = item.rcItem;
    CDC strip;
    strip.Attach(::CreateCompatibleDC(item.hDC));
    const toolkit::ScopedSelect select(strip, strip_);
    ::BitBlt(item.hDC, rect.left + kPictureLeft,
             rect.top + (rect.bottom - rect.top - kPictureSize) / 2, kPictureSize, kPictureSize,
             strip, static_cast<int>(item.itemData) * kPictureSize, 0, SRCCOPY);
}

void CMyListBox::DrawItemText(const DRAWITEMSTRUCT& item) {
    const int index = static_cast<int>(item.itemID);
    const int length = GetTextLen(index);
    if (length <= 0) return;
    std::vector<char> text(static_cast<std::size_t>(length) + 1);
    GetText(index, text.data());
    const bool disabled = (item.itemState & ODS_DISABLED) != 0;
    ::SetBkMode(item.hDC, TRANSPARENT);
    ::SetTextColor(item.hDC, ::GetSysColor(disabled ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT));
    RECT rect = item.rcItem;
    rect.left += kTextLeft;
    ::DrawTextA(item.hDC, text.data(), length, &rect,
                DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
}
