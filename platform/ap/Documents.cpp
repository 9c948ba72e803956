#include "Documents.h"
#include "../db/AcDbDatabase.h"
#include "../db/core/DbCore.h"
#include "../db/core/XrefLoader.h"
#include "../ui/HostUi.h"
#include "../win/CharTables.h"
#include "../win/Files.h"
#include "DocumentList.h"

namespace KxPlat {

namespace {

std::wstring NameOf(const std::wstring& path)
{
    return path.substr(path.find_last_of(L"\\/:") + 1);
}

struct ReasonRow {
    Acad::ErrorStatus status;
    const wchar_t* reason;
};

const ReasonRow g_reasons[] = {
    {Acad::eFileNotFound, L"no such file or folder"},
    {Acad::eFileAccessErr, L"access denied"},
    {Acad::eFileSystemErr, L"it cannot be written"},
    {Acad::eInvalidFileExtension, L"no drawing file format has this extension"},
    {Acad::eOutOfMemory, L"out of memory"},
};

std::wstring ReasonOf(Acad::ErrorStatus status)
{
    for (const ReasonRow& row : g_reasons) {
        if (row.status == status)
            return row.reason;
    }
    return acadErrorStatusText(status);
}

// A drawing's own words where it could be read at all.
Acad::ErrorStatus Read(AcDbDatabase& database, const std::wstring& path, std::wstring& why)
{
    const FileInfo info = FileInfoOf(HostPath(path));
    Acad::ErrorStatus status = Acad::eFileNotFound;
    if (info.isFolder)
        why = L"it is a folder";
    else if (!info.exists)
        why = L"no such file";
    else
        status = database.readDwgFile(path.c_str());
    if (status != Acad::eOk && why.empty())
        why = LastReadReport().error.empty() ? ReasonOf(status) : LastReadReport().error;
    return status;
}

// One that is missing is no reason not to open: its block stays, and so does its path.
void ResolveXrefs(AcDbDatabase& database)
{
    XrefLoader loader(database);
    loader.ResolveAll(false);
    for (const XrefNews& news : loader.News())
        if (!news.why.empty())
            Ui().Complain(L"xref \"" + news.block + L"\": " + news.path + L": " + news.why);
}

AcApDocument* Added(std::unique_ptr<AcDbDatabase> database, const std::wstring& path, bool isNamed)
{
    auto state = std::make_unique<DocumentState>();
    state->database = std::move(database);
    state->fileName = path;
    state->title = NameOf(path);
    state->isNamed = isNamed;
    const FileInfo info = FileInfoOf(HostPath(path));
    state->isReadOnly = isNamed && info.exists && !info.writable;
    return Documents().Add(std::move(state));
}

}   // namespace

AcApDocument* AddDocument(std::unique_ptr<AcDbDatabase> database, const std::wstring& fileName)
{
    const bool isNamed = !fileName.empty();
    return Added(std::move(database), isNamed ? FullDrivePath(fileName) : Documents().NewName(), isNamed);
}

Acad::ErrorStatus OpenDrawing(const std::wstring& path, AcApDocument*& document, std::wstring& why)
{
    document = nullptr;
    why.clear();
    auto database = std::make_unique<AcDbDatabase>(false);
    const std::wstring full = FullDrivePath(path);
    const Acad::ErrorStatus status = Read(*database, full, why);
    if (status == Acad::eOk)
        ResolveXrefs(*database);
    if (status == Acad::eOk)
        document = AddDocument(std::move(database), full);
    return status;
}

Acad::ErrorStatus NewDrawing(const std::wstring& templatePath, AcApDocument*& document, std::wstring& why)
{
    document = nullptr;
    why.clear();
    const bool isPlain = templatePath.empty();
    auto database = std::make_unique<AcDbDatabase>(isPlain);
    const Acad::ErrorStatus status = isPlain ? Acad::eOk : Read(*database, FullDrivePath(templatePath), why);
    if (status == Acad::eOk) {
        CoreOf(*database).fileName.Empty();
        document = AddDocument(std::move(database), L"");
    }
    return status;
}

// A drawing that came as text goes back as text, a binary one as binary, in the version that it had.
Acad::ErrorStatus SaveDrawing(AcApDocument& document, const std::wstring& path, AcDb::AcDbDwgVersion version,
                              std::wstring& why)
{
    why.clear();
    if (version == AcDb::kDHL_CURRENT)
        version = StateOf(document).saveVersion;
    const std::wstring full = FullDrivePath(path);
    Acad::ErrorStatus status = Acad::eFileAccessErr;
    if (FileInfoOf(HostPath(full)).isFolder)
        why = L"it is a folder";
    else
        status = document.database()->saveAs(full.c_str(), false, version);
    if (status == Acad::eOk)
        CoreOf(*document.database()).modified = 0;
    else if (why.empty())
        why = ReasonOf(status);
    return status;
}

void RenameDocument(AcApDocument& document, const std::wstring& path)
{
    DocumentState& state = StateOf(document);
    state.fileName = FullDrivePath(path);
    state.title = NameOf(state.fileName);
    state.isNamed = true;
    state.isReadOnly = false;
    CoreOf(*state.database).fileName = state.fileName.c_str();
    Documents().Tell([&](AcApDocManagerReactor& reactor) { reactor.documentTitleUpdated(&document); });
}

const std::vector<AcApDocument*>& OpenDocuments()
{
    return Documents().All();
}

void MakeCurrent(AcApDocument* document)
{
    Documents().MakeCurrent(document);
}

void CloseAllDocuments()
{
    Documents().CloseAll();
}

HINSTANCE ResourceHandle()
{
    return Documents().resources.empty() ? nullptr : Documents().resources.back();
}

void SetDocumentListener(DocumentListener listener)
{
    Documents().listener = std::move(listener);
}

}   // namespace KxPlat
