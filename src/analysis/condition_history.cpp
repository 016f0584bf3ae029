#include "analysis/condition_history.h"

#include <algorithm>

#include "common/text.h"

namespace talpena {
namespace {

constexpr std::string_view application = "TALPENA", section = "Selection";
constexpr std::size_t conditionsKept = 20;

std::string Cle(std::size_t index) { return "Condition" + std::to_string(index + 1); }

}  // namespace

std::vector<std::string> ConditionsRetenues(SettingsStore& settings) {
  std::vector<std::string> conditions;
  for (std::size_t i = 0; i < conditionsKept; ++i) {
    std::string condition = settings.Lit(application, section, Cle(i), "");
    if (!condition.empty()) conditions.push_back(std::move(condition));
  }
  return conditions;
}

void RetientCondition(SettingsStore& settings, std::string_view condition) {
  const std::string typed(Rogne(condition));
  if (typed.empty()) return;
  std::vector<std::string> conditions = ConditionsRetenues(settings);
  if (!conditions.empty() && conditions.front() == typed) return;
  std::erase(conditions, typed);
  conditions.insert(conditions.begin(), typed);
  conditions.resize(std::min(conditions.size(), conditionsKept));
  std::vector<SettingEntry> entries;
  for (std::size_t i = 0; i < conditions.size(); ++i) {
    entries.push_back({std::string(section), Cle(i), conditions[i]});
  }
  settings.EcritTout(application, entries);
}

}  // namespace talpena
