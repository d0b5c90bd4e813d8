#include "cardwright/detail/text_storage.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace cardwright::detail {
namespace {

const Text kLong(1000, u'x');

TEST(TextStorage, isAbsentUntilSomethingIsAssigned) {
  const TextStorage absent;
  EXPECT_FALSE(absent.isPresent());
  EXPECT_EQ(absent.view(), u"");
  EXPECT_FALSE(absent.optionalView());
  EXPECT_FALSE(TextStorage(std::optional<TextView>()).isPresent());
}

TEST(TextStorage, tellsEmptyFromAbsent) {
  for (const TextStorage& empty :
       {TextStorage(TextView()), TextStorage(TextView(u"")), TextStorage::borrow(TextView()),
        TextStorage(std::optional<TextView>(TextView()))}) {
    EXPECT_TRUE(empty.isPresent());
    EXPECT_EQ(empty.view(), u"");
    EXPECT_EQ(empty.optionalView(), TextView());
    EXPECT_TRUE(TextStorage(empty).isPresent());
  }
}

TEST(TextStorage, copiesWhatIsLentToIt) {
  Text text = u"abc";
  TextStorage lent = TextStorage::lend(text);
  EXPECT_EQ(lent.view().data(), text.data());
  const TextStorage copy = lent;
  TextStorage assigned;
  assigned = lent;
  const TextStorage moved = std::move(lent);
  EXPECT_EQ(moved.view().data(), text.data());
  text = u"xyz";
  EXPECT_EQ(copy.view(), u"abc");
  EXPECT_EQ(assigned.view(), u"abc");
  EXPECT_EQ(moved.view(), u"xyz");
  EXPECT_TRUE(TextStorage::lend(TextView()).isPresent());
  EXPECT_TRUE(TextStorage(TextStorage::lend(TextView())).isPresent());
}

TEST(TextStorage, keepsACopy) {
  Text text = u"abc";
  const TextStorage copy{TextView(text)};
  text = u"xyz";
  EXPECT_EQ(copy.view(), u"abc");
  EXPECT_EQ(copy.optionalView(), TextView(u"abc"));
}

TEST(TextStorage, keepsAViewWhereItIsToldTo) {
  const TextStorage borrowed = TextStorage::borrow(kLong);
  EXPECT_EQ(borrowed.view().data(), kLong.data());
  const TextStorage copy = borrowed;
  EXPECT_EQ(copy.view().data(), kLong.data());
  TextStorage assigned;
  assigned = borrowed;
  EXPECT_EQ(assigned.view().data(), kLong.data());
  assigned.assign(borrowed.view());
  EXPECT_NE(assigned.view().data(), kLong.data());
  EXPECT_EQ(assigned.view(), kLong);
}

TEST(TextStorage, copiesWhatItOwns) {
  const TextStorage first{TextView(kLong)};
  const TextStorage second = first;
  EXPECT_EQ(second.view(), kLong);
  EXPECT_NE(second.view().data(), first.view().data());
}

TEST(TextStorage, mayBeAssignedAPartOfItself) {
  TextStorage storage{TextView(u"0123456789")};
  storage.assign(storage.view().substr(3, 4));
  EXPECT_EQ(storage.view(), u"3456");
  storage.assign(storage.optionalView());
  EXPECT_EQ(storage.view(), u"3456");
  storage.assign(storage.view().substr(4));
  EXPECT_TRUE(storage.isPresent());
  EXPECT_EQ(storage.view(), u"");
}

TEST(TextStorage, mayBeAssignedItself) {
  for (TextStorage storage : {TextStorage(), TextStorage(TextView(u"ab")),
                              TextStorage::borrow(kLong), TextStorage(TextView())}) {
    const bool wasPresent = storage.isPresent();
    const Text before(storage.view());
    TextStorage& same = storage;
    storage = same;
    EXPECT_EQ(storage.isPresent(), wasPresent);
    EXPECT_EQ(storage.view(), before);
    storage = std::move(same);
    EXPECT_EQ(storage.isPresent(), wasPresent);
    EXPECT_EQ(storage.view(), before);
  }
}

TEST(TextStorage, handsItsTextOverWhenMoved) {
  TextStorage from{TextView(kLong)};
  const char16_t* data = from.view().data();
  TextStorage to(std::move(from));
  EXPECT_EQ(to.view().data(), data) << "nothing is copied";
  EXPECT_FALSE(from.isPresent()); // NOLINT(bugprone-use-after-move): what is left is defined
  TextStorage target{TextView(u"let go")};
  target = std::move(to);
  EXPECT_EQ(target.view().data(), data);
  EXPECT_FALSE(to.isPresent()); // NOLINT(bugprone-use-after-move)
  from.assign(TextView(u"used again"));
  EXPECT_EQ(from.view(), u"used again");
}

TEST(TextStorage, changesBetweenAllItsKinds) {
  const auto make = [](int kind) {
    switch (kind) {
    case 0:
      return TextStorage();
    case 1:
      return TextStorage(TextView());
    case 2:
      return TextStorage(TextView(u"own"));
    default:
      return TextStorage::borrow(kLong);
    }
  };
  for (int from = 0; from < 4; ++from) {
    for (int to = 0; to < 4; ++to) {
      const TextStorage wanted = make(to);
      TextStorage copied = make(from);
      copied = wanted;
      TextStorage moved = make(from);
      moved = make(to);
      TextStorage assigned = make(from);
      assigned.assign(wanted.optionalView());
      for (const TextStorage* storage : {&copied, &moved, &assigned}) {
        EXPECT_EQ(storage->isPresent(), wanted.isPresent()) << from << to;
        EXPECT_EQ(storage->view(), wanted.view()) << from << to;
      }
    }
  }
}

TEST(TextStorage, staysWhereItIsWhenItsOwnerMoves) {
  std::vector<TextStorage> storages;
  std::vector<const char16_t*> places;
  for (int i = 0; i < 100; ++i) {
    storages.emplace_back(TextView(kLong));
    places.push_back(storages.back().view().data());
  }
  for (std::size_t i = 0; i < storages.size(); ++i) {
    EXPECT_EQ(storages[i].view().data(), places[i]);
  }
}

} // namespace
} // namespace cardwright::detail
