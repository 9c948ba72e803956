// System variables: one table of names, types, limits and homes; values by name without regard to case.
#pragma once
#include "../rx/adsdef.h"
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

class AcApDocument;

namespace KxPlat {

enum class VarType { Short, Long, Real, Text, Point2, Point3 };

struct VarValue {
    VarType type = VarType::Short;
    int integer = 0;              // Short and Long
    double real[3] = {0, 0, 0};   // Real in the first, points
    std::wstring text;
};

enum class VarHome {
    Process,    // lives as long as the session
    Document,   // one for each document, not saved
    Header,     // saved in the drawing
    Computed    // asked from what it describes
};

struct VarRow {
    const wchar_t* name;
    VarType type;
    VarHome home;
    const wchar_t* byDefault;   // as typed; numbers of a point separated by commas
    int least = 0, most = 0;    // of integers, where `most` is above `least`
    bool isReadOnly = false;
    int groupCode = 0;   // Header: 0 stands for the usual one of the type
    bool (*get)(AcApDocument& document, VarValue& value) = nullptr;
    bool (*set)(AcApDocument& document, const VarValue& value) = nullptr;
};

struct VarTable {
    const VarRow* first;
    size_t count;
};
extern const VarTable kPlainVars;      // what is only stored
extern const VarTable kComputedVars;   // what has a meaning to the platform

// Null for an unknown name.
const VarRow* FindVar(std::wstring_view name);
std::vector<const VarRow*> AllVars();   // by name

enum class VarAnswer { Done, Unknown, ReadOnly, WrongType, OutOfRange, NoDocument };
VarAnswer GetVar(std::wstring_view name, VarValue& value);
// A whole number does for a real; a 2D point for a 3D one.
VarAnswer SetVar(std::wstring_view name, const VarValue& value);
// A read-only variable that the host itself sets.
void SetHostVar(std::wstring_view name, const VarValue& value);

VarValue VarOf(int value);
VarValue VarOf(std::wstring_view text);
// 0, or empty, where there is no such variable.
int IntegerVar(std::wstring_view name);
double RealVar(std::wstring_view name);
std::wstring TextVar(std::wstring_view name);

// As SETVAR shows and reads it.
std::wstring VarText(const VarValue& value);
bool VarFromText(std::wstring_view text, VarType type, VarValue& value);

}   // namespace KxPlat
