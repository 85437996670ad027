"""Objects that fail, and operands that cannot be."""

import pickle
import unittest

import numpy
import zelm
from numpy.testing import assert_array_equal
from zelm import LinAlgError, Status

singular = [[1.0, 2], [2, 4]]
regular = [[2.0, 1], [1, 2]]
indefinite = [[1.0, 2], [2, 1]]
infinite = [[1.0, numpy.inf], [numpy.inf, 1]]
unknown = [[numpy.nan, 1], [1, 2]]
huge = [[1e200, 0], [0, 1e200]]

# function: what fails there, and how
failures = {
    "inv": {"SINGULAR": singular, "NOT_FINITE": infinite},
    "det": {"OUT_OF_RANGE": huge, "NOT_FINITE": unknown},
    "slogdet": {"NOT_FINITE": infinite},
    "cholesky": {"NOT_POSITIVE_DEFINITE": indefinite, "NOT_FINITE": unknown},
    "qr": {"NOT_FINITE": infinite},
    "eigh": {"NOT_FINITE": unknown},
    "eigvalsh": {"NOT_FINITE": unknown},
    "eig": {"NOT_FINITE": infinite},
    "eigvals": {"NOT_FINITE": infinite},
}


def as_tuple(x):
    return x if isinstance(x, tuple) else (x,)


class Failures(unittest.TestCase):
    def test_the_others_are_finished(self):
        for name, kinds in failures.items():
            function = getattr(zelm, name)
            for kind, bad in kinds.items():
                stack = numpy.array([[regular, regular], [bad, regular], [bad, regular]])
                status = Status[kind]
                with self.subTest(name, kind=kind):
                    with self.assertRaises(LinAlgError) as caught:
                        function(stack)
                    error = caught.exception
                    self.assertEqual((error.index, error.status), ((1, 0), status))
                    self.assertEqual(str(error), f"{status.text}: object (1, 0) of (3, 2)")
                    with self.assertRaisesRegex(LinAlgError, "object 2 of 3$"):
                        function(stack[[0, 0, 1], 0])
                    with self.assertRaisesRegex(LinAlgError, f"^{status.text}$"):
                        function(bad)

                    results, statuses = function(stack, return_status=True)
                    assert_array_equal(statuses, [[0, 0], [status, 0], [status, 0]])
                    alone = as_tuple(function(regular))
                    for x, y, z in zip(
                        as_tuple(results), as_tuple(function(stack, errors="nan")), alone
                    ):
                        assert_array_equal(x, y)
                        self.assertTrue(numpy.isnan(x[1:, 0]).all())
                        for good in (x[0, 0], x[0, 1], x[1, 1], x[2, 1]):
                            assert_array_equal(good, z)

    def test_out_is_filled_before_the_error(self):
        out = numpy.zeros((2, 2, 2))
        with self.assertRaises(LinAlgError):
            zelm.inv([singular, regular], out=out)
        self.assertTrue(numpy.isnan(out[0]).all())
        assert_array_equal(out[1], zelm.inv(regular))

    def test_systems_of_equations(self):
        rows = numpy.array([singular, regular])
        for b in ([1.0, 2], [[1.0], [2]]):
            x, status = zelm.solve(rows, [b, b], return_status=True)
            assert_array_equal(status, [Status.SINGULAR, Status.OK])
            assert_array_equal(x[1], zelm.solve(regular, b))
        _, status = zelm.solve(regular, [1, numpy.nan], return_status=True)
        self.assertEqual(status, Status.NOT_FINITE)
        dependent = numpy.array([[1.0, 0], [1, 0], [1, 0]])
        (x, residuals), status = zelm.lstsq(dependent, [1, 2, 3], return_status=True)
        self.assertEqual(status, Status.SINGULAR)
        self.assertTrue(numpy.isnan(x).all() and numpy.isnan(residuals).all())

    def test_a_singular_determinant_is_an_answer(self):
        self.assertEqual(zelm.det(singular), 0)
        (sign, logarithm), status = zelm.slogdet([singular, regular], return_status=True)
        assert_array_equal(status, [Status.SINGULAR, 0])
        assert_array_equal(sign, [0, 1])
        assert_array_equal(zelm.slogdet([singular, regular]).logabsdet, logarithm)
        self.assertEqual(logarithm[0], -numpy.inf)
        self.assertEqual(zelm.slogdet(singular), (0, -numpy.inf))

    def test_no_flag_becomes_a_warning(self):
        with numpy.errstate(all="raise"):
            for bad in (singular, unknown, infinite, huge):
                stack = numpy.array([regular] * 9 + [bad] * 3)
                for name in failures:
                    getattr(zelm, name)(stack, errors="nan")
                zelm.matmul(stack, stack)

    def test_errors_can_be_pickled(self):
        self.assertEqual(pickle.loads(pickle.dumps(Status.SINGULAR)), -195)
        try:
            zelm.inv([regular, singular])
        except LinAlgError as error:
            copy = pickle.loads(pickle.dumps(error))
            self.assertEqual((copy.index, copy.status), ((1,), Status.SINGULAR))


    def test_numbers(self):
        self.assertEqual({s.name: s.value for s in Status}, {
            "OK": 0, "SINGULAR": -195, "NOT_POSITIVE_DEFINITE": -179, "NOT_CONVERGED": -205,
            "NOT_FINITE": -301, "OUT_OF_RANGE": -302, "SIZE_MISMATCH": -204, "BAD_SIZE": -6,
            "NO_MEMORY": -303,
        })


class Refusals(unittest.TestCase):
    def test_types(self):
        for dtype in (complex, "c8", "f2", "g", object, "U3", "M8[s]", "S1"):
            x = numpy.ones((2, 2), "i8").astype(dtype)
            for call in (
                zelm.inv, zelm.det, zelm.slogdet, zelm.cholesky, zelm.qr, zelm.eigh, zelm.eigvalsh,
                zelm.eig, zelm.eigvals, zelm.norm, zelm.trace,
                lambda x: zelm.solve(x, regular), lambda x: zelm.solve(regular, x),
                lambda x: zelm.lstsq(x, regular), lambda x: zelm.matmul(regular, x),
                lambda x: zelm.matvec(x, regular), lambda x: zelm.vecdot(x, regular),
                lambda x: zelm.cross([1, 2, 3], x),
            ):
                with self.assertRaisesRegex(TypeError, "unsupported in zelm"):
                    call(x)
            with self.assertRaisesRegex(TypeError, "unsupported in zelm"):
                zelm.matmul(x, x)
        with self.assertRaises((TypeError, ValueError)):
            zelm.inv([[1, 2], [3]])
        with self.assertRaises(TypeError):
            zelm.inv(None)

    def test_shapes(self):
        for name in failures:
            function = getattr(zelm, name)
            for bad in (1.0, [1.0, 2]):
                with self.assertRaisesRegex(LinAlgError, "at least two-dimensional"):
                    function(bad)
            if name != "qr":
                with self.assertRaisesRegex(LinAlgError, "must be square"):
                    function(numpy.ones((5, 2, 3)))
        for error, call in (
            (LinAlgError, lambda: zelm.solve(1.0, [1.0])),
            (LinAlgError, lambda: zelm.solve(numpy.ones((2, 3)), [1.0, 2])),
            (ValueError, lambda: zelm.solve(regular, [1.0, 2, 3])),
            (ValueError, lambda: zelm.solve(regular, numpy.ones((3, 2)))),
            (ValueError, lambda: zelm.solve(numpy.ones((4, 2, 2)), numpy.ones((3, 2, 2)))),
            (LinAlgError, lambda: zelm.lstsq(numpy.ones((2, 3)), [1.0, 2])),
            (LinAlgError, lambda: zelm.lstsq(numpy.ones((0, 3)), numpy.ones((0, 2)), errors="nan")),
            (ValueError, lambda: zelm.lstsq(numpy.ones((3, 2)), [1.0, 2])),
            (ValueError, lambda: zelm.matmul(regular, numpy.ones((3, 2)))),
            (ValueError, lambda: zelm.matmul(regular, 2.0)),
            (ValueError, lambda: zelm.matvec(regular, [1.0, 2, 3])),
            (ValueError, lambda: zelm.vecdot([1.0, 2], [1.0, 2, 3])),
            (ValueError, lambda: zelm.cross([1.0, 2], [1.0, 2])),
            (ValueError, lambda: zelm.cross(1.0, [1.0, 2, 3])),
            (ValueError, lambda: zelm.trace([1.0, 2])),
            (ValueError, lambda: zelm.norm(numpy.ones((2, 2, 2)), "fro")),
            (ValueError, lambda: zelm.inv(regular, axes=[(0, 1)])),
            (ValueError, lambda: zelm.inv(regular, axes=[(0, 5), (0, 1)])),
        ):
            with self.assertRaises(error):
                call()

    def test_options(self):
        for error, call in (
            (ValueError, lambda: zelm.inv(regular, errors="ignore")),
            (ValueError, lambda: zelm.qr(regular, "raw")),
            (ValueError, lambda: zelm.eigh(regular, "M")),
            (ValueError, lambda: zelm.eigvalsh(regular, UPLO=1)),
            (TypeError, lambda: zelm.lstsq(regular, [1.0, 2], 1e-3)),
            (TypeError, lambda: zelm.norm(regular, 2)),
            (TypeError, lambda: zelm.norm(regular, "nuc")),
            (TypeError, lambda: zelm.norm(regular, -2, (0, 1))),
            (ValueError, lambda: zelm.norm(regular, "max")),
            (ValueError, lambda: zelm.norm(regular, axis=(0, 0))),
            (ValueError, lambda: zelm.norm(regular, axis=2)),
            (ValueError, lambda: zelm.norm(1.0, axis=(0, 1))),
            (TypeError, lambda: zelm.trace(regular, dtype=complex)),
            (ValueError, lambda: zelm.set_num_threads(-1)),
            (ValueError, lambda: zelm.set_num_threads(2**31)),
            (TypeError, lambda: zelm.set_num_threads(1.5)),
            (TypeError, lambda: zelm.set_num_threads(None)),
        ):
            with self.assertRaises(error):
                call()

    def test_what_is_too_large_for_the_library(self):
        one = numpy.broadcast_to(numpy.float32(1), (2**31, 1))
        for errors in ("raise", "nan"):
            with self.assertRaisesRegex(ValueError, "too large"):
                zelm.lstsq(one, one, errors=errors)


class Threads(unittest.TestCase):
    def test_their_number_changes_no_bit(self):
        before = zelm.get_num_threads()
        a = numpy.random.default_rng(3).random((4000, 4, 4)) + numpy.eye(4)
        a[1234] = 1
        results = []
        for n in (1, 2, 3):
            zelm.set_num_threads(n)
            self.assertEqual(zelm.get_num_threads(), n)
            results.append((zelm.inv(a, errors="nan"), *zelm.eigh(a), zelm.matmul(a, a)))
            with self.assertRaisesRegex(LinAlgError, "object 1234 of 4000"):
                zelm.inv(a)
        zelm.set_num_threads(0)
        self.assertEqual(zelm.get_num_threads(), before)
        for result in results[1:]:
            for x, y in zip(result, results[0]):
                assert_array_equal(x, y)


if __name__ == "__main__":
    unittest.main()
