#pragma once

#include <functional>

namespace trevandix {

/// Thrown out of a check that is interrupted.
struct Interrupted {};

/// Asks after every few milliseconds of work whether the check is to end, told by the number of steps: a
/// look at the clock would make each run different.
class Pulse {
public:
    /// For a check that nothing interrupts.
    Pulse() : Pulse(never()) {}
    /// Errors of all: Interrupted.
    explicit Pulse(const std::function<bool()>& interrupted) : interrupted_(interrupted) { ask(); }

    /// A step is about ten nanoseconds of work; some more do not matter.
    void step(int steps = 1) {
        left_ -= steps;
        if (left_ <= 0) ask();
    }

private:
    static constexpr int kStepsBetween = 1 << 16;

    static const std::function<bool()>& never() {
        static const std::function<bool()> kNever = [] { return false; };
        return kNever;
    }

    void ask() {
        left_ = kStepsBetween;
        if (interrupted_()) throw Interrupted();
    }

    const std::function<bool()>& interrupted_;
    int left_ = 0;
};

}  // namespace trevandix
