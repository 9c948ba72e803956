#!/usr/bin/env python3
"""Measures the goals of speed and prints one table: each figure as a ratio to a bare walk over the same file, in the same run."""
import argparse
import json
import os
import subprocess
import sys
from pathlib import Path

LAYERS = 2000
MANY_LAYERS = 100_000
REACH = 200   # of entities of a plan, in units of a sheet of 100,000: a few pixels, when all of it is seen


def prepared(folder, maker, name, entities, layers, blocks=0, reach=0):
    """Makes a drawing unless it is there in this size."""
    path, note = folder / name, folder / f"{name}.size"
    size = f"{entities} {layers} {blocks} {reach} {maker.stat().st_mtime_ns}"
    if not (path.exists() and note.exists() and note.read_text() == size):
        subprocess.run([maker, str(entities), str(layers), path, str(blocks), str(reach)], check=True, stdout=sys.stderr)
        note.write_text(size)
    return path


def measured(program, folder, only):
    result = subprocess.run([program, "--benchmark_format=json", f"--benchmark_filter={only}"], check=False, stdout=subprocess.PIPE,
                            env={**os.environ, "KX_BENCH_DIR": str(folder)})
    if result.returncode != 0:
        sys.exit(f"bench: {program.name} ended with status {result.returncode}")
    rows = {}
    if not result.stdout.strip():   # nothing has such a name
        return rows
    for row in json.loads(result.stdout)["benchmarks"]:
        name = row["name"].removesuffix("/manual_time").split("/iterations")[0]
        if row.get("error_occurred"):
            print(f"bench: {name}: {row['error_message']}", file=sys.stderr)
        else:
            rows[name] = row
    return rows


def peak_memory(kxcad, drawing, saved=None):
    """The largest resident size of the host program, in bytes, while it holds the drawing and saves it under a name."""
    target = ["--output", saved] if saved else []
    process = subprocess.Popen([kxcad, "--no-module", "--quiet", *target, drawing], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    return usage.ru_maxrss * 1024 if process.returncode == 0 else None


def print_utilities(program, only):
    """What the utilities do per second beside the bare way of doing the same."""
    rows = measured(program, Path("."), only)
    table = [("fields written, CKxFileIO beside fprintf", "StreamFields/write", "BareWrite"),
             ("fields read, CKxFileIO beside fscanf", "StreamFields/read", "BareRead"),
             ("short texts split, beside a loop over views", "Split", "BareSplit"),
             ("short texts matched, beside a loop over views", "Match", "BareMatch"),
             ("trace lines to a log, beside nothing", "TraceLines", None)]
    print(f"\n{'what':<52}{'per second':>14}{'bare':>14}  times slower")
    for what, name, bare in table:
        speeds = [rows[row]["items_per_second"] if row in rows else None for row in (name, bare)]
        shown = "".join("-".rjust(14) if speed is None else f"{speed:14,.0f}" for speed in speeds)
        print(f"{what:<52}{shown}  {speeds[1] / speeds[0]:.1f}" if None not in speeds else f"{what:<52}{shown}")


def print_interpreters(rows):
    """How fast the command line and LISP go, without a goal."""
    print(f"\n{'what':<52}{'per second':>14}")
    for what, name in [("lines of a script", "ScriptLines"), ("additions in a LISP loop", "LispAdditions")]:
        if name in rows:
            print(f"{what:<52}{rows[name]['items_per_second']:14,.0f}")


def print_frames(rows):
    """Frames per second of a window of 1600 by 1000 pixels that shows the plan."""
    print(f"\n{'1600 x 1000 pixels, wireframe':<52}{'per second':>14}{'goal':>8}")
    for what, name, goal in [("pan", "PanFrames", 30), ("zoom, sketched while it moves", "ZoomFrames", 30),
                             ("orbit, sketched while it moves", "OrbitFrames", 30), ("orbit of all in each frame", "OrbitWholeFrames", None),
                             ("orbit of a tenth of the width in each frame", "OrbitNearFrames", None)]:
        if name in rows:
            speed = rows[name]["frames"] / rows[name]["real_time"] * 1000
            verdict = "   missed" if goal is not None and speed < goal else ""
            print(f"{what:<52}{speed:>14.1f}{goal if goal is not None else '-':>8}{verdict}")


def print_toolkit(program, folder, only):
    """What the library's classes cost, beside the same work on plain structs."""
    rows = measured(program, folder, only)
    table = [("create and append a line", "AppendLine", "PlainAppend", 200),
             ("the same by one call of the toolkit", "ToolkitLine", "PlainAppend", None),
             ("set and get one value of extended data", "XDataValue", "BareValue", 500),
             ("extended data to an object and back", "XDataOfObject", "BareRecord", None),
             ("make and read an extended record", "XRecordOfObject", "BareRecord", 1000),
             ("clone an entity to another drawing", "CloneAcross", "BareCopy", 1500)]
    print(f"\n{'what':<52}{'ns':>10}{'goal':>8}{'bare':>8}  times slower")
    for what, name, bare, goal in table:
        own, plain = (rows[row]["cpu_time"] if row in rows else None for row in (name, bare))
        if own is None or plain is None:
            continue
        verdict = "   missed" if goal is not None and own > goal else ""
        print(f"{what:<52}{own:>10.0f}{goal if goal is not None else '-':>8}{plain:>8.0f}  {own / plain:.1f}{verdict}")


def main():
    options = argparse.ArgumentParser(description=__doc__)
    options.add_argument("--build", type=Path, required=True)
    options.add_argument("--entities", type=int, default=1_000_000)
    options.add_argument("--only", default=".", help="a pattern of measurements")
    options = options.parse_args()
    programs, folder = options.build / "bin", options.build / "bench-data"
    folder.mkdir(exist_ok=True)
    maker = programs / "kx_make_drawing"
    drawing = prepared(folder, maker, "all.dxf", options.entities, LAYERS)
    prepared(folder, maker, "tenth.dxf", options.entities // 10, LAYERS)
    prepared(folder, maker, "plan.dxf", options.entities, LAYERS, 0, REACH)
    prepared(folder, maker, "layers.dxf", 1000, MANY_LAYERS)
    prepared(folder, maker, "unused.dxf", 0, MANY_LAYERS, MANY_LAYERS)
    prepared(folder, maker, "unused-tenth.dxf", 0, MANY_LAYERS // 10, MANY_LAYERS // 10)

    rows = measured(programs / "kx_bench", folder, options.only)
    seconds = {name: row["real_time"] / 1000 for name, row in rows.items()}
    size = drawing.stat().st_size
    peak = peak_memory(programs / "kxcad", drawing)
    dwg_files = [folder / "all2000.dwg", folder / "all2010.dwg"]
    dwg_peaks = [peak_memory(programs / "kxcad", file) if file.exists() else None for file in dwg_files]
    save_peaks = [peak_memory(programs / "kxcad", drawing, folder / name) for name in ("saved.dxf", "saved.dwg")]

    def ratio(name, to):
        return seconds[name] / seconds[to] if name in seconds and seconds.get(to) else None

    table = [
        ("open, everything kept", "walks", 3.0, ratio("OpenAll", "Walk")),
        ("peak memory of the open drawing", "times the file", 2.0, peak / size if peak else None),
        ("open all / open a tenth", "times", 11.0, ratio("OpenAll", "OpenTenth")),
        ("open, all layers off, save", "walk-and-writes", 3.0, ratio("OpenOffSave", "WalkAndWrite")),
        ("open as DWG 2000", "walks over the DXF", 3.0, ratio("OpenDwg2000", "Walk")),
        ("open as DWG 2010", "walks over the DXF", 3.0, ratio("OpenDwg2010", "Walk")),
        ("save as DWG 2000", "walks over the DXF", 4.0, ratio("SaveDwg2000", "Walk")),
        ("save as DWG 2010", "walks over the DXF", 4.0, ratio("SaveDwg2010", "Walk")),
        ("peak memory of the DWG 2000", "of that of the DXF", 1.0, dwg_peaks[0] / peak if peak and dwg_peaks[0] else None),
        ("peak memory of the DWG 2010", "of that of the DXF", 1.0, dwg_peaks[1] / peak if peak and dwg_peaks[1] else None),
        ("peak memory of saving as DWG", "of that of saving as DXF", 1.0, save_peaks[1] / save_peaks[0] if all(save_peaks) else None),
        ("HidePickObjectLayer over all objects", "walks", 0.2, ratio("HidePickObjectLayer", "Walk")),
        ("HidePickObject over all objects", "walks", 0.3, ratio("HidePickObject", "Walk")),
        ("ShowAllObject over all objects", "walks", 0.3, ratio("ShowAllObject", "Walk")),
        (f"-PURGE of {MANY_LAYERS} layers and blocks / of a tenth", "times", 20.0, ratio("Purge", "PurgeTenth")),
        (f"ShowAllLayer over {MANY_LAYERS} layers", "walks", 0.05, ratio("ShowAllLayer", "Walk")),
        ("first picture of a plan, after opening it", "times opening it", 2.0, ratio("FirstPicture", "OpenPlan")),
        ("open and close one object by id", "ns", 20.0, rows.get("OpenCloseById", {}).get("each_ns")),
    ]
    print(f"{options.entities} entities, {LAYERS} layers, {size / 1e6:.0f} MB; one walk {seconds.get('Walk', 0):.3f} s, "
          f"walk-and-write {seconds.get('WalkAndWrite', 0):.3f} s of processor time\n")
    print(f"{'what':<52}{'measured':>10}{'goal':>8}  unit")
    for what, unit, goal, value in table:
        verdict = "" if value is None or value <= goal else "   missed"
        print(f"{what:<52}{'-' if value is None else format(value, '.2f'):>10}{goal:>8.2f}  {unit}{verdict}")
    print_frames(rows)
    print_interpreters(rows)
    print_utilities(programs / "kx_bench_utilities", options.only)
    print_toolkit(programs / "kx_bench_toolkit", folder, options.only)


if __name__ == "__main__":
    main()
