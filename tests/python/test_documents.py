"""What the documents show can be run as it stands."""

import os
import pathlib
import re

SOURCE = pathlib.Path(os.environ["DESIGNSPEC_SOURCE"])


def test_the_session_of_the_python_page(monkeypatch):
    monkeypatch.chdir(SOURCE)
    text = (SOURCE / "docs" / "python.md").read_text(encoding="utf-8")
    (code,) = re.findall(r"```python\n(.*?)```", text, re.DOTALL)
    names = {}
    exec(compile(code, "docs/python.md", "exec"), names)
    assert names["road"].name == "公路二级" and names["report"].errors > 0
