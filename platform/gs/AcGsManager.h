// Gives access to the graphics system, and makes and destroys what belongs to it.
#pragma once
#include "../win/KxWinTypes.h"

class AcGsClassFactory;
class AcGsDevice;
class AcGsModel;
class CView;

class AcGsManager {
public:
    virtual ~AcGsManager() = default;

    virtual AcGsClassFactory* getGSClassFactory() = 0;
    // A device that shows its views in the client area of a window.
    virtual AcGsDevice* createAutoCADDevice(HWND window) = 0;
    virtual AcGsDevice* createAutoCADOffScreenDevice() = 0;
    virtual AcGsModel* createAutoCADModel() = 0;
    virtual void destroyAutoCADDevice(AcGsDevice* device) = 0;
    virtual void destroyAutoCADModel(AcGsModel* model) = 0;
    // The device made for this window; null when there is none.
    virtual AcGsDevice* getDeviceFromHWND(HWND window) = 0;
};

AcGsManager* acgsGetGsManager(CView* view = nullptr);
