#include "orderentry/contract_rules.h"
#include "orderentry/gold_bs_dlg.h"
#include "orderentry/number_rules.h"
#include "orderentry/price_rules.h"
#include "orderentry/prompt_insert_order_dlg.h"
#include "orderentry/volume_rules.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/ui_callback.h"
#include "plugin/settings/process_values.h"
#include "stops/stop_rules.h"

// The order page's ticket: direction, offset, price and volume, the order, and preset stops.

namespace {

constexpr const char* kTitle = "提示";
constexpr const char* kErrorTitle = "错误";
constexpr const char* kFirstPrice = "对手价";

std::string TextOf(const CWnd* edit) {
    constexpr int kTextSize = 32;
    char text[kTextSize] = {};
    if (edit != nullptr) edit->GetWindowText(text, sizeof text);
    return text;
}

std::string ContractExchange(const CZebContract& contract) {
    return std::string(text::FieldText(contract.szExchange));
}

CPresetStop ReadPresetStop(const CZebContract& contract) {
    CPresetStop stop{};
    CUICallBack* const core = GetUICallBack();
    if (core == nullptr) return stop;
    core->GetPresetStop(ContractExchange(contract).c_str(), ContractCode(contract).c_str(), &stop);
    return stop;
}

}  // namespace

std::string CGoldBsDlg::PriceText() const { return TextOf(m_price.InnerEdit()); }

std::string CGoldBsDlg::VolumeText() const { return TextOf(m_volume.InnerEdit()); }

void CGoldBsDlg::SetVolumeText(const char* text) {
    if (CWnd* const edit = m_volume.InnerEdit()) edit->SetWindowText(text);
}

void CGoldBsDlg::ApplyDefaultPrice() {
    const char* const text = DefaultPriceText(ReadTradeParam().nDefaultPrice);
    if (text != nullptr && PriceWindow() != nullptr) m_price.SelectWord(text);
}

LRESULT CGoldBsDlg::OnRadioChecked(WPARAM, LPARAM id) {
    Choose(static_cast<int>(id));
    return 0;
}

void CGoldBsDlg::Choose(int radio) {
    SetVolumeText("");
    switch (radio) {
        case kBuy:
            m_cDirection = kDirectionBuy;
            if (m_bHasOffset == 0) m_cOffset = kOffsetOpen;
            break;
        case kSell:
            m_cDirection = kDirectionSell;
            if (m_bHasOffset == 0) m_cOffset = kOffsetClose;
            break;
        case kOpen: m_cOffset = kOffsetOpen; break;
        case kClose: m_cOffset = kOffsetClose; break;
        case kCloseToday: m_cOffset = kOffsetCloseToday; break;
        default: break;
    }
    ShowMaxVolume(m_cOffset);
    RefreshLook();
}

void CGoldBsDlg::ResetDirection() {
    m_cDirection = kDirectionBuy;
    m_cOffset = kOffsetOpen;
}

void CGoldBsDlg::OnReset() {
    m_price.SelectWord(kFirstPrice);
    ResetDirection();
    SetVolumeText("");
    SetDlgItemText(kMaxVolume, "");
    m_net.SetChecked(FALSE);
    RefreshLook();
}

void CGoldBsDlg::OnPriceStep(NMHDR* header, LRESULT*) {
    const int delta = reinterpret_cast<const NMUPDOWN*>(header)->iDelta;
    char stepped[kPriceTextSize] = {};
    if (!StepPrice(PriceText().c_str(), delta, m_cDirection, m_pContract, m_stSymbol, stepped)) {
        return;
    }
    m_price.SelectWord(stepped);
    SetDlgItemText(kMaxVolume, "");
}

void CGoldBsDlg::OnVolumeStep(NMHDR* header, LRESULT*) {
    if (m_pContract == nullptr) return;
    const int delta = reinterpret_cast<const NMUPDOWN*>(header)->iDelta;
    SetVolumeText(StepVolume(VolumeText().c_str(), delta).c_str());
}

/// `offset` is the page's, or the opening one for what only opens.
void CGoldBsDlg::ShowMaxVolume(char offset) {
    if (m_pContract == nullptr) return;
    const std::string code = ContractCode(*m_pContract);
    const std::string price = PriceText();
    MaxVolumeAnswer answer = AskMaxVolume({
        .contract = m_pContract,
        .symbol = m_stSymbol,
        .price_text = price.c_str(),
        .direction = m_cDirection,
        .checked_direction = m_buy.IsChecked() ? kDirectionBuy : kDirectionSell,
        .offset = offset,
        .has_offset = m_bHasOffset != 0,
        .net = IsNet(),
        .closable = m_pReport != nullptr ? m_pReport->CloseVolume(code.c_str(), m_cDirection) : 0,
        .available = g_dAvailable,
        .open_losses = m_pReport != nullptr ? m_pReport->HoldLoss() : 0,
    });
    CUICallBack* const core = GetUICallBack();
    if (answer.kind == MaxVolumeAnswer::Kind::kShow) ShowMaximum(answer.lots);
    if (answer.kind == MaxVolumeAnswer::Kind::kQuery && core != nullptr) {
        core->QueryMaxVolume(&answer.query, 0);
    }
}

void CGoldBsDlg::ShowMaximum(int lots) { SetDlgItemText(kMaxVolume, std::to_string(lots).c_str()); }

void CGoldBsDlg::OnMaxVolumeResult(const CQueryMaxVolumeResult* result) {
    if (result == nullptr || GetSafeHwnd() == nullptr) return;
    if (IsAnswerFor(*result, m_pContract, m_cDirection, m_cOffset)) ShowMaximum(ShownLots(*result));
}

bool CGoldBsDlg::IsQuotedBy(unsigned int packed) const {
    return m_pContract != nullptr && m_stSymbol.szCode[0] != '\0' &&
           PackSymbol(m_stSymbol) == packed;
}

void CGoldBsDlg::OnQuoteEvent(const JSDyn1&) {
    if (GetSafeHwnd() == nullptr) return;
    if (::GetWindowTextLengthA(::GetDlgItem(m_hWnd, kMaxVolume)) == 0) ShowMaxVolume(m_cOffset);
}

LRESULT CGoldBsDlg::OnPositionRow(WPARAM row, LPARAM second) {
    if (row == 0 || second != 0) return 0;
    // The list may read its rows anew while the page asks the core.
    const PositionGroup copy = *reinterpret_cast<const PositionGroup*>(row);
    LoadForClosing(copy);
    return 0;
}

// A row of another contract must not become an order of this one.
void CGoldBsDlg::LoadForClosing(const PositionGroup& row) {
    const std::string code(text::FieldText(row.szContract));
    if (m_pContract == nullptr || ContractCode(*m_pContract) != code) {
        const int item = FindItem(code);
        if (item < 0) return;
        SelectItem(item);
        if (m_pContract == nullptr) return;
    }
    m_cDirection = row.cDirection == kDirectionBuy ? kDirectionSell : kDirectionBuy;
    m_cOffset = kOffsetClose;
    RefreshLook();
    ShowMaxVolume(m_cOffset);
    m_nLinkedPosition = row.nGroupID;
    const int lots = Saturated(static_cast<long long>(row.nVolume) - row.nFrozen);
    SetDlgItemText(kVolume, std::to_string(lots).c_str());
    ShowMaximum(lots);
}

OrderTicket CGoldBsDlg::Ticket(const std::string& price, const std::string& volume) const {
    return {.contract = m_pContract,
            .symbol = m_stSymbol,
            .volume_text = volume.c_str(),
            .price_text = price.c_str(),
            .direction = m_cDirection,
            .offset = m_cOffset,
            .net = IsNet(),
            .linked_position = m_nLinkedPosition};
}

void CGoldBsDlg::OnSubmit() {
    const std::string price = PriceText();
    const std::string volume = VolumeText();
    PreparedOrder order = PrepareOrder(Ticket(price, volume));
    if (order.refusal != OrderRefusal::kNone) {
        Refuse(order);
        return;
    }
    const HWND page = m_hWnd;
    const bool confirmed = ConfirmOrder(this, order.request, false);
    // The host may have taken the page down while the question was open.
    if (!::IsWindow(page)) return;
    if (confirmed) Send(order);
    if (g_nUseProfile == 0) SetDlgItemText(kVolume, "");
}

void CGoldBsDlg::Refuse(const PreparedOrder& order) {
    const HWND page = m_hWnd;
    MessageBox(RefusalText(order).c_str(), kTitle, MB_OK);
    if (!::IsWindow(page)) return;
    if (order.refusal == OrderRefusal::kNoVolume) m_volume.InnerEdit()->SetFocus();
}

void CGoldBsDlg::Send(PreparedOrder& order) {
    CUICallBack* const core = GetUICallBack();
    if (core == nullptr) return;
    core->InsertOrder(&order.request, &order.param, order.price_type, order.source);
    if (order.param.bResetPrice != 0) ApplyDefaultPrice();
    if (order.param.bResetDirection != 0) ResetDirection();
    RefreshLook();
}

LRESULT CGoldBsDlg::OnCheckChanged(WPARAM, LPARAM id) {
    if (id == kNet) {
        EnableOffsets();
        Invalidate();
    } else if (id == kStops) {
        EditStops(m_stops);
    } else if (id == kAutoStop) {
        EditStops(m_autoStop);
    }
    return 0;
}

// The click has changed the box already; what it shows in the end is what the core has stored.
void CGoldBsDlg::EditStops(COwerCheckBox& box) {
    if (!MayEditStops(box)) return;
    box.SetChecked(TRUE);
    const HWND page = m_hWnd;
    const CZebContract contract = *m_pContract;
    const std::string exchange = ContractExchange(contract);
    const std::string code = ContractCode(contract);
    CPresetStop stop = ReadPresetStop(contract);
    text::CopyText(stop.szExchange, exchange);
    text::CopyText(stop.szContract, code);
    const bool accepted =
        m_pStopDialog != nullptr &&
        m_pStopDialog->Edit(contract, stop, PresetStopTitle(code.c_str()).c_str(), this);
    if (!::IsWindow(page)) return;
    CUICallBack* const core = GetUICallBack();
    if (accepted && core != nullptr) core->SetPresetStop(exchange.c_str(), code.c_str(), &stop);
    if (m_pStopListener != nullptr) {
        m_pStopListener->RefreshStopChecks();
    } else {
        RefreshStopCheck();
    }
}

bool CGoldBsDlg::MayEditStops(COwerCheckBox& box) {
    if (g_bNeedShowStopLossAndProfit == 0) {
        MessageBox("不支持止损止盈", kErrorTitle, MB_OK);
        return false;
    }
    if (m_pContract != nullptr) return true;
    const HWND page = m_hWnd;
    MessageBox("请选择合约", kErrorTitle, MB_OK);
    if (::IsWindow(page)) box.SetChecked(FALSE);
    return false;
}

void CGoldBsDlg::RefreshStopCheck() {
    if (GetSafeHwnd() == nullptr) return;
    m_stops.SetChecked(m_pContract != nullptr && IsPresetStopActive(ReadPresetStop(*m_pContract)));
}
