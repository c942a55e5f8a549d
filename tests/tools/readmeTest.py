#!/usr/bin/python3
"""Checks that the help document in README.md is one without a finding.

    readmeTest.py README TAVISK
"""

import re
import subprocess
import sys
from pathlib import Path

readme, tavisk = sys.argv[1:]
document = re.search(r"```xml\n(.*?)```", Path(readme).read_text(encoding="utf-8"), re.DOTALL)
sys.exit(subprocess.run([tavisk, "check", "-"], input=document[1].encode()).returncode)
