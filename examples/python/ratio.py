"""Times two ways beside one another."""

import time

import zelm


def compare(what, zelm_way, numpy_way):
    """Print how long both take on one thread, the best of several runs taken in turn."""
    zelm.set_num_threads(1)
    best = [float("inf")] * 2
    for _ in range(10):
        for i, way in enumerate((zelm_way, numpy_way)):
            start = time.perf_counter()
            way()
            best[i] = min(best[i], time.perf_counter() - start)
    milliseconds = [1000 * seconds for seconds in best]
    ratio = best[1] / best[0]
    print(f"{what}: zelm {milliseconds[0]:.2f} ms, NumPy {milliseconds[1]:.2f} ms, ratio {ratio:.1f}")
