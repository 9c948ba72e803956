"""Installs the package, builds the sample module against it in a folder of its own, and runs it in the installed host."""
import os
import subprocess
import sys
import tempfile
import time
from pathlib import Path

import kxcad


def call(*arguments, **options):
    done = subprocess.run(list(map(str, arguments)), stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False, **options)
    text = done.stdout.decode("utf-8", "replace")
    assert done.returncode == 0, f"{' '.join(map(str, arguments))}\n{text[-4000:]}"
    return text


def installed(build, prefix):
    call("cmake", "--install", build, "--prefix", prefix)
    for name in ("bin/kxcad", "lib/kxcad/KxArxBase.arx", "lib/kxcad/libkxplatform.so", "include/kxarxbase/KxHost.h",
                 "include/kxarxbase/KxArxBase/KxArxBase.h", "include/kxarxbase/KxArxBase/KxAcXData.h"):
        assert (prefix / name).exists(), name
    leaked = [path for path in prefix.rglob("*.h") if str(kxcad.ROOT) in path.read_text("utf-8", "replace")]
    assert not leaked, f"headers that name the source folder: {leaked}"


def built(prefix, folder):
    source = folder / "hello-module"
    call("cp", "-r", kxcad.SAMPLES / "hello-module", source)
    # Sanitized programs load sanitized and plain modules alike; the sample stays plain.
    call("cmake", "-S", source, "-B", folder / "build", f"-DCMAKE_PREFIX_PATH={prefix}", "-DCMAKE_BUILD_TYPE=Debug")
    call("cmake", "--build", folder / "build", "-j", "2")
    return folder / "build" / "HelloModule.arx"


def run(host, *arguments, typed=""):
    done = subprocess.run([str(host), *map(str, arguments)], input=typed.encode(), stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                          check=False, timeout=120)
    out, err = done.stdout.decode("utf-8", "replace"), done.stderr.decode("utf-8", "replace")
    assert done.returncode == 0 and not err, f"status {done.returncode}\n{out}\n{err}"
    return out


def check_commands(host, module, folder):
    drawing = folder / "rooms.dxf"
    # A room by its global name, one by its local name; the second is picked on its edge and gets a name and a number.
    script = "HelloRoom\n0,0\n4,3\nFJHZ\n10,0\n20,5\nHelloTag\n10,2\nA\n客厅\nB\n7\n\nHelloView\n\nHelloList\n(princ (hello-rooms))\n"
    out = run(host, "--module", module, "--output", drawing, "--script", "-", typed=script)
    for text in ("Hello: 4 commands.", "0 未命名: 12.00", "7 客厅: 50.00", "2 个房间, 面积 62.00"):
        assert text in out, f"{text!r} is not in\n{out}"
    return drawing


def check_drawing(drawing):
    import ezdxf
    document = ezdxf.readfile(drawing)
    assert not document.audit().errors, document.audit().errors
    rooms = list(document.modelspace().query("LWPOLYLINE"))
    assert len(rooms) == 2 and all(room.has_xdata("HelloModule") for room in rooms)
    tags = [(tag.code, tag.value) for tag in rooms[1].get_xdata("HelloModule")]
    assert tags == [(1071, 1), (1000, "客厅"), (1071, 2), (1071, 7), (1071, 3), (1040, 50.0)], tags
    assert "HelloModule" in document.appids
    record = rooms[1].get_extension_dict().dictionary["XRecord"]
    # Group codes from 1000 on in a record are extended data to this reader.
    tags = [(tag.code, tag.value) for tag in record.get_xdata("HelloModule")]
    assert tags[0] == (1071, 10) and tags[1][0] == 1000 and "客厅" in tags[1][1], tags


def is_mapped(process, name):
    return name in Path(f"/proc/{process.pid}/maps").read_text()


def waits_for(process, condition):
    for _ in range(1200):
        if condition():
            return True
        if process.poll() is not None:
            break
        time.sleep(0.05)
    return False


def check_unloading(host, module):
    process = subprocess.Popen([str(host), "--quiet"], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                               env={**os.environ, "KX_TRUSTED_PATHS": str(module.parent)})
    try:
        def type_line(text):
            process.stdin.write((text + "\n").encode())
            process.stdin.flush()
        type_line(f'(arxload "{module}")')
        assert waits_for(process, lambda: is_mapped(process, "HelloModule.arx")), "the module is not loaded"
        assert is_mapped(process, "KxArxBase.arx")
        type_line("HelloList")
        type_line('(arxunload "HelloModule.arx")')
        assert waits_for(process, lambda: not is_mapped(process, "HelloModule.arx")), "the module stays in memory"
        type_line(f'(arxload "{module}")')
        assert waits_for(process, lambda: is_mapped(process, "HelloModule.arx")), "the module does not load again"
        type_line("HelloList")
        out, _ = process.communicate(timeout=60)
        out = out.decode("utf-8", "replace")
        assert out.count("0 个房间") == 2, out
        assert process.returncode == 0, out
    finally:
        process.kill()


def main():
    build = Path(os.environ["KXBUILD"])
    with tempfile.TemporaryDirectory() as folder:
        folder = Path(folder)
        prefix = folder / "prefix"
        installed(build, prefix)
        module = built(prefix, folder)
        host = prefix / "bin" / "kxcad"
        drawing = check_commands(host, module, folder)
        check_unloading(host, module)
        try:
            import ezdxf  # noqa: F401
        except ImportError:
            print("skipped: the drawing is not read by ezdxf, which is not installed")
            return 0
        check_drawing(drawing)
    print("the package builds a module that works")
    return 0


if __name__ == "__main__":
    sys.exit(main())
