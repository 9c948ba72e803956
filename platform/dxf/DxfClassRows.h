// Classes of the database that are no part of the format itself: a file that holds objects of one says so in its
// CLASSES section.
#pragma once
#include "../db/AcDb.h"
#include <vector>

namespace KxPlat {

struct DbCore;

struct DxfClassRow {
    const char* dxfName;
    const wchar_t* className;
    const wchar_t* application;
    int proxyFlags;
    bool isEntity;
    int until;   // a part of the format from this version on
};

// The rows that the live objects need (with `newObjectsOnly` the ones that no file brought), without those that the
// drawing has already.
std::vector<const DxfClassRow*> ClassRowsFor(const DbCore& core, AcDb::AcDbDwgVersion version, bool newObjectsOnly);

}   // namespace KxPlat
