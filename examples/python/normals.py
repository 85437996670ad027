"""Normals of a point cloud: at every point the direction in which its neighbours spread least, the
eigenvector that belongs to the smallest eigenvalue of their covariance. H. Hoppe and others,
"Surface reconstruction from unorganized points", 1992. `normals.py FILE` draws the terrain in FILE,
with matplotlib.
"""

import pathlib
import sys

import numpy
import zelm
from ratio import compare


def covariances(points, radius):
    result = []
    for block in numpy.array_split(points, 50):
        near = ((block[:, None] - points) ** 2).sum(axis=-1) < radius**2
        n = near.sum(axis=1)[:, None, None]
        squares = (near @ (points[:, :, None] * points[:, None]).reshape(-1, 9)).reshape(-1, 3, 3)
        means = (near @ points)[:, :, None] / n
        result.append(squares / n - means * means.transpose(0, 2, 1))
    return numpy.concatenate(result)


def normals(spread, eigh):
    values, vectors = eigh(spread)
    up = vectors[:, :, 0]
    return up * numpy.where(up[:, 2:] < 0, -1, 1)


# A sphere, whose points are their own normals.
i = numpy.arange(2000)
z, angle = (i + 0.5) / 1000 - 1, 2.39996323 * i
r = numpy.sqrt(1 - z**2)
sphere = numpy.stack([r * numpy.cos(angle), r * numpy.sin(angle), z], axis=1)
cosines = zelm.vecdot(sphere, normals(covariances(sphere, 0.2), zelm.eigh))
assert (abs(abs(cosines) - 1) < 2e-4).all()

# A volcano, in metres to the west, to the north and up.
file = pathlib.Path(__file__).parent.parent / "data" / "maunga-whau.csv"
heights = numpy.loadtxt(file, delimiter=",")
rows, columns = numpy.indices(heights.shape)
cloud = numpy.stack([10.0 * columns, 10.0 * rows, heights], axis=-1).reshape(-1, 3)
spread = covariances(cloud - cloud.mean(axis=0), 30)
up = normals(spread, zelm.eigh)
assert numpy.allclose(up, normals(spread, numpy.linalg.eigh), rtol=0, atol=1e-9)
compare("normals", lambda: normals(spread, zelm.eigh), lambda: normals(spread, numpy.linalg.eigh))

if len(sys.argv) > 1:
    from matplotlib import pyplot

    light = up @ numpy.array([0.5, 0.5, 0.7])  # from the north-west
    picture = light.reshape(heights.shape)[:, ::-1]
    pyplot.imshow(picture, cmap="gray", origin="lower", extent=(0, 610, 0, 870))
    pyplot.title("Maunga Whau, lit from the north-west")
    pyplot.xlabel("metres to the east")
    pyplot.ylabel("metres to the north")
    pyplot.savefig(sys.argv[1])
