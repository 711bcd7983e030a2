"""What the check of the includes finds, shown on made-up lines."""

import pathlib
import tempfile
import unittest

import includes

WIDGET_HEADERS = {"QWidget", "QMessageBox"}


def faults(path, *lines):
    return list(includes.faults(path, "\n".join(lines), WIDGET_HEADERS))


class Includes(unittest.TestCase):
    def test_own_room_and_rooms_below_are_allowed(self):
        self.assertEqual([], faults("movement/Page.cpp", '#include "movement/Page.h"', "#include <vector>",
                                    '#include "frame/support/Frame.h"', '#include "platform/widgets/Grid.h"',
                                    '#include "store/AppDB.h"', '#include "platform/core/Clock.h"'))

    def test_room_above_is_found_with_file_and_line(self):
        for path, name in [("platform/core/Clock.h", "store/AppDB.h"), ("store/AppDB.h", "platform/widgets/Grid.h"),
                           ("booking/ZaikoPost.h", "platform/widgets/Grid.h"), ("store/AppDB.h", "booking/ZaikoPost.h"),
                           ("platform/widgets/Grid.h", "frame/support/Frame.h"),
                           ("frame/support/Frame.h", "movement/Page.h"), ("barcode/Label.h", "frame/shell/Main.h")]:
            with self.subTest(path=path):
                found = faults(path, "", f'#include "{name}"')
                self.assertEqual(1, len(found))
                self.assertTrue(found[0].startswith(f"{path}:2: "), found)

    def test_neighbours_of_one_floor_do_not_include_each_other(self):
        neighbours = ["movement", "lists", "history", "barcode"]
        for room in neighbours:
            for other in neighbours:
                with self.subTest(room=room, other=other):
                    found = faults(f"{room}/A.cpp", f'#include "{other}/B.h"')
                    self.assertEqual(room != other, bool(found))

    def test_the_house_does_not_include_what_is_beside_it(self):
        for other in ["tools", "tests", "benchmarks"]:
            with self.subTest(other=other):
                self.assertEqual(1, len(faults("frame/shell/Main.cpp", f'#include "{other}/A.h"')))

    def test_tools_see_core_store_and_booking_only(self):
        self.assertEqual([], faults("tools/Csv.cpp", '#include "store/Schema.h"', '#include "platform/core/Clock.h"',
                                    '#include "booking/BooksCheck.h"'))
        self.assertEqual(1, len(faults("tools/Csv.cpp", '#include "platform/widgets/Grid.h"')))

    def test_tests_and_benchmarks_see_everything(self):
        for room in ["tests", "benchmarks"]:
            self.assertEqual([], faults(f"{room}/a/A.cpp", '#include "frame/shell/Main.h"', "#include <sqlite3.h>"))

    def test_booking_store_and_core_know_no_widgets(self):
        for path in ["booking/ZaikoPost.cpp", "store/AppDB.cpp", "platform/core/Clock.cpp"]:
            with self.subTest(path=path):
                self.assertEqual(2, len(faults(path, "#include <QWidget>", "#include <QtWidgets/QMessageBox>",
                                               "#include <QString>")))
        self.assertEqual([], faults("platform/widgets/ScreenMsgBox.cpp", "#include <QMessageBox>"))

    def test_only_three_sources_speak_to_the_engine(self):
        for name in ["Sqlite.h", "Sqlite.cpp", "Dialect.h", "Dialect.cpp", "ArrivingRows.cpp"]:
            self.assertEqual([], faults(f"store/{name}", "#include <sqlite3.h>"))
        for path in ["store/AppDB.cpp", "store/SqliteOther.cpp", "movement/Page.cpp", "tools/Csv.cpp"]:
            with self.subTest(path=path):
                self.assertEqual(1, len(faults(path, "#include <sqlite3.h>")))

    def test_an_include_without_its_path_is_found_a_made_form_is_not(self):
        self.assertEqual(1, len(faults("store/AppDB.cpp", '#include "AppDB.h"')))
        self.assertEqual(1, len(faults("store/AppDB.cpp", '#include "../platform/core/Clock.h"')))
        self.assertEqual([], faults("frame/shell/frmMain.cpp", '#include "ui_frmMain.h"'))

    def test_odd_spacing_does_not_hide_an_include(self):
        self.assertEqual(1, len(faults("store/A.cpp", '  #  include   "frame/shell/Main.h"')))


class Rooms(unittest.TestCase):
    def setUp(self):
        place = tempfile.TemporaryDirectory(prefix="suisui-rooms-")
        self.addCleanup(place.cleanup)
        self.root = pathlib.Path(place.name)
        for room in includes.ROOMS:
            self.write(f"{room}/A.cpp")

    def write(self, name):
        file = self.root / name
        file.parent.mkdir(parents=True, exist_ok=True)
        file.touch()

    def misplaced(self):
        return list(includes.misplaced(self.root, includes.sources(self.root)))

    def test_sources_in_rooms_are_in_their_place(self):
        self.assertEqual([], self.misplaced())
        self.assertEqual(len(includes.ROOMS), len(list(includes.sources(self.root))))

    def test_a_source_in_no_room_is_found(self):
        for name in ("movemnt/Page.cpp", "Stray.h", "platform/Clock.h", "scripts/deep/down/A.cpp"):
            with self.subTest(name=name):
                self.write(name)
                found = self.misplaced()
                self.assertEqual(1, len(found), found)
                self.assertTrue(found[0].startswith(f"{name} is in no room"), found)
                (self.root / name).unlink()

    def test_a_room_without_its_folder_is_found(self):
        (self.root / "store/A.cpp").unlink()
        (self.root / "store").rmdir()
        self.assertEqual(["there is no room store"], self.misplaced())

    def test_what_the_commands_make_is_passed_over(self):
        for name in ("build/release/moc_A.cpp", "app/A.cpp", "demo-out/A.h", ".cache/A.cpp",
                     "elsewhere/CMakeCache.txt", "elsewhere/store/A.cpp"):
            self.write(name)
        self.assertEqual([], self.misplaced())


if __name__ == "__main__":
    unittest.main()
