// What is sent to the debugger while the object lives, in the ANSI code page: the reader's side of the protocol between
// OutputDebugString and its viewers.
#pragma once
#include "KxWin.h"
#include <string>
#include <thread>

namespace KxTest {

class DebugOutput {
public:
    DebugOutput()
    {
        m_ready = CreateEventW(nullptr, FALSE, TRUE, L"DBWIN_BUFFER_READY");
        m_data = CreateEventW(nullptr, FALSE, FALSE, L"DBWIN_DATA_READY");
        m_end = CreateEventW(nullptr, TRUE, FALSE, nullptr);
        m_section = CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, 4096, L"DBWIN_BUFFER");
        m_view = static_cast<const char*>(MapViewOfFile(m_section, FILE_MAP_READ, 0, 0, 4096));
        m_reader = std::thread([this] { Read(); });
    }
    ~DebugOutput()
    {
        Stop();
        UnmapViewOfFile(m_view);
        for (HANDLE handle : {m_ready, m_data, m_end, m_section})
            CloseHandle(handle);
    }
    DebugOutput(const DebugOutput&) = delete;
    DebugOutput& operator=(const DebugOutput&) = delete;

    // Once.
    std::string Text()
    {
        Stop();
        return m_text;
    }

private:
    void Read()
    {
        const HANDLE events[] = {m_data, m_end};
        while (WaitForMultipleObjects(2, events, FALSE, INFINITE) == WAIT_OBJECT_0) {
            m_text += m_view + sizeof(DWORD);   // behind the number of the process
            SetEvent(m_ready);
        }
    }
    void Stop()
    {
        SetEvent(m_end);
        if (m_reader.joinable())
            m_reader.join();
    }

    HANDLE m_ready, m_data, m_end, m_section;
    const char* m_view;
    std::thread m_reader;
    std::string m_text;
};

}   // namespace KxTest
