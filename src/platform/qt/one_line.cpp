#include "platform/qt/one_line.h"

#include <QLineEdit>
#include <QValidator>

#include "common/line_breaks.h"

namespace talpena {
namespace {

class OneLine final : public QValidator {
 public:
  using QValidator::QValidator;
  State validate(QString& text, int& cursor) const override {
    const auto behind = text.size() - cursor;
    const std::string given = text.toStdString();
    if (const std::string line = SurUneLigne(given); line != given) {
      text = QString::fromStdString(line);
      cursor = static_cast<int>(qMax(qsizetype{0}, text.size() - behind));
    }
    return Acceptable;
  }
};

}  // namespace

void GardeUneLigne(QLineEdit& box) { box.setValidator(new OneLine(&box)); }

}  // namespace talpena
