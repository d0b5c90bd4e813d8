#include "writer/unchanged/line.h"

#include "base/whitespace.h"

namespace cardwright {

namespace {

/// Photos without a text are not written, and only their properties know.
bool mayLackText(TextView value, const ValueForm& form) noexcept {
  return form.isPhoto && (value.empty() || (form.valueClass != ValueClass::text &&
                                            form.valueClass != ValueClass::uri));
}

} // namespace

RewrittenLine rewriteLine(Bytes& output, const ReadLine& line, VersionCode version,
                          HeaderMemory& memory) {
  const std::size_t begin = output.size();
  const HeaderMemory::Found* const found = memory.rewrite(output, line.units, line.readAs, version);
  if (found == nullptr || !found->isRewritten) {
    return {found != nullptr ? &found->header.name : nullptr, Rewriting::needsProperty};
  }
  const ValueForm& form = found->header.form;
  ReadableText value = line.units;
  value.text.remove_prefix(found->header.end + 1);
  while (!value.text.empty() && isWhitespace(value.text.front())) {
    value.text.remove_prefix(1);
  }
  const Rewriting rewriting = mayLackText(value.text, form)
                                  ? Rewriting::needsProperty
                                  : rewriteValue(output, value, form, version);
  if (rewriting != Rewriting::done) {
    output.resize(begin);
  }
  return {&found->header.name, rewriting};
}

} // namespace cardwright
