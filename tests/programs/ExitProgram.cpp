// ExitProgram CODE [MILLISECONDS]: waits and ends with that code.
#include <chrono>
#include <cstdlib>
#include <thread>

int main(int argc, char** argv)
{
    if (argc > 2)
        std::this_thread::sleep_for(std::chrono::milliseconds(std::atoi(argv[2])));
    return argc > 1 ? std::atoi(argv[1]) : 99;
}
