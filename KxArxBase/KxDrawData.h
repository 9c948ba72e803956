// Geometry as plain values, without a database behind it: what is read of entities, kept, changed, and made entities of
// again. Coordinates are of the world, angles in radians; a polyline's vertices lie in the axes of its normal.
#pragma once
#include "KxHost.h"
#include "KxMfcEx/KxExport.h"
#include <variant>
#include <vector>

namespace KxDrawData {

struct Point {
    AcGePoint3d position;
};

struct Line {
    AcGePoint3d start, end;
};

struct Circle {
    AcGePoint3d center;
    AcGeVector3d normal{0, 0, 1};
    double radius = 0;
};

struct Arc {
    AcGePoint3d center;
    AcGeVector3d normal{0, 0, 1};
    double radius = 0, startAngle = 0, endAngle = 0;
};

struct Vertex {
    AcGePoint2d position;
    double bulge = 0, startWidth = 0, endWidth = 0;
};

struct PolyLine {
    std::vector<Vertex> vertices;
    bool isClosed = false;
    double elevation = 0;
    AcGeVector3d normal{0, 0, 1};
};

struct Text {
    AcGePoint3d position;
    CString text, style;   // an empty style is the drawing's current one
    double height = 0, rotation = 0, widthFactor = 1;
    AcGeVector3d normal{0, 0, 1};
};

struct Record {
    std::variant<Point, Line, Circle, Arc, PolyLine, Text> geometry;
    CString layer, linetype;   // empty: the drawing's current ones
    int color = 256;           // an index; 256 is ByLayer
};

// eNotThatKindOfClass for an entity that no record can hold; `record` is then untouched.
KXARX_API Acad::ErrorStatus FromEntity(const AcDbEntity* entity, Record& record);
// One record for each entity that a record can hold, in order; the status of the last one that could not be opened.
KXARX_API Acad::ErrorStatus FromEntities(const AcDbObjectIdArray& ids, std::vector<Record>& records);
// Into a space of the drawing (null: the current one). Layers, linetypes and styles that it lacks answer their status,
// a geometry that is none (no radius, no vertices, no number) eInvalidInput; nothing is added then.
KXARX_API Acad::ErrorStatus AddToSpace(AcDbDatabase* db, const Record& record, const wchar_t* space,
                                       AcDbObjectId* id = nullptr);

}   // namespace KxDrawData
