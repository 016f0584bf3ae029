#include "common/talpena_error.h"

#include <gtest/gtest.h>

#include <vector>

namespace talpena {
namespace {

TEST(TalpenaError, CarriesNumberAndDescription) {
  const TalpenaError error(ErrorNumber::FileNotFound, "Fichier introuvable : \u00E9t\u00E9.deg");
  EXPECT_EQ(error.number(), 53);
  EXPECT_EQ(error.description(), "Fichier introuvable : \u00E9t\u00E9.deg");
  EXPECT_STREQ(error.what(), "Fichier introuvable : \u00E9t\u00E9.deg");
}

TEST(TalpenaError, IsCaughtAsAnyRunTimeFailure) {
  EXPECT_THROW(throw TalpenaError(6, "Overflow"), std::runtime_error);
}

TEST(TalpenaError, KeepsItsPartsWhenCopied) {
  const std::vector<TalpenaError> copies(2, TalpenaError(3163, "The field is too small"));
  for (const TalpenaError& copy : copies) {
    EXPECT_EQ(copy.number(), 3163);
    EXPECT_EQ(copy.description(), "The field is too small");
  }
}

TEST(ErrorNumber, HasTheNumbersThatUsersKnow) {
  EXPECT_EQ(ErrorNumber::Overflow, 6);
  EXPECT_EQ(ErrorNumber::SubscriptOutOfRange, 9);
  EXPECT_EQ(ErrorNumber::DivisionByZero, 11);
  EXPECT_EQ(ErrorNumber::TypeMismatch, 13);
  EXPECT_EQ(ErrorNumber::FileNotFound, 53);
  EXPECT_EQ(ErrorNumber::FileAlreadyOpen, 55);
  EXPECT_EQ(ErrorNumber::InputPastEnd, 62);
  EXPECT_EQ(ErrorNumber::InvalidNull, 94);
  EXPECT_EQ(ErrorNumber::ResourceNotFound, 326);
  EXPECT_EQ(ErrorNumber::DatabaseNotFound, 3024);
  EXPECT_EQ(ErrorNumber::SystemDatabase, 3028);
  EXPECT_EQ(ErrorNumber::Cancelled, 32755);
}

}  // namespace
}  // namespace talpena
