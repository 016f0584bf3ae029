// A whole platform of fakes, for tests that need one and look at parts of it.
#pragma once
#include <memory>
#include <string>

#include "fakes/fake_files.h"
#include "fakes/fake_platform.h"

namespace talpena::test {

/// Stands where no table is wanted.
class NoEngine : public TableEngine {
 public:
  std::unique_ptr<Database> CreateDatabase(const std::string&, const NewDatabase&) override {
    return nullptr;
  }
  std::unique_ptr<Database> CreateForeignDatabase(const std::string&, std::string_view,
                                                  const NewDatabase&) override {
    return nullptr;
  }
  std::unique_ptr<Database> OpenDatabase(const std::string&, bool, std::string_view) override {
    return nullptr;
  }
};

struct FakeMachine : FakeServices {
  NoEngine engine;
  FakeFiles files;
  Platform io{engine, files, settings, dialogues, clock, environment, sound};
};

}  // namespace talpena::test
