#pragma once

#include "face/conversion/table.h"

namespace cardwright {

inline constexpr Rule kProperties3To4[] = {
    {u"AGENT", Action::reencode, u"RELATED", Form::agent,
     u"a URI gets TYPE=agent; a card inside stays what it is, for cleaners leave it alone"},
    {u"BDAY", Action::reencode, u"BDAY", Form::date, u"an omitted year is no year"},
    {u"CLASS", Action::park},
    {u"GEO", Action::reencode, u"GEO", Form::position, u"a geo: URI"},
    {u"KEY", Action::reencode, u"KEY", Form::media, u"base64 becomes a data: URI"},
    {u"LABEL", Action::reencodeOrPark, u"ADR", Form::label,
     u"LABEL of the first address of the same group and types; parked where there is none"},
    {u"LOGO", Action::reencode, u"LOGO", Form::media, u"as KEY"},
    {u"MAILER", Action::park},
    {u"NAME", Action::park},
    {u"PHOTO", Action::reencode, u"PHOTO", Form::media, u"as KEY"},
    {u"PROFILE", Action::park},
    {u"SORT-STRING", Action::reencodeOrPark, u"N", Form::sortString,
     u"SORT-AS of the name; parked where there is none"},
    {u"SOUND", Action::reencode, u"SOUND", Form::media, u"as KEY"},
    {u"TEL", Action::reencode, u"TEL", Form::telephone, u"what was a tel: URI becomes one again"},
    {u"TZ", Action::reencode, u"TZ", Form::zone, u"what is no offset is a text"},
    {u"X-ADDRESSBOOKSERVER-KIND", Action::rename, u"KIND"},
    {u"X-ADDRESSBOOKSERVER-MEMBER", Action::rename, u"MEMBER"},
    {u"X-AIM", Action::reencode, u"IMPP", Form::messenger,
     u"a URI; X-FORMERLY keeps the name for the way back"},
    {u"X-ANNIVERSARY", Action::reencode, u"ANNIVERSARY", Form::date, u"as BDAY"},
    {u"X-ASSISTANT", Action::reencode, u"RELATED", Form::relation, u"text with TYPE=assistant"},
    {u"X-CHILD", Action::reencode, u"RELATED", Form::relation, u"text with TYPE=child"},
    {u"X-GADUGADU", Action::reencode, u"IMPP", Form::messenger, u"as X-AIM"},
    {u"X-GENDER", Action::reencode, u"GENDER", Form::gender,
     u"Male and Female are M and F, which stand for both on the way back; what is no gender of 4.0 "
     u"stays"},
    {u"X-GOOGLE-TALK", Action::reencode, u"IMPP", Form::messenger, u"as X-AIM"},
    {u"X-GTALK", Action::reencode, u"IMPP", Form::messenger, u"as X-AIM"},
    {u"X-ICQ", Action::reencode, u"IMPP", Form::messenger, u"as X-AIM"},
    {u"X-JABBER", Action::reencode, u"IMPP", Form::messenger, u"as X-AIM"},
    {u"X-MANAGER", Action::reencode, u"RELATED", Form::relation, u"text with TYPE=manager"},
    {u"X-MSN", Action::reencode, u"IMPP", Form::messenger, u"as X-AIM"},
    {u"X-QQ", Action::reencode, u"IMPP", Form::messenger, u"as X-AIM"},
    {u"X-SKYPE", Action::reencode, u"IMPP", Form::messenger, u"as X-AIM"},
    {u"X-SKYPE-USERNAME", Action::reencode, u"IMPP", Form::messenger, u"as X-AIM"},
    {u"X-SPOUSE", Action::reencode, u"RELATED", Form::relation, u"text with TYPE=spouse"},
    {u"X-YAHOO", Action::reencode, u"IMPP", Form::messenger, u"as X-AIM"},
};

inline constexpr Rule kParameters3To4[] = {
    {u"CHARSET", Action::drop, u"", Form::none, u"4.0 is UTF-8"},
    {u"CONTEXT", Action::park},
    {u"ENCODING", Action::park, u"", Form::none, u"but for base64 that becomes a data: URI"},
};

inline constexpr Rule kTypes3To4[] = {
    {u"bbs", Action::park},
    {u"business", Action::park},
    {u"car", Action::park},
    {u"dom", Action::park},
    {u"internet", Action::drop, u"", Form::none, u"every address is one of the internet"},
    {u"intl", Action::park},
    {u"isdn", Action::park},
    {u"mobile", Action::park},
    {u"modem", Action::park},
    {u"msg", Action::park},
    {u"parcel", Action::park},
    {u"pcs", Action::park},
    {u"personal", Action::park},
    {u"pgp", Action::park},
    {u"postal", Action::park},
    {u"pref", Action::reencode, u"PREF=1", Form::preference},
    {u"x400", Action::park},
    {u"x509", Action::park},
};

inline constexpr Rule kEncodings3To4[] = {
    {u"quoted-printable", Action::drop},
    {u"8bit", Action::drop},
    {u"7bit", Action::drop},
};

} // namespace cardwright
