"""The Python package as scripts and notebooks use it."""

import copy
import ctypes
import os
import pickle
import threading
import time

import numpy as np
import pandas
import pytest

import designspec
from designspec import Library, RefusedError, Specification

ROADS = os.path.join(os.environ["DESIGNSPEC_SOURCE"], "examples", "roads")


@pytest.fixture
def project(tmp_path):
    (tmp_path / "规范").mkdir()
    return tmp_path


@pytest.fixture
def library(project):
    made = Library(project)
    made.add(Specification("甲"))
    made.add(Specification("乙"))
    return made


def test_a_library_is_a_mapping_of_names(library):
    assert list(library) == ["甲", "乙"]
    assert len(library) == 2 and "甲" in library and "丙" not in library
    assert library["甲"].name == "甲"
    assert library[library["甲"].id].name == "甲"
    assert {name: one.name for name, one in library.items()} == {"甲": "甲", "乙": "乙"}
    assert library.get("丙") is None
    with pytest.raises(KeyError) as error:
        library["丙"]
    assert isinstance(error.value, designspec.NotFoundError)
    assert str(error.value) == "没有设计规范“丙”"


def test_what_is_saved_is_there_for_others(library, project):
    one = library["甲"]
    one.CircularCurveRad.MaxRad = 9000
    assert Library(project)["甲"].CircularCurveRad.MaxRad == 10000
    library.save(one)
    assert Library(project)["甲"].CircularCurveRad.MaxRad == 9000
    assert library["甲"].CircularCurveRad.MaxRad == 9000
    with pytest.raises(designspec.NotFoundError):
        library.save(Specification("丙"))


def test_a_library_is_renamed_removed_exported_and_imported(library, project):
    library.rename("乙", "丙")
    with pytest.raises(RefusedError):
        library.rename("丙", "甲")
    with pytest.raises(RefusedError):
        library.rename("丙", "a/b")
    library.set_default("丙")
    assert library.default.name == "丙"
    library.export_file(project / "a.hds", ["丙"])
    assert [one.name for one in designspec.read(project / "a.hds")] == ["丙"]
    with pytest.raises(designspec.NotFoundError):
        library.export_file(project / "a.hds", ["丁"])
    library.remove("丙")
    assert list(library) == ["甲"] and library.default is None
    assert library.import_file(project / "a.hds") == ["丙"]
    assert library.import_file(project / "a.hds") == []
    assert library.import_file(project / "a.hds", overwrite=True) == ["丙"]
    assert library.add(library["甲"]).name == "甲(1)"


def test_a_file_that_cannot_be_read_is_named_with_line_and_cause(library, project):
    (project / "规范" / "b.hds").write_bytes(b"<a>\n<b")
    library.reload()
    assert set(library) == {"甲", "乙"}
    (problem,) = [one for one in library.problems if one.is_error]
    assert problem.file.endswith("b.hds") and problem.line == 2 and problem.text
    with pytest.raises(designspec.FileError) as error:
        designspec.read(project / "规范" / "b.hds")
    assert error.value.file.endswith("b.hds") and error.value.line == 2 and error.value.cause
    assert isinstance(error.value, OSError)
    assert str(error.value) == f"{error.value.file}:2: {error.value.cause}"
    again = pickle.loads(pickle.dumps(error.value))
    assert again.line == 2 and str(again) == str(error.value)
    with pytest.raises(designspec.FileError):
        Library(project / "none")


def test_criteria_are_attributes_with_units_in_their_docs():
    one = Specification()
    assert one.BeelineLen.MaxLen == 20
    assert one.TransitionCurveMinLen.fields()
    assert type(one.CircularCurveRad).MaxRad.__doc__ == "圆曲线最大半径, m: int"
    assert "km/h" in type(one.CircularCurveRad).SuperelevationMinRad.__doc__
    assert repr(one.CircularCurveRad) == "<CircularCurveRad 圆曲线半径>"
    with pytest.raises(AttributeError):
        one.CircularCurveRad.NoSuch = 1
    with pytest.raises(AttributeError):
        one.CircularCurveRad.NoSuch
    one.CircularCurveRad.MinRadCriterion = "《规范》3.2"
    assert one.CircularCurveRad.MinRadCriterion == "《规范》3.2"
    assert one.get("圆曲线半径.圆曲线最大半径") == 10000


def test_what_the_editor_refuses_changes_nothing():
    one = Specification()
    before = one.to_dict()
    for path, value in [
        ("CircularCurveRad.MaxRad", 0.5),
        ("CircularCurveRad.MaxRad", float("nan")),
        ("CircularCurveRad.SuperelevationMinRad", {9: 10}),
        ("CircularCurveRad.SuperelevationMinRad", {151: 10}),
        ("CircularCurveRad.SuperelevationMinRad", {60: float("inf")}),
        ("CircularCurveRad.SuperelevationMinRad", {60: 10.5}),
        ("CircularCurveRad.SuperelevationMinRad", {60: -1}),
        ("CircularCurveRad.MaxRadCriterion", "a\x01b"),
        ("LonGradMaxLen.rows", [{"NoSuch": 1}]),
    ]:
        criterion, field = path.split(".")
        with pytest.raises(RefusedError):
            setattr(getattr(one, criterion), field, value)
    for path, value in [
        ("CircularCurveRad.MaxRad", "x"),
        ("CircularCurveRad.MaxRadCriterion", 5),
        ("LonGradMaxLen.rows", [5]),
    ]:
        criterion, field = path.split(".")
        with pytest.raises(TypeError):
            setattr(getattr(one, criterion), field, value)
    with pytest.raises(RefusedError):
        one.set("CircularCurveRad.MaxRad", "x")
    with pytest.raises(RefusedError):
        one.set("No.Such", 1)
    with pytest.raises(ValueError):
        one.CircularCurveRad.SuperelevationMinRad = ([60, 60], [1, 2])
    with pytest.raises(ValueError):
        one.CircularCurveRad.SuperelevationMinRad = ([60], [1, 2])
    with pytest.raises(ValueError):
        one.CircularCurveRad.SuperelevationMinRad = {60.5: 1}
    assert one.to_dict() == before
    with pytest.raises(RefusedError):
        Specification("a/b")


def test_fields_that_go_together_are_set_together():
    one = Specification()
    curves = one.TransitionCurveMinLen
    radii = dict(curves.NoTCByMinRad)
    curves.NoTCBySuperelevation = True
    assert curves.NoTCByMinRad == {}
    with pytest.raises(RefusedError):  # a table that is not in use
        curves.NoTCByMinRad = radii
    with pytest.raises(RefusedError):  # in use, and empty
        curves.NoTCBySuperelevation = False
    curves.update({"NoTCByMinRad": radii, "NoTCBySuperelevation": False})
    assert curves == Specification().TransitionCurveMinLen
    with pytest.raises(RefusedError):
        curves.update({"NoTCByMinRad": {80: 1}, "MinLen": {80: -1}})
    assert curves.NoTCByMinRad == radii
    with pytest.raises(AttributeError):
        curves.update({"NoSuch": 1})


def test_texts_are_as_files_keep_them():
    one = Specification()
    one.CircularCurveRad.MaxRadCriterion = " 《规范》\n"
    assert one.CircularCurveRad.MaxRadCriterion == "《规范》"
    assert pickle.loads(pickle.dumps(one)) == one


def test_all_that_is_public_says_what_it_is():
    named = [getattr(designspec, name) for name in designspec.__all__]
    classes = [one for one in named if isinstance(one, type)]
    classes += designspec._criteria.CRITERIA.values()
    members = {one.__qualname__: one for one in named if callable(one)}
    for one in classes:
        for name, member in vars(one).items():
            if callable(member) or isinstance(member, (property, classmethod)):
                members[f"{one.__name__}.{name}"] = member
    silent = [name for name, one in members.items() if not one.__doc__ and "._" not in name]
    assert silent == [] and len(members) > 100


def test_tables_are_dicts_arrays_and_series():
    one = Specification()
    table = one.CircularCurveRad.SuperelevationMinRad
    assert dict(table) == {80: 250, 60: 150, 50: 100, 40: 70, 30: 40, 20: 20}
    assert list(table)[0] == 80 and len(table) == 6 and table[60] == 150
    table[70] = 200
    assert list(one.CircularCurveRad.SuperelevationMinRad) == [80, 70, 60, 50, 40, 30, 20]
    del table[70]
    with pytest.raises(KeyError):
        del table[70]
    with pytest.raises(KeyError):
        table[70]
    speeds, values = table.to_numpy()
    assert speeds.dtype == np.int32 and list(speeds) == [20, 30, 40, 50, 60, 80]
    assert list(values) == [20, 40, 70, 100, 150, 250]
    series = table.to_series()
    assert series.index.name == "speed" and series.name == "设超高最小半径" and series[60] == 150
    one.CircularCurveRad.SuperelevationMinRad = series + 10
    assert table == {80: 260, 60: 160, 50: 110, 40: 80, 30: 50, 20: 30}
    table.assign((np.array([40, 60]), np.array([70.0, 150.0])))
    assert table == {60: 150, 40: 70}
    other = Specification()
    other.CircularCurveRad.SuperelevationMinRad = table
    assert other.CircularCurveRad.SuperelevationMinRad == table
    other.LonGrad.MaxGradLimitedValues = {80: 5.5}
    assert other.LonGrad.MaxGradLimitedValues.to_series()[80] == 5.5
    assert "设超高最小半径 (m)" in table._repr_html_()


def test_a_table_with_an_odd_speed_of_a_file_can_be_changed_beside_it():
    text = Specification("甲").to_text().replace(b'speed="80"', b'speed="160"')
    one = Specification.from_text(text)
    table = one.CircularCurveRad.SuperelevationMinRad
    assert list(table)[0] == 160
    table[60] = 160
    assert table[60] == 160 and table[160] == 250
    with pytest.raises(RefusedError, match="车速"):
        table[170] = 260


@pytest.mark.parametrize(
    "mode, expected",
    [
        ("nearest", [250, 250, 20, 250]),
        ("upper", [250, 250, 20, np.nan]),
        ("lower", [250, 150, np.nan, 250]),
        ("interpolate", [250, 200, 20, 250]),
        ("exact", [250, np.nan, np.nan, np.nan]),
    ],
)
def test_queries_of_arrays_are_those_of_their_speeds(mode, expected):
    table = Specification().CircularCurveRad.SuperelevationMinRad
    speeds = [80, 70, 10, 200]
    answers = table.query(speeds, mode=mode)
    np.testing.assert_array_equal(answers, expected)
    for speed, answer in zip(speeds, answers):
        one = table.query(speed, mode=mode)
        assert one is None if np.isnan(answer) else one == answer and isinstance(one, int)


def test_queries_take_arrays_of_every_kind_and_shape():
    table = Specification().LonGrad.MaxGradLimitedValues
    assert table.query(80) == 6.0 and isinstance(table.query(80), float)
    for kind in (np.int8, np.int16, np.int64, np.uint16, np.float64):
        assert list(table.query(np.array([80, 60], dtype=kind))) == [6, 7]
    assert table.query(np.full((3, 2), 80)).shape == (3, 2)
    assert table.query(np.array([], dtype=int)).size == 0
    assert list(table.query(np.array([80, 1, 60, 1])[::2])) == [6, 7]
    assert list(table.query(pandas.Series([80, 60]))) == [6, 7]
    for wrong in ([80.5], [2**32 + 80], np.array([2**31], dtype=np.uint32), [np.nan]):
        with pytest.raises(ValueError):
            table.query(wrong)
    with pytest.raises(ValueError):
        table.query(80.5)
    with pytest.raises(ValueError):
        table.query(80, mode="best")


def test_criteria_with_a_query_of_their_own():
    one = Specification()
    assert one.LonGradMaxLen.query(6, 60, mode="exact") == 400
    assert one.LonGradMaxLen.query(5.8, 60, mode="exact") is None
    with pytest.raises(RefusedError):
        one.LonGradMaxLen.query(float("nan"), 60)
    assert one.SuperElevation.query(6, 80, 250) == 6
    assert one.SuperElevation.query(9, 80, 250) is None
    assert one.CurveWidening.query("普通汽车", 220) == 0.4
    assert one.CurveWidening.query("普通汽车", 5) is None
    assert one.MaxResultantGrad.CityRoad.query(60) == 6.5


def test_rows_within_rows_are_lists_of_dicts():
    one = Specification()
    rows = one.LonGradMaxLen.rows
    assert rows[0]["Grad"] == 5.0 and rows[0]["lengths"] == {80: 600}
    rows[0]["lengths"][80] = 650
    assert one.LonGradMaxLen.rows[0]["lengths"] == {80: 600}
    one.LonGradMaxLen.rows = rows
    assert one.LonGradMaxLen.rows[0]["lengths"] == {80: 650}
    other = Specification()
    for name in designspec._criteria.FIELDS:
        getattr(other, name).update(getattr(one, name).to_dict())
    assert other.to_dict() == one.to_dict()
    assert other.LonGradMaxLen == one.LonGradMaxLen
    assert other.LonGradMaxLen != Specification().LonGradMaxLen


def test_differences_are_listed_and_taken_over():
    left, right = Specification("甲"), Specification("甲")
    right.CircularCurveRad.MaxRad = 9000
    right.CircularCurveRad.SuperelevationMinRad[80] = 260
    found = designspec.diff(left, right)
    assert [(one.path, one.left, one.right) for one in found] == [
        ("CircularCurveRad.MaxRad", "10000 m", "9000 m"),
        ("CircularCurveRad.SuperelevationMinRad[80]", "250 m", "260 m"),
    ]
    frame = found.to_frame()
    assert list(frame.columns) == ["path", "label", "key", "left", "right"] and len(frame) == 2
    assert "9000 m" in found._repr_html_()
    designspec.apply(left, right, found[1:])
    assert left.CircularCurveRad.MaxRad == 10000
    assert left.CircularCurveRad.SuperelevationMinRad[80] == 260
    with pytest.raises(ValueError):
        designspec.apply(left, right, found)
    designspec.apply(left, right)
    assert designspec.diff(left, right) == []
    assert designspec.diff(left, right).to_frame().empty


def test_roads_are_held_against_specifications():
    limits = Specification("甲")
    report = designspec.verify(os.path.join(ROADS, "违规.xml"), limits)
    assert report.errors > 5 and report.specification == "甲"
    finding = next(one for one in report.findings if one.rule == "radius-min")
    assert finding.severity == "error" and finding.unit == "m" and finding.limit > finding.value
    assert finding.criterion == "CircularCurveRad.SuperelevationMinRad"
    frame = report.to_frame()
    assert len(frame) == len(report.findings)
    assert set(frame["severity"]) <= {"error", "warning", "note"}
    wider = designspec.verify(os.path.join(ROADS, "违规.xml"), limits, vehicle="普通汽车")
    assert len(wider.findings) > len(report.findings)
    clean = designspec.verify(os.path.join(ROADS, "合格.xml"), limits)
    assert clean.errors == 0
    slow = designspec.verify(os.path.join(ROADS, "违规.xml"), limits, speed=20)
    assert slow.errors < report.errors
    for same in (np.int64(20), 20.0, [(0, 2300, 20.0)]):
        assert designspec.verify(slow.file, limits, speed=same).errors == slow.errors
    with pytest.raises(ValueError):
        designspec.verify(slow.file, limits, speed=20.5)
    with pytest.raises(designspec.FileError) as error:
        designspec.verify("/no/such.xml", limits)
    assert error.value.file == "/no/such.xml"
    with pytest.raises(ValueError):
        designspec.verify(os.path.join(ROADS, "合格.xml"), limits, road_type="街道")
    assert pickle.loads(pickle.dumps(report)) == report


def test_what_cannot_be_asked_of_a_road_is_refused():
    limits = Specification("甲")
    road = os.path.join(ROADS, "违规.xml")
    for options in (
        {"vehicle": "马车"},
        {"speed": 0},
        {"speed": [(0, 100, 1001)]},
    ):
        with pytest.raises(RefusedError):
            designspec.verify(road, limits, **options)


def test_a_road_without_a_speed_is_told_and_the_rest_is_checked(tmp_path):
    with open(os.path.join(ROADS, "违规.xml"), encoding="utf-8") as file:
        text = file.read()
    line = '<CoordGeom><Line length="100"/></CoordGeom>'
    more = f'<Alignment name="支路" length="100" staStart="0">{line}</Alignment></Alignments>'
    both, none = tmp_path / "both.xml", tmp_path / "none.xml"
    both.write_text(text.replace("</Alignments>", more), encoding="utf-8")
    none.write_text(text.replace("DesignSpeed", "NoSpeed"), encoding="utf-8")
    limits = Specification("甲")
    whole = designspec.verify(os.path.join(ROADS, "违规.xml"), limits)
    report = designspec.verify(both, limits)
    assert report.findings == whole.findings and whole.problems == []
    assert [str(one) for one in report.problems if one.is_error] == [
        f"{both}: 路线“支路”没有设计车速"
    ]
    (outcome,) = designspec.run_works(designspec.road_works([both], [limits]))
    assert outcome.report == report and outcome.cause.endswith("没有设计车速")
    with pytest.raises(RefusedError):
        designspec.verify(none, limits)


def test_specifications_are_values():
    one = Specification("甲")
    one.CircularCurveRad.MaxRad = 9000
    again = pickle.loads(pickle.dumps(one))
    assert again == one and again.id == one.id and again.name == "甲"
    assert copy.copy(one) == one and one.copy() == one and one.copy() is not one
    again.CircularCurveRad.MaxRad = 8000
    assert again != one and one.CircularCurveRad.MaxRad == 9000
    assert Specification.from_text(one.to_text()) == one
    with pytest.raises(designspec.FileError):
        Specification.from_text(b"<a")
    assert one.findings() == []
    one.CircularCurveRad.MinRadCriterion = "<规范>"
    assert "&lt;规范&gt;" in one._repr_html_() and "圆曲线半径" in one._repr_html_()
    one.name = "丙"
    assert one.name == "丙"


def test_tables_and_criteria_are_pickled_with_what_they_stand_on():
    one = Specification("甲")
    table, criterion = pickle.loads(
        pickle.dumps((one.CircularCurveRad.SuperelevationMinRad, one.CircularCurveRad))
    )
    assert table == one.CircularCurveRad.SuperelevationMinRad and table.unit == "m"
    assert criterion == one.CircularCurveRad
    table[60] = criterion.MaxRad = 160
    assert criterion.SuperelevationMinRad[60] == 160
    assert one.CircularCurveRad.SuperelevationMinRad[60] == 150


def test_libraries_are_pickled_by_their_folder(library):
    again = pickle.loads(pickle.dumps(library))
    assert set(again) == {"甲", "乙"} and again.folder == library.folder


def runs_beside(work):
    """Whether another thread comes to run in the first half of `work`. At its end it would even if
    `work` kept the interpreter's lock: that is given away before this thread is back."""
    seen, began, stop = [], threading.Event(), threading.Event()

    def look():
        began.set()
        while not stop.is_set():
            seen.append(time.perf_counter())

    other = threading.Thread(target=look)
    other.start()
    began.wait()
    begin = time.perf_counter()
    work()
    end = time.perf_counter()
    stop.set()
    other.join()
    took = end - begin
    return any(begin + took * 0.1 < one < begin + took * 0.5 for one in seen)


def test_other_threads_go_on_while_arrays_are_asked():
    table = Specification().CircularCurveRad.SuperelevationMinRad
    speeds = np.full(20_000_000, 70, dtype=np.int32)
    # The system may keep the other thread waiting; a lock would each time.
    assert any(runs_beside(lambda: table.query(speeds, mode="upper")) for _ in range(10))
    holding = ctypes.PyDLL(None)
    assert not all(runs_beside(lambda: holding.usleep(50_000)) for _ in range(3))
