// The graphics system behind AcGsManager: devices are pictures in memory that are brought to windows.
#pragma once
#include "AcGsDevice.h"
#include "AcGsModel.h"
#include "AcGsView.h"
#include "Camera.h"
#include "Image.h"
#include "SceneWalk.h"
#include <map>
#include <memory>
#include <unordered_set>
#include <vector>

class AcDbDatabase;

namespace KxPlat {

class GsDevice;

class GsModel : public AcGsModel {
public:
    explicit GsModel(RenderType type) : m_type(type) {}

    void onAdded(AcGiDrawable*, AcGiDrawable*) override { Forget(); }
    void onModified(AcGiDrawable*, AcGiDrawable*) override { Forget(); }
    void onErased(AcGiDrawable*, AcGiDrawable*) override { Forget(); }
    void invalidate(InvalidationHint hint) override;
    void setTransform(const AcGeMatrix3d& transform) override { m_transform = transform; }
    AcGeMatrix3d transform() const override { return m_transform; }
    RenderType renderType() const override { return m_type; }

    // The scene of a drawing lives while some view shows something of it.
    Scene& Acquire(AcDbDatabase& database);
    void Release(AcDbDatabase& database);
    Scene* SceneOf(AcDbDatabase& database);

private:
    struct Used {
        std::unique_ptr<Scene> scene;
        int users = 0;
    };
    void Forget();

    RenderType m_type;
    AcGeMatrix3d m_transform;
    std::map<AcDbDatabase*, Used> m_scenes;
};

class GsView : public AcGsView {
public:
    ~GsView() override;

    AcGsDevice* device() const override;
    void setViewport(const AcGePoint2d& lowerLeft, const AcGePoint2d& upperRight) override;
    void setViewport(const AcGsDCRect& rect) override;
    void getViewport(AcGePoint2d& lowerLeft, AcGePoint2d& upperRight) const override;
    void getViewport(AcGsDCRect& rect) const override;
    void setView(const AcGePoint3d& position, const AcGePoint3d& target, const AcGeVector3d& upVector,
                 double fieldWidth, double fieldHeight, AcGsView::Projection projection) override;
    AcGePoint3d position() const override { return m_camera.target + m_camera.direction * m_camera.eyeDistance; }
    AcGePoint3d target() const override { return m_camera.target; }
    AcGeVector3d upVector() const override { return m_camera.up; }
    bool isPerspective() const override { return m_camera.isPerspective; }
    double fieldWidth() const override { return m_camera.fieldWidth; }
    double fieldHeight() const override { return m_camera.fieldHeight; }
    void dolly(const AcGeVector3d& vector) override;
    void dolly(double x, double y, double z) override { dolly(AcGeVector3d(x, y, z)); }
    void pan(double x, double y) override { dolly(AcGeVector3d(x, y, 0)); }
    void roll(double angle) override;
    void orbit(double xOrbit, double yOrbit) override;
    void zoom(double factor) override;
    void zoomExtents(const AcGePoint3d& minPoint, const AcGePoint3d& maxPoint) override;
    AcGeMatrix3d viewingMatrix() const override;
    AcGeMatrix3d projectionMatrix() const override;
    AcGeMatrix3d screenMatrix() const override;
    AcGeMatrix3d worldToDeviceMatrix() const override { return screenMatrix() * projectionMatrix() * viewingMatrix(); }
    AcGeMatrix3d objectToDeviceMatrix() const override { return worldToDeviceMatrix(); }
    bool add(AcGiDrawable* drawable, AcGsModel* model) override;
    bool erase(AcGiDrawable* drawable) override;
    void eraseAll() override;
    void freezeLayer(AcDbObjectId layer) override;
    void thawLayer(AcDbObjectId layer) override;
    void clearFrozenLayers() override;
    void setMode(RenderMode mode) override;
    RenderMode mode() const override { return m_mode; }
    void invalidate() override { m_isValid = false; }
    void invalidate(const AcGsDCRect&) override { m_isValid = false; }
    bool isValid() const override { return m_isValid; }
    void update() override;
    void hide() override;
    void show() override;
    bool isVisible() const override { return m_isVisible; }

    void SetDevice(GsDevice* device);
    // Draws on the device's picture.
    void Draw(Image& page, uint32_t background);

private:
    struct Shown {
        AcDbObjectId id;   // of a block or an entity; null: `drawable`
        AcGiDrawable* drawable = nullptr;
        AcDbDatabase* database = nullptr;
        GsModel* model = nullptr;   // null: the view's own
    };
    // Pixels from the upper left corner of the device.
    struct Place {
        int left, top, width, height;
    };
    Place PlaceOnDevice() const;
    GsModel& ModelOf(const Shown& shown);
    void DrawOne(const Shown& shown, const KxPlat::Projection& projection, const DrawOptions& options,
                 Painter& painter);

    GsDevice* m_device = nullptr;
    Camera m_camera;
    AcGePoint2d m_lowerLeft{0, 0}, m_upperRight{1, 1};
    RenderMode m_mode = k2DOptimized;
    bool m_isValid = false, m_isVisible = true;
    std::vector<Shown> m_shown;
    std::unordered_set<AcDbObjectId> m_frozen;
    GsModel m_own{AcGsModel::kMain};
};

class GsDevice : public AcGsDevice {
public:
    explicit GsDevice(HWND window) : m_window(window) {}
    ~GsDevice() override { eraseAll(); }

    void invalidate() override;
    void invalidate(const AcGsDCRect&) override { invalidate(); }
    bool isValid() const override;
    void update(AcGsDCRect* updatedRect) override;
    void onSize(int width, int height) override;
    bool add(AcGsView* view) override;
    bool erase(AcGsView* view) override;
    void eraseAll() override;
    bool setBackgroundColor(AcGsColor color) override;

    HWND window() const { return m_window; }
    const Image& picture() const { return m_picture; }

private:
    HWND m_window;
    Image m_picture{1, 1, 0};
    uint32_t m_background = 0;
    bool m_isValid = false;
    std::vector<GsView*> m_views;
};

// What a device shows, also one without a window.
const Image& PictureOf(const AcGsDevice& device);

}   // namespace KxPlat
