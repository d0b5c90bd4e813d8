#include "base/case.h"
#include "cardwright/vocabulary.h"
#include "face/checking/checks.h"
#include "reader/content_line.h"

namespace cardwright {

namespace {

/// No table knows this version: only what is in no table counts as supported.
constexpr VersionCode kNoVersion = 31;

bool isExtension(TextView name) noexcept {
  return name.size() > 1 && (name[0] == u'X' || name[0] == u'x') && name[1] == u'-';
}

using Support = bool (*)(TextView name, VersionCode version);

/// Finds a name that the version does not have, or none.
/// @param name in upper case, where it has case
void checkName(TextView name, VersionCode version, Support support, Check other, Check unknown,
               LinePlace place, CheckFinder& finder) {
  if (isExtension(name)) {
    return;
  }
  if (support(name, kNoVersion)) {
    finder.add(unknown, place, name);
  } else if (!support(name, version)) {
    finder.add(other, place, name);
  }
}

void checkParameter(const ContentLineParameter& parameter, const CheckedLine& line,
                    VersionCode version, CheckFinder& finder) {
  const Text name = upperCased(parameter.name);
  // A bare one has no name there.
  const bool isBare = !line.holds(parameter.name);
  checkName(name, version, parameterIsSupportedForVersion, Check::otherParameter,
            Check::unknownParameter, line.placeOf(isBare ? parameter.values[0] : parameter.name),
            finder);
  for (const TextView value : parameter.values) {
    const LinePlace place = line.placeOf(value);
    if (name == cVCardParameter_TYPE && !typeIsSupportedForVersion(value, version)) {
      finder.add(Check::otherType, place, value);
    } else if (name == cVCardParameter_ENCODING && parameterIsSupportedForVersion(name, version)) {
      checkName(value, version, encodingIsSupportedForVersion, Check::otherEncoding,
                Check::unknownEncoding, place, finder);
    } else if (name == cVCardParameter_VALUE && !valueIsSupportedForVersion(value, version)) {
      finder.add(Check::otherValue, place, value);
    }
  }
}

} // namespace

void checkNames(const CheckedLine& line, VersionCode version, CheckFinder& finder) {
  const TextView name = line.property->name();
  if (name == u"BEGIN" || name == u"END") {
    return;
  }
  const ContentLineParts parts = partsOfContentLine(line.line);
  checkName(name, version, propertyIsSupportedForVersion, Check::otherProperty,
            Check::unknownProperty, line.placeOf(parts.name.substr(parts.name.find(u'.') + 1)),
            finder);
  for (const ContentLineParameter& parameter : parts.parameters) {
    checkParameter(parameter, line, version, finder);
  }
}

} // namespace cardwright
