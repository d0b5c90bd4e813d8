#include "cardwright/utf8.h"
#include "face/conversion/table.h"
#include "support/pages.h"

#include <string>

namespace cardwright {

namespace {

constexpr const char* kIntroduction =
    R"(# Conversion between versions

`convertCards` and `cardwright convert --to 2.1|3.0|4.0` turn cards of any version into cards of
another, and name everything that gets another form, is parked or dropped. This page is made from the
tables that the conversion reads (`src/face/conversion/`); a test compares the two.

Between 2.1 and 4.0, the way leads over 3.0. Converting twice is converting once.

What is *parked* keeps its value under "X-" and its name, a type under the parameter X-TYPE, and comes
back when the card is converted back. What no table names is kept as it is.

For all versions:

- VERSION is stated once; further ones are dropped.
- FN, which 3.0 and 4.0 ask for, is made of N, NICKNAME, ORG or EMAIL where it is missing; N, which
  2.1 and 3.0 ask for, holds all of FN as family name.
- VALUE states the kind of a value where the version would take it for another. A kind that 3.0 does
  not have is written as text, with its name in X-VALUE; URIs are VALUE=URL in 2.1.
- Dates and times are written in the form of the version. What was not understood stays as it was
  read.
- Damaged base64 stays as it is, and is named.

Lost for good are only the things that are marked "dropped" below. The way there and back may change:
what belongs to the other version already, names, parameters, types and encodings (RELATED, PREF,
BASE64, data: URIs and dates without a year in 3.0, X-QQ and TYPE=pref in 4.0), which comes back in the
form of the version where it was brought; VALUE where the version implies it, and in a TZ that is no
offset; blanks in base64; the types of media that it holds, which the bytes tell; X-GENDER:F, JPG and
WAV, which come back as Female, JPEG and WAVE; types said twice. The order of parameters is that of
writing.
)";

const char* nameOf(VersionCode version) {
  return version == 2 ? "2.1" : version == 3 ? "3.0" : "4.0";
}

const char* wordOf(Action action) {
  switch (action) {
  case Action::rename:
    return "renamed";
  case Action::reencode:
    return "re-encoded";
  case Action::reencodeOrPark:
    return "re-encoded or parked";
  case Action::park:
    return "parked";
  case Action::drop:
    return "dropped";
  }
  return "";
}

void appendRules(std::string& page, const char* heading, std::span<const Rule> rules) {
  if (rules.empty()) {
    return;
  }
  page.append("\n| ").append(heading).append(" | is | as | |\n|---|---|---|---|\n");
  for (const Rule& rule : rules) {
    const bool isParked = rule.action == Action::park;
    page.append("| ").append(utf8FromText(rule.name)).append(" | ").append(wordOf(rule.action));
    page.append(" | ");
    page.append(isParked ? "X-" + utf8FromText(rule.name) : utf8FromText(rule.target));
    page.append(" | ").append(utf8FromText(rule.note)).append(" |\n");
  }
}

/// Parked types keep their names.
void appendTypes(std::string& page, std::span<const Rule> rules) {
  std::string parked;
  bool isTold = false;
  for (const Rule& rule : rules) {
    if (rule.action == Action::park) {
      parked.append(parked.empty() ? "" : ", ").append(utf8FromText(rule.name));
      continue;
    }
    page.append(isTold ? "" : "\n| type | is | as | |\n|---|---|---|---|\n");
    isTold = true;
    page.append("| ").append(utf8FromText(rule.name)).append(" | ").append(wordOf(rule.action));
    page.append(" | ").append(utf8FromText(rule.target)).append(" | ");
    page.append(utf8FromText(rule.note)).append(" |\n");
  }
  if (!parked.empty()) {
    page.append("\nTypes parked in X-TYPE: ").append(parked).append(".\n");
  }
}

} // namespace

std::string conversionPage() {
  std::string page = kIntroduction;
  for (const ConversionTable& table : conversionTables()) {
    page.append("\n## ").append(nameOf(table.from)).append(" to ").append(nameOf(table.to));
    page.append("\n");
    appendRules(page, "property", table.properties);
    appendRules(page, "parameter", table.parameters);
    appendTypes(page, table.types);
    appendRules(page, "encoding", table.encodings);
  }
  return page;
}

} // namespace cardwright
