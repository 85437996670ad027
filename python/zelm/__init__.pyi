from collections.abc import Sequence
from enum import IntEnum
from typing import Any, Literal, NamedTuple, SupportsIndex, TypeAlias, overload

from numpy import ndarray
from numpy.linalg import LinAlgError as LinAlgError
from numpy.typing import ArrayLike, DTypeLike, NDArray

from ._zelm import get_num_threads as get_num_threads
from ._zelm import set_num_threads as set_num_threads

_Array: TypeAlias = NDArray[Any]
_Axes: TypeAlias = Sequence[SupportsIndex | tuple[SupportsIndex, ...]] | None
_Errors: TypeAlias = Literal["raise", "nan"]
_Out: TypeAlias = ndarray[Any, Any] | tuple[ndarray[Any, Any] | None, ...] | None
_Triangle: TypeAlias = Literal["L", "U", "l", "u"]

class EigResult(NamedTuple):
    eigenvalues: _Array
    eigenvectors: _Array

class EighResult(NamedTuple):
    eigenvalues: _Array
    eigenvectors: _Array

class QRResult(NamedTuple):
    Q: _Array
    R: _Array

class SlogdetResult(NamedTuple):
    sign: Any
    logabsdet: Any

class LstsqResult(NamedTuple):
    x: _Array
    residuals: _Array

class Status(IntEnum):
    OK = 0
    SINGULAR = -195
    NOT_POSITIVE_DEFINITE = -179
    NOT_CONVERGED = -205
    NOT_FINITE = -301
    OUT_OF_RANGE = -302
    SIZE_MISMATCH = -204
    BAD_SIZE = -6
    NO_MEMORY = -303
    @property
    def text(self) -> str: ...

@overload
def inv(
    a: ArrayLike,
    *,
    out: _Out = ...,
    axes: _Axes = ...,
    errors: _Errors = ...,
    return_status: Literal[False] = ...,
) -> _Array: ...
@overload
def inv(
    a: ArrayLike,
    *,
    out: _Out = ...,
    axes: _Axes = ...,
    errors: _Errors = ...,
    return_status: Literal[True],
) -> tuple[_Array, _Array]: ...
@overload
def solve(
    a: ArrayLike, b: ArrayLike,
    *,
    out: _Out = ...,
    axes: _Axes = ...,
    errors: _Errors = ...,
    return_status: Literal[False] = ...,
) -> _Array: ...
@overload
def solve(
    a: ArrayLike, b: ArrayLike,
    *,
    out: _Out = ...,
    axes: _Axes = ...,
    errors: _Errors = ...,
    return_status: Literal[True],
) -> tuple[_Array, _Array]: ...
@overload
def det(
    a: ArrayLike,
    *,
    out: _Out = ...,
    axes: _Axes = ...,
    errors: _Errors = ...,
    return_status: Literal[False] = ...,
) -> Any: ...
@overload
def det(
    a: ArrayLike,
    *,
    out: _Out = ...,
    axes: _Axes = ...,
    errors: _Errors = ...,
    return_status: Literal[True],
) -> tuple[Any, _Array]: ...
@overload
def slogdet(
    a: ArrayLike,
    *,
    out: _Out = ...,
    axes: _Axes = ...,
    errors: _Errors = ...,
    return_status: Literal[False] = ...,
) -> SlogdetResult: ...
@overload
def slogdet(
    a: ArrayLike,
    *,
    out: _Out = ...,
    axes: _Axes = ...,
    errors: _Errors = ...,
    return_status: Literal[True],
) -> tuple[SlogdetResult, _Array]: ...
@overload
def cholesky(
    a: ArrayLike,
    *,
    upper: bool = ...,
    out: _Out = ...,
    axes: _Axes = ...,
    errors: _Errors = ...,
    return_status: Literal[False] = ...,
) -> _Array: ...
@overload
def cholesky(
    a: ArrayLike,
    *,
    upper: bool = ...,
    out: _Out = ...,
    axes: _Axes = ...,
    errors: _Errors = ...,
    return_status: Literal[True],
) -> tuple[_Array, _Array]: ...
@overload
def qr(
    a: ArrayLike, mode: Literal["reduced", "complete"] = ...,
    *,
    out: _Out = ...,
    axes: _Axes = ...,
    errors: _Errors = ...,
    return_status: Literal[False] = ...,
) -> QRResult: ...
@overload
def qr(
    a: ArrayLike, mode: Literal["reduced", "complete"] = ...,
    *,
    out: _Out = ...,
    axes: _Axes = ...,
    errors: _Errors = ...,
    return_status: Literal[True],
) -> tuple[QRResult, _Array]: ...
@overload
def qr(
    a: ArrayLike, mode: Literal["r"],
    *,
    out: _Out = ...,
    axes: _Axes = ...,
    errors: _Errors = ...,
    return_status: Literal[False] = ...,
) -> _Array: ...
@overload
def qr(
    a: ArrayLike, mode: Literal["r"],
    *,
    out: _Out = ...,
    axes: _Axes = ...,
    errors: _Errors = ...,
    return_status: Literal[True],
) -> tuple[_Array, _Array]: ...
@overload
def lstsq(
    a: ArrayLike, b: ArrayLike, rcond: None = ...,
    *,
    out: _Out = ...,
    axes: _Axes = ...,
    errors: _Errors = ...,
    return_status: Literal[False] = ...,
) -> LstsqResult: ...
@overload
def lstsq(
    a: ArrayLike, b: ArrayLike, rcond: None = ...,
    *,
    out: _Out = ...,
    axes: _Axes = ...,
    errors: _Errors = ...,
    return_status: Literal[True],
) -> tuple[LstsqResult, _Array]: ...
@overload
def eigh(
    a: ArrayLike, UPLO: _Triangle = ...,
    *,
    out: _Out = ...,
    axes: _Axes = ...,
    errors: _Errors = ...,
    return_status: Literal[False] = ...,
) -> EighResult: ...
@overload
def eigh(
    a: ArrayLike, UPLO: _Triangle = ...,
    *,
    out: _Out = ...,
    axes: _Axes = ...,
    errors: _Errors = ...,
    return_status: Literal[True],
) -> tuple[EighResult, _Array]: ...
@overload
def eigvalsh(
    a: ArrayLike, UPLO: _Triangle = ...,
    *,
    out: _Out = ...,
    axes: _Axes = ...,
    errors: _Errors = ...,
    return_status: Literal[False] = ...,
) -> _Array: ...
@overload
def eigvalsh(
    a: ArrayLike, UPLO: _Triangle = ...,
    *,
    out: _Out = ...,
    axes: _Axes = ...,
    errors: _Errors = ...,
    return_status: Literal[True],
) -> tuple[_Array, _Array]: ...
@overload
def eig(
    a: ArrayLike,
    *,
    out: _Out = ...,
    axes: _Axes = ...,
    errors: _Errors = ...,
    return_status: Literal[False] = ...,
) -> EigResult: ...
@overload
def eig(
    a: ArrayLike,
    *,
    out: _Out = ...,
    axes: _Axes = ...,
    errors: _Errors = ...,
    return_status: Literal[True],
) -> tuple[EigResult, _Array]: ...
@overload
def eigvals(
    a: ArrayLike,
    *,
    out: _Out = ...,
    axes: _Axes = ...,
    errors: _Errors = ...,
    return_status: Literal[False] = ...,
) -> _Array: ...
@overload
def eigvals(
    a: ArrayLike,
    *,
    out: _Out = ...,
    axes: _Axes = ...,
    errors: _Errors = ...,
    return_status: Literal[True],
) -> tuple[_Array, _Array]: ...
def matmul(
    x1: ArrayLike,
    x2: ArrayLike,
    /,
    out: _Out = ...,
    *,
    axes: _Axes = ...,
    order: str = ...,
    dtype: DTypeLike = ...,
    casting: str = ...,
) -> Any: ...
def matvec(
    x1: ArrayLike,
    x2: ArrayLike,
    /,
    out: _Out = ...,
    *,
    axes: _Axes = ...,
    order: str = ...,
    dtype: DTypeLike = ...,
    casting: str = ...,
) -> _Array: ...
def vecdot(
    x1: ArrayLike,
    x2: ArrayLike,
    /,
    out: _Out = ...,
    *,
    axis: SupportsIndex = ...,
    axes: _Axes = ...,
    keepdims: bool = ...,
    order: str = ...,
    dtype: DTypeLike = ...,
    casting: str = ...,
) -> Any: ...
def cross(
    x1: ArrayLike, x2: ArrayLike, /, *, axis: SupportsIndex = ..., out: _Out = ...
) -> _Array: ...
def norm(
    x: ArrayLike,
    ord: float | Literal["fro", "nuc"] | None = ...,
    axis: SupportsIndex | tuple[SupportsIndex, ...] | None = ...,
    keepdims: bool = ...,
) -> Any: ...
def trace(
    x: ArrayLike, /, *, offset: SupportsIndex = ..., dtype: DTypeLike | None = ..., out: _Out = ...
) -> Any: ...
