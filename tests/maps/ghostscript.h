// EPS files through Ghostscript, an interpreter that owes nothing to this program.
#pragma once
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>

#include "fakes/temp_folder.h"

namespace talpena::test {

struct Box {
  double left = 0, bottom = 0, right = 0, top = 0;
};

/// What Ghostscript said of a file.
struct Interpreted {
  int exitCode = -1;
  std::string said;  ///< on both outputs
  int pages = 0;
  Box ink;              ///< of the last page, in points
  std::string strange;  ///< lines that are no boxes
};

inline Interpreted Interprete(const std::string& path) {
  Interpreted result;
  const std::string command =
      "gs -q -dBATCH -dNOPAUSE -dSAFER -dFIXEDMEDIA -dDEVICEWIDTHPOINTS=900 "
      "-dDEVICEHEIGHTPOINTS=900 -sDEVICE=bbox '" +
      path + "' 2>&1";
  std::FILE* pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return result;
  std::array<char, 4096> buffer{};
  while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe)) {
    result.said.append(buffer.data(), count);
  }
  const int status = pclose(pipe);
  result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  std::istringstream lines(result.said);
  for (std::string line; std::getline(lines, line);) {
    if (std::sscanf(line.c_str(), "%%%%HiResBoundingBox: %lf %lf %lf %lf", &result.ink.left,
                    &result.ink.bottom, &result.ink.right, &result.ink.top) == 4) {
      ++result.pages;
    } else if (!line.starts_with("%%BoundingBox:")) {
      result.strange += line + "\n";
    }
  }
  return result;
}

/// The box that a file states.
inline Box BoiteAnnoncee(const std::string& eps) {
  Box box;
  const std::size_t at = eps.find("%%BoundingBox:");
  if (at == std::string::npos || std::sscanf(eps.c_str() + at, "%%%%BoundingBox: %lf %lf %lf %lf",
                                             &box.left, &box.bottom, &box.right, &box.top) != 4) {
    ADD_FAILURE() << "no box is stated";
  }
  return box;
}

/// The file prints: no error, one page, nothing more than a point outside its box.
inline Interpreted ExigeImprimable(const std::string& eps) {
  const TempFolder folder;
  const std::string path = folder / "page.eps";
  EcritFichier(path, eps);
  const Interpreted result = Interprete(path);
  EXPECT_EQ(result.exitCode, 0) << result.said;
  EXPECT_EQ(result.strange, "");
  EXPECT_EQ(result.pages, 1);
  const Box stated = BoiteAnnoncee(eps);
  EXPECT_GE(result.ink.left, stated.left - 1);
  EXPECT_GE(result.ink.bottom, stated.bottom - 1);
  EXPECT_LE(result.ink.right, stated.right + 1);
  EXPECT_LE(result.ink.top, stated.top + 1);
  EXPECT_GT(result.ink.right, result.ink.left);
  return result;
}

}  // namespace talpena::test
