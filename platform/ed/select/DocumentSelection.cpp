#include "DocumentSelection.h"
#include "../../db/AcDbDatabase.h"

namespace KxPlat {

DocumentSelection::~DocumentSelection()
{
    if (database != nullptr)
        SelectionSets::All().Forget(database);
}

AcDbDatabase* CurrentDatabase()
{
    return acdbHostApplicationServices()->workingDatabase();
}

DocumentSelection& CurrentSelection()
{
    static DocumentSelection ofNoDocument;
    AcApDocument* document = acDocManager->curDocument();
    if (document == nullptr)
        return ofNoDocument;
    DocumentSelection& selection = PartOf<DocumentSelection>(*document);
    selection.database = document->database();
    return selection;
}

void ClearPickFirst(AcApDocument& document)
{
    PartOf<DocumentSelection>(document).pickFirst.clear();
}

}   // namespace KxPlat
