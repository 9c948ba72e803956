// The words of the command line. Each answers a status to leave with.
#pragma once
#include "Options.h"

namespace KxLaunch {

int List();
int Start(const Options& options);
int Send(const Options& options);

}   // namespace KxLaunch
