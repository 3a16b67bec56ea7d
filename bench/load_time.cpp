// zelk-load-time LIBRARY: prints, in nanoseconds, what loading the library takes, the first call of a
// function of it, and the second. In a process that has not loaded it before; run it many times.
#include <chrono>
#include <cstdio>
#include <dlfcn.h>
#include <xmmintrin.h>

namespace {

using Clock = std::chrono::steady_clock;

template <class Action>
long long nanoseconds(Action action)
{
    const auto start = Clock::now();
    action();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now() - start).count();
}

} // namespace

int main(int argc, char** argv)
{
    void* library = nullptr;
    if (argc == 2) nanoseconds([&] {}); // the clock's own first call
    const long long load = nanoseconds([&] { library = argc == 2 ? dlopen(argv[1], RTLD_NOW) : nullptr; });
    if (!library) {
        std::fputs("usage: zelk-load-time LIBRARY\n", stderr);
        return 2;
    }
    const auto sine = reinterpret_cast<__m128 (*)(__m128)>(dlsym(library, "__zelk_sinf4"));
    volatile __m128 result = _mm_set1_ps(0.5F);
    const auto call = [&] { result = sine(result); };
    const long long first = nanoseconds(call);
    std::printf("%lld %lld %lld\n", load, first, nanoseconds(call));
}
