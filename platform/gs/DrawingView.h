// What a window shows of a drawing: a picture in memory, redrawn when something of it changed and no more than needed.
// Coordinates named x and y are pixels from the upper left corner, y down.
#pragma once
#include "Camera.h"
#include "Image.h"
#include "RenderMode.h"
#include "Scene.h"
#include <functional>
#include <memory>
#include <string>
#include <vector>

class AcDbDatabase;

namespace KxPlat {

class DrawingView {
public:
    // Shows the model space, all of it, at the first picture. The database must outlive the view.
    explicit DrawingView(AcDbDatabase& database);
    ~DrawingView();
    DrawingView(const DrawingView&) = delete;

    AcDbDatabase& database() const;
    Scene& scene();

    void Resize(int width, int height);
    int width() const;
    int height() const;
    void SetBackground(uint32_t rgb);
    uint32_t background() const;
    void SetRenderMode(RenderMode mode);
    RenderMode renderMode() const;
    void ShowLineWeights(bool areShown);

    // The model space or the block of a layout; every block keeps its own camera. Null stands for the model space.
    void ShowBlock(AcDbObjectId block);
    AcDbObjectId block() const;

    const Camera& camera() const;
    void SetCamera(const Camera& camera);
    // As the file says that the drawing was last looked at; false when it says nothing of use.
    bool ZoomSaved();
    void ZoomExtents();
    // The rectangle between two corners fills the picture.
    void ZoomWindow(double x1, double y1, double x2, double y2);
    // Above 1 things become larger; what lies under x, y stays there.
    void ZoomAt(double x, double y, double factor);
    // What is shown moves by so many pixels.
    void Pan(double dx, double dy);
    // Turns what is shown about the target, in radians: to the right, and towards the lower edge.
    void Orbit(double toRight, double down);
    void SetPerspective(bool isPerspective);

    // On the plane Z = 0, where the view does not run along it; else on the plane through the target.
    AcGePoint3d ToWorld(double x, double y) const;
    DevicePoint ToDevice(const AcGePoint3d& point) const;
    // Drawing units that one pixel stands for, in the plane through the target.
    double PixelSize() const;

    // The topmost entity that is seen within `aperture` pixels; null when there is none. Of a layout, those of the
    // sheet.
    AcDbObjectId EntityAt(double x, double y, double aperture);
    // What lies wholly within the rectangle, or reaches into it when `crossing`; in drawing order.
    std::vector<AcDbObjectId> EntitiesIn(double x1, double y1, double x2, double y2, bool crossing);

    // Draws these with emphasis, and with their grips. Replaces what was highlighted before.
    void Highlight(std::vector<AcDbObjectId> entities, bool showsGrips = true);
    const std::vector<AcDbObjectId>& highlighted() const;

    // After a command: layers and linetypes are read again, entities that changed are taken down anew.
    void Changed();
    // Everything is taken down anew.
    void Regenerate();

    // Draws on for about so many milliseconds; true when the picture is whole. A picture that was changed again begins
    // anew.
    bool Advance(double milliseconds);
    bool IsWhole() const;
    // What there is of it; it may be drawn half.
    const Image& PictureSoFar();
    // The whole picture.
    const Image& Picture();
    // Counts up with every change of the pixels.
    uint64_t pictureNumber() const;
    // Asked now and then while a picture is drawn or the drawing taken down; true leaves it as it is, half.
    void SetAbort(std::function<bool()> isAborted);
    // What is missing in the picture, one line; empty when all is shown.
    std::wstring LeftOut() const;

private:
    struct State;
    std::unique_ptr<State> m_state;
};

}   // namespace KxPlat
