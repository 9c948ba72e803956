// The last word of a program that cannot go on.
#pragma once
#include "AdeskTypes.h"

// Prints the text, formatted by the Microsoft rules, and ends the process abnormally.
[[noreturn]] void acrx_abort(const ACHAR* format, ...);
