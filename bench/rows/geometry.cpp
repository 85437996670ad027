// The 3D set: arrays of points, and small members called once per object as their users call them.
#include "rows.hpp"

namespace zelm::bench {
namespace {

void affine(const Problem &p) {
    must(zelmAffineTransform_m4v3a_32f(base<float>(p.b), base<float>(p.a), p.a.object,
                                       base<float>(p.c), p.c.object, p.count));
}
void coordinate(const Problem &p) {
    must(zelmAffineTransformCoord_m4v3a_32f(base<float>(p.b), base<float>(p.a), p.a.object,
                                            base<float>(p.c), p.c.object, p.count));
}
void project(const Problem &p) {
    const float *m = base<float>(p.b);
    must(zelmProject_m4v3a_32f(m, m + 16, m + 32, base<float>(p.a), p.a.object, base<float>(p.c),
                               p.c.object, p.count, 640, 400, 0, 1));
}

float *object(const BenchOperand &o, int n) {
    return reinterpret_cast<float *>(static_cast<char *>(o.base) + std::ptrdiff_t{n} * o.object);
}
void normalize(const Problem &p) {
    for (int n = 0; n < p.count; ++n)
        zelmNormalize_v3_32f(object(p.a, n), object(p.c, n));
}
void multiply(const Problem &p) {
    for (int n = 0; n < p.count; ++n)
        zelmMul_mm4x4_32f(object(p.a, n), object(p.b, n), object(p.c, n));
}
void invert(const Problem &p) {
    for (int n = 0; n < p.count; ++n)
        zelmInvert_m4_32f(object(p.a, n), nullptr, object(p.c, n));
}
void look_at(const Problem &p) {
    for (int n = 0; n < p.count; ++n) {
        const float *a = object(p.a, n);
        zelmLookAtRH_m4_32f(a, a + 3, a + 6, object(p.c, n));
    }
}

} // namespace

void add_geometry_rows(Rows &rows) {
    constexpr Shape three = {1, 0, 3};
    for (const BenchMemory memory : {bench_packed, bench_stride16, bench_stride32}) {
        rows.add<float>({.work = "points",
                         .kind = bench_affine,
                         .shape = three,
                         .library = affine,
                         .memory = memory,
                         .floor = times_best_sse(1.05),
                         .bound = "shuffles, front end"});
        rows.add<float>({.work = "points / w",
                         .kind = bench_coordinate,
                         .shape = three,
                         .library = coordinate,
                         .memory = memory,
                         .floor = times_best_sse(1.2),
                         .bound = "divides"});
        // "one matrix" multiplies the three once and then each point by the product.
        rows.add<float>({.work = "project",
                         .kind = bench_project,
                         .shape = three,
                         .library = project,
                         .memory = memory,
                         .floor = at_least(1, "loop"),
                         .bound = "multiplies"});
        rows.add<float>({.work = "normalize",
                         .kind = bench_normalize,
                         .shape = three,
                         .library = normalize,
                         .memory = memory,
                         .floor = shown("cglm"),
                         .bound = "a call each"});
    }
    struct {
        const char *work;
        BenchWork kind;
        Shape shape;
        LibraryCall call;
    } constexpr singles[] = {{"Mul_mm4x4", bench_mul, order(4), multiply},
                             {"Invert_m4", bench_invert, order(4), invert},
                             {"LookAtRH", bench_look_at, {3, 0, 3}, look_at}};
    for (const auto &single : singles)
        rows.add<float>({.work = single.work,
                         .kind = single.kind,
                         .shape = single.shape,
                         .library = single.call,
                         .floor = shown("cglm"),
                         .bound = "a call each"});
}

} // namespace zelm::bench
