#include "Plot.h"
#include "../db/AcDbBlockTableRecord.h"
#include "../db/AcDbDatabase.h"
#include "../db/AcDbDictionary.h"
#include "../db/AcDbLayerTableRecord.h"
#include "../db/AcDbLayout.h"
#include "../db/AcDbViewport.h"
#include "../db/core/DbCore.h"
#include "../db/core/Wildcard.h"
#include "../rx/AcRxClass.h"
#include "../win/CharTables.h"
#include "../win/CodePage.h"
#include "../win/Files.h"
#include "Image.h"
#include "PdfPainter.h"
#include "SceneWalk.h"
#include "SvgPainter.h"
#include <algorithm>
#include <cmath>
#include <memory>

namespace KxPlat {

namespace {

constexpr int kSupersampling = 2;
constexpr double kMostPixels = 400e6;

// One view onto one block: the sheet, the model, or the model through a viewport of a sheet.
struct Picture {
    AcDbObjectId block;
    Camera camera;
    double left = 0, top = 0, width = 0, height = 0;   // pixels on the page
    std::vector<AcDbObjectId> frozenLayers;            // in this viewport only
};

// Shifts what is drawn to the place of a viewport, and keeps it within.
class WindowPainter : public Painter {
public:
    WindowPainter(Painter& page, const Picture& picture) : m_page(page), m_picture(picture) {}

    void Strip(const DevicePoint* points, size_t count, const Pen& pen) override
    {
        m_points.clear();
        for (size_t at = 0; at < count; ++at) {
            const bool isInside = IsInside(points[at]);
            if (at > 0 && (!isInside || m_points.empty())) {
                DevicePoint from = points[at - 1], to = points[at];
                if (Cut(from, to)) {
                    if (m_points.empty())
                        m_points.push_back(Moved(from));
                    m_points.push_back(Moved(to));
                }
                Flush(pen);
            }
            if (isInside)
                m_points.push_back(Moved(points[at]));
        }
        Flush(pen);
    }
    void Fill(const std::vector<DevicePoint>& points, const std::vector<uint32_t>& ends, uint32_t rgb) override
    {
        // Cut against each side in turn, contour by contour.
        std::vector<DevicePoint> cut;
        std::vector<uint32_t> cutEnds;
        uint32_t begin = 0;
        for (const uint32_t end : ends) {
            std::vector<DevicePoint> contour(points.begin() + begin, points.begin() + end);
            for (int side = 0; side < 4; ++side)
                contour = CutAtSide(contour, side);
            for (const DevicePoint& point : contour)
                cut.push_back(Moved(point));
            if (!contour.empty())
                cutEnds.push_back(uint32_t(cut.size()));
            begin = end;
        }
        if (!cutEnds.empty())
            m_page.Fill(cut, cutEnds, rgb);
    }
    bool Text(const TextItem& text, const DevicePoint& origin, const DevicePoint& x, const DevicePoint& y,
              uint32_t rgb) override
    {
        return IsInside(origin) && m_page.Text(text, Moved(origin), x, y, rgb);
    }

private:
    DevicePoint Moved(const DevicePoint& point) const
    {
        return {point.x + m_picture.left, point.y + m_picture.top, point.depth};
    }
    // How far a point lies within each side; below 0 outside.
    double Room(const DevicePoint& point, int side) const
    {
        const double rooms[] = {point.x, m_picture.width - point.x, point.y, m_picture.height - point.y};
        return rooms[side];
    }
    bool IsInside(const DevicePoint& point) const
    {
        return Room(point, 0) >= 0 && Room(point, 1) >= 0 && Room(point, 2) >= 0 && Room(point, 3) >= 0;
    }
    static DevicePoint Between(const DevicePoint& a, const DevicePoint& b, double share)
    {
        return {a.x + (b.x - a.x) * share, a.y + (b.y - a.y) * share, a.depth};
    }
    bool Cut(DevicePoint& from, DevicePoint& to) const
    {
        for (int side = 0; side < 4; ++side) {
            const double first = Room(from, side), second = Room(to, side);
            if (first < 0 && second < 0)
                return false;
            if (first < 0)
                from = Between(from, to, first / (first - second));
            else if (second < 0)
                to = Between(from, to, first / (first - second));
        }
        return true;
    }
    std::vector<DevicePoint> CutAtSide(const std::vector<DevicePoint>& contour, int side) const
    {
        std::vector<DevicePoint> cut;
        for (size_t at = 0; at < contour.size(); ++at) {
            const DevicePoint &from = contour[(at + contour.size() - 1) % contour.size()], &to = contour[at];
            const double first = Room(from, side), second = Room(to, side);
            if ((first < 0) != (second < 0))
                cut.push_back(Between(from, to, first / (first - second)));
            if (second >= 0)
                cut.push_back(to);
        }
        return cut;
    }
    void Flush(const Pen& pen)
    {
        if (!m_points.empty())
            m_page.Strip(m_points.data(), m_points.size(), pen);
        m_points.clear();
    }

    Painter& m_page;
    const Picture& m_picture;
    std::vector<DevicePoint> m_points;
};

class Plotter {
public:
    Plotter(AcDbDatabase& database, const PlotSettings& settings)
        : m_database(database), m_settings(settings), m_scene(database)
    {
    }

    PlotResult Run(const std::wstring& path)
    {
        PlotResult result;
        result.error = SettleKind(path);
        if (result.error.empty())
            result.error = m_settings.layout.empty() ? PictureOfModel() : PicturesOfLayout();
        if (!result.error.empty())
            return result;
        result.width = int(std::lround(m_width));
        result.height = int(std::lround(m_height));
        result.error = FromUtf8(Write(HostPath(path)));
        if (m_scene.leftOut() > 0)
            result.warning = std::to_wstring(m_scene.leftOut()) + L" items with damaged coordinates were left out";
        return result;
    }

private:
    enum class Kind { Png, Svg, Pdf };

    std::wstring SettleKind(const std::wstring& path)
    {
        const size_t dot = path.rfind(L'.');
        const std::wstring extension = dot == std::wstring::npos ? L"" : path.substr(dot);
        if (EqualNoCase(extension, L".png"))
            m_kind = Kind::Png;
        else if (EqualNoCase(extension, L".svg"))
            m_kind = Kind::Svg;
        else if (EqualNoCase(extension, L".pdf"))
            m_kind = Kind::Pdf;
        else
            return L"no picture format: a name ending in .png, .svg or .pdf is needed";
        return {};
    }

    std::wstring SettlePage(double paperWidth, double paperHeight)
    {
        m_width = std::max(1.0, std::round(paperWidth / 25.4 * m_settings.dotsPerInch));
        m_height = std::max(1.0, std::round(paperHeight / 25.4 * m_settings.dotsPerInch));
        if (!(m_width * m_height <= kMostPixels))
            return L"the page is too large";
        return {};
    }

    // All that is visible, on a sheet turned to its format.
    std::wstring PictureOfModel()
    {
        const AcDbObjectId model = CoreOf(m_database).modelSpace;
        const Box box = m_settings.showsAllLayers ? m_scene.BoxOf(model) : m_scene.VisibleBoxOf(model);
        Picture picture;
        picture.block = model;
        if (!box.isEmpty())
            picture.camera = Camera::Over(box.min[0], box.min[1], box.max[0], box.max[1]);
        double wide = m_settings.paperWidth, high = m_settings.paperHeight;
        const bool isUpright = picture.camera.fieldHeight > picture.camera.fieldWidth;
        if (!m_settings.keepsPaper && isUpright != (high > wide))
            std::swap(wide, high);
        const std::wstring error = SettlePage(wide, high);
        picture.width = m_width;
        picture.height = m_height;
        m_pictures.push_back(picture);
        return error;
    }

    // The sheet, and the model through each of its viewports.
    std::wstring PicturesOfLayout()
    {
        AcDbLayout* layout = LayoutNamed(m_settings.layout);
        if (layout == nullptr)
            return L"no such layout: " + m_settings.layout;
        const AcDbObjectId block = layout->getBlockTableRecordId();
        double wide = m_settings.paperWidth, high = m_settings.paperHeight;
        if (!m_settings.keepsPaper)
            layout->getPlotPaperSize(wide, high);
        layout->close();
        const Box box = m_scene.BoxOf(block);
        Picture sheet;
        sheet.block = block;
        if (!box.isEmpty())
            sheet.camera = Camera::Over(box.min[0], box.min[1], box.max[0], box.max[1]);
        if (!m_settings.keepsPaper && (sheet.camera.fieldHeight > sheet.camera.fieldWidth) != (high > wide))
            std::swap(wide, high);
        const std::wstring error = SettlePage(wide > 1 ? wide : 297, high > 1 ? high : 210);
        sheet.width = m_width;
        sheet.height = m_height;
        m_pictures.push_back(sheet);
        AddViewports(block, Projection(sheet.camera, m_width, m_height));
        return error;
    }

    void AddViewports(AcDbObjectId block, const Projection& page)
    {
        for (const EntitySpan& span : m_scene.ListOf(block).entities) {
            AcDbViewport* viewport = nullptr;
            if (acdbOpenObject(viewport, AcDbObjectId(span.entity), AcDb::kForRead) != Acad::eOk)
                continue;
            if (viewport->isOn() && viewport->number() != 1 && viewport->viewHeight() > 0 && viewport->height() > 0)
                m_pictures.push_back(PictureThrough(*viewport, page));
            viewport->close();
        }
    }

    Picture PictureThrough(const AcDbViewport& viewport, const Projection& page) const
    {
        Picture picture;
        picture.block = CoreOf(m_database).modelSpace;
        const DevicePoint middle = page(viewport.centerPoint());
        picture.width = viewport.width() * page.Scale();
        picture.height = viewport.height() * page.Scale();
        picture.left = middle.x - picture.width / 2;
        picture.top = middle.y - picture.height / 2;
        Camera& camera = picture.camera;
        camera.direction = viewport.viewDirection();
        // The centre is given in the axes of the view, whose Y axis is up.
        AcGePoint3d origin;
        AcGeVector3d x, y, z;
        AcGeMatrix3d::planeToWorld(camera.direction).getCoordSystem(origin, x, y, z);
        const double twist = -viewport.twistAngle();
        const AcGeVector3d right = x * std::cos(twist) + y * std::sin(twist);
        camera.up = y * std::cos(twist) - x * std::sin(twist);
        camera.target = viewport.viewTarget() + right * viewport.viewCenter().x + camera.up * viewport.viewCenter().y;
        camera.fieldHeight = viewport.viewHeight();
        camera.fieldWidth = viewport.viewHeight() * viewport.width() / viewport.height();
        AcDbObjectIdArray frozen;
        viewport.getFrozenLayerList(frozen);
        picture.frozenLayers.assign(frozen.asArrayPtr(), frozen.asArrayPtr() + frozen.length());
        return picture;
    }

    // Open for read; null when there is none.
    AcDbLayout* LayoutNamed(const std::wstring& name) const
    {
        AcDbDictionary* layouts = nullptr;
        if (m_database.getLayoutDictionary(layouts, AcDb::kForRead) != Acad::eOk)
            return nullptr;
        AcDbObjectId id;
        AcDbLayout* layout = nullptr;
        if (layouts->getAt(name.c_str(), id) == Acad::eOk)
            acdbOpenObject(layout, id, AcDb::kForRead);
        layouts->close();
        return layout;
    }

    bool IsWanted(const AcDbStub* stub) const
    {
        const auto* layer = stub == nullptr ? nullptr : static_cast<const AcDbLayerTableRecord*>(stub->object);
        return layer != nullptr && WildcardMatch(layer->nameText().GetString(), m_settings.layers);
    }

    void Draw(Painter& painter, double pixelFactor)
    {
        for (size_t at = 0; at < m_pictures.size(); ++at) {
            Picture picture = m_pictures[at];
            picture.left *= pixelFactor;
            picture.top *= pixelFactor;
            picture.width *= pixelFactor;
            picture.height *= pixelFactor;
            DrawOptions options;
            options.background = m_settings.background;
            options.showsAllLayers = m_settings.showsAllLayers;
            options.isPlot = !m_settings.showsAllLayers;
            options.pixelsPerMm = m_settings.usesLineWeights ? m_settings.dotsPerInch / 25.4 * pixelFactor : 0;
            if (!m_settings.layers.empty() || !picture.frozenLayers.empty())
                options.layerFilter = [&](const AcDbStub* layer) {
                    const auto& frozen = picture.frozenLayers;
                    return (m_settings.layers.empty() || IsWanted(layer)) &&
                           std::none_of(frozen.begin(), frozen.end(), [layer](const AcDbObjectId& id) {
                               return static_cast<const AcDbStub*>(id) == layer;
                           });
                };
            WindowPainter window(painter, picture);
            DrawScene(m_scene, picture.block, Projection(picture.camera, picture.width, picture.height), options,
                      at == 0 ? painter : static_cast<Painter&>(window));
        }
    }

    std::string Write(const std::string& path)
    {
        if (m_kind == Kind::Svg) {
            SvgPainter painter(m_width, m_height, m_settings.dotsPerInch, m_settings.background);
            Draw(painter, 1);
            AtomicFile file;
            int error = file.Open(path);
            if (error == 0) {
                file.Write(painter.Finish());
                error = file.Commit();
            }
            return error == 0 ? std::string() : ToUtf8(SystemErrorText(error));
        }
        if (m_kind == Kind::Pdf) {
            PdfPainter painter(path, m_width, m_height, m_settings.dotsPerInch, m_settings.background);
            Draw(painter, 1);
            return painter.Finish();
        }
        Image image(int(m_width) * kSupersampling, int(m_height) * kSupersampling, m_settings.background);
        ImagePainter painter(image);
        Draw(painter, kSupersampling);
        return image.Reduced(kSupersampling).WritePng(path, m_settings.dotsPerInch);
    }

    AcDbDatabase& m_database;
    const PlotSettings& m_settings;
    Scene m_scene;
    Kind m_kind = Kind::Png;
    double m_width = 0, m_height = 0;
    std::vector<Picture> m_pictures;
};

}   // namespace

PlotResult Plot(AcDbDatabase& database, const std::wstring& path, const PlotSettings& settings)
{
    return Plotter(database, settings).Run(path);
}

}   // namespace KxPlat
