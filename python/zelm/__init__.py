"""Linear algebra of stacks of small matrices.

The functions have the names, signatures and results of ``numpy.linalg`` and work on stacks of
matrices of float32 or float64 in whatever memory they lie::

    import numpy, zelm

    a = numpy.random.rand(100000, 3, 3)
    b = numpy.random.rand(100000, 3)
    x = zelm.solve(a, b[..., None])

Solvers:   inv, solve, det, slogdet, cholesky, qr, lstsq, eigh, eigvalsh, eig, eigvals
Products:  matmul, matvec, vecdot, cross, norm, trace
Threads:   set_num_threads, get_num_threads

Stacks broadcast. Views are read and written in place, whatever their strides; only negative
strides, and elements that are not aligned, are copied. Integers and lists become float64, two
types become the larger one. Other types (complex, float16, longdouble, object) raise TypeError.
Objects with ``__dlpack__`` are taken without a copy. Results are plain arrays.

When an object of a stack fails the others are finished. The failed one is filled with NaN, and
LinAlgError says which it was and why; ``errors="nan"`` leaves it at the NaN, and
``return_status=True`` returns a Status for every object. A poor condition is no failure: singular
is a pivot that is exactly zero. Two things fail that ``numpy.linalg`` lets pass: objects that
contain a NaN or an infinity, and results that do not fit the type.
"""

import enum
import inspect
import re
from typing import NamedTuple

import numpy
from numpy import ndarray
from numpy.linalg import LinAlgError

from . import _zelm
from ._zelm import get_num_threads, set_num_threads

__all__ = [
    "EigResult", "EighResult", "LinAlgError", "LstsqResult", "QRResult", "SlogdetResult", "Status",
    "cholesky", "cross", "det", "eig", "eigh", "eigvals", "eigvalsh", "get_num_threads", "inv",
    "lstsq", "matmul", "matvec", "norm", "qr", "set_num_threads", "slogdet", "solve", "trace",
    "vecdot",
]


class EigResult(NamedTuple):
    eigenvalues: ndarray
    eigenvectors: ndarray


class EighResult(NamedTuple):
    eigenvalues: ndarray
    eigenvectors: ndarray


class QRResult(NamedTuple):
    Q: ndarray
    R: ndarray


class SlogdetResult(NamedTuple):
    sign: ndarray
    logabsdet: ndarray


class LstsqResult(NamedTuple):
    x: ndarray
    residuals: ndarray


Status = enum.IntEnum(
    "Status", {name: number for name, (number, _) in _zelm.statuses.items()}, module=__name__
)
Status.__doc__ = "What became of an object of a stack. ``status.text`` says it in words."
Status.text = property(lambda self: _zelm.statuses[self.name][1])

# The failures of a whole call, which are raised even where NaN was asked for.
_refusals = {
    Status.SIZE_MISMATCH: LinAlgError,
    Status.BAD_SIZE: ValueError,
    Status.NO_MEMORY: MemoryError,
}


# Operands


def _array(x):
    """x as an array of float32 or float64, without a copy where that can be."""
    if type(x) is ndarray and x.dtype.char in "fd":
        return x
    if not isinstance(x, ndarray) and hasattr(x, "__dlpack__"):
        try:
            x = numpy.from_dlpack(x)
        except (BufferError, RuntimeError, TypeError):
            pass  # memory that DLPack cannot hand out; it may have another way
    x = numpy.asarray(x)
    if x.dtype.char in "fd":
        return x
    if x.dtype.kind in "iub":
        return x.astype(numpy.float64)
    raise TypeError(f"array type {x.dtype.name} is unsupported in zelm: give float32 or float64")


def _overlaps_itself(x):
    """Whether two elements of x may share memory."""
    if x.flags.forc or x.size == 0:
        return False
    extent = x.itemsize
    for stride, n in sorted((abs(s), n) for s, n in zip(x.strides, x.shape) if n > 1):
        if stride < extent:
            return True
        extent += stride * (n - 1)
    return False


def _outputs(function, out, number):
    """The tuple of `number` outputs, each an array or None, that `out` is."""
    outputs = out if isinstance(out, tuple) else (out,)
    if len(outputs) != number:
        raise ValueError(f"out must be one array for each of the {number} results")
    arrays = [x for x in outputs if x is not None]
    for n, x in enumerate(arrays):
        if not isinstance(x, ndarray):
            raise TypeError(f"out must be arrays, not {type(x).__name__}")
        if _overlaps_itself(x):
            raise ValueError("elements of out overlap one another")
        if any(_share_memory(x, y) for y in arrays[:n]):
            raise ValueError("the arrays of out overlap one another")
    return outputs


def _share_memory(x, y):
    try:
        return numpy.shares_memory(x, y, max_work=10000)
    except numpy.TooHardError:
        return True


# Solvers


def _run(function, operands, out, axes, errors, return_status, make=None, ignored=0):
    """Call the ufunc `function`, whose last result are the statuses, and return the others: the
    only one, or what `make` makes of them."""
    if errors != "raise" and errors != "nan":
        raise ValueError(f"errors must be 'raise' or 'nan', not {errors!r}")
    keywords = {}
    if out is not None:
        keywords["out"] = (*_outputs(function, out, function.nout - 1), None)
    if axes is not None:
        keywords["axes"] = [*axes, *[()] * (function.nargs - len(axes))]
    try:
        *results, status = function(*operands, **keywords)
    except ValueError:
        _explain(function, operands, axes)
        raise
    failed = _zelm.first_failure(status, ignored)
    if failed >= 0:
        _report(status, failed, errors == "nan" or return_status)
    result = make(results) if make else results[0]
    return (result, status) if return_status else result


def _explain(function, operands, axes):
    """Raise what numpy.linalg raises for operands that are no stacks of matrices, or not square."""
    inputs = re.findall(r"\(([^)]*)\)", function.signature.split("->")[0])
    for x, dimensions in zip(operands, inputs):
        if x.ndim < dimensions.count(",") + 1:
            least = "two" if "," in dimensions else "one"
            raise LinAlgError(
                f"{x.ndim}-dimensional array given. Array must be at least {least}-dimensional"
            ) from None
        if dimensions == "n,n" and axes is None and x.shape[-1] != x.shape[-2]:
            raise LinAlgError("Last 2 dimensions of the array must be square") from None


def _report(status, failed, only_refusals):
    shape = numpy.shape(status)
    index = tuple(int(i) for i in numpy.unravel_index(failed, shape)) if shape else ()
    code = Status(int(status[index]))
    if only_refusals and code not in _refusals:
        return
    where = ""
    if len(shape) == 1:
        where = f": object {index[0]} of {shape[0]}"
    elif shape:
        where = f": object {index} of {shape}"
    error = _refusals.get(code, LinAlgError)(code.text + where)
    error.index, error.status = index, code
    raise error


_options = """
    out : array, or tuple of arrays, optional
        Where the results go; in a tuple, None stands for a new array.
    axes : list of tuples, optional
        For every operand and every result the axes of its matrices or vectors, as for a
        generalized ufunc.
    errors : {'raise', 'nan'}, optional
        What an object of the stack that fails does: raise LinAlgError, after all others are
        finished, with the attributes `index` and `status` of the first; or nothing.
        Its result is NaN.
    return_status : bool, optional
        Return ``(result, status)`` instead, and do not raise: `status` has a Status for every
        object.
"""


def _solver(function):
    """Complete the description of a solver by what all of them take."""
    function.__doc__ = function.__doc__.replace("\n    <options>\n", _options)
    return function


@_solver
def inv(a, *, out=None, axes=None, errors="raise", return_status=False):
    """
    Inverse of each matrix of a stack.

    Parameters
    ----------
    a : (..., M, M) array_like
        Matrices to be inverted.
    <options>
    Returns
    -------
    ainv : (..., M, M) ndarray

    Raises
    ------
    LinAlgError
        If a matrix is not square, is singular, contains a NaN or an infinity, or has an inverse
        that does not fit the type.

    Examples
    --------
    >>> zelm.inv([[1, 2], [3, 4]]).round(3)
    array([[-2. ,  1. ],
           [ 1.5, -0.5]])
    >>> ainv, status = zelm.inv([[[1, 2], [3, 4]], [[1, 2], [2, 4]]], return_status=True)
    >>> [zelm.Status(s).text for s in status]
    ['Success', 'Singular matrix']
    """
    return _run(_zelm.inv, (_array(a),), out, axes, errors, return_status)


# Before version 2 NumPy took an array of one dimension less than a for vectors.
_vectors_by_dimension = int(numpy.__version__.split(".")[0]) < 2


def _are_vectors(a, b):
    return b.ndim == 1 or (_vectors_by_dimension and b.ndim == a.ndim - 1)


@_solver
def solve(a, b, *, out=None, axes=None, errors="raise", return_status=False):
    """
    Solve ``a @ x = b`` for each pair of a stack.

    Parameters
    ----------
    a : (..., M, M) array_like
        Coefficients.
    b : (M,) or (..., M, K) array_like
        Right-hand sides: one vector, or the columns of matrices. With NumPy 1 also (..., M),
        one dimension less than `a`, as in ``numpy.linalg.solve`` there.
    <options>
    Returns
    -------
    x : (..., M) or (..., M, K) ndarray
        Has the shape of `b`, broadcast.

    Raises
    ------
    LinAlgError
        If a matrix is not square, is singular, contains a NaN or an infinity, or has a solution
        that does not fit the type.

    Examples
    --------
    >>> zelm.solve([[3, 1], [1, 2]], [9, 8])
    array([2., 3.])
    """
    a, b = _array(a), _array(b)
    function = _zelm.solve_vector if _are_vectors(a, b) else _zelm.solve
    return _run(function, (a, b), out, axes, errors, return_status)


@_solver
def det(a, *, out=None, axes=None, errors="raise", return_status=False):
    """
    Determinant of each matrix of a stack.

    Parameters
    ----------
    a : (..., M, M) array_like
    <options>
    Returns
    -------
    det : (...) ndarray, or a number for a single matrix
        0 for a singular matrix.

    Raises
    ------
    LinAlgError
        If a matrix is not square or contains a NaN or an infinity, or if a determinant does not
        fit the type: see `slogdet`.

    Examples
    --------
    >>> zelm.det([[[1, 2], [3, 4]], [[2, 0], [0, 2]]]).round(3)
    array([-2.,  4.])
    """
    return _run(_zelm.det, (_array(a),), out, axes, errors, return_status)


@_solver
def slogdet(a, *, out=None, axes=None, errors="raise", return_status=False):
    """
    Sign and natural logarithm of the magnitude of the determinant of each matrix of a stack.

    Parameters
    ----------
    a : (..., M, M) array_like
    <options>
    Returns
    -------
    A namedtuple:

    sign : (...) ndarray, or a number for a single matrix
        -1, 0 or 1.
    logabsdet : (...) ndarray, or a number for a single matrix
        Minus infinity for a singular matrix, which is no failure here; its status is SINGULAR.

    Examples
    --------
    >>> sign, logabsdet = zelm.slogdet(1e-200 * numpy.eye(3))
    >>> sign, (logabsdet / numpy.log(10)).round(3)
    (1.0, -600.0)
    """
    make = SlogdetResult._make
    return _run(
        _zelm.slogdet, (_array(a),), out, axes, errors, return_status, make, Status.SINGULAR
    )


@_solver
def cholesky(a, *, upper=False, out=None, axes=None, errors="raise", return_status=False):
    """
    Cholesky decomposition ``L @ L.T`` of each matrix of a stack.

    Parameters
    ----------
    a : (..., M, M) array_like
        Symmetric, positive definite matrices. One triangle of each is read.
    upper : bool, optional
        Read the upper triangle and return U with ``U.T @ U = a``, instead of the lower ones.
    <options>
    Returns
    -------
    L : (..., M, M) ndarray
        Lower, or upper, triangular matrices with zeros elsewhere.

    Raises
    ------
    LinAlgError
        If a matrix is not square, is not positive definite, or contains a NaN or an infinity.

    Examples
    --------
    >>> zelm.cholesky([[4, 2], [2, 10]])
    array([[2., 0.],
           [1., 3.]])
    """
    function = _zelm.cholesky_upper if upper else _zelm.cholesky_lower
    return _run(function, (_array(a),), out, axes, errors, return_status)


@_solver
def qr(a, mode="reduced", *, out=None, axes=None, errors="raise", return_status=False):
    """
    QR decomposition of each matrix of a stack.

    Parameters
    ----------
    a : (..., M, N) array_like
    mode : {'reduced', 'complete', 'r'}, optional
        With K = min(M, N): 'reduced' returns Q, R of the shapes (..., M, K), (..., K, N),
        'complete' (..., M, M), (..., M, N), and 'r' the R of 'reduced' alone.
    <options>
    Returns
    -------
    A namedtuple, or R alone:

    Q : ndarray
        Matrices with orthonormal columns.
    R : ndarray
        Upper triangular matrices. The signs of their rows, and those of the columns of Q, may
        differ from those that ``numpy.linalg.qr`` gives.

    Examples
    --------
    >>> q, r = zelm.qr([[3, 1], [4, 2]])
    >>> (q @ r).round(3)
    array([[3., 1.],
           [4., 2.]])
    """
    a = _array(a)
    if mode not in ("reduced", "complete", "r"):
        raise ValueError(f"mode must be 'reduced', 'complete' or 'r', not {mode!r}")
    if a.ndim < 2:
        _explain(_zelm.qr_n, (a,), axes)
    rows, columns = (a.shape[i] for i in (axes[0] if axes else (-2, -1)))
    tall = mode != "complete" and rows > columns
    if mode == "r":
        function = _zelm.qr_n_r if tall else _zelm.qr_m_r
    else:
        function = _zelm.qr_n if tall else _zelm.qr_m
    make = None if mode == "r" else QRResult._make
    return _run(function, (a,), out, axes, errors, return_status, make)


@_solver
def lstsq(a, b, rcond=None, *, out=None, axes=None, errors="raise", return_status=False):
    """
    Least-squares solution of ``a @ x = b`` for each pair of a stack.

    By QR decomposition, for matrices of full column rank.

    Parameters
    ----------
    a : (..., M, N) array_like
        Coefficients, M >= N.
    b : (M,) or (..., M, K) array_like
        Right-hand sides, as for `solve`.
    rcond : None
        A cut-off would need singular values.
    <options>
    Returns
    -------
    A namedtuple:

    x : (..., N) or (..., N, K) ndarray
    residuals : (..., 1) or (..., K) ndarray
        ``sum((b - a @ x)**2)`` for every right-hand side, also where M is N.

    Raises
    ------
    LinAlgError
        If M < N, if a column depends exactly on those before it, or if there is a NaN or an
        infinity.

    Examples
    --------
    >>> x, residuals = zelm.lstsq([[0, 1], [1, 1], [2, 1], [3, 1]], [-1, 0.2, 0.9, 2.1])
    >>> x.round(3), residuals.round(3)
    (array([ 1.  , -0.95]), array([0.05]))
    """
    if rcond is not None:
        raise TypeError("zelm.lstsq takes no rcond: it would need singular values")
    a, b = _array(a), _array(b)
    function = _zelm.lstsq_vector if _are_vectors(a, b) else _zelm.lstsq
    return _run(function, (a, b), out, axes, errors, return_status, LstsqResult._make)


def _triangle(UPLO, lower, upper):
    if isinstance(UPLO, str):
        if UPLO.upper() == "L":
            return lower
        if UPLO.upper() == "U":
            return upper
    raise ValueError("UPLO argument must be 'L' or 'U'")


@_solver
def eigh(a, UPLO="L", *, out=None, axes=None, errors="raise", return_status=False):
    """
    Eigenvalues and eigenvectors of each symmetric matrix of a stack.

    Parameters
    ----------
    a : (..., M, M) array_like
    UPLO : {'L', 'U'}, optional
        The triangle that is read, lower or upper.
    <options>
    Returns
    -------
    A namedtuple:

    eigenvalues : (..., M) ndarray
        Ascending.
    eigenvectors : (..., M, M) ndarray
        Orthonormal, in columns.

    Raises
    ------
    LinAlgError
        If a matrix is not square, contains a NaN or an infinity, or if an iteration does not
        converge.

    Examples
    --------
    >>> values, vectors = zelm.eigh([[2, 1], [1, 2]])
    >>> values.round(3)
    array([1., 3.])
    """
    function = _triangle(UPLO, _zelm.eigh_lower, _zelm.eigh_upper)
    return _run(function, (_array(a),), out, axes, errors, return_status, EighResult._make)


@_solver
def eigvalsh(a, UPLO="L", *, out=None, axes=None, errors="raise", return_status=False):
    """
    Eigenvalues of each symmetric matrix of a stack.

    Parameters
    ----------
    a : (..., M, M) array_like
    UPLO : {'L', 'U'}, optional
        The triangle that is read, lower or upper.
    <options>
    Returns
    -------
    eigenvalues : (..., M) ndarray
        Ascending.

    See Also
    --------
    eigh : eigenvectors as well.
    """
    function = _triangle(UPLO, _zelm.eigvalsh_lower, _zelm.eigvalsh_upper)
    return _run(function, (_array(a),), out, axes, errors, return_status)


def _real_if_all_are(values, *vectors):
    if values.imag.any():
        return values, *vectors
    return [numpy.ascontiguousarray(x.real) for x in (values, *vectors)]


@_solver
def eig(a, *, out=None, axes=None, errors="raise", return_status=False):
    """
    Eigenvalues and right eigenvectors of each general matrix of a stack.

    Parameters
    ----------
    a : (..., M, M) array_like
    <options>
    Returns
    -------
    A namedtuple:

    eigenvalues : (..., M) ndarray
        In no particular order, but conjugate pairs are neighbours, the one with the positive
        imaginary part first. Real if all of the stack are; complex in `out`.
    eigenvectors : (..., M, M) ndarray
        Of Euclidean norm 1, in columns.

    Raises
    ------
    LinAlgError
        If a matrix is not square, contains a NaN or an infinity, or if an iteration does not
        converge.

    Examples
    --------
    >>> zelm.eig([[0, 1], [-1, 0]]).eigenvalues.round(3)
    array([0.+1.j, 0.-1.j])
    """
    def make(results):
        return EigResult._make(results if out is not None else _real_if_all_are(*results))

    return _run(_zelm.eig, (_array(a),), out, axes, errors, return_status, make)


@_solver
def eigvals(a, *, out=None, axes=None, errors="raise", return_status=False):
    """
    Eigenvalues of each general matrix of a stack.

    Parameters
    ----------
    a : (..., M, M) array_like
    <options>
    Returns
    -------
    eigenvalues : (..., M) ndarray
        As those of `eig`.

    See Also
    --------
    eig : eigenvectors as well.
    """

    def make(results):
        return results[0] if out is not None else _real_if_all_are(*results)[0]

    return _run(_zelm.eigvals, (_array(a),), out, axes, errors, return_status, make)


# Products and norms


def _direct(number, ufunc):
    """`ufunc` itself for two arrays, as fast as NumPy's own, and the function for the rest."""

    def decorate(function):
        text = f"{function.__name__}{inspect.signature(function)}\n--\n{function.__doc__}"
        return _zelm.direct(number, ufunc, function, function.__name__, text, __name__)

    return decorate


def _product(function, x1, x2, out, keywords):
    if out is not None:
        (out,) = _outputs(function, out, 1)
    return function(_array(x1), _array(x2), out, **keywords)


@_direct(0, _zelm.matmul)
def matmul(x1, x2, /, out=None, **keywords):
    """
    Matrix products of two stacks.

    Parameters
    ----------
    x1 : (..., N, K) or (K,) array_like
    x2 : (..., K, M) or (K,) array_like
        An array of one dimension is one row, or one column, which the result does not have.
    out : ndarray, optional
    **keywords
        `axes`, `order`, `dtype`, `casting`, as those of ``numpy.matmul``.

    Returns
    -------
    y : (..., N, M) ndarray

    Examples
    --------
    >>> zelm.matmul([[1, 2], [3, 4]], [[0, 1], [1, 0]])
    array([[2., 1.],
           [4., 3.]])
    """
    return _product(_zelm.matmul, x1, x2, out, keywords)


@_direct(1, _zelm.matvec)
def matvec(x1, x2, /, out=None, **keywords):
    """
    Products of a stack of matrices and one of vectors.

    Parameters
    ----------
    x1 : (..., M, N) array_like
    x2 : (..., N) array_like
    out : ndarray, optional
    **keywords
        `axes`, `order`, `dtype`, `casting`, as those of ``numpy.matvec``.

    Returns
    -------
    y : (..., M) ndarray

    Examples
    --------
    >>> zelm.matvec([[1, 2], [3, 4]], [[1, 0], [0, 1]])
    array([[1., 3.],
           [2., 4.]])
    """
    return _product(_zelm.matvec, x1, x2, out, keywords)


@_direct(2, _zelm.vecdot)
def vecdot(x1, x2, /, out=None, **keywords):
    """
    Dot products of two stacks of vectors.

    Parameters
    ----------
    x1, x2 : (..., N) array_like
    out : ndarray, optional
    **keywords
        `axis` (the last one by default), `axes`, `keepdims`, `order`, `dtype`, `casting`, as
        those of ``numpy.vecdot``.

    Returns
    -------
    y : (...) ndarray, or a number for two vectors

    Examples
    --------
    >>> zelm.vecdot([[1, 2], [3, 4]], [1, 1])
    array([3., 7.])
    """
    return _product(_zelm.vecdot, x1, x2, out, keywords)


def cross(x1, x2, /, *, axis=-1, out=None):
    """
    Cross products of two stacks of vectors of three elements.

    Parameters
    ----------
    x1, x2 : array_like
    axis : int, optional
        The axis of the vectors, in all operands.
    out : ndarray, optional

    Returns
    -------
    y : ndarray

    Examples
    --------
    >>> zelm.cross([1, 0, 0], [[0, 1, 0], [0, 0, 1]])
    array([[ 0.,  0.,  1.],
           [ 0., -1.,  0.]])
    """
    x1, x2 = _array(x1), _array(x2)
    keywords = {} if axis == -1 else {"axes": [axis, axis, axis]}
    try:
        return _product(_zelm.cross, x1, x2, out, keywords)
    except ValueError:
        lengths = [x.shape[axis] for x in (x1, x2) if x.ndim > 0]
        if lengths == [3, 3]:
            raise
        raise ValueError(
            "Both input arrays must be (arrays of) 3-dimensional vectors, but they have the shapes "
            f"{x1.shape} and {x2.shape}"
        ) from None


def norm(x, ord=None, axis=None, keepdims=False):
    """
    Norms of vectors or matrices.

    Parameters
    ----------
    x : array_like
    ord : {None, 'fro', 1, -1, inf, -inf, other numbers}, optional
        As for ``numpy.linalg.norm``: by default the Euclidean norm of vectors and the Frobenius
        norm of matrices, which are computed here; the others are NumPy's own. The orders 2, -2 and
        'nuc' of matrices need singular values and raise TypeError.
    axis : int or pair of ints, optional
        The axis of the vectors or the axes of the matrices. None is all of `x`, as one vector if
        `ord` is None too.
    keepdims : bool, optional
        Keep the axes that are normed over, with size 1.

    Returns
    -------
    n : ndarray, or a number

    Examples
    --------
    >>> zelm.norm([[3, 4], [6, 8]], axis=-1)
    array([ 5., 10.])
    """
    x = _array(x)
    if axis is None:
        if ord is None and x.ndim != 2:
            result = _zelm.norm(x if x.ndim == 1 else x.ravel(order="K"))
            return numpy.reshape(result, (1,) * x.ndim) if keepdims else result
        axes = tuple(range(x.ndim))
    else:
        axes = axis if isinstance(axis, tuple) else (axis,)
    if len(axes) == 1 and (ord is None or ord == 2):
        return _zelm.norm(x, axis=axes[0], keepdims=keepdims)
    if len(axes) == 2:
        if ord in (2, -2, "nuc"):
            raise TypeError(f"zelm.norm has no order {ord!r} of matrices: it needs singular values")
        if ord in (None, "fro", "f"):
            return _zelm.matrix_norm(x, axes=[axes, axes if keepdims else ()], keepdims=keepdims)
    return numpy.linalg.norm(x, ord, axis, keepdims)


def trace(x, /, *, offset=0, dtype=None, out=None):
    """
    Sum along a diagonal of each matrix of a stack.

    Parameters
    ----------
    x : (..., M, N) array_like
    offset : int, optional
        The diagonal: above the main one if positive, below if negative.
    dtype : data-type, optional
        Type of the sum, float32 or float64.
    out : ndarray, optional

    Returns
    -------
    y : (...) ndarray, or a number for a single matrix

    Examples
    --------
    >>> zelm.trace([[[1, 2], [3, 4]], [[5, 6], [7, 8]]])
    array([ 5., 13.])
    """
    x = _array(x)
    if offset > 0:
        x = x[..., offset:]
    elif offset < 0:
        x = x[..., -offset:, :]
    keywords = {} if dtype is None else {"dtype": dtype}
    if out is not None:
        keywords["out"] = _outputs(_zelm.trace, out, 1)
    return _zelm.trace(x, **keywords)
