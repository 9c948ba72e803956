#include "OldViews.h"
#include "../AcDbBlockTableRecord.h"
#include "../AcDbViewport.h"
#include "DbCore.h"
#include "ObjectAccess.h"
#include "RecordNames.h"
#include <algorithm>

namespace KxPlat {

namespace {

struct OldView {
    std::vector<AcGePoint3d> points;   // target, direction
    std::vector<double> reals;         // twist, height, x and y of the centre, lens length, ...
    std::vector<CString> frozenLayers;
};

// False when the entity's extended data hold no whole view.
bool Find(const AcDbObject& entity, OldView& view)
{
    const Annex* annex = ObjectAccess::Find(entity);
    if (annex == nullptr)
        return false;
    const GroupList& groups = annex->xData;
    const auto isStart = [](const GroupValue& group) { return group.code == 1000 && group.text() == L"MVIEW"; };
    for (auto at = std::find_if(groups.begin(), groups.end(), isStart); at != groups.end() && at->code != 1001; ++at) {
        switch (at->code) {
        case 1003:
            view.frozenLayers.push_back(at->text());
            break;
        case 1010:
            view.points.emplace_back(at->real(), 0.0, 0.0);
            break;
        case 1020:
        case 1030:
            if (!view.points.empty())
                (at->code == 1020 ? view.points.back().y : view.points.back().z) = at->real();
            break;
        case 1040:
            view.reals.push_back(at->real());
            break;
        default:
            break;
        }
    }
    return view.points.size() >= 2 && view.reals.size() >= 5;
}

void Take(const OldView& old, AcDbViewport& view, DbCore& core)
{
    view.setViewTarget(old.points[0]);
    view.setViewDirection(AcGeVector3d(old.points[1].x, old.points[1].y, old.points[1].z));
    view.setViewHeight(old.reals[1]);
    view.setViewCenter(AcGePoint2d(old.reals[2], old.reals[3]));
    AcDbObjectIdArray frozen;
    for (const CString& name : old.frozenLayers)
        if (AcDbStub* layer = core.Table(TableKind::Layer)->find(std::wstring_view(name, size_t(name.GetLength()))))
            frozen.append(layer);
    view.freezeLayersInViewport(frozen);
}

}   // namespace

void TakeOldViews(DbCore& core)
{
    for (const AcDbStub* block : core.Table(TableKind::Block)->records())
        for (AcDbStub* stub : static_cast<AcDbBlockTableRecord*>(block->object)->entities()) {
            AcDbViewport* viewport = AcDbViewport::cast(stub->object);
            OldView old;
            if (viewport == nullptr || !Find(*viewport, old))
                continue;
            // The setters need an open object; its groups in the file stay what they were.
            const uint32_t state = ObjectAccess::State(*viewport);
            stub->writing = true;
            Take(old, *viewport, core);
            stub->writing = false;
            ObjectAccess::State(*viewport) = state;
        }
}

void WriteOldView(const AcDbEntity& entity, GroupSink& sink)
{
    const AcDbViewport* view = AcDbViewport::cast(&entity);
    OldView there;
    if (view == nullptr || Find(entity, there))
        return;
    const auto integers = [&sink](std::initializer_list<int> values) {
        for (int value : values)
            sink.Integer(1070, value);
    };
    const auto reals = [&sink](std::initializer_list<double> values) {
        for (double value : values)
            sink.Real(1040, value);
    };
    constexpr double kDegrees = 57.29577951308232;
    const AcGeVector3d direction = view->viewDirection();
    sink.Text(1001, L"ACAD");
    sink.Text(1000, L"MVIEW");
    sink.Text(1002, L"{");
    sink.Integer(1070, 16);
    sink.Point(1010, view->viewTarget());
    sink.Point(1010, AcGePoint3d(direction.x, direction.y, direction.z));
    reals({view->twistAngle() * kDegrees, view->viewHeight(), view->viewCenter().x, view->viewCenter().y,
           view->lensLength(), 0, 0});
    integers({view->isPerspectiveOn(), 1000, 1, 1, 0, 0, 0, 0});   // smoothness, icon, snap, grid as in a new viewport
    reals({0, 0, 0, 10, 10, 10, 10});
    integers({0});
    sink.Text(1002, L"{");
    AcDbObjectIdArray frozen;
    view->getFrozenLayerList(frozen);
    for (int i = 0; i < frozen.length(); ++i) {
        const AcDbStub* layer = frozen[i];
        if (layer != nullptr && layer->object != nullptr && !layer->erased)
            sink.Text(1003, RecordNameOf(*layer->object));
    }
    sink.Text(1002, L"}");
    sink.Text(1002, L"}");
}

}   // namespace KxPlat
