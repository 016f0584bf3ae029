// Clock, environment and sound of the machine.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace talpena {

struct CalendarDate {
  int year = 0;
  int month = 0;
  int day = 0;
};

struct DayTime {
  int hour = 0;
  int minute = 0;
  int second = 0;
};

class Clock {
 public:
  virtual ~Clock() = default;
  virtual int AnneeCourante() = 0;          ///< current year of the local calendar
  virtual CalendarDate DateCourante() = 0;  ///< today in it
  virtual DayTime HeureCourante() = 0;      ///< local time
};

class Environment {
 public:
  virtual ~Environment() = default;
  virtual std::string Variable(std::string_view name) = 0;  ///< "" when not set
  /// Folder for working files: TEMP, else TMPDIR, else (not on Windows) a folder of the user's
  /// cache that nobody else can enter, made when it is absent.
  virtual std::string DossierTemporaire() = 0;
  /// That folder of the user's cache. PathFileAccess (75) when it cannot be made.
  virtual std::string DossierPrive() = 0;
  /// Root of the first CD drive, "D:\" when there is none.
  virtual std::string LecteurCD() = 0;
  virtual bool ChangeDossier(const std::string& folder) = 0;  ///< false when it cannot
  // Bytes that are free; empty when the machine does not tell.
  virtual std::optional<std::int64_t> MemoireLibre() { return std::nullopt; }
  virtual std::optional<std::int64_t> PlaceLibre([[maybe_unused]] const std::string& folder) {
    return std::nullopt;
  }
};

class Sound {
 public:
  virtual ~Sound() = default;
  virtual void Bip() = 0;
};

}  // namespace talpena
