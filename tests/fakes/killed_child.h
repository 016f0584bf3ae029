// A child process that is killed at one of its system calls.
#pragma once
#include <signal.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace talpena::test {

/// How a traced child came to its end.
enum class End { Killed, Completed, NotTraceable, Lost };

/// Runs the body in a child and kills it at its n-th stop; every system call stops twice, before
/// and behind its work. The body runs up to `raise(SIGSTOP)` undisturbed.
inline End TueAuPassage(int n, const std::function<void()>& body) {
  const pid_t child = fork();
  if (child == 0) {
    body();
    _exit(0);
  }
  int status = 0;
  if (waitpid(child, &status, 0) != child) return End::Lost;
  if (WIFEXITED(status)) return WEXITSTATUS(status) == 77 ? End::NotTraceable : End::Lost;
  ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_EXITKILL | PTRACE_O_TRACESYSGOOD);
  for (int stop = 0;;) {
    if (ptrace(PTRACE_SYSCALL, child, nullptr, nullptr) != 0) return End::Lost;
    if (waitpid(child, &status, 0) != child) return End::Lost;
    if (WIFEXITED(status)) return WEXITSTATUS(status) == 0 ? End::Completed : End::Lost;
    if (!WIFSTOPPED(status)) return End::Lost;
    if (WSTOPSIG(status) == (SIGTRAP | 0x80) && ++stop == n) {
      kill(child, SIGKILL);
      waitpid(child, &status, 0);
      return End::Killed;
    }
  }
}

/// Hands the child over to its parent; it goes on when the parent lets it.
inline void ArreteToi() {
  if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) _exit(77);
  raise(SIGSTOP);
}

}  // namespace talpena::test
