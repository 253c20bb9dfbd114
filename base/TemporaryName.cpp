#include "base/TemporaryName.h"

#include <charconv>
#include <random>

#include "base/Process.h"
#include "base/Text.h"

namespace designspec {

namespace {

constexpr std::wstring_view kStart = L".designspec-";
constexpr std::wstring_view kEnd = L".tmp";

} // namespace

std::wstring TemporaryName()
{
    static constexpr wchar_t kDigits[] = L"0123456789abcdefghijklmnopqrstuvwxyz";
    std::random_device random;
    std::wstring name = std::wstring(kStart) + std::to_wstring(Process::Id()) + L'-';
    for (int i = 0; i < 12; ++i)
        name.push_back(kDigits[random() % 36]);
    return name.append(kEnd);
}

bool IsTemporaryName(std::wstring_view name)
{
    return name.starts_with(kStart) && name.ends_with(kEnd);
}

bool IsBeingWritten(std::wstring_view temporaryName)
{
    const std::string rest = ToUtf8(temporaryName.substr(kStart.size()));
    int process = 0;
    const auto read = std::from_chars(rest.data(), rest.data() + rest.size(), process);
    // Those of older programs do not tell their process.
    if (read.ec != std::errc() || process <= 0 || *read.ptr != '-') return false;
    return Process::IsRunning(process);
}

} // namespace designspec
