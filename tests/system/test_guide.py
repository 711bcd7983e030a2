"""The operator's guide speaks of what is on the screen: its captions are in the program, its pictures and sections
are there."""

import pathlib
import re
import sys
import unittest

TOP = None
ROOMS = ("barcode", "booking", "frame", "history", "lists", "movement", "packaging", "platform", "sheet", "starter", "store",
         "tools")
TEXTS = {".ui", ".cpp", ".h", ".ini", ".desktop"}


def program_texts():
    return "\n".join(file.read_text(encoding="utf-8") for room in ROOMS for file in sorted((TOP / room).rglob("*"))
                     if file.suffix in TEXTS)


def guide():
    return (TOP / "docs" / "guide.ja.md").read_text(encoding="utf-8")


class Guide(unittest.TestCase):
    def test_every_caption_it_quotes_is_in_the_program(self):
        texts = program_texts()
        captions = set(re.findall("「([^」]+)」", guide()))
        self.assertGreater(len(captions), 20)
        self.assertEqual(set(), {caption for caption in captions if caption not in texts})

    def test_every_picture_is_there_and_none_is_left_over(self):
        shown = set(re.findall(r"!\[[^]]+\]\(images/([^)]+)\)", guide()))
        there = {file.name for file in (TOP / "docs" / "images").glob("guide-*.png")}
        self.assertEqual(there, shown)

    def test_every_link_leads_to_a_section(self):
        def anchor(title):
            return re.sub(r"[^\w-]", "", title.strip().lower().replace(" ", "-"))

        sections = {anchor(title) for title in re.findall(r"(?m)^#+ (.+)$", guide())}
        self.assertEqual(set(), set(re.findall(r"\]\(#([^)]+)\)", guide())) - sections)

    def test_the_forms_it_tells_of_have_the_headings_it_names(self):
        cells = (TOP / "tools" / "FormCells.cpp").read_text(encoding="utf-8")
        for form in re.findall(r"`(\w+\.csv)`", guide()):
            self.assertIn(f'"{form}"', cells)


if __name__ == "__main__":
    TOP = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main()
