#include "platform/foreign/isolated_process.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "common/talpena_error.h"

namespace talpena {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr LimitesProcessus patient{.silence = 10s};

std::string LitTout(ProcessusIsole& process) {
  std::string all;
  for (char c = 0; process.Lit(&c, 1);) all += c;
  return all;
}

TEST(ProcessusIsole, HandsOverWhatTheChildWrites) {
  ProcessusIsole process([](Tuyau& out) { out.Ecrit("abc"), out.Ecrit("def"); }, patient);
  EXPECT_EQ(LitTout(process), "abcdef");
}

TEST(ProcessusIsole, PassesManyBytesWhole) {
  std::string sent;
  for (int i = 0; i < 300000; ++i) sent += std::to_string(i);
  ProcessusIsole process(
      [&](Tuyau& out) {
        for (std::size_t at = 0; at < sent.size(); at += 77777) out.Ecrit(sent.substr(at, 77777));
      },
      patient);
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
        patient);
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
        {.silence = 100ms});
    ASSERT_TRUE(process.Lit(reinterpret_cast<char*>(&child), sizeof child));
    char c = 0;
    EXPECT_FALSE(process.Lit(&c, 1));
  }
  EXPECT_LT(Clock::now() - start, 5s);
  EXPECT_EQ(kill(child, 0), -1) << "the child is still there";
  EXPECT_EQ(errno, ESRCH);
}

TEST(ProcessusIsole, LongWorkThatGivesSignsGoesOn) {
  ProcessusIsole process(
      [](Tuyau& out) {
        out.Ecrit("a");
        for (int i = 0; i < 30; ++i) usleep(100'000), out.DonneSigne('.');
        out.Ecrit("z");
      },
      {.silence = 2s});
  const std::string all = LitTout(process);
  EXPECT_EQ(all.front(), 'a');
  EXPECT_EQ(all.back(), 'z') << all;
  EXPECT_LT(all.size(), 10U) << "a sign each half second: " << all;
}

TEST(ProcessusIsole, WhoWaitsIsCalledAllTheTime) {
  int calls = 0;
  auto longest = Clock::duration::zero();
  auto last = Clock::now();
  ProcessusIsole process([](Tuyau&) { usleep(500'000); }, patient,
                         [&] {
                           ++calls;
                           longest = std::max(longest, Clock::now() - last);
                           last = Clock::now();
                           return true;
                         });
  EXPECT_EQ(LitTout(process), "");
  EXPECT_GE(calls, 5);
  EXPECT_LE(calls, 15);
  EXPECT_LT(longest, 250ms) << "50 ms, with room for a busy machine";
}

TEST(ProcessusIsole, WhoWaitsIsCalledWhileBytesCome) {
  int calls = 0;
  ProcessusIsole process(
      [](Tuyau& out) {
        for (const auto start = Clock::now(); Clock::now() - start < 500ms;) out.Ecrit("more");
      },
      patient, [&] { return ++calls > 0; });
  EXPECT_FALSE(LitTout(process).empty());
  EXPECT_GE(calls, 4);
}

TEST(ProcessusIsole, WhoWaitsCanEndTheChild) {
  const auto start = Clock::now();
  {
    ProcessusIsole process([](Tuyau&) { pause(); }, patient, [] { return false; });
    char c = 0;
    try {
      process.Lit(&c, 1);
      ADD_FAILURE() << "it went on";
    } catch (const TalpenaError& e) {
      EXPECT_EQ(e.number(), ErrorNumber::Cancelled);
    }
  }
  EXPECT_LT(Clock::now() - start, 5s);
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a child was left behind";
}

// A sanitized build needs memory of its own: there the bound is four times as wide.
TEST(ProcessusIsole, GivesTheChildSoMuchMemoryAndNoMore) {
  constexpr std::size_t block = std::size_t{1} << 20;
  const std::vector<char> ofTheParent(300 * block, 'x');
  ProcessusIsole process(
      [](Tuyau& out) {
        while (void* taken = malloc(block)) {
          std::memset(taken, 1, block);
          out.Ecrit(".");
          out.Vide();
        }
      },
      {.silence = 10s, .octetsMemoire = 64 * block});
  const std::size_t taken = LitTout(process).size();
  EXPECT_GE(taken, 56U) << "what the parent holds is not counted";
  EXPECT_LE(taken, 4 * 64U);
}

TEST(ProcessusIsole, EndsAChildThatIsNoLongerRead) {
  const auto start = Clock::now();
  {
    ProcessusIsole process(
        [](Tuyau& out) {
          for (;;) out.Ecrit("endless");
        },
        patient);
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
      patient);
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
      patient);
  EXPECT_EQ(LitTout(process), "refused");
  std::remove(path.c_str());
}

}  // namespace
}  // namespace talpena
