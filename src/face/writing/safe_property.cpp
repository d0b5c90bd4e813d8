#include "face/writing/safe_property.h"

#include "base/ascii.h"
#include "base/case.h"
#include "base/whitespace.h"
#include "cardwright/vocabulary.h"
#include "face/writing/safe_names.h"
#include "face/writing/safe_parameters.h"
#include "face/writing/safe_texts.h"
#include "face/writing/safe_values.h"
#include "face/writing/value_kind.h"
#include "writer/folding.h"

#include <algorithm>

namespace cardwright {

namespace {

using Parameters = std::vector<SafeParameter>;

constexpr TextView kUtf8 = u"UTF-8";

/// Values are written as plain UTF-8: other things that ENCODING and CHARSET say are over.
void dropEncodings(Parameters& parameters, const VCardProperty& property,
                   const WritingContext& context) {
  bool isDropped = false;
  for (SafeParameter& parameter : parameters) {
    const bool isCharset = parameter.key == cVCardParameter_CHARSET;
    if (!isCharset && parameter.key != cVCardParameter_ENCODING) {
      continue;
    }
    std::erase_if(parameter.values, [&](const Text& value) {
      const bool isOver = isCharset
                              ? !equalIgnoringCase(value, kUtf8)
                              : equalIgnoringCase(value, cVCardParameter_ENCODING_QUOTED_PRINTABLE);
      if (isOver) {
        context.recorder.changed(WriteChangeKind::encodingLeftOut, property, value);
        isDropped = true;
      }
      return isOver;
    });
  }
  std::erase_if(parameters, [](const SafeParameter& one) { return one.values.empty(); });
  if (isDropped && context.syntax == 2) {
    // Readers of 2.1 do not take UTF-8 for granted.
    replaceParameter(parameters, cVCardParameter_CHARSET, kUtf8);
  }
}

/// Whether the value reads VCARD, so that with BEGIN or END in front it frames a card.
bool isFrame(TextView key, const VCardProperty& property, const WritingContext& context) {
  const std::shared_ptr<VCardValue> value = property.value();
  if ((key != u"BEGIN" && key != u"END") || value == nullptr) {
    return false;
  }
  const Text text = property.textValue()
                        ? valueText(*property.textValue())
                        : safeValue(*value, context.syntax, {}, context.formatter).text;
  return equalIgnoringCase(trimWhitespace(text), u"VCARD");
}

/// Why a property cannot be written at all.
std::optional<WriteChangeKind> reasonToDrop(TextView key, const VCardProperty& property,
                                            const WritingContext& context) {
  if (key.empty()) {
    return WriteChangeKind::namelessLeftOut;
  }
  if (isFrame(key, property, context)) {
    return WriteChangeKind::frameLeftOut;
  }
  if (key == cVCardProperty_VERSION && !property.textValue()) {
    return WriteChangeKind::versionLeftOut;
  }
  return std::nullopt;
}

Parameters describingParameters(const VCardProperty& property, TextView key,
                                const WritingContext& context) {
  Parameters parameters = safeParameters(property, context.recorder);
  dropEncodings(parameters, property, context);
  if (const std::shared_ptr<VCardValue> value = property.value()) {
    if (const auto type = typeToState(*value, key, context.stated,
                                      firstValueOf(parameters, cVCardParameter_VALUE))) {
      context.recorder.changed(WriteChangeKind::valueStated, property, *type);
      replaceParameter(parameters, cVCardParameter_VALUE, *type);
    }
  }
  return parameters;
}

} // namespace

std::optional<SafeLine> safeLine(const VCardProperty& property, const WritingContext& context) {
  WriteRecorder& recorder = context.recorder;
  SafeLine line;
  line.group = cleanedGroup(property.group());
  line.rest = cleanedPropertyName(property.name(), line.group.has_value());
  line.key = upperCased(line.rest);
  if (const auto reason = reasonToDrop(line.key, property, context)) {
    recorder.dropped(*reason, property, property.name());
    return std::nullopt;
  }
  if (line.group != property.group()) {
    recorder.changed(WriteChangeKind::groupCleaned, property, *property.group());
  }
  if (line.rest != property.name()) {
    recorder.changed(WriteChangeKind::nameCleaned, property, property.name());
  }

  const Parameters parameters = describingParameters(property, line.key, context);
  appendParameters(line.rest, parameters, line.key, context.syntax);
  line.mentionsQuotedPrintable =
      findIgnoringCase(line.rest, u"encoding=quoted-printable").has_value();
  line.rest.push_back(u':');
  if (const std::shared_ptr<VCardValue> value = property.value()) {
    const Parting parting =
        partingOf(line.key, context.stated, firstValueOf(parameters, cVCardParameter_VALUE));
    const SafeValue written = safeValue(*value, context.syntax, parting, context.formatter);
    if (written.isCleaned) {
      recorder.changed(WriteChangeKind::valueCleaned, property, written.text);
    }
    line.rest.append(written.text);
  }
  const std::optional<TextView> encoding = firstValueOf(parameters, cVCardParameter_ENCODING);
  line.endsInEmptyLine = context.syntax == 2 && encoding &&
                         equalIgnoringCase(*encoding, cVCardParameter_ENCODING_BASE64);
  return line;
}

void appendLine(Text& output, const SafeLine& line) {
  const std::size_t begin = output.size();
  if (line.group) {
    output.append(*line.group);
    output.push_back(u'.');
  }
  output.append(line.rest);
  if (!line.mentionsQuotedPrintable) {
    foldTail(output, begin);
  } else {
    // A fold could follow "=" and be taken for a soft break, and so could the end of the line; a
    // last backslash stands for nothing.
    if (trimmed(TextView(line.rest), isSpaceOrTab).ends_with(u'=')) {
      output.push_back(u'\\');
    }
    output.append(u"\r\n");
  }
  if (line.endsInEmptyLine) {
    output.append(u"\r\n");
  }
}

} // namespace cardwright
