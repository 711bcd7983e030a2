"""The Debian package: made from the build, checked, and its daily backup run for users with and without a shop."""

import gzip
import os
import pathlib
import re
import sqlite3
import subprocess
import tempfile
import xml.dom.minidom

from packaged import Packaged, main, output_of

METAINFO = "metainfo/invalid.example.suisuitag.metainfo.xml"
PROGRAMS = ("suisuitag", "suisuitag-start", "tagdb")
CATALOGUE = "appstream-metadata-validation-failed"  # what lintian says of it


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

    def test_it_holds_all_that_a_program_needs_and_no_data(self):
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

    def test_no_script_runs_at_installation_so_unpacked_is_installed(self):
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

    def test_programs_are_stripped_and_know_no_folder_of_the_build(self):
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
                  ["desktop-file-validate", str(share / "applications/suisuitag.desktop")]]
        judges += [["man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", str(page)]
                   for page in sorted(share.glob("man/**/*.gz"))]
        for judge in judges:
            verdict = subprocess.run(judge, check=False, encoding="utf-8", stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                     env={**os.environ, "LC_ALL": "C.UTF-8", "MANWIDTH": "80"})
            said = verdict.stderr if judge[0] == "man" else verdict.stdout + verdict.stderr
            if judge[0] == "lintian" and set(re.findall(r"(?m)^[EW]: \S+ (\S+)", said)) == {CATALOGUE}:
                continue  # a newer lintian; the next test checks that line by line
            self.assertEqual(0, verdict.returncode, said)
            if judge[0] == "man":
                self.assertEqual("", said, judge[-1])

    def test_the_software_catalogue_misses_nothing_but_a_home_page(self):
        verdict = subprocess.run(["appstreamcli", "validate", "--no-net", str(self.root / "usr/share" / METAINFO)],
                                 check=False, encoding="utf-8", stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                                 env={**os.environ, "LC_ALL": "C.UTF-8"})
        self.assertRegex(verdict.stdout, "Validation (was successful|failed)")
        # The program has none, which the checker of Debian 13 warns of.
        self.assertEqual([], [line for line in re.findall(r"(?m)^[EW]: .*", verdict.stdout)
                              if not line.endswith(" url-homepage-missing")])

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

    def environment(self, home, **more):
        """What a user's manager gives its services, and nothing of the session that runs the tests."""
        return {"HOME": str(home), "PATH": "/usr/bin:/bin", "LANG": "C.UTF-8", **more}

    def tagdb(self, home, *words, **more):
        return subprocess.run([str(self.root / "usr/bin/tagdb"), *words], env=self.environment(home, **more), check=False,
                              cwd="/", stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding="utf-8")

    def start_service(self, home, **more):
        """Runs what the service manager of the user with this home would run."""
        command, = self.service("ExecStart")
        program, *words = command.replace("%h", str(home)).split()
        self.assertTrue(program.startswith("/usr/bin/"), command)
        return subprocess.run([str(self.root) + program, *words], env=self.environment(home, **more), check=False, cwd="/",
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

    def test_the_service_makes_a_verified_copy_for_each_user(self):
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
            self.assertRegex(listed.stdout, rf"{copies[0].name}  \d+ bytes  verified")

    def test_a_user_without_a_shop_gets_no_folder_and_no_failure(self):
        home = self.home("guest")
        done = self.start_service(home)
        self.assertEqual(0, done.returncode, done.stdout)
        self.assertEqual([], list(home.iterdir()))

    def test_a_shop_in_another_folder_of_data_gets_its_copies_there(self):
        home, elsewhere = self.home("hanako"), self.home("elsewhere")
        place = {"XDG_DATA_HOME": str(elsewhere)}
        for command in ("create", "sample"):
            self.assertEqual(0, self.tagdb(home, command, **place).returncode)
        made = self.start_service(home, **place)
        self.assertEqual(0, made.returncode, made.stdout)
        self.assertEqual(1, len(list((elsewhere / "suisuitag/backup").glob("*.mdb"))))
        self.assertEqual([], list(home.iterdir()))

    def test_books_that_do_not_hold_make_the_service_fail_visibly(self):
        home = self.home("hanako")
        for command in ("create", "sample"):
            self.assertEqual(0, self.tagdb(home, command).returncode)
        with sqlite3.connect(home / ".local/share/suisuitag/DB/trnvik.mdb") as link:
            link.execute("INSERT INTO ZaikoTB SELECT Code, '1', '0', '20260401090000', '20260401090000' FROM Master LIMIT 1")
        link.close()
        made = self.start_service(home)
        self.assertEqual(1, made.returncode, made.stdout)
        self.assertIn("its movements make 0", made.stdout)
        note = home / ".local/share/suisuitag/backup-failed.txt"
        self.assertIn("在庫数と記録の合わないところが 1 件", note.read_text(encoding="utf-8"))


if __name__ == "__main__":
    main()
