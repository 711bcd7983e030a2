"""How the program starts, and when it refuses to."""

import os
import subprocess
import sys

import desk
from shop_test import ShopTest, main, wait_for

MASTER_WINDOW = " 基本情報 登録  　【 マスタ管理 】　　Tarnvik Works Co.,Ltd."
MASTER_BOX = " 【基本情報 登録】が起動中です"
VOLUME_BOX = " 履歴を保存して下さい"

# A helper that shows an empty window with a title.
TITLED_WINDOW = None


class Start(ShopTest):
    def test_a_second_copy_ends_silently_and_touches_nothing(self):
        first = self.open()
        before, titles = self.data_files(), sorted(self.screen.titles())
        settings = (self.shop.folder / "Ini" / "AppEnv.ini").read_bytes()
        second = self.start()
        self.assertEqual(0, second.ended())
        self.assertEqual("", second.said())
        self.assertEqual(titles, sorted(self.screen.titles()))
        self.assertEqual(before, self.data_files())
        self.assertEqual(settings, (self.shop.folder / "Ini" / "AppEnv.ini").read_bytes())
        self.assertTrue(first.running())
        self.end(first)

    def test_after_a_kill_the_program_starts_again(self):
        first = self.open()
        os.kill(first.pid, 9)
        self.assertEqual(-9, first.ended())
        self.end(self.open())
        self.assertWhole()

    def test_beside_the_master_program_it_says_so_and_ends(self):
        before = self.data_files()
        master = subprocess.Popen([TITLED_WINDOW, MASTER_WINDOW], env=self.screen.environment)
        try:
            wait_for("the master program's window", lambda: MASTER_WINDOW in self.screen.titles())
            program = self.start()
            self.screen.answer(MASTER_BOX)
            self.assertEqual(0, program.ended())
            self.assertNotIn(desk.MAIN_WINDOW, self.screen.titles())
            self.assertEqual(before, self.data_files())
        finally:
            master.kill()
            master.wait()
        self.end(self.open())

    def test_a_window_of_nearly_its_title_is_not_the_master_program(self):
        other = subprocess.Popen([TITLED_WINDOW, MASTER_WINDOW.strip()], env=self.screen.environment)
        try:
            wait_for("the other window", lambda: MASTER_WINDOW.strip() in self.screen.titles())
            self.end(self.open())
        finally:
            other.kill()
            other.wait()

    def _old_movements(self, table, day, count):
        self.shop.add(table, ({"Code": "4900000000000", day: "20200101", day.replace("Date", "Time"): "120000",
                               "InpDate": f"2020{number:010d}", "UpdDate": f"2020{number:010d}"}
                              for number in range(count)))

    def test_25001_movements_of_a_kind_are_warned_of(self):
        self._old_movements("InpTB", "NyuDate", 25001)
        self._old_movements("OutTB", "SyuDate", 25001)
        program = self.start()
        self.screen.answer(VOLUME_BOX)
        self.screen.answer(VOLUME_BOX)
        self.wait_ready(program)
        self.reader.scan(self.plain_codes(1)[0])
        self.wait_receipts(25002)
        program.wait_idle()
        self.end(program)

    def test_25000_movements_are_not_warned_of(self):
        self._old_movements("InpTB", "NyuDate", 25000)
        self.end(self.open())

    def test_damaged_settings_do_not_keep_the_shop_closed(self):
        known = self.plain_codes(1)[0]
        damaged = {
            "no text at all": bytes(range(256)) * 64,
            "empty": b"",
            "cut off": b"[Reader]\nCommKind=1\nCommPor",
            "nonsense": b"[Reader\nCommPortNo=many\n=\n[[]]\nCommPortNo\n[Reader]\nCommPortNo=99999999999\n",
        }
        for count, (kind, content) in enumerate(damaged.items(), 1):
            with self.subTest(kind=kind):
                for name in ("AppEnv.ini", "AppIni.ini", "SlipIni.ini", "TrnPrint.ini"):
                    (self.shop.folder / "Ini" / name).write_bytes(content)
                program = self.start()
                self.screen.answer(desk.NO_PORT_BOX)
                self.wait_ready(program)
                self.screen.type(f"{known}\n\n")
                self.wait_receipts(count)
                program.wait_idle()
                self.end(program)
                self.assertEqual(self.today(), self.shop.settings("AppEnv.ini")["Use", "LastUseDate"])

    def test_without_any_settings_the_shipped_words_are_shown(self):
        for file in (self.shop.folder / "Ini").iterdir():
            file.unlink()
        program = self.start()
        self.screen.answer(desk.NO_PORT_BOX)
        self.wait_ready(program)
        self.screen.type("0000000000000\n")
        self.screen.answer(desk.UNREGISTERED_BOX)  # its title carries a word of the settings
        program.wait_idle()
        self.end(program)


if __name__ == "__main__":
    place = sys.argv.index("--titled-window")
    TITLED_WINDOW = sys.argv[place + 1]
    del sys.argv[place:place + 2]
    main()
