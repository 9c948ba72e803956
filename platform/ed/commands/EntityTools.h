// What commands that draw and change entities share.
#pragma once
#include "../../db/AcDbEntity.h"
#include "../../ge/AcGePoint3d.h"
#include "../acedads.h"
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace KxPlat {

// The objects that a command asks for, or that were picked before it. The set is freed on every way out.
class Picked {
public:
    explicit Picked(const ACHAR* mode = nullptr) { m_result = acedSSGet(mode, nullptr, nullptr, nullptr, m_set); }
    ~Picked();
    Picked(const Picked&) = delete;
    bool isEmpty() const { return m_result != RTNORM; }

    template <class Visit>
    void ForEach(Visit&& visit) const
    {
        for (const AcDbObjectId id : Ids())
            visit(id);
    }
    std::vector<AcDbObjectId> Ids() const;
    // Opens each for write. Says how many stand on locked layers, which are left alone.
    template <class Visit>
    void Change(Visit&& visit) const
    {
        int locked = 0;
        for (const AcDbObjectId id : Ids()) {
            if (AcDbEntity* entity = OpenForChange(id, locked)) {
                visit(*entity);
                entity->close();
            }
        }
        TellLocked(locked);
    }

private:
    static AcDbEntity* OpenForChange(AcDbObjectId id, int& locked);
    static void TellLocked(int count);

    ads_name m_set = {0, 0};
    int m_result;
};

// Puts a new entity with the current layer, colour and linetype into the current space.
AcDbObjectId AddToSpace(std::unique_ptr<AcDbEntity> entity);
// The same without a change of its looks.
AcDbObjectId AddToSpaceAsIs(std::unique_ptr<AcDbEntity> entity);
// Copies within the current space.
std::vector<AcDbObjectId> CopiesOf(const std::vector<AcDbObjectId>& ids);

// One answer to a question: exactly one of the members tells what came.
struct PointAnswer {
    int code = RTERROR;   // RTNORM, RTNONE, RTKWORD or RTCAN
    AcGePoint3d point;
    std::wstring keyword;

    bool isPoint() const { return code == RTNORM; }
    bool isEnter() const { return code == RTNONE; }
    bool is(const wchar_t* word) const { return code == RTKWORD && keyword == word; }
};
PointAnswer AskPoint(const std::wstring& prompt, const AcGePoint3d* base = nullptr, const wchar_t* keywords = nullptr);

// The keyword; `byDefault` for Enter, empty when the user cancelled.
std::wstring AskKeyword(const std::wstring& prompt, const wchar_t* keywords, const wchar_t* byDefault = L"");
// Enter leaves the number as it is. False when the user cancelled.
bool AskReal(const std::wstring& prompt, double& number, int rules = 0);
bool AskDistance(const std::wstring& prompt, const AcGePoint3d& base, double& distance);
bool AskAngle(const std::wstring& prompt, const AcGePoint3d& base, double& radians);

// The answer came from a program, which asks nothing further by itself.
bool AnsweredByProgram();

std::wstring LengthText(double value);   // in the drawing's units
std::wstring PointText(const AcGePoint3d& point);
AcDbDatabase& WorkingDatabase();

}   // namespace KxPlat
