// Drags something while the user shows a point, a distance or an angle. Here nothing moves between two answers: each
// answer is a sample, and the one that is taken ends the drag.
#pragma once
#include "../db/AcDbEntity.h"
#include "../ge/AcGePoint3d.h"
#include "../mfc/CString.h"
#include "../rx/AcRxObject.h"

class AcEdJig : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEdJig);

    enum UserInputControls {
        kGovernedByOrthoMode = 1,
        kNullResponseAccepted = 2,
        kDontEchoCancelForCtrlC = 4,
        kDontUpdateLastPoint = 8,
        kNoDwgLimitsChecking = 0x10,
        kNoZeroResponseAccepted = 0x20,
        kNoNegativeResponseAccepted = 0x40,
        kAccept3dCoordinates = 0x80,
        kAcceptMouseUpAsPoint = 0x100,
        kAnyBlankTerminatesInput = 0x200,
        kInitialBlankTerminatesInput = 0x400,
        kAcceptOtherInputString = 0x800
    };
    enum DragStatus {
        kModeless = -17,
        kNoChange = -6,
        kCancel = -4,
        kOther = -3,
        kNull = -1,
        kNormal = 0,
        kKW1,
        kKW2,
        kKW3,
        kKW4,
        kKW5,
        kKW6,
        kKW7,
        kKW8,
        kKW9
    };

    AcEdJig() = default;

    // Samples until the user is content: what ended it, a keyword among it.
    DragStatus drag();
    // Adds the entity to the current space of the working drawing and closes it; the null id where that fails.
    AcDbObjectId append();
    const ACHAR* keywordList() { return m_keywords; }
    void setKeywordList(const ACHAR* keywords) { m_keywords = keywords; }
    const ACHAR* dispPrompt() { return m_prompt; }
    void setDispPrompt(const ACHAR* format, ...);
    UserInputControls userInputControls() { return m_controls; }
    void setUserInputControls(UserInputControls controls) { m_controls = controls; }

    // For the sampler of a derived class.
    DragStatus acquireString(ACHAR* value);   // up to 511 characters
    DragStatus acquireAngle(double& value);
    DragStatus acquireAngle(double& value, const AcGePoint3d& base);
    DragStatus acquireDist(double& value);
    DragStatus acquireDist(double& value, const AcGePoint3d& base);
    DragStatus acquirePoint(AcGePoint3d& value);
    DragStatus acquirePoint(AcGePoint3d& value, const AcGePoint3d& base);

    virtual DragStatus sampler() { return kNoChange; }
    virtual Adesk::Boolean update() { return Adesk::kFalse; }
    virtual AcDbEntity* entity() const { return nullptr; }

private:
    void PrepareInput() const;
    DragStatus StatusOf(int answer) const;

    CString m_keywords;
    CString m_prompt;
    UserInputControls m_controls = UserInputControls(0);
};
