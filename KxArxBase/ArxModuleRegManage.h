// A module of the family as the host sees it: takes the host's messages, and keeps the book of what the module has
// registered, so that unloading removes exactly that. A module derives from it and has one global object of its class.
#pragma once
#include "KxHost.h"
#include "KxMfcEx/KxExport.h"
#include "KxMfcEx/KxModule.h"

namespace KxArxBase {

class KXARX_API CArxModuleRegManage : public KxMfcEx::CKxModule {
public:
    // One command to register.
    struct tagAutoCadCmd {
        wchar_t globalName[64];
        wchar_t localName[64];
        int32_t flags;   // ACRX_CMD_... of the host
        void (*function)();
    };
    // One LISP function. A copy takes the name up to its end only.
    struct KXARX_API tagDefun {
        wchar_t name[64];
        int (*function)(resbuf*);   // returns an RT... code; gives its value with acedRet...
        int code;

        tagDefun() : name(), function(nullptr), code(0) {}
        tagDefun(const tagDefun& other) : tagDefun() { *this = other; }
        tagDefun& operator=(const tagDefun& other);
        bool operator==(const tagDefun& other) const;
    };

    CArxModuleRegManage();
    explicit CArxModuleRegManage(HINSTANCE h);
    ~CArxModuleRegManage() override;

    // Succeeds once; forgets groups and application id when it does.
    int SetInstance(HINSTANCE h) override;
    virtual Acad::ErrorStatus AcrxLoadDwgMsg();
    virtual Acad::ErrorStatus AcrxUnloadDwgMsg();
    virtual AcRx::AppRetCode AppAcrxEntryPoint(AcRx::AppMsgCode msg, void* appId);
    // Unlocks the application and tells the host whether it copes with several documents; false before kInitAppMsg.
    bool AppAcrxregisterMDIAware(int bMDIAware);

    // A null group stands for the module's name. The host's refusal is printed, and tried again for the caller.
    Acad::ErrorStatus RegCmd(const wchar_t* group, const wchar_t* globalName, const wchar_t* localName, void (*func)(),
                             long flags);
    Acad::ErrorStatus RegCmd(tagAutoCadCmd* const cmds, int count, const wchar_t* group);
    // A name: 1 or 0. Null: every registered group; returns how many were removed.
    int RemoveCmd(const wchar_t* group);

    // The host's answer, RTNORM on success.
    int Defun(tagDefun def, int bDefine);
    Acad::ErrorStatus Defun(tagDefun* const defs, int count);
    // A null list stands for everything defined; see the source for what one such walk leaves.
    Acad::ErrorStatus Undefine(tagDefun* const defs, int count);
    // A negative code and null arguments are asked from the host; only such arguments are released here.
    int DoDefun(int funcCode, resbuf* args);

private:
    bool IsGroupRecorded(const CString& group) const;
    int RemoveAllGroups();
    void RecordDefun(const tagDefun& def);
    int FindDefun(const tagDefun& def) const;

    CStringArray m_groups;
    void* m_appId = nullptr;
    AcArray<tagDefun> m_defuns{0, 8};
};

}   // namespace KxArxBase
