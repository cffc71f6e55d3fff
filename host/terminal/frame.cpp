#include "host/terminal/frame.h"

#include <algorithm>

#include "host/terminal/param_dlg.h"
#include "host/terminal/quote_record.h"
#include "host/views/quote_rules.h"
#include "platform/text/gbk.h"
#include "plugin/contract/messages.h"
#include "plugin/contract/ui_callback.h"

namespace terminal {
namespace {

constexpr UINT_PTR kClockTimer = 1;
constexpr UINT kClockMillis = 250;
constexpr int kLeastWidth = 900;
constexpr int kLeastHeight = 560;
constexpr std::size_t kLogLines = 500;
constexpr int kLogHeight = 260;
constexpr int kOrderPage = 0;
constexpr char kLostReason[] = "与交易服务器的连接已中断，请重新登录";

/// Status codes of what went wrong have none of their own: the words tell.
bool SoundsBad(const std::string& text) {
    for (const char* word : {"失败", "错误", "拒绝", "不足", "中断", "没有数据"}) {
        if (text.find(word) != std::string::npos) return true;
    }
    return false;
}

views::LogText LogTextOf(const StatusEntry& entry) {
    return {entry.time, entry.text, SoundsBad(entry.text)};
}

int SignOf(const std::string& figure) {
    const double value = std::strtod(figure.c_str(), nullptr);
    return value > 0 ? 1 : value < 0 ? -1 : 0;
}

/// "1234567.80" as "1,234,567.80"; anything that is no such number as it is.
std::string Grouped(const std::string& figure) {
    const std::size_t first = !figure.empty() && figure[0] == '-' ? 1 : 0;
    const std::size_t point = std::min(figure.find('.'), figure.size());
    if (point <= first || figure.find_first_not_of("0123456789", first) != point) return figure;
    std::string grouped = figure;
    for (std::size_t at = point; at > first + 3;) {
        at -= 3;
        grouped.insert(at, ",");
    }
    return grouped;
}

}  // namespace

BEGIN_MESSAGE_MAP(Frame, CWnd)
    ON_WM_CREATE()
    ON_WM_SIZE()
    ON_WM_ERASEBKGND()
    ON_WM_DESTROY()
    ON_WM_TIMER()
    ON_MESSAGE(WM_CLOSE, &Frame::OnClose)
    ON_MESSAGE(WM_GETMINMAXINFO, &Frame::OnMinMax)
    ON_MESSAGE(WM_QUOTES_WAIT, &Frame::OnQuotesWait)
    ON_MESSAGE(WM_STATUS_WAITS, &Frame::OnStatusWaits)
    ON_MESSAGE(WM_CORE_WAITS, &Frame::OnCoreWaits)
    ON_MESSAGE(WM_COMMAND_WAITS, &Frame::OnCommandWaits)
    ON_MESSAGE(WM_SESSION_LOST, &Frame::OnSessionLostMessage)
    ON_MESSAGE(WM_FRAME_NOTICE, &Frame::OnFrameNotice)
    ON_MESSAGE(WM_LOCK_PANEL, &Frame::OnLockPanel)
END_MESSAGE_MAP()

Frame::Frame(CBaseUI& front_end, CUICallBack& core, const SymbolTable& symbols, QuoteBoard& quotes,
             StatusLog& log, FrameSources sources, Remembered& remembered)
    : front_end_(front_end),
      core_(core),
      symbols_(symbols),
      quotes_(quotes),
      log_(log),
      sources_(std::move(sources)),
      remembered_(remembered),
      pages_(front_end) {}

Frame::~Frame() { DestroyWindow(); }

BOOL Frame::CreateFrame(const std::string& hint) {
    hint_ = hint;
    RECT work{};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &work, 0);
    const int wide = work.right - work.left;
    const int high = work.bottom - work.top;
    const bool known = remembered_.width > 0 && remembered_.height > 0;
    maximised_ = remembered_.maximised || !known;
    const int width =
        known ? std::min(std::max(remembered_.width, kLeastWidth), wide) : wide * 7 / 8;
    const int height =
        known ? std::min(std::max(remembered_.height, kLeastHeight), high) : high * 7 / 8;
    const int left = work.left + (wide - width) / 2;
    const int top = work.top + (high - height) / 2;
    const LPCSTR window_class = AfxRegisterWndClass(0, LoadCursorA(nullptr, IDC_ARROW), nullptr);
    if (!CreateEx(0, window_class, "goldterm - 模拟交易", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                  left, top, width, height, nullptr, nullptr)) {
        return FALSE;
    }
    pages_.ShowPage(remembered_.page);
    SelectSymbol(std::max(symbols_.IndexOf(text::GbkFromUtf8(remembered_.contract)), 0));
    SetTimer(kClockTimer, kClockMillis, nullptr);
    UpdateClock();
    return TRUE;
}

void Frame::Appear() {
    ShowWindow(maximised_ ? SW_SHOWMAXIMIZED : SW_SHOW);
    UpdateWindow();
}

int Frame::OnCreate(LPCREATESTRUCT create) {
    if (CWnd::OnCreate(create) == -1 || !MakeChildren()) return -1;
    ConnectChildren();
    SetLook(remembered_.look);
    Arrange();
    return pages_.CreatePages(GetSafeHwnd()) ? 0 : -1;
}

BOOL Frame::MakeChildren() {
    // The log comes first: it is above the others.
    const bool made =
        log_list_.CreateView(this, kLogListId) && top_bar_.CreateView(this, kTopBarId) &&
        quote_list_.CreateView(this, kQuoteListId) && chart_.CreateView(this, kChartId) &&
        depth_.CreateView(this, kDepthId) && detail_.CreateView(this, kDetailId) &&
        log_line_.CreateView(this, kLogLineId) && quotes_split_.CreateView(this, kQuotesSplitId) &&
        depth_split_.CreateView(this, kDepthSplitId) &&
        pages_split_.CreateView(this, kPagesSplitId) && pages_.CreatePane(this, kPagesPaneId) &&
        sign_in_.CreateHidden(this);
    if (made) log_list_.ShowWindow(SW_HIDE);
    return made;
}

void Frame::ConnectChildren() {
    std::vector<views::QuoteList::Contract> contracts;
    for (const Symbol& symbol : symbols_.All())
        contracts.push_back({symbol.contract, symbol.digits});
    quote_list_.SetContracts(std::move(contracts));
    quote_list_.SetColumnWidths(remembered_.quote_columns);
    quote_list_.on_select = [this](int symbol) { SelectSymbol(symbol); };
    chart_.SetPeriod(remembered_.chart_period);
    chart_.on_period = [this](int) { UpdateChart(); };
    top_bar_.on_account = [this] {
        if (!core_.IsLoggedIn()) OpenSignIn({});
    };
    top_bar_.on_settings = [this] { EditSettings(); };
    log_line_.on_press = [this] { ToggleLog(); };
    log_list_.on_hide = [this] { log_line_.SetOpen(false); };
    quotes_split_.on_drag = [this](int delta) { DragSplit(&PaneSizes::quotes_width, delta); };
    depth_split_.on_drag = [this](int delta) { DragSplit(&PaneSizes::depth_width, -delta); };
    pages_split_.on_drag = [this](int delta) { DragSplit(&PaneSizes::pages_height, -delta); };
    sign_in_.on_sign_in = [this](const std::string& account, const std::string& password) {
        remembered_.account = text::Utf8FromGbk(account);
        sign_in_.SetBusy(true);
        sign_in_.SetMessage("正在登录…");
        views::TopBarState state = top_bar_.state();
        state.connection = views::Connection::kConnecting;
        top_bar_.Set(state);
        sources_.sign_in(account, password);
    };
}

void Frame::SetLook(Look look) {
    remembered_.look = look;
    palette_ = look == Look::kLight ? &skin::kLight : &skin::kDark;
    for (views::View* view : std::initializer_list<views::View*>{
             &top_bar_, &quote_list_, &chart_, &depth_, &detail_, &log_line_, &log_list_,
             &quotes_split_, &depth_split_, &pages_split_}) {
        view->SetPalette(*palette_);
    }
}

void Frame::OnSize(UINT kind, int width, int height) {
    CWnd::OnSize(kind, width, height);
    if (kind == SIZE_MINIMIZED || !pages_.GetSafeHwnd()) return;
    Arrange();
}

void Frame::Arrange() {
    CRect client;
    GetClientRect(&client);
    const LeftColumn left{quote_list_.WholeHeight(),
                          views::DetailView::LeastHeight(remembered_.sizes.quotes_width)};
    const FrameLayout layout =
        ArrangeFrame({client.Width(), client.Height()}, 0, left, remembered_.sizes);
    const struct {
        CWnd& window;
        const RECT& place;
    } places[] = {{top_bar_, layout.top},   {quote_list_, layout.quotes},
                  {detail_, layout.detail}, {quotes_split_, layout.quotes_split},
                  {chart_, layout.chart},   {depth_split_, layout.depth_split},
                  {depth_, layout.depth},   {pages_split_, layout.pages_split},
                  {pages_, layout.pages},   {log_line_, layout.status}};
    for (const auto& [window, place] : places) window.MoveWindow(&place);
    log_list_.Hide();
}

void Frame::DragSplit(int PaneSizes::*size, int delta) {
    remembered_.sizes.*size += delta;
    Arrange();
}

void Frame::OnTimer(UINT_PTR timer) {
    CWnd::OnTimer(timer);
    if (timer == kClockTimer) UpdateClock();
}

void Frame::UpdateClock() {
    const ClockTexts clock = sources_.clock();
    views::TopBarState state = top_bar_.state();
    if (state.clock == clock.time && state.phase == clock.phase && state.speed == clock.speed) {
        return;
    }
    state.clock = clock.time;
    state.phase = clock.phase;
    state.speed = clock.speed;
    top_bar_.Set(state);
}

void Frame::UpdateChart() {
    const int symbol = CurrentSymbol();
    if (symbol < 0) return;
    chart_.SetCandles(sources_.candles(symbol, chart_.Period()));
}

void Frame::RefreshMarks() {
    if (CurrentSymbol() >= 0) chart_.SetMarks(sources_.marks(CurrentSymbol()));
}

void Frame::SelectSymbol(int symbol) {
    if (symbol < 0 || static_cast<std::size_t>(symbol) >= symbols_.All().size()) return;
    const Symbol& chosen = symbols_.All()[static_cast<std::size_t>(symbol)];
    quote_list_.Select(symbol);
    remembered_.contract = text::Utf8FromGbk(chosen.contract);
    const papercore::Quote quote = quotes_.Latest(symbol);
    depth_.SetContract(chosen.contract, chosen.digits);
    depth_.SetQuote(quote);
    depth_.SetTrades(sources_.trades(symbol));
    const papercore::ContractTerms* terms = sources_.terms(symbol);
    ShowTerms(symbol, quote.trading_day);
    detail_.SetQuote(quote);
    chart_.SetContract(chosen.contract, chosen.digits, terms ? terms->tick : papercore::Price{1});
    chart_.SetReference(views::Reference(quote));
    UpdateChart();
    RefreshMarks();
    front_end_.CurStkChanged(chosen.market, chosen.code, 0);
}

void Frame::ShowTerms(int symbol, papercore::Day day) {
    const Symbol& shown = symbols_.All()[static_cast<std::size_t>(symbol)];
    detail_.SetContract(shown.contract, shown.digits, sources_.terms(symbol));
    terms_day_ = day;
}

LRESULT Frame::OnQuotesWait(WPARAM, LPARAM) {
    quotes_.Take([this](int index, const papercore::Quote& quote) {
        quote_list_.SetQuote(index, quote);
        if (index == CurrentSymbol()) {
            depth_.SetQuote(quote);
            if (quote.trading_day != terms_day_) ShowTerms(index, quote.trading_day);
            detail_.SetQuote(quote);
            depth_.SetTrades(sources_.trades(index));
            chart_.SetReference(views::Reference(quote));
            UpdateChart();
        }
        PushQuote(index, quote);
    });
    UpdateClock();
    return 0;
}

LRESULT Frame::OnStatusWaits(WPARAM, LPARAM) {
    const std::vector<StatusEntry> newest = log_.Newest(kLogLines);
    if (newest.empty()) return 0;
    log_line_.Set(LogTextOf(newest.back()));
    if (!log_list_.IsWindowVisible()) return 0;
    std::vector<views::LogText> lines;
    std::ranges::transform(newest, std::back_inserter(lines), LogTextOf);
    log_list_.Set(std::move(lines));
    return 0;
}

LRESULT Frame::OnCoreWaits(WPARAM, LPARAM) {
    if (on_core_waits) on_core_waits();
    return 0;
}

LRESULT Frame::OnCommandWaits(WPARAM, LPARAM) {
    if (on_command) on_command();
    return 0;
}

void Frame::ToggleLog() {
    if (log_list_.IsWindowVisible()) {
        log_list_.Hide();
        return;
    }
    CRect line;
    log_line_.GetWindowRect(&line);
    ScreenToClient(&line);
    std::vector<views::LogText> lines;
    std::ranges::transform(log_.Newest(kLogLines), std::back_inserter(lines), LogTextOf);
    log_list_.Set(std::move(lines));
    log_line_.SetOpen(true);
    log_list_.ShowAbove(CPoint(line.left, line.top), CSize(line.Width(), kLogHeight));
}

void Frame::OpenSignIn(const std::string& message) {
    sign_in_.Open(text::GbkFromUtf8(remembered_.account), message, hint_);
}

void Frame::OnProgress(const std::string& text) {
    if (sign_in_.IsWindowVisible() && !text.empty()) sign_in_.SetMessage(text);
}

void Frame::OnSignInRefused(const std::string& reason) {
    views::TopBarState state = top_bar_.state();
    state.connection = views::Connection::kSignedOut;
    top_bar_.Set(state);
    OpenSignIn(reason);
}

void Frame::OnSessionReady() {
    sign_in_.Close();
    views::TopBarState state = top_bar_.state();
    state.connection = views::Connection::kConnected;
    top_bar_.Set(state);
    const int symbol = std::max(CurrentSymbol(), 0);
    if (static_cast<std::size_t>(symbol) < symbols_.All().size()) {
        const Symbol& chosen = symbols_.All()[static_cast<std::size_t>(symbol)];
        front_end_.CurStkChanged(chosen.market, chosen.code, 0);
    }
    PushWantedQuotes();
    RefreshMarks();
}

// In a quiet market the next quote may be long in coming.
void Frame::PushWantedQuotes() {
    // Long and short positions count each, and the order page's contract.
    std::vector<unsigned> keys(2 * symbols_.All().size() + 1);
    const int count = front_end_.GetStkList(keys.data(), static_cast<int>(keys.size()));
    keys.resize(static_cast<std::size_t>(std::clamp<int>(count, 0, static_cast<int>(keys.size()))));
    for (const unsigned key : keys) {
        const int index = symbols_.IndexOfKey(key);
        const papercore::Quote quote = quotes_.Latest(index);
        if (index >= 0 && quote.time != 0) PushQuote(index, quote);
    }
}

void Frame::PushQuote(int index, const papercore::Quote& quote) {
    const Symbol& symbol = symbols_.All()[static_cast<std::size_t>(index)];
    const JSDyn1 record = RecordOf(quote);
    front_end_.OnDyn(symbol.market, symbol.code, &record);
}

void Frame::OnSessionLost() {
    views::TopBarState state;
    state.connection = views::Connection::kLost;
    top_bar_.Set(state);
    UpdateClock();
    chart_.SetMarks({});
    OpenSignIn(lost_reason_.empty() ? kLostReason : lost_reason_);
    lost_reason_.clear();
}

LRESULT Frame::OnSessionLostMessage(WPARAM, LPARAM lParam) {
    if (lParam == kModuleNumber) OnSessionLost();
    return 0;
}

LRESULT Frame::OnFrameNotice(WPARAM wParam, LPARAM) {
    if (wParam == kFrameLoginWanted && !core_.IsLoggedIn()) OpenSignIn({});
    return 0;
}

LRESULT Frame::OnLockPanel(WPARAM wParam, LPARAM) {
    if (wParam == 0) front_end_.LockScreen(0);
    return 0;
}

void Frame::SetAccountName(const std::string& name) {
    views::TopBarState state = top_bar_.state();
    state.account = name;
    top_bar_.Set(state);
}

void Frame::SetFunds(const std::string& equity, const std::string& available,
                     const std::string& profit) {
    views::TopBarState state = top_bar_.state();
    state.equity = Grouped(equity);
    state.available = Grouped(available);
    state.profit_sign = SignOf(profit);
    state.profit = (state.profit_sign > 0 ? "+" : "") + Grouped(profit);
    top_bar_.Set(state);
}

void Frame::ShowPage(int page) {
    pages_.ShowPage(page);
    remembered_.page = pages_.Page();
}

void Frame::EditSettings() {
    CTradeParam param{};
    core_.GetTradeParam(&param);
    ParamDlg dialog(this);
    dialog.choices = ChoicesOf(param);
    if (dialog.DoModal() != IDOK) return;
    // The dialog ran a loop of its own: others may have stored parameters meanwhile.
    core_.GetTradeParam(&param);
    StoreChoices(dialog.choices, param);
    core_.SetTradeParam(&param);
    if (pages_.MainWindow()) ::SendMessageA(pages_.MainWindow(), WM_TRADE_PARAM_CHANGED, 1, 0);
}

void Frame::ShowHelp() {
    CDialog help(kHelpDialog, this);
    help.DoModal();
}

void Frame::Refresh() {
    if (!core_.IsLoggedIn()) return;
    front_end_.OnRefresh();
    core_.QueryAccount(0);
}

bool Frame::HandleKey(const MSG& message) {
    if (message.message != WM_KEYDOWN || !IsWindowEnabled()) return false;
    const bool control = GetKeyState(VK_CONTROL) < 0;
    const WPARAM key = message.wParam;
    if (control && key >= '1' && key <= '6') {
        ShowPage(PagesPane::Entries()[key - '1'].page);
        return true;
    }
    if (control) return false;
    switch (key) {
        case VK_F1: ShowHelp(); return true;
        case VK_F5: Refresh(); return true;
        case VK_F9:
            ShowPage(kOrderPage);
            pages_.FocusOrderPage();
            return true;
        default: return false;
    }
}

void Frame::Remember() {
    remembered_.quote_columns = quote_list_.ColumnWidths();
    remembered_.chart_period = chart_.Period();
    remembered_.page = std::max(pages_.Page(), 0);
    remembered_.maximised = IsZoomed(GetSafeHwnd()) != FALSE;
    if (remembered_.maximised || IsIconic(GetSafeHwnd())) return;
    CRect place;
    GetWindowRect(&place);
    remembered_.width = place.Width();
    remembered_.height = place.Height();
}

LRESULT Frame::OnMinMax(WPARAM, LPARAM lParam) {
    auto* limits = reinterpret_cast<MINMAXINFO*>(lParam);
    limits->ptMinTrackSize = {kLeastWidth, kLeastHeight};
    return 0;
}

LRESULT Frame::OnClose(WPARAM, LPARAM) {
    Remember();
    DestroyWindow();
    return 0;
}

void Frame::OnDestroy() {
    KillTimer(kClockTimer);
    front_end_.Close();
    pages_.DestroyPages();
    CWnd::OnDestroy();
    if (on_gone) on_gone();
}

}  // namespace terminal
