#include <cstring>

#include "orderentry/contract_rules.h"
#include "orderentry/gold_bs_dlg.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/messages.h"
#include "plugin/settings/process_values.h"

// The order page's contract: the drop-down, what is typed there, and who else chooses.

namespace {

constexpr int kTypedSize = 32;
/// Room that whoever asks for the contract has at least.
constexpr std::size_t kContractLineSize = 47;

}  // namespace

void CGoldBsDlg::SetContracts(const CZebContract* contracts, int count) {
    m_pContracts = contracts;
    m_nContracts = count;
    m_pContract = nullptr;
    m_stSymbol = {};
    m_vecCodeLength.clear();
    if (m_hWnd == nullptr) return;
    SendDlgItemMessage(kContract, CB_RESETCONTENT);
    for (int index = 0; index < count; ++index) {
        const std::string code = ContractCode(contracts[index]);
        const LRESULT item =
            SendDlgItemMessage(kContract, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(code.c_str()));
        SendDlgItemMessage(kContract, CB_SETITEMDATA, static_cast<WPARAM>(item), index);
        m_vecCodeLength.push_back(static_cast<int>(code.size()));
    }
    RefreshStopCheck();
    OnContractSelected();
}

void CGoldBsDlg::SetContract(const CZebContract* contract) {
    if (contract == nullptr || contract == m_pContract || m_hWnd == nullptr) return;
    const int item = FindItem(ContractCode(*contract));
    if (item < 0) return;
    m_bHostDriven = true;
    SelectItem(item);
}

// The drop-down's own look-up takes "au" for "Au", which is another contract.
int CGoldBsDlg::FindItem(const std::string& code) const {
    for (int item = 0; item < m_nContracts; ++item) {
        if (ContractCode(m_pContracts[item]) == code) return item;
    }
    return -1;
}

void CGoldBsDlg::SelectItem(int item) {
    SendDlgItemMessage(kContract, CB_SETCURSEL, static_cast<WPARAM>(item));
    OnContractSelected();
}

void CGoldBsDlg::OnContractSelected() {
    if (TakeSelected()) ShowContract();
    m_bHostDriven = false;
}

/// Asks the container for the contract of the selected row. False without one.
bool CGoldBsDlg::TakeSelected() {
    const LRESULT item = SendDlgItemMessage(kContract, CB_GETCURSEL);
    if (item < 0) return false;
    m_nContractIndex =
        static_cast<int>(SendDlgItemMessage(kContract, CB_GETITEMDATA, static_cast<WPARAM>(item)));
    // No price of the former contract may count for the new one.
    m_stSymbol = {};
    GetParent()->SendMessage(WM_CONTRACT_SELECTED, static_cast<WPARAM>(m_nContractIndex));
    return m_pContract != nullptr;
}

void CGoldBsDlg::ShowContract() {
    const std::string code = ContractCode(*m_pContract);
    ApplyDefaultPrice();
    RefreshStopCheck();
    m_bHasOffset = HasOffset(code.c_str()) ? 1 : 0;
    m_cDirection = kDirectionBuy;
    m_cOffset = kOffsetOpen;
    m_net.SetChecked(FALSE);
    Choose(kBuy);
    Choose(kOpen);
    ShowNet();
    if (!m_bHostDriven) SubscribeSymbol(code.c_str());
    JSDyn1 quote{};
    // Without a symbol there is no key: zero may be somebody else's.
    if (GetSymbolByName(&m_stSymbol, code.c_str())) GetQuote(&quote, PackSymbol(m_stSymbol));
    if (m_pLevels != nullptr) m_pLevels->OnQuote(PackSymbol(m_stSymbol), quote);
    SetDlgItemText(kMaxVolume, "");
    ShowMaxVolume(m_cOffset);
    SetVolumeText("1");
    if (g_hFrameWnd != nullptr) ::PostMessageA(g_hFrameWnd, WM_FRAME_NOTICE, kFrameReady, 0);
}

void CGoldBsDlg::OnContractTyped() {
    char typed[kTypedSize] = {};
    GetDlgItemText(kContract, typed, sizeof typed);
    const int item = typed[0] != '\0' ? LongestMatch(typed) : -1;
    if (item < 0) {
        LoseContract();
        return;
    }
    const int length = static_cast<int>(std::strlen(typed));
    const bool whole = m_vecCodeLength[static_cast<std::size_t>(item)] == length;
    SelectItem(item);
    SendDlgItemMessage(kContract, CB_SETEDITSEL, 0, MAKELPARAM(whole ? 0 : length, -1));
}

/// The position of the longest code that begins with the text; of equally long ones the first.
int CGoldBsDlg::LongestMatch(const std::string& typed) {
    const auto next = [&](LRESULT after) {
        return SendDlgItemMessage(kContract, CB_FINDSTRING, static_cast<WPARAM>(after),
                                  reinterpret_cast<LPARAM>(typed.c_str()));
    };
    LRESULT best = -1;
    int best_length = -1;
    // The search goes round, so it ends where it comes back to.
    for (LRESULT last = -1, item = next(-1); item > last; item = next(item)) {
        last = item;
        const int length = m_vecCodeLength[static_cast<std::size_t>(item)];
        if (length <= best_length) continue;
        best = item;
        best_length = length;
    }
    return static_cast<int>(best);
}

void CGoldBsDlg::LoseContract() {
    // The text goes with the selection.
    SendDlgItemMessage(kContract, CB_SETCURSEL, static_cast<WPARAM>(-1));
    m_pContract = nullptr;
    m_stSymbol = {};
    m_stops.SetChecked(FALSE);
    m_autoStop.SetChecked(FALSE);
}

LRESULT CGoldBsDlg::OnQueryContract(WPARAM selector, LPARAM buffer) {
    if (selector != kQueryContractText || buffer == 0 || m_pContract == nullptr) return 0;
    const std::string line =
        std::string(text::FieldText(m_pContract->szExchange)) + "|" + ContractCode(*m_pContract);
    text::CopyText(reinterpret_cast<char*>(buffer), kContractLineSize, line);
    return 0;
}

LRESULT CGoldBsDlg::OnPositionContract(WPARAM code, LPARAM) {
    if (code == 0) return 0;
    const auto* const text = reinterpret_cast<const char*>(code);
    const std::string wanted(text, ::strnlen(text, sizeof CZebContract::szContract));
    if (m_pContract != nullptr && ContractCode(*m_pContract) == wanted) return 0;
    const int item = FindItem(wanted);
    if (item >= 0) SelectItem(item);
    return 0;
}
