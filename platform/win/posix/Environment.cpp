#include "../Environment.h"
#include "../CodePage.h"
#include "../WinAnswer.h"
#include <cstdlib>

BOOL SetEnvironmentVariableW(LPCWSTR name, LPCWSTR value)
{
    const std::string variable = KxPlat::ToUtf8(name != nullptr ? name : L"");
    const int failure =
        value != nullptr ? setenv(variable.c_str(), KxPlat::ToUtf8(value).c_str(), 1) : unsetenv(variable.c_str());
    return failure == 0 ? TRUE : KxPlat::FailWith(ERROR_INVALID_PARAMETER);
}
