from collections.abc import Callable

from numpy import ufunc

inv: ufunc
solve: ufunc
solve_vector: ufunc
det: ufunc
slogdet: ufunc
cholesky_lower: ufunc
cholesky_upper: ufunc
qr_n: ufunc
qr_m: ufunc
qr_n_r: ufunc
qr_m_r: ufunc
lstsq: ufunc
lstsq_vector: ufunc
eigh_lower: ufunc
eigh_upper: ufunc
eigvalsh_lower: ufunc
eigvalsh_upper: ufunc
eig: ufunc
eigvals: ufunc
matmul: ufunc
matvec: ufunc
vecdot: ufunc
cross: ufunc
norm: ufunc
matrix_norm: ufunc
trace: ufunc

statuses: dict[str, tuple[int, str]]

def first_failure(status: object, ignored: int, /) -> int: ...
def direct(
    number: int,
    ufunc: ufunc,
    function: Callable[..., object],
    name: str,
    text: str,
    module: str,
    /,
) -> Callable[..., object]: ...
def set_num_threads(n: int, /) -> None: ...
def get_num_threads() -> int: ...
