// Statuses of the host's calls, with their documented names.
#pragma once
#include "AdeskTypes.h"

namespace Acad {

enum ErrorStatus {
#define KX_STATUS(name, number) name = number,
#include "ErrorStatus.inc"
#undef KX_STATUS
};

}   // namespace Acad

// The name of a status, "eKeyNotFound"; "Unknown error" for a number that has none. The text lives for ever.
const ACHAR* acadErrorStatusText(Acad::ErrorStatus status);
