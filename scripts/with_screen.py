#!/usr/bin/env python3
"""Runs a command on a screen of its own; ends with the command's status."""

import subprocess
import sys

sys.dont_write_bytecode = True  # the source tree stays as it is
import desk

with desk.Screen() as screen:
    sys.exit(subprocess.run(sys.argv[1:], env=screen.environment, check=False).returncode)
