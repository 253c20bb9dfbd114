"""A million speeds asked at once from Python: beside a loop of np.interp's calls, and beside the C
interface alone. Prints the ratios; the best of several turns each. With MODE, or "loop", nothing but
the seconds that a million takes in that mode, or in the loop.

    PYTHONPATH=BUILD/python python3 bench/arrays.py BUILD/bin/libdesignspec-c.so [MODE]
"""

import ctypes
import sys
import time

import numpy as np

from designspec import MODES, Specification

COUNT = 1_000_000
LOOP = 20_000  # of which a million is reckoned
TURNS = 15
PATH = b"CircularCurveRad.SuperelevationMinRad"


def best(work):
    times = []
    for _ in range(TURNS):
        begin = time.perf_counter()
        work()
        times.append(time.perf_counter() - begin)
    return min(times)


def c_table(library):
    specification, table = ctypes.c_void_p(), ctypes.c_void_p()
    assert library.designspec_specification_new("甲".encode(), ctypes.byref(specification)) == 0
    assert library.designspec_table_of(specification, PATH, ctypes.byref(table)) == 0
    return table


def main():
    speeds = np.random.default_rng(1).integers(20, 81, COUNT, dtype=np.int32)
    table = Specification("甲").CircularCurveRad.SuperelevationMinRad
    xs, ys = table.to_numpy()
    library = ctypes.CDLL(sys.argv[1])
    handle = c_table(library)
    values, found = np.empty(COUNT), np.empty(COUNT, dtype=np.uint8)

    def call_c(mode):
        status = library.designspec_query_many(
            handle,
            speeds.ctypes.data_as(ctypes.c_void_p),
            ctypes.c_size_t(COUNT),
            MODES[mode],
            values.ctypes.data_as(ctypes.c_void_p),
            found.ctypes.data_as(ctypes.c_void_p),
        )
        assert status == 0

    if sys.argv[2:] and sys.argv[2] in MODES:
        print(best(lambda: table.query(speeds, mode=sys.argv[2])))
        return
    loop = best(lambda: [np.interp(one, xs, ys) for one in speeds[:LOOP]]) * COUNT / LOOP
    if sys.argv[2:] == ["loop"]:
        print(loop)
        return
    print(f"loop of np.interp: {loop * 1e3:.0f} ms a million")
    for mode in MODES:
        ours, bare = best(lambda: table.query(speeds, mode=mode)), best(lambda: call_c(mode))
        assert np.array_equal(table.query(speeds, mode=mode)[found == 1], values[found == 1])
        print(
            f"{mode}: {ours * 1e3:.1f} ms, the C call {bare * 1e3:.1f} ms ({ours / bare:.2f});"
            f" the loop takes {loop / ours:.0f} times as long"
        )


main()
