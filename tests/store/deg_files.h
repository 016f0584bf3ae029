// Texts of .deg files for tests.
#pragma once
#include <string>

namespace talpena::test {

inline const std::string threePeriods = " 0000 - 1949   1950 - 1989   1990 - 2011\r\n";
inline const std::string statistics =
    "NIND1=000001 OCC1=000001 CAR1=000001 NIND2=000001 OCC2=000001 CAR2=000001 NIND3=000001 "
    "OCC3=000001 CAR3=000001\r\n";

/// The five lines from the title on.
inline std::string FinEnTete(const std::string& title = "Title",
                             const std::string& comment = "Comment") {
  return title + "\r\n" + comment + "\r\n" + threePeriods + statistics + comment + "\r\n";
}

/// Header of form 2. `fields` holds the separator line and the definitions, each with its end.
inline std::string EnTete2(const std::string& datum = "WGS84", const std::string& fields = "",
                           const std::string& title = "Title",
                           const std::string& comment = "Comment") {
  return "<TALPENA 2.0>\r\n" + datum + "\r\n" + fields + "<END>\r\n" + FinEnTete(title, comment);
}

/// A row on the datum WGS84; N1 tells rows apart.
inline std::string Rangee(const std::string& n1 = "1", const std::string& comment = "") {
  return "2K+ 4.50000-  3.25000" + std::string(5 - n1.size(), ' ') + n1 +
         "    72004/07/01FWGS84deg +04.50000 -003.25000" + comment + "\r\n";
}

/// The same row as World::Lignes shows it.
inline std::string RangeeLue(const std::string& n1 = "1", const std::string& comment = "") {
  return "2|4.5|-3.25|" + n1 + "|7|F|WGS84|deg +04.50000 -003.25000|2004/07/01|" + comment;
}

}  // namespace talpena::test
