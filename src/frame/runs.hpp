// Consecutive elements of the lanes' objects, and single ones, between memory and lanes.
#pragma once

#include "lanes.hpp"
#include "operand.hpp"

namespace zelm {

template <class T, class Byte>
ZELM_INLINE Lanes<T> gather(Byte *const (&at)[lanes_per_register<T>], Distance offset) {
    return Primitives<Lanes<T>>::gather(at, offset);
}
template <class T>
ZELM_INLINE void scatter(char *const (&at)[lanes_per_register<T>], Distance offset, Lanes<T> v) {
    unroll<lanes_per_register<T>>(ZELM_EACH(l) { store<T>(at[l] + offset, v[int{l}]); });
}

// Consecutive elements from each lane's address: K of one lane, or one of every lane.
template <class T>
struct Runs {
    const char *const (&at)[lanes_per_register<T>];

    template <int K>
    ZELM_INLINE Lanes<T> part(int lane, Distance offset) const {
        return load_part<K, Lanes<T>>(at[lane] + offset);
    }
    ZELM_INLINE Lanes<T> gathered(Distance offset) const { return gather<T>(at, offset); }
};
// The products of two such runs, element by element.
template <class T>
struct ProductRuns {
    Runs<T> a, b;

    template <int K>
    ZELM_INLINE Lanes<T> part(int lane, Distance offset) const {
        return a.template part<K>(lane, offset) * b.template part<K>(lane, offset);
    }
    ZELM_INLINE Lanes<T> gathered(Distance offset) const {
        return a.gathered(offset) * b.gathered(offset);
    }
};
template <class T, int N, class From>
ZELM_INLINE void load_from(Lanes<T> *out, const From &from) {
    constexpr int L = lanes_per_register<T>, rest = N % L;
    unroll<N / L>(ZELM_EACH(chunk) {
        Lanes<T> v[L];
        unroll<L>(ZELM_EACH(l) { v[l] = from.template part<L>(l, chunk * register_bytes); });
        transpose(v);
        unroll<L>(ZELM_EACH(e) { out[chunk * L + e] = v[e]; });
    });
    if constexpr (rest == 1)
        out[N - 1] = from.gathered((N - 1) * Distance{sizeof(T)});
    else if constexpr (rest != 0) { // the last run may overlap the one before
        constexpr int length = N > L && rest == L - 1 && rest > 2 ? L : rest, start = N - length;
        Lanes<T> v[L];
        unroll<L>(
            ZELM_EACH(l) { v[l] = from.template part<length>(l, start * Distance{sizeof(T)}); });
        transpose(v);
        unroll<rest>(ZELM_EACH(e) { out[N - rest + e] = v[length - rest + e]; });
    }
}
template <class T, int N>
ZELM_INLINE void load_runs(Lanes<T> *out, const char *const (&at)[lanes_per_register<T>]) {
    load_from<T, N>(out, Runs<T>{at});
}
template <class T, int N>
ZELM_INLINE void store_runs(char *const (&at)[lanes_per_register<T>], const Lanes<T> *in) {
    constexpr int L = lanes_per_register<T>, rest = N % L;
    unroll<N / L>(ZELM_EACH(chunk) {
        Lanes<T> v[L];
        unroll<L>(ZELM_EACH(e) { v[e] = in[chunk * L + e]; });
        transpose(v);
        unroll<L>(ZELM_EACH(l) { store<Lanes<T>>(at[l] + chunk * register_bytes, v[l]); });
    });
    constexpr bool overlapping = N > L && rest == L - 1 && rest > 2; // the run before
    if constexpr (overlapping) {
        constexpr int start = N - L;
        Lanes<T> v[L];
        unroll<L>(ZELM_EACH(e) { v[e] = in[start + e]; });
        transpose(v);
        unroll<L>(ZELM_EACH(l) { store<Lanes<T>>(at[l] + start * sizeof(T), v[l]); });
    } else {
        unroll<rest / 2>(ZELM_EACH(pair) {
            constexpr int e = N - rest + 2 * pair;
            Primitives<Lanes<T>>::store_pairs(at, e * Distance{sizeof(T)}, in[e], in[e + 1]);
        });
        if constexpr (rest % 2 == 1)
            scatter<T>(at, (N - 1) * Distance{sizeof(T)}, in[N - 1]);
    }
}

} // namespace zelm
