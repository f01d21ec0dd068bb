// peak_memory COMMAND...: runs one whole process with its output dropped and prints its wall time
// in seconds, its peak resident memory in KiB and its exit code. Being small, it keeps its own
// memory out of the child's peak, which Linux carries over an exec from the process that forked.
#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: peak_memory COMMAND [ARGUMENTS...]\n");
        return 64;
    }
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) {
        const int devnull = open("/dev/null", O_WRONLY);
        dup2(devnull, 1);
        dup2(devnull, 2);
        execvp(argv[1], argv + 1);
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    if (child < 0 || wait4(child, &status, 0, &usage) != child)
        return 1;
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    std::printf("%.4f %ld %d\n", seconds, usage.ru_maxrss,
                WIFEXITED(status) ? WEXITSTATUS(status) : -1);
    return 0;
}
