#include "made_database.h"

#include <filesystem>
#include <memory>
#include <utility>
#include <vector>

#include "platform/foreign/jet_format.h"
#include "platform/foreign_format.h"
#include "platform/sqlite/sqlite_engine.h"

namespace talpena {

namespace fs = std::filesystem;

void PoseBase(const std::string& target,
              const std::function<void(TableEngine&, const std::string&)>& write) {
  fs::path made = target;
  made += ".new";
  fs::remove(made);
  std::vector<std::unique_ptr<ForeignFormat>> formats;
  formats.push_back(CreeFormatJet());
  const auto engine = CreeMoteurSqlite(std::move(formats));
  write(*engine, made.string());
  using fs::perms;
  fs::permissions(made,
                  perms::owner_read | perms::owner_write | perms::group_read | perms::others_read);
  fs::rename(made, target);
}

}  // namespace talpena
