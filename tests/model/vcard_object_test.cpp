#include "cardwright/date_formatter.h"
#include "cardwright/vcard.h"
#include "cardwright/vcard_object.h"
#include "cardwright/vcard_value.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace cardwright {
namespace {

class Plain : public VCardObject {};

/// Notes what it is asked to do.
class Recording : public VCardObject {
 public:
  struct Call {
    VersionCode version;
    bool hasFormatter;
    std::optional<std::string> locale;
    Text pattern;
    bool wasOutputEmpty;
  };

  explicit Recording(std::vector<Call>& calls, bool* isGone = nullptr)
      : m_calls(calls), m_isGone(isGone) {}
  ~Recording() override {
    if (m_isGone != nullptr) {
      *m_isGone = true;
    }
  }

  bool parse(TextView text, VersionCode version, DateFormatter* /*formatter*/) override {
    return text == u"good" && version == 3;
  }

  void generate(Text& output, VersionCode version, DateFormatter* formatter) const override {
    m_calls.push_back(
        {version, formatter != nullptr, formatter != nullptr ? formatter->locale() : std::nullopt,
         formatter != nullptr ? Text(formatter->dateFormat()) : Text(), output.empty()});
    output.append(u"written");
  }

 private:
  std::vector<Call>& m_calls;
  bool* m_isGone;
};

/// Describes itself otherwise than by what it writes.
class Describing final : public Plain {
 public:
  [[nodiscard]] Text description() const override { return u"described"; }
};

TEST(VCardObject, readsAndWritesNothingByItself) {
  Plain object;
  DateFormatter formatter;
  EXPECT_FALSE(object.parse(u"text", 4, &formatter));
  EXPECT_FALSE(object.parse(u"", 0, nullptr));
  Text output = u"before";
  object.generate(output, 4, &formatter);
  EXPECT_EQ(output, u"before");
  EXPECT_EQ(object.description(), u"");
}

TEST(VCardObject, isDescribedByWhatItWritesForAnUnknownVersion) {
  std::vector<Recording::Call> calls;
  const Recording object(calls);
  EXPECT_EQ(object.description(), u"written");
  EXPECT_EQ(object.description(), u"written") << "each time into a new text";
  ASSERT_EQ(calls.size(), 2U);
  for (const Recording::Call& call : calls) {
    EXPECT_EQ(call.version, 0);
    EXPECT_TRUE(call.hasFormatter);
    EXPECT_FALSE(call.locale) << "a new formatter has no locale";
    EXPECT_EQ(call.pattern, u"");
    EXPECT_TRUE(call.wasOutputEmpty);
  }
}

TEST(VCardObject, doesEverythingThroughItsBase) {
  std::vector<Recording::Call> calls;
  bool isGone = false;
  std::shared_ptr<VCardObject> object = std::make_shared<Recording>(calls, &isGone);
  EXPECT_TRUE(object->parse(u"good", 3, nullptr));
  EXPECT_FALSE(object->parse(u"good", 4, nullptr));
  Text output = u"before ";
  object->generate(output, 2, nullptr);
  EXPECT_EQ(output, u"before written");
  EXPECT_EQ(object->description(), u"written");
  object = std::make_shared<Describing>();
  EXPECT_TRUE(isGone);
  EXPECT_EQ(object->description(), u"described");
}

TEST(VCardObject, hasIdentityAndIsNotCopied) {
  static_assert(!std::is_copy_constructible_v<VCard> && !std::is_copy_assignable_v<VCard>);
  static_assert(!std::is_copy_constructible_v<VCardProperty>);
  static_assert(!std::is_copy_constructible_v<VCardParameter>);
  static_assert(!std::is_copy_constructible_v<VCardValue>);
  static_assert(!std::is_default_constructible_v<VCardObject>, "only as the base of others");
  static_assert(std::has_virtual_destructor_v<VCardObject>);
  static_assert(std::is_base_of_v<VCardObject, VCard> &&
                std::is_base_of_v<VCardObject, VCardValue>);
  static_assert(std::is_base_of_v<VCardObject, VCardProperty>);
  static_assert(std::is_base_of_v<VCardObject, VCardParameter>);
}

/// Each operation of an object goes through the table of its class, in which the first three are
/// description, parse and generate.
TEST(VCardObject, putsDescriptionParseAndGenerateFirst) {
#if defined(__GNUC__) && !defined(__SANITIZE_ADDRESS__) && defined(__x86_64__)
  union Pointer {
    Text (VCardObject::*describe)() const;
    bool (VCardObject::*parse)(TextView, VersionCode, DateFormatter*);
    void (VCardObject::*generate)(Text&, VersionCode, DateFormatter*) const;
    std::size_t words[2]; ///< a pointer to a virtual member is its offset in the table plus one
  };
  Pointer pointer{};
  pointer.describe = &VCardObject::description;
  EXPECT_EQ(pointer.words[0], 1U);
  pointer.parse = &VCardObject::parse;
  EXPECT_EQ(pointer.words[0], 1U + sizeof(void*));
  pointer.generate = &VCardObject::generate;
  EXPECT_EQ(pointer.words[0], 1U + 2 * sizeof(void*));
#else
  GTEST_SKIP() << "tables are laid out otherwise here";
#endif
}

} // namespace
} // namespace cardwright
