"""Drawings that no library would write: old versions, odd habits of real programs, unknown classes, and faults."""
from .groups import EOF_MARK, ascii_bytes, binary_bytes, groups, header, point, section


def line(layer, x1, y1, x2, y2, *extra, handle=None):
    return groups(0, "LINE") + ([(5, handle)] if handle else []) + [(8, layer)] + list(extra) + point(10, x1, y1) + point(11, x2, y2)


def circle(layer, x, y, radius, *extra, handle=None):
    return groups(0, "CIRCLE") + ([(5, handle)] if handle else []) + [(8, layer)] + list(extra) + point(10, x, y) + [(40, float(radius))]


def old_text(layer, content, x, y, *extra):
    return groups(0, "TEXT", 8, layer) + list(extra) + point(10, x, y) + [(40, 2.5), (1, content)]


def insert(block, layer, x, y, *extra, handle=None):
    return groups(0, "INSERT") + ([(5, handle)] if handle else []) + [(8, layer), (2, block)] + point(10, x, y) + list(extra)


def old_table(name, *records):
    content = groups(0, "TABLE", 2, name, 70, len(records))
    for record in records:
        content += record
    return content + groups(0, "ENDTAB")


def old_layer(name, color=7, flags=0):
    return groups(0, "LAYER", 2, name, 70, flags, 62, color, 6, "CONTINUOUS")


CONTINUOUS = groups(0, "LTYPE", 2, "CONTINUOUS", 70, 64, 3, "Solid line", 72, 65, 73, 0, 40, 0.0)
STANDARD = groups(0, "STYLE", 2, "STANDARD", 70, 0, 40, 0.0, 41, 1.0, 50, 0.0, 71, 0, 42, 2.5, 3, "txt", 4, "")


def old_tables(*layers, appids=()):
    return section("TABLES", old_table("LTYPE", CONTINUOUS), old_table("LAYER", *layers), old_table("STYLE", STANDARD),
                   old_table("APPID", *(groups(0, "APPID", 2, name, 70, 0) for name in ("ACAD", *appids))))


def old_block(name, *content, flags=0, x=0.0, y=0.0):
    body = groups(0, "BLOCK", 8, "0", 2, name, 70, flags) + point(10, x, y) + [(3, name)]
    for part in content:
        body += part
    return body + groups(0, "ENDBLK", 8, "0")


# --- old versions and their code pages -------------------------------------------------------------------------------
def r12_plan():
    """Every layer state, blocks three deep, an attribute, xdata; without a single handle."""
    layers = [old_layer("0"), old_layer("墙体"), old_layer("门窗", -4), old_layer("轴线", 1, 4), old_layer("家具", 33, 1), old_layer("标注", -3, 5)]
    chair = old_block("椅子", circle("家具", 0, 0, 0.225))
    table = old_block("餐桌", insert("椅子", "家具", -0.4, 0.6), insert("椅子", "家具", 0.4, 0.6), line("0", -0.7, 0, 0.7, 0))
    room = old_block("餐厅", insert("餐桌", "家具", 2, 1.5, (50, 90.0)),
                     groups(0, "ATTDEF", 8, "标注") + point(10, 0, 0) + [(40, 0.25), (1, "1"), (3, "房号"), (2, "NR"), (70, 0)], flags=2)
    attribute = (groups(0, "ATTRIB", 8, "标注") + point(10, 3.6, 0) + [(40, 0.25), (1, "12"), (2, "NR"), (70, 0)] + groups(0, "SEQEND", 8, "墙体"))
    polyline = groups(0, "POLYLINE", 8, "墙体", 66, 1, 70, 1) + point(10, 0, 0)
    for x, y in ((0, 0), (7.2, 0), (7.2, 5), (0, 5)):
        polyline += groups(0, "VERTEX", 8, "墙体") + point(10, x, y)
    polyline += groups(0, "SEQEND", 8, "墙体")
    tagged = line("轴线", 3.6, -1, 3.6, 6) + groups(1001, "KX_TEST", 1000, "轴线 2", 1070, 2, 1040, 3.6, 1002, "{", 1003, "墙体", 1002, "}")
    return (header("AC1009", "ANSI_936", CLAYER=(8, "墙体")) + old_tables(*layers, appids=["KX_TEST"]) + section("BLOCKS", chair, table, room)
            + section("ENTITIES", polyline, tagged, insert("餐厅", "墙体", 3.6, 0, (66, 1)) + attribute, old_text("标注", "客厅", 1.8, 2.5),
                      circle("门窗", 1, 1, 0.5), insert("餐桌", "0", 1, 1)) + EOF_MARK)


def r12_german():
    """Latin letters above 127 without a code page in the header."""
    return (header("AC1009") + old_tables(old_layer("0"), old_layer("TÜREN", 4), old_layer("MÖBEL", -2))
            + section("ENTITIES", line("TÜREN", 0, 0, 1, 0), old_text("MÖBEL", "Küche 12 m²", 1, 1)) + EOF_MARK)


def small_with_texts(version, code_page, *texts):
    """R13 and R14 without owners; a text per line, the first one names the layer, too."""
    tables = section("TABLES", old_table("LTYPE", CONTINUOUS), old_table("LAYER", old_layer("0"), old_layer(texts[0], 2)), old_table("STYLE", STANDARD))
    content = []
    for row, text in enumerate(texts):
        content += (groups(0, "TEXT", 5, f"{0x40 + row:X}", 100, "AcDbEntity", 8, texts[0], 100, "AcDbText") + point(10, 0, 10 * row)
                    + [(40, 2.5), (1, text), (100, "AcDbText")])
    return header(version, code_page, HANDSEED=(5, "100")) + tables + section("BLOCKS") + section("ENTITIES", content) + section("OBJECTS") + EOF_MARK


# --- habits of real programs -----------------------------------------------------------------------------------------
def no_eof():
    return header("AC1009") + old_tables(old_layer("0"), old_layer("A", -1)) + section("ENTITIES", line("A", 0, 0, 1, 1), circle("A", 0, 0, 2))


def entities_only():
    return section("ENTITIES", line("0", 0, 0, 1, 1), circle("NEW_LAYER", 2, 3, 4), old_text("NEW_LAYER", "no table names this layer", 0, 0)) + EOF_MARK


def many_sections():
    content = []
    for index in range(60):
        content += section("ENTITIES", line(f"S{index % 3}", index, 0, index, 10))
    return content


def comments():
    comment = groups(999, "written by a test")
    return (comment + header("AC1009", "ANSI_1252") + comment + old_tables(old_layer("0"), comment + old_layer("C", 3))
            + section("ENTITIES", comment, line("C", 0, 0, 1, 1) + comment, circle("C", 0, 0, 1)) + comment + EOF_MARK)


def loose_numbers():
    """Numbers as careless programs write them."""
    odd = (groups(0, "LINE", 8, "0") + [(10, " 1.5"), (20, "+2.5"), (30, "0"), (11, "1.D2"), (21, "-.5E+1"), (31, "  0.0  ")]
           + groups(0, "CIRCLE", 8, "0") + [(10, "1,5"), (20, "2"), (30, ""), (40, "3.")])
    return header("AC1009") + old_tables(old_layer("0")) + section("ENTITIES", odd) + EOF_MARK


# --- drawings with handles and owners --------------------------------------------------------------------------------
def new_table(name, handle, *records, extra=()):
    content = groups(0, "TABLE", 2, name, 5, handle, 330, "0", 100, "AcDbSymbolTable", 70, len(records)) + list(extra)
    for record in records:
        content += record
    return content + groups(0, "ENDTAB")


def new_record(kind, subclass, handle, table, name, *rest):
    return (groups(0, kind, 105 if kind == "DIMSTYLE" else 5, handle, 330, table, 100, "AcDbSymbolTableRecord", 100, subclass, 2, name)
            + ([] if kind == "BLOCK_RECORD" else [(70, 0)]) + list(rest))


def new_layer(handle, name, color=7, flags=0, *extra):
    return (groups(0, "LAYER", 5, handle, 330, "2", 100, "AcDbSymbolTableRecord", 100, "AcDbLayerTableRecord", 2, name, 70, flags, 62, color,
                   6, "Continuous") + list(extra))


def new_block(name, record, begin, end, *content, flags=0, path=None):
    body = groups(0, "BLOCK", 5, begin, 330, record, 100, "AcDbEntity", 8, "0", 100, "AcDbBlockBegin", 2, name, 70, flags) + point(10, 0, 0)
    body += [(3, name), (1, path or "")]
    for part in content:
        body += part
    return body + groups(0, "ENDBLK", 5, end, 330, record, 100, "AcDbEntity", 8, "0", 100, "AcDbBlockEnd")


def entity(kind, handle, layer, subclass, *rest, owner="20"):
    return groups(0, kind, 5, handle, 330, owner, 100, "AcDbEntity", 8, layer, 100, subclass) + list(rest)


def new_line(handle, layer, *extra, owner="20"):
    return entity("LINE", handle, layer, "AcDbLine", *(point(10, 0, 0) + point(11, 100, 50)), *extra, owner=owner)


def dictionary(handle, owner, *entries):
    content = groups(0, "DICTIONARY", 5, handle, 330, owner, 100, "AcDbDictionary", 281, 1)
    for name, value in entries:
        content += [(3, name), (350, value)]
    return content


def layout(handle, name, order, record):
    return groups(0, "LAYOUT", 5, handle, 330, "1A", 100, "AcDbPlotSettings", 1, "", 100, "AcDbLayout", 1, name, 70, 1, 71, order, 330, record)


def drawing(entities, layers=(), records=(), blocks=(), objects=(), root=(), classes=(), version="AC1015", seed="FFFF", linetypes=(), after=()):
    """The frame of an R2000 drawing. Its own handles are below 40."""
    tables = [
        new_table("VPORT", "8", new_record("VPORT", "AcDbViewportTableRecord", "28", "8", "*Active")),
        new_table("LTYPE", "5", *(new_record("LTYPE", "AcDbLinetypeTableRecord", handle, "5", name, (3, ""), (72, 65), (73, 0), (40, 0.0))
                                  for handle, name in (("24", "ByBlock"), ("25", "ByLayer"), ("26", "Continuous"))), *linetypes),
        new_table("LAYER", "2", new_layer("10", "0"), *layers),
        new_table("STYLE", "3", new_record("STYLE", "AcDbTextStyleTableRecord", "11", "3", "Standard", (40, 0.0), (41, 1.0), (50, 0.0), (71, 0), (42, 2.5), (3, "txt"), (4, ""))),
        new_table("VIEW", "6"), new_table("UCS", "7"),
        new_table("APPID", "9", new_record("APPID", "AcDbRegAppTableRecord", "12", "9", "ACAD")),
        new_table("DIMSTYLE", "A", new_record("DIMSTYLE", "AcDbDimStyleTableRecord", "27", "A", "Standard"), extra=groups(100, "AcDbDimStyleTable", 71, 0)),
        new_table("BLOCK_RECORD", "1", new_record("BLOCK_RECORD", "AcDbBlockTableRecord", "20", "1", "*Model_Space", (340, "1B")),
                  new_record("BLOCK_RECORD", "AcDbBlockTableRecord", "1C", "1", "*Paper_Space", (340, "1F")), *records),
    ]
    return (header(version, "ANSI_1252", HANDSEED=(5, seed), CLAYER=(8, "0")) + section("CLASSES", *classes) + section("TABLES", *tables)
            + section("BLOCKS", new_block("*Model_Space", "20", "21", "22"), new_block("*Paper_Space", "1C", "1D", "1E"), *blocks)
            + section("ENTITIES", *entities)
            + section("OBJECTS", dictionary("C", "0", ("ACAD_GROUP", "D"), ("ACAD_LAYOUT", "1A"), *root), dictionary("D", "C"),
                      dictionary("1A", "C", ("Model", "1B"), ("Layout1", "1F")), layout("1B", "Model", 0, "20"), layout("1F", "Layout1", 1, "1C"), *objects)
            + list(after) + EOF_MARK)


def class_record(name, cpp, is_entity, proxy_flags=0):
    return groups(0, "CLASS", 1, name, 2, cpp, 3, "KX Test Application|made for tests", 90, proxy_flags, 280, 0, 281, 1 if is_entity else 0)


def proxies():
    """Unknown entities and objects, proxies, unknown groups of known classes, an unknown section."""
    wall = entity("KX_WALL", "50", "墙", "KxDbWall", (90, 3), *point(10, 0, 0), *point(11, 7200, 0), (40, 240.0), (1, "240墙"), (290, 1),
                  (310, "0102030405060708090A0B0C0D0E0F"), (340, "11"), (330, "51"), (1001, "ACAD"), (1000, "xdata of an unknown class"))
    proxy = groups(0, "ACAD_PROXY_ENTITY", 5, "51", 330, "20", 100, "AcDbEntity", 8, "墙", 100, "AcDbProxyEntity", 90, 498, 91, 500, 92, 8,
                   310, "0800000000000000", 93, 64, 310, "DEADBEEF00000000", 330, "50", 94, 0)
    extended = (groups(0, "LINE", 5, "52", 102, "{ACAD_REACTORS", 330, "50", 102, "}", 102, "{ACAD_XDICTIONARY", 360, "60", 102, "}", 330, "20",
                       100, "AcDbEntity", 8, "墙", 370, 50, 100, "AcDbLine") + point(10, 1, 2) + point(11, 3, 4)
                + groups(100, "KxDbLineExtra", 70, 12, 48, 2.5, 1, "a subclass that nobody knows"))
    circle_extra = entity("CIRCLE", "53", "0", "AcDbCircle", *point(10, 5, 5), (40, 2.5), (91, 77), (466, 0.125))
    data = groups(0, "KX_PROJECT_DATA", 5, "61", 330, "C", 100, "KxDbProject", 1, "工程", 90, 2, 330, "50", 330, "51", 360, "62", 290, 0, 1010, 1.0, 1020, 2.0, 1030, 3.0)
    owned = groups(0, "KX_PROJECT_PART", 5, "62", 330, "61", 100, "KxDbPart", 160, 5000000000, 40, 1e-300, 40, 1.7976931348623157e308)
    proxy_object = groups(0, "ACAD_PROXY_OBJECT", 5, "63", 330, "C", 100, "AcDbProxyObject", 90, 499, 91, 501, 93, 32, 310, "CAFEBABE", 350, "61", 94, 0)
    record = groups(0, "XRECORD", 5, "64", 330, "60", 100, "AcDbXrecord", 280, 1, 1, "in an extension dictionary", 10, 1.0, 20, 2.0, 30, 3.0, 330, "50", 102, "KX", 70, -1)
    return drawing([wall, proxy, extended, circle_extra], layers=[new_layer("40", "墙", 2)],
                   classes=[class_record("KX_WALL", "KxDbWall", True, 1023), class_record("KX_PROJECT_DATA", "KxDbProject", False),
                            class_record("KX_PROJECT_PART", "KxDbPart", False)],
                   root=[("KX_DATA", "61"), ("KX_PROXY", "63")],
                   objects=[dictionary("60", "52", ("KX_RECORD", "64")), data, owned, proxy_object, record], version="AC1021",
                   after=section("KXSECTION", groups(0, "KXTHING", 5, "70", 1, "a section of its own", 90, 1)))


def xref():
    """An external reference that is not there, with the layers and blocks that came from it."""
    return drawing([entity("INSERT", "50", "0", "AcDbBlockReference", (2, "BASE"), *point(10, 0, 0)), new_line("51", "0")],
                   layers=[new_layer("40", "BASE|WALLS", 2, 48), new_layer("41", "BASE|DOORS", -3, 49), new_layer("42", "OWN", 4, 4)],
                   linetypes=[new_record("LTYPE", "AcDbLinetypeTableRecord", "45", "5", "BASE|DASHED", (3, ""), (72, 65), (73, 0), (40, 0.0))],
                   records=[new_record("BLOCK_RECORD", "AcDbBlockTableRecord", "30", "1", "BASE", (340, "0"))],
                   blocks=[new_block("BASE", "30", "31", "32", flags=4, path="plans\\base.dwg")])


def escaped_texts():
    """The same letters by \\U+ and \\M+ escapes, carets and format codes; R2000 knows no other way for them in this code page."""
    rows = ["\\U+5899\\U+4F53", "\\M+5C7BD\\M+5CCE5", "mixed \\U+5899 and \\M+5C7BD", "not an escape: \\U+12 \\M+9ABCD \\U+ZZZZ", "%%c20 %%p0.000 %%d %%%",
            "caret ^I tab ^ caret ^J", "trailing blanks   ", "   leading blanks", ""]
    content = []
    for row, text in enumerate(rows):
        content += entity("TEXT", f"{0x50 + row:X}", "\\U+5899", "AcDbText", *point(10, 0, 10 * row), (40, 2.5), (1, text), (100, "AcDbText"))
    return drawing([content], layers=[new_layer("40", "\\U+5899", 2)])


# --- faults ----------------------------------------------------------------------------------------------------------
def bad_handles():
    """Handles twice, none, zero, too long, no number; owners and references to nothing; a seed below all of them."""
    return drawing([new_line("50", "0"), new_line("50", "0"), new_line("0", "0"), new_line("FFFFFFFFFFFFFFFFFFFF", "0"), new_line("XYZ", "0"),
                    new_line("", "0"), new_line("51", "0", owner="ABCDEF"), new_line("FFFFFFFFFFFFFFFE", "0"), new_line("52", "NO_SUCH_LAYER"),
                    entity("INSERT", "53", "0", "AcDbBlockReference", (2, "NO_SUCH_BLOCK"), *point(10, 0, 0)), new_line("20", "0"),
                    groups(0, "LINE", 5, "54", 5, "55", 330, "20", 330, "1C", 100, "AcDbEntity", 8, "0", 8, "TWICE", 100, "AcDbLine") + point(10, 0, 0) + point(11, 1, 1)],
                   root=[("LOST", "7777"), ("LAYER_ONE", "10")], seed="1")


def cycles():
    """Blocks that insert themselves and one another, dictionaries that own themselves, a group that holds itself."""
    def reference(handle, block, owner):
        return entity("INSERT", handle, "0", "AcDbBlockReference", (2, block), *point(10, 1, 1), owner=owner)

    return drawing([reference("50", "SELF", "20"), reference("51", "PING", "20"), groups(0, "LINE", 5, "52", 330, "52", 100, "AcDbEntity", 8, "0", 100, "AcDbLine")
                    + point(10, 0, 0) + point(11, 1, 1)],
                   records=[new_record("BLOCK_RECORD", "AcDbBlockTableRecord", handle, "1", name, (340, "0"))
                            for handle, name in (("30", "SELF"), ("33", "PING"), ("36", "PONG"))],
                   blocks=[new_block("SELF", "30", "31", "32", reference("53", "SELF", "30")), new_block("PING", "33", "34", "35", reference("54", "PONG", "33")),
                           new_block("PONG", "36", "37", "38", reference("55", "PING", "36"))],
                   root=[("RING", "60"), ("ROOT", "C")],
                   objects=[dictionary("60", "61", ("NEXT", "61")), dictionary("61", "60", ("NEXT", "60"), ("SELF", "61")),
                            groups(0, "GROUP", 5, "62", 330, "62", 100, "AcDbGroup", 300, "holds itself", 70, 0, 71, 1, 340, "62", 340, "50"),
                            groups(0, "XRECORD", 5, "63", 102, "{ACAD_XDICTIONARY", 360, "63", 102, "}", 330, "63", 100, "AcDbXrecord", 280, 1, 330, "63")])


def absurd_counts():
    """Counts and numbers that no memory and no loop should follow."""
    def polyline(handle, count, *vertices):
        return entity("LWPOLYLINE", handle, "0", "AcDbPolyline", (90, count), (70, 0), *vertices)

    two = [(10, 0.0), (20, 0.0), (10, 1.0), (20, 1.0)]
    spline = entity("SPLINE", "53", "0", "AcDbSpline", (70, 8), (71, 32767), (72, 32767), (73, -1), (74, 2147483647), (40, 0.0), *point(10, 0, 0))
    hatch = entity("HATCH", "54", "0", "AcDbHatch", *point(10, 0, 0), (210, 0.0), (220, 0.0), (230, 1.0), (2, "SOLID"), (70, 1), (71, 0), (91, 2000000000),
                   (92, 2), (72, 0), (73, 1), (93, -5), (10, 0.0), (20, 0.0), (97, 1073741824), (75, 0), (76, 1), (98, 2147483647))
    arc = entity("ARC", "55", "0", "AcDbCircle", *point(10, 0, 0), (40, "nan"), (100, "AcDbArc"), (50, "inf"), (51, "-1e999"))
    mline = entity("MLINE", "56", "0", "AcDbMline", (2, "STANDARD"), (340, "18"), (40, 1.0), (70, 0), (71, 0), (72, 32767), (73, 32767), *point(10, 0, 0))
    short = entity("LINE", "57", "0", "AcDbLine", (10, 1.0))
    far = entity("CIRCLE", "58", "0", "AcDbCircle", *point(10, 1e308, -1e308), (40, -1e308))
    text = entity("TEXT", "59", "0", "AcDbText", *point(10, 0, 0), (40, 0.0), (1, "x" * 20000), (71, 999), (72, -7), (100, "AcDbText"))
    linetype = groups(0, "LTYPE", 5, "45", 330, "5", 100, "AcDbSymbolTableRecord", 100, "AcDbLinetypeTableRecord", 2, "ABSURD", 70, 0, 3, "", 72, 65, 73, 32767,
                      40, -1.0, 49, 1.0, 74, 2)
    proxy = groups(0, "ACAD_PROXY_ENTITY", 5, "5A", 330, "20", 100, "AcDbEntity", 8, "0", 100, "AcDbProxyEntity", 90, 498, 91, 99999, 92, 2147483647, 310, "00",
                   93, -1, 310, "01", 94, 0)
    return drawing([polyline("50", 2147483647, *two), polyline("51", -1, *two), polyline("52", 0), spline, hatch, arc, mline, short, far, text, proxy],
                   linetypes=[linetype])


def long_xdata():
    """The longest texts that fit one group, points, numbers at their limits, deep lists."""
    deep = [(1002, "{")] * 40 + [(1070, 1)] + [(1002, "}")] * 40
    data = [(1001, "ACAD"), (1000, "墙" * 255), (1000, ""), (1004, "00FF" * 60), (1005, "50"), (1010, 1.0), (1020, 2.0), (1030, 3.0), (1011, -1.0), (1021, 0.0),
            (1031, 1e99), (1040, 0.1), (1041, 1e-9), (1042, 2.5), (1070, -32768), (1070, 32767), (1071, -2147483648), (1071, 2147483647)] + deep
    return drawing([new_line("50", "0", *data)], version="AC1021")


# file name -> bytes
def files():
    gbk = r12_plan()
    return {
        "r12_gbk.dxf": ascii_bytes(gbk, "gbk"),
        "r12_gbk_binary.dxf": binary_bytes(gbk, "gbk", one_byte_codes=True),
        "r12_latin.dxf": ascii_bytes(r12_german(), "cp1252", end="\n"),
        "r13_dos932.dxf": ascii_bytes(small_with_texts("AC1012", "dos932", "壁ソ", "間取り図 表示", "ｶﾀｶﾅ 5畳"), "cp932"),
        "r13_dos850.dxf": ascii_bytes(small_with_texts("AC1012", "dos850", "MÖBEL", "Größe ½ ±0", "Ø 20"), "cp850", end="\n"),
        "r14_gbk.dxf": ascii_bytes(small_with_texts("AC1014", "ANSI_936", "墙体", "客厅、餐厅", "标高±0.000"), "gbk"),
        "r14_big5.dxf": ascii_bytes(small_with_texts("AC1014", "ANSI_950", "牆體", "客廳", "許功蓋"), "cp950"),
        "no_eof.dxf": ascii_bytes(no_eof(), end="\n"),
        "entities_only.dxf": ascii_bytes(entities_only(), end="\n", pad=0),
        "many_sections.dxf": ascii_bytes(many_sections(), end="\n", pad=1),
        "comments.dxf": ascii_bytes(comments(), pad=6),
        "loose_numbers.dxf": ascii_bytes(loose_numbers()),
        "proxies.dxf": ascii_bytes(proxies(), "utf-8"),
        "xref.dxf": ascii_bytes(xref()),
        "escaped_texts.dxf": ascii_bytes(escaped_texts()),
        "bad_handles.dxf": ascii_bytes(bad_handles()),
        "cycles.dxf": ascii_bytes(cycles()),
        "absurd_counts.dxf": ascii_bytes(absurd_counts()),
        "long_xdata.dxf": ascii_bytes(long_xdata(), "utf-8"),
        "r2007_proxies_binary.dxf": binary_bytes(proxies(), "utf-8"),
    }
