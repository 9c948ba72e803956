// Modules with resources, attached to the chain as long as the object lives.
#pragma once
#include "mfc/AfxExtensionModule.h"
#include "win/Files.h"
#include "win/Modules.h"
#include <gtest/gtest.h>

class TestModule {
public:
    explicit TestModule(const char* name)
        : m_handle(LoadLibraryW(KxPlat::DrivePath(std::string(KX_BIN) + "/" + name + ".arx").c_str()))
    {
        EXPECT_NE(m_handle, nullptr) << name;
        if (AfxInitExtensionModule(m_state, m_handle))
            new CDynLinkLibrary(m_state);
    }
    ~TestModule()
    {
        AfxTermExtensionModule(m_state);
        FreeLibrary(m_handle);
    }
    TestModule(const TestModule&) = delete;
    HINSTANCE Handle() const { return m_handle; }

private:
    AFX_EXTENSION_MODULE m_state = {};
    HINSTANCE m_handle;
};
