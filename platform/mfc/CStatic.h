// A label.
#pragma once
#include "CWnd.h"

class CStatic : public CWnd {};
