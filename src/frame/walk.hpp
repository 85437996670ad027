// The walk over the objects of an array: lane groups where they are allowed, one object at a time
// elsewhere, stopping at the first object that fails.
#pragma once

#include "overlap.hpp"

namespace zelm {

// group(Group) computes a group, commits the objects before its first failure and returns how many
// it committed; `allowed` tells whether a group may be worked on at once. single(n) does object n
// and returns its status: it is called for what groups may not do, and for a failing object, to
// leave it as a failure leaves it. Tail and failure are one rule: a group commits a prefix.
template <class T, class Allowed, class GroupKernel, class SingleKernel>
ZELM_INLINE ZelStatus walk(int count, const Allowed &allowed, const GroupKernel &group,
                           const SingleKernel &single) {
    constexpr int L = lanes_per_register<T>;
    int n = 0;
    while (n < count) {
        const Group<T> g{n, count - n < L ? count - n : L};
        int committed = 0;
        if (g.live > 1 && allowed.clear(g)) [[likely]] {
            committed = group(g);
            if (committed == g.live) [[likely]] {
                n += committed;
                continue;
            }
        }
        n += committed;
        if (const ZelStatus status = single(n))
            return status;
        ++n;
    }
    return zelStatusOk;
}

} // namespace zelm
