// Programs listed in a configuration file: loaded at start and by command, unloaded at the end.
#include "KxArxBase/Env.h"
#include "KxArxBase/KxMessages.h"
#include "KxCadBaseModule.h"
#include "KxMfcEx/Processes.h"

namespace KxArxModules {

using KxArxBase::DebugCmdMsg;
using KxArxBase::MsgCmdInfo;

namespace {

const int kMostCharacters = 260;   // of one value, its end included

bool IsAbsolute(const CString& path)
{
    return path.GetLength() > 1 && path.GetAt(1) == L':';
}

CString WithBackslashes(const CString& path)
{
    CString changed = path;
    changed.Replace(L"/", L"\\");
    changed.Replace(L"//", L"\\");
    return changed;
}

// The file or folder that an entry means: relative ones are looked for from the module folder.
CString Resolved(CString entry)
{
    entry.TrimLeft();
    if (IsAbsolute(entry)) {
        entry.TrimRight(L'\\');
        return entry;
    }
    CString path;
    KxCadBaseModule::PathChange(entry, path);
    path.TrimRight(L'\\');
    return path;
}

CString IniValue(const CString& section, const wchar_t* key, const CString& file)
{
    wchar_t value[kMostCharacters] = {};
    GetPrivateProfileStringW(section, key, L"", value, kMostCharacters, file);
    return value;
}

// The section for the running release where it has a count, else the plain one.
CString SectionFor(const wchar_t* name, const CString& file)
{
    int version = 0;
    if (KxArxBase::Env::GetCurACADVer(version) != Acad::eOk)
        return name;
    CString specific;
    specific.Format(L"%s_%d", name, version);
    const bool is64Bit = sizeof(void*) == 8 || KxMfcEx::IsWin64() != 0;   // of a 32-bit process only the call knows
    specific += is64Bit ? L"_X64" : L"_WIN32";
    return IniValue(specific, L"Num", file).IsEmpty() ? CString(name) : specific;
}

void ReadEntries(const CString& section, const CString& file, CStringArray& entries)
{
    const int count = _wtoi(IniValue(section, L"Num", file));
    for (int i = 1; i <= count; ++i) {
        CString key;
        key.Format(L"%d", i);
        const CString entry = IniValue(section, key, file);
        if (!entry.IsEmpty())
            entries.Add(entry);
    }
}

struct ScriptRow {
    const wchar_t* extension;
    const wchar_t* before;
    const wchar_t* after;
};

// The last row serves every extension that stands in none.
const ScriptRow g_scripts[] = {{L".FAS", L"(vl-load-all \"", L"\") "},
                               {L".VLX", L"(vl-load-all \"", L"\") "},
                               {L".DVB", L"(vl-vbaload \"", L"\") "},
                               {L".DLL", L"netload \"", L"\" \n"},
                               {L"", L"(LOAD \"", L"\") "}};

CString UpperExtension(const CString& path)
{
    wchar_t extension[_MAX_EXT] = {};
    _wsplitpath(path, nullptr, nullptr, nullptr, extension);
    CString upper = extension;
    upper.MakeUpper();
    return upper;
}

bool SendToHost(const CString& path, const CString& extension)
{
    const ScriptRow* row = g_scripts;
    while (*row->extension != L'\0' && extension != row->extension)
        ++row;
    if (extension == L".DLL")
        KxArxBase::Env::SetCadSysVar(L"FILEDIA", 0);   // stays so
    CString text = row->before + path + row->after;
    text.Replace(L"\\", L"/");
    return acDocManager->sendStringToExecute(acDocManager->curDocument(), text, true, false, true) == Acad::eOk;
}

AcRxDynamicLinker* Linker()
{
    return AcRxDynamicLinker::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER));
}

INT_PTR FindNoCase(const CStringArray& texts, const CString& text)
{
    for (INT_PTR i = 0; i < texts.GetSize(); ++i) {
        if (texts.GetAt(i).CompareNoCase(text) == 0)
            return i;
    }
    return -1;
}

void AskForIni(int bLoad)
{
    wchar_t answer[520] = {};
    if (acedGetString(1, L"\n 请输入配置文件(*.Ini)：", answer) == RTNORM)
        KxCadBaseModule::LoadUnLoadPro(answer, bLoad);
}

}   // namespace

int KxCadBaseModule::PathChange(const wchar_t* relPath, CString& result)
{
    if (relPath == nullptr)
        return 0;
    const CString parts = WithBackslashes(relPath) + L"\\";
    CString built = WithBackslashes(BaseModule().GetModulePath());
    built.TrimRight(L'\\');
    CString part;
    for (int field = 0; AfxExtractSubString(part, parts, field, L'\\'); ++field) {
        if (part == L".")
            continue;
        if (part == L"..") {
            const int end = built.ReverseFind(L'\\');
            built = built.Left(end > 0 ? end : 0);
            built.TrimRight(L'\\');
        } else {
            built += L"\\" + part;
        }
    }
    result = built;
    return 1;
}

int KxCadBaseModule::GetConfigData(CStringArray& supportPaths, CStringArray& acadPrograms, CStringArray& dlls,
                                   const wchar_t* iniFile)
{
    if (iniFile == nullptr)
        return 0;
    CString file = iniFile;
    if (!IsAbsolute(file))
        PathChange(iniFile, file);   // keeps its final "\": a file named without a drive gives no entries
    ReadEntries(L"SUPPORTPATH", file, supportPaths);
    ReadEntries(SectionFor(L"LOAD_ACAD", file), file, acadPrograms);
    ReadEntries(SectionFor(L"LOAD_ADLL", file), file, dlls);
    return 1;
}

void KxCadBaseModule::LoadUnLoadPro(const wchar_t* iniFile, int bLoad)
{
    CFileStatus status;
    CStringArray supportPaths, programs, dlls;
    if (iniFile == nullptr || !CFile::GetStatus(iniFile, status) ||
        !GetConfigData(supportPaths, programs, dlls, iniFile))
        return;
    for (INT_PTR i = 0; i < supportPaths.GetSize(); ++i)
        KxArxBase::Env::SetCurProfileSupportPath(Resolved(supportPaths.GetAt(i)), bLoad);
    if (bLoad != 0) {
        LoadLibraries(dlls);
        LoadPrograms(programs);
    } else {
        UnloadPrograms(programs);
        UnloadLibraries(dlls);
    }
}

void KxCadBaseModule::LoadLibraries(const CStringArray& dlls)
{
    for (INT_PTR i = 0; i < dlls.GetSize(); ++i) {
        const CString path = Resolved(dlls.GetAt(i));
        const HINSTANCE library = LoadLibraryW(path);
        if (library != nullptr)
            BaseModule().m_loadedLibraries.SetAt(path, library);
        MsgCmdInfo(library != nullptr ? L"\n... 加载成功 %s ..." : L"\n... 加载失败 %s ...", path.GetString());
    }
}

void KxCadBaseModule::LoadPrograms(const CStringArray& programs)
{
    for (INT_PTR i = 0; i < programs.GetSize(); ++i) {
        CString entry = programs.GetAt(i);
        entry.TrimLeft();
        if (entry.GetLength() <= 1)
            continue;
        const CString path = Resolved(entry);
        const CString extension = UpperExtension(path);
        const bool isModule = extension == L".ARX" || extension == L".DBX";
        AcRxDynamicLinker* linker = Linker();
        const bool loaded =
            isModule ? linker != nullptr && linker->loadModule(path, false, false) : SendToHost(path, extension);
        if (loaded)
            BaseModule().m_loadedPrograms.Add(path);
        if (isModule)
            MsgCmdInfo(loaded ? L"\n... ARX/DBX加载成功 %s ...\n" : L"\n... ARX/DBX加载失败 %s ...\n",
                       path.GetString());
        else
            MsgCmdInfo(loaded ? L"\n... 加载成功 %s ...\n" : L"\n... 加载失败 %s ...\n", path.GetString());
    }
}

void KxCadBaseModule::UnloadPrograms(const CStringArray& programs)
{
    DebugCmdMsg(L"\n...[模块卸载]  CmdUnloadAll...");
    CStringArray& loaded = BaseModule().m_loadedPrograms;
    CString path;   // of the last relative entry: an absolute one is looked up under it, too, and so is not found
    for (INT_PTR i = 0; i < programs.GetSize(); ++i) {
        CString entry = programs.GetAt(i);
        entry.TrimLeft();
        if (entry.GetLength() > 1 && !IsAbsolute(entry))
            PathChange(entry, path);
        path.TrimRight(L'\\');
        const INT_PTR at = FindNoCase(loaded, path);
        AcRxDynamicLinker* linker = Linker();
        const bool unloaded = at >= 0 && linker != nullptr && linker->unloadModule(path, false);
        if (unloaded)
            loaded.RemoveAt(at);
        const CString& named = IsAbsolute(entry) ? entry : path;
        MsgCmdInfo(unloaded ? L"\n... 卸载成功 %s ..." : L"\n... 卸载失败 %s ...", named.GetString());
    }
}

void KxCadBaseModule::UnloadLibraries(const CStringArray& dlls)
{
    DebugCmdMsg(L"\n...[动态库卸载]  CmdUnloadAllDll...");
    auto& loaded = BaseModule().m_loadedLibraries;
    for (INT_PTR i = 0; i < dlls.GetSize(); ++i) {
        const CString path = Resolved(dlls.GetAt(i));
        HINSTANCE library = nullptr;
        if (!loaded.Lookup(path, library))
            continue;
        const bool freed = FreeLibrary(library) != FALSE;
        if (freed)
            loaded.RemoveKey(path);
        MsgCmdInfo(freed ? L"\n... DLL卸载成功 %s ..." : L"\n... DLL卸载失败 %s ...", path.GetString());
    }
}

void KxCadBaseModule::CmdLoadProFromIni()
{
    AskForIni(1);
}

void KxCadBaseModule::CmdUnLoadProFromIni()
{
    AskForIni(0);
}

}   // namespace KxArxModules
