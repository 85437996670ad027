/*
 * What a peer module offers: a list of functions, each for one work, one element type, one shape
 * and one kind of memory. Every module is built twice, for SSE4.2 and for the machine, as a shared
 * object that exports bench_peers and nothing else: inline functions and templates of the two
 * builds have the same names, and only hidden ones are kept apart.
 */
#ifndef BENCH_PEER_H
#define BENCH_PEER_H

#ifdef __cplusplus
extern "C" {
#endif

typedef enum BenchWork {
    bench_add,        /* c = a + b, rows x columns; a vector is one row */
    bench_mul,        /* c = a * b, (rows x inner) * (inner x columns) */
    bench_mul_mam,    /* the same with one b for all objects */
    bench_mul_mma,    /* the same with one a for all objects */
    bench_mul_vector, /* c = a * b, (rows x inner) * (vector of length inner) */
    bench_lu,         /* c = the factors of a, with row pivots; rows = inner = columns */
    bench_lu_solve,   /* c = the solution of a * c = b with vectors b and c */
    bench_cholesky,   /* c = the factor of a, symmetric and definite; rows = inner = columns */
    bench_cholesky_solve,
    bench_invert, /* c = the inverse of a */
    bench_det,    /* c = the determinant of a, one number per object */
    bench_qr, /* c = R of a = Q * R on and above the diagonal, rows x columns; inner = columns */
    bench_qr_solve,  /* c minimises |a * c - b|; b has rows elements, c columns */
    bench_dot,       /* c = the sum of the products of a and b, vectors; one number per object */
    bench_cross,     /* c = a x b, vectors of three */
    bench_norm,      /* c = the root of the sum of the squares of a; one number per object */
    bench_transpose, /* c = a transposed; a is rows x columns */
    bench_saxpy,     /* c = a * scale1 + b, vectors */
    bench_lcomb,     /* c = a * scale1 + b * scale2, vectors */
    bench_copy,      /* c = a, rows x columns */
    bench_pack,      /* the same, only a lies in the memory named, c is packed */
    bench_unpack,    /* the same, only c lies in the memory named, a is packed */
    bench_gaxpy,     /* c = a * b + d with one matrix a, vectors b and d */
    bench_gaxpy_one, /* the same with one d for all objects */
    /* float only; b is one matrix, points are rows of three in front of it, c and a arrays */
    bench_affine,     /* c = the point a with w = 1 through b, four columns */
    bench_coordinate, /* c = the point a through b, divided by its w */
    bench_project,    /* b is three matrices, the last first; to a viewport of 640 x 400 x 0..1 */
    bench_normalize,  /* c = a, divided by its length */
    bench_look_at,    /* c = the right-handed view of the rows eye, at, up of a */
    /* Eigenproblems: c = the vectors as columns, b = the values or their real parts; without
     * vectors c = those values. factors = the imaginary parts. */
    bench_symmetric,
    bench_symmetric_values,
    bench_right_vectors,
    bench_general_values
} BenchWork;

typedef enum BenchMemory {
    bench_packed,   /* rows and objects follow one another */
    bench_padded,   /* one unused element behind each row */
    bench_gaps,     /* one unused element behind each element */
    bench_planar,   /* the same element of all objects adjacent */
    bench_columns,  /* packed, matrices stored by columns */
    bench_stride16, /* vectors 16 and 32 bytes apart */
    bench_stride32,
    bench_strided /* offered by a peer: any memory but packed, told by the strides */
} BenchMemory;

/* How the result of bench_lu tells the order of its rows, and how other factors are stored. */
typedef enum BenchPivots {
    bench_pivots_none,
    bench_pivots_stay,          /* pivot row i is row index[i] of c and of a */
    bench_pivots_order,         /* pivot row i is row i of c and row index[i] of a */
    bench_pivots_inverse,       /* row i of a is pivot row index[i] of c */
    bench_pivots_inverse_of_at, /* as above, a and c read by columns */
    bench_pivots_swaps_of_at,   /* row i was exchanged with row index[i] - 1; read by columns */
    bench_factor,               /* of bench_cholesky: L; without it the diagonal is inverted */
    bench_factor_by_columns     /* L or R, stored by columns */
} BenchPivots;

/* Strides in bytes: between objects, rows and elements of a row. */
typedef struct BenchOperand {
    void *base;
    int object, row, element;
} BenchOperand;

typedef struct BenchProblem {
    BenchOperand a, b, c, d;
    BenchOperand factors; /* of solutions, for who keeps them between the two steps */
    int *index;           /* rows entries per object */
    double scale1, scale2;
    int rows, inner, columns;
    int count;
} BenchProblem;

typedef struct BenchPeer {
    const char *name;
    BenchWork work;
    int element_size;
    int rows, inner, columns;
    BenchMemory memory;
    BenchPivots pivots;
    int is_bound; /* does part of the work only, to show what limits it */
    void (*run)(const BenchProblem *);
} BenchPeer;

typedef struct BenchPeerList {
    const BenchPeer *peers;
    int count;
} BenchPeerList;

__attribute__((visibility("default"))) BenchPeerList bench_peers(void);

#ifdef __cplusplus
}
#endif

#endif
