// Typed values, each found again by a number of the caller's choice, as one chain of extended-data groups: the
// application's name (1001), then for every value a tag (1071) that holds the number, and the value itself.
// A tag always stands an odd number of groups behind the previous one, and is looked for only in such places, so that
// a stored number is never taken for a tag. Where the list comes from and goes to is up to the derived classes.
// Getters answer false and leave their output alone when there is no such value or it is of another type. Setters
// replace a value of any type; what the drawing cannot hold (an integer too large, a real that is no number) is refused
// with false and changes nothing.
// Copies of a list share one chain: what is set through one is seen through all.
#pragma once
#include "KxHost.h"
#include "KxMfcEx/KxExport.h"
#include <memory>

namespace KxArxBase {

class ResBufList;

class KXARX_API CKxAcXDataList {
public:
    // An empty name stands for "KxCadBase". Names longer than 31 characters are cut.
    explicit CKxAcXDataList(const wchar_t* appName);
    CKxAcXDataList(const CKxAcXDataList& other) = default;
    CKxAcXDataList& operator=(const CKxAcXDataList& other) = default;
    virtual ~CKxAcXDataList();

    // An empty name changes nothing.
    void SetAppName(const wchar_t* appName);
    CString GetAppName() const;
    bool IsExistTag(long index) const;
    // The tag with its value.
    bool Remove(long index);
    // Only the application's name stays.
    void Clear();

    // Empties `text` first.
    bool GetString(long index, CString& text) const;
    // The caller provides room for the whole text and its final zero.
    bool GetString(long index, wchar_t* text) const;
    // Texts are split into pieces of 254 characters; an empty text is refused.
    bool SetString(long index, const wchar_t* text);
    bool GetLayer(long index, wchar_t* name) const;
    // The layer must exist in the working database.
    bool SetLayer(long index, const wchar_t* name);
    bool GetHandle(long index, AcDbHandle& handle) const;
    bool SetHandle(long index, const AcDbHandle& handle);

    // The forms in the plane store 0 for z and read x and y. Positions, displacements and directions are of the world:
    // they follow the object when it is moved, rotated or scaled; points do not.
    bool GetPoint3d(long index, AcGePoint3d& point) const;
    bool SetPoint3d(long index, const AcGePoint3d& point);
    bool GetPoint2d(long index, AcGePoint2d& point) const;
    bool SetPoint2d(long index, const AcGePoint2d& point);
    bool GetPosition3d(long index, AcGePoint3d& position) const;
    bool SetPosition3d(long index, const AcGePoint3d& position);
    bool GetPosition2d(long index, AcGePoint2d& position) const;
    bool SetPosition2d(long index, const AcGePoint2d& position);
    bool GetDisplacement3d(long index, AcGePoint3d& displacement) const;
    bool SetDisplacement3d(long index, const AcGePoint3d& displacement);
    bool GetDisplacement2d(long index, AcGePoint2d& displacement) const;
    bool SetDisplacement2d(long index, const AcGePoint2d& displacement);
    bool GetDirection3d(long index, AcGeVector3d& direction) const;
    bool SetDirection3d(long index, const AcGeVector3d& direction);
    bool GetDirection2d(long index, AcGeVector2d& direction) const;
    bool SetDirection2d(long index, const AcGeVector2d& direction);

    // Distances and scale factors change with the object's scale, plain reals do not.
    bool GetReal(long index, double& value) const;
    bool SetReal(long index, double value);
    bool GetDistance(long index, double& value) const;
    bool SetDistance(long index, double value);
    bool GetScale(long index, double& value) const;
    bool SetScale(long index, double value);
    // 16 bits.
    bool GetInteger(long index, int& value) const;
    bool SetInteger(long index, int value);
    // 32 bits.
    bool GetLong(long index, long& value) const;
    bool SetLong(long index, long value);

protected:
    // Back to the application's name alone; false when the host cannot make it.
    bool InitXDataList();
    resbuf* GetTag(long index) const;
    bool SetTag(long index);
    bool GetGenericString(long index, CString& text, short code) const;
    bool SetGenericString(long index, const wchar_t* text, short code);
    bool GetGenericReal(long index, double& value, short code) const;
    bool SetGenericReal(long index, double value, short code);
    bool GetGenericPoint3d(long index, AcGePoint3d& point, short code) const;
    bool SetGenericPoint3d(long index, const AcGePoint3d& point, short code);

    // The whole chain, or null when it could not be made.
    resbuf* Chain() const;
    void AdoptChain(resbuf* chain);
    const wchar_t* AppName() const { return m_appName; }
    // Makes the name known to the drawing that `id` belongs to; null means the working one.
    Acad::ErrorStatus RegisterAppName(AcDbObjectId id) const;

private:
    resbuf* ValueOf(long index, short code) const;
    bool SetValue(long index, resbuf* value);
    void TakeName(const wchar_t* appName);
    int _tsplitString(const wchar_t* text, CStringArray& parts, int size) const;

    std::shared_ptr<ResBufList> m_list;
    wchar_t m_appName[32] = {};
};

}   // namespace KxArxBase
