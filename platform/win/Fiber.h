// Work that stops in its middle and goes on later, on a stack of its own. All of it stays on the one thread.
#pragma once
#include <functional>
#include <memory>

namespace KxPlat {

class Fiber {
public:
    // `work` lets no exception out.
    explicit Fiber(std::function<void()> work);
    ~Fiber();   // the work has ended by then, or was never begun
    Fiber(const Fiber&) = delete;

    // Runs the work until it waits or ends.
    void Resume();
    bool IsDone() const;

    // From within the work: back to whoever resumed it.
    static void Wait();
    static Fiber* Current();   // null on the program's own stack

    // Where the stack ends that is used now: nothing may be nested so deep that it comes near.
    static const char* StackEnd();

private:
    struct State;
    std::unique_ptr<State> m_state;
};

}   // namespace KxPlat
