#pragma once

#include "face/conversion/table.h"

namespace cardwright {

inline constexpr Rule kProperties3To2[] = {
    {u"CALADRURI", Action::park},   {u"CALURI", Action::park}, {u"CATEGORIES", Action::park},
    {u"CLASS", Action::park},       {u"IMPP", Action::park},   {u"NAME", Action::park},
    {u"NICKNAME", Action::park},    {u"PRODID", Action::park}, {u"PROFILE", Action::park},
    {u"SORT-STRING", Action::park}, {u"SOURCE", Action::park},
};

inline constexpr Rule kParameters3To2[] = {
    {u"CONTEXT", Action::park},
};

inline constexpr Rule kTypes3To2[] = {
    {u"business", Action::park},
    {u"mobile", Action::park},
    {u"personal", Action::park},
};

inline constexpr Rule kEncodings3To2[] = {
    {u"b", Action::rename, u"BASE64"},
};

} // namespace cardwright
