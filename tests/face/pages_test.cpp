#include "support/corpus.h"
#include "support/pages.h"

#include <gtest/gtest.h>

namespace cardwright {
namespace {

TEST(Pages, tellOfConversionWhatTheTablesDo) {
  EXPECT_EQ(bytesOf(CARDWRIGHT_DOCS "/conversion.md"), conversionPage())
      << "make_page conversion > docs/conversion.md";
}

TEST(Pages, tellOfChecksWhatTheTableDoes) {
  EXPECT_EQ(bytesOf(CARDWRIGHT_DOCS "/checks.md"), checksPage()) << "make_page checks";
}

} // namespace
} // namespace cardwright
