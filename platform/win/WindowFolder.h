// The entries of published windows on the disk.
#pragma once
#include "PublishedWindow.h"
#include <optional>
#include <string>
#include <vector>

namespace KxPlat {

// A handle holds the process and the number of the window in it, so that it is the same in every process.
HWND WindowHandle(DWORD processId, unsigned number);
DWORD ProcessOfWindow(HWND window);

std::string WindowFolder();
std::string WindowSocketFile(DWORD processId);

bool WriteWindow(HWND window, const WindowFacts& facts);
void EraseWindow(HWND window);
// Nothing for a window that is not there, or whose process has ended.
std::optional<WindowFacts> ReadWindow(HWND window);
// In rising order.
std::vector<HWND> AllWindows();

// A process lives as long as it holds its mark. What a dead process left behind is removed by who meets it.
bool HoldLifeMark();
void DropLifeMark();   // with all files of this process
bool IsAlive(DWORD processId);

}   // namespace KxPlat
