// The functions behind the special items of layouts, by the file that holds them.
#pragma once
#include "ObjectDecoder.h"
#include "ObjectEncoder.h"

class AcDbBlockTableRecord;

namespace KxPlat {

inline void WriteNothing(ObjectEncoder&, const Step&) {}

// SpecialEntities.cpp
void ReadAligned(ObjectDecoder& in, const Step& step);
void ReadScale(ObjectDecoder& in, const Step& step);
void WriteScale(ObjectEncoder& out, const Step& step);
void ReadParts(ObjectDecoder& in, const Step& step);
void WriteParts(ObjectEncoder& out, const Step& step);
void ReadVertices(ObjectDecoder& in, const Step& step);
void WriteVertices(ObjectEncoder& out, const Step& step);
void ReadShapeNumber(ObjectDecoder& in, const Step& step);
void WriteShapeNumber(ObjectEncoder& out, const Step& step);
void ReadShapeStyle(ObjectDecoder& in, const Step& step);
void WriteShapeStyle(ObjectEncoder& out, const Step& step);
void ReadDirection(ObjectDecoder& in, const Step& step);
void WriteDirection(ObjectEncoder& out, const Step& step);
void ReadParagraph(ObjectDecoder& in, const Step& step);
void WriteParagraph(ObjectEncoder& out, const Step& step);
void ReadWidths(ObjectDecoder& in, const Step& step);
void WriteWidths(ObjectEncoder& out, const Step& step);
void ReadCurve3d(ObjectDecoder& in, const Step& step);
void ReadMlineStyle(ObjectDecoder& in, const Step& step);
void WriteMlineStyle(ObjectEncoder& out, const Step& step);
void ReadOutline(ObjectDecoder& in, const Step& step);
void WriteOutline(ObjectEncoder& out, const Step& step);
void ReadFitCurve(ObjectDecoder& in, const Step& step);
void ReadRest(ObjectDecoder& in, const Step& step);
int64_t HasParts(ObjectEncoder& out);
int64_t PartCount(ObjectEncoder& out);
int64_t SplineKind(ObjectEncoder& out);
int64_t HasWeights(ObjectEncoder& out);
int64_t VertexBits(ObjectEncoder& out);
int64_t CurveKind(ObjectEncoder& out);

// SpecialRecords.cpp
void ReadTable(ObjectDecoder& in, const Step& step);
void WriteTable(ObjectEncoder& out, const Step& step);
void ReadXref(ObjectDecoder& in, const Step& step);
void WriteXref(ObjectEncoder& out, const Step& step);
void ReadLayerBits(ObjectDecoder& in, const Step& step);
void WriteLayerBits(ObjectEncoder& out, const Step& step);
void ReadLayerColor(ObjectDecoder& in, const Step& step);
void WriteLayerColor(ObjectEncoder& out, const Step& step);
void ReadDashes(ObjectDecoder& in, const Step& step);
void WriteDashes(ObjectEncoder& out, const Step& step);
void ReadAspect(ObjectDecoder& in, const Step& step);
void WriteAspect(ObjectEncoder& out, const Step& step);

// SpecialBlocks.cpp
// Anonymous blocks have no number in files but their place in the table; the spaces beside the current one likewise.
void NumberBlock(AcDbBlockTableRecord& block, size_t place, int& spaces);
void PlanBlocks(DwgOutput& output);
void ReadBlockName(ObjectDecoder& in, const Step& step);
void WriteBlockName(ObjectEncoder& out, const Step& step);
int64_t IsDependent(ObjectEncoder& out);
void ReadBlockFlags(ObjectDecoder& in, const Step& step);
void WriteBlockFlags(ObjectEncoder& out, const Step& step);
void ReadOwnedCount(ObjectDecoder& in, const Step& step);
void WriteOwnedCount(ObjectEncoder& out, const Step& step);
void ReadBlockOrigin(ObjectDecoder& in, const Step& step);
void WriteBlockOrigin(ObjectEncoder& out, const Step& step);
void ReadInsertCount(ObjectDecoder& in, const Step& step);
void WriteInsertCount(ObjectEncoder& out, const Step& step);
void ReadBlockComment(ObjectDecoder& in, const Step& step);
void WriteBlockComment(ObjectEncoder& out, const Step& step);
void ReadBlockOwned(ObjectDecoder& in, const Step& step);
void WriteBlockOwned(ObjectEncoder& out, const Step& step);
void ReadInserts(ObjectDecoder& in, const Step& step);
void WriteInserts(ObjectEncoder& out, const Step& step);
void ReadViewportCount(ObjectDecoder& in, const Step& step);
void WriteViewportCount(ObjectEncoder& out, const Step& step);
void ReadViewports(ObjectDecoder& in, const Step& step);
void WriteViewports(ObjectEncoder& out, const Step& step);

// SpecialObjects.cpp
void ReadEntry(ObjectDecoder& in, const Step& step);
void WriteEntry(ObjectEncoder& out, const Step& step);
void ReadRecordGroups(ObjectDecoder& in, const Step& step);
void WriteRecordGroups(ObjectEncoder& out, const Step& step);
void ReadRecordIds(ObjectDecoder& in, const Step& step);
void WriteRecordIds(ObjectEncoder& out, const Step& step);
void ReadLinetypeIndex(ObjectDecoder& in, const Step& step);
void WriteLinetypeIndex(ObjectEncoder& out, const Step& step);
void ReadNamedBy(ObjectDecoder& in, const Step& step);
void WriteNamedBy(ObjectEncoder& out, const Step& step);
void ReadReactorImage(ObjectDecoder& in, const Step& step);

}   // namespace KxPlat
