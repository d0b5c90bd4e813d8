#include "base/case.h"
#include "cardwright/check.h"
#include "cardwright/face.h"
#include "cardwright/utf8.h"
#include "support/corpus_test.h"

#include <gtest/gtest.h>

#include <iostream>
#include <map>
#include <string>

namespace cardwright {
namespace {

/// Errors by their code and what they are about.
using Counts = std::map<std::string, std::size_t>;

/// The subject of a finding, without what a conversion puts in front of a name.
std::string subjectOf(const Finding& finding) {
  const std::size_t colon = finding.text.rfind(": ");
  std::string subject = colon == std::string::npos ? "" : finding.text.substr(colon + 2);
  subject = subject.starts_with("X-") ? subject.substr(2) : subject;
  // Encodings are written in upper case.
  return utf8FromText(upperCased(textFromUtf8(subject)));
}

Counts errorsIn(std::string_view text) {
  Counts counts;
  for (const Finding& finding : checkText(text)) {
    if (finding.severity == Severity::error) {
      // Versions ask for different names; a card without any lacks whichever it is.
      const bool isName = finding.code == "missing-fn" || finding.code == "missing-n";
      const std::string code(isName ? "missing name" : finding.code);
      counts[code + " " + subjectOf(finding)] += finding.count;
    }
  }
  return counts;
}

std::size_t sumOf(const Counts& counts) {
  std::size_t sum = 0;
  for (const auto& [error, count] : counts) {
    sum += count;
  }
  return sum;
}

void expectKnown(const Counts& errors, const Counts& known, VersionCode version) {
  for (const auto& [error, count] : errors) {
    const auto same = known.find(error);
    // A card without any name lacks two in version 3.
    const std::size_t names = error.starts_with("missing name") && version == 3 ? 2 : 1;
    EXPECT_LE(count, same != known.end() ? names * same->second : 0)
        << error << " in version " << version << "\n";
  }
}

using CorpusCheckTrip = CorpusTest;

TEST_F(CorpusCheckTrip, findsNoErrorInConvertedCardsThatTheyDidNotHave) {
  std::size_t before = 0;
  std::map<VersionCode, std::size_t> after;
  for (const auto& file : files()) {
    SCOPED_TRACE(file.string());
    const std::string bytes = bytesOf(file);
    const Counts old = errorsIn(bytes);
    before += sumOf(old);
    const VCardList cards = readCards(bytes);
    for (const VersionCode version : {2, 3, 4}) {
      const VCardList away = convertCards(cards, version);
      const Counts there = errorsIn(writeCards(away));
      after[version] += sumOf(there);
      expectKnown(there, old, version);
      for (const VersionCode back : {2, 3, 4}) {
        expectKnown(errorsIn(writeCards(convertCards(away, back))), old, back);
      }
    }
  }
  std::cout << before << " errors before, " << after[2] << " in 2.1, " << after[3] << " in 3.0, "
            << after[4] << " in 4.0\n";
}

} // namespace
} // namespace cardwright
