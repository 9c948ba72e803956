// Writes one object's own values by its layout: the other way round of ObjectDecoder.
#pragma once
#include "Angles.h"
#include "BitWriter.h"
#include "GroupBucket.h"
#include "LayoutProgram.h"
#include <deque>

namespace KxPlat {

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
