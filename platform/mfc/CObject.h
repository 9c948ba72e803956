// Root of MFC's classes. Objects are not copied.
#pragma once
#include "../win/KxWinTypes.h"

class CObject {
public:
    virtual ~CObject() = default;

protected:
    CObject() = default;
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;
};

// A place in a list or map: null before the first and behind the last.
typedef void* POSITION;
