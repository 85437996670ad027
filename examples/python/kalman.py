"""A bank of Kalman filters: each follows an object in space by its position every second, from a
sensor of its own quality. R. E. Kalman, "A new approach to linear filtering and prediction problems",
1960. P. R. Kalata, "The tracking index", 1984, knows what the gains converge to. `kalman.py FILE`
draws in FILE how they do, with matplotlib.
"""

import sys

import numpy
import zelm
from ratio import compare

count = 10000
identity = numpy.eye(3)
F = numpy.block([[identity, identity], [0 * identity, identity]])  # what a second does to x
Q = numpy.kron([[0.25, 0.5], [0.5, 1]], identity)  # what accelerations add to P
H = numpy.eye(3, 6)  # what is measured of x
deviations = numpy.array([0.5, 1, 2, 4, 8])[numpy.arange(count) % 5]
R = deviations[:, None, None] ** 2 * identity


def step(x, P, z, matmul, solve):
    """The next x and P by the measurements z, and the gains."""
    x = matmul(F, x)
    P = matmul(matmul(F, P), F.T) + Q
    HP = P[:, :3]
    K = solve(HP[:, :, :3] + R, HP).transpose(0, 2, 1)
    x = x + matmul(K, z - x[:, :3])
    return x, P - matmul(K, HP), K


x = numpy.zeros((count, 6, 1))
P = numpy.tile(100 * numpy.eye(6), (count, 1, 1))
z = numpy.arange(3.0 * count).reshape(count, 3, 1)  # they do not move
gains = []
for second in range(100):
    x, P, K = step(x, P, z, zelm.matmul, zelm.solve)
    gains.append(K[:5, 0, 0])

index = 1 / deviations
r = (4 + index - numpy.sqrt(8 * index + index**2)) / 4
limits = 1 - r**2
assert numpy.allclose(K[:, 0, 0], limits, rtol=0, atol=1e-12)
assert numpy.allclose(x[:, :3], z, rtol=0, atol=1e-6)
compare(
    "steps",
    lambda: step(x, P, z, zelm.matmul, zelm.solve),
    lambda: step(x, P, z, numpy.matmul, numpy.linalg.solve),
)

if len(sys.argv) > 1:
    from matplotlib import pyplot

    pyplot.plot(numpy.array(gains)[:30])
    pyplot.hlines(limits[:5], 0, 29, linestyles="dotted")
    pyplot.legend([f"{d:g} m" for d in deviations[:5]], title="standard deviation")
    pyplot.xlabel("seconds")
    pyplot.ylabel("gain of the position")
    pyplot.savefig(sys.argv[1])
