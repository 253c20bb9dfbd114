// The readings of single values with any text.
#include <cmath>

#include "base/Encoding.h"
#include "base/NoCase.h"
#include "base/Number.h"
#include "base/Text.h"
#include "fuzz/Fuzz.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "platform/vmrd/VmHFCBaseU/Text.h"

using namespace designspec;

namespace {

void ReadNumbers(std::string_view text, const CString& wide)
{
    int whole = 0;
    double real = 0;
    if (ParseInt(text, whole)) Require(Wtoi(wide) == whole);
    if (ParseDouble(text, real)) {
        Require(std::isfinite(real));
        Require(Wtof(wide) == real);
        double back = 0;
        Require(ParseDouble(DoubleToText(real), back) && back == real);
    }
    if (ParseBool(text, whole)) Require(whole == 0 || whole == 1);
    Require(std::isfinite(Wtof(wide)));
    Wtoi(wide);
    // Digits with a point are a number, whoever reads them, unless they leave its range.
    if (IsNumericText(wide) && wide.size() < 300) Require(ParseDouble(text, real));
}

void ReadTexts(const CString& wide)
{
    GUID guid;
    if (VMRDPub::ParseGUID(wide, guid))
        Require(VMRDPub::StrToGUID(VMRDPub::GUIDToStr(guid)) == guid);
    Require(EqualNoCase(wide, wide));
    Require(CompareNoCase(wide, L"规范") == -CompareNoCase(L"规范", wide));
    Require(Trim(Trim(wide)) == Trim(wide));
    CString joined;
    for (const CString& part : SplitText(wide, L"/\\"))
        joined += part;
    std::erase_if(joined, [](wchar_t c) { return c == L'/' || c == L'\\'; });
    CString plain = wide;
    std::erase_if(plain, [](wchar_t c) { return c == L'/' || c == L'\\'; });
    Require(joined == plain);
}

void Decode(std::string_view bytes)
{
    for (const auto encoding : {TextEncoding::Utf8, TextEncoding::Utf16LE, TextEncoding::Utf16BE,
                                TextEncoding::Gb18030}) {
        std::string utf8;
        const bool whole = DecodeText(bytes, encoding, utf8);
        std::size_t offset = 0;
        Require(IsUtf8(utf8, offset));
        if (!whole) continue;
        std::string back;
        std::string again;
        Require(EncodeText(utf8, encoding, back) && DecodeText(back, encoding, again));
        Require(again == utf8);
    }
    std::size_t markSize = 0;
    EncodingByMark(bytes, markSize);
    TextEncoding encoding{};
    EncodingByName(bytes, encoding);
}

} // namespace

FUZZ(bytes)
{
    const CString wide = ToWide(bytes);
    Require(ToUtf8(wide) == bytes);
    ReadNumbers(bytes, wide);
    ReadTexts(wide);
    Decode(bytes);
    return 0;
}
