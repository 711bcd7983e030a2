"""Installs a build into a folder and fills it with the sample shop: what each whole-program test copies."""

import shutil
import sys

import desk

build, folder = sys.argv[1:]
shutil.rmtree(folder, ignore_errors=True)
shop = desk.Shop.install(build, folder)
for part in ("DB", "db", "exe", "Ini/AppEnv.ini", "Ini/AppIni.ini", "Ini/SlipIni.ini", "Ini/TrnPrint.ini"):
    if not (shop.folder / part).exists():
        sys.exit(f"the installation has no {part}")
shop.fill()
wording = shop.folder / "Ini" / "AppIni.ini"
wording.write_text("; a customer's own\n", encoding="utf-8")
before = {file: file.read_bytes() for file in shop.folder.rglob("*.*") if file.suffix in (".ini", ".mdb")}
desk.Shop.install(build, folder)  # an upgrade
for file, content in before.items():
    if file.read_bytes() != content:
        sys.exit(f"installing again has changed {file}")
wording.unlink()
desk.Shop.install(build, folder)
verdict = shop.tagdb("check")
sys.exit(verdict.stdout if verdict.returncode else 0)
