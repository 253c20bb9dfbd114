#include "search/PinyinInitials.h"

#include <array>
#include <memory>

#include <unicode/alphaindex.h>

namespace designspec {

namespace {

constexpr wchar_t kFirst = 0x4E00;
constexpr wchar_t kLast = 0x9FFF;
constexpr std::uint32_t kKnown = 1U << 31; // no letter

constexpr std::uint32_t Letter(int upper)
{
    return upper >= 'A' && upper <= 'Z' ? 1U << (upper - 'A') : 0;
}

// Readings beside the first one of a dictionary, of characters that roads and the names of their
// standards are written with.
std::uint32_t OtherReadings(wchar_t c)
{
    switch (c) {
    case L'长': // 坡长
    case L'重': // 重复
    case L'朝':
        return Letter('C') | Letter('Z');
    case L'调': // 调整
    case L'弹':
        return Letter('T') | Letter('D');
    case L'行': // 银行
    case L'降': // 投降
        return Letter('H') | Letter('J') | Letter('X');
    case L'都':
        return Letter('D');
    case L'厦':
        return Letter('S') | Letter('X');
    default:
        return 0;
    }
}

// The order of a dictionary, which goes by the sound, has a section for each letter. It is ready
// much sooner than a transliterator.
class Dictionary {
public:
    Dictionary()
    {
        UErrorCode error = U_ZERO_ERROR;
        icu::AlphabeticIndex sections(icu::Locale::getChinese(), error);
        if (U_SUCCESS(error)) m_sections.reset(sections.buildImmutableIndex(error));
        if (U_FAILURE(error)) m_sections.reset();
    }

    std::uint32_t Initials(wchar_t c)
    {
        std::uint32_t& initials = m_initials.at(static_cast<std::size_t>(c - kFirst));
        if (initials == 0) initials = kKnown | Section(c) | OtherReadings(c);
        return initials & ~kKnown;
    }

private:
    std::uint32_t Section(wchar_t c) const
    {
        if (!m_sections) return 0;
        UErrorCode error = U_ZERO_ERROR;
        const icu::UnicodeString text(static_cast<UChar32>(c));
        const auto* const section = m_sections->getBucket(m_sections->getBucketIndex(text, error));
        return section && U_SUCCESS(error) ? Letter(section->getLabel().charAt(0)) : 0;
    }

    std::unique_ptr<icu::AlphabeticIndex::ImmutableIndex> m_sections;
    std::array<std::uint32_t, kLast - kFirst + 1> m_initials{}; // as far as they were asked for
};

} // namespace

std::uint32_t PinyinInitials(wchar_t c)
{
    if (c < kFirst || c > kLast) return 0;
    static const auto dictionary = std::make_unique<Dictionary>();
    return dictionary->Initials(c);
}

} // namespace designspec
