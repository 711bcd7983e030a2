#!/usr/bin/env python3
"""Takes the pictures of the operator's guide from those that a sample day has left: cut to the window, few colours,
small. Needs the packages imagemagick and poppler-utils.

    python3 scripts/sample_day.py --build build/program --output demo-out
    python3 scripts/guide_pictures.py demo-out docs/images
"""

import argparse
import pathlib
import subprocess
import sys
import tempfile

# Picture of the guide: picture of the sample day.
SCREENS = {"guide-forms": "first-forms", "guide-receipt": "main", "guide-shortage": "shortage",
           "guide-shipment": "shipment-corrected",
           "guide-stock": "stock-detail", "guide-receipt-list": "receipt-list", "guide-sums": "shipment-sums",
           "guide-labels": "labels", "guide-history-period": "history-period",
           "guide-history-saved": "history-saved", "guide-end": "end"}
# Picture of the guide: beginning of the name of a PDF of the sample day, and a page of it.
PAPERS = {"guide-report": ("入荷商品 一覧 ", 1), "guide-label-sheet": ("バーコード.", 1),
          "guide-functions": ("バーコード (2).", 1)}
LIMIT = 1_500_000  # bytes of all pictures of the guide


def convert(source, target, *how):
    subprocess.run(["convert", str(source), "-strip", *how, "-colors", "64", "-define",
                    "png:compression-level=9", f"PNG8:{target}"], check=True)


def main():
    options = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    options.add_argument("day", type=pathlib.Path, help="folder that the sample day has filled")
    options.add_argument("images", type=pathlib.Path, help="folder of the guide's pictures")
    chosen = options.parse_args()

    for name, picture in SCREENS.items():
        convert(chosen.day / f"{picture}.png", chosen.images / f"{name}.png",
                "-bordercolor", "black", "-border", "1", "-trim", "+repage")
    with tempfile.TemporaryDirectory() as folder:
        for name, (beginning, page) in PAPERS.items():
            files = sorted(file for file in chosen.day.glob("*.pdf") if file.name.startswith(beginning))
            if len(files) != 1:
                sys.exit(f"the day has left {len(files)} PDFs that begin with {beginning!r}")
            subprocess.run(["pdftoppm", "-r", "90", "-f", str(page), "-l", str(page), "-singlefile", "-png",
                            str(files[0]), f"{folder}/{name}"], check=True)
            convert(f"{folder}/{name}.png", chosen.images / f"{name}.png", "-bordercolor", "#808080", "-border", "1")
    total = sum(file.stat().st_size for file in chosen.images.glob("guide-*.png"))
    print(f"{len(SCREENS) + len(PAPERS)} pictures, {total // 1024} KB")
    if total > LIMIT:
        sys.exit(f"more than {LIMIT} bytes")


if __name__ == "__main__":
    main()
