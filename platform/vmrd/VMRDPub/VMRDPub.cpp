#include "platform/vmrd/VMRDPub/VMRDPub.h"

#include "base/Process.h"
#include "base/Text.h"

using namespace designspec;

namespace {

CString g_projectPath;
CString g_installPath;

int HexDigit(wchar_t c)
{
    if (c >= L'0' && c <= L'9') return c - L'0';
    if (c >= L'a' && c <= L'f') return c - L'a' + 10;
    if (c >= L'A' && c <= L'F') return c - L'A' + 10;
    return -1;
}

CString WithoutEndSeparator(CString path)
{
    while (path.size() > 1 && (path.back() == L'/' || path.back() == L'\\'))
        path.pop_back();
    return path;
}

} // namespace

namespace VMRDPub {

CString GUIDToStr(const GUID& guid)
{
    static constexpr wchar_t kHex[] = L"0123456789ABCDEF";
    CString text;
    text.reserve(36);
    const auto append = [&text](std::uint32_t value, int digits) {
        for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
            text.push_back(kHex[(value >> shift) & 0xF]);
    };
    append(guid.Data1, 8);
    text.push_back(L'-');
    append(guid.Data2, 4);
    text.push_back(L'-');
    append(guid.Data3, 4);
    text.push_back(L'-');
    for (int i = 0; i < 8; ++i) {
        if (i == 2) text.push_back(L'-');
        append(guid.Data4[i], 2);
    }
    return text;
}

bool ParseGUID(std::wstring_view text, GUID& guid)
{
    const CString trimmed = Trim(text);
    std::wstring_view digits = trimmed;
    if (digits.size() == 38 && digits.front() == L'{' && digits.back() == L'}')
        digits = digits.substr(1, 36);
    if (digits.size() != 36) return false;

    std::uint8_t bytes[16] = {};
    int nibble = 0;
    for (size_t i = 0; i < digits.size(); ++i) {
        if (i == 8 || i == 13 || i == 18 || i == 23) {
            if (digits[i] != L'-') return false;
            continue;
        }
        const int value = HexDigit(digits[i]);
        if (value < 0) return false;
        bytes[nibble / 2] = static_cast<std::uint8_t>((bytes[nibble / 2] << 4) | value);
        ++nibble;
    }
    const auto word = [&bytes](int at) {
        return static_cast<std::uint16_t>((bytes[at] << 8) | bytes[at + 1]);
    };
    guid.Data1 = (static_cast<std::uint32_t>(word(0)) << 16) | word(2);
    guid.Data2 = word(4);
    guid.Data3 = word(6);
    for (int i = 0; i < 8; ++i)
        guid.Data4[i] = bytes[8 + i];
    return true;
}

GUID StrToGUID(std::wstring_view text)
{
    GUID guid;
    return ParseGUID(text, guid) ? guid : CoCreateGuid();
}

CString GetCurPrjPath()
{
    return g_projectPath.empty() ? Process::CurrentFolder() : g_projectPath;
}

void SetCurPrjPath(const CString& path)
{
    g_projectPath = WithoutEndSeparator(path);
}

CString GetInstallPath()
{
    return g_installPath.empty() ? Process::ProgramFolder() : g_installPath;
}

void SetInstallPath(const CString& path)
{
    g_installPath = WithoutEndSeparator(path);
}

} // namespace VMRDPub
