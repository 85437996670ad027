"""Where operands and results lie."""

import array
import unittest

import numpy
import zelm
from numpy.lib.stride_tricks import as_strided
from numpy.testing import assert_array_equal

random = numpy.random.default_rng(7)
a = random.random((5, 7, 4, 4)) + 3 * numpy.eye(4)
symmetric = a + numpy.swapaxes(a, -1, -2)
b = random.random((5, 7, 4, 3))

# name: the operands, and the core dimensions of operands and results
calls = {
    "inv": ((a,), (2, 2)),
    "det": ((a,), (2, 0)),
    "slogdet": ((a,), (2, 0, 0)),
    "solve": ((a, b), (2, 2, 2)),
    "cholesky": ((symmetric,), (2, 2)),
    "qr": ((a[..., :3],), (2, 2, 2)),
    "lstsq": ((a[..., :3], b), (2, 2, 2, 1)),
    "eigh": ((symmetric,), (2, 1, 2)),
    "eigvalsh": ((symmetric,), (2, 1)),
    "eig": ((a,), (2, 1, 2)),
    "eigvals": ((a,), (2, 1)),
    "matmul": ((a, b), (2, 2, 2)),
    "matvec": ((a, b[..., 0]), (2, 1, 1)),
    "vecdot": ((b, b[..., ::2].repeat(2, -1)[..., :3]), (1, 1, 0)),
    "cross": ((b, b[::-1]), (1, 1, 1)),
    "trace": ((a,), (2, 0)),
}


def results_of(name, *operands, **options):
    results = getattr(zelm, name)(*operands, **options)
    return results if isinstance(results, tuple) else (results,)


def spread(x):
    """A copy with gaps between all elements, the last two axes exchanged in memory."""
    axes = (*range(x.ndim - 2), x.ndim - 1, x.ndim - 2) if x.ndim > 1 else (0,)
    y = numpy.zeros([2 * x.shape[i] for i in axes], x.dtype)[(slice(None, None, 2),) * x.ndim]
    y = y.transpose(axes)
    y[...] = x
    return y


class Outputs(unittest.TestCase):
    def test_results_go_where_they_are_wanted(self):
        for name, (operands, _) in calls.items():
            expected = results_of(name, *operands)
            if name.startswith("eig") and name[3:4] != "h" and name != "eigvalsh":
                expected = [x.astype(complex) for x in expected]
            for dress in (numpy.copy, spread, lambda x: x[::-1].copy()[::-1]):
                out = tuple(dress(numpy.full_like(x, numpy.nan)) for x in expected)
                with self.subTest(name):
                    given = out if len(out) > 1 else out[0]
                    results = getattr(zelm, name)(*operands, out=given)
                    for x, y, z in zip(results if len(out) > 1 else (results,), out, expected):
                        self.assertIs(x, y)
                        assert_array_equal(y, z)
        values, vectors = zelm.eigh(symmetric, out=(numpy.empty((5, 7, 4)), None))
        self.assertEqual(vectors.shape, (5, 7, 4, 4))

    def test_a_result_may_be_an_operand(self):
        for name in ("inv", "cholesky"):
            x = symmetric.copy()
            getattr(zelm, name)(x, out=x)
            assert_array_equal(x, getattr(zelm, name)(symmetric))
        x = b.copy()
        zelm.solve(a, x, out=x)
        assert_array_equal(x, zelm.solve(a, b))
        x = a.copy()  # transposed in place, shifted by one object, one operand of two
        zelm.inv(x, out=x.swapaxes(-1, -2))
        assert_array_equal(x.swapaxes(-1, -2), zelm.inv(a))
        x = a.copy()
        zelm.inv(x[:, :-1], out=x[:, 1:])
        assert_array_equal(x[:, 1:], zelm.inv(a[:, :-1]))
        x = a.copy()
        zelm.matmul(x, symmetric, out=x)
        assert_array_equal(x, zelm.matmul(a, symmetric))

    def test_refused_outputs_are_left_alone(self):
        n = 4
        read_only = numpy.ones((n, n))
        read_only.flags.writeable = False
        memory = numpy.ones(3 * n * n)
        repeated = as_strided(memory, (3, n, n), (n, 8 * n, 8))  # objects overlap
        stack = numpy.stack([numpy.eye(n)] * 3)
        one = numpy.eye(n)
        for error, call in (
            (ValueError, lambda: zelm.inv(one, out=read_only)),
            (ValueError, lambda: zelm.matmul(one, one, read_only)),
            (ValueError, lambda: zelm.inv(stack, out=repeated)),
            (ValueError, lambda: zelm.matmul(stack, stack, out=repeated)),
            (ValueError, lambda: zelm.eigh(one, out=(memory[:n], memory[3:19].reshape(n, n)))),
            (ValueError, lambda: zelm.inv(one, out=memory[:9].reshape(3, 3))),
            (ValueError, lambda: zelm.inv(stack, out=memory[: n * n].reshape(n, n))),
            (ValueError, lambda: zelm.eigh(one, out=memory[:n])),
            (ValueError, lambda: zelm.inv(one, out=(memory[: n * n].reshape(n, n), None))),
            (TypeError, lambda: zelm.inv(one, out=[[1.0] * n] * n)),
            (TypeError, lambda: zelm.inv(one, out=memory[: n * n].reshape(n, n).view(numpy.int64))),
            (TypeError, lambda: zelm.eig(one, out=(memory[:n], None))),
            (TypeError, lambda: zelm.inv(one, memory[: n * n].reshape(n, n))),
        ):
            with self.assertRaises(error):
                call()
        assert_array_equal(read_only, 1)
        assert_array_equal(memory, 1)

    def test_a_stack_may_be_repeated_in_the_output(self):
        out = numpy.empty((3, 2, 2))
        assert_array_equal(zelm.inv([[2, 0], [0, 4]], out=out), [[[0.5, 0], [0, 0.25]]] * 3)
        assert_array_equal(zelm.matmul(2 * numpy.eye(2), numpy.eye(2), out), [2 * numpy.eye(2)] * 3)


class Operands(unittest.TestCase):
    def test_strides_change_no_bit(self):
        for name, (operands, _) in calls.items():
            expected = results_of(name, *operands)
            for dress in (
                spread,
                lambda x: x[::-1].copy()[::-1],
                lambda x: x[..., ::-1].copy()[..., ::-1],
                lambda x: numpy.rec.fromarrays([numpy.zeros(x.shape, "i1"), x], "i1,f8")["f1"],
                lambda x: x.astype(">f8"),
                lambda x: x.transpose(range(x.ndim)[::-1]).copy().transpose(range(x.ndim)[::-1]),
            ):
                given = [dress(x) for x in operands]
                for x in given:
                    x.flags.writeable = False
                for x, y in zip(results_of(name, *given), expected):
                    assert_array_equal(x, y, name)

    def test_long_stacks(self):
        """What is copied is copied some objects at a time."""
        x = random.random((5000, 4, 3))
        y = x.transpose(0, 2, 1)[::-1].copy()
        back = y[:, :, ::-1]
        assert_array_equal(zelm.matmul(x, back), zelm.matmul(x, back.copy()))
        assert_array_equal(zelm.vecdot(x[..., ::-1], x), zelm.vecdot(x[..., ::-1].copy(), x))
        assert_array_equal(zelm.norm(back, axis=-1), zelm.norm(back.copy(), axis=-1))
        out = numpy.full((5000, 4, 4), numpy.nan)
        zelm.matmul(x, y, out[:, ::-1])
        assert_array_equal(out[:, ::-1], zelm.matmul(x, y))

    def test_repeated_operands(self):
        stack = numpy.broadcast_to(a[0, 0], (6, 4, 4))
        for name in ("inv", "det", "eigvalsh", "trace"):
            assert_array_equal(getattr(zelm, name)(stack), [getattr(zelm, name)(a[0, 0])] * 6)
        element = numpy.broadcast_to(2.0, (6, 3, 3))
        assert_array_equal(zelm.matmul(element, element), 12)
        assert_array_equal(zelm.norm(element, axis=(-2, -1)), 6)
        assert_array_equal(zelm.vecdot(element, numpy.ones((6, 3, 3))), 6)
        assert_array_equal(zelm.cross(element, element), 0)

    def test_axes(self):
        for name, (operands, cores) in calls.items():
            if name == "cross":
                continue
            expected = results_of(name, *operands)
            at = [tuple(range(core)) for core in cores]
            moved = [
                numpy.moveaxis(x, range(-core, 0), range(core)) for x, core in zip(operands, cores)
            ]
            results = results_of(name, *moved, axes=at) if name != "trace" else expected
            for x, y, core in zip(results, expected, cores[len(operands) :]):
                if name != "trace":
                    y = numpy.moveaxis(y, range(-core, 0), range(core))
                assert_array_equal(x, y, name)
        assert_array_equal(zelm.cross(b.T, b[::-1].T, axis=0), zelm.cross(b, b[::-1]).T)
        assert_array_equal(zelm.vecdot(b.T, b.T, axis=0), zelm.vecdot(b, b).T)

    def test_what_numpy_can_view(self):
        class Other:
            def __init__(self, x):
                self.x = x
                self.asked = 0

            def __dlpack__(self, **options):
                self.asked += 1
                return self.x.__dlpack__(**options)

            def __dlpack_device__(self):
                return self.x.__dlpack_device__()

        class Elsewhere(Other):  # on a device
            def __dlpack__(self, **options):
                raise BufferError

            def __array__(self, *_, **__):
                return self.x

        x = random.random((4, 4))
        other = Other(x)
        assert_array_equal(zelm.inv(other), zelm.inv(x))
        self.assertEqual(other.asked, 1)
        assert_array_equal(zelm.inv(Elsewhere(x)), zelm.inv(x))
        assert_array_equal(zelm.inv(memoryview(x)), zelm.inv(x))
        assert_array_equal(zelm.norm(array.array("f", [3, 4])), 5)
        structures = numpy.zeros(9, [("id", "i4"), ("inertia", "f4", (3, 3))])
        structures["inertia"] = x[:3, :3]
        assert_array_equal(zelm.inv(structures["inertia"]), zelm.inv([x[:3, :3].astype("f4")] * 9))


if __name__ == "__main__":
    unittest.main()
