// ERASE, OOPS, SELECT and LIST: commands that begin with choosing objects.
#include "../../ap/Documents.h"
#include "../../db/AcDbDatabase.h"
#include "../../db/AcDbEntity.h"
#include "../../db/AcDbSymbolTableRecord.h"
#include "../../db/core/Fields.h"
#include "../../db/core/Stub.h"
#include "EntityTools.h"
#include "HostCommands.h"
#include <utility>

using namespace KxPlat;

namespace {

// What OOPS brings back.
struct Erased : DocumentPart {
    std::vector<AcDbObjectId> ids;
};

const wchar_t* NameOf(AcDbObjectId id)
{
    const AcDbStub* stub = id;
    const AcDbSymbolTableRecord* record = stub == nullptr ? nullptr : AcDbSymbolTableRecord::cast(stub->object);
    return record == nullptr ? L"" : static_cast<const wchar_t*>(record->nameText());
}

// The geometry of an entity as its groups name it: points, lengths, texts.
class Listing : public GroupSink {
public:
    void Real(int code, double value) override
    {
        if (code >= 1000 || (code >= 210 && code < 240))
            return;
        if (code >= 10 && code < 20) {
            acutPrintf(L"\n%22s X=%12.4f", code == 10 ? L"at point," : L"to point,", value);
        } else if (code >= 20 && code < 30) {
            acutPrintf(L"  Y=%12.4f", value);
        } else if (code >= 30 && code < 39) {
            acutPrintf(L"  Z=%12.4f", value);
        } else {
            acutPrintf(L"\n%20s %3d %.4f", L"value", code, value);
        }
    }
    void Integer(int, int64_t) override {}
    void Text(int code, const CString& value) override
    {
        if (code < 100 && code != 5)
            acutPrintf(L"\n%20s %3d \"%s\"", L"text", code, static_cast<const wchar_t*>(value));
    }
    void Id(int, AcDbObjectId) override {}
    void Name(int code, AcDbObjectId record, TableKind) override
    {
        if (code != 8 && code != 6)
            acutPrintf(L"\n%20s %3d \"%s\"", L"name", code, NameOf(record));
    }
    void Binary(int, const Bytes&) override {}
    void Marker(int, std::string_view) override {}
};

void ListOne(AcDbObjectId id)
{
    AcDbEntity* entity = nullptr;
    if (acdbOpenObject(entity, id, AcDb::kForRead) != Acad::eOk)
        return;
    const wchar_t* kind = entity->isA()->dxfName() != nullptr ? entity->isA()->dxfName() : entity->isA()->name();
    acutPrintf(L"\n%18s  Layer: \"%s\"", kind, NameOf(entity->layerId()));
    acutPrintf(L"\n%26s: %s space", L"Space", entity->isInPaperSpace() ? L"Paper" : L"Model");
    if (!entity->color().isByLayer())
        acutPrintf(L"\n%26s: %d", L"Color", int(entity->colorIndex()));
    if (entity->linetypeId() != entity->database()->byLayerLinetype())
        acutPrintf(L"\n%26s: \"%s\"", L"Linetype", NameOf(entity->linetypeId()));
    ACHAR digits[17];
    id.handle().getIntoAsciiBuffer(digits);
    acutPrintf(L"\n%26s = %s", L"Handle", digits);
    Listing listing;
    GetGroups(*entity, listing, {AcDb::kDHL_1024, false});
    acutPrintf(L"\n");
    entity->close();
}

}   // namespace

void KxPlat::EraseCommand()
{
    const Picked picked;
    std::vector<AcDbObjectId>& erased = PartOf<Erased>(*acDocManager->curDocument()).ids;
    erased.clear();
    picked.Change([&](AcDbEntity& entity) {
        if (entity.erase() == Acad::eOk)
            erased.push_back(entity.objectId());
    });
}

void KxPlat::OopsCommand()
{
    std::vector<AcDbObjectId>& erased = PartOf<Erased>(*acDocManager->curDocument()).ids;
    for (const AcDbObjectId id : std::exchange(erased, {})) {
        AcDbEntity* entity = nullptr;
        if (acdbOpenAcDbEntity(entity, id, AcDb::kForWrite, true) != Acad::eOk)
            continue;
        entity->erase(false);
        entity->close();
    }
}

// The set stays behind as the previous one.
void KxPlat::SelectCommand()
{
    const Picked picked;
}

void KxPlat::ListCommand()
{
    const Picked picked;
    picked.ForEach(ListOne);
}
