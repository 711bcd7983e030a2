"""The Debian package: made from the build, looked at, unpacked, and started by somebody who never had the program."""

import gzip
import pathlib
import re
import sqlite3
import subprocess
import sys
import tempfile
import unittest
import xml.dom.minidom

import desk
from desk import wait_for

BUILD = None
FIRST_START = "すいすいＴＡＧ"
NO_PARTNERS_BOX = "入荷先の未登録エラー"
METAINFO = "metainfo/invalid.example.suisuitag.metainfo.xml"
PROGRAMS = ("suisuitag", "suisuitag-start", "tagdb")


def output_of(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, encoding="utf-8").stdout


class Packaged(unittest.TestCase):
    """Has the package made and unpacked once."""

    @classmethod
    def setUpClass(cls):
        cls._folder = tempfile.TemporaryDirectory(prefix="suisui-package-")
        cls.addClassCleanup(cls._folder.cleanup)
        folder = pathlib.Path(cls._folder.name)
        made = subprocess.run(["cpack", "-G", "DEB", "--config", str(BUILD / "CPackConfig.cmake"), "-B",
                               str(folder / "made")], check=False, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, encoding="utf-8")
        if made.returncode != 0:
            raise AssertionError(made.stdout)
        cls.package, = (folder / "made").glob("*.deb")
        cls.root = folder / "root"
        subprocess.run(["dpkg-deb", "-x", str(cls.package), str(cls.root)], check=True)


class Package(Packaged):
    """What is in it."""

    def field(self, name):
        return output_of("dpkg-deb", "-f", str(self.package), name).strip()

    def files(self):
        return {str(file.relative_to(self.root)) for file in self.root.rglob("*") if not file.is_dir()}

    def test_it_says_what_it_is_and_what_it_needs(self):
        self.assertEqual("suisuitag", self.field("Package"))
        self.assertRegex(self.field("Version"), r"^\d+\.\d+\.\d+")
        architecture = output_of("dpkg", "--print-architecture").strip()
        self.assertEqual(architecture, self.field("Architecture"))
        self.assertEqual(f"suisuitag_{self.field('Version')}_{architecture}.deb", self.package.name)
        self.assertRegex(self.field("Maintainer"), r"^[^<]+ <\S+@\S+>$")
        summary, *more = self.field("Description").splitlines()
        self.assertRegex(summary, r"^[a-z].{10,70}[^.]$")
        self.assertTrue(more)
        needed = {re.split(r"[ (]", need.strip())[0] for need in self.field("Depends").split(",")}
        self.assertLessEqual({"fonts-morisawa-bizud-gothic", "qt6-translations-l10n", "libc6", "libqt6widgets6",
                              "libqt6printsupport6", "libqt6serialport6", "libsqlite3-0"}, needed)
        self.assertFalse([name for name in needed if name.endswith("-dev")])

    def test_it_holds_programs_menu_entry_icon_pages_and_guide_and_no_data(self):
        files = self.files()
        wanted = {f"usr/bin/{program}" for program in PROGRAMS}
        wanted |= {f"usr/share/man/{place}man1/{program}.1.gz" for program in PROGRAMS for place in ("", "ja/")}
        wanted |= {f"usr/share/suisuitag/Ini/{name}.ini" for name in ("AppEnv", "AppIni", "SlipIni", "TrnPrint")}
        wanted |= {f"usr/share/{name}" for name in (
            "applications/suisuitag.desktop", METAINFO,
            "icons/hicolor/scalable/apps/suisuitag.svg", "doc/suisuitag/copyright", "doc/suisuitag/changelog.gz",
            "doc/suisuitag/guide.ja.md")}
        self.assertEqual(set(), wanted - files)
        self.assertEqual(set(), {name for name in files if not name.startswith(("usr/bin/", "usr/share/", "usr/lib/",
                                                                                "lib/systemd/"))})
        self.assertEqual(set(), {name for name in files if name.endswith((".mdb", ".a", ".h", ".cmake"))})

    def test_everything_belongs_to_root_and_only_root_may_write(self):
        for line in output_of("dpkg-deb", "-c", str(self.package)).splitlines():
            rights, owner, _, _, _, name = line.split(maxsplit=5)
            self.assertEqual("root/root", owner, line)
            runs = rights.startswith("d") or name.startswith("./usr/bin/")
            self.assertEqual("rwxr-xr-x" if runs else "rw-r--r--", rights[1:], line)

    def test_every_file_has_its_checksum(self):
        listed = output_of("dpkg-deb", "-I", str(self.package), "md5sums")
        self.assertEqual(self.files(), {line.split(maxsplit=1)[1] for line in listed.splitlines()})

    def test_the_programs_are_stripped_and_look_for_libraries_in_no_folder_of_the_build(self):
        for program in PROGRAMS:
            data = (self.root / "usr" / "bin" / program).read_bytes()
            self.assertNotIn(b".debug_info", data, program)
            self.assertNotIn(b".symtab", data, program)
            self.assertNotRegex(output_of("readelf", "-d", str(self.root / "usr" / "bin" / program)), "RPATH|RUNPATH")

    def test_the_man_pages_are_sound_and_name_every_command(self):
        for page in self.root.glob("usr/share/man/**/*.gz"):
            text = gzip.decompress(page.read_bytes()).decode("utf-8")
            program = page.name.removesuffix(".1.gz")
            self.assertTrue(text.startswith(f'.TH {program.upper()} 1 '.replace("-", r"\-")), page)
            self.assertIn(f"\n{program} \\- ".replace(program, program.replace("-", r"\-")), text)
            self.assertEqual(b"\0\0\0\0", page.read_bytes()[4:8], f"{page} carries a time")
        tagdb_help = output_of(str(self.root / "usr/bin/tagdb"), "--help")
        commands = re.findall(r"^  ([a-z]+) ", tagdb_help.split("Commands:", 1)[1].split("Exit status", 1)[0], re.M)
        self.assertIn("check", commands)
        for place in ("", "ja/"):
            text = gzip.decompress((self.root / f"usr/share/man/{place}man1/tagdb.1.gz").read_bytes()).decode("utf-8")
            for command in commands:
                self.assertRegex(text, rf"(?m)^\.BI?\s+{command}\b", f"{place}tagdb.1")

    def test_the_menu_entry_leads_to_what_is_there(self):
        entry = (self.root / "usr/share/applications/suisuitag.desktop").read_text(encoding="utf-8")
        keys = dict(line.split("=", 1) for line in entry.splitlines() if "=" in line)
        for key in ("Exec", "TryExec"):
            self.assertTrue((self.root / "usr/bin" / keys[key]).is_file(), key)
        xml.dom.minidom.parse(str(self.root / f"usr/share/icons/hicolor/scalable/apps/{keys['Icon']}.svg"))
        metainfo = xml.dom.minidom.parse(str(self.root / "usr/share" / METAINFO))
        self.assertEqual(METAINFO, f"metainfo/{metainfo.getElementsByTagName('id')[0].firstChild.data}.metainfo.xml")
        launchable = metainfo.getElementsByTagName("launchable")[0].firstChild.data
        self.assertTrue((self.root / "usr/share/applications" / launchable).is_file())
        for binary in metainfo.getElementsByTagName("binary"):
            self.assertTrue((self.root / "usr/bin" / binary.firstChild.data).is_file())


class FirstStart(Packaged):
    """The unpacked starter, on a screen of its own, with a home where nothing has been yet."""

    def run(self, result=None):
        with desk.Screen() as self.screen, tempfile.TemporaryDirectory(prefix="suisui-home-") as home:
            self.home = pathlib.Path(home)
            self.data = self.home / ".local" / "share" / "suisuitag"
            self.database = self.data / "DB" / "trnvik.mdb"
            self.screen.environment["HOME"] = home
            self.screen.environment.pop("XDG_DATA_HOME", None)
            self._started = []
            faults = 0 if result is None else len(result.failures) + len(result.errors)
            super().run(result)
            if result is not None and len(result.failures) + len(result.errors) > faults:
                self.screen.picture(pathlib.Path.cwd() / f"{self.id()}.png")
            for process in self._started:
                if process.poll() is None:
                    process.kill()
                process.wait()
        return result

    def start(self):
        process = subprocess.Popen([str(self.root / "usr/bin/suisuitag-start")], cwd="/",
                                   env=self.screen.environment, stdin=subprocess.DEVNULL)
        self._started.append(process)
        return process

    def ended(self, process):
        wait_for("the program has ended", lambda: process.poll() is not None)
        return process.returncode

    def work_and_end(self, process):
        """Through the start of the program itself to its orderly end."""
        self.screen.wait_active(desk.MAIN_WINDOW)
        name = pathlib.Path(f"/proc/{process.pid}/exe").resolve()
        self.assertEqual(self.root / "usr/bin/suisuitag", name)
        self.screen.press("alt+F4")
        self.screen.answer(desk.END_DIALOG)
        self.assertEqual(0, self.ended(process))

    def answer_until_ended(self, process):
        def step():
            if process.poll() is None and self.screen.active_title():
                self.screen.press("Return")
            return process.poll() is not None

        wait_for("the program has ended", step)

    def goods(self):
        link = sqlite3.connect(f"file:{self.database}?mode=ro", uri=True)
        try:
            return link.execute("SELECT count(*) FROM Master").fetchone()[0]
        finally:
            link.close()

    def assertFurnished(self):
        self.assertTrue((self.data / "db" / "trnorg.mdb").is_file())
        for name in ("AppEnv", "AppIni", "SlipIni", "TrnPrint"):
            self.assertTrue((self.data / "Ini" / f"{name}.ini").is_file(), name)
        self.assertEqual([], list(self.data.glob("first-*")), "nothing is left of the making")
        checked = subprocess.run([str(self.root / "usr/bin/tagdb"), "check"], env=self.screen.environment,
                                 check=False, stdout=subprocess.PIPE, encoding="utf-8")
        self.assertEqual(0, checked.returncode, checked.stdout)

    def test_a_new_user_may_begin_with_an_empty_database(self):
        process = self.start()
        self.screen.answer(FIRST_START, "alt+e", picture=pathlib.Path.cwd() / "first-start.png")
        # The program itself then asks for master data, and ends: it works without goods, not without partners.
        self.screen.wait_active(NO_PARTNERS_BOX)
        self.screen.picture(pathlib.Path.cwd() / "empty-start.png")
        self.answer_until_ended(process)
        self.assertEqual(0, self.goods())
        self.assertFurnished()

    def test_a_new_user_may_begin_with_the_sample_shop(self):
        process = self.start()
        self.screen.answer(FIRST_START, "alt+s")
        self.work_and_end(process)
        self.assertGreater(self.goods(), 0)
        self.assertFurnished()

    def test_leaving_the_choice_makes_nothing(self):
        for key in ("alt+q", "Escape"):
            process = self.start()
            self.screen.answer(FIRST_START, key)
            self.assertEqual(0, self.ended(process))
            self.assertFalse(self.data.exists())

    def test_who_has_a_database_is_asked_nothing_and_keeps_it_with_all_settings(self):
        for command in ("create", "sample"):
            subprocess.run([str(self.root / "usr/bin/tagdb"), command], env=self.screen.environment, check=True,
                           stdout=subprocess.DEVNULL)
        settings = self.data / "Ini" / "AppIni.ini"
        settings.parent.mkdir()
        settings.write_text("; a customer's own\n", encoding="utf-8")
        before = self.database.read_bytes()
        self.work_and_end(self.start())
        self.assertEqual(before, self.database.read_bytes())
        self.assertEqual("; a customer's own\n", settings.read_text(encoding="utf-8"))

    def test_a_place_that_cannot_be_written_is_told_and_nothing_starts(self):
        (self.home / ".local").write_text("in the way", encoding="ascii")
        process = self.start()
        self.screen.answer(FIRST_START, "alt+s")
        self.screen.answer(FIRST_START)  # the complaint
        self.assertEqual(2, self.ended(process))
        self.assertNotIn(desk.MAIN_WINDOW, self.screen.titles())


if __name__ == "__main__":
    BUILD = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main()
