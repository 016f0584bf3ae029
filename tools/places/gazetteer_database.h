// Writes tlpgazet.mdb, the gazetteer that ships.
#pragma once
#include <string>
#include <vector>

#include "places/country_list.h"
#include "places/place_list.h"
#include "platform/table_engine.h"

namespace talpena {

/// The table of places, under the name that the settings have by default.
inline constexpr const char* ShippedGazetteerTable = "TLPGazet_Decoding";

/// Makes an Access file with the table of places: Sort_Name, Full_Name, Latitude and Longitude
/// (decimal degrees on WGS84), FIPS_QRN, Feature_Desig_Code, Country_Name, Province_Name. What is
/// not known of a place is Null. Rows are in the order of Sort_Name, of one name the capital of the
/// largest division first. The path must be free. Raises what the table engine raises, and
/// std::runtime_error for an unknown country.
void EcritGazetteer(TableEngine& engine, std::vector<Place> places, const CountryList& countries,
                    const std::string& path);

}  // namespace talpena
