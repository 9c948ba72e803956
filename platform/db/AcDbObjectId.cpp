#include "AcDbObjectId.h"
#include "core/ObjectAccess.h"
#include "core/Stub.h"

const AcDbObjectId AcDbObjectId::kNull;

bool AcDbObjectId::isValid() const
{
    return m_stub != nullptr && m_stub->database != nullptr;
}

bool AcDbObjectId::isErased() const
{
    return m_stub == nullptr || m_stub->object == nullptr || m_stub->erased;
}

bool AcDbObjectId::isEffectivelyErased() const
{
    // A chain of owners that a damaged file closed to a ring ends after as many steps as any real one.
    AcDbStub* stub = m_stub;
    for (int depth = 0; stub != nullptr && depth < 64; ++depth) {
        if (stub->object == nullptr || stub->erased)
            return true;
        stub = KxPlat::ObjectAccess::Owner(*stub->object);
    }
    return m_stub == nullptr;
}

bool AcDbObjectId::isResident() const
{
    return m_stub != nullptr && m_stub->object != nullptr;
}

AcDbHandle AcDbObjectId::handle() const
{
    return m_stub == nullptr ? AcDbHandle() : AcDbHandle(m_stub->handle);
}

AcDbDatabase* AcDbObjectId::database() const
{
    return m_stub == nullptr ? nullptr : m_stub->database;
}

AcRxClass* AcDbObjectId::objectClass() const
{
    return isResident() ? m_stub->object->isA() : nullptr;
}

AcDbHandle::AcDbHandle(const wchar_t* hexDigits)
{
    for (const wchar_t* at = hexDigits; at != nullptr && *at != 0; ++at) {
        const int digit = *at >= L'0' && *at <= L'9'   ? *at - L'0'
                          : *at >= L'a' && *at <= L'f' ? *at - L'a' + 10
                          : *at >= L'A' && *at <= L'F' ? *at - L'A' + 10
                                                       : -1;
        if (digit < 0)
            break;
        m_value = m_value << 4 | uint64_t(digit);
    }
}

bool AcDbHandle::getIntoAsciiBuffer(wchar_t* buffer) const
{
    return getIntoAsciiBuffer(buffer, 17);
}

bool AcDbHandle::getIntoAsciiBuffer(wchar_t* buffer, uint32_t size) const
{
    wchar_t digits[17];
    int count = 0;
    for (uint64_t rest = m_value; rest != 0 || count == 0; rest >>= 4)
        digits[count++] = L"0123456789ABCDEF"[rest & 15];
    if (buffer == nullptr || uint32_t(count) >= size)
        return false;
    for (int i = 0; i < count; ++i)
        buffer[i] = digits[count - 1 - i];
    buffer[count] = 0;
    return true;
}
