// Times and their reports, the same for every benchmark.
#pragma once
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <functional>
#include <string>

namespace talpena::bench {

/// Time of the processor, which a busy machine does not lengthen much.
inline double Millisecondes(const std::function<void()>& body) {
  const std::clock_t start = std::clock();
  body();
  return 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

/// The best of three runs.
inline double Meilleur(const std::function<void()>& body) {
  double best = Millisecondes(body);
  for (int i = 0; i < 2; ++i) best = std::min(best, Millisecondes(body));
  return best;
}

inline void Rapporte(const char* task, double ours, double floor, double bound) {
  std::printf("%-34s %8.0f ms  floor %8.0f ms  ratio %5.2f", task, ours, floor, ours / floor);
  if (bound > 0)
    std::printf("  (at most %.2f)%s", bound, ours / floor <= bound ? "" : "  TOO SLOW");
  std::printf("\n");
  std::fflush(stdout);
}

inline long MemoireMaximale() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmHWM:")) return std::atol(line.c_str() + 6) / 1024;
  }
  return 0;
}

}  // namespace talpena::bench
