#include "cli/Mode.h"

#include "base/Format.h"
#include "base/NoCase.h"
#include "base/Text.h"
#include "cli/Command.h"

using namespace designspec;

QueryValue::QueryMode ParseMode(const std::string& word)
{
    static constexpr std::pair<const wchar_t*, QueryValue::QueryMode> kModes[] = {
        {L"nearest", QueryValue::Nearest}, {L"upper", QueryValue::Upper},
        {L"lower", QueryValue::Lower},     {L"interpolate", QueryValue::Interpolate},
        {L"exact", QueryValue::Exact},
    };
    for (const auto& [name, mode] : kModes)
        if (EqualNoCase(name, ToWide(word))) return mode;
    Refuse(Format(L"没有取值方式“%s”。可选: nearest upper lower interpolate exact", ToWide(word)));
}
