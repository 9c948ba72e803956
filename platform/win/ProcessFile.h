// What the system tells of a process.
#pragma once
#include <cstdint>
#include <string>

namespace KxPlat {

uint32_t OwnProcessId();
// 0 or a Windows error: 87 when there is no such process, 5 when it is another user's.
uint32_t ProcessFile(uint32_t processId, std::string& file);

}   // namespace KxPlat
