#include <sqlite3.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>

#include "bench/ratio.h"
#include "papercore/store.h"
#include "platform/text/bounded_text.h"
#include "tests/papercore/paper_core_fixture.h"

namespace {

namespace fs = std::filesystem;

using namespace papercore_tests;

void Require(bool holds) {
    if (!holds) std::abort();
}

/// A folder on a disk: the one for temporary files may be memory.
class Folder {
public:
    Folder() { Require(fs::create_directory(path_)); }
    ~Folder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    std::string File(const char* name) const { return (path_ / name).string(); }

private:
    fs::path path_ = "/var/tmp/insert_bench_" +
                     std::to_string(std::chrono::steady_clock::now().time_since_epoch().count());
};

/// Only knows when an order is answered.
class Answers final : public RecordingUi {
public:
    void OnOrderChange(const CAccountInfo*, CZebOrder*) override {}
    void OnUpdateOrderList(const CAccountInfo*) override {}
    void OnQueryAccountResult(const CAccountInfo*, CZebError*, CZebAccountSummary*, int,
                              const StepDataMap&) override {}
    void OnInsertOrderResult(const CAccountInfo*, CZebError* error, CInsertOrderRequest*,
                             int) override {
        Require(error->nCode == 0);
        ++answered_;
        answered_.notify_one();
    }
    void Await(int answers) const {
        for (int seen = answered_; seen < answers; seen = answered_) answered_.wait(seen);
    }

private:
    std::atomic<int> answered_ = 0;
};

/// A core that keeps its account in a file, and orders that rest in it.
class Account {
public:
    explicit Account(const std::string& path) {
        std::string fault;
        std::unique_ptr<Store> store = OpenStore(path, fault);
        Require(store != nullptr);
        State state;
        Require(store->Load(state).empty());
        EngineSettings settings;
        settings.starting_funds = 100'000'000'000'000;
        CoreParts parts{SampleTerms(), std::move(store), settings, {}, {}};
        parts.hash = [](std::string_view password, std::string_view) {
            return std::string(password);
        };
        parts.make_salt = [] { return std::string("salt"); };
        core_ = std::make_unique<TestCore>(std::move(parts), std::move(state));
        core_->SetFrontEnd(&answers_);
        core_->Start();
        core_->Login("bench", "secret", nullptr, nullptr);
        core_->OnQuote(GoldQuote(899.99, 900.00));
        while (!core_->IsQuiet()) std::this_thread::yield();
        text::CopyText(order_.szExchange, "SGE");
        text::CopyText(order_.szContract, kGold);
        text::CopyText(order_.szPrice, "890.00");
        order_.cDirection = order_.cOffset = order_.cOrderType = '0';
        order_.cHedge = '1';
        order_.nVolume = 1;
    }
    void Insert() {
        core_->InsertOrder(&order_, nullptr, 6, 1);
        answers_.Await(++sent_);
    }

private:
    Answers answers_;
    CInsertOrderRequest order_{};
    int sent_ = 0;
    std::unique_ptr<TestCore> core_;
};

/// The row that the journal gets for such an order.
std::string RowOf(const std::string& path) {
    std::string fault;
    std::unique_ptr<Store> store = OpenStore(path, fault);
    Require(store != nullptr);
    std::string last;
    Require(store->Export([&](std::string_view line) { last = line; }).empty());
    Require(last.find("order_accepted") != std::string::npos);
    return last;
}

/// SQLite alone, set up as the account's file is.
class Rows {
public:
    Rows(const std::string& path, std::string row) : row_(std::move(row)) {
        Require(sqlite3_open(path.c_str(), &database_) == SQLITE_OK);
        Do("PRAGMA locking_mode=EXCLUSIVE; PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL;"
           "CREATE TABLE journal(seq INTEGER PRIMARY KEY, line TEXT NOT NULL, sum INTEGER)");
        insert_ = Prepare("INSERT INTO journal(line, sum) VALUES(?, ?)");
        begin_ = Prepare("BEGIN IMMEDIATE");
        commit_ = Prepare("COMMIT");
    }
    ~Rows() {
        for (sqlite3_stmt* statement : {insert_, begin_, commit_}) sqlite3_finalize(statement);
        sqlite3_close(database_);
    }
    Rows(const Rows&) = delete;
    Rows& operator=(const Rows&) = delete;

    void Commit() {
        Step(begin_);
        sqlite3_bind_text64(insert_, 1, row_.data(), row_.size(), SQLITE_STATIC, SQLITE_UTF8);
        sqlite3_bind_int64(insert_, 2, kAnySum);
        Step(insert_);
        Step(commit_);
    }

private:
    static constexpr std::int64_t kAnySum = 0x7123456789ABCDEF;

    void Do(const char* sql) {
        Require(sqlite3_exec(database_, sql, nullptr, nullptr, nullptr) == SQLITE_OK);
    }
    sqlite3_stmt* Prepare(const char* sql) {
        sqlite3_stmt* statement = nullptr;
        Require(sqlite3_prepare_v2(database_, sql, -1, &statement, nullptr) == SQLITE_OK);
        return statement;
    }
    static void Step(sqlite3_stmt* statement) {
        Require(sqlite3_step(statement) == SQLITE_DONE);
        sqlite3_reset(statement);
    }

    std::string row_;
    sqlite3* database_ = nullptr;
    sqlite3_stmt* insert_ = nullptr;
    sqlite3_stmt* begin_ = nullptr;
    sqlite3_stmt* commit_ = nullptr;
};

std::string SampleRow(const Folder& folder) {
    const std::string path = folder.File("sample.db");
    Account(path).Insert();
    return RowOf(path);
}

RATIO("core.insert_over_commit") {
    static const Folder folder;
    static Rows rows(folder.File("rows.db"), SampleRow(folder));
    static Account account(folder.File("account.db"));
    return {[] { account.Insert(); }, [] { rows.Commit(); }};
}

}  // namespace
