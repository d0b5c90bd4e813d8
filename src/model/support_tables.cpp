#include "base/name_table.h"
#include "cardwright/vocabulary.h"

#include <cstdint>

namespace cardwright {

namespace {

/// A set of versions: bit c stands for version code c.
using Versions = std::uint32_t;

constexpr Versions kV2 = 1U << 2U;
constexpr Versions kV3 = 1U << 3U;
constexpr Versions kV4 = 1U << 4U;
constexpr Versions kV23 = kV2 | kV3;
constexpr Versions kV34 = kV3 | kV4;
constexpr Versions kAll = kV2 | kV3 | kV4;

using Support = NameRow<Versions>;

constexpr NameTable kProperties({
    Support{u"ADR", kAll},  {u"BDAY", kAll},       {u"EMAIL", kAll},      {u"FN", kAll},
    {u"GEO", kAll},         {u"KEY", kAll},        {u"LOGO", kAll},       {u"N", kAll},
    {u"NOTE", kAll},        {u"ORG", kAll},        {u"PHOTO", kAll},      {u"REV", kAll},
    {u"ROLE", kAll},        {u"SOUND", kAll},      {u"TEL", kAll},        {u"TITLE", kAll},
    {u"TZ", kAll},          {u"UID", kAll},        {u"URL", kAll},        {u"VERSION", kAll},
    {u"AGENT", kV23},       {u"LABEL", kV23},      {u"MAILER", kV23},     {u"CALADRURI", kV34},
    {u"CALURI", kV34},      {u"CATEGORIES", kV34}, {u"IMPP", kV34},       {u"NICKNAME", kV34},
    {u"PRODID", kV34},      {u"SOURCE", kV34},     {u"CLASS", kV3},       {u"NAME", kV3},
    {u"PROFILE", kV3},      {u"SORT-STRING", kV3}, {u"ANNIVERSARY", kV4}, {u"BIRTHPLACE", kV4},
    {u"CLIENTPIDMAP", kV4}, {u"DEATHDATE", kV4},   {u"DEATHPLACE", kV4},  {u"EXPERTISE", kV4},
    {u"FBURL", kV4},        {u"GENDER", kV4},      {u"HOBBY", kV4},       {u"INTEREST", kV4},
    {u"KIND", kV4},         {u"LANG", kV4},        {u"MEMBER", kV4},      {u"ORG-DIRECTORY", kV4},
    {u"RELATED", kV4},      {u"XML", kV4},
});

constexpr NameTable kParameters({
    Support{u"LANGUAGE", kAll},
    {u"TYPE", kAll},
    {u"VALUE", kAll},
    {u"ENCODING", kV23},
    {u"CONTEXT", kV3},
    {u"CHARSET", kV2},
    {u"ALTID", kV4},
    {u"CALSCALE", kV4},
    {u"GEO", kV4},
    {u"INDEX", kV4},
    {u"LABEL", kV4},
    {u"LEVEL", kV4},
    {u"MEDIATYPE", kV4},
    {u"PID", kV4},
    {u"PREF", kV4},
    {u"SORT-AS", kV4},
    {u"TZ", kV4},
});

/// "granddaugther" is how the vocabulary spells it.
constexpr NameTable kTypes({
    Support{u"home", kAll},
    {u"work", kAll},
    {u"voice", kAll},
    {u"fax", kAll},
    {u"cell", kAll},
    {u"video", kAll},
    {u"pager", kAll},
    {u"pref", kV23},
    {u"msg", kV23},
    {u"bbs", kV23},
    {u"modem", kV23},
    {u"car", kV23},
    {u"isdn", kV23},
    {u"pcs", kV23},
    {u"internet", kV23},
    {u"X400", kV23},
    {u"X509", kV23},
    {u"pgp", kV23},
    {u"dom", kV23},
    {u"intl", kV23},
    {u"postal", kV23},
    {u"parcel", kV23},
    {u"personal", kV3},
    {u"business", kV3},
    {u"mobile", kV3},
    {u"text", kV4},
    {u"textphone", kV4},
    {u"contact", kV4},
    {u"acquaintance", kV4},
    {u"friend", kV4},
    {u"met", kV4},
    {u"co-worker", kV4},
    {u"colleague", kV4},
    {u"co-resident", kV4},
    {u"neighbor", kV4},
    {u"child", kV4},
    {u"parent", kV4},
    {u"sibling", kV4},
    {u"spouse", kV4},
    {u"kin", kV4},
    {u"muse", kV4},
    {u"crush", kV4},
    {u"date", kV4},
    {u"sweetheart", kV4},
    {u"me", kV4},
    {u"agent", kV4},
    {u"emergency", kV4},
    {u"father-in-law", kV4},
    {u"mother-in-law", kV4},
    {u"son-in-law", kV4},
    {u"daughter-in-law", kV4},
    {u"brother-in-law", kV4},
    {u"sister-in-law", kV4},
    {u"nephew", kV4},
    {u"niece", kV4},
    {u"cousin", kV4},
    {u"grandparent", kV4},
    {u"grandfather", kV4},
    {u"grandmother", kV4},
    {u"grandson", kV4},
    {u"granddaugther", kV4},
    {u"grandchild", kV4},
    {u"family", kV4},
});

constexpr NameTable kEncodings({
    Support{u"b", kV3},
    {u"quoted-printable", kV2},
    {u"base64", kV2},
    {u"8bit", kV2},
});

constexpr NameTable kValues({
    Support{u"text", kV34}, {u"uri", kV34},       {u"date", kV34},
    {u"date-time", kV34},   {u"time", kV4},       {u"date-and-or-time", kV4},
    {u"timestamp", kV4},    {u"boolean", kV4},    {u"integer", kV4},
    {u"float", kV4},        {u"utc-offset", kV4}, {u"language-tag", kV4},
    {u"BINARY", kV3},       {u"INLINE", kV2},     {u"URL", kV2},
    {u"CONTENT-ID", kV2},   {u"CID", kV2},        {u"GIF", kV23},
    {u"CGM", kV23},         {u"BMP", kV23},       {u"MET", kV23},
    {u"PMB", kV23},         {u"DIB", kV23},       {u"PICT", kV23},
    {u"TIFF", kV23},        {u"PDF", kV23},       {u"PS", kV23},
    {u"JPEG", kV23},        {u"MPEG", kV23},      {u"MPEG2", kV23},
    {u"AVI", kV23},         {u"QTIME", kV23},
});

template <typename Table>
bool isSupported(const Table& table, TextView name, VersionCode version) {
  const Support* row = table.findIgnoringCase(name);
  if (row == nullptr) {
    return true;
  }
  return version >= 0 && version < 32 && ((row->value >> static_cast<unsigned>(version)) & 1U) != 0;
}

} // namespace

void initialize() {}

bool propertyIsSupportedForVersion(TextView name, VersionCode version) {
  return isSupported(kProperties, name, version);
}

bool parameterIsSupportedForVersion(TextView name, VersionCode version) {
  return isSupported(kParameters, name, version);
}

bool typeIsSupportedForVersion(TextView name, VersionCode version) {
  return isSupported(kTypes, name, version);
}

bool encodingIsSupportedForVersion(TextView name, VersionCode version) {
  return isSupported(kEncodings, name, version);
}

bool valueIsSupportedForVersion(TextView name, VersionCode version) {
  return isSupported(kValues, name, version);
}

} // namespace cardwright
