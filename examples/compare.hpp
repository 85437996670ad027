// What the examples do with their answers: check them, and time them beside the usual way.
#pragma once

#include "usual/matrix.hpp"

#include <zelm.hpp>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <vector>

// Prints how long both ways take, the best of several runs in turn. zelm has one thread then, and
// keeps it.
template <class Zelm, class Usual>
void compare(const char *what, Zelm zelm_way, Usual usual_way) {
    const auto milliseconds = [](auto &way) {
        const auto start = std::chrono::steady_clock::now();
        way();
        return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
            .count();
    };
    zelm::set_threads(1).or_throw();
    double first = INFINITY, second = INFINITY;
    for (int run = 0; run < 20; ++run) {
        first = std::min(first, milliseconds(zelm_way));
        second = std::min(second, milliseconds(usual_way));
    }
    std::printf("%s: zelm %.3f ms, %s %.3f ms, ratio %.2f\n", what, first, usual_name, second,
                second / first);
}

inline bool all_right = true;
inline void expect(bool holds) { all_right = all_right && holds; }

// What a program returns: 0 if all held that was expected, else 1.
inline int verdict() {
    std::puts(all_right ? "The answers are right." : "The answers are WRONG.");
    return all_right ? 0 : 1;
}
