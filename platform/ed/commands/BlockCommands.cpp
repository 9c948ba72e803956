// -INSERT, -BLOCK and EXPLODE.
#include "../../db/AcDbAttribute.h"
#include "../../db/AcDbAttributeDefinition.h"
#include "../../db/AcDbBlockReference.h"
#include "../../db/AcDbBlockTableRecord.h"
#include "../../db/AcDbDatabase.h"
#include "../../db/AcDbIdMapping.h"
#include "../../db/core/DbCore.h"
#include "../../db/core/Stub.h"
#include "../../ge/AcGeMatrix3d.h"
#include "../../win/CharTables.h"
#include "../Session.h"
#include "../SupportFiles.h"
#include "EntityTools.h"
#include "HostCommands.h"
#include "Questions.h"

namespace KxPlat {

namespace {

AcDbObjectId BlockNamed(const std::wstring& name)
{
    return CoreOf(WorkingDatabase()).Table(TableKind::Block)->find(name);
}

std::wstring NameOfFile(const std::wstring& path)
{
    const std::wstring name = path.substr(path.find_last_of(L"\\/:") + 1);
    return name.substr(0, name.find_last_of(L'.'));
}

// A drawing file comes in as a block; "name=file" gives it another name and replaces one of that name.
AcDbObjectId BlockOfFile(const std::wstring& blockName, const std::wstring& file)
{
    std::wstring path;
    for (const wchar_t* extension : {L"", L".dwg", L".dxf"}) {
        if (path.empty())
            path = FindSupportFile(file + extension);
    }
    AcDbDatabase source(false, true);
    AcDbObjectId block;
    if (path.empty() || source.readDwgFile(path.c_str()) != Acad::eOk ||
        WorkingDatabase().insert(block, blockName.c_str(), &source) != Acad::eOk)
        FailCommand(L"\"" + file + L"\": Cannot find the specified drawing file.");
    return block;
}

void ListBlocks()
{
    Ui().Print(L"\nDefined blocks.");
    for (const AcDbStub* stub : CoreOf(WorkingDatabase()).Table(TableKind::Block)->records()) {
        const auto* record = static_cast<const AcDbSymbolTableRecord*>(stub->object);
        const std::wstring name = record->nameText().GetString();
        if (!stub->erased && name[0] != L'*')
            Ui().Print(L"\n  \"" + name + L"\"");
    }
}

AcDbObjectId AskBlock(bool& isExploded)
{
    std::optional<std::wstring> name = AskLine(L"\nEnter block name or [?]: ");
    if (!name || name->empty())
        return {};
    if (*name == L"?") {
        ListBlocks();
        return {};
    }
    isExploded = (*name)[0] == L'*';
    const std::wstring given = isExploded ? name->substr(1) : *name;
    const size_t equals = given.find(L'=');
    if (equals != std::wstring::npos) {
        const std::wstring block = given.substr(0, equals), file = given.substr(equals + 1);
        return BlockOfFile(block, file.empty() ? block : file);
    }
    const AcDbObjectId block = BlockNamed(given);
    return block.isNull() ? BlockOfFile(NameOfFile(given), given) : block;
}

struct Placing {
    AcGePoint3d point;
    AcGeScale3d scale{1, 1, 1};
    double rotation = 0;
    bool hasScale = false, hasRotation = false;
};

// Scale and rotation given before the point are not asked for again.
bool AskPlace(Placing& place)
{
    for (;;) {
        const PointAnswer answer = AskPoint(L"\nSpecify insertion point or [Scale/Rotate]: ", nullptr, L"Scale Rotate");
        double factor = 1;
        if (answer.is(L"Scale")) {
            if (!AskReal(L"\nSpecify scale factor for XYZ axes <1>: ", factor, RSG_NOZERO))
                return false;
            place.scale = AcGeScale3d(factor, factor, factor);
            place.hasScale = true;
        } else if (answer.is(L"Rotate")) {
            if (!AskAngle(L"\nSpecify rotation angle <0>: ", AcGePoint3d::kOrigin, place.rotation))
                return false;
            place.hasRotation = true;
        } else {
            place.point = answer.point;
            break;
        }
        if (answer.code == RTCAN)
            return false;
    }
    if (!place.hasScale) {
        double x = 1;
        if (!AskReal(L"\nEnter X scale factor <1>: ", x, RSG_NOZERO))
            return false;
        double y = x;
        if (!AskReal(L"\nEnter Y scale factor <use X scale factor>: ", y, RSG_NOZERO))
            return false;
        place.scale = AcGeScale3d(x, y, x);
    }
    return place.hasRotation || AskAngle(L"\nSpecify rotation angle <0>: ", place.point, place.rotation);
}

// The values of its attributes, as their definitions ask for them; constant ones stay with the block.
bool AskAttribute(const AcDbAttributeDefinition& definition, std::wstring& value)
{
    value = definition.textStringConst();
    if (IntegerVar(L"ATTREQ") == 0 || definition.isPreset())
        return true;
    std::wstring prompt = definition.promptConst();
    if (prompt.empty())
        prompt = definition.tagConst();
    const std::optional<std::wstring> answer =
        AskLine(L"\n" + prompt + (value.empty() ? L": " : L" <" + value + L">: "));
    if (answer && !answer->empty())
        value = *answer;
    return answer.has_value();
}

bool AddAttributes(AcDbBlockReference& reference, AcDbObjectId block)
{
    AcDbBlockTableRecord* record = nullptr;
    if (acdbOpenObject(record, block, AcDb::kForRead) != Acad::eOk)
        return false;
    const std::vector<AcDbStub*> entities = record->entities();
    record->close();
    for (AcDbStub* stub : entities) {
        AcDbAttributeDefinition* definition = nullptr;
        if (acdbOpenObject(definition, AcDbObjectId(stub), AcDb::kForRead) != Acad::eOk)
            continue;
        std::wstring value;
        const bool isWanted = !definition->isConstant();
        const bool isGiven = isWanted && AskAttribute(*definition, value);
        if (isGiven) {
            auto* attribute = new AcDbAttribute;
            attribute->setPropertiesFrom(definition);
            attribute->setAttributeFromBlock(definition, reference.blockTransform());
            attribute->setTextString(value.c_str());
            AcDbObjectId id;
            if (reference.appendAttribute(id, attribute) == Acad::eOk)
                attribute->close();
        }
        definition->close();
        if (isWanted && !isGiven)
            return false;
    }
    return true;
}

void EraseOne(AcDbObjectId id)
{
    AcDbEntity* entity = nullptr;
    if (acdbOpenObject(entity, id, AcDb::kForWrite) != Acad::eOk)
        return;
    entity->erase();
    entity->close();
}

// False when the entity has no pieces.
bool Explode(AcDbObjectId id)
{
    AcDbEntity* entity = nullptr;
    AcArray<AcRxObject*> pieces;
    if (acdbOpenObject(entity, id, AcDb::kForWrite) != Acad::eOk)
        return false;
    const bool isExploded = entity->explode(pieces) == Acad::eOk;
    if (isExploded)
        entity->erase();
    entity->close();
    for (AcRxObject* piece : pieces) {
        std::unique_ptr<AcDbEntity> part(AcDbEntity::cast(piece));
        if (part != nullptr)
            AddToSpaceAsIs(std::move(part));
    }
    return isExploded;
}

// Makes the record, or empties the one that is redefined. Null when the user keeps the old one.
AcDbObjectId AskNewBlock()
{
    const std::optional<std::wstring> name = AskLine(L"\nEnter block name or [?]: ");
    if (!name || name->empty())
        return {};
    if (*name == L"?") {
        ListBlocks();
        return {};
    }
    AcDbObjectId id = BlockNamed(*name);
    if (!id.isNull()) {
        if (!AskYesNo(L"\nBlock \"" + *name + L"\" already exists. Redefine it? [Yes/No]", false))
            return {};
        const std::vector<AcDbStub*> old =
            static_cast<const AcDbBlockTableRecord*>(static_cast<const AcDbStub*>(id)->object)->entities();
        for (AcDbStub* stub : old)
            EraseOne(stub);
        return id;
    }
    AcDbBlockTable* table = nullptr;
    if (WorkingDatabase().getBlockTable(table, AcDb::kForWrite) != Acad::eOk)
        return {};
    auto* record = new AcDbBlockTableRecord;
    record->setName(name->c_str());
    if (table->add(id, record) == Acad::eOk)
        record->close();
    else
        delete record;
    table->close();
    return id;
}

}   // namespace

void InsertCommand()
{
    bool isExploded = false;
    const AcDbObjectId block = AskBlock(isExploded);
    Placing place;
    if (block.isNull() || !AskPlace(place))
        return;
    auto made = std::make_unique<AcDbBlockReference>(place.point, block);
    made->setScaleFactors(place.scale);
    made->setRotation(place.rotation);
    const AcDbObjectId id = AddToSpace(std::move(made));
    AcDbBlockReference* reference = nullptr;
    if (isExploded)
        Explode(id);
    else if (acdbOpenObject(reference, id, AcDb::kForWrite) == Acad::eOk) {
        const bool isComplete = AddAttributes(*reference, block);
        if (!isComplete)
            reference->erase();
        reference->close();
    }
}

void BlockCommand()
{
    const AcDbObjectId block = AskNewBlock();
    if (block.isNull())
        return;
    const PointAnswer base = AskPoint(L"\nSpecify insertion base point: ");
    if (!base.isPoint())
        return;
    const Picked picked;
    AcDbObjectIdArray originals;
    for (const AcDbObjectId id : picked.Ids())
        originals.append(id);
    AcDbIdMapping map;
    AcDbObjectId owner = block;
    if (originals.isEmpty() || WorkingDatabase().deepCloneObjects(originals, owner, map) != Acad::eOk)
        return;
    for (const AcDbObjectId id : picked.Ids()) {
        AcDbEntity* entity = nullptr;
        if (acdbOpenObject(entity, map.find(id), AcDb::kForWrite) != Acad::eOk)
            continue;
        entity->transformBy(AcGeMatrix3d::translation(-base.point.asVector()));
        entity->close();
    }
    picked.Change([](AcDbEntity& entity) { entity.erase(); });
}

// A program's call is done with the first objects given: it says no Enter behind them.
void ExplodeCommand()
{
    const Picked picked(AnsweredByProgram() ? L":S" : nullptr);
    int failed = 0;
    for (const AcDbObjectId id : picked.Ids())
        failed += !Explode(id);
    if (failed > 0)
        acutPrintf(L"\n%d %s not able to be exploded.", failed, failed == 1 ? L"was" : L"were");
}

}   // namespace KxPlat
