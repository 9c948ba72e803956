#include "rxmfcapi.h"
#include "Session.h"
#include <algorithm>

using KxPlat::EditorState;
using KxPlat::TheEditor;

int acedSetStatusBarProgressMeter(const ACHAR* label, int least, int most)
{
    EditorState* editor = TheEditor();
    if (editor == nullptr || most <= least)
        return -1;
    editor->meter =
        std::make_unique<KxPlat::Progress>(label != nullptr ? label : L"", uint64_t(int64_t(most) - int64_t(least)));
    editor->meterLeast = editor->meterAt = least;
    return 0;
}

int acedSetStatusBarProgressMeterPos(int position)
{
    EditorState* editor = TheEditor();
    if (editor == nullptr || editor->meter == nullptr)
        return -1;
    editor->meterAt = position < 0 ? editor->meterAt - int64_t(position) : int64_t(position);
    editor->meter->At(uint64_t(std::max<int64_t>(editor->meterAt - editor->meterLeast, 0)));
    return 0;
}

void acedRestoreStatusBar()
{
    if (EditorState* editor = TheEditor())
        editor->meter.reset();
}
