#include "KxModule.h"

namespace KxMfcEx {

CKxModule::CKxModule()
{
    CKxModule::SetInstance(nullptr);
}

CKxModule::CKxModule(HINSTANCE h)
{
    CKxModule::SetInstance(h);
}

int CKxModule::SetInstance(HINSTANCE h)
{
    if (m_instance != nullptr)
        return 0;
    m_instance = h;
    wchar_t file[MAX_PATH] = {};
    GetModuleFileNameW(h, file, MAX_PATH);
    wchar_t drive[_MAX_DRIVE] = {};
    wchar_t folder[_MAX_DIR] = {};
    wchar_t name[_MAX_FNAME] = {};
    _wsplitpath(file, drive, folder, name, nullptr);
    m_folder = drive;
    m_folder += folder;
    m_name = name;
    return 1;
}

}   // namespace KxMfcEx
