// The base command module: its start and stop, its hooks per drawing, and the handlers of its commands.
// Commands stand in one table (CommandTable.cpp); a handler is found by its command's name in one of the Cmd*.cpp
// files.
#pragma once
#include "KxArxBase/ArxModuleRegManage.h"

namespace KxArxModules {

class KXARX_API KxCadBaseModule : public KxArxBase::CArxModuleRegManage {
public:
    KxCadBaseModule();
    ~KxCadBaseModule() override;

    int InitModule() override;
    int UnloadModule() override;
    Acad::ErrorStatus AcrxLoadDwgMsg() override;
    Acad::ErrorStatus AcrxUnloadDwgMsg() override;

    // Libraries of the host's pictures and texts; null where the host has none.
    HINSTANCE GetAcadBtnHistance() const { return m_buttonLibrary; }
    HINSTANCE GetAcadResHistance() const { return m_resourceLibrary; }

    // Prints some messages and answers 1 for them. For modules that want to trace; registered nowhere.
    static int DoHook(void* hook, const MSG* msg);

    // --- programs listed in a configuration file (CmdPrograms.cpp) --------------------------------------------------
    static void LoadUnLoadPro(const wchar_t* iniFile, int bLoad);
    static int GetConfigData(CStringArray& supportPaths, CStringArray& acadPrograms, CStringArray& dlls,
                             const wchar_t* iniFile);
    // Resolves a path against the module folder; the result ends in "\".
    static int PathChange(const wchar_t* relPath, CString& result);

    // --- what the layer commands share (CmdLayers.cpp) --------------------------------------------------------------
    // Flips every flag of a record of layer names and flags, and applies it to the state asked for.
    static Acad::ErrorStatus LayerReverse(resbuf*& list, int bOff, int bFrozen, int bLocked);
    // Names of the layers of no picked object; those off, frozen or locked only where asked for.
    static Acad::ErrorStatus GetNoSelectLayers(const AcArray<AcDbObjectId>& picked, CStringArray& names, int bWithOff,
                                               int bWithFrozen, int bWithLocked);

    // --- handlers ---------------------------------------------------------------------------------------------------
    static void CmdTestKxCadBase();
    static void CmdCleanBlock();
    static void CmdCleanDimStyle();
    static void CmdCleanLineStyle();
    static void CmdCleanPrintStyle();
    static void CmdCleanShape();
    static void CmdCleanTextStyle();
    static void CmdCleanMlineStyle();
    static void CmdCleanDatabase();
    static void CmdCleanLayer();
    static void CmdInsertFile();
    static void CmdDeleteNoPickObjectInCurSpaceSure();
    static void CmdDeleteNoPickObjectInCurSpace();
    static void CmdHidePickObject();
    static void CmdHideNoPickObject();
    static void CmdShowAllObject();
    static void CmdReversePickObject();
    static void CmdHidePickObjectLayer();
    static void CmdHideNoPickObjectLayer();
    static void CmdShowAllLayer();
    static void CmdReverseHidePickLayer();
    static void CmdShowAllObjectAndLayer();
    static void CmdFrozenPickObjectLayer();
    static void CmdFrozenNoPickObjectLayer();
    static void CmdUnFrozenAllLayer();
    static void CmdReverseFrozenPickLayer();
    static void CmdLockPickLayer();
    static void CmdLockNoPickLayer();
    static void CmdUnLockPickLayer();
    static void CmdUnLockAllLayer();
    static void CmdReverseLockPickLayer();
    static void CmdChangePickObjectLayer();
    static void CmdSaveLayerStatus();
    static void CmdRecoverLayerStatus();
    static void CmdKxListCloseLayer();
    static void CmdKxListForzenLayer();
    static void CmdKxListLockLayer();
    static void CmdKxLayerWalk();
    static void CmdKxSetCurLayer();
    static void CmdKxObjectChangeToCurLayer();
    static void CmdKxCombineLayer();
    static void CmdAddToolTipToObject();
    static void CmdRemoveToolTipToObject();
    static void CmdPickObjectDeleteLayerObjects();
    static void CmdDlgAbout();
    static void CmdMakeGroup();
    static void CmdZValueToZero();
    static void CmdSetLayerToFront();
    static void CmdSetlayerToBack();
    static void CmdKxAlignText();
    static void CmdLoadProFromIni();
    static void CmdUnLoadProFromIni();

    // (InsertBlockFromFile file block [newname]): T, or nil where the block did not come in.
    static int FunInsertBlockFromFile(resbuf* args);

private:
    void RegisterCommands();
    CString IniPath();
    static void LoadPrograms(const CStringArray& programs);
    static void LoadLibraries(const CStringArray& dlls);
    static void UnloadPrograms(const CStringArray& programs);
    static void UnloadLibraries(const CStringArray& dlls);

    HINSTANCE m_buttonLibrary = nullptr;
    HINSTANCE m_resourceLibrary = nullptr;
    CStringArray m_loadedPrograms;   // paths, in load order
    CMap<CString, const wchar_t*, HINSTANCE, HINSTANCE> m_loadedLibraries{10};
};

// The one module object of this library, alive while the library is loaded.
KxCadBaseModule& BaseModule();
// Where the module's dialogs and texts are; null before the library's entry was called.
HINSTANCE ModuleResources();

}   // namespace KxArxModules
