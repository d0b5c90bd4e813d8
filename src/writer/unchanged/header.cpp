#include "writer/unchanged/header.h"

#include "base/ascii.h"
#include "base/case.h"
#include "cardwright/vocabulary.h"
#include "model/value_types.h"
#include "writer/unchanged/parameters.h"
#include "writer/unchanged/words.h"

#include <algorithm>
#include <initializer_list>

namespace cardwright {

namespace {

bool isOneOf(TextView type, std::initializer_list<TextView> types) {
  return std::any_of(types.begin(), types.end(),
                     [type](TextView other) { return equalIgnoringCase(type, other); });
}

ValueForm formOf(TextView key, const WrittenName* meaning, VersionCode readAs,
                 const StatedForm& stated) {
  ValueForm form;
  TextView type;
  if (meaning == nullptr) {
    type = defaultTypeOf(key, readAs);
    form.valueClass = valueClassFor(type);
    form.isList = isMultiValueName(key);
  } else {
    type = readAs < 4 ? meaning->typeBelow4 : meaning->type;
    form.valueClass = readAs < 4 ? meaning->classBelow4 : meaning->valueClass;
    form.isList = meaning->isList;
  }
  if (stated.type) {
    const std::optional<TextView> implied = equivalentType(type);
    if (!implied || !equalIgnoringCase(*implied, *stated.type)) {
      type = *stated.type;
      form.valueClass = valueClassFor(type);
    }
  }
  if (form.valueClass == ValueClass::dateTime) {
    form.mayBeDate = isOneOf(type, {cVCardValue_DATE_AND_OR_TIME, cVCardValue_DATE});
    form.mayBeInstant =
        isOneOf(type, {cVCardValue_TIMESTAMP, cVCardValue_DATE_TIME, cVCardValue_DATE_AND_OR_TIME});
  }
  form.isPhoto = key == cVCardProperty_PHOTO;
  form.isQuotedPrintable = !stated.quotedPrintable.empty();
  return form;
}

/// Whether writeCards has nothing more to mend in a header.
bool isOrdinary(TextView key, const WrittenName* meaning, const StatedForm& stated,
                const ValueForm& form) noexcept {
  // What describes others is compared with its like before it is written.
  const bool isComparedDecoded =
      form.isQuotedPrintable && meaning != nullptr && meaning->isCompanion;
  const bool isListOfStated = form.isList && stated.type;
  return stated.isOrdinary && !isListOfStated && !isComparedDecoded && key != u"BEGIN" &&
         key != u"END";
}

} // namespace

std::optional<LineName> nameOf(TextView line) noexcept {
  LineName found{};
  ShortWord word = shortWordAt(line, 0);
  std::size_t end = endOfWord(line, 0, word);
  if (end != 0 && end < line.size() && line[end] == u'.') {
    found.begin = end + 1;
    word = shortWordAt(line, found.begin);
    end = endOfWord(line, found.begin, word);
  }
  if (found.begin == end || end == line.size() || (line[end] != u';' && line[end] != u':')) {
    return std::nullopt;
  }
  found.end = end;
  const TextView name = line.substr(found.begin, end - found.begin);
  if (const NameRow<WrittenName>* const row = writtenName(word, name)) {
    found.known = row->name;
    found.meaning = &row->value;
    found.order = row->value.propertyOrder;
    return found;
  }
  found.order = orderOfOther(word);
  return std::none_of(name.begin(), name.end(), isAsciiLower) ? std::optional(found) : std::nullopt;
}

std::optional<LineHeader> rewriteHeader(Bytes& output, TextView line, const LineName& name,
                                        const HeaderTask& task) {
  if (line.substr(0, kLongestHeader + 1).find(u':') == TextView::npos) {
    return std::nullopt;
  }
  const TextView key = name.key(line);
  output.append(line.substr(0, name.begin)); // the group and its dot
  output.append(key);
  LineHeader header{.name = name, .end = name.end, .form = {}};
  StatedForm stated;
  if (line[header.end] == u';' && !rewriteParameters(output, line, key, task, header.end, stated)) {
    return std::nullopt;
  }
  output.push_back(u':');
  header.form = formOf(key, name.meaning, task.readAs, stated);
  header.isOrdinary = isOrdinary(key, name.meaning, stated, header.form);
  header.encodingSize = stated.quotedPrintable.size();
  if (header.form.isQuotedPrintable) {
    header.encodingBegin = static_cast<std::size_t>(stated.quotedPrintable.data() - line.data());
  }
  header.isOfAllVersions =
      name.meaning == nullptr || name.meaning->typeBelow4 == name.meaning->type;
  return header;
}

} // namespace cardwright
