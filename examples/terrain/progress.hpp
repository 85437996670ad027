#pragma once

#include <string_view>

namespace terrain {

// Tells on stderr how far a long computation is: a bar with the name of the stage on a terminal, a
// line of percentages otherwise.
class Progress {
public:
    explicit Progress(bool wanted);
    ~Progress();
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;

    // `done` rises from 0 to 1.
    void show(double done, const char *stage);

private:
    bool wanted_;
    bool terminal_;
    int shown_ = -1; // in hundredths on a terminal, otherwise in tenths
    std::string_view stage_;
};

} // namespace terrain
