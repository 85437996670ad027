// GLM stores by columns: memory with rows holds the transposes, and the factors change places.
// "GLM" uses the packed types and leaves them to the compiler, "GLM aligned" the types with
// intrinsics.
#define GLM_FORCE_INTRINSICS
#define GLM_FORCE_ALIGNED_GENTYPES
#include <glm/ext/matrix_transform.hpp>
#include <glm/glm.hpp>
#include <glm/gtc/type_aligned.hpp>
#include <glm/matrix.hpp>

#include "peer_list.hpp"

namespace {

template <class Object>
void add(const BenchProblem *p) {
    const auto *a = objects<Object>(p->a);
    const auto *b = objects<Object>(p->b);
    auto *c = results<Object>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n] = a[n] + b[n];
}

template <class Matrix, bool SingleA, bool SingleB>
void mul(const BenchProblem *p) {
    const auto *a = objects<Matrix>(p->a);
    const auto *b = objects<Matrix>(p->b);
    auto *c = results<Matrix>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n] = b[SingleB ? 0 : n] * a[SingleA ? 0 : n];
}

template <class Matrix, class Vector>
void mul_vector(const BenchProblem *p) {
    const auto *a = objects<Matrix>(p->a);
    const auto *b = objects<Vector>(p->b);
    auto *c = results<Vector>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n] = b[n] * a[n];
}

template <class Matrix, class Vector>
void mul_vector_by_columns(const BenchProblem *p) {
    const auto *a = objects<Matrix>(p->a);
    const auto *b = objects<Vector>(p->b);
    auto *c = results<Vector>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n] = a[n] * b[n];
}

template <class Vector>
void dot(const BenchProblem *p) {
    const auto *a = objects<Vector>(p->a);
    const auto *b = objects<Vector>(p->b);
    auto *c = results<typename Vector::value_type>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n] = glm::dot(a[n], b[n]);
}

template <class Vector>
void cross(const BenchProblem *p) {
    const auto *a = objects<Vector>(p->a);
    const auto *b = objects<Vector>(p->b);
    auto *c = results<Vector>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n] = glm::cross(a[n], b[n]);
}

template <class Vector>
void norm(const BenchProblem *p) {
    const auto *a = objects<Vector>(p->a);
    auto *c = results<typename Vector::value_type>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n] = glm::length(a[n]);
}

template <class Matrix>
void transpose(const BenchProblem *p) {
    const auto *a = objects<Matrix>(p->a);
    auto *c = results<Matrix>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n] = glm::transpose(a[n]);
}

// The matrix by rows: the vector stands on its left.
template <class Matrix, class Vector, bool one_addend>
void gaxpy(const BenchProblem *p) {
    const Matrix a = objects<Matrix>(p->a)[0];
    const auto *b = objects<Vector>(p->b);
    const auto *d = objects<Vector>(p->d);
    auto *c = results<Vector>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n] = b[n] * a + d[one_addend ? 0 : n];
}

template <glm::qualifier Q, BenchWork work>
void transform(const BenchProblem *p) {
    using Result = glm::vec<work == bench_affine ? 4 : 3, float, glm::packed_highp>;
    const auto m = objects<glm::mat<4, 4, float, Q>>(p->b)[0];
    const auto *a = objects<glm::vec<3, float, glm::packed_highp>>(p->a);
    auto *c = results<Result>(p->c);
    for (int n = 0; n < p->count; ++n) {
        const auto h = m * glm::vec<4, float, Q>(a[n].x, a[n].y, a[n].z, 1);
        c[n] = Result(work == bench_affine ? h : h / h.w);
    }
}

void normalize(const BenchProblem *p) {
    const auto *a = objects<glm::vec<3, float, glm::packed_highp>>(p->a);
    auto *c = results<glm::vec<3, float, glm::packed_highp>>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n] = glm::normalize(a[n]);
}

template <class Matrix>
void invert(const BenchProblem *p) {
    const auto *a = objects<Matrix>(p->a);
    auto *c = results<Matrix>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n] = glm::inverse(a[n]);
}

template <class Matrix>
void determinant(const BenchProblem *p) {
    const auto *a = objects<Matrix>(p->a);
    auto *c = results<typename Matrix::value_type>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n] = glm::determinant(a[n]);
}

void look_at(const BenchProblem *p) {
    using Vector = glm::vec<3, float, glm::packed_highp>;
    const auto *a = objects<Vector>(p->a);
    auto *c = results<glm::mat<4, 4, float, glm::packed_highp>>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n] = glm::lookAtRH(a[3 * n], a[3 * n + 1], a[3 * n + 2]);
}

template <glm::qualifier Q>
void offer_geometry(PeerList &list, const char *name) {
    list.offer<float>(name, bench_affine, sum(1, 3), bench_packed, transform<Q, bench_affine>);
    list.offer<float>(name, bench_coordinate, sum(1, 3), bench_packed,
                      transform<Q, bench_coordinate>);
}

template <class T, int N, glm::qualifier Q>
void offer_order(PeerList &list, const char *name) {
    using Matrix = glm::mat<N, N, T, Q>;
    using Vector = glm::vec<N, T, Q>;
    static_assert(sizeof(Matrix) == sizeof(T) * N * N);
    list.offer<T>(name, bench_add, sum(N, N), bench_packed, add<Matrix>);
    list.offer<T>(name, bench_add, sum(1, N), bench_packed, add<Vector>);
    list.offer<T>(name, bench_mul, square(N), bench_packed, mul<Matrix, false, false>);
    list.offer<T>(name, bench_invert, square(N), bench_packed, invert<Matrix>);
    list.offer<T>(name, bench_det, square(N), bench_packed, determinant<Matrix>);
    list.offer<T>(name, bench_mul_mam, square(N), bench_packed, mul<Matrix, false, true>);
    list.offer<T>(name, bench_mul_mma, square(N), bench_packed, mul<Matrix, true, false>);
    list.offer<T>(name, bench_mul_vector, matrix_vector(N), bench_packed,
                  mul_vector<Matrix, Vector>);
    list.offer<T>(name, bench_mul_vector, matrix_vector(N), bench_columns,
                  mul_vector_by_columns<Matrix, Vector>);
    list.offer<T>(name, bench_dot, sum(1, N), bench_packed, dot<Vector>);
    list.offer<T>(name, bench_norm, sum(1, N), bench_packed, norm<Vector>);
    if constexpr (N == 3)
        list.offer<T>(name, bench_cross, sum(1, N), bench_packed, cross<Vector>);
    list.offer<T>(name, bench_transpose, sum(N, N), bench_packed, transpose<Matrix>);
    list.offer<T>(name, bench_gaxpy, matrix_vector(N), bench_packed, gaxpy<Matrix, Vector, false>);
    list.offer<T>(name, bench_gaxpy_one, matrix_vector(N), bench_packed,
                  gaxpy<Matrix, Vector, true>);
}

} // namespace

BenchPeerList bench_peers() {
    return listed([](PeerList &made) {
        offer_order<float, 3, glm::packed_highp>(made, "GLM");
        offer_order<float, 4, glm::packed_highp>(made, "GLM");
        offer_order<float, 4, glm::aligned_highp>(made, "GLM aligned");
        offer_order<double, 3, glm::packed_highp>(made, "GLM");
        offer_order<double, 4, glm::packed_highp>(made, "GLM");
        offer_order<double, 4, glm::aligned_highp>(made, "GLM aligned");
        offer_geometry<glm::packed_highp>(made, "GLM");
        offer_geometry<glm::aligned_highp>(made, "GLM aligned");
        made.offer<float>("GLM", bench_normalize, sum(1, 3), bench_packed, normalize);
        made.offer<float>("GLM", bench_look_at, sum(3, 3), bench_packed, look_at);
    });
}
