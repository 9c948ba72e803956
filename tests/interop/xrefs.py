"""Attached drawings and AUDIT as a user meets them: commands on files, judged by ezdxf."""
import shutil
import sys
import tempfile
from pathlib import Path

import kxcad


def good(*arguments, typed=""):
    result = kxcad.run("--no-module", *arguments, typed=typed)
    assert result.status == 0, result
    return result


def layers_of(path):
    import ezdxf
    document = ezdxf.readfile(path)
    assert not document.audit().errors, document.audit().errors
    return document, {layer.dxf.name for layer in document.layers}


def attaches(folder):
    plan, host = folder / "plan.dxf", folder / "host.dxf"
    shutil.copy(kxcad.SAMPLES / "floorplan.dxf", plan)
    result = good("--output", host, "--script", "-", typed=f"-XREF\nA\n{plan}\n5,6\n2\n3\n90\nAUDIT\nN\n")
    assert 'Attach Xref "plan"' in result.out and "Total errors found 0" in result.out, result
    document, layers = layers_of(host)
    block = document.blocks.get("plan")
    assert block.block.dxf.flags & 4 and block.block.dxf.xref_path == str(plan), block.block.dxf.xref_path
    assert len(block) == 0, "contents of the xref are in the host's file"
    insert = document.modelspace().query("INSERT")[0]
    assert (insert.dxf.insert.x, insert.dxf.xscale, insert.dxf.yscale, insert.dxf.rotation) == (5, 2, 3, 90), insert.dxfattribs()
    assert sum(name.startswith("plan|") for name in layers) > 10, layers
    return plan, host


def is_read_again(plan, host, folder):
    result = good("--script", "-", host, typed="-XREF\n?\nAUDIT\nN\n")
    assert "resolved" in result.out and "Total errors found 0" in result.out and not result.err, result
    # Gone: told, the drawing opens all the same, and nothing is lost when it is saved.
    plan.rename(folder / "elsewhere.dxf")
    kept = folder / "kept.dxf"
    result = kxcad.run("--no-module", "--output", kept, host)
    assert result.status == 0 and "plan" in result.err and "no such file" in result.err, result
    assert layers_of(kept)[0].blocks.get("plan").block.dxf.xref_path == str(plan)
    (folder / "elsewhere.dxf").rename(plan)


def binds(host, folder):
    bound = folder / "bound.dxf"
    result = good("--output", bound, "--script", "-", host, typed="-XREF\nB\nPLAN\nAUDIT\nN\n")
    assert 'Xref "plan" bound.' in result.out and "Total errors found 0" in result.out, result
    document, layers = layers_of(bound)
    assert len(document.blocks.get("plan")) > 100
    assert not any("|" in name for name in layers) and any(name.startswith("plan$0$") for name in layers), layers


def detaches(host, folder):
    bare = folder / "bare.dxf"
    good("--output", bare, "--script", "-", host, typed="-XREF\nD\n*\n")
    document, layers = layers_of(bare)
    assert "plan" not in document.blocks and not any("|" in name for name in layers), layers
    assert len(document.modelspace()) == 0


def audits(folder):
    """What is wrong is told, mended where asked to, and then no longer found."""
    mended = folder / "mended.dxf"
    result = good("--output", mended, "--script", "-", kxcad.DATA / "bad_handles.dxf", typed="AUDIT\nY\nAUDIT\nN\n")
    assert result.out.count("Total errors found") == 2, result
    assert result.out.rstrip().rfind("Total errors found 0") > result.out.find("Total errors found"), result


def refuses(folder):
    for typed, why in ((f"-XREF\nA\n{folder}/none.dxf\n", "no such file"), ("-XREF\nD\nnone\n", "No matching xref names")):
        result = kxcad.run("--no-module", "--script", "-", typed=typed)
        assert result.status == 1 and why in result.out, result


def main():
    try:
        import ezdxf  # noqa: F401
    except ImportError:
        print("skipped: ezdxf is not installed")
        return kxcad.SKIPPED
    with tempfile.TemporaryDirectory() as folder:
        folder = Path(folder)
        plan, host = attaches(folder)
        is_read_again(plan, host, folder)
        binds(host, folder)
        detaches(host, folder)
        audits(folder)
        refuses(folder)
    print("attached, read again, bound, detached, audited")
    return 0


if __name__ == "__main__":
    sys.exit(main())
