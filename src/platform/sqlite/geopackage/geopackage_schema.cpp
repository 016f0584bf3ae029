#include "platform/sqlite/geopackage/geopackage_schema.h"

#include <algorithm>

#include "common/text.h"
#include "platform/geopackage_point.h"
#include "platform/sqlite/errors.h"

namespace talpena::sqlite {
namespace {

constexpr std::string_view wgs84 =
    R"(GEOGCS["WGS 84",DATUM["WGS_1984",SPHEROID["WGS 84",6378137,298.257223563,)"
    R"(AUTHORITY["EPSG","7030"]],AUTHORITY["EPSG","6326"]],PRIMEM["Greenwich",0,)"
    R"(AUTHORITY["EPSG","8901"]],UNIT["degree",0.0174532925199433,)"
    R"(AUTHORITY["EPSG","9122"]],AUTHORITY["EPSG","4326"]])";

/// Annex C of the standard.
constexpr std::string_view packageTables[] = {
    "CREATE TABLE gpkg_spatial_ref_sys (srs_name TEXT NOT NULL, "
    "srs_id INTEGER NOT NULL PRIMARY KEY, organization TEXT NOT NULL, "
    "organization_coordsys_id INTEGER NOT NULL, definition TEXT NOT NULL, description TEXT)",
    "CREATE TABLE gpkg_contents (table_name TEXT NOT NULL PRIMARY KEY, data_type TEXT NOT NULL, "
    "identifier TEXT UNIQUE, description TEXT DEFAULT '', last_change DATETIME NOT NULL DEFAULT "
    "(strftime('%Y-%m-%dT%H:%M:%fZ','now')), min_x DOUBLE, min_y DOUBLE, max_x DOUBLE, "
    "max_y DOUBLE, srs_id INTEGER, CONSTRAINT fk_gc_r_srs_id FOREIGN KEY (srs_id) REFERENCES "
    "gpkg_spatial_ref_sys(srs_id))",
    "CREATE TABLE gpkg_geometry_columns (table_name TEXT NOT NULL, column_name TEXT NOT NULL, "
    "geometry_type_name TEXT NOT NULL, srs_id INTEGER NOT NULL, z TINYINT NOT NULL, "
    "m TINYINT NOT NULL, CONSTRAINT pk_geom_cols PRIMARY KEY (table_name, column_name), "
    "CONSTRAINT uk_gc_table_name UNIQUE (table_name), CONSTRAINT fk_gc_tn FOREIGN KEY "
    "(table_name) REFERENCES gpkg_contents(table_name), CONSTRAINT fk_gc_srs FOREIGN KEY (srs_id) "
    "REFERENCES gpkg_spatial_ref_sys (srs_id))",
    "CREATE TABLE gpkg_extensions (table_name TEXT, column_name TEXT, extension_name TEXT NOT "
    "NULL, definition TEXT NOT NULL, scope TEXT NOT NULL, CONSTRAINT ge_tce UNIQUE (table_name, "
    "column_name, extension_name))"};

/// Annex F.3: what keeps the index right for those who change rows. %t stands for the table, %c for
/// its points, %r for the index.
constexpr std::string_view indexTriggers[] = {
    ("CREATE TRIGGER \"%r_insert\" AFTER INSERT ON \"%t\" WHEN (new.\"%c\" NOT NULL AND NOT "
     "ST_IsEmpty(NEW.\"%c\")) BEGIN INSERT OR REPLACE INTO \"%r\" VALUES (NEW.\"fid\", "
     "ST_MinX(NEW.\"%c\"), ST_MaxX(NEW.\"%c\"), ST_MinY(NEW.\"%c\"), ST_MaxY(NEW.\"%c\")); END"),
    ("CREATE TRIGGER \"%r_update1\" AFTER UPDATE OF \"%c\" ON \"%t\" WHEN OLD.\"fid\" = "
     "NEW.\"fid\" AND (NEW.\"%c\" NOTNULL AND NOT ST_IsEmpty(NEW.\"%c\")) BEGIN INSERT OR REPLACE "
     "INTO \"%r\" VALUES (NEW.\"fid\", ST_MinX(NEW.\"%c\"), ST_MaxX(NEW.\"%c\"), "
     "ST_MinY(NEW.\"%c\"), ST_MaxY(NEW.\"%c\")); END"),
    ("CREATE TRIGGER \"%r_update2\" AFTER UPDATE OF \"%c\" ON \"%t\" WHEN OLD.\"fid\" = "
     "NEW.\"fid\" AND (NEW.\"%c\" ISNULL OR ST_IsEmpty(NEW.\"%c\")) BEGIN DELETE FROM \"%r\" WHERE "
     "id = OLD.\"fid\"; END"),
    ("CREATE TRIGGER \"%r_update3\" AFTER UPDATE ON \"%t\" WHEN OLD.\"fid\" != NEW.\"fid\" AND "
     "(NEW.\"%c\" NOTNULL AND NOT ST_IsEmpty(NEW.\"%c\")) BEGIN DELETE FROM \"%r\" WHERE id = "
     "OLD.\"fid\"; INSERT OR REPLACE INTO \"%r\" VALUES (NEW.\"fid\", ST_MinX(NEW.\"%c\"), "
     "ST_MaxX(NEW.\"%c\"), ST_MinY(NEW.\"%c\"), ST_MaxY(NEW.\"%c\")); END"),
    ("CREATE TRIGGER \"%r_update4\" AFTER UPDATE ON \"%t\" WHEN OLD.\"fid\" != NEW.\"fid\" AND "
     "(NEW.\"%c\" ISNULL OR ST_IsEmpty(NEW.\"%c\")) BEGIN DELETE FROM \"%r\" WHERE id IN "
     "(OLD.\"fid\", NEW.\"fid\"); END"),
    ("CREATE TRIGGER \"%r_delete\" AFTER DELETE ON \"%t\" WHEN old.\"%c\" NOT NULL BEGIN DELETE "
     "FROM \"%r\" WHERE id = OLD.\"fid\"; END")};

std::string EnTexteSql(std::string_view text) { return "'" + Remplace(text, "'", "''") + "'"; }

/// Without the quotes, which stand in the patterns.
std::string Double(std::string_view name) { return Remplace(name, "\"", "\"\""); }

std::string TypeSql(const FieldDef& field) {
  switch (field.type) {
    case FieldType::Boolean:
      return "BOOLEAN";
    case FieldType::Byte:
    case FieldType::Integer:
      return "SMALLINT";
    case FieldType::Long:
      return "MEDIUMINT";
    case FieldType::Single:  // as its decimals, which 32 bits do not have
    case FieldType::Double:
    case FieldType::Currency:
      return "DOUBLE";
    case FieldType::Text:
      return "TEXT(" + std::to_string(field.size) + ")";
    case FieldType::Memo:
      return "TEXT";
    case FieldType::Binary:
      return field.name == colonneGeometrie ? "POINT" : "BLOB";
    case FieldType::Date:
      break;
  }
  throw NonPrevu("a date in a table of a GeoPackage");
}

std::string SqlDesChamps(const TableDef& table) {
  std::string sql = "CREATE TABLE " + Entoure(table.name) +
                    " (\"fid\" INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL";
  for (const FieldDef& field : table.fields)
    sql += ", " + Entoure(field.name) + " " + TypeSql(field);
  return sql + ")";
}

std::vector<std::string> SqlDesPoints(const TableDef& table) {
  const std::string name = EnTexteSql(table.name);
  const std::string column = EnTexteSql(colonneGeometrie);
  const std::string index = NomIndexSpatial(table.name);
  std::vector<std::string> statements{
      "INSERT INTO gpkg_geometry_columns VALUES (" + name + ", " + column +
          ", 'POINT', 4326, 0, 0)",
      "CREATE VIRTUAL TABLE " + Entoure(index) + " USING rtree(id, minx, maxx, miny, maxy)",
      "INSERT INTO gpkg_extensions VALUES (" + name + ", " + column +
          ", 'gpkg_rtree_index', 'http://www.geopackage.org/spec130/#extension_rtree', "
          "'write-only')"};
  for (const std::string_view pattern : indexTriggers) {
    std::string sql = Remplace(pattern, "%r", Double(index));
    sql = Remplace(sql, "%c", colonneGeometrie);
    statements.push_back(Remplace(sql, "%t", Double(table.name)));
  }
  return statements;
}

}  // namespace

std::string Entoure(std::string_view name) { return "\"" + Double(name) + "\""; }

std::vector<std::string> SqlDuPaquet() {
  std::vector<std::string> statements{"PRAGMA application_id = 0x47504B47",
                                      "PRAGMA user_version = 10300"};
  statements.insert(statements.end(), std::begin(packageTables), std::end(packageTables));
  statements.push_back(
      "INSERT INTO gpkg_spatial_ref_sys VALUES ('Undefined Cartesian SRS', -1, 'NONE', -1, "
      "'undefined', 'undefined Cartesian coordinate reference system'), ('Undefined geographic "
      "SRS', 0, 'NONE', 0, 'undefined', 'undefined geographic coordinate reference system'), "
      "('WGS 84 geodetic', 4326, 'EPSG', 4326, " +
      EnTexteSql(wgs84) + ", 'longitude/latitude coordinates in decimal degrees')");
  return statements;
}

std::vector<std::string> SqlDeTable(const TableDef& table) {
  const bool points = AGeometrie(table);
  const std::string name = EnTexteSql(table.name);
  std::vector<std::string> statements{
      SqlDesChamps(table),
      "INSERT INTO gpkg_contents (table_name, data_type, identifier, srs_id) VALUES (" + name +
          (points ? ", 'features', " : ", 'attributes', ") + name +
          (points ? ", 4326)" : ", NULL)")};
  if (points) {
    const std::vector<std::string> more = SqlDesPoints(table);
    statements.insert(statements.end(), more.begin(), more.end());
  }
  return statements;
}

bool AGeometrie(const TableDef& table) {
  return std::any_of(table.fields.begin(), table.fields.end(), [](const FieldDef& field) {
    return field.type == FieldType::Binary && field.name == colonneGeometrie;
  });
}

std::string NomIndexSpatial(std::string_view table) {
  return "rtree_" + std::string(table) + "_" + std::string(colonneGeometrie);
}

}  // namespace talpena::sqlite
