// What a drawing was before each command. An object's fields are recorded when they are first changed in a step;
// additions and erasures are recorded as such. Undoing swaps the recorded state with the present one, which makes the
// same record serve for redoing.
#pragma once
#include "GroupValue.h"
#include "HeaderVars.h"
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

class AcDbObject;

namespace KxPlat {

// The former value of a plain member, and where in its object that lies.
struct MemberBits {
    uint32_t bits = 0;
    uint16_t offset = 0;
    uint8_t size = 0;
};

class UndoLog {
public:
    UndoLog();
    ~UndoLog();

    // Starts a step, by the name of its command. Steps that changed nothing leave no trace.
    void Begin(const CString& command);
    // Number of the current step; 0 while nothing is recorded.
    uint32_t Current() const { return m_isOff ? 0 : m_serial; }
    // Reading a file or building a drawing is no step.
    void SetOff(bool isOff) { m_isOff = isOff; }
    bool IsOff() const { return m_isOff; }

    void Changing(AcDbObject& object);
    // The same for one plain member of at most four bytes: no copy is made of the rest.
    template <class T>
    void ChangingMember(AcDbObject& object, const T& member)
    {
        static_assert(std::is_integral_v<T> && sizeof(T) <= sizeof(MemberBits::bits));
        Record(object, &member, sizeof(T));
    }
    void Erasing(AcDbStub* stub);   // before the erased flag turns
    void Added(AcDbStub* stub);
    void ChangingHeader(const HeaderVars& vars, std::string_view name);

    // One step back or forth; the name of its command, or false when there is none.
    bool Undo(HeaderVars& vars, CString& command);
    bool Redo(HeaderVars& vars, CString& command);
    size_t UndoDepth() const { return m_done.size(); }
    void Clear();

    // Who watches learns which objects were touched: changed, added, erased, or one of these undone. Also while
    // recording is off.
    void Watch() { ++m_watchers; }
    void Unwatch() { --m_watchers; }
    // What was touched from `position` on, which moves to the end; an object may come twice. False when too much was
    // touched to be told one by one.
    bool TouchedSince(uint64_t& position, std::vector<AcDbStub*>& touched);
    uint64_t TouchedCount() const { return m_touchedBefore + m_touched.size(); }

private:
    struct HeaderChange {
        HeaderVar before;
        bool wasThere = false;
    };
    // Small, since a command may change every object of a large drawing.
    struct Change {
        AcDbStub* stub = nullptr;
        std::unique_ptr<AcDbObject> before;     // fields
        std::unique_ptr<HeaderChange> header;   // a header variable
        MemberBits member;                      // one small member, when its size is not 0
        bool wasErased = false;                 // none of them: the erased flag
    };
    struct Step {
        CString command;
        std::vector<Change> changes;
    };
    void Touch(AcDbStub* stub)
    {
        if (m_watchers > 0)
            NoteTouched(stub);
    }
    void NoteTouched(AcDbStub* stub);
    Step& Open();
    void Record(AcDbObject& object, const void* member, uint8_t size);
    void Swap(Change& change, HeaderVars& vars);
    static void SwapHeader(HeaderChange& change, HeaderVars& vars);

    std::vector<Step> m_done;
    std::vector<Step> m_undone;
    CString m_nextCommand;
    uint32_t m_serial = 1;
    uint32_t m_openSerial = 0;   // the step that m_done.back() belongs to
    bool m_isOff = false;
    int m_watchers = 0;
    uint64_t m_touchedBefore = 0;   // entries that `m_touched` held before and dropped
    uint64_t m_told = 0;            // entries that some watcher has seen
    std::vector<AcDbStub*> m_touched;
};

}   // namespace KxPlat
