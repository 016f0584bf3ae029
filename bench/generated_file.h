// Distribution files of any length for measuring, their records made up by counting.
#pragma once
#include <array>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <string>

#include "common/text.h"
#include "store/free_fields.h"

namespace talpena::bench {

/// Writes a form 2 file with the eleven built-in free fields and rows of about 115 bytes; one in
/// ten has a letter with an accent.
inline void EcritFichierGenere(const std::string& path, int rows) {
  std::ofstream out(path, std::ios::binary);
  out << "<TALPENA 2.0>\r\nWGS84\r\n/";
  for (const auto line : ChampsLibresInternes()) out << "\r\n" << *Utf8VersCp1252(line);
  out << "\r\n<END>\r\nMade up\r\nBy counting\r\n 0000 - 1949   1950 - 1989   1990 - 2011\r\n"
         "NIND1=000001 OCC1=000001 CAR1=000001 NIND2=000001 OCC2=000001 CAR2=000001 "
         "NIND3=000001 OCC3=000001 CAR3=000001\r\nBy counting\r\n";
  std::uint32_t seed = 1;
  const auto next = [&seed](std::uint32_t below) {
    seed = seed * 1664525 + 1013904223;
    return static_cast<int>((seed >> 8) % below);
  };
  std::array<char, 200> line{};
  for (int i = 0; i < rows; ++i) {
    const int latitude = next(9000000);
    const int longitude = next(18000000);
    const char south = next(2) == 0 ? '+' : '-';
    const char west = next(2) == 0 ? ' ' : '-';
    const int length = std::snprintf(
        line.data(), line.size(),
        "%dK%c%2d.%05d%c%3d.%05d%5d%5d%04d/%02d/%02d%cWGS84deg %c%02d.%05d %c%03d.%05d"
        "Place %d//////%s/////number %d\r\n",
        1 + next(3), south, latitude / 100000, latitude % 100000, west, longitude / 100000,
        longitude % 100000, next(100), next(3000), 1900 + next(111), 1 + next(12), 1 + next(28),
        "FM "[next(3)], south, latitude / 100000, latitude % 100000, west == ' ' ? '+' : '-',
        longitude / 100000, longitude % 100000, next(1000), next(10) == 0 ? "\xE9t\xE9" : "pre", i);
    out.write(line.data(), length);
  }
  if (!out) throw std::runtime_error("cannot write " + path);
}

}  // namespace talpena::bench
