// Layers merged into one, chosen in two dialogs.
#include "DlgMergeLayers.h"
#include "KxArxBase/DocumentLock.h"
#include "KxArxBase/KxMessages.h"
#include "KxCadBaseModule.h"
#include <algorithm>

namespace KxArxModules {

using KxArxBase::CKxAcDb;
using KxArxBase::DocumentLock;
using KxArxBase::MsgCmdInfo;

namespace {

// Layers of external references are not this drawing's to change.
bool IsForeign(const LayerStates::Row& row)
{
    return row.name.Find(L'|') >= 0;
}

bool ChooseLayers(CKxAcDb& db, std::vector<AcDbObjectId>& sources, AcDbObjectId& target)
{
    std::vector<LayerStates::Row> layers = LayerStates(db).rows();
    layers.erase(std::remove_if(layers.begin(), layers.end(), IsForeign), layers.end());
    const LayerCounts counts(db);
    const std::vector<AcDbObjectId> none;
    CDlgMergeLayers first(CDlgMergeLayers::kSources, layers, counts, none);
    if (first.DoModal() != IDOK)
        return false;
    sources = first.chosen();
    const auto isSource = [&](const LayerStates::Row& row) {
        return std::find(sources.begin(), sources.end(), row.id) != sources.end();
    };
    layers.erase(std::remove_if(layers.begin(), layers.end(), isSource), layers.end());
    if (layers.empty()) {
        MsgCmdInfo(L"\n 没有可作为目标的图层。");
        return false;
    }
    CDlgMergeLayers second(CDlgMergeLayers::kTarget, layers, counts, sources);
    if (second.DoModal() != IDOK)
        return false;
    target = second.chosen().front();
    return true;
}

}   // namespace

void KxCadBaseModule::CmdKxCombineLayer()
{
    CKxAcDb db;
    const DocumentLock lock(db);
    std::vector<AcDbObjectId> sources;
    AcDbObjectId target;
    acDocManager->pushResourceHandle(ModuleResources());
    const bool chosen = ChooseLayers(db, sources, target);
    acDocManager->popResourceHandle();
    if (!chosen)
        return;
    const MergeResult result = MergeLayers(db, sources, target);
    MsgCmdInfo(L"\n 已合并 %d 个图层：移动 %d 个对象，清除 %d 个图层。", int(sources.size()), result.moved,
               result.purged);
    for (const CString& name : result.kept)
        MsgCmdInfo(L"\n 图层 %s 不能清除。", name.GetString());
    acedCommand(RTSTR, L"REGEN", RTNONE);
}

}   // namespace KxArxModules
