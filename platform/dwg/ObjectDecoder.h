// Reads one object's own values by its layout, into its members, its lists and its unclaimed groups.
#pragma once
#include "Angles.h"
#include "BitReader.h"
#include "DwgInput.h"

namespace KxPlat {

// The colour of an object: an index, and what overrides it.
struct StoredDwgColor {
    int16_t index = 0;
    bool hasRgb = false;
    uint32_t rgb = 0;
    CString name;   // "BOOK$COLOR"
};

class ObjectDecoder {
public:
    explicit ObjectDecoder(DwgInput& input) : input(input), version(input.version) {}

    DwgInput& input;
    const DwgVersion version;
    BitReader data, texts, handles;
    bool hasTexts = false;   // from R2007 on: the object has a string area
    AcDbObject* object = nullptr;
    uint64_t handle = 0;
    bool isEntity = false;
    bool isRest = false;      // the rest of the data is kept by its bits
    bool isForeign = false;   // data in a form of another program's own: all of it is kept by its bits
    int64_t variables[LayoutProgram::kMostVariables] = {};

    void Run(const LayoutProgram& program);
    // Every stream was used up.
    bool IsExact() const
    {
        return !data.isBroken() && !texts.isBroken() && !handles.isBroken() && data.Left() == 0 && texts.Left() == 0 &&
               handles.Left() < 8;
    }

    CString Text();
    uint64_t Handle() { return handles.H().From(handle); }
    AcDbStub* Ref() { return input.StubOf(Handle()); }
    StoredDwgColor Color();
    // False, and everything broken, for a count that the object has no room for.
    bool IsCount(int64_t count)
    {
        if (count >= 0 && uint64_t(count) <= data.Left() + texts.Left() + handles.Left())
            return true;
        data.Break();
        return false;
    }

    template <class T>
    T& At(uint32_t offset)
    {
        return *reinterpret_cast<T*>(reinterpret_cast<char*>(object) + offset);
    }
    void PutInteger(const Place& place, int64_t value) { PutInteger(place, place.code, value); }
    void PutInteger(const Place& place, int code, int64_t value);
    void PutReal(const Place& place, int code, double value);
    void PutText(const Place& place, const CString& text);
    void PutId(const Place& place, AcDbStub* stub);
    void PutBytes(const Place& place, std::string_view bytes);
    // A group beside those that fields claim.
    void PutOther(int code, int section, GroupValue&& value);
    GroupValue* FindOther(int code, int section);

private:
    void Value(const Step& step);
    void One(const Step& step);
    void Integer(const Step& step, int64_t value);
    void Reals(const Step& step);
    void Pairs(const Step& step, int64_t value);
    bool Holds(const Step& step) const;
    void Order(const LayoutProgram& program, size_t first, size_t firstRow);

    std::string m_room;
};

}   // namespace KxPlat
