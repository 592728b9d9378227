#include "tests/unit/support/child.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace pixora::test {

int InChild(const std::function<int()>& work) {
    const pid_t child = fork();
    if (child == 0) _exit(work());
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status)) return -1;
    return WEXITSTATUS(status);
}

int InChildOnFullDisk(std::uint64_t file_bytes, const std::function<int()>& work) {
    return InChild([&] {
        std::signal(SIGXFSZ, SIG_IGN);  // the write fails instead
        const rlimit limit{file_bytes, file_bytes};
        return setrlimit(RLIMIT_FSIZE, &limit) == 0 ? work() : -1;
    });
}

}  // namespace pixora::test
