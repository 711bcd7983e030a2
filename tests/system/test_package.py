"""The Debian package: made from the build, looked at, unpacked, and started by somebody who never had the program."""

import gzip
import os
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

    def test_no_script_runs_when_it_is_installed_so_unpacked_is_installed(self):
        listed = output_of("dpkg-deb", "-I", str(self.package))
        self.assertEqual(["control", "md5sums"], re.findall(r"(?m)^ +\d+ bytes, +\d+ lines[ *]+(\S+)", listed))

    def test_everything_belongs_to_root_and_only_root_may_write(self):
        for line in output_of("dpkg-deb", "-c", str(self.package)).splitlines():
            rights, owner, _, _, _, name = line.split(maxsplit=5)
            self.assertEqual("root/root", owner, line)
            if rights.startswith("l"):
                continue  # a link has no rights of its own
            runs = rights.startswith("d") or name.startswith("./usr/bin/")
            self.assertEqual("rwxr-xr-x" if runs else "rw-r--r--", rights[1:], line)

    def test_every_file_has_its_checksum(self):
        listed = output_of("dpkg-deb", "-I", str(self.package), "md5sums")
        files = {name for name in self.files() if not (self.root / name).is_symlink()}
        self.assertEqual(files, {line.split(maxsplit=1)[1] for line in listed.splitlines()})

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

    def test_the_distribution_s_own_judges_find_nothing(self):
        share = self.root / "usr/share"
        judges = [["lintian", "--allow-root", "--fail-on", "error,warning", str(self.package)],
                  ["desktop-file-validate", str(share / "applications/suisuitag.desktop")],
                  ["appstreamcli", "validate", "--no-net", str(share / METAINFO)]]
        judges += [["man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", str(page)]
                   for page in sorted(share.glob("man/**/*.gz"))]
        for judge in judges:
            verdict = subprocess.run(judge, check=False, encoding="utf-8", stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                     env={**os.environ, "LC_ALL": "C.UTF-8", "MANWIDTH": "80"})
            said = verdict.stderr if judge[0] == "man" else verdict.stdout + verdict.stderr
            self.assertEqual(0, verdict.returncode, said)
            if judge[0] == "man":
                self.assertEqual("", said, judge[-1])

    def test_the_menu_entry_leads_to_what_is_there(self):
        entry = (self.root / "usr/share/applications/suisuitag.desktop").read_text(encoding="utf-8")
        keys = dict(line.split("=", 1) for line in entry.splitlines() if "=" in line)
        for key in ("Exec", "TryExec"):
            self.assertTrue((self.root / "usr/bin" / keys[key].split()[0]).is_file(), key)
        xml.dom.minidom.parse(str(self.root / f"usr/share/icons/hicolor/scalable/apps/{keys['Icon']}.svg"))
        metainfo = xml.dom.minidom.parse(str(self.root / "usr/share" / METAINFO))
        self.assertEqual(METAINFO, f"metainfo/{metainfo.getElementsByTagName('id')[0].firstChild.data}.metainfo.xml")
        launchable = metainfo.getElementsByTagName("launchable")[0].firstChild.data
        self.assertTrue((self.root / "usr/share/applications" / launchable).is_file())
        for binary in metainfo.getElementsByTagName("binary"):
            self.assertTrue((self.root / "usr/bin" / binary.firstChild.data).is_file())


class DailyBackup(Packaged):
    """The units of the package, as the manager of each user reads them."""

    UNITS = ("suisuitag-backup.service", "suisuitag-backup.timer")

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="suisui-units-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.units = self.root / "usr/lib/systemd/user"

    def service(self, key):
        """The values of a key of the service."""
        lines = (self.units / self.UNITS[0]).read_text(encoding="utf-8").splitlines()
        return [line.partition("=")[2] for line in lines if line.startswith(f"{key}=")]

    def home(self, name):
        home = self.folder / name
        home.mkdir()
        return home

    def environment(self, home):
        """What a user's manager gives its services, and nothing of the session that runs the tests."""
        return {"HOME": str(home), "PATH": "/usr/bin:/bin", "LANG": "C.UTF-8"}

    def tagdb(self, home, *words):
        return subprocess.run([str(self.root / "usr/bin/tagdb"), *words], env=self.environment(home), check=False,
                              cwd="/", stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding="utf-8")

    def start_service(self, home):
        """Does what the manager of the user with this home would do: None where the condition keeps it away."""
        condition, = (value.replace("%h", str(home)) for value in self.service("ConditionPathExists"))
        if not pathlib.Path(condition).exists():
            return None
        command, = self.service("ExecStart")
        program, *words = command.replace("%h", str(home)).split()
        self.assertTrue(program.startswith("/usr/bin/"), command)
        return subprocess.run([str(self.root) + program, *words], env=self.environment(home), check=False, cwd="/",
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding="utf-8")

    def test_the_manager_of_units_understands_them(self):
        for unit in self.UNITS:
            text = (self.units / unit).read_text(encoding="utf-8")
            (self.folder / unit).write_text(text.replace("/usr/bin", str(self.root / "usr/bin")), encoding="utf-8")
        runtime = self.home("runtime")
        runtime.chmod(0o700)
        verdict = subprocess.run(["systemd-analyze", "verify", "--user", *(str(self.folder / unit) for unit in self.UNITS)],
                                 check=False, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding="utf-8",
                                 env={**os.environ, "XDG_RUNTIME_DIR": str(runtime), "LC_ALL": "C.UTF-8",
                                      "MANPATH": str(self.root / "usr/share/man")})
        self.assertEqual((0, ""), (verdict.returncode, verdict.stdout))

    def test_the_timer_is_on_for_every_user_and_names_the_service(self):
        link = self.units / "timers.target.wants" / self.UNITS[1]
        self.assertTrue(link.is_symlink())
        self.assertEqual((self.units / self.UNITS[1]).resolve(), link.resolve())
        self.assertTrue(link.resolve().is_file())

    def test_the_line_of_the_service_makes_a_proved_copy_in_the_folder_of_each_user(self):
        shops = [self.home("hanako"), self.home("taro")]
        for home in shops:
            for command in ("create", "sample"):
                self.assertEqual(0, self.tagdb(home, command).returncode)
        for home in shops:
            made = self.start_service(home)
            self.assertEqual(0, made.returncode, made.stdout)
        for home in shops:
            copies = list((home / ".local/share/suisuitag/backup").glob("*.mdb"))
            self.assertEqual(1, len(copies), home)
            listed = self.tagdb(home, "backup", "--list")
            self.assertEqual(0, listed.returncode, listed.stdout)
            self.assertRegex(listed.stdout, rf"{copies[0].name}  \d+ bytes  proved")

    def test_a_user_without_a_shop_gets_no_folder_and_no_failure(self):
        home = self.home("guest")
        self.assertIsNone(self.start_service(home))
        self.assertEqual([], list(home.iterdir()))

    def test_books_that_do_not_hold_make_the_service_fail_where_all_can_see_it(self):
        home = self.home("hanako")
        for command in ("create", "sample"):
            self.assertEqual(0, self.tagdb(home, command).returncode)
        with sqlite3.connect(home / ".local/share/suisuitag/DB/trnvik.mdb") as link:
            link.execute("INSERT INTO ZaikoTB SELECT Code, '1', '0', '20260401090000', '20260401090000' FROM Master LIMIT 1")
        link.close()
        made = self.start_service(home)
        self.assertEqual(1, made.returncode, made.stdout)
        self.assertIn("its movements make 0", made.stdout)


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

    def start(self, *words):
        process = subprocess.Popen([str(self.root / "usr/bin/suisuitag-start"), *words], cwd="/",
                                   env=self.screen.environment, stdin=subprocess.DEVNULL)
        self._started.append(process)
        return process

    def ended(self, process):
        wait_for("the program has ended", lambda: process.poll() is not None)
        return process.returncode

    def work_and_end(self, process):
        """Through the start of the program itself to its orderly end."""
        self.screen.wait_active(desk.MAIN_WINDOW)
        desk.wait_at_rest(process.pid)
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

    @property
    def forms(self):
        return self.home / "Documents" / FIRST_START

    def fill_forms(self, price="100"):
        for name, rows in (("担当者", ["01,山田"]), ("取引先", ["101,青果市場,1,", "201,みどり食堂,,1"]),
                           ("商品", [f"4901234567894,りんご,個,10,{price},1,150,5"])):
            form = self.forms / f"{name}.csv"
            form.write_text(form.read_text(encoding="utf-8").splitlines()[0] + "\n" + "\n".join(rows) + "\n",
                            encoding="utf-8")

    def answer_forms(self, key, picture=None):
        """Answers the next box of the starter, once its buttons take keys."""
        self.screen.answer(FIRST_START, key, picture=picture)

    def test_a_new_user_may_begin_with_an_empty_database_and_fills_in_forms(self):
        process = self.start()
        self.screen.answer(FIRST_START, "alt+e", picture=pathlib.Path.cwd() / "first-start.png")
        wait_for("the forms", lambda: len(list(self.forms.glob("*.csv"))) == 4)
        self.fill_forms(price="時価")
        self.answer_forms("alt+i", picture=pathlib.Path.cwd() / "first-forms.png")
        self.answer_forms("Return", picture=pathlib.Path.cwd() / "first-faults.png")
        self.assertEqual(0, self.goods())
        self.fill_forms()
        self.answer_forms("alt+i")
        self.answer_forms("Return", picture=pathlib.Path.cwd() / "first-taken.png")
        self.work_and_end(process)
        self.assertEqual(1, self.goods())
        self.assertFurnished()
        self.work_and_end(self.start())  # and from now on it asks for nothing

    def test_who_leaves_the_forms_for_later_is_asked_again(self):
        process = self.start()
        self.screen.answer(FIRST_START, "alt+e")
        self.answer_forms("alt+q")
        self.assertEqual(0, self.ended(process))
        self.assertFurnished()
        self.assertEqual(["取引先.csv", "商品.csv", "担当者.csv", "部品.csv"],
                         sorted(file.name for file in self.forms.iterdir()))
        self.fill_forms()
        process = self.start()
        self.answer_forms("alt+i")
        self.answer_forms("Return")
        self.work_and_end(process)
        self.assertEqual(1, self.goods())

    def test_an_empty_database_beside_a_master_data_program_is_left_to_that_program(self):
        self.assertEqual(0, subprocess.run([str(self.root / "usr/bin/tagdb"), "create"], check=False,
                                           env=self.screen.environment, stdout=subprocess.DEVNULL).returncode)
        (self.data / "exe").mkdir()
        (self.data / "exe" / "Master.exe").write_text("#!/bin/sh\n", encoding="ascii")
        process = self.start()
        self.screen.wait_active(NO_PARTNERS_BOX)
        self.answer_until_ended(process)
        self.assertFalse(self.forms.exists())

    def test_the_menu_offers_forms_filled_with_what_is_there_to_add_to_it(self):
        for command in ("create", "sample"):
            subprocess.run([str(self.root / "usr/bin/tagdb"), command], env=self.screen.environment, check=True,
                           stdout=subprocess.DEVNULL)
        goods = self.goods()
        process = self.start("--forms")
        wait_for("the forms", lambda: (self.forms / "部品.csv").is_file())
        form = self.forms / "商品.csv"
        self.assertEqual(1 + goods, len(form.read_text(encoding="utf-8").splitlines()))
        with form.open("a", encoding="utf-8") as file:
            file.write("4999999999996,なし,個,1,80,1,120,0\n")
        self.answer_forms("alt+i", picture=pathlib.Path.cwd() / "more-forms.png")
        self.answer_forms("Return")
        self.screen.wait_active(desk.MAIN_WINDOW)
        second = self.start("--forms")
        self.answer_forms("Return")  # the program runs; it says so
        self.assertEqual(2, self.ended(second))
        self.work_and_end(process)
        self.assertEqual(goods + 1, self.goods())

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
