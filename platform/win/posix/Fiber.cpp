#include "../Fiber.h"
#include <cstring>
#include <cxxabi.h>
#include <new>
#include <sys/mman.h>
#include <sys/resource.h>
#include <ucontext.h>
#include <utility>
#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/common_interface_defs.h>
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define __SANITIZE_ADDRESS__
#include <sanitizer/common_interface_defs.h>
#endif
#endif

namespace KxPlat {

namespace {

constexpr size_t kStackSize = size_t(8) << 20;   // reserved; pages are taken when they are used
constexpr size_t kGuardSize = size_t(64) << 10;

// The sanitizer must know which stack is meant, or it takes the change for an overflow.
void Leaving([[maybe_unused]] void** own, [[maybe_unused]] const void* bottom, [[maybe_unused]] size_t size)
{
#if defined(__SANITIZE_ADDRESS__)
    __sanitizer_start_switch_fiber(own, bottom, size);
#endif
}

void Arrived([[maybe_unused]] void* own, [[maybe_unused]] const void** bottom, [[maybe_unused]] size_t* size)
{
#if defined(__SANITIZE_ADDRESS__)
    __sanitizer_finish_switch_fiber(own, bottom, size);
#endif
}

// The exceptions that are being handled belong to a stack, and change with it.
struct Handled {
    void* caught = nullptr;
    unsigned uncaught = 0;
    void SwapWithCurrent()
    {
        Handled now;
        void* globals = abi::__cxa_get_globals();
        std::memcpy(&now, globals, sizeof now);
        std::memcpy(globals, this, sizeof now);
        *this = now;
    }
};

const char* ProgramStackEnd()
{
    constexpr rlim_t kUsual = kStackSize;
    rlimit limit = {};
    const bool isLimited = getrlimit(RLIMIT_STACK, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY;
    const rlim_t size = isLimited && limit.rlim_cur < kUsual ? limit.rlim_cur : kUsual;
    return static_cast<const char*>(__builtin_frame_address(0)) - size + kGuardSize;
}

// Of the one thread.
struct Stacks {
    Fiber* current = nullptr;
    const char* end = ProgramStackEnd();
};
Stacks g_stacks;

}   // namespace

struct Fiber::State {
    std::function<void()> work;
    ucontext_t own = {}, resumer = {};
    char* memory = nullptr;
    Fiber* resumedBy = nullptr;
    const char* resumersEnd = nullptr;
    const void* resumersBottom = nullptr;
    size_t resumersSize = 0;
    void* fakeStack = nullptr;
    Handled handled;
    bool isDone = false;

    static void Start(unsigned high, unsigned low);
    void Run();
};

void Fiber::State::Start(unsigned high, unsigned low)
{
    reinterpret_cast<State*>((uintptr_t(high) << 32) | low)->Run();
}

void Fiber::State::Run()
{
    Arrived(nullptr, &resumersBottom, &resumersSize);
    work();
    isDone = true;
    Leaving(nullptr, resumersBottom, resumersSize);
    swapcontext(&own, &resumer);
}

Fiber::Fiber(std::function<void()> work) : m_state(std::make_unique<State>())
{
    State& state = *m_state;
    state.work = std::move(work);
    void* memory =
        mmap(nullptr, kStackSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (memory == MAP_FAILED)
        throw std::bad_alloc();
    state.memory = static_cast<char*>(memory);
    mprotect(memory, kGuardSize, PROT_NONE);
    getcontext(&state.own);
    state.own.uc_stack.ss_sp = state.memory;
    state.own.uc_stack.ss_size = kStackSize;
    const auto address = reinterpret_cast<uintptr_t>(&state);
    makecontext(&state.own, reinterpret_cast<void (*)()>(&State::Start), 2, unsigned(address >> 32), unsigned(address));
}

Fiber::~Fiber()
{
    munmap(m_state->memory, kStackSize);
}

bool Fiber::IsDone() const
{
    return m_state->isDone;
}

void Fiber::Resume()
{
    State& state = *m_state;
    if (state.isDone)
        return;
    state.resumedBy = std::exchange(g_stacks.current, this);
    state.resumersEnd = std::exchange(g_stacks.end, state.memory + kGuardSize);
    state.handled.SwapWithCurrent();
    void* fakeStack = nullptr;
    Leaving(&fakeStack, state.memory, kStackSize);
    swapcontext(&state.resumer, &state.own);
    Arrived(fakeStack, nullptr, nullptr);
    state.handled.SwapWithCurrent();
    g_stacks.current = state.resumedBy;
    g_stacks.end = state.resumersEnd;
}

void Fiber::Wait()
{
    if (g_stacks.current == nullptr)
        return;
    State& state = *g_stacks.current->m_state;
    Leaving(&state.fakeStack, state.resumersBottom, state.resumersSize);
    swapcontext(&state.own, &state.resumer);
    Arrived(state.fakeStack, &state.resumersBottom, &state.resumersSize);
}

Fiber* Fiber::Current()
{
    return g_stacks.current;
}

const char* Fiber::StackEnd()
{
    return g_stacks.end;
}

}   // namespace KxPlat
