#pragma once

#include <cstddef>
#include <optional>

#include "controls/bmp_button_no_pic.h"
#include "controls/ower_draw_list_view.h"
#include "controls/v_button.h"
#include "lists/list_columns.h"
#include "lists/panel_host.h"
#include "lists/position_dialogs.h"
#include "lists/quick_close_rules.h"
#include "lists/scoped_lock.h"
#include "orderentry/contract_rules.h"
#include "platform/toolkit/toolkit.h"
#include "plugin/contract/earray.h"
#include "plugin/contract/position_records.h"

/// The open positions, as totals or as the lots that they consist of, with the buttons that close
/// them. It never edits rows: each change reads the whole list anew, and the figures are worked out
/// from the quote whenever a cell is painted.
class CGoldPositionDlg : public CDialog {
public:
    static constexpr UINT IDD = 10006;
    static constexpr int kList = 10024;
    static constexpr int kMode = 10008;
    static constexpr int kClose1 = 10027;
    static constexpr int kClose30 = 10023;
    static constexpr int kClose50 = 10028;
    static constexpr int kClose70 = 10029;
    static constexpr int kClose100 = 10030;
    static constexpr int kStop = 10031;

    /// The window goes first, while the members that paint it are still there.
    ~CGoldPositionDlg() override { DestroyWindow(); }

    /// Sums over all totals, as of the last Refresh.
    double m_dProfitOpen = 0;
    double m_dProfitHold = 0;
    double m_dLossHold = 0;
    bool m_bDetail = false;  ///< lots are shown

    /// The host of the panels; may be null.
    void SetOwner(PanelHost* host) { m_pPanelHost = host; }
    /// Where contracts are found, and who gets what the user does with rows.
    void Connect(const ContractSource* contracts, HWND row_receiver);
    /// Without them nothing is closed and no stop is set. Must outlive the page.
    void SetDialogs(PositionDialogs* dialogs) { m_pDialogs = dialogs; }

    /// Reads lots (`bDetailList`) or totals from the core if `bFetch`, shows them if they are on
    /// show, and works out and publishes the sums anew.
    void Refresh(bool bDetailList, bool bFetch);
    /// A quote of this contract (market | code << 16) changes the profits of those who hold it.
    void OnQuote(unsigned int packed, const JSDyn1& quote);

    /// Null for an index that is not there.
    const CZebPosition* GetPositionAt(int index) const;
    /// Available lots of the first total of the contract with the other direction; 0 without one.
    int GetOppositeAvailable(const char* contract, char direction) const;
    bool HasPosition(const char* contract) const;
    /// Of a total; 0 for an index that is not there, without a contract and without a price.
    double GetOpenProfit(int row) const;
    double GetHoldProfit(int row) const;

    /// Close some lots of a row, if the user agrees. The row may change while the user is asked.
    void CloseTotal(const CZebPosition& position, int lots);
    void CloseLot(const PositionGroup& lot, int lots);

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;
    void OnOK() override {}
    void OnCancel() override {}

    int OnCreate(LPCREATESTRUCT create);
    void OnSize(UINT type, int cx, int cy);
    BOOL OnEraseBkgnd(CDC* dc);
    void OnMode();
    template <std::size_t Index>
    void OnClose() {
        OnCloseButton(Index);
    }
    void OnStop();
    LRESULT OnListEvent(WPARAM event, LPARAM list);
    void OnRowOpened(NMHDR* header, LRESULT* result);
    DECLARE_MESSAGE_MAP()

private:
    static void DrawTotal(HDC dc, int row, int column, RECT* rect, HFONT bold, CWnd* parent,
                          void* context);
    static void DrawLot(HDC dc, int row, int column, RECT* rect, HFONT bold, CWnd* parent,
                        void* context);

    void ReadTotals();
    void ReadLots();
    void ShowColumns();
    void PlaceButtons(int page_width);
    void ShowModeText();
    void SumUp();
    void Publish();

    int ShownCount() const;
    /// Of the selected row in the list on show; -1 for none.
    int SelectedRow() const;
    const PositionGroup* LotAt(int row) const;
    std::optional<int> UnitOf(const CZebPosition& position) const;

    void OnSelectionChanged();
    /// By the lots that are available in a row of the list on show; -1 for no row.
    void UpdateCloseButtons(int row);
    void ShowOffer(CBmpButtonNoPic& button, const lists::CloseOffer& offer);
    /// `index` of lists::kCloseRatios.
    void OnCloseButton(std::size_t index);
    CBmpButtonNoPic& CloseButton(std::size_t index);
    void TellSelection();
    void Send(lists::PreparedClose close);

    void SetStopsOfLot(PositionGroup lot);
    void SetStopsOfTotal(const CZebPosition& total);
    const PositionGroup* FindLotOf(const CZebPosition& total) const;
    static void AskForLots();
    void StoreOnSide(const PositionGroup& lot, const CPresetStop& stop);

    PanelHost* m_pPanelHost = nullptr;
    const ContractSource* m_pContracts = nullptr;
    PositionDialogs* m_pDialogs = nullptr;
    HWND m_hOwner = nullptr;  ///< gets the row messages
    CListLock m_lock;         ///< taken by whoever reads the arrays outside of a refresh
    EArray<CZebPosition> m_positions{32};
    EArray<PositionGroup> m_groups{32};
    char m_szSelected[sizeof CZebPosition::szContract + 1] = {};  ///< travels by address
    COwerDrawListView m_list;
    lists::WideColumn m_stopsColumn{};  ///< the lots' last one
    CVButton m_btnMode;
    CBmpButtonNoPic m_btnClose1;  ///< the value of each is how many lots it closes
    CBmpButtonNoPic m_btnClose30;
    CBmpButtonNoPic m_btnClose50;
    CBmpButtonNoPic m_btnClose70;
    CBmpButtonNoPic m_btnClose100;
    CBmpButtonNoPic m_btnStop;
};
