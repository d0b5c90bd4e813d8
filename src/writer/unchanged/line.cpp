#include "writer/unchanged/line.h"

#include "base/ascii.h"
#include "base/case.h"
#include "base/whitespace.h"
#include "cardwright/vocabulary.h"
#include "model/value_types.h"
#include "writer/unchanged/parameters.h"
#include "writer/unchanged/values.h"
#include "writer/unchanged/words.h"

#include <algorithm>

namespace cardwright {

namespace {

ValueForm formOf(const ReadLine& line, std::optional<TextView> statedType) {
  ValueForm form;
  if (line.known == nullptr) {
    form.type = defaultTypeOf(line.key, line.readAs);
    form.valueClass = valueClassFor(form.type);
    form.isList = isMultiValueName(line.key);
  } else {
    const WrittenName& known = line.known->value;
    form.type = line.readAs < 4 ? known.typeBelow4 : known.type;
    form.valueClass = line.readAs < 4 ? known.classBelow4 : known.valueClass;
    form.isList = known.isList;
  }
  if (statedType) {
    const std::optional<TextView> implied = equivalentType(form.type);
    if (!implied || !equalIgnoringCase(*implied, *statedType)) {
      form.type = *statedType;
      form.valueClass = valueClassFor(form.type);
    }
  }
  return form;
}

/// Photos without a text are not written, and only their properties know.
bool mayLackText(const ReadLine& line, TextView value, ValueClass valueClass) noexcept {
  return line.key == cVCardProperty_PHOTO &&
         (value.empty() || (valueClass != ValueClass::text && valueClass != ValueClass::uri));
}

bool rewrite(Units& output, const ReadLine& line, VersionCode version) {
  if (line.hasGroup()) {
    output.append(line.group());
    output.push_back(u'.');
  }
  output.append(line.key);
  std::size_t at = line.nameEnd;
  std::optional<TextView> statedType;
  if (line.line[at] == u';' &&
      !rewriteParameters(output, line.line, line.key, version, at, statedType)) {
    return false;
  }
  output.push_back(u':');
  TextView value = line.line.substr(at + 1);
  while (!value.empty() && isWhitespace(value.front())) {
    value.remove_prefix(1);
  }
  const ValueForm form = formOf(line, statedType);
  return !mayLackText(line, value, form.valueClass) && rewriteValue(output, value, form, version);
}

} // namespace

bool findName(ReadLine& read) {
  const TextView line = read.line;
  std::size_t begin = 0;
  ShortWord word = shortWordAt(line, begin);
  std::size_t end = endOfWord(line, begin, word);
  read.groupEnd = 0;
  if (end != 0 && end < line.size() && line[end] == u'.') {
    read.groupEnd = end;
    begin = end + 1;
    word = shortWordAt(line, begin);
    end = endOfWord(line, begin, word);
  }
  if (begin == end || end == line.size() || (line[end] != u';' && line[end] != u':')) {
    return false;
  }
  const TextView name = line.substr(begin, end - begin);
  read.nameEnd = end;
  read.known = writtenName(word, name);
  if (read.known != nullptr) {
    read.key = read.known->name;
    read.order = read.known->value.propertyOrder;
    return true;
  }
  read.key = name;
  read.order = orderOfOther(word);
  return std::none_of(name.begin(), name.end(), isAsciiLower);
}

std::optional<std::size_t> roomForLine(TextView line) noexcept {
  constexpr std::size_t kShort = 128;
  constexpr std::size_t kLongestHeader = 512;
  const std::size_t header = line.size() <= kShort ? line.size() : line.find(u':');
  if (header > kLongestHeader) {
    return std::nullopt;
  }
  // Each item of a parameter may repeat the longest name; each unit of a value is escaped at most,
  // and a value gets the separators of at most seven components.
  return (kMostItems + 1) * (header + 8) + 2 * (line.size() - header) + 8;
}

std::optional<TextView> asWritten(char16_t* units, const ReadLine& line, VersionCode version) {
  Units output(units);
  return rewrite(output, line, version) ? std::optional(output.view()) : std::nullopt;
}

} // namespace cardwright
