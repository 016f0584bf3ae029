// Clock, environment and sound by Qt.
#pragma once
#include "platform/qt/qt_settings_store.h"
#include "platform/system.h"

namespace talpena {

class QtClock : public Clock {
 public:
  int AnneeCourante() override;
  CalendarDate DateCourante() override;
  DayTime HeureCourante() override;
};

class QtEnvironment : public Environment {
 public:
  std::string Variable(std::string_view name) override;
  std::string DossierTemporaire() override;
  std::string DossierPrive() override;
  std::string LecteurCD() override;
  bool ChangeDossier(const std::string& folder) override;
  std::optional<std::int64_t> MemoireLibre() override;
  std::optional<std::int64_t> PlaceLibre(const std::string& folder) override;
};

class QtSound : public Sound {
 public:
  void Bip() override;
};

}  // namespace talpena
