// The tables of builtin functions, and the kinds of cells that more than one family makes.
#pragma once
#include "Builtin.h"

namespace KxPlat::Lisp {

// In the order in which a later table may replace a name of an earlier one.
const std::vector<BuiltinTable>& Families();

extern const BuiltinTable kSpecialForms, kArithmetic, kComparison, kLists, kVlLists, kApplication, kTypes, kStrings,
    kVlStrings, kNumberTexts, kPrinting, kFiles, kGeometry, kEntities, kSelections, kUserInput, kHost, kObjects,
    kMethods, kCurves, kMeasures;

// A function that is no LISP code and no row of a table.
struct CallableCell : HostCell {
    virtual Value Call(Interpreter& lisp, const Arguments& arguments) = 0;
};

// What vl-catch-all-apply answers after an error.
struct ErrorCell : HostCell {
    explicit ErrorCell(std::wstring text) : message(std::move(text)) {}
    const wchar_t* TypeName() const override { return L"VL-CATCH-ALL-APPLY-ERROR"; }
    std::wstring Printed() const override { return L"#<%catch-all-apply-error%>"; }
    std::wstring message;
};

}   // namespace KxPlat::Lisp
