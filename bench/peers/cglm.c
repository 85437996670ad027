/* cglm stores by columns: memory with rows holds the transposes, and the factors change places. */
#include <cglm/cglm.h>

#include "peer.h"

static void mul4(const BenchProblem *p) {
    mat4 *a = p->a.base, *b = p->b.base, *c = p->c.base;
    for (int n = 0; n < p->count; ++n)
        glm_mat4_mul(b[n], a[n], c[n]);
}

static void mul4_mam(const BenchProblem *p) {
    mat4 *a = p->a.base, *b = p->b.base, *c = p->c.base;
    for (int n = 0; n < p->count; ++n)
        glm_mat4_mul(b[0], a[n], c[n]);
}

static void mul4_mma(const BenchProblem *p) {
    mat4 *a = p->a.base, *b = p->b.base, *c = p->c.base;
    for (int n = 0; n < p->count; ++n)
        glm_mat4_mul(b[n], a[0], c[n]);
}

static void mul3(const BenchProblem *p) {
    mat3 *a = p->a.base, *b = p->b.base, *c = p->c.base;
    for (int n = 0; n < p->count; ++n)
        glm_mat3_mul(b[n], a[n], c[n]);
}

static void mul4_vector(const BenchProblem *p) {
    mat4 *a = p->a.base;
    vec4 *b = p->b.base, *c = p->c.base;
    for (int n = 0; n < p->count; ++n)
        glm_mat4_mulv(a[n], b[n], c[n]);
}

static void mul3_vector(const BenchProblem *p) {
    mat3 *a = p->a.base;
    vec3 *b = p->b.base, *c = p->c.base;
    for (int n = 0; n < p->count; ++n)
        glm_mat3_mulv(a[n], b[n], c[n]);
}

static void add3_vector(const BenchProblem *p) {
    vec3 *a = p->a.base, *b = p->b.base, *c = p->c.base;
    for (int n = 0; n < p->count; ++n)
        glm_vec3_add(a[n], b[n], c[n]);
}

static void invert4(const BenchProblem *p) {
    mat4 *a = p->a.base, *c = p->c.base;
    for (int n = 0; n < p->count; ++n)
        glm_mat4_inv(a[n], c[n]);
}

static void invert3(const BenchProblem *p) {
    mat3 *a = p->a.base, *c = p->c.base;
    for (int n = 0; n < p->count; ++n)
        glm_mat3_inv(a[n], c[n]);
}

static void determinant4(const BenchProblem *p) {
    mat4 *a = p->a.base;
    float *c = p->c.base;
    for (int n = 0; n < p->count; ++n)
        c[n] = glm_mat4_det(a[n]);
}

static void determinant3(const BenchProblem *p) {
    mat3 *a = p->a.base;
    float *c = p->c.base;
    for (int n = 0; n < p->count; ++n)
        c[n] = glm_mat3_det(a[n]);
}

BenchPeerList bench_peers(void) {
    static const BenchPeer peers[] = {
        {"cglm", bench_mul, 4, 4, 4, 4, bench_packed, bench_pivots_none, 0, mul4},
        {"cglm", bench_mul_mam, 4, 4, 4, 4, bench_packed, bench_pivots_none, 0, mul4_mam},
        {"cglm", bench_mul_mma, 4, 4, 4, 4, bench_packed, bench_pivots_none, 0, mul4_mma},
        {"cglm", bench_mul, 4, 3, 3, 3, bench_packed, bench_pivots_none, 0, mul3},
        {"cglm", bench_invert, 4, 4, 4, 4, bench_packed, bench_pivots_none, 0, invert4},
        {"cglm", bench_invert, 4, 3, 3, 3, bench_packed, bench_pivots_none, 0, invert3},
        {"cglm", bench_det, 4, 4, 4, 4, bench_packed, bench_pivots_none, 0, determinant4},
        {"cglm", bench_det, 4, 3, 3, 3, bench_packed, bench_pivots_none, 0, determinant3},
        {"cglm", bench_mul_vector, 4, 4, 4, 1, bench_columns, bench_pivots_none, 0, mul4_vector},
        {"cglm", bench_mul_vector, 4, 3, 3, 1, bench_columns, bench_pivots_none, 0, mul3_vector},
        {"cglm", bench_add, 4, 1, 0, 3, bench_packed, bench_pivots_none, 0, add3_vector},
    };
    BenchPeerList list = {peers, sizeof peers / sizeof *peers};
    return list;
}
