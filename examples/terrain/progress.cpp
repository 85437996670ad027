#include "progress.hpp"

#include <cstdio>
#include <string>
#include <unistd.h>

namespace terrain {

Progress::Progress(bool wanted) : wanted_(wanted), terminal_(isatty(STDERR_FILENO) == 1) {}

Progress::~Progress() {
    if (shown_ >= 0)
        std::fputs(terminal_ ? "\r\033[K" : "\n", stderr);
}

void Progress::show(double done, const char *stage) {
    if (!wanted_)
        return;
    if (!terminal_) {
        for (const int tenths = static_cast<int>(done * 10); shown_ < tenths;)
            std::fprintf(stderr, "%d %% ", 10 * ++shown_);
        return;
    }
    const int percent = static_cast<int>(done * 100);
    if (percent == shown_ && stage == stage_)
        return;
    shown_ = percent;
    stage_ = stage;
    constexpr int width = 40;
    const std::string bar(static_cast<std::size_t>(shown_ * width / 100), '#');
    std::fprintf(stderr, "\r\033[K[%-*s] %3d %%  %s", width, bar.c_str(), percent, stage);
}

} // namespace terrain
