#!/usr/bin/env python3
"""Times zelm beside numpy.linalg in one process and on one thread, and prints NumPy's time over
zelm's: above 1 zelm is the faster one. Calls of the two alternate, and the median of their ratios
counts.
"""

import argparse
import os
import platform
import sys
import time

os.environ.update(OPENBLAS_NUM_THREADS="1", OMP_NUM_THREADS="1", MKL_NUM_THREADS="1")
for name in ("OPENBLAS_CORETYPE", "OPENBLAS_L2_SIZE"):  # they would slow NumPy down
    os.environ.pop(name, None)

import numpy
import zelm

STACKS = (1, 10, 1000, 100000)
TARGETS = {"inv": 20, "det": 20, "solve": 8, "eigh": 5, "matmul": 4, "cholesky": 3}  # orders 2 to 4


class Data:
    def __init__(self, count, order, dtype):
        random = numpy.random.default_rng(order)
        a = random.standard_normal((count, order, order))
        self.general = a.astype(dtype)
        self.regular = (a + 2 * order * numpy.eye(order)).astype(dtype)
        self.symmetric = (a + numpy.swapaxes(a, -1, -2)).astype(dtype)
        self.definite = (a @ numpy.swapaxes(a, -1, -2) + numpy.eye(order)).astype(dtype)
        self.vectors = random.standard_normal((count, order)).astype(dtype)
        self.triples = random.standard_normal((count, 3)).astype(dtype)


# name: what both modules are called with; NumPy 1 has no matvec and no vecdot
def matvec(a, x):
    return numpy.matmul(a, x[..., None])[..., 0]


def vecdot(x, y):
    return numpy.einsum("...i,...i->...", x, y)


OPERATIONS = {
    "inv": lambda m, d: m.inv(d.regular),
    "det": lambda m, d: m.det(d.regular),
    "slogdet": lambda m, d: m.slogdet(d.regular),
    "solve": lambda m, d: m.solve(d.regular, d.vectors[..., None]),
    "cholesky": lambda m, d: m.cholesky(d.definite),
    "qr": lambda m, d: m.qr(d.general),
    "eigh": lambda m, d: m.eigh(d.symmetric),
    "eigvalsh": lambda m, d: m.eigvalsh(d.symmetric),
    "eig": lambda m, d: m.eig(d.general),
    "eigvals": lambda m, d: m.eigvals(d.general),
    "matmul": lambda m, d: (numpy if m is numpy.linalg else m).matmul(d.general, d.regular),
    "matvec": lambda m, d: (matvec if m is numpy.linalg else m.matvec)(d.general, d.vectors),
    "vecdot": lambda m, d: (vecdot if m is numpy.linalg else m.vecdot)(d.vectors, d.vectors),
    "cross": lambda m, d: (numpy if m is numpy.linalg else m).cross(d.triples, d.triples),
    "norm": lambda m, d: m.norm(d.vectors, axis=-1),
    "norm fro": lambda m, d: m.norm(d.general, axis=(-2, -1)),
    "trace": lambda m, d: (
        numpy.trace(d.general, axis1=-2, axis2=-1)
        if m is numpy.linalg
        else m.trace(d.general)
    ),
}


def seconds(call, number):
    """Of this thread: what else the machine does does not count."""
    start = time.thread_time()
    for _ in range(number):
        call()
    return time.thread_time() - start


def compare(operation, data, budget):
    """The median of the ratios, and zelm's nanoseconds."""

    def theirs():
        operation(numpy.linalg, data)

    def ours():
        operation(zelm, data)

    seconds(ours, 1)
    number = max(1, int(0.001 / max(seconds(theirs, 1), 1e-9)))
    ratios, best = [], float("inf")
    end = time.thread_time() + budget
    while len(ratios) < 3 or (time.thread_time() < end and len(ratios) < 101):
        theirs_first = len(ratios) % 2
        x = seconds(theirs if theirs_first else ours, number)
        y = seconds(ours if theirs_first else theirs, number)
        their_time, our_time = (x, y) if theirs_first else (y, x)
        ratios.append(their_time / our_time)
        best = min(best, our_time / number)
    return sorted(ratios)[len(ratios) // 2], best * 1e9


def numbers(text):
    return [int(n) for n in text.split(",")]


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--filter", default="", help="only operations whose name contains this")
    parser.add_argument("--orders", type=numbers, default=list(range(2, 9)), help="2,3,4")
    parser.add_argument("--stacks", type=numbers, default=list(STACKS), help="1,1000")
    parser.add_argument("--budget", type=float, default=0.1, help="seconds for a ratio")
    given = parser.parse_args()

    zelm.set_num_threads(1)
    with open("/proc/cpuinfo") as file:
        models = [line.split(":")[1].strip() for line in file if line.startswith("model name")]
    print(f"{models[0] if models else platform.machine()}, NumPy {numpy.__version__}, one thread")
    print("NumPy's time / zelm's, and zelm's ns per object in the largest stack")
    print(f"{'':8} {'type':8} order" + "".join(f"{n:>9}" for n in given.stacks) + f"{'ns':>10}")
    missed = []
    for name, operation in OPERATIONS.items():
        if given.filter not in name:
            continue
        for dtype in (numpy.float32, numpy.float64):
            for order in given.orders:
                if name == "cross" and order != 3:
                    continue
                row = f"{name:8} {dtype.__name__:8} {order:5}"
                for count in given.stacks:
                    data = Data(count, order, dtype)
                    ratio, time_of_call = compare(operation, data, given.budget)
                    target = TARGETS.get(name, 1) if count == 100000 and order <= 4 else 1
                    if ratio < target:
                        missed.append(
                            f"{name} {dtype.__name__} order {order} stack {count}: {ratio:.2f}, "
                            f"wanted {target}"
                        )
                    row += f"{ratio:9.2f}"
                print(f"{row}{time_of_call / count:10.1f}")
                sys.stdout.flush()
    print("\nBelow their targets:" if missed else "\nAll targets are reached.", *missed, sep="\n  ")


if __name__ == "__main__":
    main()
