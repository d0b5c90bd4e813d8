#include "cardwright/date_formatter.h"
#include "cardwright/vcard_date_time_value.h"
#include "cardwright/vcard_multi_value.h"
#include "cardwright/vcard_n_value.h"
#include "cardwright/vcard_parameter.h"
#include "cardwright/vcard_property.h"
#include "cardwright/vcard_text_value.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>
#include <vector>

namespace cardwright {
namespace {

constexpr VersionCode kVersions[] = {-1, 0, 1, 2, 3, 4, 5, 99};

Text written(const VCardProperty& property, VersionCode version = 3) {
  DateFormatter formatter("en_US_POSIX");
  Text output;
  property.generate(output, version, &formatter);
  return output;
}

std::shared_ptr<VCardProperty> read(TextView line, VersionCode version = 3) {
  DateFormatter formatter("en_US_POSIX");
  auto property = std::make_shared<VCardProperty>();
  EXPECT_TRUE(property->parse(line, version, &formatter));
  return property;
}

TEST(ContentLineWriter, writesGroupNameParametersAndValue) {
  EXPECT_EQ(written(*read(u"item1.email;type=internet,pref;X-A=b:jane@example.com")),
            u"item1.EMAIL;TYPE=INTERNET;TYPE=pref;X-A=b:jane@example.com\r\n");
  EXPECT_EQ(written(*VCardProperty::propertyWithName(u"Fn", TextView(u"Jane"))), u"Fn:Jane\r\n");
  EXPECT_EQ(written(*read(u".TEL:1")), u".TEL:1\r\n");
}

TEST(ContentLineWriter, writesTheColonOfAPropertyWithoutAValue) {
  VCardProperty property;
  EXPECT_EQ(written(property), u":\r\n");
  property.setName(u"X-A");
  property.setGroup(u"g");
  EXPECT_EQ(written(property), u"g.X-A:\r\n");
}

TEST(ContentLineWriter, putsValueAndTypeFirst) {
  const auto property = read(u"TEL;X-B=c;TYPE=cell,pref;VALUE=uri:tel:1", 4);
  EXPECT_EQ(written(*property, 4), u"TEL;VALUE=URI;TYPE=CELL;TYPE=pref;X-B=c:tel:1\r\n");
  EXPECT_EQ(written(*property, 2), u"TEL;VALUE=URI;CELL;pref;X-B=c:tel:1\r\n");
}

TEST(ContentLineWriter, writesASemicolonForAParameterWithoutValues) {
  VCardProperty property;
  property.setName(u"X-A");
  auto parameter = std::make_shared<VCardParameter>();
  parameter->setName(u"X-B");
  property.addParameter(parameter);
  EXPECT_EQ(written(property), u"X-A;:\r\n");
}

TEST(ContentLineWriter, escapesTextByVersion) {
  const auto property = VCardProperty::propertyWithName(u"NOTE", TextView(u"a;b,c\\d:e\nf\r\ng"));
  for (const VersionCode version : kVersions) {
    const Text semicolon = version == 3 ? u"\\;" : u";";
    EXPECT_EQ(written(*property, version), u"NOTE:a" + semicolon + u"b\\,c\\\\d:e\\nf\\ng\r\n");
  }
}

TEST(ContentLineWriter, writesQuotedPrintableValuesAsPlainText) {
  const auto property =
      read(u"NOTE;X-A=b;ENCODING=QUOTED-PRINTABLE;CHARSET=ISO-8859-1:Caf=E9=0D=0Abar", 2);
  for (const VersionCode version : kVersions) {
    const Text charset = version == 2 ? u";CHARSET=UTF-8" : u"";
    EXPECT_EQ(written(*property, version), u"NOTE;X-A=b" + charset + u":Caf\u00E9\\nbar\r\n");
  }
}

TEST(ContentLineWriter, namesTheCharsetBehindAllOtherParameters) {
  const auto property = read(u"NOTE;X-Z=1;encoding=quoted-printable;TYPE=home:a=3Db", 2);
  EXPECT_EQ(written(*property, 2), u"NOTE;HOME;X-Z=1;CHARSET=UTF-8:a=b\r\n");
}

TEST(ContentLineWriter, keepsEncodingAndCharsetOfOtherValues) {
  // A charset by itself.
  EXPECT_EQ(written(*read(u"NOTE;CHARSET=ISO-8859-1:a", 2), 2), u"NOTE;CHARSET=ISO-8859-1:a\r\n");
  // The value has the flag but the property names another encoding.
  const auto flagged = read(u"NOTE;ENCODING=b;CHARSET=UTF-8:a", 2);
  flagged->value()->setQuotedPrintable(true);
  EXPECT_EQ(written(*flagged, 2), u"NOTE;ENCODING=B;CHARSET=UTF-8:a\r\n");
  // The property names quoted-printable but the value lacks the flag.
  const auto named = read(u"NOTE;ENCODING=quoted-printable;CHARSET=UTF-8:a", 2);
  named->value()->setQuotedPrintable(false);
  EXPECT_EQ(written(*named, 2), u"NOTE;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:a\r\n");
  // Only the first of several encodings counts.
  EXPECT_EQ(written(*read(u"NOTE;ENCODING=8bit,quoted-printable:a", 2), 2),
            u"NOTE;ENCODING=8BIT;ENCODING=QUOTED-PRINTABLE:a\r\n");
}

TEST(ContentLineWriter, endsInlineBinaryDataOfVersion21WithAnEmptyLine) {
  const auto photo = read(u"PHOTO;ENCODING=base64;JPEG:AAAA", 2);
  for (const VersionCode version : kVersions) {
    const Text type = version == 2 ? u"JPEG" : u"TYPE=JPEG";
    const Text end = version == 2 ? u"\r\n\r\n" : u"\r\n";
    EXPECT_EQ(written(*photo, version), u"PHOTO;ENCODING=BASE64;" + type + u":AAAA" + end);
  }
  // Whatever the property; "b" is not the encoding of 2.1.
  EXPECT_EQ(written(*read(u"X-A;ENCODING=Base64:AAAA", 2), 2), u"X-A;ENCODING=BASE64:AAAA\r\n\r\n");
  EXPECT_EQ(written(*read(u"PHOTO;ENCODING=b:AAAA", 2), 2), u"PHOTO;ENCODING=B:AAAA\r\n");
}

TEST(ContentLineWriter, foldsTheWholeLine) {
  const auto property = VCardProperty::propertyWithName(u"NOTE", TextView(Text(195, u'x')));
  EXPECT_EQ(written(*property), u"NOTE:" + Text(70, u'x') + u"\r\n " + Text(74, u'x') + u"\r\n " +
                                    Text(51, u'x') + u"\r\n");
  Text output(100, u'y');
  DateFormatter formatter;
  property->generate(output, 3, &formatter);
  EXPECT_EQ(output, Text(100, u'y') + written(*property));
}

TEST(ContentLineWriter, handsVersionAndFormatterToTheValue) {
  const auto property = read(u"BDAY:1996-04-15");
  EXPECT_EQ(written(*property, 3), u"BDAY:1996-04-15\r\n");
  EXPECT_EQ(written(*property, 4), u"BDAY:19960415\r\n");
  EXPECT_EQ(written(*read(u"N:Doe;Jane,Joan;;;"), 4), u"N:Doe;Jane,Joan;;;\r\n");
  EXPECT_EQ(written(*read(u"CATEGORIES:a,b\\,c"), 4), u"CATEGORIES:a,b\\,c\r\n");
}

TEST(ContentLineWriter, describesAPropertyForNoVersion) {
  EXPECT_EQ(read(u"TEL;HOME:1;2", 2)->description(), u"TEL;TYPE=HOME:1;2\r\n");
}

} // namespace
} // namespace cardwright
