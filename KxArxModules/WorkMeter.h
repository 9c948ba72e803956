// Shows how far a command's work is, while it lasts.
#pragma once
#include "KxHost.h"

namespace KxArxModules {

class WorkMeter {
public:
    WorkMeter(const wchar_t* label, int count) { acedSetStatusBarProgressMeter(label, 0, count); }
    ~WorkMeter() { acedRestoreStatusBar(); }
    WorkMeter(const WorkMeter&) = delete;
    WorkMeter& operator=(const WorkMeter&) = delete;
    void Step() { acedSetStatusBarProgressMeterPos(-1); }
};

}   // namespace KxArxModules
