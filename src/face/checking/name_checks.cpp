#include "cardwright/vocabulary.h"
#include "face/checking/checks.h"

namespace cardwright {

namespace {

/// No table knows this version: only what is in no table counts as supported.
constexpr VersionCode kNoVersion = 31;

bool isExtension(TextView name) noexcept {
  return name.size() > 1 && (name[0] == u'X' || name[0] == u'x') && name[1] == u'-';
}

using Support = bool (*)(TextView name, VersionCode version);

/// Finds a name that the version does not have, or none.
void checkName(TextView name, VersionCode version, Support support, Check other, Check unknown,
               std::size_t offset, CheckFinder& finder) {
  if (isExtension(name)) {
    return;
  }
  if (support(name, kNoVersion)) {
    finder.add(unknown, offset, name);
  } else if (!support(name, version)) {
    finder.add(other, offset, name);
  }
}

void checkParameter(const VCardParameter& parameter, std::size_t offset, VersionCode version,
                    CheckFinder& finder) {
  const TextView name = parameter.name();
  checkName(name, version, parameterIsSupportedForVersion, Check::otherParameter,
            Check::unknownParameter, offset, finder);
  for (const Text& value : parameter.values()) {
    if (name == cVCardParameter_TYPE && !typeIsSupportedForVersion(value, version)) {
      finder.add(Check::otherType, offset, value);
    } else if (name == cVCardParameter_ENCODING && parameterIsSupportedForVersion(name, version)) {
      checkName(value, version, encodingIsSupportedForVersion, Check::otherEncoding,
                Check::unknownEncoding, offset, finder);
    } else if (name == cVCardParameter_VALUE && !valueIsSupportedForVersion(value, version)) {
      finder.add(Check::otherValue, offset, value);
    }
  }
}

} // namespace

void checkNames(const CheckedLine& line, VersionCode version, CheckFinder& finder) {
  const TextView name = line.property->name();
  if (name == u"BEGIN" || name == u"END") {
    return;
  }
  checkName(name, version, propertyIsSupportedForVersion, Check::otherProperty,
            Check::unknownProperty, line.offset, finder);
  for (const auto& [key, parameter] :
       line.property->parameterDict().value_or(VCardParameterDict())) {
    checkParameter(*parameter, line.offset, version, finder);
  }
}

} // namespace cardwright
