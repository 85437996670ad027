// Elements of memory for algorithms that take d(i, j) or d[i] and assign to it.
#pragma once

#include "operand.hpp"

namespace zelm {

template <class T, class View>
struct ElementAt {
    const View &view;
    int i, j;

    ZELM_INLINE operator T() const { return get(view, i, j); }
    ZELM_INLINE void operator=(T value) const { put(view, i, j, value); }
};
template <class T, class View>
ZELM_INLINE ElementAt<T, View> element_at(const View &view, int i, int j) {
    return {view, i, j};
}

// An element anywhere, of memory that is used as scratch.
template <class T>
struct Anywhere {
    typedef T type __attribute__((aligned(1), may_alias));
};
template <class T>
using Unaligned = typename Anywhere<T>::type;

// A run of such elements, as a type that templates take without losing its alignment.
template <class T>
struct UnalignedRun {
    struct Element {
        char *at;
        ZELM_INLINE operator T() const {
            T x;
            __builtin_memcpy(&x, at, sizeof x);
            return x;
        }
        ZELM_INLINE Element &operator=(T x) {
            __builtin_memcpy(at, &x, sizeof x);
            return *this;
        }
        ZELM_INLINE Element &operator=(const Element &other) { return *this = T(other); }
    };
    char *base;

    ZELM_INLINE Element operator[](std::ptrdiff_t i) const {
        return {base + i * std::ptrdiff_t{sizeof(T)}};
    }
    ZELM_INLINE UnalignedRun operator+(std::ptrdiff_t i) const {
        return {base + i * std::ptrdiff_t{sizeof(T)}};
    }
};

} // namespace zelm
