// Makes devices, views and models; what it makes it also deletes.
#pragma once
#include "AcGsModel.h"

class AcGsDevice;
class AcGsView;

class AcGsClassFactory {
public:
    virtual ~AcGsClassFactory() = default;

    virtual AcGsDevice* createDevice(HWND window) = 0;
    virtual AcGsDevice* createOffScreenDevice() = 0;
    virtual AcGsView* createView() = 0;
    virtual AcGsModel* createModel(AcGsModel::RenderType type) = 0;
    // Takes the views off it; they live on.
    virtual void deleteDevice(AcGsDevice* device) = 0;
    // Takes it off its device.
    virtual void deleteView(AcGsView* view) = 0;
    // No view may show something of it any more.
    virtual void deleteModel(AcGsModel* model) = 0;
};
