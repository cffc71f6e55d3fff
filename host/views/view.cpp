#include "host/views/view.h"

#include <array>

namespace views {
namespace {

struct TypeSize {
    int height;
};
constexpr TypeSize kSizes[] = {{12}, {13}, {15}, {24}};

}  // namespace

HFONT FontOf(Type type, bool bold) {
    static std::array<CFont, 8> fonts;
    const auto size = static_cast<std::size_t>(type);
    CFont& font = fonts[size * 2 + (bold ? 1 : 0)];
    if (!font.GetSafeHandle()) {
        font.CreateFont(-kSizes[size].height, 0, 0, 0, bold ? FW_BOLD : FW_NORMAL, FALSE, FALSE,
                        FALSE, GB2312_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                        DEFAULT_QUALITY, DEFAULT_PITCH | FF_DONTCARE, "宋体");
    }
    return font;
}

void Painter::Fill(const RECT& rect, COLORREF color) const {
    SetBkColor(dc_, color);
    ExtTextOutA(dc_, 0, 0, ETO_OPAQUE, &rect, "", 0, nullptr);
}

void Painter::Frame(const RECT& rect, COLORREF color) const {
    Fill({rect.left, rect.top, rect.right, rect.top + 1}, color);
    Fill({rect.left, rect.bottom - 1, rect.right, rect.bottom}, color);
    Fill({rect.left, rect.top, rect.left + 1, rect.bottom}, color);
    Fill({rect.right - 1, rect.top, rect.right, rect.bottom}, color);
}

void Painter::Text(const RECT& rect, const std::string& text, COLORREF color, UINT format,
                   Type type, bool bold) const {
    if (rect.right <= rect.left || text.empty()) return;
    const toolkit::ScopedSelect font(dc_, FontOf(type, bold));
    SetBkMode(dc_, TRANSPARENT);
    SetTextColor(dc_, color);
    RECT room = rect;
    DrawTextA(dc_, text.c_str(), static_cast<int>(text.size()), &room,
              format | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

int Painter::TextWidth(const std::string& text, Type type, bool bold) const {
    const toolkit::ScopedSelect font(dc_, FontOf(type, bold));
    SIZE size{};
    GetTextExtentPoint32A(dc_, text.c_str(), static_cast<int>(text.size()), &size);
    return size.cx;
}

void Painter::Line(int x1, int y1, int x2, int y2, COLORREF color, int style) const {
    const CPen pen(style, 1, color);
    const toolkit::ScopedSelect selected(dc_, pen);
    SetBkMode(dc_, TRANSPARENT);
    MoveToEx(dc_, x1, y1, nullptr);
    LineTo(dc_, x2, y2);
}

COLORREF Mixed(COLORREF first, COLORREF second, int share) {
    const auto mix = [share](int a, int b) {
        return static_cast<BYTE>((a * share + b * (255 - share)) / 255);
    };
    return RGB(mix(GetRValue(first), GetRValue(second)), mix(GetGValue(first), GetGValue(second)),
               mix(GetBValue(first), GetBValue(second)));
}

BEGIN_MESSAGE_MAP(View, CWnd)
    ON_WM_PAINT()
    ON_WM_ERASEBKGND()
    ON_WM_SIZE()
END_MESSAGE_MAP()

BOOL View::CreateView(CWnd* parent, UINT id) {
    const LPCSTR window_class = AfxRegisterWndClass(0, LoadCursorA(nullptr, IDC_ARROW), nullptr);
    return Create(window_class, "", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, CRect(0, 0, 0, 0),
                  parent, id);
}

void View::SetPalette(const skin::Palette& palette) {
    palette_ = &palette;
    if (GetSafeHwnd()) Invalidate(FALSE);
}

CSize View::ClientSize() const {
    CRect client;
    GetClientRect(&client);
    return {client.Width(), client.Height()};
}

void View::OnPaint() {
    CPaintDC dc(this);
    const CSize size = ClientSize();
    if (size.cx <= 0 || size.cy <= 0) return;
    if (!surface_.exists() || surface_.size() != size) surface_.Create(dc, size);
    if (!surface_.exists()) return;
    Paint(Painter(surface_.dc(), *palette_), size);
    surface_.CopyTo(dc);
}

void View::OnSize(UINT kind, int width, int height) {
    CWnd::OnSize(kind, width, height);
    Invalidate(FALSE);
}

}  // namespace views
