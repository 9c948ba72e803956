#include "../ui/WindowTable.h"
#include "GsObjects.h"
#include <algorithm>

namespace KxPlat {

namespace {

constexpr int kLargest = 16384;   // pixels of a side

}   // namespace

const Image& PictureOf(const AcGsDevice& device)
{
    return static_cast<const GsDevice&>(device).picture();
}

void GsDevice::invalidate()
{
    m_isValid = false;
}

bool GsDevice::isValid() const
{
    return m_isValid && std::all_of(m_views.begin(), m_views.end(), [](const GsView* view) { return view->isValid(); });
}

// Views may overlap, so all are drawn when one is.
void GsDevice::update(AcGsDCRect* updatedRect)
{
    const bool wasValid = isValid();
    if (updatedRect != nullptr)
        *updatedRect = wasValid ? AcGsDCRect(1, 0, 1, 0) : AcGsDCRect(0, m_picture.width(), 0, m_picture.height());
    if (!wasValid) {
        m_picture.Clear(m_background);
        for (GsView* view : m_views)
            view->Draw(m_picture, m_background);
        m_isValid = true;
    }
    if (m_window != nullptr)
        PutPixels(m_window, m_picture.Row(0), m_picture.width(), m_picture.height());
}

void GsDevice::onSize(int width, int height)
{
    m_picture = Image(std::clamp(width, 1, kLargest), std::clamp(height, 1, kLargest), m_background);
    m_isValid = false;
}

bool GsDevice::add(AcGsView* view)
{
    auto* added = static_cast<GsView*>(view);
    if (added == nullptr || std::find(m_views.begin(), m_views.end(), added) != m_views.end())
        return false;
    if (added->device() != nullptr)
        added->device()->erase(added);
    m_views.push_back(added);
    added->SetDevice(this);
    m_isValid = false;
    return true;
}

bool GsDevice::erase(AcGsView* view)
{
    const auto place = std::find(m_views.begin(), m_views.end(), view);
    if (place == m_views.end())
        return false;
    (*place)->SetDevice(nullptr);
    m_views.erase(place);
    m_isValid = false;
    return true;
}

void GsDevice::eraseAll()
{
    for (GsView* view : m_views)
        view->SetDevice(nullptr);
    m_views.clear();
    m_isValid = false;
}

bool GsDevice::setBackgroundColor(AcGsColor color)
{
    m_background = uint32_t(color.m_red) << 16 | uint32_t(color.m_green) << 8 | color.m_blue;
    m_isValid = false;
    return true;
}

}   // namespace KxPlat
