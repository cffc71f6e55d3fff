#pragma once

#include <sys/types.h>

#include <functional>
#include <string>
#include <vector>

namespace papercore_tests {

/// A process that is meant to be killed. What it says survives it.
class Mortal {
public:
    /// Its end of the wire.
    class Mouth {
    public:
        explicit Mouth(int file) : file_(file) {}
        /// A line; heard whole or not at all.
        void Say(const std::string& line) const;

    private:
        int file_;
    };

    /// Begins the life in a copy of this process, which must have no other thread that matters.
    /// A life that comes to its end was not killed.
    explicit Mortal(const std::function<void(const Mouth&)>& life);
    ~Mortal();
    Mortal(const Mortal&) = delete;
    Mortal& operator=(const Mortal&) = delete;

    /// Listens until so many lines were said, or it is dead.
    void HearLines(std::size_t lines);
    /// Listens that long, or until it is dead.
    void HearFor(int micros);
    /// Kills it, unless it is dead, and hears what it said last.
    void Kill();
    /// Listens until it is dead by itself.
    void HearOut();

    const std::vector<std::string>& Lines() const { return lines_; }
    /// Once it is dead: whether it was killed.
    bool WasKilled() const { return was_killed_; }

private:
    /// False when there is nothing more to hear, or nothing by then.
    bool Hear(int micros);
    void Bury();

    pid_t process_ = 0;
    int wire_ = -1;
    std::string unfinished_;
    std::vector<std::string> lines_;
    bool silent_ = false;  ///< it is dead and all is heard
    bool was_killed_ = false;
};

}  // namespace papercore_tests
