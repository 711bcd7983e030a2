"""The morning of a new shop: the starter of the package finds no database, hands out the forms, takes them over as they
are filled in, and the program opens on them."""

import pathlib
import subprocess
import tempfile

import desk

STARTER = "すいすいＴＡＧ"
ROWS = {"担当者": ["01,山田　太郎"], "取引先": ["101,青果市場,1,", "201,みどり食堂,,1"],
        "商品": ["4901234567894,りんご,個,10,100,1,150,5", "4901234567900,みかん,個,20,40,1,60,10"]}


def _fill(folder):
    for name, rows in ROWS.items():
        form = folder / f"{name}.csv"
        heading = form.read_text(encoding="utf-8").splitlines()[0]
        form.write_text("\r\n".join([heading, *rows, ""]), encoding="utf-8")


def _lay_out(build, folder):
    """The programs as the package lays them out."""
    subprocess.run(["cmake", "--install", str(build), "--component", "system", "--prefix", str(folder)], check=True,
                   stdout=subprocess.DEVNULL)
    return folder / "bin" / "suisuitag-start"


def wait_started(screen, pid):
    """Waits until the main window is there and at rest. A program without settings opens the machine's first serial
    port, and on a machine without one it says so in a box over the window."""
    desk.wait_for("the program's first window",
                  lambda: screen.active_title() in (desk.MAIN_WINDOW, desk.NO_PORT_BOX))
    desk.wait_at_rest(pid)
    if screen.active_title() == desk.NO_PORT_BOX:
        screen.answer(desk.NO_PORT_BOX)
    screen.wait_active(desk.MAIN_WINDOW)
    desk.wait_at_rest(pid)


def work(build, screen, output):
    """Leaves the pictures first-start and first-forms."""
    with tempfile.TemporaryDirectory(prefix="suisui-first-") as place, tempfile.TemporaryDirectory(prefix="shop-") as home:
        environment = {**screen.environment, "HOME": home, "XDG_DATA_HOME": f"{home}/.local/share"}
        starter = subprocess.Popen([str(_lay_out(build, pathlib.Path(place)))], cwd="/", env=environment,
                                   stdin=subprocess.DEVNULL)
        try:
            screen.answer(STARTER, "alt+e", picture=output / "first-start.png")
            forms = pathlib.Path(home) / "Documents" / STARTER
            desk.wait_for("the forms", lambda: len(list(forms.glob("*.csv"))) == len(ROWS) + 1)
            _fill(forms)
            screen.answer(STARTER, "alt+i", picture=output / "first-forms.png")
            screen.answer(STARTER)  # the list of what was taken over
            wait_started(screen, starter.pid)
            screen.press("alt+F4")
            screen.answer(desk.END_DIALOG)
            desk.wait_for("the program has ended", lambda: starter.poll() is not None)
            if starter.returncode != 0:
                raise desk.DeskError(f"the program ended with {starter.returncode}")
        finally:
            if starter.poll() is None:
                starter.kill()
            starter.wait()
    print(f"first start: {', '.join(f'{name}.csv' for name in ROWS)} filled in and taken over")
