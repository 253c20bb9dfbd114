"""What the documents show can be run as it stands."""

import os
import pathlib
import re
import shlex
import subprocess
import sys

SOURCE = pathlib.Path(os.environ["DESIGNSPEC_SOURCE"])


def test_the_command_of_the_page_of_many_roads():
    text = (SOURCE / "docs" / "scale.md").read_text(encoding="utf-8")
    (line,) = re.findall(r"^    PYTHONPATH=build/release/python python3 (.*)$", text, re.MULTILINE)
    # The package is the one under test.
    ran = subprocess.run(
        [sys.executable, *shlex.split(line)], cwd=SOURCE, capture_output=True, text=True
    )
    assert ran.returncode == 1, ran.stderr  # one of the roads violates limits
    assert "radius-min" in ran.stdout and "合格.xml" in ran.stdout


def test_the_session_of_the_python_page(monkeypatch):
    monkeypatch.chdir(SOURCE)
    text = (SOURCE / "docs" / "python.md").read_text(encoding="utf-8")
    (code,) = re.findall(r"```python\n(.*?)```", text, re.DOTALL)
    names = {}
    exec(compile(code, "docs/python.md", "exec"), names)
    assert names["road"].name == "公路二级" and names["report"].errors > 0
