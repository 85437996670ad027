// Transposes: packed matrices of orders 3 to 6 in registers, larger ones tile by tile, everything
// else as a move of elements.
#include "move.hpp"

#include "../frame/checks.hpp"
#include "../frame/member.hpp"
#include "../frame/overlap.hpp"
#include "zelcore.h"

namespace zelm {
namespace {

// ---- orders 3 to 6, rows adjacent ----

// Everything is loaded before anything is stored: source and destination may be the same. Where
// `dense`, a row may be taken together with the first element of the next one.
template <int N, bool dense, class T>
ZELM_INLINE void transpose_square(StridedView<const T> from, StridedView<T> to) {
    constexpr int L = lanes_per_row<T>, blocks = (N + L - 1) / L;
    RowLanes<T> v[blocks][blocks][L] = {};
    unroll<N>(ZELM_EACH(i) {
        unroll<blocks>(ZELM_EACH(c) {
            constexpr int part = N - c * L < L ? N - c * L : L;
            constexpr bool whole_register = part == L || (dense && part == L - 1 && i < N - 1);
            v[i / L][c][i % L] = whole(
                load_part<(whole_register ? L : part), RowLanes<T>>(from.at(i, 0) + c * row_bytes));
        });
    });
    unroll<blocks>(ZELM_EACH(r) { unroll<blocks>(ZELM_EACH(c) { transpose(v[r][c]); }); });
    unroll<N>(ZELM_EACH(j) { // ascending: what is stored too much is overwritten
        unroll<blocks>(ZELM_EACH(r) {
            constexpr int part = N - r * L < L ? N - r * L : L;
            constexpr bool whole = part == L || (dense && part == L - 1 && j < N - 1);
            store_part<whole ? L : part, RowLanes<T>>(to.at(j, 0) + r * row_bytes,
                                                      v[r][j / L][j % L]);
        });
    });
}

// Odd orders, objects one behind the other, as registers of two that know no rows: each register of
// the destination takes its elements from two of the source. Everything is loaded first here too.
template <int N, int objects>
ZELM_INLINE void transpose_dense(const char *from, char *to) {
    constexpr int elements = N * N, pairs = objects * elements / 2;
    constexpr bool odd = objects * elements % 2 == 1;
    const auto source = [](int e) {
        return e / elements * elements + e % elements % N * N + e % elements / N;
    };
    RowLanes<double> v[pairs];
    unroll<pairs>(ZELM_EACH(p) { v[p] = whole(load<RowLanes<double>>(from + p * row_bytes)); });
    if constexpr (odd)
        store<double>(to + pairs * row_bytes, load<double>(from + pairs * row_bytes));
    unroll<pairs>(ZELM_EACH(p) {
        constexpr int low = source(2 * p), high = source(2 * p + 1);
        store<RowLanes<double>>(to + p * row_bytes, __builtin_shufflevector(v[low / 2], v[high / 2],
                                                                            low % 2, 2 + high % 2));
    });
}

template <int N, class S, class D>
void transpose_squares(int count, const S source, const D destination) {
    using T = typename D::Element;
    constexpr Distance row = N * Distance{sizeof(T)};
    const auto x = source.view(0);
    const auto y = destination.view(0);
    const Distance in = x.stride1, out = y.stride1;
    int n = 0;
    if (in == row && out == row) {
        if constexpr (N % 2 == 1 && sizeof(T) == sizeof(double)) {
            if constexpr (N == 3 && D::is_array && !D::has_table) { // two make whole registers
                constexpr Shape shape = {N, N};
                if (source.step() == N * row && destination.step() == N * row &&
                    Overlap(count, objects(destination, shape), objects(source, shape)).clear())
                    for (; n <= count - 2; n += 2)
                        transpose_dense<N, 2>(source.object(n), destination.object(n));
            }
            for (; n < count; ++n)
                transpose_dense<N, 1>(source.object(n), destination.object(n));
        } else {
            for (; n < count; ++n)
                transpose_square<N, true, T>({source.object(n), row, sizeof(T)},
                                             {destination.object(n), row, sizeof(T)});
        }
    }
    for (; n < count; ++n)
        transpose_square<N, false, T>({source.object(n), in, sizeof(T)},
                                      {destination.object(n), out, sizeof(T)});
}

// ---- large matrices, rows adjacent ----

constexpr int line_bytes = 64;

struct Plane { // bytes from row to row
    const char *source;
    Distance source_step;
    char *destination;
    Distance destination_step;

    ZELM_INLINE Plane at(Distance row, Distance column, Distance element) const {
        return {source + row * source_step + column * element, source_step,
                destination + column * destination_step + row * element, destination_step};
    }
};

template <bool past_cache, class T>
ZELM_INLINE void put_register(char *p, RowLanes<T> v) {
    if constexpr (past_cache)
        Primitives<RowLanes<T>>::stream(p, v);
    else
        store<RowLanes<T>>(p, v);
}

// A cache line each way: whole lines of the destination are written one after the other.
template <bool past_cache, class T>
ZELM_INLINE void transpose_tile(const Plane &p) {
    constexpr int L = lanes_per_row<T>, B = line_bytes / int{sizeof(T)};
    for (int c = 0; c < B; c += L) {
        RowLanes<T> v[B / L][L];
        const char *from = p.source + c * Distance{sizeof(T)};
        unroll<B / L>(ZELM_EACH(r) {
            unroll<L>(ZELM_EACH(l) {
                v[r][l] = load<RowLanes<T>>(from);
                from += p.source_step;
            });
            transpose(v[r]);
        });
        unroll<L>(ZELM_EACH(l) {
            char *const to = p.destination + (c + l) * p.destination_step;
            unroll<B / L>(
                ZELM_EACH(r) { put_register<past_cache, T>(to + r * row_bytes, v[r][l]); });
        });
    }
}
// Rows that are a multiple of the first level's page of sets apart push one another out of the
// cache; then the tile is first copied to where its rows are neighbours.
template <bool past_cache, class T>
void transpose_far_tile(const Plane &p) {
    constexpr int B = line_bytes / int{sizeof(T)};
    alignas(line_bytes) char near[B * line_bytes];
    for (int i = 0; i < B; ++i)
        unroll<line_bytes / row_bytes>(ZELM_EACH(r) {
            store<RowLanes<T>>(near + i * line_bytes + r * row_bytes,
                               load<RowLanes<T>>(p.source + i * p.source_step + r * row_bytes));
        });
    transpose_tile<past_cache, T>({near, line_bytes, p.destination, p.destination_step});
}

template <class T>
void transpose_rest(const Plane &p, int height, int width) {
    constexpr int L = lanes_per_row<T>;
    const auto element = [&](int i, int j) {
        store<T>(p.at(i, j, sizeof(T)).destination, load<T>(p.at(i, j, sizeof(T)).source));
    };
    int i = 0;
    for (; i <= height - L; i += L) {
        int j = 0;
        for (; j <= width - L; j += L) {
            const Plane q = p.at(i, j, sizeof(T));
            RowLanes<T> v[L];
            unroll<L>(ZELM_EACH(l) { v[l] = load<RowLanes<T>>(q.source + l * q.source_step); });
            transpose(v);
            unroll<L>(
                ZELM_EACH(l) { store<RowLanes<T>>(q.destination + l * q.destination_step, v[l]); });
        }
        for (; j < width; ++j)
            for (int l = 0; l < L; ++l)
                element(i + l, j);
    }
    for (; i < height; ++i)
        for (int j = 0; j < width; ++j)
            element(i, j);
}

// Asks for the lines of a tile, in the second level: in the first, rows that are a multiple of its
// page apart would push one another out.
template <bool past_cache>
ZELM_INLINE void fetch_tile(const Plane &p, int rows) {
    for (int i = 0; i < rows; ++i) {
        __builtin_prefetch(p.source + i * p.source_step, 0, 2);
        if constexpr (!past_cache)
            __builtin_prefetch(p.destination + i * p.destination_step, 1, 2);
    }
}

template <bool past_cache, class T>
void transpose_stripe(const Plane &p, int height, int width) {
    constexpr int B = line_bytes / int{sizeof(T)};
    const bool far = p.source_step % 4096 == 0;
    // A stripe has more rows than the processor follows by itself. Smaller matrices are near
    // anyway.
    const bool large = p.destination_step * width > (4 << 20);
    for (Distance j = 0; j < width; j += B)
        for (Distance i = 0; i < height; i += B) {
            const Plane tile = p.at(i, j, sizeof(T));
            if (large && height - i >= B && width - j >= 2 * B)
                fetch_tile<past_cache>(p.at(i, j + B, sizeof(T)), B);
            if (height - i < B || width - j < B)
                transpose_rest<T>(tile, static_cast<int>(height - i < B ? height - i : B),
                                  static_cast<int>(width - j < B ? width - j : B));
            else if (far)
                transpose_far_tile<past_cache, T>(tile);
            else
                transpose_tile<past_cache, T>(tile);
        }
}

// Stripes of rows of the source. Matrices that do not fit the largest cache are written past it; a
// hint says so without asking.
void y8_ownm_Transpose_32s(const Plane &p, int width, int height, int hint) {
    bool past_cache = hint != 0;
    if (hint == 0 && width >= 129 && height >= 129) {
        int cache = 0;
        zelGetMaxCacheSizeB(&cache);
        past_cache = cache > 0 && std::int64_t{width} * height > cache / 8;
    }
    const bool one_stripe = height < 65 || (past_cache && width % 16 != 0);
    const int stripe = one_stripe ? height : 64;
    // Registers can be written past the cache at their own boundaries only.
    const bool aligned = (reinterpret_cast<std::uintptr_t>(p.destination) |
                          static_cast<std::uintptr_t>(p.destination_step)) %
                             row_bytes ==
                         0;
    for (int row = 0, rows; row < height; row += rows) {
        const Plane part = p.at(row, 0, sizeof(float));
        rows = height - row < stripe ? height - row : stripe;
        if (past_cache && aligned)
            transpose_stripe<true, float>(part, rows, width);
        else
            transpose_stripe<false, float>(part, rows, width);
    }
    if (past_cache)
        finish_streams();
}

// ---- entries ----

// width and height are those of the source.
template <class S, class D>
void y8_ownzelmTranspose(int count, const S &source, const D &destination, int width, int height) {
    using T = typename D::Element;
    if constexpr (!D::is_tabled)
        if (source.packed() && destination.packed())
            return with_order<3, 6>(
                width == height ? width : 0,
                [&](auto N) { transpose_squares<N>(count, source, destination); },
                [&] {
                    for (int n = 0; n < count; ++n) {
                        const Plane p = {source.object(n), source.view(0).stride1,
                                         destination.object(n), destination.view(0).stride1};
                        if constexpr (sizeof(T) == 4)
                            y8_ownm_Transpose_32s(p, width, height, 0);
                        else
                            transpose_stripe<false, T>(p, height, width);
                    }
                });
    move_elements(count, {width, height}, destination, source.transposed());
}

template <class S, class D>
ZELM_INLINE ZelStatus transpose_objects(const S &source, const D &destination, int width,
                                        int height, int count = 1) {
    if (const ZelStatus s =
            first_failure(pointers(source, destination), counts(count), sizes(width, height),
                          strides(source, destination), shifts(source, destination)))
        return s;
    with_strides([&](const auto &from,
                     const auto &to) { y8_ownzelmTranspose(count, from, to, width, height); },
                 shaped(source, {height, width}), shaped(destination, {width, height}));
    return zelStatusOk;
}

} // namespace
} // namespace zelm

ZELM_MEMBERS(Transpose, (m), transpose_objects(src, dst, width, height))
ZELM_MEMBERS(Transpose, (ma), transpose_objects(src, dst, width, height, count))
