// The loops that one writes without a library, with sizes known at compile time. All else is left
// to the compiler.
#include <cmath>
#include <emmintrin.h>
#include <utility>

#include "peer_list.hpp"

namespace {

template <class T, int R, int C>
struct Matrix {
    T at[R][C];
};

template <class T, int R, int C>
void add(const BenchProblem *p) {
    const auto *a = objects<Matrix<T, R, C>>(p->a);
    const auto *b = objects<Matrix<T, R, C>>(p->b);
    auto *__restrict c = results<Matrix<T, R, C>>(p->c);
    for (int n = 0; n < p->count; ++n)
        for (int i = 0; i < R; ++i)
            for (int j = 0; j < C; ++j)
                c[n].at[i][j] = a[n].at[i][j] + b[n].at[i][j];
}

// Packed and planar arrays are one long vector.
template <class T>
void add_flat(const BenchProblem *p) {
    const T *a = objects<T>(p->a);
    const T *b = objects<T>(p->b);
    T *__restrict c = results<T>(p->c);
    const std::ptrdiff_t size = std::ptrdiff_t{p->count} * p->rows * p->columns;
    for (std::ptrdiff_t i = 0; i < size; ++i)
        c[i] = a[i] + b[i];
}

template <class T, int R, int C, bool Dense>
void add_strided(const BenchProblem *p) {
    const std::ptrdiff_t row = in_elements<T>(p->a.row);
    const std::ptrdiff_t element = Dense ? 1 : in_elements<T>(p->a.element);
    for (int n = 0; n < p->count; ++n) {
        const T *a = object_at<const T>(p->a, n);
        const T *b = object_at<const T>(p->b, n);
        T *__restrict c = object_at<T>(p->c, n);
        for (int i = 0; i < R; ++i)
            for (int j = 0; j < C; ++j)
                c[i * row + j * element] = a[i * row + j * element] + b[i * row + j * element];
    }
}

// The stores of a sum and nothing else: whole registers and at most two for the rest of a row.
template <class T, int R, int C>
void store_rows(const BenchProblem *p) {
    const __m128 value = _mm_set1_ps(1);
    constexpr int whole = C * static_cast<int>(sizeof(T)) / 16 * 16;
    constexpr int rest = C * static_cast<int>(sizeof(T)) - whole;
    const BenchOperand c = p->c;
    for (int n = 0, count = p->count; n < count; ++n)
        for (int i = 0; i < R; ++i) {
            char *to = object_at<char>(c, n) + std::ptrdiff_t{i} * c.row;
            for (int k = 0; k < whole; k += 16)
                _mm_storeu_ps(reinterpret_cast<float *>(to + k), value);
            if (rest & 8)
                _mm_storel_pi(reinterpret_cast<__m64 *>(to + whole), value);
            if (rest & 4)
                _mm_store_ss(reinterpret_cast<float *>(to + whole + (rest & 8)), value);
        }
}

template <class T, int R, int C>
void store_elements(const BenchProblem *p) {
    const __m128 value = _mm_set1_ps(1);
    const BenchOperand c = p->c;
    for (int n = 0, count = p->count; n < count; ++n)
        for (int i = 0; i < R; ++i)
            for (int j = 0; j < C; ++j) {
                char *to = object_at<char>(c, n) + std::ptrdiff_t{i} * c.row +
                           std::ptrdiff_t{j} * c.element;
                if constexpr (sizeof(T) == 4)
                    _mm_store_ss(reinterpret_cast<float *>(to), value);
                else
                    _mm_storel_pi(reinterpret_cast<__m64 *>(to), value);
            }
}

// Each element of the product is an inner product.
template <class T, int N, bool SingleA, bool SingleB>
void mul(const BenchProblem *p) {
    const auto *a = objects<Matrix<T, N, N>>(p->a);
    const auto *b = objects<Matrix<T, N, N>>(p->b);
    auto *__restrict c = results<Matrix<T, N, N>>(p->c);
    for (int n = 0; n < p->count; ++n)
        for (int i = 0; i < N; ++i)
            for (int j = 0; j < N; ++j) {
                T s = 0;
                for (int k = 0; k < N; ++k)
                    s += a[SingleA ? 0 : n].at[i][k] * b[SingleB ? 0 : n].at[k][j];
                c[n].at[i][j] = s;
            }
}

// Each row of the product is a sum of rows.
template <class T, int N, bool SingleA, bool SingleB>
void mul_by_rows(const BenchProblem *p) {
    const auto *a = objects<Matrix<T, N, N>>(p->a);
    const auto *b = objects<Matrix<T, N, N>>(p->b);
    auto *__restrict c = results<Matrix<T, N, N>>(p->c);
    for (int n = 0; n < p->count; ++n)
        for (int i = 0; i < N; ++i) {
            T row[N] = {};
            for (int k = 0; k < N; ++k)
                for (int j = 0; j < N; ++j)
                    row[j] += a[SingleA ? 0 : n].at[i][k] * b[SingleB ? 0 : n].at[k][j];
            for (int j = 0; j < N; ++j)
                c[n].at[i][j] = row[j];
        }
}

template <class T, int N>
void mul_strided(const BenchProblem *p) {
    for (int n = 0; n < p->count; ++n) {
        const T *a = object_at<const T>(p->a, n);
        const T *b = object_at<const T>(p->b, n);
        T *__restrict c = object_at<T>(p->c, n);
        const std::ptrdiff_t row = in_elements<T>(p->a.row);
        const std::ptrdiff_t element = in_elements<T>(p->a.element);
        for (int i = 0; i < N; ++i)
            for (int j = 0; j < N; ++j) {
                T s = 0;
                for (int k = 0; k < N; ++k)
                    s += a[i * row + k * element] * b[k * row + j * element];
                c[i * row + j * element] = s;
            }
    }
}

template <class T, int N>
void mul_vector(const BenchProblem *p) {
    const auto *a = objects<Matrix<T, N, N>>(p->a);
    const auto *b = objects<Matrix<T, 1, N>>(p->b);
    auto *__restrict c = results<Matrix<T, 1, N>>(p->c);
    for (int n = 0; n < p->count; ++n)
        for (int i = 0; i < N; ++i) {
            T s = 0;
            for (int k = 0; k < N; ++k)
                s += a[n].at[i][k] * b[n].at[0][k];
            c[n].at[0][i] = s;
        }
}

// Matrices stored by columns: the product is a sum of columns.
template <class T, int N>
void mul_vector_by_columns(const BenchProblem *p) {
    const auto *a = objects<Matrix<T, N, N>>(p->a);
    const auto *b = objects<Matrix<T, 1, N>>(p->b);
    auto *__restrict c = results<Matrix<T, 1, N>>(p->c);
    for (int n = 0; n < p->count; ++n) {
        T s[N] = {};
        for (int k = 0; k < N; ++k)
            for (int i = 0; i < N; ++i)
                s[i] += a[n].at[k][i] * b[n].at[0][k];
        for (int i = 0; i < N; ++i)
            c[n].at[0][i] = s[i];
    }
}

template <class T, int N>
void factor(T (&m)[N][N], int *pivots) {
    for (int i = 0; i < N; ++i)
        pivots[i] = i;
    for (int k = 0; k < N - 1; ++k) {
        int best = k;
        T magnitude = std::abs(m[k][k]);
        for (int i = k + 1; i < N; ++i)
            if (std::abs(m[i][k]) > magnitude) {
                magnitude = std::abs(m[i][k]);
                best = i;
            }
        if (best != k) {
            std::swap(pivots[k], pivots[best]);
            for (int j = 0; j < N; ++j)
                std::swap(m[k][j], m[best][j]);
        }
        const T reciprocal = 1 / m[k][k];
        for (int i = k + 1; i < N; ++i) {
            m[i][k] *= reciprocal;
            for (int j = k + 1; j < N; ++j)
                m[i][j] -= m[i][k] * m[k][j];
        }
    }
}

template <class T, int N>
void solve(const T (&m)[N][N], const int *pivots, const T *b, T *x) {
    for (int i = 0; i < N; ++i) {
        x[i] = b[pivots[i]];
        for (int j = 0; j < i; ++j)
            x[i] -= m[i][j] * x[j];
    }
    for (int i = N - 1; i >= 0; --i) {
        for (int j = i + 1; j < N; ++j)
            x[i] -= m[i][j] * x[j];
        x[i] /= m[i][i];
    }
}

template <class T, int N>
void lu(const BenchProblem *p) {
    const auto *a = objects<Matrix<T, N, N>>(p->a);
    auto *__restrict c = results<Matrix<T, N, N>>(p->c);
    for (int n = 0; n < p->count; ++n) {
        auto m = a[n];
        factor(m.at, p->index + std::ptrdiff_t{n} * N);
        c[n] = m;
    }
}

template <class T, int N>
void lu_strided(const BenchProblem *p) {
    for (int n = 0; n < p->count; ++n) {
        const T *a = object_at<const T>(p->a, n);
        T *__restrict c = object_at<T>(p->c, n);
        const std::ptrdiff_t row = in_elements<T>(p->a.row);
        const std::ptrdiff_t element = in_elements<T>(p->a.element);
        T m[N][N];
        for (int i = 0; i < N; ++i)
            for (int j = 0; j < N; ++j)
                m[i][j] = a[i * row + j * element];
        factor(m, p->index + std::ptrdiff_t{n} * N);
        for (int i = 0; i < N; ++i)
            for (int j = 0; j < N; ++j)
                c[i * row + j * element] = m[i][j];
    }
}

// One loop for all factors, one for all solutions.
template <class T, int N>
void lu_solve(const BenchProblem *p) {
    BenchProblem factorization = *p;
    factorization.c = p->factors;
    lu<T, N>(&factorization);
    const auto *factors = objects<Matrix<T, N, N>>(p->factors);
    const auto *b = objects<Matrix<T, 1, N>>(p->b);
    auto *__restrict c = results<Matrix<T, 1, N>>(p->c);
    for (int n = 0; n < p->count; ++n)
        solve(factors[n].at, p->index + std::ptrdiff_t{n} * N, b[n].at[0], c[n].at[0]);
}

// The solutions alone: factors and pivots are not kept.
template <class T, int N>
void lu_solve_at_once(const BenchProblem *p) {
    const auto *a = objects<Matrix<T, N, N>>(p->a);
    const auto *b = objects<Matrix<T, 1, N>>(p->b);
    auto *__restrict c = results<Matrix<T, 1, N>>(p->c);
    for (int n = 0; n < p->count; ++n) {
        auto m = a[n];
        int pivots[N];
        T x[N];
        factor(m.at, pivots);
        solve(m.at, pivots, b[n].at[0], x);
        for (int i = 0; i < N; ++i)
            c[n].at[0][i] = x[i];
    }
}

template <class T, int N>
void factor_definite(T (&m)[N][N]) {
    for (int i = 0; i < N; ++i)
        for (int j = 0; j <= i; ++j) {
            T s = m[i][j];
            for (int k = 0; k < j; ++k)
                s -= m[i][k] * m[j][k];
            m[i][j] = j < i ? s / m[j][j] : std::sqrt(s);
        }
}

template <class T, int N>
void cholesky(const BenchProblem *p) {
    for (int n = 0; n < p->count; ++n) {
        auto m = objects<Matrix<T, N, N>>(p->a)[n];
        factor_definite(m.at);
        results<Matrix<T, N, N>>(p->c)[n] = m;
    }
}

template <class T, int N>
void cholesky_solve(const BenchProblem *p) {
    for (int n = 0; n < p->count; ++n) {
        auto m = objects<Matrix<T, N, N>>(p->a)[n];
        auto x = objects<Matrix<T, 1, N>>(p->b)[n];
        factor_definite(m.at);
        for (int i = 0; i < N; ++i) {
            for (int k = 0; k < i; ++k)
                x.at[0][i] -= m.at[i][k] * x.at[0][k];
            x.at[0][i] /= m.at[i][i];
        }
        for (int i = N - 1; i >= 0; --i) {
            for (int k = i + 1; k < N; ++k)
                x.at[0][i] -= m.at[k][i] * x.at[0][k];
            x.at[0][i] /= m.at[i][i];
        }
        results<Matrix<T, 1, N>>(p->c)[n] = x;
    }
}

template <class T, int N>
void determinant(const BenchProblem *p) {
    for (int n = 0; n < p->count; ++n) {
        auto m = objects<Matrix<T, N, N>>(p->a)[n];
        T d = 1;
        for (int k = 0; k < N; ++k) {
            int best = k;
            for (int i = k + 1; i < N; ++i)
                if (std::abs(m.at[i][k]) > std::abs(m.at[best][k]))
                    best = i;
            if (best != k) {
                for (int j = k; j < N; ++j)
                    std::swap(m.at[k][j], m.at[best][j]);
                d = -d;
            }
            d *= m.at[k][k];
            for (int i = k + 1; i < N; ++i) {
                const T f = m.at[i][k] / m.at[k][k];
                for (int j = k + 1; j < N; ++j)
                    m.at[i][j] -= f * m.at[k][j];
            }
        }
        results<T>(p->c)[n] = d;
    }
}

// Rows of three through matrices. Stride 0: told by the problem.
template <int stride, int length>
struct Vectors {
    const BenchOperand &operand;
    float *operator[](int n) const {
        const int bytes = stride == 0 ? operand.object : stride;
        return reinterpret_cast<float *>(static_cast<char *>(operand.base) +
                                         std::ptrdiff_t{n} * bytes);
    }
};
struct Matrix4 {
    float at[4][4];
};
inline void through(const float *p, float w, const Matrix4 &m, float *h) {
    for (int j = 0; j < 4; ++j)
        h[j] = p[0] * m.at[0][j] + p[1] * m.at[1][j] + p[2] * m.at[2][j] + w * m.at[3][j];
}

template <int stride, BenchWork work>
void transform(const BenchProblem *p) {
    const Vectors<stride, 3> a = {p->a};
    const Vectors<stride == 12 && work == bench_affine ? 16 : stride, 4> c = {p->c};
    const auto *b = objects<Matrix4>(p->b);
    const Matrix4 projection = b[0], view = work == bench_project ? b[1] : b[0],
                  world = work == bench_project ? b[2] : b[0];
    for (int n = 0; n < p->count; ++n) {
        float h[4], other[4];
        if constexpr (work == bench_project) {
            through(a[n], 1, world, other);
            through(other, other[3], view, h);
            through(h, h[3], projection, other);
            c[n][0] = 320 + 320 * (other[0] / other[3]);
            c[n][1] = 200 - 200 * (other[1] / other[3]);
            c[n][2] = other[2] / other[3];
        } else {
            through(a[n], 1, world, h);
            for (int j = 0; j < (work == bench_affine ? 4 : 3); ++j)
                c[n][j] = work == bench_affine ? h[j] : h[j] / h[3];
        }
    }
}

// The three matrices multiplied once.
template <int stride>
void project_at_once(const BenchProblem *p) {
    const auto *b = objects<Matrix4>(p->b);
    Matrix4 part, m;
    for (int i = 0; i < 4; ++i)
        through(b[2].at[i], b[2].at[i][3], b[1], part.at[i]);
    for (int i = 0; i < 4; ++i)
        through(part.at[i], part.at[i][3], b[0], m.at[i]);
    const Vectors<stride, 3> a = {p->a}, c = {p->c};
    for (int n = 0; n < p->count; ++n) {
        float h[4];
        through(a[n], 1, m, h);
        c[n][0] = 320 + 320 * (h[0] / h[3]);
        c[n][1] = 200 - 200 * (h[1] / h[3]);
        c[n][2] = h[2] / h[3];
    }
}

template <int stride>
void normalize(const BenchProblem *p) {
    const Vectors<stride, 3> a = {p->a}, c = {p->c};
    for (int n = 0; n < p->count; ++n) {
        const float x = a[n][0], y = a[n][1], z = a[n][2];
        const float length = std::sqrt(x * x + y * y + z * z);
        c[n][0] = x / length;
        c[n][1] = y / length;
        c[n][2] = z / length;
    }
}

template <int stride>
void offer_transforms(PeerList &list, BenchMemory memory) {
    const PeerShape three = sum(1, 3);
    list.offer<float>("loop", bench_affine, three, memory, transform<stride, bench_affine>);
    list.offer<float>("loop", bench_coordinate, three, memory, transform<stride, bench_coordinate>);
    list.offer<float>("loop", bench_project, three, memory, transform<stride, bench_project>);
    list.offer<float>("one matrix", bench_project, three, memory, project_at_once<stride>);
    list.offer<float>("loop", bench_normalize, three, memory, normalize<stride>);
}

template <class T, int R, int C>
void offer_sums(PeerList &list) {
    constexpr PeerShape shape = sum(R, C);
    list.offer<T>("loop", bench_add, shape, bench_packed, add<T, R, C>);
    list.offer<T>("flat loop", bench_add, shape, bench_packed, add_flat<T>);
    list.offer<T>("flat loop", bench_add, shape, bench_planar, add_flat<T>);
    list.offer<T>("loop", bench_add, shape, bench_padded, add_strided<T, R, C, true>);
    list.offer<T>("loop", bench_add, shape, bench_gaps, add_strided<T, R, C, false>);
#ifdef BENCH_SSE
    list.offer_bound<T>("stores", bench_add, shape, bench_padded, store_rows<T, R, C>);
    list.offer_bound<T>("stores", bench_add, shape, bench_gaps, store_elements<T, R, C>);
#endif
}

template <class T>
void offer_all(PeerList &list) {
    for_orders<3, 4, 6>([&](auto n) {
        offer_sums<T, n, n>(list);
        offer_sums<T, 1, n>(list);
        list.offer<T>("loop", bench_mul_vector, matrix_vector(n), bench_packed, mul_vector<T, n>);
        list.offer<T>("loop", bench_mul_vector, matrix_vector(n), bench_columns,
                      mul_vector_by_columns<T, n>);
        list.offer<T>("loop", bench_mul, square(n), bench_strided, mul_strided<T, n>);
    });
    for_orders<3, 4, 5, 6, 8>([&](auto n) {
        const PeerShape shape = square(n);
        list.offer<T>("loop", bench_mul, shape, bench_packed, mul<T, n, false, false>);
        list.offer<T>("loop by rows", bench_mul, shape, bench_packed,
                      mul_by_rows<T, n, false, false>);
        list.offer<T>("loop", bench_mul_mam, shape, bench_packed, mul<T, n, false, true>);
        list.offer<T>("loop by rows", bench_mul_mam, shape, bench_packed,
                      mul_by_rows<T, n, false, true>);
        list.offer<T>("loop", bench_mul_mma, shape, bench_packed, mul<T, n, true, false>);
        list.offer<T>("loop by rows", bench_mul_mma, shape, bench_packed,
                      mul_by_rows<T, n, true, false>);
    });
    for_orders<3, 4, 5, 6, 8, 16>([&](auto n) {
        list.offer<T>("loop", bench_lu, square(n), bench_packed, lu<T, n>, bench_pivots_order);
        list.offer<T>("loop", bench_lu, square(n), bench_strided, lu_strided<T, n>,
                      bench_pivots_order);
        list.offer<T>("loop", bench_lu_solve, square(n), bench_packed, lu_solve<T, n>);
        list.offer<T>("loop", bench_cholesky, square(n), bench_packed, cholesky<T, n>,
                      bench_factor);
        list.offer<T>("loop", bench_cholesky_solve, square(n), bench_packed, cholesky_solve<T, n>);
        list.offer<T>("loop", bench_det, square(n), bench_packed, determinant<T, n>);
        list.offer<T>("fused loop", bench_lu_solve, square(n), bench_packed,
                      lu_solve_at_once<T, n>);
    });
}

} // namespace

BenchPeerList bench_peers() {
    return listed([](PeerList &made) {
        offer_all<float>(made);
        offer_all<double>(made);
        offer_transforms<12>(made, bench_packed);
        offer_transforms<16>(made, bench_stride16);
        offer_transforms<32>(made, bench_stride32);
    });
}
