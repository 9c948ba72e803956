// The header section: the drawing's variables, and the handles of what every drawing has.
#pragma once
#include "HeaderRows.h"
#include "ObjectsIn.h"
#include "SectionBits.h"
#include <string>

namespace KxPlat {

struct DbCore;

struct HeaderValue {
    const HeaderRow* row = nullptr;
    double real[3] = {};   // of a time the days
    int64_t integer = 0;
    uint64_t handle = 0;
    std::wstring text;
};

struct HeaderContents {
    std::vector<HeaderValue> values;
    DwgRoots roots;
    // What stands elsewhere in the file and counts as a variable.
    const SectionForm* form = nullptr;
    std::wstring codePageName;
    std::wstring savedBy;   // from AC1018 on
    int measurement = 0;

    const HeaderValue* Find(std::string_view name) const;
};

HeaderContents ReadHeader(std::string_view section, const SectionForm& form, DwgReport& report);
// Makes header variables of the values, in the order of drawing exchange files. References become the names of records,
// so the objects must be there.
void TakeHeader(DbCore& core, const HeaderContents& contents);

std::string WriteHeader(const DbCore& core, const SectionForm& form, const DwgRoots& roots, uint64_t nextHandle);

}   // namespace KxPlat
