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

static void dot3(const BenchProblem *p) {
    vec3 *a = p->a.base, *b = p->b.base;
    float *c = p->c.base;
    for (int n = 0; n < p->count; ++n)
        c[n] = glm_vec3_dot(a[n], b[n]);
}

static void dot4(const BenchProblem *p) {
    vec4 *a = p->a.base, *b = p->b.base;
    float *c = p->c.base;
    for (int n = 0; n < p->count; ++n)
        c[n] = glm_vec4_dot(a[n], b[n]);
}

static void cross3(const BenchProblem *p) {
    vec3 *a = p->a.base, *b = p->b.base, *c = p->c.base;
    for (int n = 0; n < p->count; ++n)
        glm_vec3_cross(a[n], b[n], c[n]);
}

static void norm3(const BenchProblem *p) {
    vec3 *a = p->a.base;
    float *c = p->c.base;
    for (int n = 0; n < p->count; ++n)
        c[n] = glm_vec3_norm(a[n]);
}

static void transpose4(const BenchProblem *p) {
    mat4 *a = p->a.base, *c = p->c.base;
    for (int n = 0; n < p->count; ++n)
        glm_mat4_transpose_to(a[n], c[n]);
}

static void transpose3(const BenchProblem *p) {
    mat3 *a = p->a.base, *c = p->c.base;
    for (int n = 0; n < p->count; ++n)
        glm_mat3_transpose_to(a[n], c[n]);
}

static float *vector_of(const BenchOperand *o, int n) {
    return (float *)((char *)o->base + (long)n * o->object);
}

static void affine(const BenchProblem *p) {
    mat4 *m = p->b.base;
    for (int n = 0; n < p->count; ++n) {
        const float *a = vector_of(&p->a, n);
        vec4 v = {a[0], a[1], a[2], 1};
        glm_mat4_mulv(*m, v, vector_of(&p->c, n));
    }
}

static void coordinate(const BenchProblem *p) {
    mat4 *m = p->b.base;
    for (int n = 0; n < p->count; ++n) {
        const float *a = vector_of(&p->a, n);
        float *c = vector_of(&p->c, n);
        vec4 v = {a[0], a[1], a[2], 1};
        glm_mat4_mulv(*m, v, v);
        glm_vec3_divs(v, v[3], c);
    }
}

static void normalize(const BenchProblem *p) {
    for (int n = 0; n < p->count; ++n)
        glm_vec3_normalize_to(vector_of(&p->a, n), vector_of(&p->c, n));
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

static void look_at(const BenchProblem *p) {
    mat4 *c = p->c.base;
    for (int n = 0; n < p->count; ++n) {
        float *a = vector_of(&p->a, n);
        glm_lookat(a, a + 3, a + 6, c[n]);
    }
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
        {"cglm", bench_affine, 4, 1, 0, 3, bench_packed, bench_pivots_none, 0, affine},
        {"cglm", bench_coordinate, 4, 1, 0, 3, bench_packed, bench_pivots_none, 0, coordinate},
        {"cglm", bench_coordinate, 4, 1, 0, 3, bench_strided, bench_pivots_none, 0, coordinate},
        {"cglm", bench_normalize, 4, 1, 0, 3, bench_packed, bench_pivots_none, 0, normalize},
        {"cglm", bench_normalize, 4, 1, 0, 3, bench_strided, bench_pivots_none, 0, normalize},
        {"cglm", bench_dot, 4, 1, 0, 3, bench_packed, bench_pivots_none, 0, dot3},
        {"cglm", bench_dot, 4, 1, 0, 4, bench_packed, bench_pivots_none, 0, dot4},
        {"cglm", bench_cross, 4, 1, 0, 3, bench_packed, bench_pivots_none, 0, cross3},
        {"cglm", bench_norm, 4, 1, 0, 3, bench_packed, bench_pivots_none, 0, norm3},
        {"cglm", bench_transpose, 4, 4, 0, 4, bench_packed, bench_pivots_none, 0, transpose4},
        {"cglm", bench_transpose, 4, 3, 0, 3, bench_packed, bench_pivots_none, 0, transpose3},
        {"cglm", bench_look_at, 4, 3, 0, 3, bench_packed, bench_pivots_none, 0, look_at},
    };
    BenchPeerList list = {peers, sizeof peers / sizeof *peers};
    return list;
}
