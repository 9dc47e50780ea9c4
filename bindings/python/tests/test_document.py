"""The code for the package in docs/python.md prints what the page says."""

from __future__ import annotations

import os
import re
import subprocess
import sys

from samples import SAMPLES


def test_page() -> None:
    page = (SAMPLES.parent / "docs" / "python.md").read_text(encoding="utf-8")
    program = "\n".join(re.findall(r"^```py\n(.*?)^```$", page, re.DOTALL | re.MULTILINE))
    printed = "".join(re.findall(r"^```output\n(.*?)^```$", page, re.DOTALL | re.MULTILINE))
    assert program and printed
    environment = {**os.environ, "PYTHONPATH": os.pathsep.join(path for path in sys.path if path)}
    run = subprocess.run(
        [sys.executable, "-c", program], cwd=SAMPLES.parent, env=environment, capture_output=True, encoding="utf-8"
    )
    assert (run.stdout, run.stderr) == (printed, "")
