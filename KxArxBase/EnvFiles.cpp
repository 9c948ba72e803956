// The host's search path, and the version of drawing files.
#include "Env.h"
#include <cstring>

namespace KxArxBase::Env {

namespace {

const wchar_t* const g_supportPath = L"ACAD";   // the environment value that holds the folders, separated by ";"

struct HeaderRow {
    const char* header;
    int format;
};

const HeaderRow g_headers[] = {{"AC1014", 8},  {"AC1015", 12}, {"AC1018", 24},
                               {"AC1021", 36}, {"AC1024", 48}, {"AC1027", 60}};

// The first bytes of a file; a text that fits no version when it cannot be read.
void ReadHeader(const CString& file, char (&header)[8])
{
    std::memset(header, 0, sizeof(header));
    try {
        CFile stream(file, CFile::modeRead | CFile::typeBinary | CFile::shareDenyNone);
        stream.Read(header, 7);
    } catch (CException* failure) {
        failure->Delete();
        std::strcpy(header, "HELLO");
    }
}

CString WithoutFolder(const CString& folders, const CString& removed)
{
    CString kept;
    CString folder;
    bool any = false;
    for (int field = 0; AfxExtractSubString(folder, folders, field, L';'); ++field) {
        if (folder == removed)
            continue;
        if (any)
            kept += L";";
        kept += folder;
        any = true;
    }
    return kept;
}

}   // namespace

Acad::ErrorStatus SetCurProfileSupportPath(const wchar_t* path, int add)
{
    if (path == nullptr || *path == L'\0')
        return Acad::eInvalidInput;
    wchar_t stored[5000] = {};
    acedGetEnv(g_supportPath, stored, 5000);
    CString folders = stored;
    CString folder = path;
    folders.MakeLower();
    folder.MakeLower();
    CString changed;
    if (add == 0)
        changed = WithoutFolder(folders, folder);
    else if (folders.Find(folder) >= 0)
        return Acad::eOk;
    else
        changed = folders + L";" + folder;
    return acedSetEnv(g_supportPath, changed) == RTNORM ? Acad::eOk : Acad::eInvalidInput;
}

AcApDocument::SaveFormat GetSaveFormatVersion(CString file)
{
    char header[8];
    ReadHeader(file, header);
    if (std::strncmp(header, "AC", 2) != 0)
        return AcApDocument::SaveFormat(-1);
    for (const HeaderRow& row : g_headers) {
        if (std::strcmp(header, row.header) == 0)
            return AcApDocument::SaveFormat(row.format);
    }
    return AcApDocument::SaveFormat(0);
}

}   // namespace KxArxBase::Env
