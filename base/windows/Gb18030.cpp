#include "base/windows/Gb18030.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <unordered_map>

#include "Gb18030Table.h" // made by gb18030-table

namespace designspec {

namespace {

constexpr int kTrails = 190;               // second bytes of two
constexpr std::uint32_t kPlanes = 189'000; // where U+10000 stands among the characters of four
constexpr char32_t kLast = 0x10FFFF;

bool IsIn(unsigned char byte, unsigned char first, unsigned char last)
{
    return byte >= first && byte <= last;
}

int TakeTwo(unsigned char lead, unsigned char trail, char32_t& code)
{
    if (!IsIn(trail, 0x40, 0xFE) || trail == 0x7F) return 0;
    const int column = trail - 0x40 - (trail > 0x7F ? 1 : 0);
    code = kGb18030TwoBytes[(lead - 0x81) * kTrails + column];
    return code != 0 ? 2 : 0;
}

// The character of four bytes at that place in their order; 0 when there is none.
char32_t FourAt(std::uint32_t place)
{
    if (place >= kPlanes) return place - kPlanes + 0x10000 <= kLast ? place - kPlanes + 0x10000 : 0;
    const auto* const range =
        std::upper_bound(std::begin(kGb18030FourBytes), std::end(kGb18030FourBytes), place,
                         [](std::uint32_t at, const auto& one) { return at < one.place; }) -
        1;
    return place - range->place < range->count ? range->code + (place - range->place) : 0;
}

int TakeFour(std::string_view bytes, char32_t& code)
{
    const auto at = [&](size_t i) { return static_cast<unsigned char>(bytes[i]); };
    if (bytes.size() > 2 && !IsIn(at(2), 0x81, 0xFE)) return 0;
    if (bytes.size() > 3 && !IsIn(at(3), 0x30, 0x39)) return 0;
    if (bytes.size() < 4) return -1;
    const int place =
        (((at(0) - 0x81) * 10 + (at(1) - 0x30)) * 126 + (at(2) - 0x81)) * 10 + (at(3) - 0x30);
    code = FourAt(static_cast<std::uint32_t>(place));
    return code != 0 ? 4 : 0;
}

void AppendFour(std::uint32_t place, std::string& bytes)
{
    const char four[] = {
        static_cast<char>(0x81 + place / 12600), static_cast<char>(0x30 + place / 1260 % 10),
        static_cast<char>(0x81 + place / 10 % 126), static_cast<char>(0x30 + place % 10)};
    bytes.append(four, sizeof four);
}

// Where each character of two bytes stands in the table.
const std::unordered_map<char32_t, int>& Places()
{
    static const std::unordered_map<char32_t, int> places = [] {
        std::unordered_map<char32_t, int> made;
        for (int i = 0; i < static_cast<int>(std::size(kGb18030TwoBytes)); ++i)
            if (kGb18030TwoBytes[i] != 0) made.emplace(kGb18030TwoBytes[i], i);
        return made;
    }();
    return places;
}

} // namespace

int TakeGb18030(std::string_view bytes, char32_t& code)
{
    if (bytes.empty()) return -1;
    const auto lead = static_cast<unsigned char>(bytes[0]);
    if (lead < 0x80) return code = lead, 1;
    if (!IsIn(lead, 0x81, 0xFE)) return 0;
    if (bytes.size() == 1) return -1;
    const auto second = static_cast<unsigned char>(bytes[1]);
    return IsIn(second, 0x30, 0x39) ? TakeFour(bytes, code) : TakeTwo(lead, second, code);
}

bool AppendGb18030(char32_t code, std::string& bytes)
{
    if (code < 0x80) return bytes.push_back(static_cast<char>(code)), true;
    if (const auto found = Places().find(code); found != Places().end()) {
        const int trail = found->second % kTrails + 0x40;
        bytes.push_back(static_cast<char>(found->second / kTrails + 0x81));
        bytes.push_back(static_cast<char>(trail >= 0x7F ? trail + 1 : trail));
        return true;
    }
    if (code >= 0x10000 && code <= kLast) return AppendFour(code - 0x10000 + kPlanes, bytes), true;
    for (const auto& range : kGb18030FourBytes) {
        if (code < range.code || code - range.code >= range.count) continue;
        AppendFour(range.place + (code - range.code), bytes);
        return true;
    }
    return false;
}

} // namespace designspec
