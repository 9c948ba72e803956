#include "DrawingInfo.h"
#include "db/AcDbBlockTableRecord.h"
#include "db/AcDbDatabase.h"
#include "db/AcDbDictionary.h"
#include "db/AcDbLayerTableRecord.h"
#include "db/AcDbSymbolTable.h"
#include "db/core/DbCore.h"
#include "db/core/FileFormats.h"
#include "db/core/NameIndex.h"
#include "dxf/DxfNames.h"
#include "dxf/DxfVersion.h"
#include "win/CodePage.h"
#include "win/Files.h"
#include <map>
#include <memory>

using namespace KxPlat;

namespace KxConsole {

namespace {

std::string Utf8(const CString& text)
{
    return ToUtf8(std::wstring_view(text, size_t(text.GetLength())));
}

bool IsLive(const AcDbStub* stub)
{
    return stub != nullptr && stub->object != nullptr && !stub->erased;
}

class Info {
public:
    explicit Info(AcDbDatabase& database) : m_core(CoreOf(database)) {}
    std::string Lines();

private:
    void Line(const char* title, const std::string& text)
    {
        std::string start = title;
        start.resize(14, ' ');
        m_lines += start + text + "\n";
    }
    void Format();
    void Layers();
    void Blocks();
    void Entities(const AcDbBlockTableRecord& block, const std::string& title);
    void Groups();
    void Faults();

    DbCore& m_core;
    std::string m_lines;
};

void Info::Format()
{
    const FileForm& form = m_core.form;
    Line("format",
         std::string(form.isDxf ? form.isBinary ? "binary DXF " : "DXF " : "DWG ") + NameOfVersion(form.version));
    Line("code page", Utf8(form.codePage));
    if (const CString savedBy = m_core.header.Text("$LASTSAVEDBY"); !savedBy.IsEmpty())
        Line("saved by", Utf8(savedBy));
}

void Info::Layers()
{
    size_t count = 0;
    std::string names;
    for (const AcDbStub* stub : m_core.Table(TableKind::Layer)->records()) {
        if (!IsLive(stub))
            continue;
        const auto& layer = static_cast<const AcDbLayerTableRecord&>(*stub->object);
        ++count;
        names += "  " + Utf8(layer.nameText());
        const struct {
            bool is;
            const char* text;
        } states[] = {{layer.isOff(), " off"}, {layer.isFrozen(), " frozen"}, {layer.isLocked(), " locked"}};
        for (const auto& state : states)
            names += state.is ? state.text : "";
        names += "\n";
    }
    Line("layers", std::to_string(count));
    m_lines += names;
}

// "3  (2 LINE, 1 TEXT)"
void Info::Entities(const AcDbBlockTableRecord& block, const std::string& title)
{
    std::map<std::string, size_t> kinds;
    size_t count = 0;
    for (const AcDbStub* stub : block.entities()) {
        if (!IsLive(stub))
            continue;
        ++count;
        ++kinds[DxfNameOf(*stub->object)];
    }
    std::string list;
    for (const auto& [kind, number] : kinds)
        list += (list.empty() ? "  (" : ", ") + std::to_string(number) + " " + kind;
    Line(title.c_str(), std::to_string(count) + list + (list.empty() ? "" : ")"));
}

void Info::Blocks()
{
    size_t count = 0;
    std::string xrefs;
    for (const AcDbStub* stub : m_core.Table(TableKind::Block)->records()) {
        if (!IsLive(stub))
            continue;
        const auto& block = static_cast<const AcDbBlockTableRecord&>(*stub->object);
        if (block.isModelSpace())
            Entities(block, "model space");
        else if (block.isPaperSpace())
            Entities(block, Utf8(block.nameText()));
        else
            ++count;
        ACHAR* path = nullptr;
        if (block.isFromExternalReference() && block.pathName(path) == Acad::eOk) {
            xrefs += "  xref " + Utf8(block.nameText()) + ": " + ToUtf8(path) + "\n";
            acutDelString(path);
        }
    }
    Line("blocks", std::to_string(count));
    m_lines += xrefs;
}

void Info::Groups()
{
    const AcDbStub* stub = m_core.database->groupDictionaryId();
    const AcDbDictionary* groups = IsLive(stub) ? AcDbDictionary::cast(stub->object) : nullptr;
    Line("groups", std::to_string(groups == nullptr ? 0 : groups->numEntries()));
}

void Info::Faults()
{
    const ReadReport& report = LastReadReport();
    Line("faults", std::to_string(report.repairs));
    for (const std::wstring& line : report.lines)
        m_lines += "  " + ToUtf8(line) + "\n";
}

std::string Info::Lines()
{
    Format();
    Layers();
    Blocks();
    Groups();
    size_t objects = 0;
    m_core.handles.ForEach([&](const AcDbStub& stub) { objects += IsLive(&stub); });
    Line("objects", std::to_string(objects));
    Faults();
    return m_lines;
}

}   // namespace

bool DrawingInfo(const std::string& path, std::string& lines, std::wstring& why)
{
    AcDbDatabase database(false, true);
    const Acad::ErrorStatus status = database.readDwgFile(FullDrivePath(FromUtf8(path)).c_str());
    if (status != Acad::eOk) {
        why = LastReadReport().error.empty() ? acadErrorStatusText(status) : LastReadReport().error;
        return false;
    }
    lines = path + "\n" + Info(database).Lines();
    return true;
}

}   // namespace KxConsole
