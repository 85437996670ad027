#include "empty.h"

int bench_empty_mul(const void *a, int a1, int a2, int aw, int ah, const void *b, int b1, int b2,
                    int bw, int bh, void *c, int c1, int c2) {
    (void)a, (void)a1, (void)a2, (void)aw, (void)ah, (void)b, (void)b1, (void)b2, (void)bw;
    (void)bh, (void)c, (void)c1, (void)c2;
    return 0;
}

int bench_empty_add(const void *a, int a1, int a2, const void *b, int b1, int b2, void *c, int c1,
                    int c2, int width, int height) {
    (void)a, (void)a1, (void)a2, (void)b, (void)b1, (void)b2, (void)c, (void)c1, (void)c2;
    (void)width, (void)height;
    return 0;
}
