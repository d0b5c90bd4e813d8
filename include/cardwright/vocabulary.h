#pragma once

#include "cardwright/text.h"

#include <string_view>

namespace cardwright {

/// @name Which names belong to which vCard version
/// Names compare without regard to case; a name that no table knows, such as an extension, counts
/// as supported in every version. All may be called from any thread.
/// @{

/// Builds the tables. They are made by the compiler; calling this is never necessary.
[[gnu::visibility("default")]] void initialize();

/// Whether a version has the property.
[[nodiscard]] [[gnu::visibility("default")]] bool
propertyIsSupportedForVersion(TextView name, VersionCode version);
/// Whether a version has the parameter.
[[nodiscard]] [[gnu::visibility("default")]] bool
parameterIsSupportedForVersion(TextView name, VersionCode version);
/// Whether a version has the value of the TYPE parameter.
[[nodiscard]] [[gnu::visibility("default")]] bool typeIsSupportedForVersion(TextView name,
                                                                            VersionCode version);
/// Whether a version has the value of the ENCODING parameter.
[[nodiscard]] [[gnu::visibility("default")]] bool
encodingIsSupportedForVersion(TextView name, VersionCode version);
/// Whether a version has the value of the VALUE parameter.
[[nodiscard]] [[gnu::visibility("default")]] bool valueIsSupportedForVersion(TextView name,
                                                                             VersionCode version);

/// @}

/// @name Card framing and media type
/// @{

/// A text that frames a card, or the media type of cards.
inline constexpr TextView cVCardMIMEType = u"text/vcard";
inline constexpr TextView cVCardComponent_BEGINVCARD = u"BEGIN:VCARD";
inline constexpr TextView cVCardComponent_ENDVCARD = u"END:VCARD";
/// @}

/// @name Property names
/// @{

/// The name of a property.
inline constexpr TextView cVCardProperty_ADR = u"ADR";
inline constexpr TextView cVCardProperty_AGENT = u"AGENT";
inline constexpr TextView cVCardProperty_ANNIVERSARY = u"ANNIVERSARY";
inline constexpr TextView cVCardProperty_BIRTHPLACE = u"BIRTHPLACE";
inline constexpr TextView cVCardProperty_BDAY = u"BDAY";
inline constexpr TextView cVCardProperty_CALADRURI = u"CALADRURI";
inline constexpr TextView cVCardProperty_CALURI = u"CALURI";
inline constexpr TextView cVCardProperty_CATEGORIES = u"CATEGORIES";
inline constexpr TextView cVCardProperty_CLASS = u"CLASS";
inline constexpr TextView cVCardProperty_CLIENT_PID_MAP = u"CLIENTPIDMAP";
inline constexpr TextView cVCardProperty_DEATHDATE = u"DEATHDATE";
inline constexpr TextView cVCardProperty_DEATHPLACE = u"DEATHPLACE";
inline constexpr TextView cVCardProperty_EMAIL = u"EMAIL";
inline constexpr TextView cVCardProperty_EXPERTISE = u"EXPERTISE";
inline constexpr TextView cVCardProperty_FBURL = u"FBURL";
inline constexpr TextView cVCardProperty_FN = u"FN";
inline constexpr TextView cVCardProperty_GENDER = u"GENDER";
inline constexpr TextView cVCardProperty_GEO = u"GEO";
inline constexpr TextView cVCardProperty_HOBBY = u"HOBBY";
inline constexpr TextView cVCardProperty_INTEREST = u"INTEREST";
inline constexpr TextView cVCardProperty_IMPP = u"IMPP";
inline constexpr TextView cVCardProperty_KEY = u"KEY";
inline constexpr TextView cVCardProperty_KIND = u"KIND";
inline constexpr TextView cVCardProperty_LABEL = u"LABEL";
inline constexpr TextView cVCardProperty_LANG = u"LANG";
inline constexpr TextView cVCardProperty_LOGO = u"LOGO";
inline constexpr TextView cVCardProperty_MAILER = u"MAILER";
inline constexpr TextView cVCardProperty_MEMBER = u"MEMBER";
inline constexpr TextView cVCardProperty_N = u"N";
inline constexpr TextView cVCardProperty_NAME = u"NAME";
inline constexpr TextView cVCardProperty_NICKNAME = u"NICKNAME";
inline constexpr TextView cVCardProperty_NOTE = u"NOTE";
inline constexpr TextView cVCardProperty_ORG = u"ORG";
inline constexpr TextView cVCardProperty_ORG_DIRECTORY = u"ORG-DIRECTORY";
inline constexpr TextView cVCardProperty_PHOTO = u"PHOTO";
inline constexpr TextView cVCardProperty_PRODID = u"PRODID";
inline constexpr TextView cVCardProperty_PROFILE = u"PROFILE";
inline constexpr TextView cVCardProperty_RELATED = u"RELATED";
inline constexpr TextView cVCardProperty_REV = u"REV";
inline constexpr TextView cVCardProperty_ROLE = u"ROLE";
inline constexpr TextView cVCardProperty_SORT_STRING = u"SORT-STRING";
inline constexpr TextView cVCardProperty_SOUND = u"SOUND";
inline constexpr TextView cVCardProperty_SOURCE = u"SOURCE";
inline constexpr TextView cVCardProperty_TEL = u"TEL";
inline constexpr TextView cVCardProperty_TITLE = u"TITLE";
inline constexpr TextView cVCardProperty_TZ = u"TZ";
inline constexpr TextView cVCardProperty_UID = u"UID";
inline constexpr TextView cVCardProperty_URL = u"URL";
inline constexpr TextView cVCardProperty_VERSION = u"VERSION";
/// @}

/// @name Further property names: XML of version 4.0, and extensions
/// @{

/// The name of a further property.
inline constexpr TextView cVCardProperty_XML = u"XML";
inline constexpr TextView cVCardProperty_X_ABADR = u"X-ABADR";
inline constexpr TextView cVCardProperty_X_ABUID = u"X-ABUID";
inline constexpr TextView cVCardProperty_X_ABLabel = u"X-ABLabel";
inline constexpr TextView cVCardProperty_X_ABRelatedNames = u"X-ABRELATEDNAMES";
inline constexpr TextView cVCardProperty_X_ABShowAs = u"X-ABShowAs";
inline constexpr TextView cVCardProperty_X_ABDate = u"X-ABDate";
inline constexpr TextView cVCardProperty_X_ABOrder = u"X-ABOrder";
inline constexpr TextView cVCardProperty_X_MS_CARDPICTURE = u"X-MS-CARDPICTURE";
inline constexpr TextView cVCardProperty_X_ANNIVERSARY = u"X-ANNIVERSARY";
inline constexpr TextView cVCardProperty_X_ASSISTANT = u"X-ASSISTANT";
inline constexpr TextView cVCardProperty_X_MANAGER = u"X-MANAGER";
inline constexpr TextView cVCardProperty_X_SPOUSE = u"X-SPOUSE";
inline constexpr TextView cVCardProperty_X_CHILD = u"X-CHILD";
inline constexpr TextView cVCardProperty_X_GENDER = u"X-GENDER";
inline constexpr TextView cVCardProperty_X_MAIDENNAME = u"X-MAIDENNAME";
inline constexpr TextView cVCardProperty_X_SOCIALPROFILE = u"X-SOCIALPROFILE";
inline constexpr TextView cVCardProperty_X_CUSTOM = u"X-CUSTOM";
inline constexpr TextView cVCardProperty_X_CUSTOMDATE = u"X-CUSTOMDATE";
inline constexpr TextView cVCardProperty_X_INTERESTS = u"X-INTERESTS";
inline constexpr TextView cVCardProperty_X_CREATED = u"X-CREATED";
inline constexpr TextView cVCardProperty_X_PHONETIC_FIRST_NAME = u"X-PHONETIC-FIRST-NAME";
inline constexpr TextView cVCardProperty_X_PHONETIC_LAST_NAME = u"X-PHONETIC-LAST-NAME";
inline constexpr TextView cVCardProperty_X_PHONETIC_MIDDLE_NAME = u"X-PHONETIC-MIDDLE-NAME";
inline constexpr TextView cVCardProperty_X_AIM = u"X-AIM";
inline constexpr TextView cVCardProperty_X_MSN = u"X-MSN";
inline constexpr TextView cVCardProperty_X_ICQ = u"X-ICQ";
inline constexpr TextView cVCardProperty_X_YAHOO = u"X-YAHOO";
inline constexpr TextView cVCardProperty_X_GTALK = u"X-GTALK";
inline constexpr TextView cVCardProperty_X_GOOGLE_TALK = u"X-GOOGLE-TALK";
inline constexpr TextView cVCardProperty_X_SKYPE = u"X-SKYPE";
inline constexpr TextView cVCardProperty_X_SKYPE_USERNAME = u"X-SKYPE-USERNAME";
inline constexpr TextView cVCardProperty_X_SKYPE_GENDER = u"X-SKYPE-SEX";
inline constexpr TextView cVCardProperty_X_QQ = u"X-QQ";
inline constexpr TextView cVCardProperty_X_JABBER = u"X-JABBER";
inline constexpr TextView cVCardProperty_X_TWITTER = u"X-TWITTER";
inline constexpr TextView cVCardProperty_X_GADUGADU = u"X-GADUGADU";
inline constexpr TextView cVCardProperty_X_WAB_GENDER = u"X-WAB-GENDER";
inline constexpr TextView cVCardProperty_X_RELATIONSHIP_STATUS = u"X-RELATIONSHIP-STATUS";
inline constexpr TextView cVCardProperty_X_QUILLAN_MODIFIED_BY = u"X-QUILLAN-MODIFIED-BY";
inline constexpr TextView cVCardProperty_X_QUILLAN_NOTES = u"X-QUILLAN-NOTES";
inline constexpr TextView cVCardProperty_X_QUILLAN_ATTACH = u"X-QUILLAN-ATTACH";
inline constexpr TextView cVCardProperty_X_QUILLAN_LOCAL_LINK_ID = u"X-QUILLAN-LOCAL-LINK-ID";
inline constexpr TextView cVCardProperty_X_QUILLAN_LOCAL_NOTES = u"X-QUILLAN-LOCAL-NOTES";
inline constexpr TextView cVCardProperty_X_QUILLAN_PRIVATE_NOTES = u"X-QUILLAN-PRIVATE-NOTES";
inline constexpr TextView cVCardProperty_X_QUILLAN_LOCAL_CATEGORIES = u"X-QUILLAN-LOCAL-CATEGORIES";
inline constexpr TextView cVCardProperty_X_QUILLAN_LOCAL_SHOW_DATES = u"X-QUILLAN-LOCAL-SHOW-DATES";
inline constexpr TextView cVCardProperty_X_ADDRESSBOOKSERVER_KIND = u"X-ADDRESSBOOKSERVER-KIND";
inline constexpr TextView cVCardProperty_X_ADDRESSBOOKSERVER_MEMBER = u"X-ADDRESSBOOKSERVER-MEMBER";
inline constexpr TextView cVCardProperty_X_BIRTHPLACE = u"X-BIRTHPLACE";
inline constexpr TextView cVCardProperty_X_DEATHPLACE = u"X-DEATHPLACE";
inline constexpr TextView cVCardProperty_X_EXPERTISE = u"X-EXPERTISE";
inline constexpr TextView cVCardProperty_X_HOBBY = u"X-HOBBY";
inline constexpr TextView cVCardProperty_X_LANG = u"X-LANG";
/// @}

/// @name Parameter names
/// @{

/// The name of a parameter.
inline constexpr TextView cVCardParameter_ALTID = u"ALTID";
inline constexpr TextView cVCardParameter_CALSCALE = u"CALSCALE";
inline constexpr TextView cVCardParameter_GEO = u"GEO";
inline constexpr TextView cVCardParameter_LABEL = u"LABEL";
inline constexpr TextView cVCardParameter_LANGUAGE = u"LANGUAGE";
inline constexpr TextView cVCardParameter_MEDIATYPE = u"MEDIATYPE";
inline constexpr TextView cVCardParameter_PID = u"PID";
inline constexpr TextView cVCardParameter_PREF = u"PREF";
inline constexpr TextView cVCardParameter_SORT_AS = u"SORT-AS";
inline constexpr TextView cVCardParameter_TZ = u"TZ";
inline constexpr TextView cVCardParameter_VALUE = u"VALUE";
inline constexpr TextView cVCardParameter_ENCODING = u"ENCODING";
inline constexpr TextView cVCardParameter_CONTEXT = u"CONTEXT";
inline constexpr TextView cVCardParameter_CHARSET = u"CHARSET";
inline constexpr TextView cVCardParameter_LEVEL = u"LEVEL";
inline constexpr TextView cVCardParameter_INDEX = u"INDEX";
inline constexpr TextView cVCardParameter_CALSCALE_GREGORIAN = u"gregorian";
inline constexpr TextView cVCardParameter_DATE_OMIT_YEAR = u"X-APPLE-OMIT-YEAR";
inline constexpr TextView cVCardParameter_SOCIAL_USER = u"X-USER";
inline constexpr TextView cVCardParameter_SOCIAL_USERID = u"X-USERID";
inline constexpr TextView cVCardParameter_SOCIAL_DISPLAY_NAME = u"X-DISPLAYNAME";
inline constexpr TextView cVCardParameter_SERVICE_TYPE = u"X-SERVICE-TYPE";
inline constexpr TextView cVCardParameter_PHOTO_ABCropRectangle = u"X-ABCROP-RECTANGLE";
inline constexpr TextView cVCardParameter_ATTACH_FILENAME = u"X-FILENAME";
/// @}

/// @name TYPE values (general, e-mail, key, address) and the TYPE name itself
/// @{

/// A value of TYPE, or its name.
inline constexpr TextView cVCardParameter_TYPE = u"TYPE";
inline constexpr TextView cVCardParameter_TYPE_PREF = u"pref";
inline constexpr TextView cVCardParameter_TYPE_HOME = u"home";
inline constexpr TextView cVCardParameter_TYPE_WORK = u"work";
inline constexpr TextView cVCardParameter_TYPE_EMAIL_INTERNET = u"internet";
inline constexpr TextView cVCardParameter_TYPE_EMAIL_X400 = u"X400";
inline constexpr TextView cVCardParameter_TYPE_KEY_X509 = u"X509";
inline constexpr TextView cVCardParameter_TYPE_KEY_PGP = u"pgp";
inline constexpr TextView cVCardParameter_TYPE_ADR_DOM = u"dom";
inline constexpr TextView cVCardParameter_TYPE_ADR_INTL = u"intl";
inline constexpr TextView cVCardParameter_TYPE_ADR_POSTAL = u"postal";
inline constexpr TextView cVCardParameter_TYPE_ADR_PARCEL = u"parcel";
inline constexpr TextView cVCardParameter_TYPE_IMPP_PERSONAL = u"personal";
inline constexpr TextView cVCardParameter_TYPE_IMPP_BUSINESS = u"business";
inline constexpr TextView cVCardParameter_TYPE_IMPP_MOBILE = u"mobile";
inline constexpr TextView cVCardParameter_TYPE_OTHER = u"other";
/// @}

/// @name Encodings
/// @{

/// A value of ENCODING.
inline constexpr TextView cVCardParameter_ENCODING_B = u"b";
inline constexpr TextView cVCardParameter_ENCODING_QUOTED_PRINTABLE = u"quoted-printable";
inline constexpr TextView cVCardParameter_ENCODING_BASE64 = u"base64";
inline constexpr TextView cVCardParameter_ENCODING_8BIT = u"8bit";
/// @}

/// @name TYPE values for telephone numbers
/// @{

/// A value of TYPE for telephone numbers.
inline constexpr TextView cVCardParameter_TYPE_TEL_TEXT = u"text";
inline constexpr TextView cVCardParameter_TYPE_TEL_VOICE = u"voice";
inline constexpr TextView cVCardParameter_TYPE_TEL_FAX = u"fax";
inline constexpr TextView cVCardParameter_TYPE_TEL_CELL = u"cell";
inline constexpr TextView cVCardParameter_TYPE_TEL_VIDEO = u"video";
inline constexpr TextView cVCardParameter_TYPE_TEL_PAGER = u"pager";
inline constexpr TextView cVCardParameter_TYPE_TEL_TEXTPHONE = u"textphone";
inline constexpr TextView cVCardParameter_TYPE_TEL_MSG = u"msg";
inline constexpr TextView cVCardParameter_TYPE_TEL_BBS = u"bbs";
inline constexpr TextView cVCardParameter_TYPE_TEL_MODEM = u"modem";
inline constexpr TextView cVCardParameter_TYPE_TEL_CAR = u"car";
inline constexpr TextView cVCardParameter_TYPE_TEL_ISDN = u"isdn";
inline constexpr TextView cVCardParameter_TYPE_TEL_PCS = u"pcs";
inline constexpr TextView cVCardParameter_TYPE_TEL_ASSISTANT = u"assistant-phone";
inline constexpr TextView cVCardParameter_TYPE_TEL_CALLBACK = u"callback";
inline constexpr TextView cVCardParameter_TYPE_TEL_LINE2 = u"line2";
inline constexpr TextView cVCardParameter_TYPE_TEL_IPHONE = u"iPhone";
inline constexpr TextView cVCardParameter_TYPE_TEL_MAIN = u"main";
/// @}

/// @name TYPE values for relations
/// @{

/// A value of TYPE for relations.
inline constexpr TextView cVCardParameter_TYPE_RELATED_CONTACT = u"contact";
inline constexpr TextView cVCardParameter_TYPE_RELATED_ACQUAINTANCE = u"acquaintance";
inline constexpr TextView cVCardParameter_TYPE_RELATED_FRIEND = u"friend";
inline constexpr TextView cVCardParameter_TYPE_RELATED_MET = u"met";
inline constexpr TextView cVCardParameter_TYPE_RELATED_COWORKER = u"co-worker";
inline constexpr TextView cVCardParameter_TYPE_RELATED_COLLEAGUE = u"colleague";
inline constexpr TextView cVCardParameter_TYPE_RELATED_CORESIDENT = u"co-resident";
inline constexpr TextView cVCardParameter_TYPE_RELATED_NEIGHBOR = u"neighbor";
inline constexpr TextView cVCardParameter_TYPE_RELATED_CHILD = u"child";
inline constexpr TextView cVCardParameter_TYPE_RELATED_PARENT = u"parent";
inline constexpr TextView cVCardParameter_TYPE_RELATED_SIBLING = u"sibling";
inline constexpr TextView cVCardParameter_TYPE_RELATED_SPOUSE = u"spouse";
inline constexpr TextView cVCardParameter_TYPE_RELATED_KIN = u"kin";
inline constexpr TextView cVCardParameter_TYPE_RELATED_MUSE = u"muse";
inline constexpr TextView cVCardParameter_TYPE_RELATED_CRUSH = u"crush";
inline constexpr TextView cVCardParameter_TYPE_RELATED_DATE = u"date";
inline constexpr TextView cVCardParameter_TYPE_RELATED_SWEETHEART = u"sweetheart";
inline constexpr TextView cVCardParameter_TYPE_RELATED_ME = u"me";
inline constexpr TextView cVCardParameter_TYPE_RELATED_AGENT = u"agent";
inline constexpr TextView cVCardParameter_TYPE_RELATED_EMERGENCY = u"emergency";
inline constexpr TextView cVCardParameter_TYPE_RELATED_FATHERINLAW = u"father-in-law";
inline constexpr TextView cVCardParameter_TYPE_RELATED_MOTHERINLAW = u"mother-in-law";
inline constexpr TextView cVCardParameter_TYPE_RELATED_SONINLAW = u"son-in-law";
inline constexpr TextView cVCardParameter_TYPE_RELATED_DAUGHTERINLAW = u"daughter-in-law";
inline constexpr TextView cVCardParameter_TYPE_RELATED_BROTHERINLAW = u"brother-in-law";
inline constexpr TextView cVCardParameter_TYPE_RELATED_SISTERINLAW = u"sister-in-law";
inline constexpr TextView cVCardParameter_TYPE_RELATED_NEPHEW = u"nephew";
inline constexpr TextView cVCardParameter_TYPE_RELATED_NIECE = u"niece";
inline constexpr TextView cVCardParameter_TYPE_RELATED_COUSIN = u"cousin";
inline constexpr TextView cVCardParameter_TYPE_RELATED_GRAND_PARENT = u"grandparent";
inline constexpr TextView cVCardParameter_TYPE_RELATED_GRAND_FATHER = u"grandfather";
inline constexpr TextView cVCardParameter_TYPE_RELATED_GRAND_MOTHER = u"grandmother";
inline constexpr TextView cVCardParameter_TYPE_RELATED_GRAND_SON = u"grandson";
inline constexpr TextView cVCardParameter_TYPE_RELATED_GRAND_DAUGTHER = u"granddaugther";
inline constexpr TextView cVCardParameter_TYPE_RELATED_GRAND_CHILD = u"grandchild";
inline constexpr TextView cVCardParameter_TYPE_RELATED_UNCLE = u"uncle";
inline constexpr TextView cVCardParameter_TYPE_RELATED_AUNT = u"aunt";
inline constexpr TextView cVCardParameter_TYPE_RELATED_FAMILY = u"family";
inline constexpr TextView cVCardParameter_TYPE_RELATED_MOTHER = u"mother";
inline constexpr TextView cVCardParameter_TYPE_RELATED_FATHER = u"father";
inline constexpr TextView cVCardParameter_TYPE_RELATED_BROTHER = u"brother";
inline constexpr TextView cVCardParameter_TYPE_RELATED_SISTER = u"sister";
inline constexpr TextView cVCardParameter_TYPE_RELATED_SON = u"son";
inline constexpr TextView cVCardParameter_TYPE_RELATED_DAUGHTER = u"daughter";
inline constexpr TextView cVCardParameter_TYPE_RELATED_PARTNER = u"partner";
inline constexpr TextView cVCardParameter_TYPE_RELATED_ASSISTANT = u"assistant";
inline constexpr TextView cVCardParameter_TYPE_RELATED_MANAGER = u"manager";
inline constexpr TextView cVCardParameter_TYPE_RELATED_SIGNIFICANT_OTHER = u"significant-other";
/// @}

/// @name Value types and other value words
/// @{

/// The name of a value type, or another word in values.
inline constexpr TextView cVCardValue_TEXT = u"text";
inline constexpr TextView cVCardValue_URI = u"uri";
inline constexpr TextView cVCardValue_DATE = u"date";
inline constexpr TextView cVCardValue_TIME = u"time";
inline constexpr TextView cVCardValue_DATE_TIME = u"date-time";
inline constexpr TextView cVCardValue_DATE_AND_OR_TIME = u"date-and-or-time";
inline constexpr TextView cVCardValue_TIMESTAMP = u"timestamp";
inline constexpr TextView cVCardValue_BOOLEAN = u"boolean";
inline constexpr TextView cVCardValue_INTEGER = u"integer";
inline constexpr TextView cVCardValue_FLOAT = u"float";
inline constexpr TextView cVCardValue_UTC_OFFSET = u"utc-offset";
inline constexpr TextView cVCardValue_LANGUAGE_TAG = u"language-tag";
inline constexpr TextView cVCardValue_INLINE = u"INLINE";
inline constexpr TextView cVCardValue_URL = u"URL";
inline constexpr TextView cVCardValue_CONTENT_ID = u"CONTENT-ID";
inline constexpr TextView cVCardValue_CID = u"CID";
inline constexpr TextView cVCardValue_BINARY = u"BINARY";
inline constexpr TextView cVCardValue_BOOLEAN_TRUE = u"TRUE";
inline constexpr TextView cVCardValue_BOOLEAN_FALSE = u"FALSE";
inline constexpr TextView cVCardValue_PROFILE_VCARD = u"VCARD";
inline constexpr TextView cVCardValue_Address = u"Address";
inline constexpr TextView cVCardValue_N = u"N";
inline constexpr TextView cVCardValue_Gender = u"Gender";
inline constexpr TextView cVCardValue_Org = u"Org";
inline constexpr TextView cVCardValue_Geo3_0 = u"Geo3.0";
inline constexpr TextView cVCardValue_Custom = u"Custom";
/// @}

/// @name CLASS values
/// @{

/// A value of CLASS.
inline constexpr TextView cVCardValue_CLASS_PUBLIC = u"PUBLIC";
inline constexpr TextView cVCardValue_CLASS_PRIVATE = u"PRIVATE";
inline constexpr TextView cVCardValue_CLASS_CONFIDENTIAL = u"CONFIDENTIAL";
/// @}

/// @name Gender sex values
/// @{

/// A sex in GENDER.
inline constexpr TextView cVCardValue_GENDER_MALE = u"M";
inline constexpr TextView cVCardValue_GENDER_FEMALE = u"F";
inline constexpr TextView cVCardValue_GENDER_OTHER = u"O";
inline constexpr TextView cVCardValue_GENDER_NONE = u"N";
inline constexpr TextView cVCardValue_GENDER_UNKNOWN = u"U";
/// @}

/// @name KIND values
/// @{

/// A value of KIND.
inline constexpr TextView cVCardValue_KIND_INDIVIDUAL = u"individual";
inline constexpr TextView cVCardValue_KIND_GROUP = u"group";
inline constexpr TextView cVCardValue_KIND_ORG = u"org";
inline constexpr TextView cVCardValue_KIND_LOCATION = u"location";
inline constexpr TextView cVCardValue_KIND_DEVICE = u"device";
inline constexpr TextView cVCardValue_KIND_APPLICATION = u"application";
/// @}

/// @name TYPE values for social profiles
/// @{

/// A value of TYPE for social profiles.
inline constexpr TextView cVCardParameter_TYPE_SOCIAL_FACEBOOK = u"facebook";
inline constexpr TextView cVCardParameter_TYPE_SOCIAL_GOOGLEPLUS = u"google+";
inline constexpr TextView cVCardParameter_TYPE_SOCIAL_TWITTER = u"twitter";
inline constexpr TextView cVCardParameter_TYPE_SOCIAL_FLICKR = u"flickr";
inline constexpr TextView cVCardParameter_TYPE_SOCIAL_LINKEDIN = u"linkedin";
inline constexpr TextView cVCardParameter_TYPE_SOCIAL_MYSPACE = u"myspace";
inline constexpr TextView cVCardParameter_TYPE_SOCIAL_SINAWEIBO = u"sinaweibo";
inline constexpr TextView cVCardParameter_TYPE_SOCIAL_TENCENTWEIBO = u"tencentweibo";
inline constexpr TextView cVCardParameter_TYPE_SOCIAL_GAMECENTER = u"gamecenter";
inline constexpr TextView cVCardParameter_TYPE_SOCIAL_YOUTUBE = u"YouTube";
inline constexpr TextView cVCardParameter_TYPE_SOCIAL_XING = u"Xing";
inline constexpr TextView cVCardParameter_TYPE_SOCIAL_YELP = u"Yelp";
inline constexpr TextView cVCardParameter_TYPE_SOCIAL_INSTAGRAM = u"Instagram";
inline constexpr TextView cVCardParameter_TYPE_SOCIAL_MASTODON = u"Mastodon";
inline constexpr TextView cVCardParameter_TYPE_SOCIAL_BLUESKY = u"Bluesky";
inline constexpr TextView cVCardParameter_TYPE_SOCIAL_GITHUB = u"Github";
inline constexpr TextView cVCardParameter_TYPE_SOCIAL_DRIBBBLE = u"Dribbble";
inline constexpr TextView cVCardParameter_TYPE_SOCIAL_TIKTOK = u"Tiktok";
inline constexpr TextView cVCardParameter_TYPE_SOCIAL_THREADS = u"Threads";
inline constexpr TextView cVCardParameter_TYPE_SOCIAL_REDDIT = u"Reddit";
inline constexpr TextView cVCardParameter_TYPE_SOCIAL_PINTEREST = u"Pinterest";
inline constexpr TextView cVCardParameter_TYPE_SOCIAL_LINKEDIN_FEED = u"LinkedInFeed";
/// @}

/// @name Messaging service names
/// @{

/// The name of a messaging service.
inline constexpr TextView cVCardParameter_IMPP_SERVICE_FACEBOOK = u"Facebook";
inline constexpr TextView cVCardParameter_IMPP_SERVICE_AIM = u"AIM";
inline constexpr TextView cVCardParameter_IMPP_SERVICE_GADUGADU = u"GaduGadu";
inline constexpr TextView cVCardParameter_IMPP_SERVICE_GOOGLETALK = u"GoogleTalk";
inline constexpr TextView cVCardParameter_IMPP_SERVICE_ICQ = u"ICQ";
inline constexpr TextView cVCardParameter_IMPP_SERVICE_JABBER = u"Jabber";
inline constexpr TextView cVCardParameter_IMPP_SERVICE_MSN = u"MSN";
inline constexpr TextView cVCardParameter_IMPP_SERVICE_QQ = u"QQ";
inline constexpr TextView cVCardParameter_IMPP_SERVICE_SKYPE = u"Skype";
inline constexpr TextView cVCardParameter_IMPP_SERVICE_YAHOO = u"Yahoo";
inline constexpr TextView cVCardParameter_IMPP_SERVICE_WHATSAPP = u"WhatsApp";
inline constexpr TextView cVCardParameter_IMPP_SERVICE_TIKTOK = u"TikTok";
/// @}

/// @name Values of extension properties
/// @{

/// A value of an extension property.
inline constexpr TextView cVCardValue_X_ABShowAs_COMPANY = u"COMPANY";
inline constexpr TextView cVCardValue_X_ABOrder_LAST = u"LAST";
inline constexpr TextView cVCardValue_X_GENDER_FEMALE = u"Female";
inline constexpr TextView cVCardValue_X_GENDER_MALE = u"Male";
inline constexpr TextView cVCardValue_X_WAB_GENDER_UNKNOWN = u"0";
inline constexpr TextView cVCardValue_X_WAB_GENDER_FEMALE = u"1";
inline constexpr TextView cVCardValue_X_WAB_GENDER_MALE = u"2";
/// @}

/// @name Address-book label values
/// @{

/// A label of address books.
inline constexpr TextView cVCardValue_ABLABEL_HOME = u"_$!<Home>!$_";
inline constexpr TextView cVCardValue_ABLABEL_WORK = u"_$!<Work>!$_";
inline constexpr TextView cVCardValue_ABLABEL_OTHER = u"_$!<Other>!$_";
inline constexpr TextView cVCardValue_ABLABEL_MOBILE = u"_$!<Mobile>!$_";
inline constexpr TextView cVCardValue_ABLABEL_MAIN = u"_$!<Main>!$_";
inline constexpr TextView cVCardValue_ABLABEL_HOME_FAX = u"_$!<HomeFAX>!$_";
inline constexpr TextView cVCardValue_ABLABEL_WORK_FAX = u"_$!<WorkFAX>!$_";
inline constexpr TextView cVCardValue_ABLABEL_OTHER_FAX = u"_$!<OtherFAX>!$_";
inline constexpr TextView cVCardValue_ABLABEL_PAGER = u"_$!<Pager>!$_";
inline constexpr TextView cVCardValue_ABLABEL_HOME_PAGE = u"_$!<HomePage>!$_";
inline constexpr TextView cVCardValue_ABLABEL_ANNIVERSARY = u"_$!<Anniversary>!$_";
inline constexpr TextView cVCardValue_ABLABEL_FATHER = u"_$!<Father>!$_";
inline constexpr TextView cVCardValue_ABLABEL_MOTHER = u"_$!<Mother>!$_";
inline constexpr TextView cVCardValue_ABLABEL_PARENT = u"_$!<Parent>!$_";
inline constexpr TextView cVCardValue_ABLABEL_CHILD = u"_$!<Child>!$_";
inline constexpr TextView cVCardValue_ABLABEL_BROTHER = u"_$!<Brother>!$_";
inline constexpr TextView cVCardValue_ABLABEL_SISTER = u"_$!<Sister>!$_";
inline constexpr TextView cVCardValue_ABLABEL_FRIEND = u"_$!<Friend>!$_";
inline constexpr TextView cVCardValue_ABLABEL_SPOUSE = u"_$!<Spouse>!$_";
inline constexpr TextView cVCardValue_ABLABEL_SON = u"_$!<Son>!$_";
inline constexpr TextView cVCardValue_ABLABEL_DAUGHTER = u"_$!<Daughter>!$_";
inline constexpr TextView cVCardValue_ABLABEL_PARTNER = u"_$!<Partner>!$_";
inline constexpr TextView cVCardValue_ABLABEL_ASSISTANT = u"_$!<Assistant>!$_";
inline constexpr TextView cVCardValue_ABLABEL_ASSISTANT_PH = u"_$!<AssistantPhone>!$_";
inline constexpr TextView cVCardValue_ABLABEL_MANAGER = u"_$!<Manager>!$_";
inline constexpr TextView cVCardValue_ABLABEL_TEXT = u"text";
inline constexpr TextView cVCardValue_ABLABEL_VIDEO = u"video";
inline constexpr TextView cVCardValue_ABLABEL_TTY = u"tty";
inline constexpr TextView cVCardValue_ABLABEL_CAR = u"car";
inline constexpr TextView cVCardValue_ABLABEL_ASSISTANT_PHONE = u"assistant";
inline constexpr TextView cVCardValue_ABLABEL_LINE2 = u"line2";
inline constexpr TextView cVCardValue_ABLABEL_CALLBACK = u"callback";
inline constexpr TextView cVCardValue_ABLABEL_DEATH = u"death";
inline constexpr TextView cVCardValue_ABLABEL_CONTACT = u"contact";
inline constexpr TextView cVCardValue_ABLABEL_ACQUAINTANCE = u"acquaintance";
inline constexpr TextView cVCardValue_ABLABEL_MET = u"met";
inline constexpr TextView cVCardValue_ABLABEL_COWORKER = u"coworker";
inline constexpr TextView cVCardValue_ABLABEL_COLLEAGUE = u"colleague";
inline constexpr TextView cVCardValue_ABLABEL_CORESIDENT = u"coresident";
inline constexpr TextView cVCardValue_ABLABEL_NEIGHBOR = u"neighbor";
inline constexpr TextView cVCardValue_ABLABEL_SIBLING = u"sibling";
inline constexpr TextView cVCardValue_ABLABEL_KIN = u"kin";
inline constexpr TextView cVCardValue_ABLABEL_MUSE = u"muse";
inline constexpr TextView cVCardValue_ABLABEL_CRUSH = u"crush";
inline constexpr TextView cVCardValue_ABLABEL_DATE = u"date";
inline constexpr TextView cVCardValue_ABLABEL_SWEETHEART = u"sweetheart";
inline constexpr TextView cVCardValue_ABLABEL_ME = u"me";
inline constexpr TextView cVCardValue_ABLABEL_AGENT = u"agent";
inline constexpr TextView cVCardValue_ABLABEL_EMERGENCY = u"emergency";
inline constexpr TextView cVCardValue_ABLABEL_SIGNIFICANT_OTHER = u"significant-other";
inline constexpr TextView cVCardValue_ABLABEL_FATHERINLAW = u"father-in-law";
inline constexpr TextView cVCardValue_ABLABEL_MOTHERINLAW = u"mother-in-law";
inline constexpr TextView cVCardValue_ABLABEL_SONINLAW = u"son-in-law";
inline constexpr TextView cVCardValue_ABLABEL_DAUGHTERINLAW = u"daughter-in-law";
inline constexpr TextView cVCardValue_ABLABEL_BROTHERINLAW = u"brother-in-law";
inline constexpr TextView cVCardValue_ABLABEL_SISTERINLAW = u"sister-in-law";
inline constexpr TextView cVCardValue_ABLABEL_NEPHEW = u"nephew";
inline constexpr TextView cVCardValue_ABLABEL_NIECE = u"niece";
inline constexpr TextView cVCardValue_ABLABEL_COUSIN = u"cousin";
inline constexpr TextView cVCardValue_ABLABEL_GRAND_PARENT = u"grandparent";
inline constexpr TextView cVCardValue_ABLABEL_GRAND_FATHER = u"grandfather";
inline constexpr TextView cVCardValue_ABLABEL_GRAND_MOTHER = u"grandmother";
inline constexpr TextView cVCardValue_ABLABEL_GRAND_SON = u"grandson";
inline constexpr TextView cVCardValue_ABLABEL_GRAND_DAUGHTER = u"granddaughter";
inline constexpr TextView cVCardValue_ABLABEL_GRAND_CHILD = u"grandchild";
inline constexpr TextView cVCardValue_ABLABEL_UNCLE = u"uncle";
inline constexpr TextView cVCardValue_ABLABEL_AUNT = u"aunt";
inline constexpr TextView cVCardValue_ABLABEL_FAMILY = u"family";
/// @}

/// @name Address-book label values, plain English forms
/// @{

/// A label of address books in plain English.
inline constexpr TextView cVCardValue_ABLABEL_HOME_EN = u"Home";
inline constexpr TextView cVCardValue_ABLABEL_WORK_EN = u"Work";
inline constexpr TextView cVCardValue_ABLABEL_OTHER_EN = u"Other";
inline constexpr TextView cVCardValue_ABLABEL_MOBILE_EN = u"Mobile";
inline constexpr TextView cVCardValue_ABLABEL_MAIN_EN = u"Main";
inline constexpr TextView cVCardValue_ABLABEL_HOME_FAX_EN = u"HomeFAX";
inline constexpr TextView cVCardValue_ABLABEL_WORK_FAX_EN = u"WorkFAX";
inline constexpr TextView cVCardValue_ABLABEL_OTHER_FAX_EN = u"OtherFAX";
inline constexpr TextView cVCardValue_ABLABEL_PAGER_EN = u"Pager";
inline constexpr TextView cVCardValue_ABLABEL_HOME_PAGE_EN = u"HomePage";
inline constexpr TextView cVCardValue_ABLABEL_ANNIVERSARY_EN = u"Anniversary";
inline constexpr TextView cVCardValue_ABLABEL_FATHER_EN = u"Father";
inline constexpr TextView cVCardValue_ABLABEL_MOTHER_EN = u"Mother";
inline constexpr TextView cVCardValue_ABLABEL_PARENT_EN = u"Parent";
inline constexpr TextView cVCardValue_ABLABEL_CHILD_EN = u"Child";
inline constexpr TextView cVCardValue_ABLABEL_BROTHER_EN = u"Brother";
inline constexpr TextView cVCardValue_ABLABEL_SISTER_EN = u"Sister";
inline constexpr TextView cVCardValue_ABLABEL_FRIEND_EN = u"Friend";
inline constexpr TextView cVCardValue_ABLABEL_SPOUSE_EN = u"Spouse";
inline constexpr TextView cVCardValue_ABLABEL_PARTNER_EN = u"Partner";
inline constexpr TextView cVCardValue_ABLABEL_ASSISTANT_EN = u"Assistant";
inline constexpr TextView cVCardValue_ABLABEL_MANAGER_EN = u"Manager";
/// @}

/// @name Address-book label values of the exchange-server family
/// @{

/// A label of the exchange-server family.
inline constexpr TextView cVCardValue_ABLABEL_EX_ASSISTANTPHONE = u"_$!<EX-AssistantPhone>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_CARPHONE = u"_$!<EX-CarPhone>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_RADIOPHONE = u"_$!<EX-RadioPhone>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_COMPANYMAINPHONE = u"_$!<EX-CompanyMainPhone>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_CALLBACK = u"_$!<EX-Callback>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_ISDN = u"_$!<EX-Isdn>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_TELEX = u"_$!<EX-Telex>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_TTYPHONE = u"_$!<EX-TtyTddPhone>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_BUSINESSFAX = u"_$!<EX-BusinessFax>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_BUSINESSPHONE = u"_$!<EX-BusinessPhone>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_BUSINESSPHONE2 = u"_$!<EX-BusinessPhone2>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_HOMEFAX = u"_$!<EX-HomeFax>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_HOMEPHONE = u"_$!<EX-HomePhone>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_HOMEPHONE2 = u"_$!<EX-HomePhone2>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_MOBILEPHONE = u"_$!<EX-MobilePhone>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_OTHERFAX = u"_$!<EX-OtherFax>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_OTHERPHONE = u"_$!<EX-OtherTelephone>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_PAGER = u"_$!<EX-Pager>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_PRIMARYPHONE = u"_$!<EX-PrimaryPhone>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_IMADDRESS1 = u"_$!<EX-ImAddress1>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_IMADDRESS2 = u"_$!<EX-ImAddress2>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_IMADDRESS3 = u"_$!<EX-ImAddress3>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_BUSINESSHOMEPAGE = u"_$!<EX-BusinessHomePage>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_EMAILADDRESS1 = u"_$!<EX-EmailAddress1>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_EMAILADDRESS2 = u"_$!<EX-EmailAddress2>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_EMAILADDRESS3 = u"_$!<EX-EmailAddress3>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_BUSINESS = u"_$!<EX-Business>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_HOME = u"_$!<EX-Home>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_OTHER = u"_$!<EX-Other>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_ANNIVERSARY = u"_$!<EX-Anniversary>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_SPOUSENAME = u"_$!<EX-SpouseName>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_MANAGER = u"_$!<EX-Manager>!$_";
inline constexpr TextView cVCardValue_ABLABEL_EX_ASSISTANTNAME = u"_$!<EX-AssistantName>!$_";
/// @}

/// @name Relationship-status values
/// @{

/// A relationship status.
inline constexpr TextView cVCardValue_X_RELATIONSHIP_SINGLE = u"Single";
inline constexpr TextView cVCardValue_X_RELATIONSHIP_IN_A = u"InA";
inline constexpr TextView cVCardValue_X_RELATIONSHIP_ENGAGED = u"Engaged";
inline constexpr TextView cVCardValue_X_RELATIONSHIP_MARRIED = u"Married";
inline constexpr TextView cVCardValue_X_RELATIONSHIP_ITS_COMPLICATED = u"ItsComplicated";
inline constexpr TextView cVCardValue_X_RELATIONSHIP_OPEN = u"Open";
inline constexpr TextView cVCardValue_X_RELATIONSHIP_WIDOWED = u"Widowed";
inline constexpr TextView cVCardValue_X_RELATIONSHIP_SEPARATED = u"Separated";
inline constexpr TextView cVCardValue_X_RELATIONSHIP_DIVORCED = u"Divorced";
inline constexpr TextView cVCardValue_X_RELATIONSHIP_CIVIL_UNION = u"CivilUnion";
inline constexpr TextView cVCardValue_X_RELATIONSHIP_DOMESTIC_PARTNERSHIP = u"DomesticPartnership";
/// @}

} // namespace cardwright
