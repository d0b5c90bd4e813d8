#pragma once

#include "face/conversion/table.h"

namespace cardwright {

inline constexpr Rule kParameters2To3[] = {
    {u"CHARSET", Action::drop, u"", Form::none, u"3.0 is UTF-8"},
};

inline constexpr Rule kEncodings2To3[] = {
    {u"base64", Action::rename, u"B"},
    {u"quoted-printable", Action::drop, u"", Form::none, u"values are written decoded"},
    {u"8bit", Action::drop},
    {u"7bit", Action::drop},
};

} // namespace cardwright
