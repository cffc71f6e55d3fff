#include "plugin/settings/ini_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

#include "tests/support/temp_folder.h"

namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::TempFolder;

class IniFileTest : public testing::Test {
protected:
    std::unique_ptr<CIniFile> Load(std::string_view content) {
        folder_.Write(u8"t.ini", content);
        return std::make_unique<CIniFile>("t.ini");
    }

    TempFolder folder_;
};

TEST_F(IniFileTest, TakesEachLineForWhatItsFirstMarkSays) {
    const struct {
        std::string line;
        std::string key;
        std::string value;
    } keys[] = {
        {"a=b;c", "a", "b;c"},
        {" a = b ", " a ", " b "},
        {"a==b", "a", "=b"},
        {"=b", "", "b"},
        {"a=", "a", ""},
        {"a=[x]#", "a", "[x]#"},
        {"a=b\r", "a", "b"},
        {"a=b\r\r", "a", "b\r"},
        {"a=\"b\"", "a", "\"b\""},
        {"\x81[=v", "\x81[", "v"},
        {"a\0b=c\0d"s, "a\0b"s, "c\0d"s},
    };
    for (const auto& c : keys) {
        const auto file = Load("[s]\n" + c.line + "\n");
        EXPECT_THAT(file->GetSectionKeys("s"), ElementsAre(c.key)) << c.line;
        EXPECT_EQ(c.value, file->GetValue(c.key, "s")) << c.line;
    }
}

TEST_F(IniFileTest, PassesOverLinesThatAreNoKey) {
    for (const char* line : {"", "\r", "a", ";a=b", "#a=b", "x;a=b", "x#a=b", "[a=b", "a b"}) {
        const auto file = Load("[s]\n"s + line + "\nk=v\n");
        EXPECT_THAT(file->GetSectionKeys("s"), ElementsAre("k")) << line;
        EXPECT_EQ("v", file->GetValue("k", "s")) << line;
    }
}

TEST_F(IniFileTest, FindsASectionAnywhereInALine) {
    const auto file = Load("x[y]=z\nk=1\n[]\nk=2\n[a[b]c]\nk=3\n[open\nl=4\n");
    EXPECT_EQ("1", file->GetValue("k", "y"));
    EXPECT_EQ("2", file->GetValue("k", ""));
    EXPECT_EQ("3", file->GetValue("k", "a[b"));
    EXPECT_EQ("4", file->GetValue("l", "a[b"));
    EXPECT_EQ(3U, file->Sections().size());
}

TEST_F(IniFileTest, KeepsCommentsWithTheirSection) {
    const auto file = Load("; head\n#second\nx;third\n[s]\n;mine\n[t]\n#yours;too\n");
    EXPECT_THAT(file->Comments(), ElementsAre(" head", "second", "third"));
    EXPECT_THAT(file->Sections()[0].comments, ElementsAre("mine"));
    EXPECT_THAT(file->Sections()[1].comments, ElementsAre("yours;too"));
}

TEST_F(IniFileTest, JoinsSectionsOfOneNameAndAnswersTheFirstOfEqualKeys) {
    const auto file = Load("[s]\na=1\n[t]\na=2\n[s]\nb=3\na=4\n[S]\na=5\n");
    EXPECT_THAT(file->GetSectionKeys("s"), ElementsAre("a", "b", "a"));
    EXPECT_EQ("1", file->GetValue("a", "s"));
    EXPECT_EQ("3", file->GetValue("b", "s"));
    EXPECT_EQ("5", file->GetValue("a", "S"));
}

TEST_F(IniFileTest, AnswersEmptyForTheUnknown) {
    const auto file = Load("[s]\na=1\n");
    EXPECT_EQ("", file->GetValue("A", "s"));
    EXPECT_EQ("", file->GetValue("a", "t"));
    EXPECT_EQ("", file->GetValue("a\0"s, "s"));
    EXPECT_THAT(file->GetSectionKeys("t"), IsEmpty());
}

TEST_F(IniFileTest, TellsWhetherThereWasASection) {
    folder_.Write(u8"t.ini", "a=1\n");
    CIniFile file("t.ini");
    EXPECT_EQ(0, file.Load());
    folder_.Write(u8"t.ini", "[s]\nb=2");
    EXPECT_NE(0, file.Load());
    EXPECT_EQ("", file.GetValue("a", ""));
    EXPECT_EQ("2", file.GetValue("b", "s"));
    CIniFile none;
    EXPECT_EQ(0, none.Load());
}

TEST_F(IniFileTest, IsEmptyWithoutAFile) {
    for (const char* path : {"missing.ini", "none\\t.ini", ".", "", "\xFF", "a*b"}) {
        CIniFile file(path);
        EXPECT_EQ(0, file.Load()) << path;
        EXPECT_THAT(file.Sections(), IsEmpty()) << path;
    }
    EXPECT_THAT(CIniFile(nullptr).GetSectionKeys(""), IsEmpty());
}

TEST_F(IniFileTest, ReadsLargeFilesOfAnyShape) {
    constexpr std::size_t kSize = 10'000'000;
    const std::string equals(kSize, '=');
    EXPECT_EQ(kSize - 1, Load(equals)->GetValue("", "").size());
    EXPECT_THAT(Load(std::string(kSize, '\0'))->GetSectionKeys(""), IsEmpty());
    EXPECT_THAT(Load(std::string(kSize, '['))->Sections(), IsEmpty());
    EXPECT_THAT(Load(std::string(kSize, '\x81'))->GetSectionKeys(""), IsEmpty());
    EXPECT_EQ(kSize, Load("[s]\nk=" + std::string(kSize, 'v'))->GetValue("k", "s").size());
    EXPECT_EQ(1U, Load(";" + equals)->Comments().size());
}

TEST_F(IniFileTest, FindsEachOfManyKeysFast) {
    constexpr int kCount = 100'000;
    std::string content = "[s]\n";
    for (int i = 0; i < kCount; ++i) content += std::to_string(i) + "=v" + std::to_string(i) + "\n";
    const auto file = Load(content);
    int right = 0;
    for (const std::string& key : file->GetSectionKeys("s")) {
        right += file->GetValue(key, "s") == "v" + key ? 1 : 0;
    }
    EXPECT_EQ(kCount, right);
}

/// What the file holds, written down in the plainest way.
class Model {
public:
    explicit Model(const std::string& content) {
        std::size_t from = 0;
        while (from <= content.size()) {
            const std::size_t end = std::min(content.find('\n', from), content.size());
            std::string line = content.substr(from, end - from);
            if (!line.empty() && line.back() == '\r') line.pop_back();
            Add(line);
            from = end + 1;
        }
    }

    std::vector<std::string> Keys(const std::string& section) const {
        std::vector<std::string> keys;
        for (const Entry& entry : entries_) {
            if (entry.section == section) keys.push_back(entry.key);
        }
        return keys;
    }
    std::string Value(const std::string& key, const std::string& section) const {
        for (const Entry& entry : entries_) {
            if (entry.section == section && entry.key == key) return entry.value;
        }
        return "";
    }
    int sections = 0;

private:
    struct Entry {
        std::string section;
        std::string key;
        std::string value;
    };

    void Add(const std::string& line) {
        const std::size_t mark = line.find_first_of(";#[=");
        if (mark == std::string::npos) return;
        if (line[mark] == '=') {
            entries_.push_back({section_, line.substr(0, mark), line.substr(mark + 1)});
        }
        const std::size_t end = line.find(']', mark);
        if (line[mark] == '[' && end != std::string::npos) {
            section_ = line.substr(mark + 1, end - mark - 1);
            ++sections;
        }
    }

    std::string section_;
    std::vector<Entry> entries_;
};

TEST_F(IniFileTest, AgreesWithASimpleModel) {
    constexpr char kAlphabet[] = {'a', 'b', ';', '#', '[', ']', '=', '\r', '\n', '\n', ' ', '\0'};
    std::mt19937 random(11);
    for (int round = 0; round < 500; ++round) {
        std::string content;
        for (auto i = random() % 120; i > 0; --i) {
            content += random() % 5 == 0 ? "[a]\n"s
                                         : std::string(1, kAlphabet[random() % sizeof kAlphabet]);
        }
        const auto file = Load(content);
        const Model model(content);
        ASSERT_EQ(model.sections, static_cast<int>(file->Sections().size())) << round;
        for (const char* section : {"", "a", "b", "ab", "aa", "x"}) {
            const auto keys = model.Keys(section);
            ASSERT_EQ(keys, file->GetSectionKeys(section)) << round;
            for (const std::string& key : keys) {
                ASSERT_EQ(model.Value(key, section), file->GetValue(key, section)) << round;
            }
        }
    }
}

}  // namespace
