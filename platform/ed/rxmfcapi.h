// The progress meter of the host's status bar; a terminal shows it on a line of its own.
#pragma once
#include "../rx/AdeskTypes.h"

// All answer 0, or -1 where there is no meter. Work that is over in a moment shows nothing.
int acedSetStatusBarProgressMeter(const ACHAR* label, int least, int most);
int acedSetStatusBarProgressMeterPos(int position);   // a negative one goes on by that much
void acedRestoreStatusBar();                          // takes the meter away
