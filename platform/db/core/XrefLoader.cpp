#include "XrefLoader.h"
#include "../../win/CharTables.h"
#include "../../win/Files.h"
#include "../AcDbBlockReference.h"
#include "../AcDbBlockTableRecord.h"
#include "../AcDbDatabase.h"
#include "Cloner.h"
#include "ClonerParts.h"
#include "FileFormats.h"
#include "ObjectAccess.h"
#include <algorithm>

namespace KxPlat {

namespace {

bool IsXref(const AcDbBlockTableRecord& block)
{
    return block.isFromExternalReference() || block.isFromOverlayReference();
}

std::wstring FolderOf(const std::wstring& path)
{
    return path.substr(0, path.find_last_of(L"/\\") + 1);
}

bool IsAbsolute(const std::wstring& path)
{
    return (path.size() > 1 && path[1] == L':') || (!path.empty() && (path[0] == L'\\' || path[0] == L'/'));
}

bool IsFile(const std::wstring& path)
{
    const FileInfo info = FileInfoOf(HostPath(path));
    return info.exists && !info.isFolder;
}

// As named, and with the extension of a drawing where it has none.
std::wstring Drawing(const std::wstring& path)
{
    if (IsFile(path))
        return path;
    if (path.find(L'.', FolderOf(path).size()) == std::wstring::npos)
        for (const wchar_t* extension : {L".dwg", L".dxf"})
            if (IsFile(path + extension))
                return path + extension;
    return L"";
}

// Reading an xref leaves no trace in what is reported of the drawing around it, nor a step to be undone.
class Quietly {
public:
    explicit Quietly(DbCore& core) : m_core(core), m_report(LastReadReport()), m_modified(core.modified)
    {
        m_wasOff = core.undo.IsOff();
        core.undo.SetOff(true);
    }
    ~Quietly()
    {
        m_core.undo.SetOff(m_wasOff);
        m_core.modified = m_modified;
        LastReadReport() = m_report;
    }
    Quietly(const Quietly&) = delete;

private:
    DbCore& m_core;
    ReadReport m_report;
    int m_modified;
    bool m_wasOff;
};

}   // namespace

std::vector<AcDbBlockTableRecord*> XrefBlocksOf(DbCore& core, bool directOnly)
{
    std::vector<AcDbBlockTableRecord*> blocks;
    for (AcDbStub* stub : core.Table(TableKind::Block)->records()) {
        AcDbBlockTableRecord* block = static_cast<AcDbBlockTableRecord*>(stub->object);
        if (!stub->erased && IsXref(*block) && !(directOnly && block->isDependent()))
            blocks.push_back(block);
    }
    return blocks;
}

bool IsNamedAfter(const CString& record, const CString& xref)
{
    const int length = xref.GetLength();
    return record.GetLength() > length && record[length] == L'|' &&
           EqualNoCase(ViewOf(record.Left(length)), ViewOf(xref));
}

std::vector<AcDbBlockTableRecord*> XrefsWithin(DbCore& core, const AcDbBlockTableRecord& block)
{
    // Which xref blocks a block's contents reach through the blocks that they insert.
    const auto reached = [&](const AcDbBlockTableRecord& from) {
        std::vector<const AcDbBlockTableRecord*> all{&from};
        for (size_t i = 0; i < all.size(); ++i)
            for (const AcDbStub* entity : all[i]->entities()) {
                const AcDbBlockReference* insert = entity->erased ? nullptr : AcDbBlockReference::cast(entity->object);
                const AcDbObject* target = insert == nullptr ? nullptr : ObjectOf(insert->blockTableRecord());
                const AcDbBlockTableRecord* next = AcDbBlockTableRecord::cast(target);
                if (next != nullptr && std::find(all.begin(), all.end(), next) == all.end())
                    all.push_back(next);
            }
        return all;
    };
    std::vector<const AcDbBlockTableRecord*> elsewhere;
    for (const AcDbBlockTableRecord* other : XrefBlocksOf(core, true))
        if (other != &block)
            for (const AcDbBlockTableRecord* each : reached(*other))
                elsewhere.push_back(each);
    std::vector<AcDbBlockTableRecord*> within;
    const std::vector<const AcDbBlockTableRecord*> mine = reached(block);
    for (AcDbBlockTableRecord* each : XrefBlocksOf(core, false))
        if (each != &block && each->isDependent() && std::find(mine.begin(), mine.end(), each) != mine.end() &&
            std::find(elsewhere.begin(), elsewhere.end(), each) == elsewhere.end())
            within.push_back(each);
    return within;
}

void EraseContents(AcDbBlockTableRecord& block)
{
    for (AcDbStub* entity : block.entities()) {
        if (entity->erased || entity->object == nullptr)
            continue;
        // What came with an xref is on no layer that the user could have locked.
        const bool wasWriting = entity->writing;
        entity->writing = true;
        entity->object->erase();
        entity->writing = wasWriting;
    }
}

XrefLoader::XrefLoader(AcDbDatabase& host) : m_host(host)
{
    const CString& file = CoreOf(host).fileName;
    if (!file.IsEmpty())
        m_chain.push_back(FullDrivePath(std::wstring_view(file, size_t(file.GetLength()))));
}

XrefLoader::XrefLoader(AcDbDatabase& host, std::vector<std::wstring> chain) : m_host(host), m_chain(std::move(chain)) {}

// Where the path says, from the host's folder on; beside the host; on the support path.
std::wstring XrefLoader::Find(const std::wstring& path) const
{
    const std::wstring beside = m_chain.empty() ? L"" : FolderOf(m_chain.back());
    const std::wstring name = path.substr(FolderOf(path).size());
    for (const std::wstring& each : {IsAbsolute(path) ? path : beside + path, beside + name})
        if (const std::wstring found = Drawing(each); !found.empty())
            return FullDrivePath(found);
    ACHAR found[1024] = L"";
    for (const std::wstring& each : {path, name, name + L".dwg", name + L".dxf"})
        if (acdbHostApplicationServices()->findFile(found, 1024, each.c_str(), &m_host,
                                                    AcDbHostApplicationServices::kXRefDrawing) == Acad::eOk)
            return FullDrivePath(found);
    return L"";
}

void XrefLoader::Empty(AcDbBlockTableRecord& block)
{
    DbCore& core = CoreOf(m_host);
    const Quietly quietly(core);
    for (AcDbBlockTableRecord* nested : XrefsWithin(core, block))
        Empty(*nested);
    EraseContents(block);
    for (AcDbStub* stub : core.Table(TableKind::Block)->records()) {
        AcDbBlockTableRecord* dependent = static_cast<AcDbBlockTableRecord*>(stub->object);
        if (!stub->erased && IsNamedAfter(dependent->nameText(), block.nameText()))
            EraseContents(*dependent);
    }
}

AcDb::XrefStatus XrefLoader::Read(AcDbBlockTableRecord& block, XrefNews& news)
{
    news.found = Find(news.path);
    if (news.found.empty()) {
        news.why = L"no such file";
        return AcDb::kXrfFileNotFound;
    }
    for (const std::wstring& outer : m_chain)
        if (EqualNoCase(outer, news.found)) {
            news.why = L"it contains this drawing";
            return AcDb::kXrfUnresolved;
        }
    AcDbDatabase source(false, true);
    if (source.readDwgFile(news.found.c_str()) != Acad::eOk) {
        news.why = LastReadReport().error.empty() ? L"it cannot be read" : LastReadReport().error;
        return AcDb::kXrfUnresolved;
    }
    std::vector<std::wstring> chain = m_chain;
    chain.push_back(news.found);
    XrefLoader nested(source, chain);
    for (AcDbBlockTableRecord* each : XrefBlocksOf(CoreOf(source), true))
        if (!each->isFromOverlayReference())
            nested.Load(*each);
    for (const XrefNews& each : nested.News())
        m_news.push_back(each);

    AcDbIdMapping map;
    map.setDestDb(&m_host);
    map.setDeepCloneContext(AcDb::kDcXrefInsert);
    Cloner(CoreOf(m_host), map).CloneXref(CoreOf(source), block);
    block.setOrigin(source.insbase());
    return AcDb::kXrfResolved;
}

AcDb::XrefStatus XrefLoader::Load(AcDbBlockTableRecord& block)
{
    Empty(block);
    const Quietly quietly(CoreOf(m_host));
    XrefNews news;
    ACHAR* path = nullptr;
    block.pathName(path);
    news.block = block.nameText();
    news.path = path;
    acutDelString(path);
    news.status = Read(block, news);
    block.setXrefStatus(news.status);
    const bool isResolved = news.status == AcDb::kXrfResolved;
    block.setBlockFlags(int16_t(isResolved ? block.blockFlags() | 32 : block.blockFlags() & ~32));
    m_news.push_back(std::move(news));
    return block.xrefStatus();
}

void XrefLoader::ResolveAll(bool newOnly)
{
    for (AcDbBlockTableRecord* block : XrefBlocksOf(CoreOf(m_host), true))
        if (!newOnly || (block->xrefStatus() != AcDb::kXrfResolved && !block->isUnloaded()))
            Load(*block);
}

}   // namespace KxPlat
