#include "Plot.h"
#include "../db/AcDbBlockTableRecord.h"
#include "../db/AcDbDatabase.h"
#include "../db/AcDbDictionary.h"
#include "../db/AcDbLayerTableRecord.h"
#include "../db/AcDbLayout.h"
#include "../db/core/DbCore.h"
#include "../db/core/Wildcard.h"
#include "../rx/AcRxClass.h"
#include "../win/CharTables.h"
#include "../win/CodePage.h"
#include "../win/Files.h"
#include "Image.h"
#include "PdfPainter.h"
#include "SceneWalk.h"
#include "Sight.h"
#include "SvgPainter.h"
#include "WindowPainter.h"
#include <algorithm>
#include <cmath>
#include <memory>

namespace KxPlat {

namespace {

constexpr int kSupersampling = 2;
constexpr double kMostPixels = 400e6;

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
        result.warning = m_scene.LeftOutText();
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
        Sight picture;
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
        Sight sheet;
        sheet.block = block;
        if (!box.isEmpty())
            sheet.camera = Camera::Over(box.min[0], box.min[1], box.max[0], box.max[1]);
        if (!m_settings.keepsPaper && (sheet.camera.fieldHeight > sheet.camera.fieldWidth) != (high > wide))
            std::swap(wide, high);
        const std::wstring error = SettlePage(wide > 1 ? wide : 297, high > 1 ? high : 210);
        sheet.width = m_width;
        sheet.height = m_height;
        m_pictures.push_back(sheet);
        AddSightsOfViewports(m_scene, block, Projection(sheet.camera, m_width, m_height), m_pictures);
        return error;
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
            Sight picture = m_pictures[at];
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
                    return (m_settings.layers.empty() || IsWanted(layer)) && !picture.Freezes(layer);
                };
            WindowPainter window(painter, picture.left, picture.top, picture.width, picture.height);
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
    std::vector<Sight> m_pictures;
};

}   // namespace

PlotResult Plot(AcDbDatabase& database, const std::wstring& path, const PlotSettings& settings)
{
    return Plotter(database, settings).Run(path);
}

}   // namespace KxPlat
