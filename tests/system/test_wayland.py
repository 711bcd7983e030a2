"""The program in a Wayland session, by itself and through the X server that such a session has for older programs."""

import fcntl
import pathlib

import desk
from shop_test import ShopTest, main, wait_for
from wayland import Compositor, Conversation

LABELS = "バーコード印刷"
MANY_ROWS_BOX = "表示の確認"
MASTER_BOX = " 【基本情報 登録】が起動中です"
UNKNOWN_CODE = "4999999999996"


class Wayland(ShopTest):
    def session(self, xwayland=False):
        compositor = Compositor(self.screen, xwayland)
        self._sessions.append(compositor)  # closed when a picture of a failure has been taken
        return compositor

    def start_in(self, session):
        program = desk.Program(self.shop, session)
        self._programs.append(program)
        return program, Conversation(program)

    def open_in(self, session):
        """The program, ready for scans."""
        program, shown = self.start_in(session)
        shown.wait_active(desk.MAIN_WINDOW)
        program.wait_port(self.reader)
        return program, shown

    def picture(self, name):
        self.screen.settled_picture(pathlib.Path.cwd() / f"wayland-{name}.png")

    def end_by_reader(self, program, shown):
        self.reader.scan("[U]")
        shown.wait_active(desk.END_DIALOG)
        self.picture("end")
        self.reader.scan("[P]")
        self.assertEqual(0, program.ended())
        self.assertEqual([], shown.complaints())
        self.assertWhole()

    def test_codes_are_booked_and_boxes_and_dialogs_get_the_keys(self):
        known = self.plain_codes(1)[0]
        program, shown = self.open_in(self.session())
        self.reader.scan(known)
        self.wait_receipts(1)
        self.screen.type(f"{known}\n")
        self.wait_receipts(2)
        self.reader.scan(UNKNOWN_CODE)
        shown.wait_active(desk.UNREGISTERED_BOX)
        self.picture("box")
        self.screen.press("Return")
        shown.wait_active(desk.MAIN_WINDOW)
        self.reader.scan("[N]")
        shown.wait_active(LABELS)
        self.picture("labels")
        self.reader.scan("[T]")
        shown.wait_active(desk.MAIN_WINDOW)
        self.screen.type(f"{known}\n")
        self.wait_receipts(3)
        self.end_by_reader(program, shown)

    def test_what_is_typed_while_the_wait_window_shows_is_not_lost(self):
        known = self.plain_codes(1)[0]
        self.add_receipts(20000)
        program, shown = self.start_in(self.session())
        shown.wait_active(MANY_ROWS_BOX)
        self.screen.press("Return")
        shown.wait_active(desk.MAIN_WINDOW)
        program.wait_port(self.reader)
        self.reader.scan("[E]")
        shown.wait_active(MANY_ROWS_BOX)
        earlier = len(shown.focuses())
        self.screen.press("Return")
        shown.wait_active(desk.MAIN_WINDOW)
        self.screen.type(f"{known}\n")  # the rows are being shown
        self.wait_receipts(20001)
        self.assertEqual({"", desk.MAIN_WINDOW}, set(shown.focuses()[earlier:]), "the wait window had no keyboard")
        self.end_by_reader(program, shown)

    def test_a_second_copy_ends_silently(self):
        session = self.session()
        first, shown = self.open_in(session)
        before = self.data_files()
        second, _ = self.start_in(session)
        self.assertEqual(0, second.ended())
        self.assertNotIn("get_toplevel", second.said())
        self.assertEqual(before, self.data_files())
        self.end_by_reader(first, shown)

    def test_beside_an_unseen_master_program_it_says_so_and_ends(self):
        session = self.session()
        before = self.data_files()
        with open(self.shop.folder / ".master.lock", "w", encoding="ascii") as held:
            fcntl.flock(held, fcntl.LOCK_EX)
            program, shown = self.start_in(session)
            shown.wait_active(MASTER_BOX)
            self.picture("master")
            self.screen.press("Return")
            self.assertEqual(0, program.ended())
            self.assertNotIn(desk.MAIN_WINDOW, shown.focuses())
            self.assertEqual(before, self.data_files())
        self.end_by_reader(*self.open_in(session))

    def test_through_the_x_server_of_the_session_it_works_the_same(self):
        known = self.plain_codes(1)[0]
        session = self.session(xwayland=True)
        session.environment.update(DISPLAY=session.x_display(), QT_QPA_PLATFORM="xcb")
        program, _ = self.start_in(session)
        inside = desk.Windows(session.environment)
        inside.wait_active(desk.MAIN_WINDOW)
        program.wait_idle()
        self.screen.type(f"{known}\n")
        self.wait_receipts(1)
        program.wait_idle()
        self.reader.scan(UNKNOWN_CODE)
        inside.wait_active(desk.UNREGISTERED_BOX)
        self.picture("xwayland")
        self.screen.press("Return")
        inside.wait_active(desk.MAIN_WINDOW)
        program.wait_idle()
        second, _ = self.start_in(session)
        self.assertEqual(0, second.ended())
        self.assertEqual("", second.said())
        self.reader.scan("[U]")
        inside.wait_active(desk.END_DIALOG)
        self.reader.scan("[P]")
        self.assertEqual(0, program.ended())
        self.assertEqual("", program.said())
        self.assertWhole()


if __name__ == "__main__":
    main()
