#include "acrxabort.h"
#include "../ui/HostUi.h"
#include "../win/Format.h"
#include <cstdarg>
#include <cstdlib>

void acrx_abort(const ACHAR* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    KxPlat::Ui().Print(L"\n" + KxPlat::FormatV(format, arguments) + L"\n");
    va_end(arguments);
    std::abort();
}
