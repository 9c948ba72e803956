// What a document remembers of its selections.
#pragma once
#include "../../ap/Documents.h"
#include "SelectionSet.h"

namespace KxPlat {

struct DocumentSelection : DocumentPart {
    ~DocumentSelection() override;

    AcDbDatabase* database = nullptr;
    std::vector<AcDbObjectId> pickFirst;   // selected while no command runs
    std::vector<AcDbObjectId> grips;
    std::vector<AcDbObjectId> previous;   // chosen last
    // What a running command has been given so far; null while none asks. For the picture.
    const SelectionSet* choosing = nullptr;
};

// Of the current document; one that nobody owns where there is none.
DocumentSelection& CurrentSelection();
// The working database; null when no drawing is open.
AcDbDatabase* CurrentDatabase();
// What a command gets that does not ask for the objects selected before it: nothing.
void ClearPickFirst(AcApDocument& document);

}   // namespace KxPlat
