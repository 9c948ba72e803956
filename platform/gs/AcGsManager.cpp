#include "AcGsManager.h"
#include "../db/AcDbDatabase.h"
#include "AcGsClassFactory.h"
#include "GsObjects.h"
#include <algorithm>

namespace KxPlat {

void GsModel::invalidate(InvalidationHint hint)
{
    if (hint != kInvalidateNone)
        Forget();
}

void GsModel::Forget()
{
    for (auto& [database, used] : m_scenes)
        used.scene->Forget();
}

Scene& GsModel::Acquire(AcDbDatabase& database)
{
    Used& used = m_scenes[&database];
    if (used.scene == nullptr)
        used.scene = std::make_unique<Scene>(database);
    ++used.users;
    return *used.scene;
}

void GsModel::Release(AcDbDatabase& database)
{
    const auto place = m_scenes.find(&database);
    if (place != m_scenes.end() && --place->second.users == 0)
        m_scenes.erase(place);
}

Scene* GsModel::SceneOf(AcDbDatabase& database)
{
    const auto place = m_scenes.find(&database);
    return place == m_scenes.end() ? nullptr : place->second.scene.get();
}

namespace {

class GsManager : public AcGsManager, public AcGsClassFactory {
public:
    AcGsClassFactory* getGSClassFactory() override { return this; }
    AcGsDevice* createAutoCADDevice(HWND window) override { return createDevice(window); }
    AcGsDevice* createAutoCADOffScreenDevice() override { return createOffScreenDevice(); }
    AcGsModel* createAutoCADModel() override { return createModel(AcGsModel::kMain); }
    void destroyAutoCADDevice(AcGsDevice* device) override { deleteDevice(device); }
    void destroyAutoCADModel(AcGsModel* model) override { deleteModel(model); }
    AcGsDevice* getDeviceFromHWND(HWND window) override
    {
        const auto place = std::find_if(m_devices.begin(), m_devices.end(),
                                        [window](const auto& device) { return device->window() == window; });
        return window == nullptr || place == m_devices.end() ? nullptr : place->get();
    }

    AcGsDevice* createDevice(HWND window) override
    {
        return m_devices.emplace_back(std::make_unique<GsDevice>(window)).get();
    }
    AcGsDevice* createOffScreenDevice() override { return createDevice(nullptr); }
    AcGsView* createView() override { return new GsView; }
    AcGsModel* createModel(AcGsModel::RenderType type) override { return new GsModel(type); }
    void deleteDevice(AcGsDevice* device) override
    {
        std::erase_if(m_devices, [device](const auto& each) { return each.get() == device; });
    }
    void deleteView(AcGsView* view) override { delete view; }
    void deleteModel(AcGsModel* model) override { delete model; }

private:
    std::vector<std::unique_ptr<GsDevice>> m_devices;
};

}   // namespace

}   // namespace KxPlat

AcGsManager* acgsGetGsManager(CView*)
{
    static KxPlat::GsManager manager;
    return &manager;
}
