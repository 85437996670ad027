/*
 * zelcore.h: what the library asks about the machine
 *
 * libzelcore.so.7.1 answers how many threads may be used, what the processor can do and how large
 * its caches are. The numbers of threads given by zelSetNumThreads and by the environment are the
 * only state it keeps. Every function may be called from several threads at once.
 */
#ifndef ZELCORE_H
#define ZELCORE_H

#ifndef ZELCORE_API
#if defined(__GNUC__)
#define ZELCORE_API __attribute__((visibility("default")))
#else
#define ZELCORE_API
#endif
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* One bit per feature of the processor. */
enum {
    zelCpuMmx = 1,
    zelCpuSse = 2,
    zelCpuSse2 = 4,
    zelCpuSse3 = 8,
    zelCpuSsse3 = 16,
    zelCpuPopcnt = 32,
    zelCpuSse41 = 64,
    zelCpuSse42 = 128,
    zelCpuAvx = 256,
    zelCpuFma = 512,
    zelCpuAvx2 = 1024,
    zelCpuAvx512f = 2048
};

/* A sum of feature bits, 64 bits wide in every language: C89 and C++98 have no long long, and
 * unsigned long is passed alike on x86-64. */
#if (defined(__cplusplus) && __cplusplus >= 201103L) ||                                            \
    (defined(__STDC_VERSION__) && __STDC_VERSION__ >= 199901L)
typedef unsigned long long ZelCpuFeatures;
#else
typedef unsigned long ZelCpuFeatures;
#endif

/* The number of threads that a call may use, at least 1. The first of these that applies:
 *   1 in a forked child, where an OpenMP runtime may hang;
 *   the number set by zelSetNumThreads;
 *   the environment variable ZEL_NUM_THREADS as it is when the library is loaded, if it is a whole
 *   number from 1 to INT_MAX;
 *   omp_get_max_threads() of the calling thread. */
ZELCORE_API int ownGetNumThreads(void);

/* Sets the number of threads for the whole process; n = 0 withdraws an earlier setting. It has no
 * effect on what a forked child is told. Returns 0, or -6 (bad size) for n < 0, which changes
 * nothing. */
ZELCORE_API int zelSetNumThreads(int n);

/* Not zero if the processor has, and the operating system enables, every feature in code, a sum of
 * the bits above. 0 for code 0 and for bits that are not listed. */
ZELCORE_API int ownGetFeature(int code);

/* Writes the features that the processor has. Returns 0, or -8 (null pointer). */
ZELCORE_API int zelGetCpuFeatures(ZelCpuFeatures *mask);

/* The features that the processor has and the operating system enables. AVX and what builds on it
 * need registers that the operating system must save. */
ZELCORE_API ZelCpuFeatures zelGetEnabledCpuFeatures(void);

/* Writes the size in bytes of the largest data or unified cache: 0 if it is unknown, INT_MAX if it
 * is larger than that. Returns 0, or -8 (null pointer). */
ZELCORE_API int zelGetMaxCacheSizeB(int *sizeB);

#ifdef __cplusplus
}
#endif

#endif
