// A module with nothing in it.
extern "C" __declspec(dllexport) int probe()
{
    return 1;
}
