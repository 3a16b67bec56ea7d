#include "trace.h"

#include <csignal>
#include <dlfcn.h>
#include <ucontext.h>

namespace zelk::bench {

namespace {

std::vector<std::uintptr_t>* trace;
const void* traced_library;

void on_step(int, siginfo_t*, void* context)
{
#if defined(__x86_64__)
    constexpr int program_counter = REG_RIP;
#else
    constexpr int program_counter = REG_EIP;
#endif
    const auto& registers = static_cast<ucontext_t*>(context)->uc_mcontext.gregs;
    const auto address = static_cast<std::uintptr_t>(registers[program_counter]);
    Dl_info info;
    if (dladdr(reinterpret_cast<void*>(address), &info) && info.dli_fbase == traced_library)
        trace->push_back(address);
}

// Sets or clears the trap flag, below the red zone of the frame.
inline void single_step(bool on)
{
#if defined(__x86_64__)
    if (on)
        asm volatile(
            "leaq -128(%%rsp), %%rsp\n\tpushfq\n\torq $0x100, (%%rsp)\n\tpopfq\n\tleaq 128(%%rsp), %%rsp" ::
                : "cc", "memory");
    else
        asm volatile(
            "leaq -128(%%rsp), %%rsp\n\tpushfq\n\tandq $~0x100, (%%rsp)\n\tpopfq\n\tleaq 128(%%rsp), %%rsp" ::
                : "cc", "memory");
#else
    if (on)
        asm volatile("pushfl\n\torl $0x100, (%%esp)\n\tpopfl" ::: "cc", "memory");
    else
        asm volatile("pushfl\n\tandl $~0x100, (%%esp)\n\tpopfl" ::: "cc", "memory");
#endif
}

} // namespace

std::vector<std::uintptr_t> trace_call(const void* function, const Vec128& x, const Vec128& y)
{
    std::vector<std::uintptr_t> addresses;
    addresses.reserve(100000);
    Dl_info info;
    if (!dladdr(function, &info)) return addresses;
    trace = &addresses;
    traced_library = info.dli_fbase;

    struct sigaction action {};
    struct sigaction previous;
    action.sa_sigaction = on_step;
    action.sa_flags = SA_SIGINFO;
    sigaction(SIGTRAP, &action, &previous);
    alignas(16) Vec128 second;
    single_step(true);
    call(function, x, y, {}, &second);
    single_step(false);
    sigaction(SIGTRAP, &previous, nullptr);
    return addresses;
}

} // namespace zelk::bench
