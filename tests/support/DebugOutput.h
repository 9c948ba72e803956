// What is sent to the debugger while the object lives, in the ANSI code page.
#pragma once
#include <gtest/gtest.h>

namespace KxTest {

class DebugOutput {
public:
    DebugOutput() { testing::internal::CaptureStderr(); }
    // Once.
    std::string Text() { return testing::internal::GetCapturedStderr(); }
};

}   // namespace KxTest
