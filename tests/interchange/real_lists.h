// Real records from the tables beside the project, as somebody would have them in a list.
#pragma once
#include <string>
#include <vector>

#include "coords/proj_oracle.h"

namespace talpena::test {

/// An observation of such a table.
struct RealRecord {
  Point place;          ///< on WGS84, as the table has it: a longitude may go beyond 180
  std::string date;     ///< yyyy/mm/dd, "" where the table has none
  std::string comment;  ///< one line without double quotes
};

/// A table and its columns.
struct RealTable {
  const char* name;
  const char* file;  ///< below the folder of the real data
  const char* latitude;
  const char* longitude;
  const char* date;
  const char* comment;
  const char* country = "";  ///< only rows of this code in the column country_code
};

/// Places outside of a box are left out.
struct RealArea {
  double south = -90, north = 90, west = -360, east = 360;  ///< decimal degrees
};

std::string CheminReel(const RealTable& table);
/// The records that have a place, in the order of the table. Metres of Lambert belge, where the
/// columns are called "x" and "y", come as latitude and longitude by PROJ.
std::vector<RealRecord> LitTableReelle(const RealTable& table, const RealArea& area = {});

}  // namespace talpena::test
