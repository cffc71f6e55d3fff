#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <mutex>
#include <nlohmann/json.hpp>
#include <string>

#include "platform/system.h"

namespace automation {

using nlohmann::json;

/// What the terminal does for commands, on the windows' thread. A text that comes back says why
/// something can't be done; an empty one that it is done.
struct Doors {
    std::function<std::string(const json& command)> quote;
    std::function<std::string(const json& command)> step;
    std::function<std::string(const json& command)> core;
    std::function<bool()> core_is_quiet;
    std::function<json()> new_status;  ///< the lines since the last call
    std::function<json()> state;
    std::function<void()> quit;
    std::function<void(const std::string& line)> reply;
    std::string shots_folder;
    /// Posts the message on which the windows' thread calls Wake; any thread.
    std::function<void()> call;
};

/// Runs commands, a JSON object a line, one after the other, each when the user interface waits
/// for its user. Each gets one line in answer, "ok" true or false and then a "reason"; a command
/// that fails changes nothing and the next one goes on. The input that a command makes goes through
/// the queue and is handled before the next command.
class Automation {
public:
    explicit Automation(Doors doors);

    /// Any thread: a line has come. The end of all lines counts as "quit".
    void Put(std::string line);
    void PutEnd();
    /// The windows' thread, on the message of `call`.
    void Wake();

    /// Runs one line and answers its reply; "idle" is answered as if all were quiet.
    json Run(const std::string& line);

private:
    static void RunNext(void* self);
    void Next();
    bool Waits(const json& command);
    json Execute(const json& command);
    json Find(const json& command) const;
    json Click(const json& command) const;
    json Move(const json& command) const;
    json Wheel(const json& command) const;
    json Type(const json& command) const;
    json Key(const json& command) const;
    json Text(const json& command) const;
    json Painted(const json& command) const;
    json Shot(const json& command) const;

    Doors doors_;
    std::mutex mutex_;
    std::deque<std::string> lines_;
    bool ended_ = false;
    bool armed_ = false;
    bool quit_ = false;
    bool waits_ = false;
    std::chrono::steady_clock::time_point waiting_since_;
    int quiet_ = 0;
};

}  // namespace automation
