"""The patterns of NumPy's own tests of numpy.linalg, called with both modules."""

import itertools
import unittest
import unittest.mock

import numpy
import numpy.linalg
import zelm
from numpy.lib.stride_tricks import as_strided
from numpy.testing import assert_allclose

random = numpy.random.default_rng(1234)


def transposed(x):
    return numpy.swapaxes(x, -1, -2)


def strided(x):
    """x with other strides: its own ones, gaps, and backwards, along each of its last three axes;
    0 where an axis has one element only."""
    steps = [(1,)] * max(x.ndim - 3, 0) + [(1, -4), (1, 3, -4), (1, 3, -4)][-x.ndim :]
    for step in itertools.product(*steps):
        y = numpy.full([n * abs(s) for n, s in zip(x.shape, step)], numpy.nan, x.dtype)
        y = y[tuple(slice(None, None, s) for s in step)]
        y[...] = x
        yield y
    if 1 in x.shape[-2:]:
        yield as_strided(x, strides=[s if n > 1 else 0 for s, n in zip(x.strides, x.shape)])


def stacks(x):
    yield x
    yield numpy.array([x, 2 * x, 3 * x])
    yield numpy.array([x * k for k in range(1, 7)]).reshape(3, 2, *x.shape)


def operands(*shapes, symmetric=False):
    """Operands of the given shapes in both types, alone, stacked, and with strides of all kinds."""
    for dtype in (numpy.float32, numpy.float64):
        matrices = [random.random(shape).astype(dtype) for shape in shapes]
        if symmetric:
            matrices = [x @ x.T + len(x) * numpy.eye(len(x), dtype=dtype) for x in matrices]
        for stacked in zip(*(stacks(x) for x in matrices)):
            if len(shapes) == 1:
                yield from zip(strided(stacked[0]))
            else:
                yield from ((x, stacked[1]) for x in strided(stacked[0]))
                yield from ((stacked[0], x) for x in strided(stacked[1]))


square = [(n, n) for n in (0, 1, 2, 3, 4, 5, 6, 7, 8)]
nonsquare = [(2, 3), (3, 2), (8, 11), (11, 8), (1, 5), (5, 1), (0, 4), (4, 0)]


class Comparison(unittest.TestCase):
    def close(self, actual, expected, factor=1):
        actual, expected = numpy.asarray(actual), numpy.asarray(expected)
        self.assertEqual((actual.shape, actual.dtype), (expected.shape, expected.dtype))
        tolerance = factor * (1e-3 if actual.real.dtype == numpy.float32 else 1e-11)
        assert_allclose(actual, expected, rtol=tolerance, atol=tolerance)

    def same_results(self, call, *given, **options):
        actual, expected = call(zelm), call(numpy.linalg)
        many = isinstance(expected, tuple)
        for x, y in zip(actual, expected) if many else [(actual, expected)]:
            self.close(x, y, **options)

    def test_functions_of_square_matrices(self):
        for shape in square:
            for (a,) in operands(shape):
                a += numpy.asarray(3 * numpy.eye(shape[0]), a.dtype)
                for name in ("inv", "det", "slogdet"):
                    with self.subTest(name, shape=a.shape, strides=a.strides):
                        self.same_results(lambda m: getattr(m, name)(a))

    def test_solve(self):
        for n in (0, 1, 2, 3, 4, 6, 8):
            for k in (0, 1, 2, 5):
                for a, b in operands((n, n), (n, k)):
                    a = a + numpy.asarray(3 * numpy.eye(n), a.dtype)
                    with self.subTest(a=(a.shape, a.strides), b=(b.shape, b.strides)):
                        self.same_results(lambda m: m.solve(a, b))
            for a, b in operands((n, n), (n,)):
                a = a + numpy.asarray(3 * numpy.eye(n), a.dtype)
                with self.subTest(a=(a.shape, a.strides), b=(b.shape, b.strides)):
                    self.same_results(lambda m: m.solve(a, b))

    def test_functions_of_symmetric_matrices(self):
        for shape in square:
            for (a,) in operands(shape, symmetric=True):
                with self.subTest(shape=a.shape, strides=a.strides):
                    self.same_results(lambda m: m.cholesky(a))
                    self.close(zelm.cholesky(a, upper=True), transposed(numpy.linalg.cholesky(a)))
                    for triangle in "LU":
                        self.same_results(lambda m: m.eigvalsh(a, triangle), factor=shape[0])
                        values, vectors = zelm.eigh(a, UPLO=triangle)
                        self.close(values, numpy.linalg.eigh(a)[0], factor=shape[0])
                        self.orthonormal(vectors)
                        self.close(a @ vectors, values[..., None, :] * vectors, factor=shape[0])

    def orthonormal(self, q):
        unit = numpy.eye(q.shape[-1], dtype=q.dtype)
        self.close(transposed(q) @ q, numpy.broadcast_to(unit, q.shape[:-2] + unit.shape))

    def test_only_one_triangle_is_read(self):
        for n in (2, 3, 5, 8):
            (a,) = next(operands((n, n), symmetric=True))
            lower, upper = numpy.tril(a), numpy.triu(a)
            lower[numpy.triu_indices(n, 1)] = upper[numpy.tril_indices(n, -1)] = numpy.nan
            self.close(zelm.cholesky(lower), numpy.linalg.cholesky(a))
            self.close(zelm.cholesky(upper, upper=True), numpy.linalg.cholesky(a).T)
            self.close(zelm.eigvalsh(lower), numpy.linalg.eigvalsh(a), factor=n)
            self.close(zelm.eigh(upper, "u").eigenvalues, numpy.linalg.eigvalsh(a), factor=n)

    def test_eig(self):
        rotation = numpy.array([[0.0, 1], [-1, 0]])
        for shape in square:
            for (a,) in operands(shape):
                with self.subTest(shape=a.shape, strides=a.strides):
                    values, vectors = zelm.eig(a)
                    expected = numpy.linalg.eigvals(a)
                    self.assertEqual(values.dtype, expected.dtype)
                    self.close(numpy.sort(values), numpy.sort(expected), factor=10)
                    self.close(zelm.eigvals(a), values, factor=10)
                    self.close(a @ vectors, values[..., None, :] * vectors, factor=10)
                    self.close((abs(vectors) ** 2).sum(-2), numpy.ones(values.shape, a.dtype))
        # one complex pair makes the whole stack complex
        values = zelm.eigvals([numpy.eye(2), rotation])
        self.close(values, numpy.array([[1, 1], [1j, -1j]]))

    def test_qr(self):
        for shape in square + nonsquare:
            for (a,) in operands(shape):
                for mode in ("reduced", "complete"):
                    with self.subTest(mode, shape=a.shape, strides=a.strides):
                        q, r = zelm.qr(a, mode)
                        expected_q, expected_r = numpy.linalg.qr(a, mode)
                        self.assertEqual(q.shape, expected_q.shape)
                        self.close(abs(r), abs(expected_r))
                        self.close(q @ r, a)
                        self.orthonormal(q)
                self.close(abs(zelm.qr(a, "r")), abs(numpy.linalg.qr(a, "r")))

    def test_lstsq(self):
        for m, n in [(1, 1), (2, 2), (3, 2), (8, 3), (11, 8), (5, 1)]:
            for a, b in itertools.chain(operands((m, n), (m,)), operands((m, n), (m, 2))):
                with self.subTest(a=(a.shape, a.strides), b=(b.shape, b.strides)):
                    x, residuals = zelm.lstsq(a, b, rcond=None)
                    if a.ndim == 2:
                        expected, expected_residuals, *_ = numpy.linalg.lstsq(a, b, rcond=None)
                        self.close(x, expected, factor=10)
                        if expected_residuals.size:
                            self.close(residuals, expected_residuals)
                    columns = b[..., None] if b.ndim == a.ndim - 1 else b
                    rest = columns - a @ x.reshape(*a.shape[:-2], n, -1)
                    self.close((rest**2).sum(-2), residuals)
        x, residuals = zelm.lstsq(numpy.empty((4, 0)), [1.0, 2, 3, 4])
        self.assertEqual((x.shape, residuals.tolist()), ((0,), [30.0]))

    def test_products(self):
        shapes = [(1, 1, 1), (2, 2, 2), (3, 3, 3), (4, 4, 4), (3, 5, 2), (8, 8, 8), (2, 0, 3)]
        for m, k, n in shapes:
            for a, b in operands((m, k), (k, n)):
                with self.subTest(a=(a.shape, a.strides), b=(b.shape, b.strides)):
                    c = numpy.matmul(a, b)
                    row, column = a[..., 0, :], b[..., 0]
                    self.close(zelm.matmul(a, b), c)
                    self.close(zelm.matmul(transposed(b), transposed(a)), transposed(c))
                    self.close(zelm.matvec(a, column), c[..., 0])
                    self.close(zelm.vecdot(row, column), c[..., 0, 0])
                    if b.ndim == 2:
                        self.close(zelm.matmul(a, column), c[..., 0])
                        self.close(zelm.matmul(row, b), c[0])
                        self.close(zelm.matmul(row, column), c[0, 0])
                    if b.ndim == 3:  # one operand for all of the other's
                        self.close(zelm.matmul(a[1], b), numpy.matmul(a[1], b))
                        self.close(zelm.matmul(a, b[1]), numpy.matmul(a, b[1]))
                        self.close(zelm.matvec(a[1], column), numpy.matmul(a[1], b)[..., 0])
                        self.close(zelm.matvec(a, column[1]), numpy.matmul(a, b[1])[..., 0])
                        self.close(zelm.vecdot(row[1], column), numpy.matmul(a[1], b)[..., 0, 0])
                        self.close(
                            zelm.vecdot(row[:, None], column),
                            numpy.matmul(a[:, None], b)[..., 0, 0],
                        )
        for a, b in operands((3,), (3,)):
            self.close(zelm.cross(a, b), numpy.cross(a, b))
            if b.ndim == 2:
                self.close(zelm.cross(a[0], b), numpy.cross(a[0], b))
                self.close(zelm.cross(a, b[0]), numpy.cross(a, b[0]))
                self.close(zelm.cross(a, b, axis=0), numpy.cross(a, b, axis=0))

    def test_norms_and_traces(self):
        for shape in square + nonsquare:
            for (a,) in operands(shape):
                with self.subTest(shape=a.shape, strides=a.strides):
                    for axis in (-1, 0, (-2, -1), (-1, -2)):
                        for keepdims in (False, True):
                            self.same_results(lambda m: m.norm(a, axis=axis, keepdims=keepdims))
                    self.same_results(lambda m: m.norm(a))
                    self.same_results(lambda m: m.norm(a, keepdims=True))
                    self.same_results(lambda m: m.norm(a, "fro", (-2, -1)))
                    for offset in range(-2, 4):
                        expected = numpy.trace(a, offset=offset, axis1=-2, axis2=-1)
                        self.close(zelm.trace(a, offset=offset), expected)
        for ord in (None, 0, 1, -1, 2, -2, 3, 0.5, numpy.inf, -numpy.inf):
            self.same_results(lambda m: m.norm([[1, -2, 3], [4, 5, 6]], ord, axis=1))
        for ord in (None, "fro", 1, -1, numpy.inf, -numpy.inf):
            self.same_results(lambda m: m.norm([[1, -2, 3], [4, 5, 6]], ord))

    def test_types(self):
        a = [[2, 1], [1, 3]]
        for dtype in (bool, "i1", "u2", "i4", "u8", ">f8", ">f4", "f4", "f8"):
            for name in ("inv", "det", "eigvalsh", "cholesky"):
                x = numpy.array(a, dtype)
                if dtype == bool:
                    x = numpy.eye(2, dtype=bool)
                self.same_results(lambda m: getattr(m, name)(x))
        for first, second in itertools.product(("i1", "f4", "f8"), repeat=2):
            x, y = numpy.array(a, first), numpy.array(a, second)
            self.same_results(lambda m: m.solve(x, y))

    def test_broadcasting(self):
        a = random.random((4, 1, 3, 3)) + 3 * numpy.eye(3)
        b = random.random((1, 5, 3, 2))
        self.same_results(lambda m: m.solve(a, b))
        self.same_results(lambda m: m.solve(a[0, 0], b))
        self.same_results(lambda m: m.solve(a[:, 0], b[0, :4, :, 0]))
        self.close(zelm.matmul(a, b), numpy.matmul(a, b))

    def test_vectors_as_numpy_2_has_them(self):
        a = random.random((3, 3, 3)) + 3 * numpy.eye(3)
        b = random.random((3, 3))
        with unittest.mock.patch.object(zelm, "_vectors_by_dimension", False):
            self.close(zelm.solve(a, b), numpy.linalg.solve(a, numpy.stack([b] * 3)))
            self.close(zelm.solve(a, b[0]), numpy.linalg.solve(a, numpy.stack([b[0]] * 3)))
        with unittest.mock.patch.object(zelm, "_vectors_by_dimension", True):
            x = zelm.solve(a, b)
            self.close(zelm.solve(a, b[..., None])[..., 0], x)
            self.close(zelm.solve(a, b[0]), zelm.solve(a, numpy.stack([b[0]] * 3)))

    def test_empty_stacks(self):
        for shape in ((0, 3, 3), (2, 0, 4, 4), (0, 0, 0)):
            a = numpy.empty(shape, numpy.float32)
            for name in ("inv", "det", "slogdet", "cholesky", "eigvalsh", "eigvals"):
                self.same_results(lambda m: getattr(m, name)(a))
            for name in ("eigh", "eig", "qr"):
                self.same_results(lambda m: tuple(getattr(m, name)(a)))
            self.same_results(lambda m: m.solve(a, a))
            self.close(zelm.matmul(a, a), a)


if __name__ == "__main__":
    unittest.main()
