"""The example that spreads roads over processes, whole and with a worker that goes."""

import concurrent.futures
import os
import pathlib
import pickle
import subprocess
import sys
import time

import pandas
import pytest
from distributed import Client, LocalCluster

from designspec import RoadWork, Specification, outcomes_frame, road_works, run_works

SOURCE = pathlib.Path(os.environ["DESIGNSPEC_SOURCE"])
EXAMPLE = SOURCE / "examples" / "cluster" / "verify_roads.py"
sys.path.insert(0, str(EXAMPLE.parent))

import verify_roads  # noqa: E402


@pytest.fixture
def roads(tmp_path):
    folder = tmp_path / "roads"
    folder.mkdir()
    for source in (SOURCE / "examples" / "roads").glob("*.xml"):
        for i in range(3):
            (folder / f"{source.stem}-{i}.xml").write_bytes(source.read_bytes())
    (folder / "broken.xml").write_text("<LandXML>\n<Alignments")
    return folder


@pytest.fixture
def client():
    with LocalCluster(
        n_workers=2, processes=True, threads_per_worker=1, dashboard_address=None
    ) as cluster, Client(cluster) as made:
        yield made


def works_of(roads):
    stricter = Specification("严")
    stricter.CircularCurveRad.SuperelevationMinRad[60] = 4000
    return road_works(sorted(roads.glob("*.xml")), [Specification("甲"), stricter])


def alone(works):
    return outcomes_frame(one.run() for one in works)


def test_a_piece_of_work_is_a_plain_value(roads):
    work = next(one for one in works_of(roads) if "违规" in one.file)
    assert isinstance(work.file, str) and isinstance(work.specification, bytes)
    assert set(vars(work)) == {"file", "specification", "options"}
    again = pickle.loads(pickle.dumps(work))
    assert again == work
    outcome = again.run()
    assert outcome.report.findings and outcome == work.run()
    assert pickle.loads(pickle.dumps(outcome)) == outcome


def test_what_cannot_be_read_is_a_row_with_its_cause(roads):
    frame = alone(works_of(roads))
    assert len(frame) == 14
    broken = frame[frame["file"].str.endswith("broken.xml")]
    assert len(broken) == 2 and broken["cause"].str.contains("broken.xml:2: ").all()
    assert (broken["errors"] == 0).all()
    rest = frame[frame["cause"] == ""]
    clean = rest["file"].str.contains("合格")
    assert (rest[~clean]["errors"] > 0).all()
    assert (rest[clean & (rest["specification"] == "甲")]["errors"] == 0).all()
    assert (rest[clean & (rest["specification"] == "严")]["radius-min"] > 0).all()
    refused = RoadWork(str(roads / "合格-0.xml"), Specification().to_text(), {"max_super": 6})
    assert refused.run().cause == ""
    unreadable = RoadWork(str(roads / "合格-0.xml"), b"<StyleLibrary>\n<Group").run()
    assert unreadable.report is None and ":2: " in unreadable.cause


def test_a_cluster_finds_what_one_process_finds(roads, client):
    works = works_of(roads)
    frame = outcomes_frame(verify_roads.spread(client, works, at_once=3))
    pandas.testing.assert_frame_equal(frame, alone(works))


def slow_runs(works):
    time.sleep(0.4)
    return run_works(works)


def test_the_share_of_a_worker_that_goes_is_done_once_by_another(roads, client, monkeypatch):
    monkeypatch.setattr(verify_roads, "run_works", slow_runs)
    works = works_of(roads) * 2
    begun = client.run(os.getpid)
    with concurrent.futures.ThreadPoolExecutor() as other:
        spreading = other.submit(verify_roads.spread, client, works, at_once=2)
        while not any("slow_runs" in str(tasks) for tasks in client.processing().values()):
            time.sleep(0.05)
        time.sleep(0.6)  # a share is done, others are under way, more are waiting
        os.kill(next(iter(begun.values())), 9)
        frame = outcomes_frame(spreading.result())
    assert set(client.run(os.getpid).values()) != set(begun.values())
    pandas.testing.assert_frame_equal(frame, alone(works))


def test_the_example_prints_a_table(roads, tmp_path):
    ran = subprocess.run(
        [sys.executable, EXAMPLE, SOURCE / "examples" / "project", roads, "--out", tmp_path / "a.csv"],
        capture_output=True,
        text=True,
    )
    assert ran.returncode == 3, ran.stderr
    assert "broken.xml:2:" in ran.stdout and "radius-min" in ran.stdout
    frame = pandas.read_csv(tmp_path / "a.csv")
    specifications = frame["specification"].nunique()
    assert specifications > 1 and len(frame) == 7 * specifications
    assert (frame["errors"] > 0).any()
