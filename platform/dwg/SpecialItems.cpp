#include "SpecialItems.h"
#include "SpecialPairs.h"
#include <iterator>

namespace KxPlat {

namespace {

const SpecialItem kItems[] = {
    {"ALIGNED", ReadAligned, WriteNothing},
    {"SCALE", ReadScale, WriteScale},
    {"PARTS", ReadParts, WriteParts},
    {"VERTICES", ReadVertices, WriteVertices},
    {"SHAPENUMBER", ReadShapeNumber, WriteShapeNumber},
    {"SHAPESTYLE", ReadShapeStyle, WriteShapeStyle},
    {"PARAGRAPHDIRECTION", ReadDirection, WriteDirection},
    {"PARAGRAPH", ReadParagraph, WriteParagraph},
    {"WIDTHS", ReadWidths, WriteWidths},
    {"CURVE3D", ReadCurve3d, WriteNothing},
    {"MLINESTYLE", ReadMlineStyle, WriteMlineStyle},
    {"OUTLINE", ReadOutline, WriteOutline},
    {"FITCURVE", ReadFitCurve, WriteNothing},
    {"REST", ReadRest, WriteNothing},
    {"TABLE", ReadTable, WriteTable},
    {"XREF", ReadXref, WriteXref},
    {"BLOCKNAME", ReadBlockName, WriteBlockName},
    {"BLOCKFLAGS", ReadBlockFlags, WriteBlockFlags},
    {"OWNEDCOUNT", ReadOwnedCount, WriteOwnedCount},
    {"BLOCKORIGIN", ReadBlockOrigin, WriteBlockOrigin},
    {"INSERTCOUNT", ReadInsertCount, WriteInsertCount},
    {"BLOCKCOMMENT", ReadBlockComment, WriteBlockComment},
    {"BLOCKOWNED", ReadBlockOwned, WriteBlockOwned},
    {"INSERTS", ReadInserts, WriteInserts},
    {"LAYERBITS", ReadLayerBits, WriteLayerBits},
    {"LAYERCOLOR", ReadLayerColor, WriteLayerColor},
    {"DASHES", ReadDashes, WriteDashes},
    {"ASPECT", ReadAspect, WriteAspect},
    {"ENTRY", ReadEntry, WriteEntry},
    {"GROUPS", ReadRecordGroups, WriteRecordGroups},
    {"IDS", ReadRecordIds, WriteRecordIds},
    {"LINETYPEINDEX", ReadLinetypeIndex, WriteLinetypeIndex},
    {"NAMEDBY", ReadNamedBy, WriteNamedBy},
    {"VIEWPORTCOUNT", ReadViewportCount, WriteViewportCount},
    {"VIEWPORTS", ReadViewports, WriteViewports},
    {"REACTORIMAGE", ReadReactorImage, WriteNothing},
};

const CalculatedItem kCalculated[] = {
    {"HASPARTS", HasParts},     {"PARTCOUNT", PartCount}, {"SPLINEKIND", SplineKind}, {"WEIGHTED", HasWeights},
    {"VERTEXBITS", VertexBits}, {"CURVEKIND", CurveKind}, {"DEPENDENT", IsDependent},
};

}   // namespace

const SpecialItem* FindSpecial(std::string_view name)
{
    for (const SpecialItem& item : kItems)
        if (item.name == name)
            return &item;
    return nullptr;
}

const CalculatedItem* FindCalculated(std::string_view name)
{
    for (const CalculatedItem& item : kCalculated)
        if (item.name == name)
            return &item;
    return nullptr;
}

}   // namespace KxPlat
