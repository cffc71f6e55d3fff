#include "tests/papercore/store/mortal.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <ctime>

namespace papercore_tests {
namespace {

/// Nothing that is tested takes so long.
constexpr int kLongest = 60'000'000;
constexpr int kLivedOn = 0;
constexpr int kNobodyHears = 9;

}  // namespace

void Mortal::Mouth::Say(const std::string& line) const {
    const std::string said = line + "\n";
    // At once, so that it is out of the process whatever comes next.
    if (write(file_, said.data(), said.size()) < 0) _exit(kNobodyHears);
}

Mortal::Mortal(const std::function<void(const Mouth&)>& life) {
    std::array<int, 2> wire{};
    if (pipe(wire.data()) != 0) {
        ADD_FAILURE() << "no pipe";
        return;
    }
    process_ = fork();
    if (process_ == 0) {
        close(wire[0]);
        life(Mouth(wire[1]));
        _exit(kLivedOn);
    }
    close(wire[1]);
    wire_ = wire[0];
    silent_ = process_ < 0;
}

Mortal::~Mortal() {
    Kill();
    close(wire_);
}

bool Mortal::Hear(int micros) {
    if (silent_) return false;
    pollfd wire{wire_, POLLIN, 0};
    const timespec time{micros / 1'000'000, micros % 1'000'000 * 1000L};
    if (ppoll(&wire, 1, &time, nullptr) <= 0) return false;
    std::array<char, 65536> bytes{};
    const ssize_t size = read(wire_, bytes.data(), bytes.size());
    if (size <= 0) {
        Bury();
        return false;
    }
    unfinished_.append(bytes.data(), static_cast<std::size_t>(size));
    std::size_t begin = 0;
    for (std::size_t end = 0; (end = unfinished_.find('\n', begin)) != std::string::npos;) {
        lines_.push_back(unfinished_.substr(begin, end - begin));
        begin = end + 1;
    }
    unfinished_.erase(0, begin);
    return true;
}

void Mortal::HearLines(std::size_t lines) {
    while (lines_.size() < lines && Hear(kLongest)) {
    }
}

void Mortal::HearFor(int micros) {
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_MONOTONIC, &time);
        return time.tv_sec * 1'000'000L + time.tv_nsec / 1000;
    };
    const long end = now() + micros;
    for (long left = micros; left > 0 && Hear(static_cast<int>(left)); left = end - now()) {
    }
}

void Mortal::Kill() {
    if (silent_) return;
    kill(process_, SIGKILL);
    HearOut();
}

void Mortal::HearOut() {
    while (Hear(kLongest)) {
    }
    EXPECT_TRUE(silent_) << "it hangs";
}

void Mortal::Bury() {
    silent_ = true;
    int status = 0;
    was_killed_ = waitpid(process_, &status, 0) == process_ && WIFSIGNALED(status) &&
                  WTERMSIG(status) == SIGKILL;
}

}  // namespace papercore_tests
