// The modules of this session: loading, messages, unloading. It is the "DynamicLinker" of the system registry, too.
#pragma once
#include "../rx/AcRxDynamicLinker.h"
#include <memory>
#include <string>
#include <vector>

class AcApDocument;

namespace KxPlat {

// While it lives, modules can be loaded; it unloads all of them in the end, the youngest first.
std::unique_ptr<AcRxDynamicLinker> NewDynamicLinker();

// Passes a message to the module with this application id. kRetError for one that is not loaded.
AcRx::AppRetCode SendToModule(void* appId, AcRx::AppMsgCode message);
// To all modules in the order of loading, with the document as the current one where there is one.
void SendToModules(AcRx::AppMsgCode message, AcApDocument* document = nullptr);
void UnloadAllModules();

// Application id of the module whose code runs now; null for the host.
void* RunningModule();
std::vector<std::wstring> LoadedModules();   // paths in drive form

// What the last load or unload of a module ended with, in one line; empty after success.
const std::wstring& LastModuleFault();

}   // namespace KxPlat
