// A drawing file inserted as a block. All questions come first: a command that is left has changed nothing.
#include "KxArxBase/DocumentLock.h"
#include "KxArxBase/KxAcDb.h"
#include "KxArxBase/KxMessages.h"
#include "KxArxBase/Opened.h"
#include "KxCadBaseModule.h"
#include <memory>

namespace KxArxModules {

using KxArxBase::CKxAcDb;
using KxArxBase::DocumentLock;
using KxArxBase::MsgCmdInfo;
using KxArxBase::Opened;

namespace {

const wchar_t* const g_forbidden = L"<>/\\\":;?*|,=`";

enum class Existing { None, Use, Redefine };

struct Insertion {
    std::unique_ptr<AcDbDatabase> source;
    CString name;
    Existing existing = Existing::None;
    AcGePoint3d position;
    double scale = 1.0;
    double rotation = 0.0;   // radians
};

bool AskFile(CString& file)
{
    resbuf answer = {};
    if (acedGetFileD(L"选择要插入的图形文件", nullptr, L"dwg;dxf", 0, &answer) != RTNORM || answer.restype != RTSTR)
        return false;
    file = answer.resval.rstring;
    acutDelString(answer.resval.rstring);
    return true;
}

std::unique_ptr<AcDbDatabase> Read(CKxAcDb& db, const CString& file)
{
    AcDbDatabase* read = nullptr;
    if (db.ReadFileToNewDb(file, read) != Acad::eOk)
        MsgCmdInfo(L"\n 无法读取文件 %s。", file.GetString());
    return std::unique_ptr<AcDbDatabase>(read);
}

CString StemOf(const CString& file)
{
    wchar_t stem[_MAX_FNAME] = {};
    _wsplitpath(file, nullptr, nullptr, stem, nullptr);
    return stem;
}

// What to do with a block of that name; false when the user gives up, and with a rename `again` is set.
bool AskExisting(const CString& name, Existing& existing, bool& again)
{
    CString prompt;
    prompt.Format(L"\n 块 %s 已存在 [使用原有(U)/重新定义(R)/改名(N)]<使用原有>：", name.GetString());
    acedInitGet(0, L"Use Redefine New");
    wchar_t keyword[MAX_PATH] = {};
    const int answer = acedGetKword(prompt, keyword);
    again = answer == RTNORM && keyword[0] == L'N';
    existing = again ? Existing::None : answer == RTNORM && keyword[0] == L'R' ? Existing::Redefine : Existing::Use;
    return answer == RTNORM || answer == RTNONE;
}

bool AskName(CKxAcDb& db, Insertion& insertion)
{
    const CString proposed = insertion.name;
    for (bool again = true; again;) {
        CString prompt;
        prompt.Format(L"\n 输入块名<%s>：", proposed.GetString());
        wchar_t answer[MAX_PATH * 2] = {};
        const int result = acedGetString(1, prompt, answer);
        if (result != RTNORM && result != RTNONE)
            return false;
        insertion.name = answer[0] != 0 ? answer : proposed.GetString();
        again = insertion.name.FindOneOf(g_forbidden) >= 0;
        if (again)
            MsgCmdInfo(L"\n 块名 %s 无效。", insertion.name.GetString());
        else if (db.IsHasSymbolTabRec(AcDbBlockTable::desc(), insertion.name) &&
                 !AskExisting(insertion.name, insertion.existing, again))
            return false;
    }
    return true;
}

bool AskPlace(Insertion& insertion)
{
    ads_point point = {0, 0, 0};
    const int atPoint = acedGetPoint(nullptr, L"\n 指定插入点<0,0,0>：", point);
    if (atPoint != RTNORM && atPoint != RTNONE)
        return false;
    if (atPoint == RTNORM)
        insertion.position.set(point[X], point[Y], point[Z]);
    acedInitGet(RSG_NOZERO, nullptr);
    const int scaled = acedGetReal(L"\n 输入比例因子<1>：", &insertion.scale);
    if (scaled == RTNONE)
        insertion.scale = 1.0;
    else if (scaled != RTNORM)
        return false;
    const int turned = acedGetAngle(point, L"\n 指定旋转角度<0>：", &insertion.rotation);
    if (turned == RTNONE)
        insertion.rotation = 0.0;
    return turned == RTNORM || turned == RTNONE;
}

// The drawing's model space takes the place of what the block held.
Acad::ErrorStatus Redefine(CKxAcDb& db, Insertion& insertion)
{
    AcDbObjectIdArray old, ids;
    Acad::ErrorStatus es = db.BlockTableGetEntityIds(old, insertion.name);
    CKxAcDb source(insertion.source.get(), 0);
    if (es == Acad::eOk)
        es = source.BlockTableGetEntityIds(ids, ACDB_MODEL_SPACE);
    if (es == Acad::eOk)
        es = db.EraseObjects(old, 0);
    if (es == Acad::eOk)
        es = source.CloneObjectsToDb(db.GetAcDb(), ids, insertion.name);
    AcDbObjectId id;
    if (es == Acad::eOk)
        es = db.GetRecWithEntyName(insertion.name, AcDbBlockTable::desc(), id);
    const Opened<AcDbBlockTableRecord> block(id, AcDb::kForWrite);
    return es == Acad::eOk && block ? block->setOrigin(insertion.source->insbase()) : es;
}

Acad::ErrorStatus Define(CKxAcDb& db, Insertion& insertion)
{
    AcDbObjectId block;
    switch (insertion.existing) {
    case Existing::Use:
        return Acad::eOk;
    case Existing::Redefine:
        return Redefine(db, insertion);
    default:
        return db.GetAcDb()->insert(block, insertion.name, insertion.source.get());
    }
}

void AppendAttribute(AcDbBlockReference& reference, const AcDbAttributeDefinition& definition)
{
    auto attribute = std::make_unique<AcDbAttribute>();
    AcDbObjectId id;
    if (attribute->setAttributeFromBlock(&definition, reference.blockTransform()) == Acad::eOk &&
        attribute->setTextString(definition.textStringConst()) == Acad::eOk &&
        reference.appendAttribute(id, attribute.get()) == Acad::eOk)
        attribute.release()->close();
}

// The attributes that the block asks for, with their default values.
void AppendAttributes(CKxAcDb& db, AcDbObjectId insertion, const CString& block)
{
    AcDbObjectIdArray definitions;
    if (db.BlockTableGetEntityIds(definitions, block, AcDbAttributeDefinition::desc()) != Acad::eOk)
        return;
    Opened<AcDbBlockReference> reference(insertion, AcDb::kForWrite);
    for (const AcDbObjectId& id : definitions) {
        const Opened<AcDbAttributeDefinition> definition(id, AcDb::kForRead);
        if (reference && definition && !definition->isConstant())
            AppendAttribute(*reference.get(), *definition.get());
    }
}

}   // namespace

void KxCadBaseModule::CmdInsertFile()
{
    CKxAcDb db;
    const DocumentLock lock(db);
    CString file;
    if (!AskFile(file))
        return;
    Insertion insertion;
    insertion.source = Read(db, file);
    insertion.name = StemOf(file);
    if (insertion.source == nullptr || !AskName(db, insertion) || !AskPlace(insertion))
        return;
    AcDbObjectId id;
    Acad::ErrorStatus es = Define(db, insertion);
    const int byLayer = 256;
    if (es == Acad::eOk)
        es = db.BlockRef(insertion.name, insertion.position, AcGeScale3d(insertion.scale), insertion.rotation, byLayer,
                         nullptr, nullptr, nullptr, &id);
    if (es != Acad::eOk) {
        KxArxBase::MessageError(es, 1, 0, L"Error: ");
        return;
    }
    AppendAttributes(db, id, insertion.name);
    MsgCmdInfo(L"\n 已插入块 %s。", insertion.name.GetString());
}

}   // namespace KxArxModules
