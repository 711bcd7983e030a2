"""The Debian package, made from the build and unpacked, for the tests that check it."""

import pathlib
import subprocess
import sys
import tempfile
import unittest


def output_of(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, encoding="utf-8").stdout


class Packaged(unittest.TestCase):
    """Has the package made and unpacked once."""

    build = None

    @classmethod
    def setUpClass(cls):
        cls._folder = tempfile.TemporaryDirectory(prefix="suisui-package-")
        cls.addClassCleanup(cls._folder.cleanup)
        folder = pathlib.Path(cls._folder.name)
        made = subprocess.run(["cpack", "-G", "DEB", "--config", str(cls.build / "CPackConfig.cmake"), "-B",
                               str(folder / "made")], check=False, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, encoding="utf-8")
        if made.returncode != 0:
            raise AssertionError(made.stdout)
        cls.package, = (folder / "made").glob("*.deb")
        cls.root = folder / "root"
        subprocess.run(["dpkg-deb", "-x", str(cls.package), str(cls.root)], check=True)


def main():
    """Runs the tests of the program that calls it; its first argument is the folder of the build."""
    Packaged.build = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main()
