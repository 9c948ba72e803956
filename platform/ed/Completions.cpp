#include "Completions.h"
#include "../db/AcDbDatabase.h"
#include "../db/AcDbSymbolTable.h"
#include "../db/AcDbSymbolTableRecord.h"
#include "../db/core/DbCore.h"
#include "../rx/AcRxDictionary.h"
#include "../win/CharTables.h"
#include "AcEdCommandStack.h"
#include "select/ChooseObjects.h"
#include "Session.h"
#include <algorithm>
#include <memory>

namespace KxPlat {

namespace {

using Names = std::vector<std::wstring>;

void AddCommands(Names& names)
{
    AcEdCommandStack* stack = acedRegCmds;
    if (stack == nullptr)
        return;
    std::unique_ptr<AcEdCommandIterator> commands(stack->iterator());
    for (; !commands->done(); commands->next()) {
        names.emplace_back(commands->command()->globalName());
        names.emplace_back(commands->command()->localName());
    }
    for (const VarRow* row : AllVars())
        names.emplace_back(row->name);
    AcApDocument* document = acDocManager->curDocument();
    if (TheLispHook() != nullptr && document != nullptr) {
        const Names defined = TheLispHook()->CommandNames(*document);
        names.insert(names.end(), defined.begin(), defined.end());
    }
}

void AddRecords(Names& names, TableKind kind)
{
    AcApDocument* document = acDocManager->curDocument();
    if (document == nullptr)
        return;
    for (const AcDbStub* stub : CoreOf(*document->database()).Table(kind)->records()) {
        if (stub->erased || stub->object == nullptr)
            continue;
        const CString name = static_cast<const AcDbSymbolTableRecord*>(stub->object)->nameText();
        if (!name.IsEmpty() && name[0] != L'*')
            names.emplace_back(name.GetString());
    }
}

// A prompt's word tells what is asked for; the first one counts.
const struct {
    const wchar_t* word;
    TableKind kind;
} kWords[] = {
    {L"layer", TableKind::Layer},
    {L"\u56FE\u5C42", TableKind::Layer},
    {L"linetype", TableKind::Linetype},
    {L"\u7EBF\u578B", TableKind::Linetype},
    {L"block", TableKind::Block},
    {L"\u5757", TableKind::Block},
    {L"xref", TableKind::Block},
    {L"text style", TableKind::TextStyle},
    {L"dimension style", TableKind::DimStyle},
};

void AddAsked(Names& names, std::wstring prompt)
{
    for (wchar_t& character : prompt)
        character = Lower(character);
    for (const auto& row : kWords)
        if (prompt.find(row.word) != std::wstring::npos)
            return AddRecords(names, row.kind);
}

// Where the word that is completed begins: behind a prefix of commands, or the last comma of a list of names.
size_t StartOf(InputKind kind, std::wstring_view typed)
{
    if (kind == InputKind::Text)
        return typed.find_last_of(L',') + 1;
    return std::min(typed.find_first_not_of(kind == InputKind::Command ? L"_.'" : L"_"), typed.size());
}

}   // namespace

std::vector<std::wstring> Completions(const InputRequest& request, std::wstring_view typed)
{
    Names names = request.keywords;
    if (request.kind == InputKind::Command)
        AddCommands(names);
    else if (request.kind == InputKind::Selection)
        names.insert(names.end(), SelectionOptions().begin(), SelectionOptions().end());
    else if (request.kind == InputKind::Text)
        AddAsked(names, request.prompt);
    const size_t start = StartOf(request.kind, typed);
    const std::wstring before(typed.substr(0, start));
    Names lines;
    for (const std::wstring& name : names)
        if (StartsWithNoCase(name, typed.substr(start)))
            lines.push_back(before + name);
    std::sort(lines.begin(), lines.end());
    lines.erase(std::unique(lines.begin(), lines.end()), lines.end());
    return lines;
}

}   // namespace KxPlat
