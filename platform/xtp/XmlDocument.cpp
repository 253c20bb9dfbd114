#include "platform/xtp/XmlDocument.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <utility>

namespace designspec {

namespace {

constexpr size_t kProblemLimit = 1000; // nobody reads more; a hostile file may hold millions

bool BeginsName(const char* at)
{
    return (at[0] == '=') | ((at[0] == '<') & (at[1] != '/'));
}

} // namespace

void XmlDocument::SetSource(std::wstring file, std::string text)
{
    m_problems.clear();
    m_file = std::move(file);
    m_source = std::move(text);
    m_place = 0;
    m_line = 1;
}

int XmlDocument::LineAt(std::ptrdiff_t offset)
{
    if (offset < 0 || m_source.empty()) return 0;
    const size_t place = std::min(static_cast<size_t>(offset), m_source.size());
    const auto [from, to] = std::minmax(place, m_place);
    const auto between =
        static_cast<int>(std::count(m_source.data() + from, m_source.data() + to, '\n'));
    m_line += place >= m_place ? between : -between;
    m_place = place;
    return m_line;
}

size_t XmlDocument::CountNames(std::ptrdiff_t begin, std::ptrdiff_t end) const
{
    if (begin < 0 || m_source.empty()) return ~size_t{0};
    const char* at = m_source.data() + begin;
    const char* const last =
        m_source.data() + static_cast<size_t>(end < 0 ? std::ssize(m_source) : end);
    constexpr std::ptrdiff_t kBlock = 128; // what one byte can count
    size_t count = 0;
    for (; last - at >= kBlock; at += kBlock) {
        std::uint8_t inBlock = 0;
        for (std::ptrdiff_t i = 0; i < kBlock; ++i)
            inBlock = static_cast<std::uint8_t>(inBlock + BeginsName(at + i));
        count += inBlock;
    }
    for (; at < last; ++at)
        count += BeginsName(at);
    return count;
}

void XmlDocument::AddProblem(std::ptrdiff_t offset, const std::wstring& text)
{
    if (m_problems.size() > kProblemLimit) return;
    if (m_problems.size() < kProblemLimit)
        designspec::AddProblem(m_problems, Severity::Error, m_file, LineAt(offset), text);
    else
        designspec::AddProblem(m_problems, Severity::Error, m_file, 0, L"其余的问题不再列出");
}

} // namespace designspec
