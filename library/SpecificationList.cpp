#include "library/SpecificationList.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "base/Format.h"
#include "base/Text.h"

namespace designspec {

struct SpecificationList::Entry {
    Entry(size_t itsNumber, std::unique_ptr<CDesignSpecification> itsItem)
        : number(itsNumber), item(std::move(itsItem))
    {
    }

    size_t number;
    std::unique_ptr<CDesignSpecification> item;
    // By which it is to be found.
    ByName::Node* name = nullptr;
    ByID::value_type* id = nullptr;
    Connection connection;
};

namespace {

// Entries by their number, and so in the list's order.
constexpr auto IsBefore = [](const auto& entry, size_t number) { return entry->number < number; };

std::wstring_view FoldedName(const CDesignSpecification& specification)
{
    return specification.NameKey().Folded();
}

CString Numbered(const CString& name, int number)
{
    return Format(L"%s(%d)", name, number);
}

} // namespace

void SpecificationList::Entries::Insert(Entry& entry)
{
    m_all.insert(std::lower_bound(m_all.begin(), m_all.end(), entry.number, IsBefore), &entry);
    m_first = m_all.front()->item.get();
}

void SpecificationList::Entries::Erase(const Entry& entry)
{
    m_all.erase(std::lower_bound(m_all.begin(), m_all.end(), entry.number, IsBefore));
    m_first = m_all.empty() ? nullptr : m_all.front()->item.get();
}

namespace {

// Those that there are, if there are any.
template <class Entries> const Entries& OrNone(const Entries* found)
{
    static const Entries none;
    return found ? *found : none;
}

} // namespace

const SpecificationList::Entries& SpecificationList::Called(const NoCaseText& name) const
{
    const ByName::Node* const found = m_byName.Find(name);
    return OrNone(found ? &found->value : nullptr);
}

const SpecificationList::Entries& SpecificationList::Called(const GUID& id) const
{
    const auto found = m_byID.find(id);
    return OrNone(found == m_byID.end() ? nullptr : &found->second);
}

SpecificationList::SpecificationList() = default;

SpecificationList::~SpecificationList() = default;

CDesignSpecification* SpecificationList::Item(int index) const
{
    return index >= 0 && index < Count() ? m_items[static_cast<size_t>(index)]->item.get()
                                         : nullptr;
}

CDesignSpecification* SpecificationList::Find(const GUID& id) const
{
    return Called(id).First();
}

CDesignSpecification* SpecificationList::FindLast(const GUID& id) const
{
    const Entries& found = Called(id);
    return found.IsEmpty() ? nullptr : found.All().back()->item.get();
}

namespace {

// Names of one library often begin alike.
bool IsSame(std::wstring_view a, std::wstring_view b)
{
    return a.size() == b.size() && (a.empty() || a.back() == b.back()) && a == b;
}

} // namespace

CDesignSpecification* SpecificationList::Find(const wchar_t* wanted) const
{
    const std::wstring_view name(wanted);
    // Going through a few is quicker than folding and hashing a name that stands there as it is.
    constexpr size_t kFew = 12;
    if (m_items.size() <= kFew)
        for (const auto& entry : m_items)
            if (IsSame(entry->name->Folded(), name)) return entry->item.get();
    return Called(NoCaseText(name)).First();
}

SpecificationList::Entry*
SpecificationList::EntryOf(const CDesignSpecification& specification) const
{
    for (Entry* const entry : Called(specification.ID()).All())
        if (entry->item.get() == &specification) return entry;
    return nullptr;
}

int SpecificationList::IndexOf(const CDesignSpecification& specification) const
{
    const Entry* const entry = EntryOf(specification);
    if (!entry) return -1;
    const auto at = std::lower_bound(m_items.begin(), m_items.end(), entry->number, IsBefore);
    return static_cast<int>(at - m_items.begin());
}

CDesignSpecification& SpecificationList::Add(std::unique_ptr<CDesignSpecification> specification)
{
    MakeNameUnique(*specification);
    Entry& entry =
        *m_items.emplace_back(std::make_unique<Entry>(m_nextNumber++, std::move(specification)));
    try {
        Enter(entry);
    } catch (...) {
        TakeOut(Count() - 1);
        throw;
    }
    return *entry.item;
}

void SpecificationList::Enter(Entry& entry)
{
    CDesignSpecification& item = *entry.item;
    auto& name = m_byName.Enter(FoldedName(item));
    auto& id = *m_byID.try_emplace(item.ID()).first;
    name.value.Insert(entry);
    entry.name = &name;
    id.second.Insert(entry);
    entry.id = &id;
    entry.connection = item.ConnectIdentity([this, &entry] { Follow(entry); });
}

std::unique_ptr<CDesignSpecification> SpecificationList::TakeOut(int index)
{
    const auto at = m_items.begin() + index;
    const std::unique_ptr<Entry> entry = std::move(*at);
    m_items.erase(at);
    if (entry->name) LeaveName(*entry->name, *entry);
    if (entry->id) LeaveID(*entry->id, *entry);
    return std::move(entry->item);
}

void SpecificationList::Clear()
{
    m_byName.Clear();
    m_byID.clear();
    m_numbers.clear();
    m_items.clear();
}

// To be found by name and identity as they are now; by the old ones it is until then, also when
// memory ends.
void SpecificationList::Follow(Entry& entry)
{
    const CDesignSpecification& item = *entry.item;
    if (FoldedName(item) != entry.name->Folded()) {
        auto& name = m_byName.Enter(FoldedName(item));
        name.value.Insert(entry);
        LeaveName(*std::exchange(entry.name, &name), entry);
    }
    if (!item.HasID(entry.id->first)) {
        auto& id = *m_byID.try_emplace(item.ID()).first;
        id.second.Insert(entry);
        LeaveID(*std::exchange(entry.id, &id), entry);
    }
}

void SpecificationList::LeaveName(ByName::Node& name, const Entry& entry)
{
    name.value.Erase(entry);
    if (!name.value.IsEmpty()) return;
    const std::wstring left(name.Folded());
    m_byName.Erase(name);
    FreeNumberOf(left);
}

void SpecificationList::LeaveID(ByID::value_type& id, const Entry& entry)
{
    id.second.Erase(entry);
    if (id.second.IsEmpty()) m_byID.erase(m_byID.find(id.first));
}

// Names

bool SpecificationList::IsTaken(const CString& name, const CDesignSpecification& by) const
{
    const Entries& found = Called(NoCaseText(name));
    return !found.IsEmpty() && (found.All().size() > 1 || found.First() != &by);
}

void SpecificationList::MakeNameUnique(CDesignSpecification& specification)
{
    const CString name = specification.Name();
    if (IsTaken(name, specification))
        specification.SetName(Numbered(name, FreeNumber(specification)).c_str());
}

// The first one; what was found taken once is not asked again, so that many of one name take no
// longer each than few.
int SpecificationList::FreeNumber(const CDesignSpecification& specification)
{
    const CString name = specification.Name();
    Numbers& numbers = m_numbers[NoCaseKey(name).Folded()];
    const auto isTaken = [&](int number) { return IsTaken(Numbered(name, number), specification); };
    while (!numbers.freed.empty()) {
        const int number = *numbers.freed.begin();
        if (!isTaken(number)) return number;
        numbers.freed.erase(numbers.freed.begin());
    }
    while (isTaken(numbers.next))
        ++numbers.next;
    return numbers.next;
}

// NAME(5) is called so no longer.
void SpecificationList::FreeNumberOf(const std::wstring& name)
{
    const size_t open = name.rfind(L'(');
    if (open == std::wstring::npos || !name.ends_with(L')')) return;
    const auto numbers = m_numbers.find(name.substr(0, open));
    if (numbers == m_numbers.end()) return;
    const std::string digits = ToUtf8(name.substr(open + 1, name.size() - open - 2));
    int number = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (read.ec == std::errc() && read.ptr == digits.data() + digits.size() && number > 0 &&
        number < numbers->second.next)
        numbers->second.freed.insert(number);
}

} // namespace designspec
