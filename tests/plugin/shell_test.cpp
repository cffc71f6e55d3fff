#include "tests/plugin/shell_test.h"

#include <algorithm>
#include <cstring>

#include "platform/testing/input.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/messages.h"
#include "plugin/contract/tagged_block.h"
#include "plugin/qm_gold_trade_ui_app.h"
#include "plugin/settings/process_values.h"
#include "tests/plugin/spy_parts.h"

namespace tests {

namespace {

void ResetProcessValues() {
    g_nUseProfile = 0;
    g_bNeedShowStopLossAndProfit = 0;
    g_hParentWnd = nullptr;
    g_hFrameWnd = nullptr;
    g_dAvailable = 0;
    g_dEquity = 0;
    g_dwLastActivityTick = 0;
    g_strReportChallenge.clear();
}

std::string WindowText(HWND window) {
    std::string text(static_cast<std::size_t>(::GetWindowTextLengthA(window)) + 1, '\0');
    text.resize(static_cast<std::size_t>(
        ::GetWindowTextA(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

struct BoxContent {
    std::string text;
    std::string buttons;
    HICON icon = nullptr;
};

BOOL CALLBACK ReadContent(HWND child, LPARAM lParam) {
    auto& content = *reinterpret_cast<BoxContent*>(lParam);
    char name[16] = "";
    ::GetClassNameA(child, name, sizeof(name));
    const bool label = ::lstrcmpiA(name, "Static") == 0;
    const auto style = static_cast<DWORD>(::GetWindowLongA(child, GWL_STYLE));
    if (label && (style & SS_TYPEMASK) == SS_ICON) {
        content.icon = reinterpret_cast<HICON>(::SendMessageA(child, STM_GETICON, 0, 0));
    } else if (label || ::lstrcmpiA(name, "Edit") == 0) {
        content.text += WindowText(child);
    } else {
        content.buttons += "[" + WindowText(child) + "]";
    }
    return TRUE;
}

std::string IconName(HICON icon) {
    if (icon == nullptr) return "plain";
    if (icon == ::LoadIconA(nullptr, IDI_ERROR)) return "error";
    if (icon == ::LoadIconA(nullptr, IDI_INFORMATION)) return "information";
    return "another icon";
}

/// Writes down the notice that the main dialog sends itself with each order list, and that nobody
/// handles.
class WatchedMainDlg : public CMainDlg {
public:
    explicit WatchedMainDlg(std::vector<std::string>& log) : log_(log) {}

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == 0x2B11 && wParam == 0 && lParam == 0) log_.emplace_back("notice");
        return CMainDlg::WindowProc(message, wParam, lParam);
    }

private:
    std::vector<std::string>& log_;
};

/// The test whose boxes are answered.
ShellTest* g_current = nullptr;
bool g_armed = false;

}  // namespace

LRESULT HostWindow::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SESSION_LOST || message == WM_FRAME_NOTICE) {
        log_.push_back(std::string(name_) +
                       (message == WM_SESSION_LOST ? " session lost(" : " notice(") +
                       std::to_string(wParam) + ", " + std::to_string(lParam) + ")");
    }
    return CWnd::WindowProc(message, wParam, lParam);
}

ShellTest::ShellTest() {
    platform::testing::StopClock();
    EnsureStarted();
    ResetProcessValues();
    const RECT all{0, 0, 900, 500};
    frame.CreateEx(0, nullptr, "host", WS_POPUP | WS_VISIBLE, all, nullptr, 0);
    parent.CreateEx(0, nullptr, "", WS_CHILD | WS_VISIBLE, all, &frame, 0);
    g_hParentWnd = parent;
    g_hFrameWnd = frame;
    MakeShell();
    core.ForgetCalls();
    host.TakeCalls();
    g_current = this;
    Arm();
    core.on_call = [this](std::string_view line) { log.emplace_back(line); };
    log.clear();
}

void ShellTest::MakeShell() {
    shell = std::make_unique<WatchedMainDlg>(log);
    shell->Create(CMainDlg::IDD, &parent);
    shell->MoveWindow(0, 0, 900, 500);
    shell->ShowWindow(SW_SHOW);
    platform::testing::Pump();
}

ShellTest::~ShellTest() {
    g_current = nullptr;
    core.on_call = nullptr;
    if (shell) shell->DestroyPanels();
    shell.reset();
    frame.DestroyWindow();
    platform::testing::Pump();
    ResetProcessValues();
}

CPanelTradeDlg& ShellTest::AddPanel(const char* name) {
    std::unique_ptr<PanelParts> parts = MakePanelParts();
    if (name != nullptr) parts = std::make_unique<SpyParts>(name, log);
    auto* panel = new CPanelTradeDlg(std::move(parts));
    panel->Create(CPanelTradeDlg::IDD, &frame);
    panel->SetOwner(shell.get());
    shell->AddPanel(panel);
    return *panel;
}

HWND ShellTest::TicketButton(const CPanelTradeDlg& panel) {
    HWND child = ::GetWindow(panel, GW_CHILD);
    // The ticket is the only page of a panel with a spin for the volume.
    while (child != nullptr && ::GetDlgItem(child, CPanelBSDlg::kVolumeSpin) == nullptr) {
        child = ::GetWindow(child, GW_HWNDNEXT);
    }
    return ::GetDlgItem(child, CPanelBSDlg::kBuy);
}

bool ShellTest::ShowsLogin(const CPanelTradeDlg& panel) {
    const auto style = ::GetWindowLongA(::GetParent(TicketButton(panel)), GWL_STYLE);
    return (static_cast<DWORD>(style) & WS_VISIBLE) == 0;
}

CZebContract ShellTest::AddContract(const char* code, int market, int number) {
    CZebContract contract{};
    text::CopyText(contract.szExchange, "SGE");
    text::CopyText(contract.szContract, code);
    contract.nUnit = 1000;
    contract.nPriceDigits = 2;
    contract.dPriceTick = 0.01;
    core.contracts.push_back(contract);
    host.AddSymbol(code, market, number, 2);
    return contract;
}

LPARAM ShellTest::Block(std::string_view bytes, int size) {
    void* payload = AllocTaggedBlock(size);
    std::memcpy(payload, bytes.data(), bytes.size());
    return reinterpret_cast<LPARAM>(payload);
}

LPARAM ShellTest::NumberedBlock(int number, std::string_view text) {
    const std::string bytes = std::string(reinterpret_cast<const char*>(&number), 4);
    return TextBlock(bytes + std::string(text));
}

void ShellTest::SendRaw(WPARAM wParam, LPARAM lParam) {
    shell->SendMessage(WM_CORE_EVENT, wParam, lParam);
    platform::testing::Pump();
}

std::string ShellTest::TakeLog(std::initializer_list<std::string_view> words) {
    std::string taken;
    for (const std::string& line : log) {
        const bool wanted = std::any_of(words.begin(), words.end(), [&](std::string_view word) {
            return line.starts_with(word);
        });
        if (!wanted || line.starts_with("NotifyEvent(")) continue;
        taken += (taken.empty() ? "" : "; ") + line;
    }
    log.clear();
    return taken;
}

void ShellTest::Arm() {
    if (g_armed) return;
    g_armed = true;
    platform::testing::WhenIdle(OnIdle, nullptr);
}

void ShellTest::OnIdle(void*) {
    g_armed = false;
    if (g_current == nullptr) return;
    Arm();
    const HWND box = ::GetActiveWindow();
    if (box != nullptr && box != g_current->frame.GetSafeHwnd()) g_current->OnBox(box);
}

void ShellTest::OnBox(HWND box) {
    log.push_back(Describe(box));
    PressButton(box);
    if (on_box) on_box();
}

void ShellTest::PressButton(HWND box, int button) {
    ::PostMessageA(box, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                   reinterpret_cast<LPARAM>(::GetDlgItem(box, button)));
}

std::string ShellTest::Describe(HWND box) {
    BoxContent content;
    ::EnumChildWindows(box, ReadContent, reinterpret_cast<LPARAM>(&content));
    std::string line = "box \"" + content.text + "\" \"" + WindowText(box) + "\" ";
    line += IconName(content.icon) + " " + content.buttons;
    const auto style = static_cast<DWORD>(::GetWindowLongA(box, GWL_EXSTYLE));
    return (style & WS_EX_TOPMOST) != 0 ? line + " topmost" : line;
}

std::string ShellTest::TextOf(const CWnd& window, int control) {
    return WindowText(::GetDlgItem(window, control));
}

}  // namespace tests
