#include "common/subscription.h"

#include <gtest/gtest.h>

#include <string>

namespace talpena {
namespace {

TEST(Subscription, IsToldForAsLongAsItIsKept) {
  Observers<int> observers;
  int told = 0;
  {
    const Subscription kept = observers.Ajoute([&](int n) { told += n; });
    observers.Signale(1);
  }
  observers.Signale(10);
  EXPECT_EQ(told, 1);
}

TEST(Subscription, ThoseWhoObserveAreToldInTheOrderInWhichTheyCame) {
  Observers<> observers;
  std::string order;
  const Subscription a = observers.Ajoute([&] { order += 'a'; });
  const Subscription b = observers.Ajoute([&] { order += 'b'; });
  observers.Signale();
  EXPECT_EQ(order, "ab");
}

TEST(Subscription, MayOutliveWhatIsObserved) {
  Subscription kept;
  {
    Observers<> observers;
    kept = observers.Ajoute([] {});
  }
  kept = {};
}

TEST(Subscription, MayEndWhileItIsTold) {
  Observers<> observers;
  int told = 0;
  Subscription second;
  const Subscription first = observers.Ajoute([&] {
    ++told;
    second = {};
  });
  second = observers.Ajoute([&] { told += 100; });
  observers.Signale();
  observers.Signale();
  EXPECT_EQ(told, 2);
}

TEST(Subscription, OneThatComesMeanwhileIsToldTheNextTime) {
  Observers<> observers;
  int told = 0;
  Subscription late;
  const Subscription first = observers.Ajoute([&] {
    if (told++ == 0) late = observers.Ajoute([&] { told += 100; });
  });
  observers.Signale();
  EXPECT_EQ(told, 1);
  observers.Signale();
  EXPECT_EQ(told, 102);
}

}  // namespace
}  // namespace talpena
