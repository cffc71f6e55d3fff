#include "plugin/contract/my_event_utils.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "plugin/contract/account_records.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Log = std::vector<std::string>;

class Listener final : public MyEventUtils {
public:
    Listener(Log& log, std::string name, int notification = 2) : log_(log), name_(std::move(name)) {
        Listen(notification);
    }
    using MyEventUtils::Listen;

    std::function<void()> on_call;

private:
    void Note(const std::string& what) {
        log_.push_back(name_ + " " + what);
        if (const auto call = on_call) call();
    }
    static std::string Text(LPARAM a, LPARAM b, LPARAM c) {
        return std::to_string(a) + "," + std::to_string(b) + "," + std::to_string(c);
    }
    void OnNotification0(MyEventUtils*, LPARAM a, LPARAM b, LPARAM c) override {
        Note("0:" + Text(a, b, c));
    }
    void OnNotification1(LPARAM a, LPARAM b, LPARAM c) override { Note("1:" + Text(a, b, c)); }
    void OnFunctionReply(const CAccountInfo* account, int function, const char* text) override {
        Note("2:" + std::string(account->szAccount) + "," + std::to_string(function) + "," + text);
    }
    void OnNotification3(LPARAM a) override { Note("3:" + std::to_string(a)); }
    void OnNotification4(LPARAM a, LPARAM b, LPARAM c) override { Note("4:" + Text(a, b, c)); }
    void OnNotification5() override { Note("5"); }

    Log& log_;
    std::string name_;
};

void FireReply() {
    CAccountInfo account{};
    account.szAccount[0] = 'k';
    MyEventUtils::Fire(&account, 31, "text");
}

class MyEventUtilsTest : public testing::Test {
protected:
    Log log_;
};

TEST_F(MyEventUtilsTest, TellsNobodyWhenNobodyListens) {
    FireReply();
    MyEventUtils::FireExceptSender(nullptr, 1, 2, 3);
    EXPECT_THAT(log_, IsEmpty());
}

TEST_F(MyEventUtilsTest, TellsTheListenersOfItsOwnListOnly) {
    Listener all[] = {{log_, "a", 0}, {log_, "b", 1}, {log_, "c", 2},
                      {log_, "d", 3}, {log_, "e", 4}, {log_, "f", 5}};
    MyEventUtils::FireExceptSender(nullptr, 1, 2, 3);
    MyEventUtils::Fire1(4, 5, 6);
    FireReply();
    MyEventUtils::Fire3(7);
    MyEventUtils::Fire4(8, 9, 10);
    MyEventUtils::Fire5();
    EXPECT_THAT(
        log_, ElementsAre("a 0:1,2,3", "b 1:4,5,6", "c 2:k,31,text", "d 3:7", "e 4:8,9,10", "f 5"));
    all[0].Listen(6);
    all[0].Listen(-1);
}

TEST_F(MyEventUtilsTest, LeavesTheSenderOut) {
    Listener a(log_, "a", 0);
    Listener b(log_, "b", 0);
    MyEventUtils::FireExceptSender(&a, 1, 2, 3);
    EXPECT_THAT(log_, ElementsAre("b 0:1,2,3"));
}

TEST_F(MyEventUtilsTest, TellsInTheOrderOfListeningAndEachOnce) {
    Listener b(log_, "b", 0);
    Listener a(log_, "a");
    b.Listen(2);
    a.Listen(2);
    FireReply();
    EXPECT_THAT(log_, ElementsAre("a 2:k,31,text", "b 2:k,31,text"));
}

TEST_F(MyEventUtilsTest, PassesOverListenersThatWentMeanwhile) {
    Listener a(log_, "a");
    auto b = std::make_unique<Listener>(log_, "b");
    Listener c(log_, "c");
    a.on_call = [&] { b.reset(); };
    FireReply();
    EXPECT_THAT(log_, ElementsAre("a 2:k,31,text", "c 2:k,31,text"));
}

TEST_F(MyEventUtilsTest, KeepsGoingWhenAListenerEndsItself) {
    auto a = std::make_unique<Listener>(log_, "a");
    Listener b(log_, "b");
    a->on_call = [&] { std::exchange(a, nullptr).reset(); };
    FireReply();
    EXPECT_THAT(log_, ElementsAre("a 2:k,31,text", "b 2:k,31,text"));
}

TEST_F(MyEventUtilsTest, TellsANewcomerNothingEvenInThePlaceOfOneThatWent) {
    Listener a(log_, "a");
    std::optional<Listener> b(std::in_place, log_, "b");
    a.on_call = [&] { b.emplace(log_, "new"); };
    FireReply();
    EXPECT_THAT(log_, ElementsAre("a 2:k,31,text"));
}

TEST_F(MyEventUtilsTest, TellsAllAgainWhileItIsTelling) {
    Listener a(log_, "a");
    Listener b(log_, "b");
    a.on_call = [&] {
        a.on_call = nullptr;
        FireReply();
    };
    FireReply();
    EXPECT_THAT(log_,
                ElementsAre("a 2:k,31,text", "a 2:k,31,text", "b 2:k,31,text", "b 2:k,31,text"));
}

}  // namespace
