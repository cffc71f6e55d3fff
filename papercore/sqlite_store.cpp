#include <sqlite3.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <utility>

#include "papercore/store.h"

namespace papercore {
namespace {

namespace fs = std::filesystem;

/// 1: lines and snapshots had no sums.
constexpr int kVersion = 2;
constexpr int kApplication = 0x676F6C64;  // "gold"
// As SQLite keeps them: with another word in them a table may read as empty.
constexpr char kTables[] =
    "CREATE TABLE journal(seq INTEGER PRIMARY KEY, line TEXT NOT NULL,"
    " sum INTEGER NOT NULL DEFAULT 0);"
    "CREATE TABLE snapshot(seq INTEGER PRIMARY KEY, state TEXT NOT NULL,"
    " sum INTEGER NOT NULL DEFAULT 0)";
constexpr char kTablesWithoutSums[] =
    "CREATE TABLE journal(seq INTEGER PRIMARY KEY, line TEXT NOT NULL);"
    "CREATE TABLE snapshot(seq INTEGER PRIMARY KEY, state TEXT NOT NULL)";
// A snapshot can be made again, so that it is simply dropped.
constexpr char kAddSums[] =
    "ALTER TABLE journal ADD COLUMN sum INTEGER NOT NULL DEFAULT 0;"
    "ALTER TABLE snapshot ADD COLUMN sum INTEGER NOT NULL DEFAULT 0;"
    "DELETE FROM snapshot;";

struct CloseDatabase {
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
};
using Database = std::unique_ptr<sqlite3, CloseDatabase>;

struct EndStatement {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, EndStatement>;

/// Runs statements that answer nothing. Empty on success.
std::string Execute(sqlite3* database, const char* sql) {
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

/// Each sum goes on from the one before it: a line that was changed, lost or moved shows.
std::int64_t SumAfter(std::int64_t before, std::string_view text) {
    constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15U;
    std::uint64_t sum = (static_cast<std::uint64_t>(before) ^ text.size()) * kFactor;
    while (!text.empty()) {
        std::uint64_t word = 0;
        const std::size_t size = std::min(sizeof word, text.size());
        std::memcpy(&word, text.data(), size);
        // Each step can be undone, so that no single change of a word is lost on the way.
        sum = std::rotl((sum ^ word) * kFactor, 29);
        text.remove_prefix(size);
    }
    return static_cast<std::int64_t>(sum);
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

std::string Damage(const std::string& what) { return "is damaged: " + what; }

std::string LineDamage(std::int64_t seq, const char* what) {
    return Damage("line " + std::to_string(seq) + " of its journal " + what);
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
    /// How far the journal goes.
    struct End {
        std::int64_t seq = 0;
        std::int64_t sum = 0;
    };
    /// Answers why it goes no further.
    using Line = std::function<std::string(std::string_view line)>;

    std::string Check();
    std::string CheckTables() const;
    std::string MakeNew();
    std::string Fault() const { return sqlite3_errmsg(database_.get()); }
    bool HasSums() const { return version_ >= 2; }
    std::string WalkJournal(End& end, const Line& line) const;
    std::string LoadSnapshot(State& state, End& end) const;
    std::string Read(State& state, End& end) const;
    std::string AddSums();
    std::string Upgrade();
    /// Does what was prepared. Empty on success.
    std::string Do(const Statement& statement) const;
    std::string Insert(const Fact& fact);
    std::string SaveSnapshot();

    Database database_;
    Statement begin_;
    Statement insert_;
    Statement commit_;
    std::int64_t version_ = kVersion;  ///< of the file
    End last_;
    State state_;                              ///< as of the last fact kept, for snapshots
    std::string broken_ = "was not read yet";  ///< why nothing is kept
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
    // A log that a crash left stays beside the file until the file is known to be whole.
    if (fs::exists(path + "-wal", error)) {
        sqlite3_db_config(database_.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    }
    // Somebody else's lock shows at the first look into the file.
    std::string fault = Execute(database_.get(), "PRAGMA locking_mode=EXCLUSIVE");
    // Asked of SQLite, not of the file: a start that was cut off is rolled back to no pages first.
    // Tables come before the write-ahead log, which by itself would leave a file of nobody's.
    if (fault.empty()) {
        fault = Number(database_.get(), "PRAGMA page_count") == 0 ? MakeNew() : Check();
    }
    if (fault.empty()) {
        fault = Execute(database_.get(), "PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL");
    }
    if (fault.empty()) fault = Execute(database_.get(), "BEGIN IMMEDIATE; COMMIT");
    return fault == "database is locked" ? kInUse : fault;
}

std::string SqliteStore::Check() {
    const Statement look = Prepare(database_.get(), "PRAGMA schema_version");
    if (!look || sqlite3_step(look.get()) != SQLITE_ROW) {
        const std::string fault = Fault();
        return fault == "database is locked" ? fault : "is no account file: " + fault;
    }
    const std::int64_t application = Number(database_.get(), "PRAGMA application_id");
    version_ = Number(database_.get(), "PRAGMA user_version");
    if (application != kApplication) return "is no account file";
    if (version_ > kVersion) {
        return "was written by a newer version (" + std::to_string(version_) + ")";
    }
    if (version_ < 1) return "is no account file: no version";
    const Statement check = Prepare(database_.get(), "PRAGMA quick_check(1)");
    if (!check || sqlite3_step(check.get()) != SQLITE_ROW) return Damage(Fault());
    const std::string_view verdict = ColumnText(check.get(), 0);
    return verdict == "ok" ? CheckTables() : Damage(std::string(verdict));
}

std::string SqliteStore::CheckTables() const {
    const Statement tables =
        Prepare(database_.get(),
                "SELECT group_concat(sql, ';') FROM (SELECT sql FROM sqlite_master ORDER BY name)");
    if (!tables || sqlite3_step(tables.get()) != SQLITE_ROW) return Damage(Fault());
    const bool same = ColumnText(tables.get(), 0) == (HasSums() ? kTables : kTablesWithoutSums);
    return same ? std::string() : Damage("its tables");
}

std::string SqliteStore::MakeNew() {
    std::string sql = "BEGIN IMMEDIATE;";
    sql += kTables;
    sql += ";PRAGMA application_id=" + std::to_string(kApplication) + ";";
    sql += "PRAGMA user_version=" + std::to_string(kVersion) + ";COMMIT";
    return Execute(database_.get(), sql.c_str());
}

/// Goes on from `end`, line by line.
std::string SqliteStore::WalkJournal(End& end, const Line& line) const {
    const std::string sql = std::string("SELECT seq, line, ") + (HasSums() ? "sum" : "0") +
                            " FROM journal WHERE seq > ? ORDER BY seq";
    const Statement rows = Prepare(database_.get(), sql.c_str());
    if (!rows) return Damage(Fault());
    sqlite3_bind_int64(rows.get(), 1, end.seq);
    int result = sqlite3_step(rows.get());
    for (; result == SQLITE_ROW; result = sqlite3_step(rows.get())) {
        const std::int64_t seq = sqlite3_column_int64(rows.get(), 0);
        if (seq != end.seq + 1) return LineDamage(seq, "is out of order");
        const std::string_view text = ColumnText(rows.get(), 1);
        end = {seq, SumAfter(end.sum, text)};
        if (HasSums() && sqlite3_column_int64(rows.get(), 2) != end.sum) {
            return LineDamage(seq, "is not as it was written");
        }
        const std::string fault = line(text);
        if (!fault.empty()) return fault;
    }
    return result == SQLITE_DONE ? std::string() : Damage(Fault());
}

std::string SqliteStore::LoadSnapshot(State& state, End& end) const {
    const Statement newest = Prepare(
        database_.get(),
        "SELECT snapshot.seq, journal.sum, state, snapshot.sum FROM snapshot "
        "LEFT JOIN journal ON journal.seq = snapshot.seq ORDER BY snapshot.seq DESC LIMIT 1");
    if (!newest) return Damage(Fault());
    const int result = sqlite3_step(newest.get());
    if (result == SQLITE_DONE) return {};
    if (result != SQLITE_ROW) return Damage(Fault());
    if (sqlite3_column_type(newest.get(), 1) == SQLITE_NULL) {
        return Damage("its journal ends before its snapshot");
    }
    end = {sqlite3_column_int64(newest.get(), 0), sqlite3_column_int64(newest.get(), 1)};
    const std::string_view text = ColumnText(newest.get(), 2);
    const bool same = SumAfter(end.sum, text) == sqlite3_column_int64(newest.get(), 3);
    return same && ReadStateText(text, state) ? std::string() : Damage("its snapshot");
}

std::string SqliteStore::Read(State& state, End& end) const {
    std::string fault = HasSums() ? LoadSnapshot(state, end) : std::string();
    if (!fault.empty()) return fault;
    return WalkJournal(end, [&](std::string_view line) -> std::string {
        Fact fact;
        if (!ReadFactLine(line, fact)) return LineDamage(end.seq, "can't be read");
        return Apply(state, fact) ? std::string() : LineDamage(end.seq, "can't follow");
    });
}

std::string SqliteStore::AddSums() {
    const Statement set = Prepare(database_.get(), "UPDATE journal SET sum = ? WHERE seq = ?");
    if (!set) return Fault();
    End end;
    return WalkJournal(end, [&](std::string_view) {
        sqlite3_bind_int64(set.get(), 1, end.sum);
        sqlite3_bind_int64(set.get(), 2, end.seq);
        const bool done = sqlite3_step(set.get()) == SQLITE_DONE;
        sqlite3_reset(set.get());
        return done ? std::string() : Fault();
    });
}

/// Brings a file of an earlier version to the present one, whole or not at all.
std::string SqliteStore::Upgrade() {
    std::string fault = Execute(database_.get(), "BEGIN IMMEDIATE");
    if (fault.empty()) fault = Execute(database_.get(), kAddSums);
    if (fault.empty()) fault = AddSums();
    const std::string version = "PRAGMA user_version=" + std::to_string(kVersion) + ";COMMIT";
    if (fault.empty()) fault = Execute(database_.get(), version.c_str());
    if (fault.empty()) {
        version_ = kVersion;
    } else {
        Execute(database_.get(), "ROLLBACK");
    }
    return fault;
}

std::string SqliteStore::Load(State& state) {
    State loaded;
    End end;
    std::string fault = Read(loaded, end);
    if (fault.empty() && version_ < kVersion) fault = Upgrade();
    if (!fault.empty()) return fault;
    begin_ = Prepare(database_.get(), "BEGIN IMMEDIATE");
    insert_ = Prepare(database_.get(), "INSERT INTO journal(seq, line, sum) VALUES(?, ?, ?)");
    commit_ = Prepare(database_.get(), "COMMIT");
    if (!begin_ || !insert_ || !commit_) return Fault();
    sqlite3_db_config(database_.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0, nullptr);
    broken_.clear();
    last_ = end;
    state_ = loaded;
    state = std::move(loaded);
    return {};
}

std::string SqliteStore::Do(const Statement& statement) const {
    const int result = sqlite3_step(statement.get());
    std::string fault = result == SQLITE_DONE ? std::string() : Fault();
    sqlite3_reset(statement.get());
    return fault;
}

std::string SqliteStore::Insert(const Fact& fact) {
    const std::string line = FactLine(fact);
    const End next{last_.seq + 1, SumAfter(last_.sum, line)};
    sqlite3_bind_int64(insert_.get(), 1, next.seq);
    sqlite3_bind_text64(insert_.get(), 2, line.data(), line.size(), SQLITE_STATIC, SQLITE_UTF8);
    sqlite3_bind_int64(insert_.get(), 3, next.sum);
    std::string fault = Do(insert_);
    sqlite3_clear_bindings(insert_.get());
    if (fault.empty()) last_ = next;
    return fault;
}

std::string SqliteStore::Append(std::span<const Fact> facts) {
    if (facts.empty() || !broken_.empty()) return broken_;
    std::string fault = Do(begin_);
    bool day_ends = false;
    for (const Fact& fact : facts) {
        if (!fault.empty()) break;
        if (!Apply(state_, fact)) fault = "a fact can't follow on what is kept";
        if (fault.empty()) fault = Insert(fact);
        day_ends = day_ends || EndsADay(fact);
    }
    if (fault.empty() && day_ends) fault = SaveSnapshot();
    if (fault.empty()) fault = Do(commit_);
    if (fault.empty()) return {};
    // What is in memory is ahead of the file now: nothing more may be kept.
    Execute(database_.get(), "ROLLBACK");
    broken_ = fault;
    return fault;
}

// The journal stays whole; a start begins with the newest snapshot.
std::string SqliteStore::SaveSnapshot() {
    const Statement save = Prepare(
        database_.get(), "INSERT OR REPLACE INTO snapshot(seq, state, sum) VALUES(?, ?, ?)");
    if (!save) return Fault();
    const std::string text = StateText(state_);
    sqlite3_bind_int64(save.get(), 1, last_.seq);
    sqlite3_bind_text64(save.get(), 2, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8);
    sqlite3_bind_int64(save.get(), 3, SumAfter(last_.sum, text));
    if (sqlite3_step(save.get()) != SQLITE_DONE) return Fault();
    return Execute(database_.get(),
                   "DELETE FROM snapshot WHERE seq < (SELECT max(seq) FROM snapshot)");
}

std::string SqliteStore::Export(const std::function<void(std::string_view)>& line) {
    End end;
    return WalkJournal(end, [&](std::string_view text) {
        line(text);
        return std::string();
    });
}

}  // namespace

std::unique_ptr<Store> OpenStore(const std::string& path, std::string& error) {
    auto store = std::make_unique<SqliteStore>();
    error = store->Open(path);
    if (!error.empty()) return nullptr;
    return store;
}

}  // namespace papercore
