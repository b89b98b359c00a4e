// The running program under the clock, on real sockets: show_bench
// [buzz-silent|buzz-gstreamer|session|start]. Without an argument all of them. What other programs do on the
// machine adds to every time.
#include <cstdio>
#include <cstring>

#include "platform/application.h"
#include "show/measurements.h"

int main(int argc, char** argv) {
    if (argc == 3 && std::strcmp(argv[1], "--start") == 0) return bench::startOnce(argc, argv, argv[2]);

    struct Part {
        const char* name;
        bool (*measure)();
    };
    static constexpr Part parts[] = {
        {"buzz-silent", [] { return bench::measureBuzzes(false); }},
        {"buzz-gstreamer", [] { return bench::measureBuzzes(true); }},
        {"session", bench::measureLongSession},
        {"start", bench::measureStart},
    };
    const platform::Application application(argc, argv);
    bool good = true, known = argc < 2;
    for (const Part& part : parts) {
        if (argc > 1 && std::strcmp(argv[1], part.name) != 0) continue;
        known = true;
        good = part.measure() && good;
    }
    if (!known) std::fprintf(stderr, "show_bench [buzz-silent|buzz-gstreamer|session|start]\n");
    return good && known ? 0 : 1;
}
