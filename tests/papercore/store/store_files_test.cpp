#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "tests/papercore/store/mortal.h"
#include "tests/papercore/store/store_fixture.h"

// Files as they are found: other programs', newer, older, in use, damaged.

namespace papercore_tests {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr char kNewer[] = "was written by a newer version (99)";

class StoreFilesTest : public StoreTest {
protected:
    enum class Leave { kClosed, kWithLog };

    /// Changes the file as any program could; as one that crashed then, if it leaves its log.
    void Sql(const std::string& text, Leave leave = Leave::kClosed) const {
        sqlite3* database = nullptr;
        ASSERT_EQ(sqlite3_open(Path().c_str(), &database), SQLITE_OK);
        const int stays = leave == Leave::kWithLog ? 1 : 0;
        sqlite3_db_config(database, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, stays, nullptr);
        char* fault = nullptr;
        sqlite3_exec(database, ("PRAGMA locking_mode=EXCLUSIVE;" + text).c_str(), nullptr, nullptr,
                     &fault);
        EXPECT_EQ(fault, nullptr) << fault;
        sqlite3_free(fault);
        EXPECT_EQ(sqlite3_close(database), SQLITE_OK);
    }
};

TEST_F(StoreFilesTest, AFileOfANewerVersionIsRefusedAndStaysAsItIs) {
    Make();
    for (const Leave leave : {Leave::kClosed, Leave::kWithLog}) {
        Sql("PRAGMA user_version=99", leave);
        const std::string before = Bytes();
        EXPECT_EQ(std::filesystem::exists(Path() + "-wal"), leave == Leave::kWithLog);
        EXPECT_EQ(OpenFault(), kNewer);
        EXPECT_TRUE(Bytes() == before);
    }
}

TEST_F(StoreFilesTest, AFileThatAnotherProcessHasOpenIsLeftAlone) {
    Make();
    Mortal owner([&](const Mortal::Mouth& mouth) {
        const std::unique_ptr<Store> store = Open();
        Loaded(*store);
        const Fact fact = SessionOpened{state().sessions + 1, 0};
        mouth.Say(store->Append({&fact, 1}).empty() ? "open" : "failed");
        for (;;) pause();
    });
    owner.HearLines(1);
    ASSERT_EQ(owner.Lines(), std::vector<std::string>{"open"});
    const std::string before = Bytes();
    EXPECT_EQ(OpenFault(), papercore::kInUse);
    EXPECT_TRUE(Bytes() == before);
    owner.Kill();
    EXPECT_EQ(OpenFault(), "") << "nobody has it any more";
}

TEST_F(StoreFilesTest, OtherFilesAreRefusedAndStayAsTheyAre) {
    Put(std::string(5000, 'x'));
    EXPECT_THAT(OpenFault(), StartsWith("is no account file"));
    EXPECT_EQ(Bytes(), std::string(5000, 'x') + "(missing)");
    Put("");
    Sql("CREATE TABLE journal(seq, line); CREATE TABLE snapshot(seq, state)");
    const std::string before = Bytes();
    EXPECT_EQ(OpenFault(), "is no account file") << "of another program";
    EXPECT_TRUE(Bytes() == before);
    std::filesystem::remove(Path());
    std::filesystem::create_directory(Path());
    EXPECT_EQ(OpenFault(), "is a folder");
}

TEST_F(StoreFilesTest, AJournalThatWasChangedIsToldAndStaysAsItIs) {
    Make();
    const std::string good = temp_.Read(u8"account.db");
    const std::string late = "(SELECT max(seq) FROM snapshot) + 1";
    const struct {
        const char* what;
        std::string sql;
        const char* fault;
    } cases[] = {
        {"ends before its snapshot",
         "DELETE FROM journal WHERE seq >= (SELECT max(seq) FROM snapshot)",
         "its journal ends before its snapshot"},
        {"a line is gone", "DELETE FROM journal WHERE seq = " + late, "is out of order"},
        {"a line changed",
         "UPDATE journal SET line = replace(line, '\"fact\"', '\"tact\"') WHERE seq = " + late,
         "is not as it was written"},
        {"a figure changed",
         "UPDATE journal SET line = replace(line, '6', '7') WHERE seq = " + late,
         "is not as it was written"},
        {"a line twice",
         "UPDATE journal SET (line, sum) = (SELECT line, sum FROM journal WHERE seq = " + late +
             ") WHERE seq = " + late + " + 1",
         "is not as it was written"},
        {"the snapshot changed", "UPDATE snapshot SET state = replace(state, '9', '8')",
         "its snapshot"},
        {"the snapshot moved", "UPDATE snapshot SET seq = seq - 1", "its snapshot"},
        {"no sums", "ALTER TABLE journal DROP COLUMN sum", "its tables"},
        {"no journal", "DROP TABLE journal", "its tables"},
        {"numbers that are no keys",
         "PRAGMA writable_schema=ON; UPDATE sqlite_master SET sql = replace(sql, 'INTEGER PRI', "
         "'INTEGER_PRI')",
         "its tables"},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.what);
        Put(good);
        Sql(one.sql);
        const std::string before = Bytes();
        const std::string fault = OpenFault();
        EXPECT_THAT(fault, StartsWith("is damaged: "));
        EXPECT_THAT(fault, HasSubstr(one.fault));
        EXPECT_TRUE(Bytes() == before);
    }
}

TEST_F(StoreFilesTest, AFileOfTheFirstVersionGoesOnAsOneOfToday) {
    Make();
    Sql("ALTER TABLE journal DROP COLUMN sum; ALTER TABLE snapshot DROP COLUMN sum;"
        "PRAGMA user_version=1");
    const std::string first = temp_.Read(u8"account.db");
    for (const char* tampering : {"", "UPDATE journal SET line = replace(line, '3', '4')"}) {
        EXPECT_EQ(StateText(Loaded(*Open())), StateText(state()));
        Sql(tampering);
        const bool same = *tampering == '\0';
        EXPECT_EQ(OpenFault().empty(), same) << "its lines have sums from now on";
    }
    Put(first);
    Sql("UPDATE journal SET line = '{}' WHERE seq = 5");
    const std::string before = Bytes();
    EXPECT_EQ(OpenFault(), "is damaged: line 5 of its journal can't be read");
    EXPECT_TRUE(Bytes() == before) << "nothing is upgraded that can't be read";
}

/// More rounds by hand.
int DamageRounds() {
    const char* asked = std::getenv("STORE_DAMAGES");
    return asked ? std::atoi(asked) : 400;
}

TEST_F(StoreFilesTest, DamagedBytesAreToldOrChangeNothing) {
    Make();
    const std::string with_snapshot = temp_.Read(u8"account.db");
    Sql("DELETE FROM snapshot");
    const std::string journal_alone = temp_.Read(u8"account.db");
    const std::string whole = StateText(state());
    std::mt19937 random(17);
    int told = 0;
    for (int round = 0; round < DamageRounds(); ++round) {
        SCOPED_TRACE(round);
        std::string bytes = round % 4 == 0 ? with_snapshot : journal_alone;
        const auto changes = 1 + random() % (round % 3 == 0 ? 40 : 2);
        for (unsigned change = 0; change < changes; ++change) {
            bytes[random() % bytes.size()] = static_cast<char>(random());
        }
        if (round % 5 == 0) bytes.resize(random() % bytes.size());
        if (round % 7 == 0) {
            for (char& byte : std::span(bytes).subspan(std::min<std::size_t>(16, bytes.size())))
                byte = static_cast<char>(random());
        }
        Put(bytes);
        std::string fault;
        const std::unique_ptr<Store> store = OpenStore(Path(), fault);
        State loaded;
        if (store) fault = store->Load(loaded);
        if (fault.empty()) {
            ASSERT_TRUE(StateText(loaded) == whole);
        } else {
            ++told;
        }
    }
    EXPECT_GT(told, DamageRounds() / 4);
}

}  // namespace
}  // namespace papercore_tests
