#include "lists/gold_trade_dlg.h"

#include "controls/page_ground.h"
#include "lists/export_file_rules.h"
#include "lists/export_trade_rules.h"
#include "lists/trade_cell_rules.h"
#include "lists/trade_list_rules.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/record_list.h"
#include "plugin/contract/ui_callback.h"
#include "plugin/settings/application_directory.h"

namespace {

constexpr int kSpareRecords = 16;

/// Between a text and the line that it is aligned to, beside what the list leaves.
constexpr int kCellMargin = 3;

constexpr lists::Column kColumns[kTradeColumns] = {
    {"时间", 60},     {"合约", 60}, {"买卖", 60},   {"开平", 60},
    {"成交价格", 60}, {"数量", 60}, {"委托号", 60}, {"成交号", 150},
};

constexpr lists::WideColumn kNumberColumn{kTradeNumberColumn, kColumns[kTradeNumberColumn].width};

constexpr char kFilter[] = "Chart Seperate Value (*.csv)|*.csv|All Files (*.*)|*.*||";

/// The name of a file in which to write today's trades; empty if the user wants none.
std::string AskForFile(CWnd& page) {
    SYSTEMTIME now{};
    ::GetLocalTime(&now);
    const std::string proposed = ExportName(now.wYear, now.wMonth, now.wDay);
    CFileDialog dialog(FALSE, "csv", proposed.c_str(), OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT,
                       kFilter, &page);
    return dialog.DoModal() == IDOK ? dialog.GetPathName() : "";
}

}  // namespace

BEGIN_MESSAGE_MAP(CGoldTradeDlg, CDialog)
    ON_WM_CREATE()
    ON_WM_SIZE()
    ON_WM_ERASEBKGND()
    ON_BN_CLICKED(kExport, &CGoldTradeDlg::OnExport)
END_MESSAGE_MAP()

int CGoldTradeDlg::OnCreate(LPCREATESTRUCT create) {
    if (CDialog::OnCreate(create) == -1) return -1;
    lists::MakeList(m_list, *this, kList, this);
    m_list.m_pfnDrawCell = DrawCell;
    lists::SetColumns(m_list, kColumns);
    m_numberColumn = kNumberColumn;
    return 0;
}

void CGoldTradeDlg::DoDataExchange(CDataExchange* exchange) {
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, kMode, m_btnMode);
    DDX_Control(exchange, kExport, m_btnExport);
}

BOOL CGoldTradeDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    SetPageSkin(m_btnMode, kSkinPages, lists::kUprightSkin);
    return TRUE;
}

void CGoldTradeDlg::Refresh() {
    CUICallBack* core = GetUICallBack();
    if (core == nullptr) return;
    const int came = ReadRecords(m_trades, kSpareRecords, [core](CZebTrade* buffer, int capacity) {
        return core->GetTradeList(buffer, capacity);
    });
    m_trades.SetSize(came);
    SortTrades(Trades());
    if (m_hWnd == nullptr) return;
    m_list.SetRowCount(m_trades.GetCount(), TRUE);
    lists::FitColumn(m_list, m_numberColumn);
}

std::span<CZebTrade> CGoldTradeDlg::Trades() {
    return {m_trades.GetData(), static_cast<std::size_t>(m_trades.GetCount())};
}

void CGoldTradeDlg::DrawCell(HDC dc, int row, int column, RECT* rect, HFONT bold, CWnd*,
                             void* context) {
    auto& page = *static_cast<CGoldTradeDlg*>(context);
    const CScopedLock lock(page.m_lock);
    if (row < 0 || row >= page.m_trades.GetCount()) return;
    const CZebTrade& trade = page.m_trades.GetData()[row];
    const CZebContract* contract = nullptr;
    if (page.m_pContracts != nullptr) {
        const std::string code(text::FieldText(trade.szContract));
        contract = page.m_pContracts->FindContractByCode(code.c_str());
    }
    const lists::CellText cell = TradeCell(trade, column, contract);
    RECT place = *rect;
    if (cell.format == lists::kLeftFormat) place.left += kCellMargin;
    // On one side only: "172944.00" fits its column, but no more.
    if (cell.format == lists::kRightFormat) place.right -= kCellMargin;
    lists::DrawCellText(dc, cell, place, bold);
}

void CGoldTradeDlg::Export() {
    if (m_trades.GetCount() == 0) return;
    const HWND page = m_hWnd;
    const std::string path = AskForFile(*this);
    // The host may have taken the page down while the dialog was open.
    if (!path.empty() && ::IsWindow(page)) Write(path);
    RestoreApplicationDirectory();
}

void CGoldTradeDlg::Write(const std::string& path) {
    std::vector<const char*> titles;
    for (const ListColumn& column : m_list.m_columns) titles.push_back(column.szTitle);
    const auto write = [&](const ExportSink& sink) {
        return WriteTradeExport(titles, Trades(), m_pContracts, sink);
    };
    if (WriteExport(path.c_str(), write) == ExportResult::kBroken) {
        CUICallBack* const core = GetUICallBack();
        if (core != nullptr) core->ShowStatusText("成交报表没有写完", kStatusPlain);
    }
}

void CGoldTradeDlg::OnSize(UINT type, int cx, int cy) {
    CDialog::OnSize(type, cx, cy);
    if (m_btnMode.m_hWnd != nullptr) m_btnMode.MoveWindow(0, 32, 21, cy - 34);
    if (m_btnExport.m_hWnd != nullptr) m_btnExport.MoveWindow(cx - 62, 5, 60, 20);
    if (m_list.m_hWnd == nullptr) return;
    m_list.MoveWindow(26, 31, cx - 28, cy - 32);
    lists::FitColumn(m_list, m_numberColumn);
    Invalidate();  // the list's frame is part of the ground
}

BOOL CGoldTradeDlg::OnEraseBkgnd(CDC* dc) {
    FillPageGround(*this, dc);
    m_list.DrawBorder();
    return TRUE;
}
