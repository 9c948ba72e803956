// Writes one object's own values by its layout: the other way round of ObjectDecoder.
#pragma once
#include "Angles.h"
#include "BitWriter.h"
#include "DwgOutput.h"
#include "LayoutProgram.h"
#include <deque>

namespace KxPlat {

// The groups of one list, or those that no field claims, each to be taken once.
class GroupBucket {
public:
    GroupBucket(const ListField* list, int section) : list(list), section(section) {}
    void Fill(const AcDbObject& object);
    // Leaves out entries whose objects the file will not hold.
    void Thin(const DwgOutput& output);

    // The next group of this code within the row, taken; null when there is none left.
    const GroupValue* Take(int code);
    size_t CountOf(int code) const;   // of those not taken
    // Narrows the view to the row that begins with the next group of `code`; the view before comes back.
    struct View {
        size_t begin, end;
    };
    View EnterRow(int code);
    void Leave(View before) { m_view = before; }
    const GroupList& groups() const { return *m_groups; }

    const ListField* list;
    int section;   // of other groups

private:
    bool Fits(size_t i, int code) const
    {
        return !m_isTaken[i] && (*m_groups)[i].code == code && (list != nullptr || (*m_groups)[i].section == section);
    }
    GroupList m_own;
    const GroupList* m_groups = nullptr;
    std::vector<bool> m_isTaken;
    View m_view = {0, 0};
    size_t m_next = 0;
};

class ObjectEncoder {
public:
    explicit ObjectEncoder(DwgOutput& output) : output(output), version(output.version) {}

    DwgOutput& output;
    const DwgVersion version;
    BitWriter data, texts, handles;
    const AcDbObject* object = nullptr;
    uint64_t handle = 0;
    int64_t variables[LayoutProgram::kMostVariables] = {};

    void Begin(const AcDbObject& written, uint64_t ownHandle);
    void Run(const LayoutProgram& program);

    void Text(const CString& text);
    void Ref(int code, const AcDbStub* stub) { handles.H(code, output.HandleOf(stub)); }
    void Color(int index, bool hasRgb, uint32_t rgb, const CString& name);

    template <class T>
    const T& At(uint32_t offset) const
    {
        return *reinterpret_cast<const T*>(reinterpret_cast<const char*>(object) + offset);
    }
    GroupBucket& BucketOf(const Place& place);
    // The values of a place; what is missing is at its default.
    int64_t GetInteger(const Place& place);
    bool GetReals(const Place& place, int count, double* values);
    CString GetText(const Place& place);
    const AcDbStub* GetId(const Place& place);
    const LayoutProgram* program() const { return m_program; }

private:
    void Value(size_t at);
    void One(const Step& step, int64_t given, bool isGiven);
    int64_t Integer(const Step& step);
    void Reals(const Step& step);
    int64_t Counted(const Step& step);
    int64_t AutoBits(size_t at);
    bool IsAtDefault(size_t begin, size_t end);
    bool IsAtDefault(const Step& step);
    bool Holds(const Step& step) const;
    void Bytes(const Step& step);

    const LayoutProgram* m_program = nullptr;
    std::deque<GroupBucket> m_buckets;   // do not move
};

}   // namespace KxPlat
