"""A small house plan, drawn with ezdxf in any version: layers in every state, blocks in blocks, xdata, groups, layouts."""
import ezdxf
from ezdxf.enums import TextEntityAlignment

# name, colour, state. The names fit every code page of the test drawings that holds Chinese.
LAYERS = [("墙体", 7, ""), ("门窗", 4, ""), ("轴线", 1, "locked"), ("标注", 3, "off"), ("家具", 33, "frozen"),
          ("给排水", 5, "off locked"), ("未用", 8, "")]
LATIN_LAYERS = [("MAUER", 7, ""), ("TÜREN", 4, ""), ("ACHSE", 1, "locked"), ("MASSE", 3, "off"), ("MÖBEL", 33, "frozen"),
                ("WASSER", 5, "off locked"), ("UNBENUTZT", 8, "")]


def make(version, encoding=None, latin=False):
    doc = ezdxf.new(version)
    if encoding:
        doc.encoding = encoding
    rows = LATIN_LAYERS if latin else LAYERS
    wall, door, axis, note, furniture, water, _ = (row[0] for row in rows)
    for name, color, state in rows:
        layer = doc.layers.add(name, color=color)
        for word in state.split():
            {"locked": layer.lock, "off": layer.off, "frozen": layer.freeze}[word]()
    doc.linetypes.add("CENTER", [50.8, 31.75, -6.35, 6.35, -6.35], description="Center ____ _ ____")
    doc.layers.get(axis).dxf.linetype = "CENTER"
    doc.styles.add("FANG", font="simplex.shx")
    doc.appids.add("KX_TEST")

    leaf = doc.blocks.new("STUHL" if latin else "椅子")
    leaf.add_circle((0, 0), 225, dxfattribs={"layer": furniture})
    leaf.add_line((-225, 0), (225, 0), dxfattribs={"layer": "0"})
    middle = doc.blocks.new("TISCH" if latin else "餐桌")
    middle.add_solid([(-700, -400), (700, -400), (-700, 400), (700, 400)], dxfattribs={"layer": furniture})
    for x in (-400, 400):
        middle.add_blockref(leaf.name, (x, 600), dxfattribs={"layer": furniture})
    top = doc.blocks.new("RAUM" if latin else "餐厅")
    top.add_blockref(middle.name, (2000, 1500), dxfattribs={"layer": furniture, "rotation": 90})
    top.add_attdef("NR", (0, 0), text="1", dxfattribs={"layer": note, "height": 250, "style": "FANG"})

    space = doc.modelspace()
    for x in (0, 3600, 7200):
        space.add_line((x, -1000), (x, 6000), dxfattribs={"layer": axis, "linetype": "CENTER"})
    for x1, y1, x2, y2 in ((0, 0, 7200, 0), (7200, 0, 7200, 5000), (7200, 5000, 0, 5000), (0, 5000, 0, 0), (3600, 0, 3600, 5000)):
        space.add_line((x1, y1), (x2, y2), dxfattribs={"layer": wall})
    space.add_polyline2d([(0, 0), (7200, 0, 0.5), (7200, 5000)], format="xyb", dxfattribs={"layer": wall, "color": 1})
    if version > "R12":
        space.add_lwpolyline([(100, 100), (3500, 100), (3500, 4900), (100, 4900)], close=True, dxfattribs={"layer": wall})
        space.add_mtext("第一行\\P第二行" if not latin else "Zeile 1\\PZeile 2", dxfattribs={"layer": note, "char_height": 250})
        space.add_ellipse((1800, 2500), major_axis=(500, 0), ratio=0.5, dxfattribs={"layer": furniture})
        space.add_spline([(0, 0, 0), (500, 700, 0), (1200, -300, 0), (2000, 0, 0)], dxfattribs={"layer": water})
        space.add_hatch(color=3, dxfattribs={"layer": furniture}).paths.add_polyline_path([(0, 0), (900, 0), (900, 900)], is_closed=True)
        space.add_ray((0, 0), (1, 1), dxfattribs={"layer": axis})
    space.add_arc((3600, 900), 900, 90, 180, dxfattribs={"layer": door})
    space.add_circle((6800, 300), 75, dxfattribs={"layer": water})
    space.add_point((6800, 300), dxfattribs={"layer": water})
    space.add_3dface([(0, 0, 0), (7200, 0, 0), (7200, 5000, 2800), (0, 5000, 2800)], dxfattribs={"layer": wall})
    label = space.add_text("Küche" if latin else "客厅", dxfattribs={"layer": note, "height": 350, "style": "FANG"})
    label.set_placement((1800, 2500), align=TextEntityAlignment.MIDDLE_CENTER)
    label.set_xdata("KX_TEST", [(1000, "Wände" if latin else "房间"), (1002, "{"), (1040, 17.25), (1070, -3), (1071, 70000),
                                (1010, (1.5, 2.5, 3.5)), (1002, "}"), (1003, wall)])
    space.add_blockref(top.name, (3600, 0), dxfattribs={"layer": wall, "xscale": 1.5, "yscale": -1.0}).add_auto_attribs({"NR": "12"})
    space.add_blockref(middle.name, (900, 900), dxfattribs={"layer": "0", "column_count": 2, "column_spacing": 1500, "row_count": 1})
    space.add_linear_dim(base=(0, -500), p1=(0, 0), p2=(3600, 0), dxfattribs={"layer": note}).render()
    if version > "R12":
        doc.groups.new("GRUPPE1", "one").extend([space[0], space[1], label])
        label.new_extension_dict().dictionary.add_xrecord("KX_NOTE").reset([(1, "extension"), (70, 7), (40, 0.125)])
        doc.rootdict.get_required_dict("KX_TEST").add_xrecord("SETTINGS").reset([(290, 1), (310, b"\x01\x02\xfe"), (330, label.dxf.handle)])
        sheet = doc.layout("Layout1")
        sheet.add_text("A3", dxfattribs={"layer": note, "height": 5})
        viewport = sheet.add_viewport(center=(200, 150), size=(380, 260), view_center_point=(3600, 2500), view_height=8000)
        viewport.frozen_layers = [furniture]
    doc.header["$CLAYER"] = wall
    return doc
