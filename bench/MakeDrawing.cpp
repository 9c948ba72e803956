// kx_make_drawing ENTITIES LAYERS FILE [BLOCKS [REACH]]: writes a drawing to measure with.
#include "DrawingMaker.h"
#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
{
    if (argc < 4 || argc > 6) {
        std::fputs("usage: kx_make_drawing ENTITIES LAYERS FILE [BLOCKS [REACH]]\n", stderr);
        return 2;
    }
    const KxBench::DrawingSize size{std::atoll(argv[1]), std::atoll(argv[2]), argc > 4 ? std::atoll(argv[4]) : 0,
                                    argc > 5 ? std::atof(argv[5]) : 0};
    const std::int64_t bytes = KxBench::WriteDrawing(argv[3], size);
    if (bytes < 0) {
        std::fprintf(stderr, "kx_make_drawing: %s: cannot be written\n", argv[3]);
        return 1;
    }
    std::printf("%s: %lld entities, %lld layers, %.1f MB\n", argv[3], static_cast<long long>(size.entities),
                static_cast<long long>(size.layers), static_cast<double>(bytes) / 1e6);
    return 0;
}
