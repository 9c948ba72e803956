// A surface with views on it: the client area of a window, or memory only.
#pragma once
#include "AcGs.h"

class AcGsView;

class AcGsDevice {
public:
    virtual ~AcGsDevice() = default;

    virtual void invalidate() = 0;
    virtual void invalidate(const AcGsDCRect& rect) = 0;
    virtual bool isValid() const = 0;
    // Draws the views that need it and brings the pixels to the window.
    virtual void update(AcGsDCRect* updatedRect = nullptr) = 0;

    // Sizes of no pixels are kept as one pixel.
    virtual void onSize(int width, int height) = 0;

    // Later views lie over earlier ones.
    virtual bool add(AcGsView* view) = 0;
    virtual bool erase(AcGsView* view) = 0;
    virtual void eraseAll() = 0;

    virtual bool setBackgroundColor(AcGsColor color) = 0;
};
