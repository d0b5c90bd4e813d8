#include "writer/unchanged/line.h"

#include "base/whitespace.h"
#include "writer/unchanged/quoted_printable.h"

namespace cardwright {

namespace {

/// Photos without a text are not written, and only their properties know.
bool mayLackText(TextView value, const ValueForm& form) noexcept {
  return form.isPhoto && (value.empty() || (form.valueClass != ValueClass::text &&
                                            form.valueClass != ValueClass::uri));
}

/// Numbers and dates are read without decoding.
bool isDecoded(ValueClass valueClass) noexcept {
  return valueClass != ValueClass::dateTime && valueClass != ValueClass::utcOffset &&
         valueClass != ValueClass::geo;
}

bool rewriteDecoded(Units& output, TextView value, const ValueForm& form, VersionCode version) {
  // The room is enough for the value in both spellings.
  Units decoded = output.behind(2 * value.size() + kWrittenBeyond);
  if (!isDecoded(form.valueClass) || !appendWithoutQuotedPrintable(decoded, value)) {
    return false;
  }
  const TextView text = decoded.view();
  return rewriteValue(output, {text, text.data() + text.size()}, form, version);
}

} // namespace

RewrittenLine rewriteLine(Units& output, const ReadLine& line, VersionCode version,
                          HeaderMemory& memory) {
  const std::size_t begin = output.size();
  const HeaderMemory::Found* const found = memory.rewrite(output, line.units, line.readAs, version);
  if (found == nullptr || !found->isRewritten) {
    return {found != nullptr ? &found->header.name : nullptr, false};
  }
  const ValueForm& form = found->header.form;
  ReadableText value = line.units.substr(found->header.end + 1);
  while (!value.text.empty() && isWhitespace(value.text.front())) {
    value.text.remove_prefix(1);
  }
  const bool isWhole = !mayLackText(value.text, form) &&
                       (form.isQuotedPrintable ? rewriteDecoded(output, value.text, form, version)
                                               : rewriteValue(output, value, form, version));
  if (!isWhole) {
    output.resize(begin);
  }
  return {&found->header.name, isWhole};
}

} // namespace cardwright
