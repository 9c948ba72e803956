// One loaded module: its instance handle, folder and name.
// Until a handle is set it reports the host program's folder and name, because the module's global object is made
// before the module hears of its handle.
#pragma once
#include "KxObject.h"

namespace KxMfcEx {

class KXARX_API CKxModule : public CKxObject {
public:
    CKxModule();
    CKxModule(HINSTANCE h);

    // Takes the handle and the names of its file: 1. A second handle is refused: 0, and nothing changes.
    virtual int SetInstance(HINSTANCE h);
    virtual int InitModule() = 0;
    virtual int UnloadModule() = 0;

    HINSTANCE GetInstance() { return m_instance; }
    CString GetModulePath() { return m_folder; }   // drive and folder, ending in a separator
    CString GetModuleName() { return m_name; }     // without extension

private:
    HINSTANCE m_instance = nullptr;
    CString m_folder;
    CString m_name;
};

}   // namespace KxMfcEx
