#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "platform/toolkit/toolkit.h"

/// An item of a tip that can be clicked.
struct TipItem {
    int nID;
    char szText[256];
};

/// A tip: lines of text, each ended by "\r\n", or a list of items. A popup of its own that takes
/// the focus from nobody; its places are on the screen.
class CToolTip : public CDialog {
public:
    CToolTip();
    ~CToolTip() override;

    /// From the empty template, hidden. The parent gets clicks on items unless SetNotify names
    /// somebody else.
    BOOL Create(UINT template_id, CWnd* parent) override;
    void SetNotify(HWND receiver) { m_hNotify = receiver; }
    /// Off: the pointer may move over the text without hiding it.
    void SetHideOnMove(bool hide) { m_bHideOnMove = hide ? 1 : 0; }

    /// Shows a text above a point; with a positive screen width not beyond that. An empty text
    /// hides the tip, the text that is shown changes nothing. Cut to 4095 bytes.
    void ShowText(const char* text, CPoint point, int screen_width);
    /// The same below the point; placement 2 at its left.
    void ShowTextBelow(const char* text, CPoint point, int placement);
    void SetItems(const TipItem* items, int count);
    /// Shows the items above a point.
    void ShowItems(CPoint point, int screen_width);
    void Hide();
    /// Hides it when a point of the screen is farther from it than the margins.
    void HideIfOutside(int x, int y, int margin_x, int margin_y);

protected:
    void DoDataExchange(CDataExchange*) override {}
    BOOL OnInitDialog() override;
    void OnOK() override {}
    void OnCancel() override {}
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    static constexpr std::size_t kTextSize = 4096;

    /// True when there is a new text to show.
    bool TakeText(const char* text);
    CSize MeasureText();
    CSize MeasureItems();
    CSize MeasureLine(const CDC& dc, std::string_view line);
    void ShowAt(CPoint corner, CSize size);
    bool ItemMode() const { return !m_items.empty(); }

    void Paint();
    void PaintContent(const CDC& dc);
    void PaintLines(const CDC& dc) const;
    void PaintItems(const CDC& dc) const;
    void OnMove(CPoint point);
    void OnPress();
    void OnLeave();

    unsigned char m_bHideOnMove = 1;
    unsigned char m_bTracking = 0;
    HWND m_hNotify = nullptr;  ///< null for the parent
    HWND m_hParent = nullptr;  ///< the popup itself has none
    int m_nHot = 0;
    std::array<char, kTextSize> m_szText{};
    CFont m_font;
    CRect m_rcClient;
    int m_nLineHeight = 0;
    int m_bShown = 0;
    std::vector<TipItem> m_items;
};
