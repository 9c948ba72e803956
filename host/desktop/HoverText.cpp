#include "HoverText.h"
#include "ed/AcEdInputPointManager.h"
#include "mfc/Escaped.h"
#include "QtText.h"
#include <QTextDocument>
#include <QToolTip>

namespace KxDesktop {

namespace {

constexpr int kRest = 350;   // milliseconds

}   // namespace

HoverText::HoverText(QWidget& area, std::function<AcDbObjectId(const QPointF&)> find)
    : m_area(area), m_find(std::move(find))
{
    m_rest.setSingleShot(true);
    m_rest.setInterval(kRest);
    QObject::connect(&m_rest, &QTimer::timeout, &area, [this] { Show(); });
}

void HoverText::Moved(const QPointF& place, const AcGePoint3d& point)
{
    if (QToolTip::isVisible() && (place - m_place).manhattanLength() > 6)
        QToolTip::hideText();
    m_place = place;
    m_lastPoint = m_point;
    m_point = point;
    m_rest.start();
}

void HoverText::Hide()
{
    m_rest.stop();
    QToolTip::hideText();
}

void HoverText::Show()
{
    if (m_document == nullptr)
        return;
    AcArray<AcDbObjectId> under;
    if (const AcDbObjectId id = m_find(m_place); !id.isNull())
        under.append(id);
    const std::wstring text = FilterPoint(*m_document, m_point, m_lastPoint, under).text;
    if (text.empty())
        return;
    QString shown = ToQt(text);
    if (Qt::mightBeRichText(shown))
        shown = QStringLiteral("<qt>") + shown.toHtmlEscaped() + QStringLiteral("</qt>");
    QToolTip::showText(m_area.mapToGlobal(m_place.toPoint()), shown, &m_area);
}

FilteredPoint FilterPoint(AcApDocument& document, const AcGePoint3d& point, const AcGePoint3d& lastPoint,
                          const AcArray<AcDbObjectId>& under)
{
    FilteredPoint result{point, {}};
    AcEdInputPointFilter* filter = document.inputPointManager()->currentPointFilter();
    if (filter == nullptr)
        return result;
    using Nested = AcArray<AcDbObjectIdArray, AcArrayObjectCopyReallocator<AcDbObjectIdArray>>;
    bool isPointChanged = false, isTextChanged = false, asksAgain = false;
    AcGePoint3d newPoint = point;
    ACHAR* text = nullptr;
    Nested nested;
    for (int i = 0; i < under.length(); ++i)
        nested.append(AcDbObjectIdArray());
    AcArray<int> marks;
    for (int i = 0; i < under.length(); ++i)
        marks.append(0);
    const AcArray<AcDbCustomOsnapMode*> noModes;
    const AcArray<AcDbObjectId> noKeys;
    const AcArray<AcGeCurve3d*> noPaths;
    const Acad::ErrorStatus status = KxPlat::Guarded(L"an input point filter", Acad::eInvalidInput, [&] {
        return filter->processInputPoint(isPointChanged, newPoint, isTextChanged, text, asksAgain, nullptr, &document,
                                         true, 0, lastPoint, point, point, point, point, AcDb::OsnapMask(0), noModes,
                                         AcDb::OsnapMask(0), noModes, under, nested, marks, noKeys, Nested(),
                                         AcArray<int>(), noPaths, point, L"");
    });
    if (status != Acad::eOk)
        return result;
    if (isPointChanged)
        result.point = newPoint;
    if (isTextChanged && text != nullptr)
        result.text = text;
    return result;
}

}   // namespace KxDesktop
