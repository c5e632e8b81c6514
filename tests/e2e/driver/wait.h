// Waiting for another process: conditions that are looked at again and again until a deadline, never a fixed pause.
#pragma once

#include <chrono>
#include <thread>

namespace e2e {

inline constexpr std::chrono::milliseconds kPatience{10'000};
inline constexpr std::chrono::milliseconds kPollInterval{10};

/// True as soon as the condition holds, false when it still does not at the deadline.
template <class Condition>
bool WaitUntil(Condition&& condition, std::chrono::milliseconds patience = kPatience) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= deadline) return false;
        std::this_thread::sleep_for(kPollInterval);
    }
    return true;
}

/// True when the condition held at every look during the whole span: the only way to see that something never happens.
template <class Condition>
bool HoldsFor(std::chrono::milliseconds span, Condition&& condition) {
    return !WaitUntil([&] { return !condition(); }, span);
}

}  // namespace e2e
