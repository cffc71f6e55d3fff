#include <sqlite3.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <utility>

#include "papercore/store.h"

namespace papercore {
namespace {

namespace fs = std::filesystem;

constexpr int kVersion = 1;
constexpr int kApplication = 0x676F6C64;  // "gold"
constexpr char kMakeTables[] =
    "CREATE TABLE journal(seq INTEGER PRIMARY KEY, line TEXT NOT NULL);"
    "CREATE TABLE snapshot(seq INTEGER PRIMARY KEY, state TEXT NOT NULL);";

struct CloseDatabase {
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
};
using Database = std::unique_ptr<sqlite3, CloseDatabase>;

struct EndStatement {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, EndStatement>;

/// Runs statements that answer nothing. Empty on success.
std::string Do(sqlite3* database, const char* sql) {
    char* message = nullptr;
    if (sqlite3_exec(database, sql, nullptr, nullptr, &message) == SQLITE_OK) return {};
    std::string fault = message ? message : "out of memory";
    sqlite3_free(message);
    return fault;
}

Statement Prepare(sqlite3* database, const char* sql) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database, sql, -1, &statement, nullptr);
    return Statement(statement);
}

std::string_view ColumnText(sqlite3_stmt* statement, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    const int size = sqlite3_column_bytes(statement, column);
    return text ? std::string_view(text, static_cast<std::size_t>(size)) : std::string_view();
}

/// -1 when it can't be told.
std::int64_t Number(sqlite3* database, const char* sql) {
    const Statement statement = Prepare(database, sql);
    if (!statement || sqlite3_step(statement.get()) != SQLITE_ROW) return -1;
    return sqlite3_column_int64(statement.get(), 0);
}

bool EndsADay(const Fact& fact) { return std::holds_alternative<DaySettled>(fact); }

class SqliteStore final : public Store {
public:
    /// Empty on success. What is no account file of ours is not written to.
    std::string Open(const std::string& path);

    std::string Load(State& state) override;
    std::string Append(std::span<const Fact> facts) override;
    std::string Export(const std::function<void(std::string_view)>& line) override;

private:
    std::string Check();
    std::string MakeNew();
    std::string Fault() const { return sqlite3_errmsg(database_.get()); }
    std::string Insert(const Fact& fact);
    std::string LoadSnapshot(State& state, std::int64_t& seq);
    std::string SaveSnapshot();

    Database database_;
    Statement insert_;
    std::int64_t last_ = 0;
    State state_;         ///< as of the last fact that was kept, for snapshots
    std::string broken_;  ///< why nothing is kept any more
};

std::string SqliteStore::Open(const std::string& path) {
    std::error_code error;
    if (fs::is_directory(path, error)) return "is a folder";
    sqlite3* opened = nullptr;
    const int result =
        sqlite3_open_v2(path.c_str(), &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    database_.reset(opened);
    if (result != SQLITE_OK) return opened ? Fault() : "out of memory";
    sqlite3_busy_timeout(database_.get(), 200);
    // Somebody else's lock shows at the first look into the file.
    std::string fault = Do(database_.get(), "PRAGMA locking_mode=EXCLUSIVE");
    // Asked of SQLite, not of the file: a start that was cut off is rolled back to no pages first.
    // Tables come before the write-ahead log, which by itself would leave a file of nobody's.
    if (fault.empty()) {
        fault = Number(database_.get(), "PRAGMA page_count") == 0 ? MakeNew() : Check();
    }
    if (fault.empty()) {
        fault = Do(database_.get(), "PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL");
    }
    if (fault.empty()) fault = Do(database_.get(), "BEGIN IMMEDIATE; COMMIT");
    if (fault == "database is locked") fault = kInUse;
    if (!fault.empty()) return fault;
    insert_ = Prepare(database_.get(), "INSERT INTO journal(seq, line) VALUES(?, ?)");
    return insert_ ? std::string() : Fault();
}

std::string SqliteStore::Check() {
    const Statement look = Prepare(database_.get(), "PRAGMA schema_version");
    if (!look || sqlite3_step(look.get()) != SQLITE_ROW) {
        const std::string fault = Fault();
        return fault == "database is locked" ? fault : "is no account file: " + fault;
    }
    const std::int64_t application = Number(database_.get(), "PRAGMA application_id");
    const std::int64_t version = Number(database_.get(), "PRAGMA user_version");
    if (application != kApplication) return "is no account file";
    if (version > kVersion) {
        return "was written by a newer version (" + std::to_string(version) + ")";
    }
    if (version < 1) return "is no account file: no version";
    const Statement check = Prepare(database_.get(), "PRAGMA quick_check(1)");
    if (!check || sqlite3_step(check.get()) != SQLITE_ROW) return "is damaged: " + Fault();
    const std::string_view verdict = ColumnText(check.get(), 0);
    return verdict == "ok" ? std::string() : "is damaged: " + std::string(verdict);
}

std::string SqliteStore::MakeNew() {
    std::string sql = "BEGIN IMMEDIATE;";
    sql += kMakeTables;
    sql += "PRAGMA application_id=" + std::to_string(kApplication) + ";";
    sql += "PRAGMA user_version=" + std::to_string(kVersion) + ";COMMIT";
    return Do(database_.get(), sql.c_str());
}

std::string SqliteStore::LoadSnapshot(State& state, std::int64_t& seq) {
    const Statement newest =
        Prepare(database_.get(), "SELECT seq, state FROM snapshot ORDER BY seq DESC LIMIT 1");
    if (!newest) return Fault();
    const int result = sqlite3_step(newest.get());
    if (result == SQLITE_DONE) return {};
    if (result != SQLITE_ROW) return Fault();
    seq = sqlite3_column_int64(newest.get(), 0);
    return ReadStateText(ColumnText(newest.get(), 1), state) ? std::string()
                                                             : "is damaged: its snapshot";
}

std::string SqliteStore::Load(State& state) {
    State loaded;
    std::int64_t seq = 0;
    std::string fault = LoadSnapshot(loaded, seq);
    if (!fault.empty()) return fault;
    const Statement rows =
        Prepare(database_.get(), "SELECT seq, line FROM journal WHERE seq > ? ORDER BY seq");
    if (!rows) return Fault();
    sqlite3_bind_int64(rows.get(), 1, seq);
    int result = sqlite3_step(rows.get());
    for (; result == SQLITE_ROW; result = sqlite3_step(rows.get())) {
        const std::int64_t row = sqlite3_column_int64(rows.get(), 0);
        const std::string place = "is damaged: line " + std::to_string(row) + " of its journal";
        if (row != seq + 1) return place + " is out of order";
        Fact fact;
        if (!ReadFactLine(ColumnText(rows.get(), 1), fact)) return place + " can't be read";
        if (!Apply(loaded, fact)) return place + " can't follow";
        seq = row;
    }
    if (result != SQLITE_DONE) return "is damaged: " + Fault();
    last_ = seq;
    state_ = loaded;
    state = std::move(loaded);
    return {};
}

std::string SqliteStore::Insert(const Fact& fact) {
    const std::string line = FactLine(fact);
    sqlite3_bind_int64(insert_.get(), 1, last_ + 1);
    sqlite3_bind_text64(insert_.get(), 2, line.data(), line.size(), SQLITE_STATIC, SQLITE_UTF8);
    const int result = sqlite3_step(insert_.get());
    const std::string fault = result == SQLITE_DONE ? std::string() : Fault();
    sqlite3_reset(insert_.get());
    sqlite3_clear_bindings(insert_.get());
    if (fault.empty()) ++last_;
    return fault;
}

std::string SqliteStore::Append(std::span<const Fact> facts) {
    if (facts.empty() || !broken_.empty()) return broken_;
    std::string fault = Do(database_.get(), "BEGIN IMMEDIATE");
    bool day_ends = false;
    for (const Fact& fact : facts) {
        if (!fault.empty()) break;
        if (!Apply(state_, fact)) fault = "a fact can't follow on what is kept";
        if (fault.empty()) fault = Insert(fact);
        day_ends = day_ends || EndsADay(fact);
    }
    if (fault.empty() && day_ends) fault = SaveSnapshot();
    if (fault.empty()) fault = Do(database_.get(), "COMMIT");
    if (fault.empty()) return {};
    // What is in memory is ahead of the file now: nothing more may be kept.
    Do(database_.get(), "ROLLBACK");
    broken_ = fault;
    return fault;
}

// The journal stays whole; a start begins with the newest snapshot.
std::string SqliteStore::SaveSnapshot() {
    const Statement save =
        Prepare(database_.get(), "INSERT OR REPLACE INTO snapshot(seq, state) VALUES(?, ?)");
    if (!save) return Fault();
    const std::string text = StateText(state_);
    sqlite3_bind_int64(save.get(), 1, last_);
    sqlite3_bind_text64(save.get(), 2, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8);
    if (sqlite3_step(save.get()) != SQLITE_DONE) return Fault();
    return Do(database_.get(), "DELETE FROM snapshot WHERE seq < (SELECT max(seq) FROM snapshot)");
}

std::string SqliteStore::Export(const std::function<void(std::string_view)>& line) {
    const Statement rows = Prepare(database_.get(), "SELECT line FROM journal ORDER BY seq");
    if (!rows) return Fault();
    int result = sqlite3_step(rows.get());
    for (; result == SQLITE_ROW; result = sqlite3_step(rows.get())) {
        line(ColumnText(rows.get(), 0));
    }
    return result == SQLITE_DONE ? std::string() : Fault();
}

}  // namespace

std::unique_ptr<Store> OpenStore(const std::string& path, std::string& error) {
    auto store = std::make_unique<SqliteStore>();
    error = store->Open(path);
    if (!error.empty()) return nullptr;
    return store;
}

}  // namespace papercore
