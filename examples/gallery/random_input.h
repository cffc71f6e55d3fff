#pragma once

#include <random>

namespace gallery {

/// A person without a plan: moves, clicks, turns the wheel and hits keys anywhere on the desktop
/// each time the program waits for input, boxes and dialogs included. After the last step the
/// program is asked to quit.
class RandomInput {
public:
    RandomInput(long steps, unsigned seed) : left_(steps), random_(seed) {}
    void Start();

private:
    static void Next(void* self);
    void Step();
    int Pick(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random_); }

    long left_;
    std::mt19937 random_;
};

}  // namespace gallery
