#include "platform/field_names.h"

#include <cstddef>
#include <set>
#include <string>

#include "common/text.h"

namespace talpena {

void RendNomsDistincts(std::vector<FieldDef>& fields) {
  std::set<std::string> taken;
  for (FieldDef& field : fields) {
    const std::string name = field.name;
    for (int n = 2; !taken.insert(Majuscules(field.name)).second; ++n) {
      field.name = name + "_" + std::to_string(n);
    }
  }
}

}  // namespace talpena
