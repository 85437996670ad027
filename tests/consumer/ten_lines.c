/* Solves a thousand systems of three equations in two calls. The README shows all but main. */
#include <stdio.h>

#include <zelm.h>

enum { count = 1000, element = sizeof(double), row = 3 * element, matrix = 3 * row }; /* bytes */
static double a[count][3][3], b[count][3], x[count][3];
static int rows[count][3];

ZelStatus solve_all(void) { /* a[n] * x[n] = b[n], for every n; a becomes its own factors */
    ZelStatus status = zelmLUDecomp_ma_64f(&a[0][0][0], matrix, row, element, &rows[0][0],
                                           &a[0][0][0], matrix, row, element, 3, count);
    if (status == zelStatusOk)
        status = zelmLUBackSubst_mava_64f(&a[0][0][0], matrix, row, element, &rows[0][0], &b[0][0],
                                          row, element, &x[0][0], row, element, 3, count);
    return status;
}

int main(void) {
    ZelStatus status;
    int n;
    for (n = 0; n < count; ++n) { /* (n + 1) y + z = 2 n + 5,  x + z = 4,  2 x + y = 4 */
        a[n][0][1] = n + 1;
        a[n][0][2] = a[n][1][0] = a[n][1][2] = a[n][2][1] = 1;
        a[n][2][0] = 2;
        b[n][0] = 2 * n + 5;
        b[n][1] = b[n][2] = 4;
    }
    status = solve_all();
    n = count - 1;
    printf("status %d, the last solution: %.3f %.3f %.3f\n", status, x[n][0], x[n][1], x[n][2]);
    return status != zelStatusOk;
}
