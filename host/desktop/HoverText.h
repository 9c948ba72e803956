// The text of the object under the resting pointer, as the input point filter of its document gives it.
#pragma once
#include "ap/AcApDocument.h"
#include "db/AcDbObjectId.h"
#include "ge/AcGePoint3d.h"
#include "rx/AcArray.h"
#include <functional>
#include <QPoint>
#include <QString>
#include <QTimer>
#include <QWidget>

namespace KxDesktop {

class HoverText {
public:
    // `find` tells what lies under the pointer, once it rests.
    HoverText(QWidget& area, std::function<AcDbObjectId(const QPointF&)> find);

    void SetDocument(AcApDocument* document) { m_document = document; }
    void Moved(const QPointF& place, const AcGePoint3d& point);
    void Hide();

private:
    void Show();

    QWidget& m_area;
    std::function<AcDbObjectId(const QPointF&)> m_find;
    AcApDocument* m_document = nullptr;
    QTimer m_rest;
    QPointF m_place;
    AcGePoint3d m_point, m_lastPoint;
};

struct FilteredPoint {
    AcGePoint3d point;
    std::wstring text;   // empty: the filter says nothing
};
// What the filter in force makes of a point with these objects under it; the point itself where there is none.
FilteredPoint FilterPoint(AcApDocument& document, const AcGePoint3d& point, const AcGePoint3d& lastPoint,
                          const AcArray<AcDbObjectId>& under);

}   // namespace KxDesktop
