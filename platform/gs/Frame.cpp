#include "Frame.h"

namespace KxPlat {

namespace {

constexpr size_t kStep = 256;   // entities between two looks at the clock

}   // namespace

Frame::Frame(Scene& scene, std::vector<Sight> sights, const DrawOptions& options, Image& image)
    : m_scene(scene), m_sights(std::move(sights)), m_options(options), m_flat(image)
{
    image.Clear(options.background);
    if (options.mode > RenderMode::Wireframe)
        m_deep = std::make_unique<DepthPainter>(image, options.mode, options.background);
    Begin();
}

void Frame::Begin()
{
    m_walk.reset();
    if (m_sight >= m_sights.size())
        return;
    const Sight& sight = m_sights[m_sight];
    const Projection projection(sight.camera, sight.width, sight.height);
    Painter* painter = &m_flat;
    if (m_deep != nullptr) {
        m_deep->Reset(projection.DepthScale());
        painter = m_deep.get();
    }
    if (m_sight > 0) {
        m_window = std::make_unique<WindowPainter>(*painter, sight.left, sight.top, sight.width, sight.height);
        painter = m_window.get();
    }
    DrawOptions options = m_options;
    if (!sight.frozenLayers.empty())
        options.layerFilter = [this, at = m_sight](const AcDbStub* layer) {
            return !m_sights[at].Freezes(layer) && (!m_options.layerFilter || m_options.layerFilter(layer));
        };
    m_walk = std::make_unique<SceneWalk>(m_scene, sight.block, projection, std::move(options), *painter);
}

bool Frame::Advance(Clock::time_point end, size_t every)
{
    while (m_walk != nullptr) {
        if (m_walk->IsDone()) {
            ++m_sight;
            Begin();
            continue;
        }
        m_walk->Draw(kStep, every);
        m_drawn += kStep;
        if (Clock::now() >= end && !m_walk->IsDone())
            return false;
    }
    return true;
}

}   // namespace KxPlat
