#include "SetVariable.h"
#include "../db/core/Wildcard.h"
#include "../ui/HostUi.h"
#include "../win/Format.h"
#include "Prompt.h"
#include "Session.h"

namespace KxPlat {

namespace {

std::wstring FaultOf(const VarRow& row, VarAnswer answer)
{
    if (answer == VarAnswer::OutOfRange && row.most > row.least)
        return Format(L"Requires an integer between %d and %d.", row.least, row.most);
    if (answer == VarAnswer::OutOfRange)
        return std::wstring(L"Cannot set ") + row.name + L" to that value.";
    switch (row.type) {
    case VarType::Short:
    case VarType::Long:
        return L"Requires an integer value.";
    case VarType::Real:
        return L"Requires numeric value.";
    case VarType::Text:
        return L"Requires a text.";
    default:
        return L"Requires a point.";
    }
}

// Null once the variable has its new value.
bool Set(const VarRow& row, const InputPiece& piece, std::wstring& fault)
{
    VarValue value;
    VarAnswer answer = VarAnswer::WrongType;
    if (piece.type == InputPiece::Type::Value && piece.value.restype == RTREAL) {
        value.type = VarType::Real;
        value.real[0] = piece.value.resval.rreal;
        answer = SetVar(row.name, value);
    } else if (piece.type == InputPiece::Type::Value && piece.value.restype == RTSHORT) {
        answer = SetVar(row.name, VarOf(piece.value.resval.rint));
    } else if (piece.type == InputPiece::Type::Value && PointIn(piece, value.real)) {
        value.type = VarType::Point3;
        answer = SetVar(row.name, value);
    } else if (piece.type == InputPiece::Type::Text) {
        const bool isNothing = row.type == VarType::Text && piece.text == L".";
        if (VarFromText(isNothing ? L"" : piece.text, row.type, value))
            answer = SetVar(row.name, value);
    }
    fault = FaultOf(row, answer);
    return answer == VarAnswer::Done;
}

}   // namespace

void AskVariable(const std::wstring& name)
{
    const VarRow* row = FindVar(name);
    VarValue value;
    if (row == nullptr || GetVar(name, value) != VarAnswer::Done) {
        Ui().Print(L"\nUnknown variable name. Type SETVAR ? for a list of variables.");
        Session::Current()->Fail();
        return;
    }
    if (row->isReadOnly) {
        Ui().Print(std::wstring(L"\n") + row->name + L" = " + VarText(value) + L" (read only)");
        return;
    }
    InputRequest request;
    request.kind = row->type == VarType::Text ? InputKind::Text : InputKind::Number;
    request.prompt = std::wstring(L"\nEnter new value for ") + row->name +
                     (row->type == VarType::Text ? L", or . for none <" : L" <") + VarText(value) + L">: ";
    for (;;) {
        const InputPiece piece = TakePiece(request, row->type == VarType::Text ? TextRule::Line : TextRule::Word);
        std::wstring fault;
        const bool isAnswer = piece.type == InputPiece::Type::Value || piece.type == InputPiece::Type::Text;
        if (!isAnswer || piece.IsEnter() || Set(*row, piece, fault))
            return;
        Ui().Print(L"\n" + fault);
        FailInput(piece);
    }
}

void ListVariables(const std::wstring& pattern)
{
    for (const VarRow* row : AllVars()) {
        VarValue value;
        if (!WildcardMatch(row->name, pattern) || GetVar(row->name, value) != VarAnswer::Done)
            continue;
        Ui().Print(
            Format(L"\n%-18s %-30s%s", row->name, VarText(value).c_str(), row->isReadOnly ? L" (read only)" : L""));
    }
}

}   // namespace KxPlat
