#include "platform/foreign/isolated_process.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <string>

namespace talpena {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

std::string LitTout(ProcessusIsole& process) {
  std::string all;
  for (char c = 0; process.Lit(&c, 1);) all += c;
  return all;
}

TEST(ProcessusIsole, HandsOverWhatTheChildWrites) {
  ProcessusIsole process([](Tuyau& out) { out.Ecrit("abc"), out.Ecrit("def"); }, 10s);
  EXPECT_EQ(LitTout(process), "abcdef");
}

TEST(ProcessusIsole, PassesManyBytesWhole) {
  std::string sent;
  for (int i = 0; i < 300000; ++i) sent += std::to_string(i);
  ProcessusIsole process(
      [&](Tuyau& out) {
        for (std::size_t at = 0; at < sent.size(); at += 77777) out.Ecrit(sent.substr(at, 77777));
      },
      10s);
  std::string got(sent.size(), '\0');
  ASSERT_TRUE(process.Lit(got.data(), got.size()));
  EXPECT_EQ(got, sent);
  char c = 0;
  EXPECT_FALSE(process.Lit(&c, 1));
}

struct Fault {
  const char* name;
  ProcessusIsole::Travail work;
};

TEST(ProcessusIsole, TurnsEveryFaultIntoAnEnd) {
  const Fault faults[] = {
      {"a wild pointer", [](Tuyau&) { raise(SIGSEGV); }},
      {"an abort", [](Tuyau&) { abort(); }},
      {"an exception", [](Tuyau&) { throw std::runtime_error("x"); }},
      {"its own end", [](Tuyau&) { exit(0); }},
      {"a killed child", [](Tuyau&) { raise(SIGKILL); }},
  };
  for (const Fault& fault : faults) {
    SCOPED_TRACE(fault.name);
    ProcessusIsole process(
        [&](Tuyau& out) {
          out.Ecrit("before");
          out.Vide();
          fault.work(out);
          out.Ecrit("never");
          _exit(0);
        },
        10s);
    EXPECT_EQ(LitTout(process), "before");
  }
}

TEST(ProcessusIsole, EndsASilentChild) {
  const auto start = Clock::now();
  pid_t child = 0;
  {
    ProcessusIsole process(
        [](Tuyau& out) {
          const pid_t self = getpid();
          out.Ecrit({reinterpret_cast<const char*>(&self), sizeof self});
          out.Vide();
          for (;;) pause();
        },
        100ms);
    ASSERT_TRUE(process.Lit(reinterpret_cast<char*>(&child), sizeof child));
    char c = 0;
    EXPECT_FALSE(process.Lit(&c, 1));
  }
  EXPECT_LT(Clock::now() - start, 5s);
  EXPECT_EQ(kill(child, 0), -1) << "the child is still there";
  EXPECT_EQ(errno, ESRCH);
}

TEST(ProcessusIsole, EndsAChildThatIsNoLongerRead) {
  const auto start = Clock::now();
  {
    ProcessusIsole process(
        [](Tuyau& out) {
          for (;;) out.Ecrit("endless");
        },
        10s);
    char c = 0;
    EXPECT_TRUE(process.Lit(&c, 1));
  }
  EXPECT_LT(Clock::now() - start, 5s);
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a child was left behind";
}

TEST(ProcessusIsole, PrintsNothingAndTakesNoOptions) {
  setenv("TALPENA_PROBE", "1", 1);
  testing::internal::CaptureStderr();
  testing::internal::CaptureStdout();
  ProcessusIsole process(
      [](Tuyau& out) {
        std::fputs("noise", stderr);
        std::fputs("noise", stdout);
        std::fflush(nullptr);
        out.Ecrit(getenv("TALPENA_PROBE") == nullptr ? "none" : "some");
      },
      10s);
  EXPECT_EQ(LitTout(process), "none");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  unsetenv("TALPENA_PROBE");
}

TEST(ProcessusIsole, WritesNoFile) {
  const std::string path = testing::TempDir() + "isolated_process_probe";
  ProcessusIsole process(
      [&](Tuyau& out) {
        signal(SIGXFSZ, SIG_IGN);
        std::ofstream file(path);
        file << "x" << std::flush;
        out.Ecrit(file.good() ? "written" : "refused");
      },
      10s);
  EXPECT_EQ(LitTout(process), "refused");
  std::remove(path.c_str());
}

}  // namespace
}  // namespace talpena
