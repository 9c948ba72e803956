#include "AcApDocument.h"
#include "../db/AcDbDatabase.h"
#include "../db/core/DbCore.h"
#include "../win/CharTables.h"
#include "DocumentList.h"
#include <algorithm>

ACRX_NO_CONS_DEFINE_MEMBERS(AcApDocument, AcRxObject)

namespace {

struct FormatRow {
    AcDb::AcDbDwgVersion version;
    AcApDocument::SaveFormat drawing;
    AcApDocument::SaveFormat exchange;
};

const FormatRow g_formats[] = {
    {AcDb::kDHL_1009, AcApDocument::k2000_dwg, AcApDocument::kR12_dxf},
    {AcDb::kDHL_1012, AcApDocument::kR13_dwg, AcApDocument::kR13_dxf},
    {AcDb::kDHL_1014, AcApDocument::kR14_dwg, AcApDocument::kR14_dxf},
    {AcDb::kDHL_1015, AcApDocument::k2000_dwg, AcApDocument::k2000_dxf},
    {AcDb::kDHL_1018, AcApDocument::k2004_dwg, AcApDocument::k2004_dxf},
    {AcDb::kDHL_1021, AcApDocument::k2007_dwg, AcApDocument::k2007_dxf},
    {AcDb::kDHL_1024, AcApDocument::k2010_dwg, AcApDocument::k2010_dxf},
    {AcDb::kDHL_1027, AcApDocument::k2013_dwg, AcApDocument::k2013_dxf},
    {AcDb::kDHL_1032, AcApDocument::k2013_dwg, AcApDocument::k2013_dxf},
};

int StrengthOf(AcAp::DocLockMode mode)
{
    static const AcAp::DocLockMode rising[] = {AcAp::kNone,  AcAp::kNotLocked,          AcAp::kRead,  AcAp::kAutoWrite,
                                               AcAp::kWrite, AcAp::kProtectedAutoWrite, AcAp::kXWrite};
    return int(std::find(std::begin(rising), std::end(rising), mode) - rising);
}

}   // namespace

AcApDocument::AcApDocument(std::unique_ptr<KxPlat::DocumentState> state) : m_state(std::move(state)) {}

AcApDocument::~AcApDocument() = default;

const ACHAR* AcApDocument::fileName() const
{
    return m_state->fileName.c_str();
}

const ACHAR* AcApDocument::docTitle() const
{
    return m_state->title.c_str();
}

AcDbDatabase* AcApDocument::database() const
{
    return m_state->database.get();
}

AcAp::DocLockMode AcApDocument::lockMode(bool includeMyLocks) const
{
    return includeMyLocks ? myLockMode() : AcAp::kNotLocked;
}

AcAp::DocLockMode AcApDocument::myLockMode() const
{
    AcAp::DocLockMode strongest = AcAp::kNotLocked;
    for (const AcAp::DocLockMode mode : m_state->locks) {
        if (StrengthOf(mode) > StrengthOf(strongest))
            strongest = mode;
    }
    return strongest;
}

bool AcApDocument::isQuiescent() const
{
    return m_state->commandDepth == 0;
}

bool AcApDocument::isReadOnly() const
{
    return m_state->isReadOnly;
}

bool AcApDocument::isNamedDrawing() const
{
    return m_state->isNamed;
}

AcApDocument::SaveFormat AcApDocument::formatForSave() const
{
    const KxPlat::FileForm& form = KxPlat::CoreOf(*m_state->database).form;
    const AcDb::AcDbDwgVersion version =
        m_state->saveVersion != AcDb::kDHL_CURRENT ? m_state->saveVersion : form.version;
    const std::wstring& name = m_state->fileName;
    const bool isExchange =
        name.size() > 4 && KxPlat::EqualNoCase(std::wstring_view(name).substr(name.size() - 4), L".dxf");
    for (const FormatRow& row : g_formats) {
        if (row.version == version)
            return isExchange ? row.exchange : row.drawing;
    }
    return kUnknown;
}

namespace KxPlat {

DocumentState& StateOf(AcApDocument& document)
{
    return *document.m_state;
}

}   // namespace KxPlat
