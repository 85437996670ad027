/* Functions of a shared library that do nothing, with the arguments of members of the library. */
#ifndef BENCH_EMPTY_H
#define BENCH_EMPTY_H

#ifdef __cplusplus
extern "C" {
#endif

/* as zelmMul_mm */
int bench_empty_mul(const void *, int, int, int, int, const void *, int, int, int, int, void *, int,
                    int);
/* as zelmAdd_mm */
int bench_empty_add(const void *, int, int, const void *, int, int, void *, int, int, int, int);

#ifdef __cplusplus
}
#endif

#endif
