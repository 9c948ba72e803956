// Enumerations of drawing.
#pragma once

enum AcGiRegenType {
    eAcGiRegenTypeInvalid = 0,
    kAcGiStandardDisplay = 2,
    kAcGiHideOrShadeCommand = 3,
    kAcGiRenderCommand = 4,
    kAcGiSaveWorldDrawForR12 = 5,
    kAcGiSaveWorldDrawForNoSave = 6,
    kAcGiForExtents = 7,
    kAcGiForPlot = 8
};

enum AcGiFillType { kAcGiFillAlways = 1, kAcGiFillNever = 2 };

enum AcGiDeviationType {
    kAcGiMaxDevForCircle = 0,
    kAcGiMaxDevForCurve = 1,
    kAcGiMaxDevForBoundary = 2,
    kAcGiMaxDevForIsoline = 3,
    kAcGiMaxDevForFacet = 4
};

enum AcGiVisibility { kAcGiInvisible = 0, kAcGiVisible = 1, kAcGiSilhouette = 2 };

enum AcGiArcType { kAcGiArcSimple = 0, kAcGiArcSector = 1, kAcGiArcChord = 2 };
