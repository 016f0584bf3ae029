// The distribution that ships with the program stands as the program itself writes it.
#include <charconv>

#include "store/deg_reader.h"
#include "store/save_fixture.h"

namespace talpena::test {
namespace {

class Sample : public testing::Test, protected Monde {
 protected:
  const std::string sample = std::string(TALPENA_SOURCE_DIR) + "/data/samples/talpa_sample.deg";
};

TEST_F(Sample, AFirstSaveChangesNothing) {
  const std::string bytes = LitFichier(sample);
  LitDeg(context, sample, MergeMode::Replace);
  ASSERT_TRUE(dialogues.boxes.empty()) << dialogues.boxes[0].text;
  // The last period ends in the year of the save: here in the year that the sample was written.
  const std::string periods = Lignes(bytes).at(17);
  const char* end = periods.data() + periods.size();
  ASSERT_EQ(std::from_chars(end - 4, end, clock.annee).ec, std::errc()) << periods;

  EcritDeg(context, folder / "saved.deg", WriteMode::Rows);
  EXPECT_TRUE(dialogues.boxes.empty()) << dialogues.boxes[0].text;
  EXPECT_EQ(LitFichier(folder / "saved.deg"), bytes);
}

}  // namespace
}  // namespace talpena::test
