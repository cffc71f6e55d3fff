#include "host/goldterm/terminal.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "host/automation/line_reader.h"
#include "host/automation/window_search.h"
#include "host/market/replay.h"
#include "host/market/simulator.h"
#include "host/terminal/data_folder.h"
#include "host/terminal/mark_rules.h"
#include "host/terminal/quote_record.h"
#include "papercore/password.h"
#include "papercore/records.h"
#include "papercore/store.h"
#include "papercore/texts.h"
#include "platform/testing/input.h"
#include "platform/testing/sight.h"
#include "platform/text/bounded_text.h"
#include "platform/text/gbk.h"
#include "plugin/contract/host_function.h"
#include "plugin/contract/messages.h"

namespace terminal {
namespace {

namespace fs = std::filesystem;

constexpr char kRememberedFile[] = "goldterm.json";
constexpr char kTermsFile[] = "contract_terms.json";
constexpr char kAccountFile[] = "account.db";
constexpr char kDemo[] = "demo";
constexpr papercore::Instant kManualStart = 1'772'442'000'000;  // 2026-03-02 09:00:00

Terminal* g_terminal = nullptr;

std::string ReadAll(const std::string& path, std::string& content) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return "cannot read " + path;
    content.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    return {};
}

// The second press of a double click is one too.
bool IsPress(UINT message) {
    constexpr UINT kPresses[] = {WM_LBUTTONDOWN,   WM_LBUTTONDBLCLK, WM_RBUTTONDOWN,
                                 WM_RBUTTONDBLCLK, WM_NCLBUTTONDOWN, WM_NCLBUTTONDBLCLK,
                                 WM_NCRBUTTONDOWN, WM_MBUTTONDOWN};
    return std::ranges::find(kPresses, message) != std::end(kPresses);
}

int ReadUseProfile() {
    return GetPrivateProfileIntA("gtserver", "useProfile", 0, ".\\TradeServer_KX_Gold.ini");
}

}  // namespace

Terminal::Terminal(Options options) : options_(std::move(options)) { g_terminal = this; }

Terminal::~Terminal() {
    Close();
    g_terminal = nullptr;
}

ULONG_PTR CALLBACK Terminal::HostCall(UINT message, WPARAM wParam, LPARAM lParam) {
    return g_terminal ? g_terminal->Answer(message, wParam, lParam) : 1;
}

std::string Terminal::Open() {
    for (const auto step : {&Terminal::OpenFolders, &Terminal::OpenTerms, &Terminal::OpenAccount,
                            &Terminal::OpenMarket}) {
        const std::string fault = (this->*step)();
        if (!fault.empty()) return fault;
    }
    return {};
}

std::string Terminal::OpenFolders() {
    data_folder_ = options_.config_folder.empty() ? UserFolder() : options_.config_folder;
    if (data_folder_.empty()) return "there is no folder for data: give one with --config DIR";
    if (options_.config_folder.empty()) {
        const std::string fault = FillFolder(data_folder_, SampleFolder());
        if (!fault.empty()) return fault;
    }
    std::error_code error;
    fs::current_path(data_folder_, error);
    if (error) return "cannot use the folder " + data_folder_;
    if (!options_.shots_folder.empty()) {
        fs::create_directories(options_.shots_folder, error);
        if (error) return "cannot make the folder " + options_.shots_folder;
    }
    const std::string path = (fs::path(data_folder_) / kRememberedFile).string();
    if (!ReadRemembered(path, remembered_)) {
        log_.Add("", kStatusPlain, "界面设置文件无法读取，使用默认布局");
    }
    if (options_.look_given) remembered_.look = options_.look;
    return {};
}

std::string Terminal::OpenTerms() {
    const std::string path = (fs::path(data_folder_) / kTermsFile).string();
    std::string content;
    std::string fault = ReadAll(path, content);
    if (!fault.empty()) return fault;
    fault = terms_.Parse(content);
    return fault.empty() ? fault : path + ": " + fault;
}

std::string Terminal::OpenMarket() {
    std::unique_ptr<market::Source> source;
    if (options_.feed == FeedKind::kReplay) {
        const std::string contract = text::GbkFromUtf8(options_.replay_as);
        auto file = std::make_unique<std::ifstream>(options_.replay_file, std::ios::binary);
        if (!*file) return "cannot read " + options_.replay_file;
        const auto report = [this](std::size_t line, const std::string& fault) {
            log_.Add("", kStatusPlain,
                     "回放文件第 " + std::to_string(line) + " 行跳过：" + text::GbkFromUtf8(fault));
        };
        market::ReplayOptions replay;
        replay.contract = contract;
        if (options_.yuan_per_currency > 0) {
            replay.price_factor = market::OunceFactor(options_.yuan_per_currency);
        }
        auto made = std::make_unique<market::Replay>(std::move(file), replay, terms_, report);
        if (!made->Fault().empty()) return options_.replay_file + ": " + made->Fault();
        source = std::move(made);
    } else if (options_.feed == FeedKind::kSimulator) {
        market::SimulatorOptions simulator;
        simulator.seed = options_.seed;
        // The account's time never goes back.
        simulator.first_day = std::max(simulator.first_day, account_day_);
        source = std::make_unique<market::Simulator>(terms_, simulator);
    } else {
        source = std::make_unique<market::ManualSource>(kManualStart);
    }
    market_ = std::make_unique<market::Market>(std::move(source));
    market_->SetSpeed(options_.speed);
    symbols_ = SymbolTable(terms_, market_->TradingDay());
    return {};
}

// The former account stays beside it, under another name.
std::string Terminal::ResetAccount(const std::string& path) {
    std::error_code error;
    if (!fs::exists(path, error)) return {};
    std::string fault;
    papercore::OpenStore(path, fault);
    if (fault == papercore::kInUse) return path + ": " + fault;
    std::fprintf(stderr,
                 "goldterm: %s will be put aside and a new account made. Type yes: ", path.c_str());
    char answer[16] = "";
    const bool sure = std::fgets(answer, sizeof answer, stdin) && std::string(answer) == "yes\n";
    if (!sure) return "the account stays as it is";
    std::string aside = path + ".before";
    for (int number = 2; fs::exists(aside, error); ++number) {
        aside = path + ".before" + std::to_string(number);
    }
    for (const char* tail : {"", "-wal", "-shm"}) {
        if (fs::exists(path + tail, error)) fs::rename(path + tail, aside + tail, error);
        if (error) return "cannot move " + path + tail;
    }
    return {};
}

std::string Terminal::OpenAccount() {
    const std::string path = options_.account_file.empty()
                                 ? (fs::path(data_folder_) / kAccountFile).string()
                                 : options_.account_file;
    std::string fault = options_.reset_account ? ResetAccount(path) : std::string();
    if (!fault.empty()) return fault;
    std::unique_ptr<papercore::Store> store = papercore::OpenStore(path, fault);
    if (!store) return path + ": " + fault;
    papercore::State state;
    fault = store->Load(state);
    if (!fault.empty()) return path + ": " + fault;
    papercore::CoreParts parts{terms_, nullptr, {}, papercore::PasswordHash, papercore::NewSalt};
    front_end_counts_ = ReadUseProfile() == 1;
    parts.settings.front_end_counts_profit = front_end_counts_;
    new_account_ = state.login.account.empty();
    if (new_account_) {
        const std::string salt = papercore::NewSalt();
        const papercore::Fact created = papercore::AccountCreated{
            {kDemo, salt, papercore::PasswordHash(kDemo, salt)}, parts.settings.starting_funds};
        fault = store->Append({&created, 1});
        if (!fault.empty()) return path + ": " + fault;
        papercore::Apply(state, created);
    }
    parts.store = std::move(store);
    account_day_ = state.day;
    core_ =
        std::make_unique<TerminalCore>(std::move(parts), std::move(state), log_, options_.scale);
    return {};
}

bool Terminal::Show() {
    if (options_.automation) platform::testing::RememberTexts();
    front_end_ = std::make_unique<QmInterfaceUI>();
    CBaseUI& ui = *front_end_;
    QmInterfaceUI::SetCallBack(&HostCall);
    ui.SetUICallBack(core_.get());
    core_->SetFrontEnd(&ui);
    quotes_ = std::make_unique<QuoteBoard>(symbols_.All().size(), [this] {
        if (frame_) ::PostMessageA(frame_->GetSafeHwnd(), WM_QUOTES_WAIT, 0, 0);
    });
    frame_ = std::make_unique<Frame>(ui, *core_, symbols_, *quotes_, log_, Sources(), remembered_);
    frame_->on_core_waits = [this] { TakeCoreNews(); };
    frame_->on_gone = [] { PostQuitMessage(0); };
    const bool demo_only = new_account_;
    const std::string hint = demo_only
                                 ? "已建立演示账户：账户 demo，密码 demo，起始资金 1,000,000.00 元"
                                 : "模拟账户，不涉及真实资金";
    if (!frame_->CreateFrame(hint)) return false;
    frame_->Appear();
    core_->SetClock([this] { return Clock().time.substr(11); });
    core_->SetWake([this] { ::PostMessageA(frame_->GetSafeHwnd(), WM_CORE_WAITS, 0, 0); });
    log_.SetWake([this] { ::PostMessageA(frame_->GetSafeHwnd(), WM_STATUS_WAITS, 0, 0); });
    market_->Subscribe({[this](const papercore::Quote& quote) {
                            core_->OnQuote(quote);
                            quotes_->Put(symbols_.IndexOf(quote.contract), quote);
                        },
                        [this](const papercore::DayEnd& end) { core_->OnDayEnd(end); }});
    feed_ = std::make_unique<Feed>(*market_);
    core_->Start();
    if (!options_.manual_clock) feed_->Start();
    if (options_.automation) {
        automation_ = std::make_unique<automation::Automation>(Doors());
        frame_->on_command = [this] { automation_->Wake(); };
        gate_ = std::make_shared<CommandGate>();
        gate_->automation = automation_.get();
        automation::ReadLines(
            stdin,
            [gate = gate_](std::string line) {
                const std::scoped_lock lock(gate->mutex);
                if (gate->automation) gate->automation->Put(std::move(line));
            },
            [gate = gate_] {
                const std::scoped_lock lock(gate->mutex);
                if (gate->automation) gate->automation->PutEnd();
            });
    }
    ::PostMessageA(frame_->GetSafeHwnd(), WM_STATUS_WAITS, 0, 0);
    frame_->OpenSignIn({});
    return true;
}

bool Terminal::Translate(const MSG& message) {
    if (IsPress(message.message) && front_end_)
        static_cast<CBaseUI&>(*front_end_).gMouseDown(message.pt);
    return frame_ && frame_->GetSafeHwnd() && frame_->HandleKey(message);
}

void Terminal::Close() {
    if (closed_ || !core_) return;
    closed_ = true;
    if (gate_) {
        const std::scoped_lock lock(gate_->mutex);
        gate_->automation = nullptr;
    }
    if (feed_) feed_->Stop();
    // A push may wait for this thread's windows.
    core_->Stop([] { platform::testing::Pump(); });
    WriteRemembered((fs::path(data_folder_) / kRememberedFile).string(), remembered_);
    frame_.reset();
    front_end_.reset();
    QmInterfaceUI::SetCallBack(nullptr);
}

FrameSources Terminal::Sources() {
    const auto contract = [this](int symbol) {
        return symbols_.All()[static_cast<std::size_t>(symbol)].contract;
    };
    FrameSources sources;
    sources.candles = [this, contract](int symbol, int minutes) {
        std::vector<views::Candle> candles;
        for (const market::Bar& bar : market_->Bars(contract(symbol), minutes)) {
            candles.push_back({bar.time, bar.open, bar.high, bar.low, bar.close, bar.volume});
        }
        return candles;
    };
    sources.trades = [this, contract](int symbol) {
        std::vector<views::TapeTrade> tape;
        papercore::Price before = 0;
        for (const market::Trade& trade : market_->RecentTrades(contract(symbol))) {
            const int side = before == 0 || trade.price == before ? 0
                             : trade.price > before               ? 1
                                                                  : -1;
            tape.push_back({trade.time, trade.price, trade.volume, side});
            before = trade.price;
        }
        std::ranges::reverse(tape);
        return tape;
    };
    sources.terms = [this, contract](int symbol) {
        return terms_.Find(contract(symbol), market_->TradingDay());
    };
    sources.marks = [this, contract](int symbol) {
        if (!core_->IsLoggedIn()) return std::vector<views::ChartMark>();
        const papercore::ContractTerms* terms =
            terms_.Find(contract(symbol), market_->TradingDay());
        return MarksOf(core_->Look(), contract(symbol), terms ? terms->tick : 1);
    };
    sources.clock = [this] { return Clock(); };
    sources.sign_in = [this](const std::string& account, const std::string& password) {
        core_->Login(account.c_str(), password.c_str(), nullptr, nullptr);
    };
    return sources;
}

ClockTexts Terminal::Clock() const {
    constexpr std::size_t kTimeLength = 19;
    const std::string text = market_->ClockText();
    ClockTexts clock;
    clock.time = text.substr(0, kTimeLength);
    if (text.size() > kTimeLength + 1) clock.phase = text.substr(kTimeLength + 1);
    const double speed = market_->Speed();
    if (market_->AtEnd()) {
        clock.speed = "回放结束";
    } else if (speed == market::kMaximumSpeed) {
        clock.speed = "最快";
    } else if (speed == 0) {
        clock.speed = "单步";
    } else if (speed != 1) {
        char times[32];
        text::FormatText(times, sizeof times, "×%g", speed);
        clock.speed = times;
    }
    return clock;
}

void Terminal::TakeCoreNews() {
    const CoreNews news = core_->TakeNews();
    if (!news.progress.empty()) frame_->OnProgress(news.progress);
    if (!news.lost.empty()) frame_->SetLostReason(news.lost);
    if (news.refused) frame_->OnSignInRefused(news.reason);
    if (!core_->IsLoggedIn()) return;
    frame_->SetAccountName(news.account);
    if (news.ready) {
        frame_->OnSessionReady();
        core_->Report("登录成功");
    }
    if (news.funds || news.ready) ShowFunds(news.funds_text);
    if (news.lists || news.ready) frame_->RefreshMarks();
}

// The front end works the figures out only with its margin profile on.
void Terminal::ShowFunds(const std::string& front_end_text) {
    const std::size_t first = front_end_text.find('|');
    const std::size_t second = front_end_text.find('|', first + 1);
    if (front_end_counts_ && first != std::string::npos && second != std::string::npos) {
        const std::size_t third = front_end_text.find('|', second + 1);
        frame_->SetFunds(front_end_text.substr(0, first),
                         front_end_text.substr(first + 1, second - first - 1),
                         front_end_text.substr(second + 1, third - second - 1));
        return;
    }
    const papercore::Funds funds = core_->Look().funds;
    frame_->SetFunds(papercore::PlainMoneyText(funds.balance),
                     papercore::PlainMoneyText(funds.available),
                     papercore::PlainMoneyText(funds.open_profit));
}

}  // namespace terminal
