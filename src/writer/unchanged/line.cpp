#include "writer/unchanged/line.h"

#include "base/whitespace.h"

namespace cardwright {

namespace {

/// Photos without a text are not written, and only their properties know.
bool mayLackText(TextView value, const ValueForm& form) noexcept {
  return form.isPhoto && (value.empty() || (form.valueClass != ValueClass::text &&
                                            form.valueClass != ValueClass::uri));
}

/// Whether a line with this header can be written as writeCards does it.
bool isOrdinary(const LineHeader& header, const ReadLine& line) noexcept {
  return header.isOrdinary && (header.isOfAllVersions || (line.readAs < 4) == (line.stated < 4));
}

} // namespace

RewrittenLine rewriteLine(Bytes& output, const ReadLine& line, VersionCode version,
                          HeaderMemory& memory) {
  const std::size_t begin = output.size();
  const HeaderMemory::Found* const found =
      memory.rewrite(output, line.units, {line.readAs, version, line.isWrittenSafely()});
  if (found == nullptr || !found->isRewritten) {
    return {found != nullptr ? &found->header.name : nullptr, Rewriting::needsProperty};
  }
  const LineHeader& header = found->header;
  const ValueForm& form = header.form;
  ReadableText value = line.units;
  value.text.remove_prefix(header.end + 1);
  while (!value.text.empty() && isWhitespace(value.text.front())) {
    value.text.remove_prefix(1);
  }
  const bool needsProperty =
      mayLackText(value.text, form) || (line.isWrittenSafely() && !isOrdinary(header, line));
  const Rewriting rewriting =
      needsProperty ? Rewriting::needsProperty
                    : rewriteValue(output, value, form, version, line.isWrittenSafely());
  if (rewriting != Rewriting::done) {
    output.resize(begin);
    return {&header.name, rewriting};
  }
  return {&header.name, rewriting,
          line.units.text.substr(header.encodingBegin, header.encodingSize)};
}

} // namespace cardwright
