"""Holds every road of a folder against every specification of a project, on a cluster:

    python3 verify_roads.py PROJECT ROADS [--scheduler ADDRESS] [--speed V] [--out FILE.csv]

Without an address, on as many processes of this machine as it has cores. Prints a table with a row
for each road and specification; the status is 1 when a limit is violated, 3 when a file could not be
read. What a worker had not finished when it went is done by another one, and counts once.
"""

import argparse
import pathlib
import sys

from distributed import Client, LocalCluster

from designspec import Library, outcomes_frame, road_works, run_works


def spread(client, works, at_once=50):
    """The outcomes, in the order of the works, of which so many are handed out together. A worker
    that goes has its share done again, up to three times."""
    shares = [works[i : i + at_once] for i in range(0, len(works), at_once)]
    futures = client.map(run_works, shares, retries=3, pure=False)
    return [outcome for share in client.gather(futures) for outcome in share]


def arguments():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n", maxsplit=1)[0])
    parser.add_argument("project", type=pathlib.Path)
    parser.add_argument("roads", type=pathlib.Path)
    parser.add_argument("--scheduler")
    parser.add_argument("--speed", type=int)
    parser.add_argument("--out", type=pathlib.Path)
    return parser.parse_args()


def main():
    given = arguments()
    library = Library(given.project)
    files = sorted(path.resolve() for path in given.roads.glob("*.xml"))
    options = {"speed": given.speed} if given.speed else {}
    works = road_works(files, library.values(), **options)
    if given.scheduler:
        client = Client(given.scheduler)
    else:
        client = Client(LocalCluster(processes=True, threads_per_worker=1, dashboard_address=None))
    with client:
        frame = outcomes_frame(spread(client, works))
    if given.out:
        frame.to_csv(given.out, index=False)
    print(frame.to_string(index=False))
    if (frame["cause"] != "").any():
        return 3
    return 1 if frame["errors"].any() else 0


if __name__ == "__main__":
    sys.exit(main())
