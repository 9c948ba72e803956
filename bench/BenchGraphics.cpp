// Pictures of a large drawing at 1600 by 1000 pixels: the first one, and then frame after frame.
#include "db/AcDbDatabase.h"
#include "gs/DrawingView.h"
#include "Measured.h"
#include "win/CodePage.h"
#include <memory>

namespace {

using KxBench::Measure;
using KxBench::Prepared;
using KxPlat::DrawingView;

constexpr int kWidth = 1600, kHeight = 1000;
constexpr double kFrame = 1000.0 / 30;   // milliseconds
constexpr int kFrames = 60;

std::unique_ptr<AcDbDatabase> Opened()
{
    auto database = std::make_unique<AcDbDatabase>(false);
    if (database->dxfIn(KxPlat::FromUtf8(Prepared("plan.dxf")).c_str()) != Acad::eOk)
        database.reset();
    return database;
}

// Opened once for all pictures.
AcDbDatabase* Large()
{
    static const std::unique_ptr<AcDbDatabase> drawing = Opened();
    return drawing.get();
}

void OpenPlan(benchmark::State& state)
{
    for (auto _ : state) {
        std::unique_ptr<AcDbDatabase> database;
        Measure(state, [&] { database = Opened(); });
        if (database == nullptr)
            return state.SkipWithError("the drawing does not open");
    }
}
KX_MEASURE(OpenPlan, 3);

// From nothing to the whole drawing on the picture.
void FirstPicture(benchmark::State& state)
{
    for (auto _ : state) {
        if (Large() == nullptr)
            return state.SkipWithError("the drawing does not open");
        DrawingView view(*Large());
        view.Resize(kWidth, kHeight);
        Measure(state, [&] { view.Picture(); });
    }
}
KX_MEASURE(FirstPicture, 3);

// One view for all, looked at once in whole.
DrawingView& View()
{
    static DrawingView view(*Large());
    view.Resize(kWidth, kHeight);
    view.SetCamera(KxPlat::Camera());   // from above
    view.ZoomExtents();
    view.Picture();
    return view;
}

// `move` changes the camera; a frame is what a window shows after it: as much as the time of a frame allows, or all.
template <class Move>
void Frames(benchmark::State& state, bool isWhole, Move move)
{
    if (Large() == nullptr)
        return state.SkipWithError("the drawing does not open");
    for (auto _ : state) {
        DrawingView& view = View();
        int whole = 0;
        Measure(state, [&] {
            for (int frame = 0; frame < kFrames; ++frame) {
                move(view, frame);
                if (isWhole)
                    view.Picture();
                else
                    whole += view.Advance(kFrame / 2);
            }
        });
        state.counters["whole"] = whole;
    }
    state.counters["frames"] = kFrames;
}

void Orbit(DrawingView& view, int)
{
    view.Orbit(0.01, 0.004);
}

void PanFrames(benchmark::State& state)
{
    Frames(state, false, [](DrawingView& view, int frame) { view.Pan(frame % 20 < 10 ? 7 : -7, 3); });
}
KX_MEASURE(PanFrames, 1);

void ZoomFrames(benchmark::State& state)
{
    Frames(state, false, [](DrawingView& view, int frame) { view.ZoomAt(500, 400, frame % 20 < 10 ? 1.2 : 1 / 1.2); });
}
KX_MEASURE(ZoomFrames, 1);

void OrbitFrames(benchmark::State& state)
{
    Frames(state, false, Orbit);
}
KX_MEASURE(OrbitFrames, 1);

// Every entity in every frame.
void OrbitWholeFrames(benchmark::State& state)
{
    Frames(state, true, Orbit);
}
KX_MEASURE(OrbitWholeFrames, 1);

// Each tenth of the width and height: what is off the picture costs nothing.
void OrbitNearFrames(benchmark::State& state)
{
    if (Large() == nullptr)
        return state.SkipWithError("the drawing does not open");
    for (auto _ : state) {
        DrawingView& view = View();
        view.ZoomAt(kWidth / 2, kHeight / 2, 10);
        view.Picture();
        Measure(state, [&] {
            for (int frame = 0; frame < kFrames; ++frame) {
                Orbit(view, frame);
                view.Picture();
            }
        });
    }
    state.counters["frames"] = kFrames;
}
KX_MEASURE(OrbitNearFrames, 1);

}   // namespace
