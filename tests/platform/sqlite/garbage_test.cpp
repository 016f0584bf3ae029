// Conditions by chance: whatever a user types ends in rows or in a TalpenaError.
#include <random>

#include "platform/sqlite/engine_fixture.h"

namespace talpena::enginetest {
namespace {

class GarbageTest : public EngineTest {
 protected:
  GarbageTest() {
    CreeTalpena();
    AjouteLignes(3);
    database->Execute("UPDATE TALPENA SET SEX = 'm', DATE = '1987/05/12', LATITUDE = N1 / 3");
  }

  std::string Pioche() {
    static constexpr const char* pieces[] = {"N1",       "[DATE]",      "SEX",      "LATITUDE",
                                             "COMMENT",  "TALPENA.N1",  "FOO",      "1",
                                             "2.5",      "-1",          "1e400",    "0",
                                             "'a*'",     "\"x\"",       "''",       "#1987-05-12#",
                                             "Null",     "True",        "False",    "=",
                                             "<>",       "<",           ">=",       "+",
                                             "-",        "*",           "/",        "\\",
                                             "^",        "&",           "Mod",      "AND",
                                             "OR",       "NOT",         "XOR",      "EQV",
                                             "IMP",      "LIKE",        "BETWEEN",  "IN",
                                             "IS",       "IS NOT NULL", "(",        ")",
                                             ",",        "(",           ")",        ";",
                                             "Left(",    "Mid(",        "IIf(",     "InStr(",
                                             "UCase(",   "Val(",        "Choose(",  "Switch(",
                                             "Nz(",      "Round(",      "String(",  "Replace(",
                                             "Chr(",     "Year(",       "CInt(",    "Max(",
                                             "Count(*)", "ORDER BY",    "GROUP BY", "HAVING",
                                             "'",        "\"",          "[",        "]",
                                             "#",        "!",           ".",        "\\",
                                             "$",        "é",           "\xff",     "%",
                                             "_",        "'[a-z]'",     "'[!#]*?'"};
    return pieces[random_() % std::size(pieces)];
  }

  /// Failures come as TalpenaErrors of known numbers; everything else fails the test.
  void Essaie(const std::string& condition) {
    const Failure failure = FailureOf([&] {
      const auto rows = database->OpenRecordset("SELECT * FROM TALPENA WHERE " + condition);
      while (!rows->EOF_()) rows->MoveNext();
    });
    EXPECT_NE(failure.number, 3000) << condition << ": " << failure.description;
    // None is long: a translation that the library cannot read would answer so.
    EXPECT_NE(failure.number, 3360) << condition;
    const auto all = database->OpenRecordset("SELECT * FROM TALPENA ORDER BY LATITUDE");
    const Failure found = FailureOf([&] {
      if (all->FindFirst(condition)) all->FindNext(condition);
    });
    EXPECT_NE(found.number, 3000) << condition << ": " << found.description;
    if (failure.number == 0) ++taken_;
  }

  std::mt19937 random_{42};
  int taken_ = 0;
};

TEST_F(GarbageTest, WordsThrownTogether) {
  for (int i = 0; i < 6000; ++i) {
    std::string condition;
    for (auto n = 1 + random_() % 9; n > 0; --n) condition += Pioche() + " ";
    Essaie(condition);
  }
  EXPECT_GT(taken_, 50);
  EXPECT_EQ(Colonne("TALPENA", "N1"), (Strings{"1", "2", "3"}));
}

TEST_F(GarbageTest, GoodConditionsMutated) {
  const std::string good[] = {
      "PERIOD = 12 OR Latitude = 1.2 OR SEX = 12 OR DATUM = '12' OR DATE like '*12*'",
      "Left([ORIGINAL],3) = 'utm' AND N1 BETWEEN 1 AND 5 OR SEX IN ('m','f')",
      "IIf(IsNull(N1), 0, N1 Mod 2) = 1 AND NOT COMMENT LIKE '[!a-z]#?*'",
      "Year([DATE]) = 1987 AND Mid(SEX & DATUM, 1, 2) <> \"m\" XOR LATITUDE ^ 2 > -1",
  };
  for (int i = 0; i < 6000; ++i) {
    std::string condition = good[random_() % std::size(good)];
    for (auto n = 1 + random_() % 4; n > 0; --n) {
      const std::size_t at = random_() % condition.size();
      switch (random_() % 4) {
        case 0:
          condition[at] = static_cast<char>(random_());
          break;
        case 1:
          condition.erase(at, 1 + random_() % 5);
          break;
        case 2:
          condition.insert(at, Pioche());
          break;
        default:
          condition.insert(at, condition.substr(at / 2, random_() % 12));
      }
      if (condition.empty()) condition = "1";
    }
    Essaie(condition);
  }
  EXPECT_GT(taken_, 200);
}

TEST_F(GarbageTest, StatementsMutated) {
  const std::string good[] = {
      "UPDATE TALPENA SET N2 = N1 + 1, SEX = 'f' WHERE N1 < 3",
      "INSERT INTO TALPENA (N2, SEX) SELECT N1, SEX FROM TALPENA WHERE N1 = 1",
      "DELETE FROM TALPENA WHERE N2 > 0",
      "INSERT INTO TALPENA (N2) VALUES (5)",
  };
  for (int i = 0; i < 3000; ++i) {
    std::string statement = good[random_() % std::size(good)];
    const std::size_t at = random_() % statement.size();
    if (i % 2 == 0) {
      statement.insert(at, " " + Pioche() + " ");
    } else {
      statement.erase(at, 1 + random_() % 8);
    }
    const Failure failure = FailureOf([&] {
      Transaction transaction(*database);
      database->Execute(statement);
    });
    EXPECT_NE(failure.number, 3000) << statement << ": " << failure.description;
    EXPECT_NE(failure.number, 3360) << statement;
  }
  EXPECT_EQ(Colonne("TALPENA", "N1"), (Strings{"1", "2", "3"}));
}

}  // namespace
}  // namespace talpena::enginetest
