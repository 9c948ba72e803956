#include "Errno.h"
#include "../EditorState.h"

namespace KxPlat {

void SetErrno(Errno why)
{
    if (EditorState* editor = TheEditor())
        editor->errorNumber = int(why);
}

}   // namespace KxPlat
