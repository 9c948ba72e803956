#include "Layout.h"
#include <cstring>
#include <iterator>
#include <string>
#include <unordered_map>

namespace KxPlat {

namespace {

struct SharedText {
    const char* name;
    const char* text;
};

const SharedText kShared[] = {
    {"SOLIDBODY", "BT 39; BD 30,31,32,33; 2RD 10; 2RD 11; 2RD 12; 2RD 13; BE 210;"},
    {"TEXTBODY",
     R"(if v<=14 {
  BD 30; 2RD 10; 2RD 11; 3BD 210; BD 39; BD 51a; BD 50a; BD 40; BD 41; T 1; BS 71; BS 72; BS $;
} else {
  RC df auto;
  if !df&1 { RD 30; }
  2RD 10;
  if !df&2 { 2DD 11(10); }
  BE 210; BT 39;
  if !df&4 { RD 51a; }
  if !df&8 { RD 50a; }
  RD 40;
  if !df&16 { RD 41; }
  T 1;
  if !df&32 { BS 71; }
  if !df&64 { BS 72; }
  if !df&128 { BS $; }
}
ALIGNED 31(30);
H 7;)"},
    {"ATTRIBUTE",
     R"(use TEXTBODY(74);
if v>=2010 { RC 280; }
if v>=2018 {
  RC kind;
  if kind>1 { use INNERTEXT; }
}
T 2; BS 73; RC 70;
if v>=2007 { B 280^2; })"},
    // A paragraph within an attribute; its values are those of the attribute's own text.
    {"INNERTEXT",
     R"(BB mode; BL nr; B nox; B _; BS _; BD _; BB lt; BB mat; RC _; BB ps; B vs1; B vs2; B vs3; BS _; RC _;
if mode==0 { H _; }
H[nr] _;
if !nox { H _; }
H _;
if lt==3 { H _; }
if mat==3 { H _; }
if ps==3 { H _; }
if vs1 { H _; }
if vs2 { H _; }
if vs3 { H _; }
3BD _; 3BD _; 3BD _; BD _; BD _; BD _; BS _; BS _; BD _; BD _; T _; H _; BS _; BD _; B _;
BL bg;
if bg&17 { BD _; CMC _; BL _; }
use COLUMNS;
BS na;
if na { RC[na] _; H _; BS _; })"},
    {"COLUMNS",
     R"(B plain;
if plain {
  BS _; B _; H _; BL _; 3BD _; 3BD _; BD _; BD _; BD _; BD _; BS columns;
  if columns {
    BL nh; BD _; BD _; B auto1; B _;
    if !auto1 { if columns==2 { BD[nh] _; } }
  }
})"},
    {"INSERTBODY",
     R"(3BD 10;
if v<=14 { BD 41; BD 42; BD 43; } else { SCALE 41; }
BD 50a; 3BD 210; B parts:66 calc(HASPARTS);
if v>=2004 { if parts { BL owned calc(PARTCOUNT); } })"},
    {"SPLINEFIT", "BD 44; 3BD 12; 3BD 13; BL n; 3BD[n] 11; FITCURVE 70;"},
    {"SPLINECONTROL",
     R"(B 70&4; B 70&1; B 70&2; BD 42; BD 43; BL nk; BL nc; B weighted calc(WEIGHTED); BD[nk] 40;
for nc { 3BD 10; if weighted { BD 41; } })"},
    {"VIEWLIGHTS", "B 292; RC 282; BD 141; BD 142; CMC 63;"},
    {"DIMENSION",
     R"(if v>=2010 { RC 280#2; }
3BD 210; 2RD 11#2; BD 31#2; RC _ map(1=70#2&!128,2=70#2&32) base(70#2,$); T 1#2; BD 53a; BD 51a; BD _=1; BD _=1; BD _=1; BD _;
if v>=2000 { BS 71#2; BS 72#2; BD 41#2; BD 42#2; }
if v>=2007 { B 73#2; B 74#2; B 75#2; }
2RD 12#2;)"},
    {"DIMSTYLEANDBLOCK", "H 3; H 2;"},
    {"UNDERLAY",
     R"(3BD 210; 3BD 10; BD 50a; BD 41; BD 42; BD 43; RC flag:280; RC 281; RC 282; BL n; 2RD[n] 11;
if flag&16 { BS ni; 2RD[ni] 12; }
H 340;)"},
    {"IMAGE",
     R"(BL 90; 3BD 10; 3BD 11; 3BD 12; 2RD 13; BS 70; B 280; RC 281; RC 282; RC 283;
if v>=2010 { B 290; }
BS form:71;
if form==1 { 2RD 14; 2RD 14; } else { OUTLINE 14; }
H5 340; H3 360;)"},
    {"PLOTBODY",
     R"(T 1#1; T 2#1; BS 70#1; BD 40#1; BD 41#1; BD 42#1; BD 43#1; BD 44#1; BD 45#1; T 4#1; BD 46#1; BD 47#1; BS 72#1; BS 73#1;
BS 74#1; BD 48#1; BD 49#1; BD 140#1; BD 141#1;
if v<=2000 { T 6#1; }
BD 142#1; BD 143#1; T 7#1; BS 75#1; BD 147#1; BD 148#1; BD 149#1;
if v>=2004 { BS 76#1; BS 77#1; BS 78#1; NAMEDBY 6#1; }
if v>=2007 { H4 333#1; })"},
    {"RECORD",
     R"(T 2;
if v<=2004 { B _=1; BS _; B 70&16; } else { BS _ map(256=70&16); }
XREF;)"},
    {"CONTROL", "TABLE;"},
    {"POLYPARTS", "if v>=2004 { BL owned calc(PARTCOUNT); } PARTS[owned];"},
};

const char* const kDimStyleNew = R"(
T 3~; T 4~; BD 40~1; BD 41~0.18; BD 42~0.0625; BD 43~0.38; BD 44~0.18; BD 45~0; BD 46~0; BD 47~0; BD 48~0;
if v>=2007 { BD 49~1; BD 50a~45; BS 69~0; CMC 70^2~0; }
B 71~0; B 72~0; B 73~1; B 74~1; B 75~0; B 76~0; BS 77~0; BS 78~0; BS 79~0;
if v>=2007 { BS 90~0; }
BD 140~0.18; BD 141~0.09; BD 142~0; BD 143~25.4; BD 144~1; BD 145~0; BD 146~1; BD 147~0.09; BD 148~0;
B 170~0; BS 171~2; B 172~0; B 173~0; B 174~0; B 175~0; CMC 176~0; CMC 177~0; CMC 178~0;
BS 179~0; BS 271~4; BS 272~4; BS 273~2; BS 274~2; BS 275~0; BS 276~0; BS 277~2; BS 278~46; BS 279~0; BS 280~0;
B 281~0; B 282~0; BS 283~1; BS 284~0; BS 285~0; BS 286~0; B 288~0; BS 289~3;
if v>=2007 { B 290~0; }
if v>=2010 { B 294~0; BD 295~100; T 296~; BD 297~100; T 298~; }
BS 371~-2; BS 372~-2; B 70&1;
H 340; H 341; H 342; H 343; H 344;
if v>=2007 { H 345; H 346; H 347; })";

const char* const kDimStyleOld = R"(
B 71~0; B 72~0; B 73~1; B 74~1; B 75~0; B 76~0; B 170~0; B 172~0; B 173~0; B 174~0; B 175~0; RC 171~2; RC 78~0;
B 281~0; B 282~0; RC 283~1; RC 280~0; RC 287~3; B 288~0; RC 284~0; RC 285~0; RC 286~0; RC 77~0; BS 270~2; BS 275~0;
BS 271~4; BS 272~4; BS 273~2; BS 274~2;
BD 40~1; BD 41~0.18; BD 42~0.0625; BD 43~0.38; BD 44~0.18; BD 45~0; BD 46~0; BD 47~0; BD 48~0; BD 140~0.18; BD 141~0.09;
BD 142~0; BD 143~25.4; BD 144~1; BD 145~0; BD 146~1; BD 147~0.09;
T 3~; T 4~; T 5~; T 6~; T 7~; CMC 176~0; CMC 177~0; CMC 178~0; B 70&1; H 340;)";

const Layout kLayouts[] = {
    // Curves and points
    {"POINT", 27, true, L"AcDbPoint", "3BD 10; BT 39; BE 210; BD 50a;"},
    {"LINE", 19, true, L"AcDbLine",
     R"(if v<=14 { 3BD 10; 3BD 11; } else {
  B flat auto; RD 10; DD 11(10); RD 20; DD 21(20);
  if !flat&1 { RD 30; DD 31(30); }
}
BT 39; BE 210;)"},
    {"CIRCLE", 18, true, L"AcDbCircle", "3BD 10; BD 40; BT 39; BE 210;"},
    {"ARC", 17, true, L"AcDbArc", "3BD 10; BD 40; BT 39; BE 210; BD 50a; BD 51a;"},
    {"ELLIPSE", 35, true, L"AcDbEllipse", "3BD 10; 3BD 11; 3BD 210; BD 40; BD 41; BD 42;"},
    {"RAY", 40, true, L"AcDbRay", "3BD 10; 3BD 11;"},
    {"XLINE", 41, true, L"AcDbXline", "3BD 10; 3BD 11;"},
    {"SOLID", 31, true, L"AcDbSolid", "use SOLIDBODY;"},
    {"TRACE", 32, true, L"AcDbTrace", "use SOLIDBODY;"},
    {"3DFACE", 28, true, L"AcDbFace",
     R"(if v<=14 { 3BD 10; 3BD 11; 3BD 12; 3BD 13; BS 70; } else {
  B all auto; B flat auto; RD 10; RD 20;
  if !flat&1 { RD 30; }
  3DD 11(10); 3DD 12(11); 3DD 13(12);
  if !all&1 { BS 70; }
})"},
    {"SHAPE", 33, true, nullptr,
     "3BD 10; BD 40; BD 50a~0; BD 41~1; BD 51a~0; BD 39~0; SHAPENUMBER 2; 3BD 210~0,0,1; SHAPESTYLE;",
     "@AcDbShape 39 10 40 2 50 41 51 210"},
    {"SPLINE", 36, true, L"AcDbSpline",
     R"(BL scenario calc(SPLINEKIND);
if v>=2013 {
  BL flags; BL parameter; BL 71;
  if flags&1 { if parameter==15 { use SPLINECONTROL; } else { use SPLINEFIT; } } else { use SPLINECONTROL; }
} else {
  BL 71;
  if scenario==2 { use SPLINEFIT; } else { use SPLINECONTROL; }
})"},
    {"LWPOLYLINE", 77, true, L"AcDbPolyline",
     R"(BS flag auto calc(VERTEXBITS) map(512=70&1,256=70&128);
if flag&4 { BD 43; }
if flag&8 { BD 38; }
if flag&2 { BD 39; }
if flag&1 { 3BD 210; }
VERTICES[flag] 10;)"},

    // Texts, blocks, insertions
    {"TEXT", 1, true, L"AcDbText", "use TEXTBODY(73);"},
    {"ATTRIB", 2, true, L"AcDbAttribute", "use ATTRIBUTE;"},
    {"ATTDEF", 3, true, L"AcDbAttributeDefinition", "use ATTRIBUTE; if v>=2010 { RC _; } T 3;"},
    {"MTEXT", 44, true, L"AcDbMText",
     R"(3BD 10; 3BD 210; PARAGRAPHDIRECTION 11,50; BD 41;
if v>=2007 { BD 46=0; }
BD 40; BS 71; BS 72; BD 43~0; BD 42~0; PARAGRAPH 1; H 7;
if v>=2000 { BS 73; BD 44; B _; }
if v>=2004 {
  BL bg:90~0;
  if v>=2018 { if bg&17 { BD 45=1.5; CMC 63; BL 441~0; } } else { if bg&1 { BD 45=1.5; CMC 63; BL 441~0; } }
}
if v>=2018 { use COLUMNS; })"},
    {"BLOCK", 4, true, L"AcDbBlockBegin", "BLOCKNAME 2;"},
    {"ENDBLK", 5, true, L"AcDbBlockEnd", ""},
    {"SEQEND", 6, true, L"AcDbSequenceEnd", ""},
    {"INSERT", 7, true, L"AcDbBlockReference", "use INSERTBODY; H 2; if parts { PARTS[owned]; }"},
    {"INSERT", 8, true, L"AcDbMInsertBlock",
     "use INSERTBODY; BS 70; BS 71; BD 44; BD 45; H 2; if parts { PARTS[owned]; }"},

    // Old polylines
    {"VERTEX", 10, true, L"AcDb2dVertex", "RC 70; 3BD 10; WIDTHS 40,41; BD 42; if v>=2010 { BL 91; } BD 50a;"},
    {"VERTEX", 11, true, L"AcDb3dPolylineVertex", "RC 70; 3BD 10;"},
    {"VERTEX", 12, true, L"AcDbPolygonMeshVertex", "RC 70; 3BD 10;"},
    {"VERTEX", 13, true, L"AcDbPolyFaceMeshVertex", "RC 70; 3BD 10;"},
    {"VERTEX", 14, true, L"AcDbFaceRecord", "BS 71; BS 72; BS 73; BS 74; CONST 70=128;"},
    {"POLYLINE", 15, true, L"AcDb2dPolyline",
     "BS 70; BS 75; BD 40; BD 41; BT 39; BD 30; BE 210; CONST 66=1; use POLYPARTS;"},
    {"POLYLINE", 16, true, L"AcDb3dPolyline",
     "RC curve calc(CURVEKIND); CURVE3D[curve] 75,70; RC _ map(1=70&1) base(70,8); CONST 66=1; use POLYPARTS;"},
    {"POLYLINE", 29, true, L"AcDbPolyFaceMesh", "BS 71; BS 72; CONST 70=64; CONST 66=1; use POLYPARTS;"},
    {"POLYLINE", 30, true, L"AcDbPolygonMesh", "BS 70; BS 75; BS 71; BS 72; BS 73; BS 74; CONST 66=1; use POLYPARTS;"},

    // Dimensions and notes
    {"DIMENSION", 20, true, L"AcDbOrdinateDimension",
     "use DIMENSION(6); 3BD 10; 3BD 13; 3BD 14; RC _ map(1=70#2&64); use DIMSTYLEANDBLOCK;"},
    {"DIMENSION", 21, true, L"AcDbRotatedDimension",
     "use DIMENSION(0); 3BD 13; 3BD 14; 3BD 10; BD 52a; BD 50a; use DIMSTYLEANDBLOCK;"},
    {"DIMENSION", 22, true, L"AcDbAlignedDimension",
     "use DIMENSION(1); 3BD 13; 3BD 14; 3BD 10; BD 52a; use DIMSTYLEANDBLOCK;"},
    {"DIMENSION", 23, true, L"AcDb3PointAngularDimension",
     "use DIMENSION(5); 3BD 10; 3BD 13; 3BD 14; 3BD 15; use DIMSTYLEANDBLOCK;"},
    {"DIMENSION", 24, true, L"AcDb2LineAngularDimension",
     "use DIMENSION(2); 2RD 16; 3BD 13; 3BD 14; 3BD 15; 3BD 10; use DIMSTYLEANDBLOCK;"},
    {"DIMENSION", 25, true, L"AcDbRadialDimension", "use DIMENSION(4); 3BD 10; 3BD 15; BD 40; use DIMSTYLEANDBLOCK;"},
    {"DIMENSION", 26, true, L"AcDbDiametricDimension",
     "use DIMENSION(3); 3BD 15; 3BD 10; BD 40; use DIMSTYLEANDBLOCK;"},
    {"ARC_DIMENSION", 0, true, L"AcDbArcDimension",
     R"(use DIMENSION(5); 3BD 10; 3BD 13; 3BD 14; 3BD 15; B 70#3; BD 40#3; BD 41#3; B 71#3; 3BD 16; 3BD 17;
use DIMSTYLEANDBLOCK;)"},
    {"LARGE_RADIAL_DIMENSION", 0, true, L"AcDbRadialDimensionLarge",
     "use DIMENSION(4); 3BD 10; 3BD 15; BD 40; 3BD 13; 3BD 14; use DIMSTYLEANDBLOCK;"},
    {"LEADER", 45, true, L"AcDbLeader",
     R"(B _; BS 73; BS 72; BL n; 3BD[n] 10; 3BD _; 3BD 210; 3BD 211; 3BD 212;
if v>=14 { 3BD 213; }
if v<=14 { BD _; }
if v<=2007 { BD 40; BD 41; }
B 74; B 71;
if v<=14 { BS _; BD _; B _; B _; BS _; BS 77; B _; B _; } else { BS _; B _; B _; }
H 340; H 3;)"},
    {"TOLERANCE", 46, true, L"AcDbFcf", "if v<=14 { BS _; BD _; BD _; } 3BD 10; 3BD 11; 3BD 210; T 1; H 3;"},
    {"MLINE", 47, true, L"AcDbMline",
     R"(BD 40; RC 70; 3BD 10; 3BD 210; BS 71; RC lines:73; BS nv;
for nv {
  3BD 11; 3BD 12; 3BD 13;
  for lines { BS ns:74; BD[ns] 41; BS nf:75; BD[nf] 42; }
}
MLINESTYLE 340,2;)"},

    // Areas, views, pictures
    {"HATCH", 78, true, L"AcDbHatch",
     R"(if v>=2004 {
  BL 450; BL 451; BD 460; BD 461; BL 452; BD 462; BL nc:453;
  for nc { BD 463; CMC 63; }
  T 470;
}
BD 30; 3BD 210; T 2; B solid:70; B 71; BL np;
for np {
  BL path:92; OR derived path;
  if !path&2 {
    BL ne:93;
    for ne {
      RC kind:72;
      if kind==1 { 2RD 10; 2RD 11; }
      if kind==2 { 2RD 10; BD 40; BD 50a; BD 51a; B 73; }
      if kind==3 { 2RD 10; 2RD 11; BD 40; BD 50a; BD 51a; B 73; }
      if kind==4 {
        BL 94; B rational:73; B 74; BL nk:95; BL nq:96; BD[nk] 40;
        for nq { 2RD 10; if rational { BD 42; } }
        if v>=2010 { BL nfit:97; if nfit { 2RD[nfit] 11; 2RD 12; 2RD 13; } } else { EAT 97; }
      }
    }
  } else {
    B bulges:72; B 73; BL npv:93;
    for npv { 2RD 10; if bulges { BD 42; } }
  }
  BL nb:97; H4[nb] 330;
}
BS 75; BS 76;
if !solid {
  BD 52a; BD 41; B 77; BS nd:78;
  for nd { BD 53a; BD 43; BD 44; BD 45; BD 46; BS na:79; BD[na] 49; }
}
if derived&4 { BD 47; }
BL ns; 2RD[ns] 10;)"},
    {"VIEWPORT", 34, true, L"AcDbViewport",
     R"(3BD 10; BD 40; BD 41;
if v>=2000 {
  3BD 17; 3BD 16; BD 51a; BD 45; BD 42; BD 43; BD 44; BD 50a; 2RD 12; 2RD 13; 2RD 14; 2RD 15; BS 72;
  if v>=2007 { BS 61=5; }
  BL nf; BL 90; T 1; RC 281; B 74; B 71; 3BD 110; 3BD 111; 3BD 112; BD 146; BS 79;
  if v>=2004 { BS 170; }
  if v>=2007 { use VIEWLIGHTS; }
  H4[nf] 331; H 340;
  if v==2000 { H _; }
  H 345; H 346;
  if v>=2007 { H4 332; H 348; H4 333; H3 361; }
} else { H _; })"},
    {"IMAGE", 0, true, L"AcDbRasterImage", "use IMAGE;"},
    {"WIPEOUT", 0, true, L"AcDbWipeout", "use IMAGE;"},
    // Its picture is an anonymous block, inserted like any other; the rest stays as it is.
    {"ACAD_TABLE", 0, true, L"AcDbTable", "use INSERTBODY; REST; H 2;", "", true},
    {"PDFUNDERLAY", 0, true, nullptr, "use UNDERLAY;", "@AcDbUnderlayReference 340+ 10 41 42 43 50 210 280 281 282"},
    {"DWFUNDERLAY", 0, true, nullptr, "use UNDERLAY;", "@AcDbUnderlayReference 340+ 10 41 42 43 50 210 280 281 282"},
    {"DGNUNDERLAY", 0, true, nullptr, "use UNDERLAY;", "@AcDbUnderlayReference 340+ 10 41 42 43 50 210 280 281 282"},
    {"OLE2FRAME", 74, true, nullptr, "BS 70; if v>=2000 { BS 72; } BL n; BYTES[n] 310; if v>=2000 { RC 73~0; }",
     "@AcDbOle2Frame 70 72 73 310"},
    {"OLEFRAME", 43, true, nullptr, "BS 70; if v>=2000 { BS 72=0; } BL n; BYTES[n] 310;", "@AcDbOleFrame 70 72 310"},
    {"REGION", 37, true, L"AcDbRegion", "REST;", "", true},
    {"3DSOLID", 38, true, L"AcDb3dSolid", "REST;", "", true},
    {"BODY", 39, true, L"AcDbBody", "REST;", "", true},
    {"ACAD_PROXY_ENTITY", 498, true, L"AcDbProxyEntity", "REST;", "", true},
    {"ACAD_PROXY_OBJECT", 499, false, L"AcDbProxyObject", "REST;", "", true},

    // Symbol tables
    {"BLOCK_CONTROL", 48, false, nullptr, "use CONTROL;"},
    {"LAYER_CONTROL", 50, false, nullptr, "use CONTROL;"},
    {"STYLE_CONTROL", 52, false, nullptr, "use CONTROL;"},
    {"LTYPE_CONTROL", 56, false, nullptr, "use CONTROL;"},
    {"VIEW_CONTROL", 60, false, nullptr, "use CONTROL;"},
    {"UCS_CONTROL", 62, false, nullptr, "use CONTROL;"},
    {"VPORT_CONTROL", 64, false, nullptr, "use CONTROL;"},
    {"APPID_CONTROL", 66, false, nullptr, "use CONTROL;"},
    {"DIMSTYLE_CONTROL", 68, false, nullptr, "use CONTROL;"},
    {"BLOCK_RECORD", 49, false, L"AcDbBlockTableRecord",
     R"(BLOCKNAME 2;
if v<=2004 { B _=1; BS _; B dependent calc(DEPENDENT); } else { BS dependent calc(DEPENDENT); }
XREF; BLOCKFLAGS[dependent];
if v>=2004 { OWNEDCOUNT[owned]; }
BLOCKORIGIN;
if v>=2000 { INSERTCOUNT[inserts]; BLOCKCOMMENT; BL n; BYTES[n] 310; }
if v>=2007 { BS 70; B 280; RC 281; }
BLOCKOWNED[owned];
if v>=2000 { INSERTS[inserts]; H5 340; })"},
    {"LAYER", 51, false, L"AcDbLayerTableRecord",
     R"(use RECORD;
if v<=14 { B 70&1; B off; B 70&2; B 70&4; } else { LAYERBITS off:70,290,370; }
LAYERCOLOR[off] 62,420;
if v>=2000 { H 390; }
if v>=2007 { H 347; }
H 6;
if v>=2013 { H 348; })"},
    {"STYLE", 53, false, L"AcDbTextStyleTableRecord",
     "use RECORD; B 70&1; B 70&4; BD 40; BD 41; BD 50a; RC 71; BD 42; T 3; T 4;"},
    {"LTYPE", 57, false, L"AcDbLinetypeTableRecord", "use RECORD; T 3; BD 40; RC 72; DASHES 49;"},
    {"VIEW", 61, false, L"AcDbViewTableRecord",
     R"(use RECORD; BD 40; BD 41; 2RD 10; 3BD 12; 3BD 11; BD 50a=0; BD 42=50; BD 43=0; BD 44=0;
4B _ map(8=71&1,4=71&2,2=71&4,1=71&!16);
if v>=2000 { RC 281; }
if v>=2007 { use VIEWLIGHTS; }
B 70&1;
if v>=2000 { B ucs:72; if ucs { 3BD 110; 3BD 111; 3BD 112; BD 146; BS 79; } }
if v>=2007 { B 73; H4 332; H 348; H3 361; }
if v>=2000 { if ucs { H 346; H 345; } }
if v>=2007 { H4 334; })"},
    {"UCS", 63, false, L"AcDbUCSTableRecord",
     R"(use RECORD; 3BD 10; 3BD 11; 3BD 12;
if v>=2000 { BD 146=0; BS 79=0; BS n; for n { BS 71; 3BD 13; } H 346; H 345; })"},
    {"VPORT", 65, false, L"AcDbViewportTableRecord",
     R"(use RECORD; BD 40; ASPECT 41,40; 2RD 12; 3BD 17; 3BD 16; BD 51a; BD 42=50; BD 43; BD 44;
4B _ map(8=71&1,4=71&2,2=71&4,1=71&!16);
if v>=2000 { RC 281; }
if v>=2007 { use VIEWLIGHTS; }
2RD 10; 2RD 11; B _ map(1=71&8); BS 72=1000; B 73=1; BB 74=3; B 76; 2RD 15; B 75; B 77; BS 78; BD 50a=0; 2RD 13; 2RD 14;
if v>=2000 { B _; B 65=1; 3BD 110; 3BD 111=1,0,0; 3BD 112=0,1,0; BD 146; BS 79; }
if v>=2007 { BS 60=3; BS 61=5; H4 332; H 348; H3 361; }
if v>=2000 { H 345; H 346; })"},
    {"APPID", 67, false, L"AcDbRegAppTableRecord", "use RECORD; RC 71~0;"},
    {"DIMSTYLE", 69, false, L"AcDbDimStyleTableRecord",
     "use RECORD; if v<=14 { use DIMSTYLE_OLD; } else { use DIMSTYLE_NEW; }"},

    // Dictionaries and other objects
    {"DICTIONARY", 42, false, L"AcDbDictionary",
     "BL n; if v==14 { RC 280; } if v>=2000 { BS 281; RC 280; } for n { T 3; ENTRY 350,280; }"},
    {"ACDBDICTIONARYWDFLT", 0, false, L"AcDbDictionaryWithDefault",
     "BL n; BS 281; RC 280; for n { T 3; ENTRY 350,280; } H5 340;"},
    {"XRECORD", 79, false, L"AcDbXrecord", "GROUPS; if v>=2000 { BS 280; } IDS;"},
    {"GROUP", 72, false, L"AcDbGroup", "T 300; BS 70; BS 71; BL n; H5[n] 340;"},
    {"MLINESTYLE", 73, false, L"AcDbMlineStyle",
     R"(T 2; T 3; BS 70; CMC 62; BD 51a; BD 52a; RC n:71;
for n { BD 49; CMC 62; if v<2018 { LINETYPEINDEX 6; } else { NAMEDBY 6; } })",
     "@AcDbMlineStyle 2 70 3 62 420 51 52 71"},
    {"PLOTSETTINGS", 0, false, L"AcDbPlotSettings", "use PLOTBODY;"},
    {"LAYOUT", 82, false, L"AcDbLayout",
     R"(use PLOTBODY;
T 1#2; BS 71#2; BS 70#2; 3BD 13#2; 2RD 10#2; 2RD 11#2; 3BD 12#2; 3BD 16#2=1,0,0; 3BD 17#2=0,1,0; BD 146#2; BS 76#2; 3BD 14#2; 3BD 15#2;
if v>=2004 { VIEWPORTCOUNT[ports] 330#2; }
H4 330#2; H4 331#2; H 346#2; H 345#2;
if v>=2004 { VIEWPORTS[ports] 330#2; })"},
    {"SORTENTSTABLE", 0, false, L"AcDbSortentsTable", "BL n; H4 330; for n { H4 331; Hd 5; }",
     "@AcDbSortentsTable 330"},
    {"DICTIONARYVAR", 0, false, nullptr, "RC 280; T 1;", "@DictionaryVariables 280 1"},
    {"ACDBPLACEHOLDER", 80, false, L"AcDbPlaceHolder", ""},
    {"IMAGEDEF", 0, false, L"AcDbRasterImageDef", "BL 90; 2RD 10; T 1; B 280; RC 281; 2RD 11;",
     "@AcDbRasterImageDef 90 1 10 11 280 281"},
    {"IMAGEDEF_REACTOR", 0, false, L"AcDbRasterImageDefReactor", "BL 90; REACTORIMAGE 330;",
     "@AcDbRasterImageDefReactor 90 330"},
    {"PDFDEFINITION", 0, false, nullptr, "T 1; T 2;", "@AcDbUnderlayDefinition 1 2"},
    {"DWFDEFINITION", 0, false, nullptr, "T 1; T 2;", "@AcDbUnderlayDefinition 1 2"},
    {"DGNDEFINITION", 0, false, nullptr, "T 1; T 2;", "@AcDbUnderlayDefinition 1 2"},
    {"RASTERVARIABLES", 0, false, L"AcDbRasterVariables", "BL 90; BS 70; BS 71; BS 72;",
     "@AcDbRasterVariables 90 70 71 72"},
    {"WIPEOUTVARIABLES", 0, false, L"AcDbWipeoutVariables", "BS 70;", "@AcDbWipeoutVariables 70"},
    {"SCALE", 0, false, L"AcDbScale", "BS 70; T 300; BD 140; BD 141; B 290;", "@AcDbScale 70 300 140 141 290"},
    {"IDBUFFER", 0, false, nullptr, "RC _; BL n; H4[n] 330;", "@AcDbIdBuffer 330"},
    {"FIELDLIST", 0, false, nullptr, "BL n:90; B _; H4[n] 330;", "@AcDbIdSet 90 330 @AcDbFieldList"},
    {"SPATIAL_FILTER", 0, false, nullptr,
     R"(BS n:70; 2RD[n] 10; 3BD 210; 3BD 11; BS 71; BS front:72; if front { BD 40; } BS back:73; if back { BD 41; }
BD[24] 40;)",
     "@AcDbFilter @AcDbSpatialFilter"},
    {"LAYER_INDEX", 0, false, nullptr, "BL _; BL _; BL n; for n { BL 90; T 8; H3 360; }", "@AcDbIndex @AcDbLayerIndex"},
    {"DBCOLOR", 0, false, nullptr, "CMC 62;", "@AcDbColor 62 420 430"},
};

}   // namespace

const Layout* LayoutOfType(int type)
{
    static const auto byType = [] {
        std::unordered_map<int, const Layout*> rows;
        for (const Layout& row : kLayouts)
            if (row.type != 0)
                rows.emplace(row.type, &row);
        return rows;
    }();
    const auto place = byType.find(type);
    return place == byType.end() ? nullptr : place->second;
}

const Layout* LayoutOfName(std::string_view dxfName)
{
    static const auto byName = [] {
        std::unordered_map<std::string_view, const Layout*> rows;
        for (const Layout& row : kLayouts)
            rows.emplace(row.dxfName, &row);
        return rows;
    }();
    const auto place = byName.find(dxfName);
    return place == byName.end() ? nullptr : place->second;
}

const Layout* LayoutOfClass(std::wstring_view className)
{
    static const auto byClass = [] {
        std::unordered_map<std::wstring_view, const Layout*> rows;
        for (const Layout& row : kLayouts)
            if (row.className != nullptr)
                rows.emplace(row.className, &row);
        return rows;
    }();
    const auto place = byClass.find(className);
    return place == byClass.end() ? nullptr : place->second;
}

std::string_view SharedLayout(std::string_view name)
{
    if (name == "DIMSTYLE_NEW")
        return kDimStyleNew;
    if (name == "DIMSTYLE_OLD")
        return kDimStyleOld;
    for (const SharedText& row : kShared)
        if (name == row.name)
            return row.text;
    return {};
}

}   // namespace KxPlat
