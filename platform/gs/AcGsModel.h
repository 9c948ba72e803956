// Holds what was taken down of the drawables that views show. A drawing must outlive what views show of it: take it off
// them, or delete the model, first.
#pragma once
#include "../ge/AcGeMatrix3d.h"
#include "AcGs.h"

class AcGiDrawable;
class AcGsView;

class AcGsModel {
public:
    enum RenderType { kMain, kSprite, kDirect, kHighlight, kHighlightSelection, kDynamicHighlight, kNumRenderTypes };
    enum InvalidationHint {
        kInvalidateNone = -1,
        kInvalidateIsolines,
        kInvalidateViewportCache,
        kInvalidateAll,
        kInvalidateMaterials,
        kInvalidateLinetypes
    };

    virtual ~AcGsModel() = default;

    // Something of a drawable's drawing changed. What is recorded for undoing is noticed without this.
    virtual void onAdded(AcGiDrawable* added, AcGiDrawable* parent) = 0;
    virtual void onModified(AcGiDrawable* modified, AcGiDrawable* parent) = 0;
    virtual void onErased(AcGiDrawable* erased, AcGiDrawable* parent) = 0;
    virtual void invalidate(InvalidationHint hint) = 0;
    // Applied to all that is in the model.
    virtual void setTransform(const AcGeMatrix3d& transform) = 0;
    virtual AcGeMatrix3d transform() const = 0;
    virtual RenderType renderType() const = 0;
};
