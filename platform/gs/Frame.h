// One drawing of all that a picture shows, in as many steps as time allows.
#pragma once
#include "DepthPainter.h"
#include "SceneWalk.h"
#include "Sight.h"
#include "WindowPainter.h"
#include <chrono>

namespace KxPlat {

class Frame {
public:
    using Clock = std::chrono::steady_clock;

    // The first sight is the page itself. The image is cleared.
    Frame(Scene& scene, std::vector<Sight> sights, const DrawOptions& options, Image& image);

    // Draws until `end`, or all; true when it is done. Of a sketch only every so many-th entity is drawn.
    bool Advance(Clock::time_point end, size_t every = 1);
    // Entities that are drawn, and have been, of the sights that were begun.
    size_t drawn() const { return m_drawn; }
    // Entities of the first sight that may be seen.
    size_t Size() const { return m_walk == nullptr ? 0 : m_walk->Size(); }

private:
    void Begin();

    Scene& m_scene;
    std::vector<Sight> m_sights;
    DrawOptions m_options;
    ImagePainter m_flat;
    std::unique_ptr<DepthPainter> m_deep;   // where faces are drawn
    std::unique_ptr<WindowPainter> m_window;
    std::unique_ptr<SceneWalk> m_walk;
    size_t m_sight = 0, m_drawn = 0;
};

}   // namespace KxPlat
