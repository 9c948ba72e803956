#include "Escaped.h"
#include "../win/CodePage.h"
#include "CException.h"
#include <exception>
#include <new>

namespace KxPlat {

std::wstring EscapedException()
{
    try {
        throw;
    } catch (const std::bad_alloc&) {
        return L"out of memory";
    } catch (const std::exception& failure) {
        return FromUtf8(failure.what());
    } catch (CException* failure) {
        wchar_t message[512] = {};
        const bool isTold = failure->GetErrorMessage(message, 512) != FALSE && message[0] != 0;
        failure->Delete();
        return isTold ? message : L"an exception without a message";
    } catch (...) {
        return L"an unknown exception";
    }
}

}   // namespace KxPlat
