"""The sample floor plan: four floors of a house of flats, four flats to a floor, drawn as an architect's office would.

Units are millimetres. Every floor stands on the same grid; the flats of a floor are one drawn flat and its mirror images.
"""
import math

import ezdxf
from ezdxf.enums import TextEntityAlignment

AXES_X = [0, 3600, 7500, 10800, 13200, 16500, 20400, 24000, 27600, 31500, 34800, 37200, 40500, 44400, 48000]
AXES_Y = [0, 1500, 5400, 7200, 10200, 12600]
FLOORS = [("一层平面图", 0.0), ("二层平面图", 3.0), ("标准层平面图", 6.0), ("顶层平面图", 15.0)]
FLOOR_PITCH = 26000.0   # from one plan to the next on the sheet
WALL = 240.0
THIN_WALL = 120.0

# name, colour, linetype, what is special about it
LAYERS = [
    ("轴线", 1, "CENTER", "locked"), ("轴线编号", 3, "Continuous", ""), ("墙体", 7, "Continuous", ""),
    ("墙体-隔墙", 9, "Continuous", ""), ("墙体-填充", 8, "Continuous", ""), ("柱子", 2, "Continuous", ""),
    ("门窗", 4, "Continuous", ""), ("门窗-编号", 3, "Continuous", ""), ("楼梯", 2, "Continuous", ""),
    ("阳台", 6, "Continuous", ""), ("栏杆", 30, "Continuous", ""), ("家具", 33, "Continuous", ""),
    ("家具-床", 34, "Continuous", ""), ("家具-桌椅", 35, "Continuous", ""), ("洁具", 140, "Continuous", ""),
    ("厨具", 141, "Continuous", ""), ("绿化", 92, "Continuous", ""), ("房间名称", 7, "Continuous", ""),
    ("房间面积", 51, "Continuous", ""), ("标注", 3, "Continuous", ""), ("标注-轴线", 3, "Continuous", ""),
    ("标注-总尺寸", 3, "Continuous", ""), ("标高", 3, "Continuous", ""), ("文字说明", 7, "Continuous", ""),
    ("填充-木地板", 252, "Continuous", ""), ("填充-瓷砖", 253, "Continuous", ""), ("填充-防滑砖", 254, "Continuous", ""),
    ("给排水-给水", 5, "给水管", ""), ("给排水-排水", 30, "DASHED", ""), ("给排水-立管", 4, "Continuous", ""),
    ("消防", 1, "DASHDOT", "off"), ("电气-照明", 6, "Continuous", ""), ("电气-插座", 202, "Continuous", ""),
    ("电气-线路", 210, "HIDDEN", ""), ("弱电", 190, "DIVIDE", "frozen"), ("暖通-空调", 150, "Continuous", ""),
    ("结构-梁", 8, "HIDDEN", "off"), ("结构-楼板", 8, "Continuous", "frozen"), ("屋面", 40, "Continuous", ""),
    ("立面-轮廓", 7, "Continuous", ""), ("立面-门窗", 4, "Continuous", ""), ("立面-材质", 251, "Continuous", ""), ("门窗表", 7, "Continuous", ""),
    ("剖切符号", 1, "Continuous", ""), ("指北针", 7, "Continuous", ""), ("图框", 7, "Continuous", ""),
    ("图签", 2, "Continuous", "locked"), ("视口", 8, "Continuous", "no plot"), ("参考-旧版", 8, "Continuous", "frozen"),
]
UNUSED_LAYERS = ["废弃图层", "临时", "设备-预留", "图层1", "A-ANNO-NOTE"]

LINETYPES = [
    ("CENTER", "Center ____ _ ____", [50.8, 31.75, -6.35, 6.35, -6.35]),
    ("DASHED", "Dashed __ __ __", [19.05, 12.7, -6.35]),
    ("HIDDEN", "Hidden _ _ _ _", [9.525, 6.35, -3.175]),
    ("DASHDOT", "Dash dot __ . __ .", [25.4, 12.7, -6.35, 0.0, -6.35]),
    ("DIVIDE", "Divide ____ . . ____", [31.75, 12.7, -6.35, 0.0, -6.35, 0.0, -6.35]),
    ("给水管", "给水管 ___ _ ___", [38.1, 25.4, -3.175, 6.35, -3.175]),
    ("PHANTOM", "Phantom ______ __ __", [63.5, 31.75, -6.35, 6.35, -6.35, 6.35, -6.35]),   # nothing uses it
    ("地界线", "地界线 ____ .. ____", [40.0, 25.0, -5.0, 0.0, -5.0, 0.0, -5.0]),              # nor this
]


def set_up(doc):
    doc.header["$INSUNITS"] = 4
    doc.header["$MEASUREMENT"] = 1
    doc.header["$LTSCALE"] = 100.0
    for name, description, pattern in LINETYPES:
        doc.linetypes.add(name, pattern, description=description)
    for name, color, linetype, state in LAYERS:
        layer = doc.layers.add(name, color=color, linetype=linetype)
        if state == "off":
            layer.off()
        elif state == "frozen":
            layer.freeze()
        elif state == "locked":
            layer.lock()
        elif state == "no plot":
            layer.dxf.plot = 0
    for index, name in enumerate(UNUSED_LAYERS):
        doc.layers.add(name, color=11 + index)
    doc.layers.get("柱子").dxf.lineweight = 50
    doc.styles.add("仿宋", font="gbenor.shx").dxf.bigfont = "gbcbig.shx"
    doc.styles.add("黑体", font="simhei.ttf")
    doc.styles.add("数字", font="simplex.shx").dxf.width = 0.7
    doc.styles.add("旧图字体", font="hztxt.shx")   # nothing uses it
    for name, height in (("建筑标注", 300.0), ("未用标注", 500.0)):
        doc.dimstyles.duplicate_entry("Standard", name)
        style = doc.dimstyles.get(name)
        style.dxf.dimtxt = height
        style.dxf.dimasz = 120.0
        style.dxf.dimexe = 150.0
        style.dxf.dimexo = 200.0
        style.dxf.dimgap = 80.0
        style.dxf.dimtad = 1
        style.dxf.dimdec = 0
        style.dxf.dimtxsty = "数字"
        style.dxf.dimblk = "ARCHTICK" if name == "建筑标注" else ""
    doc.appids.add("KX_ROOM")


def rectangle(space, x, y, width, height, layer, **attributes):
    corners = [(x, y), (x + width, y), (x + width, y + height), (x, y + height)]
    return space.add_lwpolyline(corners, close=True, dxfattribs={"layer": layer, **attributes})


def line(space, x1, y1, x2, y2, layer):
    return space.add_line((x1, y1), (x2, y2), dxfattribs={"layer": layer})


def text(space, content, x, y, height, layer, style="仿宋", align=TextEntityAlignment.MIDDLE_CENTER):
    entity = space.add_text(content, dxfattribs={"layer": layer, "style": style, "height": height})
    entity.set_placement((x, y), align=align)
    return entity


# --- blocks ----------------------------------------------------------------------------------------------------------
def door_block(doc, name, width):
    block = doc.blocks.new(name)
    rectangle(block, 0, 0, 40, width, "0")
    block.add_arc((0, 0), width, 0, 90, dxfattribs={"layer": "0"})
    line(block, width, 0, width, -WALL / 2, "0")
    line(block, 0, 0, 0, -WALL / 2, "0")
    block.add_attdef("编号", (width / 2, -500), text=name, dxfattribs={"layer": "门窗-编号", "height": 200, "style": "数字"})
    block.add_attdef("防火等级", (width / 2, -800), text="", dxfattribs={"layer": "门窗-编号", "height": 150, "flags": 1})


def window_block(doc, name, width):
    block = doc.blocks.new(name)
    rectangle(block, 0, -WALL / 2, width, WALL, "0")
    for y in (-WALL / 6, WALL / 6):
        line(block, 0, y, width, y, "0")
    block.add_attdef("编号", (width / 2, 250), text=name, dxfattribs={"layer": "门窗-编号", "height": 200, "style": "数字"})


def furniture_blocks(doc):
    chair = doc.blocks.new("椅子")
    rectangle(chair, -225, -225, 450, 450, "家具-桌椅")
    chair.add_arc((0, 0), 260, 30, 150, dxfattribs={"layer": "家具-桌椅"})

    table = doc.blocks.new("餐桌椅")
    rectangle(table, -700, -400, 1400, 800, "家具-桌椅")
    for x in (-400, 400):
        table.add_blockref("椅子", (x, 600), dxfattribs={"layer": "家具-桌椅"})
        table.add_blockref("椅子", (x, -600), dxfattribs={"layer": "家具-桌椅", "rotation": 180})
    for x, turn in ((950, 270), (-950, 90)):
        table.add_blockref("椅子", (x, 0), dxfattribs={"layer": "家具-桌椅", "rotation": turn})

    pillow = doc.blocks.new("枕头")
    pillow.add_lwpolyline([(-300, -150, 0.3), (300, -150, 0.3), (300, 150, 0.3), (-300, 150, 0.3)], format="xyb", close=True,
                          dxfattribs={"layer": "0"})
    lamp = doc.blocks.new("台灯")
    for radius in (80, 150):
        lamp.add_circle((0, 0), radius, dxfattribs={"layer": "0"})
    bedside = doc.blocks.new("床头柜")
    rectangle(bedside, -250, -225, 500, 450, "家具")
    bedside.add_blockref("台灯", (0, 0), dxfattribs={"layer": "家具"})

    for name, width in (("双人床", 1800), ("单人床", 1200)):
        bed = doc.blocks.new(name)
        rectangle(bed, -width / 2, -2000, width, 2000, "家具-床")
        bed.add_spline([(-width / 2, -1300), (-width / 4, -1200), (width / 4, -1400), (width / 2, -1300)],
                       dxfattribs={"layer": "家具-床"})
        for x in (-width / 4, width / 4) if width > 1500 else (0,):
            bed.add_blockref("枕头", (x, -250), dxfattribs={"layer": "家具-床"})
        for side in (-1, 1) if width > 1500 else (1,):
            bed.add_blockref("床头柜", (side * (width / 2 + 280), -250), dxfattribs={"layer": "家具"})

    sofa = doc.blocks.new("沙发")
    rectangle(sofa, -1100, -450, 2200, 900, "家具")
    for x in (-1100, -370, 360):
        sofa.add_lwpolyline([(x + 20, -400, 0.2), (x + 720, -400, 0.2), (x + 720, 200, 0), (x + 20, 200, 0)], format="xyb", close=True,
                            dxfattribs={"layer": "家具"})
    living = doc.blocks.new("客厅组合")
    living.add_blockref("沙发", (0, 0), dxfattribs={"layer": "家具"})
    living.add_blockref("沙发", (1800, -1500), dxfattribs={"layer": "家具", "rotation": 270, "xscale": 0.6})
    rectangle(living, -600, -1500, 1200, 600, "家具")
    living.add_ellipse((0, -1200), major_axis=(350, 0), ratio=0.5, dxfattribs={"layer": "家具"})
    rectangle(living, -1000, -3200, 2000, 400, "家具")

    toilet = doc.blocks.new("坐便器")
    rectangle(toilet, -200, -180, 400, 180, "洁具")
    toilet.add_ellipse((0, -430), major_axis=(0, -260), ratio=0.7, dxfattribs={"layer": "洁具"})
    basin = doc.blocks.new("洗手盆")
    rectangle(basin, -300, -500, 600, 500, "洁具")
    basin.add_ellipse((0, -270), major_axis=(200, 0), ratio=0.75, dxfattribs={"layer": "洁具"})
    basin.add_circle((0, -100), 25, dxfattribs={"layer": "洁具"})
    stove = doc.blocks.new("灶台")
    rectangle(stove, -380, -200, 760, 400, "厨具")
    for x in (-180, 180):
        for radius in (60, 110):
            stove.add_circle((x, 0), radius, dxfattribs={"layer": "厨具"})
    tree = doc.blocks.new("树")
    for index in range(12):
        angle = math.radians(30 * index)
        tip = (900 * math.cos(angle), 900 * math.sin(angle))
        line(tree, 0, 0, *tip, "绿化")
        line(tree, tip[0] * 0.6, tip[1] * 0.6, 800 * math.cos(angle + 0.2), 800 * math.sin(angle + 0.2), "绿化")
    tree.add_circle((0, 0), 950, dxfattribs={"layer": "绿化"})


def service_blocks(doc):
    socket = doc.blocks.new("插座")
    socket.add_arc((0, 0), 150, 0, 180, dxfattribs={"layer": "0"})
    line(socket, -150, 0, 150, 0, "0")
    line(socket, 0, 150, 0, 260, "0")
    light = doc.blocks.new("吸顶灯")
    light.add_circle((0, 0), 200, dxfattribs={"layer": "0"})
    for turn in (45, 135):
        x, y = 200 * math.cos(math.radians(turn)), 200 * math.sin(math.radians(turn))
        line(light, -x, -y, x, y, "0")
    riser = doc.blocks.new("立管")
    riser.add_circle((0, 0), 75, dxfattribs={"layer": "0"})
    riser.add_attdef("管号", (120, 120), text="JL-1", dxfattribs={"layer": "给排水-立管", "height": 150, "style": "数字"})
    unit = doc.blocks.new("空调室外机")
    rectangle(unit, -450, -175, 900, 350, "暖通-空调")
    unit.add_circle((-150, 0), 140, dxfattribs={"layer": "暖通-空调"})
    sprinkler = doc.blocks.new("喷头")
    sprinkler.add_circle((0, 0), 60, dxfattribs={"layer": "消防"})
    sprinkler.add_solid([(-40, -40), (40, -40), (0, 40), (0, 40)], dxfattribs={"layer": "消防"})


def drafting_blocks(doc):
    bubble = doc.blocks.new("轴号")
    bubble.add_circle((0, 0), 400, dxfattribs={"layer": "轴线编号"})
    bubble.add_attdef("轴号", (0, 0), dxfattribs={"layer": "轴线编号", "height": 450, "style": "数字"}).set_placement(
        (0, 0), align=TextEntityAlignment.MIDDLE_CENTER)
    level = doc.blocks.new("标高符号")
    level.add_lwpolyline([(-300, 300), (0, 0), (300, 300), (-300, 300), (1800, 300)], dxfattribs={"layer": "标高"})
    level.add_attdef("标高", (400, 380), dxfattribs={"layer": "标高", "height": 300, "style": "数字"})
    north = doc.blocks.new("指北针")
    north.add_circle((0, 0), 1200, dxfattribs={"layer": "指北针"})
    north.add_solid([(-150, -1150), (150, -1150), (0, 1200), (0, 1200)], dxfattribs={"layer": "指北针"})
    text(north, "北", 0, 1600, 500, "指北针", "黑体")

    title = doc.blocks.new("图签")
    for y in range(0, 50, 10):
        line(title, 0, y, 180, y, "图签")
    for x in (0, 30, 90, 120, 180):
        line(title, x, 0, x, 40, "图签")
    for row, (label, tag, value) in enumerate((("工程名称", "工程名称", "示例住宅楼"), ("图名", "图名", "各层平面图"),
                                               ("比例", "比例", "1:100"), ("日期", "日期", "2026-11-21"))):
        text(title, label, 15, 5 + 10 * row, 3.5, "图签")
        title.add_attdef(tag, (35, 3 + 10 * row), text=value, dxfattribs={"layer": "图签", "height": 3.5, "style": "仿宋"})

    for name in ("废弃图块", "旧门"):   # nothing inserts them; the first inserts the chair, which others use
        unused = doc.blocks.new(name)
        unused.add_blockref("椅子", (0, 0))
        rectangle(unused, 0, 0, 100, 100, "0")


DOORS = {"M0821": 800, "M0921": 900, "M1021": 1000, "FM1221": 1200}
WINDOWS = {"C0915": 900, "C1515": 1500, "C1815": 1800, "C2415": 2400}


def blocks(doc):
    for name, width in DOORS.items():
        door_block(doc, name, width)
    for name, width in WINDOWS.items():
        window_block(doc, name, width)
    furniture_blocks(doc)
    service_blocks(doc)
    drafting_blocks(doc)


# --- one flat --------------------------------------------------------------------------------------------------------
# A flat is 12,000 wide and 12,600 deep. x grows away from the wall it shares with its neighbour.
OUTER_WALLS = [(0, 0, 3600, 0), (3600, 0, 7500, 0), (7500, 1500, 10800, 1500), (0, 0, 0, 12600), (0, 12600, 10800, 12600),
               (10800, 1500, 10800, 12600), (7500, 0, 7500, 1500)]
INNER_WALLS = [(3600, 0, 3600, 5400), (7500, 1500, 7500, 5400), (0, 5400, 7500, 5400), (3600, 7200, 3600, 12600),
               (0, 7200, 3600, 7200), (7500, 7200, 7500, 12600), (7500, 7200, 10800, 7200), (7500, 10200, 10800, 10200)]
# room, middle, size, floor, area in square metres
ROOMS = [("主卧室", (1800, 2700), (3360, 5160), "填充-木地板", 17.3), ("客厅", (5550, 2700), (3660, 5160), "填充-瓷砖", 18.9),
         ("厨房", (9150, 8700), (3060, 2760), "填充-防滑砖", 8.4), ("卫生间", (9150, 11400), (3060, 2160), "填充-防滑砖", 6.6),
         ("次卧室", (1800, 9900), (3360, 5160), "填充-木地板", 17.3), ("餐厅", (5550, 9900), (3660, 5160), "填充-瓷砖", 18.9),
         ("书房", (9150, 3450), (3060, 3660), "填充-木地板", 11.2)]
DOOR_PLACES = [("M0921", 2500, 5400, 0), ("M0921", 2500, 7200, 180), ("M0821", 7500, 8000, 90), ("M0821", 7500, 10600, 90),
               ("M0921", 7500, 4300, 90), ("M1021", 10800, 6000, 90)]
WINDOW_PLACES = [("C1815", 900, 0, 0), ("C2415", 4350, 0, 0), ("C1515", 8400, 1500, 0), ("C1815", 900, 12600, 0),
                 ("C1515", 4800, 12600, 0), ("C0915", 8700, 12600, 0), ("C0915", 10800, 8300, 90)]
FURNITURE = [("双人床", 1800, 5100, 0), ("单人床", 1500, 12300, 0), ("客厅组合", 5550, 4700, 0), ("餐桌椅", 5550, 9800, 90),
             ("坐便器", 8300, 12450, 0), ("洗手盆", 9800, 12450, 0), ("灶台", 10450, 8700, 90), ("椅子", 9150, 3300, 15)]
SOCKETS = [(300, 300), (3300, 300), (3900, 2000), (7200, 2600), (300, 7500), (3300, 12300), (7800, 5000), (10500, 7500), (10500, 10500)]
LIGHTS = [(1800, 2700), (5550, 2700), (9150, 3450), (1800, 9900), (5550, 9900), (9150, 8700), (9150, 11400), (5550, 6300)]


class Flat:
    """Places things of a flat; `mirrored` turns left and right about."""

    def __init__(self, doc, space, origin, mirrored, number):
        self.doc, self.space, self.origin, self.mirrored, self.number = doc, space, origin, mirrored, number

    def at(self, x, y):
        return (self.origin[0] - x if self.mirrored else self.origin[0] + x), self.origin[1] + y

    def insert(self, name, x, y, turn, layer):
        attributes = {"layer": layer, "rotation": (180 - turn) % 360 if self.mirrored else turn}
        if self.mirrored:
            attributes["yscale"] = -1.0
        return self.space.add_blockref(name, self.at(x, y), dxfattribs=attributes)

    def walls(self):
        for places, thickness, layer in ((OUTER_WALLS, WALL, "墙体"), (INNER_WALLS, THIN_WALL, "墙体-隔墙")):
            for x1, y1, x2, y2 in places:
                length = math.hypot(x2 - x1, y2 - y1)
                nx, ny = (y1 - y2) / length * thickness / 2, (x2 - x1) / length * thickness / 2
                for side in (-1, 1):
                    self.space.add_line(self.at(x1 + side * nx, y1 + side * ny), self.at(x2 + side * nx, y2 + side * ny),
                                        dxfattribs={"layer": layer})

    def openings(self):
        for name, x, y, turn in DOOR_PLACES:
            door = self.insert(name, x, y, turn, "门窗")
            door.add_auto_attribs({"编号": name, "防火等级": "乙级" if name.startswith("M10") else ""})
        for name, x, y, turn in WINDOW_PLACES:
            self.insert(name, x, y, turn, "门窗").add_auto_attribs({"编号": name})

    def rooms(self):
        for name, (x, y), (width, height), floor, area in ROOMS:
            label = text(self.space, name, *self.at(x, y + 250), 350, "房间名称", "黑体")
            label.set_xdata("KX_ROOM", [(1000, name), (1040, area), (1070, self.number)])
            text(self.space, f"{area:.1f}m2", *self.at(x, y - 250), 250, "房间面积", "数字")
            left, right = sorted((self.at(x - width / 2, 0)[0], self.at(x + width / 2, 0)[0]))
            bottom, top = self.at(0, y - height / 2)[1], self.at(0, y + height / 2)[1]
            hatch = self.space.add_hatch(color=256, dxfattribs={"layer": floor})
            hatch.set_pattern_fill("ANSI31" if floor == "填充-木地板" else "NET", scale=80.0 if floor == "填充-木地板" else 120.0)
            hatch.paths.add_polyline_path([(left, bottom), (right, bottom), (right, top), (left, top)], is_closed=True)

    def furniture(self):
        for name, x, y, turn in FURNITURE:
            self.insert(name, x, y, turn, "洁具" if name in ("坐便器", "洗手盆") else "厨具" if name == "灶台" else "家具")
        for x in (1500, 9300):
            self.insert("空调室外机", x, -600 if x < 7500 else 900, 0, "暖通-空调")

    def balcony(self):
        for inset in (0, 60):
            self.space.add_lwpolyline([self.at(3600 + inset, 0), self.at(3600 + inset, -1500 + inset), self.at(7500 - inset, -1500 + inset),
                                       self.at(7500 - inset, 0)], dxfattribs={"layer": "阳台"})
        for index in range(18):
            x = 3800 + index * 205
            self.space.add_line(self.at(x, -1500), self.at(x, -1440), dxfattribs={"layer": "栏杆"})

    def services(self):
        for x, y in SOCKETS:
            self.insert("插座", x, y, 0, "电气-插座")
        for index, (x, y) in enumerate(LIGHTS):
            self.insert("吸顶灯", x, y, 0, "电气-照明")
            previous = LIGHTS[index - 1] if index else (10800, 6300)
            self.space.add_lwpolyline([self.at(*previous), self.at(x, previous[1]), self.at(x, y)], dxfattribs={"layer": "电气-线路"})
        for x, y, pipe in ((10550, 10000, "JL"), (10550, 12350, "WL"), (7700, 10000, "YL")):
            riser = self.insert("立管", x, y, 0, "给排水-立管")
            riser.add_auto_attribs({"管号": f"{pipe}-{self.number}"})
        self.space.add_lwpolyline([self.at(10550, 10000), self.at(10550, 12000), self.at(9800, 12000), self.at(9800, 12400)],
                                  dxfattribs={"layer": "给排水-给水"})
        self.space.add_lwpolyline([self.at(8300, 12000), self.at(8300, 12350), self.at(10550, 12350)], dxfattribs={"layer": "给排水-排水"})
        for x, y in ((1800, 2700), (5550, 2700), (5550, 9900), (1800, 9900)):
            self.space.add_blockref("喷头", self.at(x + 600, y), dxfattribs={"layer": "消防"})
        self.space.add_polyline2d([self.at(10800, 6600), self.at(5550, 6600), self.at(5550, 4000)], dxfattribs={"layer": "弱电"})

    def structure(self):
        for x1, y1, x2, y2 in OUTER_WALLS:
            self.space.add_line(self.at(x1, y1), self.at(x2, y2), dxfattribs={"layer": "结构-梁"})
        for x, y in ((0, 0), (3600, 0), (7500, 1500), (10800, 1500), (0, 12600), (3600, 12600), (7500, 12600), (10800, 12600), (3600, 5400)):
            cx, cy = self.at(x, y)
            rectangle(self.space, cx - 200, cy - 200, 400, 400, "柱子")
            fill = self.space.add_hatch(color=8, dxfattribs={"layer": "墙体-填充"})
            fill.paths.add_polyline_path([(cx - 200, cy - 200), (cx + 200, cy - 200), (cx + 200, cy + 200), (cx - 200, cy + 200)], is_closed=True)

    def draw(self):
        self.walls()
        self.openings()
        self.rooms()
        self.furniture()
        self.balcony()
        self.services()
        self.structure()


# --- one floor -------------------------------------------------------------------------------------------------------
def stairs(doc, space, x, y, group_name):
    parts = [rectangle(space, x, y, 2400, 5400, "楼梯")]
    for step in range(11):
        parts.append(line(space, x + 100, y + 1000 + step * 280, x + 1150, y + 1000 + step * 280, "楼梯"))
        parts.append(line(space, x + 1250, y + 1000 + step * 280, x + 2300, y + 1000 + step * 280, "楼梯"))
    parts.append(rectangle(space, x + 1150, y + 900, 100, 3000, "栏杆"))
    parts.append(space.add_leader([(x + 600, y + 3600), (x + 600, y + 1200)], dimstyle="建筑标注", dxfattribs={"layer": "楼梯"}))
    parts.append(text(space, "下", x + 600, y + 700, 300, "楼梯"))
    parts.append(text(space, "上", x + 1800, y + 700, 300, "楼梯"))
    doc.groups.new(group_name, "楼梯间").extend(parts)


def grid(space, y0):
    left, right, bottom, top = AXES_X[0] - 6000, AXES_X[-1] + 6000, AXES_Y[0] - 7000, AXES_Y[-1] + 6000
    for index, x in enumerate(AXES_X, 1):
        line(space, x, y0 + bottom, x, y0 + top, "轴线")
        for y in (bottom - 400, top + 400):
            space.add_blockref("轴号", (x, y0 + y), dxfattribs={"layer": "轴线编号"}).add_auto_attribs({"轴号": str(index)})
    for letter, y in zip("ABCDEF", AXES_Y):
        line(space, left, y0 + y, right, y0 + y, "轴线")
        for x in (left - 400, right + 400):
            space.add_blockref("轴号", (x, y0 + y), dxfattribs={"layer": "轴线编号"}).add_auto_attribs({"轴号": letter})


def dimensions(space, y0):
    def linear(p1, p2, base, angle, layer):
        space.add_linear_dim(base=base, p1=p1, p2=p2, angle=angle, dimstyle="建筑标注", dxfattribs={"layer": layer}).render()

    for first, second in zip(AXES_X, AXES_X[1:]):
        linear((first, y0 - 3000), (second, y0 - 3000), (first, y0 - 5500), 0, "标注-轴线")
    for first, second in zip(AXES_Y, AXES_Y[1:]):
        linear((AXES_X[0] - 2000, y0 + first), (AXES_X[0] - 2000, y0 + second), (AXES_X[0] - 4500, y0 + first), 90, "标注-轴线")
    linear((AXES_X[0], y0 - 3000), (AXES_X[-1], y0 - 3000), (0, y0 - 6300), 0, "标注-总尺寸")
    linear((AXES_X[0] - 2000, y0), (AXES_X[0] - 2000, y0 + AXES_Y[-1]), (AXES_X[0] - 5300, y0), 90, "标注-总尺寸")
    for x in (900, 4350, 8400):
        linear((x, y0 - 200), (x + 1500, y0 - 200), (x, y0 - 2400), 0, "标注")


def floor(doc, space, index, name, elevation):
    y0 = -FLOOR_PITCH * index
    grid(space, y0)
    for number, (x, mirrored) in enumerate(((0, False), (24000, True), (24000, False), (48000, True)), 1):
        Flat(doc, space, (x, y0), mirrored, 100 * (index + 1) + number).draw()
    for number, x in enumerate((10800, 34800), 1):
        stairs(doc, space, x, y0 + 7200, f"楼梯{index + 1}-{number}")
        entrance = space.add_blockref("FM1221", (x + 600, y0 + 12600), dxfattribs={"layer": "门窗"})
        entrance.add_auto_attribs({"编号": "FM1221", "防火等级": "甲级"})
    dimensions(space, y0)
    space.add_blockref("标高符号", (26000, y0 + 6300), dxfattribs={"layer": "标高"}).add_auto_attribs({"标高": f"{elevation:.3f}"})
    text(space, name, 24000, y0 - 9000, 900, "文字说明", "黑体")
    text(space, "1:100", 30000, y0 - 9000, 600, "文字说明", "数字")
    line(space, 20000, y0 - 9700, 28000, y0 - 9700, "文字说明")


def surroundings(space):
    for index in range(14):
        scale = 0.8 + 0.1 * (index % 5)
        space.add_blockref("树", (-3000 + 4200 * index, 17500 + 900 * (index % 3)),
                           dxfattribs={"layer": "绿化", "xscale": scale, "yscale": scale, "rotation": 23.0 * index})
    space.add_blockref("指北针", (56000, 16000), dxfattribs={"layer": "指北针"})
    roof = rectangle(space, -600, -3 * FLOOR_PITCH - 2100, 49200, 15300, "屋面")
    roof.dxf.const_width = 50
    rectangle(space, -300, -300, 48600, 13200, "结构-楼板")
    for x in (12000, 36000):
        line(space, x, -3000, x, 14500, "剖切符号")
    space.add_mtext("设计说明\\P1. 本工程为六层住宅楼，每层四户。\\P2. 外墙{\\H1.2x;240}厚，内隔墙120厚。\\P"
                    "3. 卫生间、厨房地面低于相邻房间20，找坡1%。\\P4. 门窗尺寸以现场为准 %%c20 %%p0.000。",
                    dxfattribs={"layer": "文字说明", "style": "仿宋", "char_height": 400, "insert": (52000, 12000), "width": 9000})
    for index in range(40):   # the outline of an older plan
        space.add_point((1200 * index, -4000 - 30 * index), dxfattribs={"layer": "参考-旧版"})
    space.add_3dface([(0, 0, 0), (48000, 0, 0), (48000, 12600, 3000), (0, 12600, 3000)], dxfattribs={"layer": "参考-旧版"})


def south_front(space):
    """The south front, right of the plans: six storeys of windows, balconies and brick."""
    x0, y0 = 70000, 0
    rectangle(space, x0, y0, 48000, 18600, "立面-轮廓", const_width=60)
    for storey in range(6):
        floor_line = y0 + 3000 * storey
        line(space, x0, floor_line, x0 + 48000, floor_line, "立面-轮廓")
        space.add_blockref("标高符号", (x0 + 50000, floor_line), dxfattribs={"layer": "标高"}).add_auto_attribs(
            {"标高": f"{3.0 * storey:.3f}"})
        for flat in range(4):
            for offset, width in ((900, 1800), (4350, 2400), (8400, 1500)):
                x = x0 + 12000 * flat + (offset if flat % 2 == 0 else 12000 - offset - width)
                rectangle(space, x, floor_line + 900, width, 1500, "立面-门窗")
                line(space, x + width / 2, floor_line + 900, x + width / 2, floor_line + 2400, "立面-门窗")
                rectangle(space, x + 50, floor_line + 950, width / 2 - 75, 1400, "立面-门窗")
    for course in range(60):
        space.add_line((x0 + (course % 2) * 120, y0 + 300 * course + 150), (x0 + 48000, y0 + 300 * course + 150),
                       dxfattribs={"layer": "立面-材质"})
    text(space, "南立面图", x0 + 24000, y0 - 3000, 900, "文字说明", "黑体")


def schedule(space):
    """The table of doors and windows, drawn with lines and texts."""
    x0, y0, row_height, columns = 70000, -12000, 800, (0, 2500, 6500, 10500, 14500, 20000)
    rows = [("类型", "编号", "洞口尺寸", "数量", "备注")]
    rows += [("门", name, f"{width}x2100", str(16 if name != "FM1221" else 8), "防火门" if name == "FM1221" else "成品木门")
             for name, width in DOORS.items()]
    rows += [("窗", name, f"{width}x1500", "16", "塑钢中空玻璃窗") for name, width in WINDOWS.items()]
    for index in range(len(rows) + 1):
        line(space, x0, y0 - index * row_height, x0 + columns[-1], y0 - index * row_height, "门窗表")
    for x in columns:
        line(space, x0 + x, y0, x0 + x, y0 - len(rows) * row_height, "门窗表")
    for index, row in enumerate(rows):
        for left, right, cell in zip(columns, columns[1:], row):
            text(space, cell, x0 + (left + right) / 2, y0 - (index + 0.5) * row_height, 350, "门窗表")
    text(space, "门窗表", x0 + columns[-1] / 2, y0 + 800, 600, "文字说明", "黑体")


def sheet(doc):
    layout = doc.layouts.new("首层A1")
    layout.page_setup(size=(841, 594), margins=(10, 10, 10, 25), units="mm")
    rectangle(layout, 0, 0, 806, 574, "图框")
    rectangle(layout, 5, 5, 796, 564, "图框", const_width=0.7)
    title = layout.add_blockref("图签", (615, 10), dxfattribs={"layer": "图签"})
    title.add_auto_attribs({"工程名称": "示例住宅楼", "图名": "一层平面图", "比例": "1:100", "日期": "2026-11-21"})
    viewport = layout.add_viewport(center=(400, 320), size=(780, 480), view_center_point=(24000, 3000), view_height=48000)
    viewport.dxf.layer = "视口"
    doc.layouts.delete("Layout1")


def project_data(doc):
    data = doc.rootdict.get_required_dict("KX_PROJECT")
    record = data.add_xrecord("工程信息")
    record.reset([(1, "示例住宅楼"), (70, 6), (40, 3628.8), (90, 12)])


def make(path):
    doc = ezdxf.new("R2004")
    doc.encoding = "gbk"
    set_up(doc)
    blocks(doc)
    space = doc.modelspace()
    for index, (name, elevation) in enumerate(FLOORS):
        floor(doc, space, index, name, elevation)
    surroundings(space)
    south_front(space)
    schedule(space)
    sheet(doc)
    project_data(doc)
    doc.header["$CLAYER"] = "墙体"
    doc.header["$TEXTSTYLE"] = "仿宋"
    doc.header["$DIMSTYLE"] = "建筑标注"
    space.reset_extents((-7000, -3 * FLOOR_PITCH - 10000, 0), (120000, 20500, 3000))
    doc.set_modelspace_vport(height=120000, center=(50000, -32000))
    doc.saveas(path)
