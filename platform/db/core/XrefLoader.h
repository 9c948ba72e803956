// Reads the drawings of xref blocks into their host.
#pragma once
#include "../AcDb.h"
#include "../AcDbObject.h"
#include "DbCore.h"
#include <string>
#include <vector>

class AcDbBlockTableRecord;

namespace KxPlat {

// What became of one xref.
struct XrefNews {
    std::wstring block;
    std::wstring path;    // as the block keeps it
    std::wstring found;   // the file that was read; empty: none
    AcDb::XrefStatus status = AcDb::kXrfUnresolved;
    std::wstring why;   // where it was not loaded
};

class XrefLoader {
public:
    explicit XrefLoader(AcDbDatabase& host);

    // Xrefs within xrefs come with the one that they stand in.
    void ResolveAll(bool newOnly);
    // Reads the drawing of one block anew.
    AcDb::XrefStatus Load(AcDbBlockTableRecord& block);
    // Takes out what an xref brought, its own dependent blocks' contents included.
    void Empty(AcDbBlockTableRecord& block);

    const std::vector<XrefNews>& News() const { return m_news; }

private:
    XrefLoader(AcDbDatabase& host, std::vector<std::wstring> chain);
    AcDb::XrefStatus Read(AcDbBlockTableRecord& block, XrefNews& news);
    std::wstring Find(const std::wstring& path) const;

    AcDbDatabase& m_host;
    std::vector<std::wstring> m_chain;   // the files being read, the outermost first
    std::vector<XrefNews> m_news;
};

// The xref blocks of a drawing; with `directOnly` those that stand in it by themselves.
std::vector<AcDbBlockTableRecord*> XrefBlocksOf(DbCore& core, bool directOnly);
// The xrefs that came within `block` and with no other one.
std::vector<AcDbBlockTableRecord*> XrefsWithin(DbCore& core, const AcDbBlockTableRecord& block);
bool IsNamedAfter(const CString& record, const CString& xref);
void EraseContents(AcDbBlockTableRecord& block);

}   // namespace KxPlat
