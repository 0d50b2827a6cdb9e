// Counts, by tracing a second process, the system calls that `setValue` makes while the main
// thread is awake: with room in the queue, and merging.
#include "bench/model/bench_support.hpp"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>

namespace {

constexpr int rounds = 50;
constexpr long burst = 1024;
constexpr long callsPerRound = 10 * burst; // beyond the 8,192 places of the queue

// A call that nothing else here makes tells the tracer where the measured part begins and ends.
void mark() {
    syscall(SYS_getppid);
}

// The traced process: one thread writes, the main one drains after each round.
[[noreturn]] void runTraced() {
    ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
    raise(SIGSTOP);
    core::MainQueue queue;
    bench::MainLoop loop(queue);
    bench::Parameters parameters(burst, queue);
    std::atomic<int> written{0};
    std::atomic<int> drained{0};
    std::thread drainer([&] {
        for (int round = 1; round <= rounds; ++round) {
            while (written < round) {
                std::this_thread::yield();
            }
            while (queue.drain()) {
            }
            drained = round;
        }
    });
    long n = 0;
    for (int round = 1; round <= rounds; ++round) {
        queue.post([] {}); // wakes
        mark();
        for (long i = 0; i < callsPerRound; ++i, ++n) {
            parameters.all[static_cast<std::size_t>(i % burst)]->setValue(
                bench::valueAt(n), fernhorn::ParameterEditor::parameterObserver,
                fernhorn::ParameterEditorState::change);
        }
        mark();
        written = round;
        while (drained < round) {
            std::this_thread::yield();
        }
    }
    drainer.join();
    // Dozens of calls would show that the tracer saw what it should: one wake-up each round.
    _exit(loop.wakes() == rounds ? EXIT_SUCCESS : EXIT_FAILURE);
}

} // namespace

int main() {
    const pid_t child = fork();
    if (child == 0) {
        runTraced();
    }
    int status = 0;
    waitpid(child, &status, 0);
    ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    bool isMeasured = false;
    bool isEntry = true;
    long marks = 0;
    long inside = 0;
    long outside = 0;
    for (;;) {
        ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
        if (waitpid(child, &status, 0) < 0 || WIFEXITED(status) || WIFSIGNALED(status)) {
            break;
        }
        if (!WIFSTOPPED(status) || WSTOPSIG(status) != (SIGTRAP | 0x80)) {
            continue;
        }
        if (isEntry) {
            __ptrace_syscall_info info{};
            ptrace(PTRACE_GET_SYSCALL_INFO, child, sizeof info, &info);
            if (info.entry.nr == SYS_getppid) {
                ++marks;
                isMeasured = !isMeasured;
            } else {
                ++(isMeasured ? inside : outside);
            }
        }
        isEntry = !isEntry;
    }
    bench::print("set_value_syscalls",
                 static_cast<double>(inside) / static_cast<double>(rounds * callsPerRound),
                 "per_call");
    const bool isTraced = WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS &&
                          marks == 2 * rounds && outside > rounds;
    if (!isTraced || inside != 0) {
        std::fprintf(stderr, "FAILED: %ld calls inside, %ld outside, %ld marks, status %d\n",
                     inside, outside, marks, status);
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
