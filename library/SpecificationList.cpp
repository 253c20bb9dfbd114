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
    NoCaseKey name; // under which it is to be found
    GUID id = {};
    Connection connection;
};

namespace {

CString Numbered(const CString& name, int number)
{
    return Format(L"%s(%d)", name, number);
}

} // namespace

// Those of that name or identity; null when there is none.
template <class Map, class Key>
const SpecificationList::Entries* SpecificationList::FindIn(const Map& map, const Key& key)
{
    const auto found = map.find(key);
    return found == map.end() || found->second.empty() ? nullptr : &found->second;
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
    const Entries* const found = FindIn(m_byID, id);
    return found ? found->begin()->second->item.get() : nullptr;
}

CDesignSpecification* SpecificationList::FindLast(const GUID& id) const
{
    const Entries* const found = FindIn(m_byID, id);
    return found ? found->rbegin()->second->item.get() : nullptr;
}

CDesignSpecification* SpecificationList::Find(const wchar_t* name) const
{
    const Entries* const found = FindIn(m_byName, NoCaseKey(name));
    return found ? found->begin()->second->item.get() : nullptr;
}

SpecificationList::Entry*
SpecificationList::EntryOf(const CDesignSpecification& specification) const
{
    const Entries* const found = FindIn(m_byID, specification.ID());
    if (!found) return nullptr;
    for (const auto& [number, entry] : *found)
        if (entry->item.get() == &specification) return entry;
    return nullptr;
}

int SpecificationList::IndexOf(const CDesignSpecification& specification) const
{
    const Entry* const entry = EntryOf(specification);
    if (!entry) return -1;
    const auto at =
        std::lower_bound(m_items.begin(), m_items.end(), entry->number,
                         [](const auto& item, size_t number) { return item->number < number; });
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
    entry.name = item.NameKey();
    entry.id = item.ID();
    m_byName[entry.name].emplace(entry.number, &entry);
    m_byID[entry.id].emplace(entry.number, &entry);
    entry.connection = item.ConnectIdentity([this, &entry] { Follow(entry); });
}

std::unique_ptr<CDesignSpecification> SpecificationList::TakeOut(int index)
{
    const auto at = m_items.begin() + index;
    const std::unique_ptr<Entry> entry = std::move(*at);
    m_items.erase(at);
    Leave(entry->name, entry->number);
    Leave(entry->id, entry->number);
    return std::move(entry->item);
}

void SpecificationList::Clear()
{
    m_byName.clear();
    m_byID.clear();
    m_numbers.clear();
    m_items.clear();
}

// To be found by name and identity as they are now; by the old ones it is until then, also when
// memory ends.
void SpecificationList::Follow(Entry& entry)
{
    const CDesignSpecification& item = *entry.item;
    if (!(entry.name == item.NameKey())) {
        NoCaseKey name = item.NameKey();
        m_byName[name].emplace(entry.number, &entry);
        std::swap(entry.name, name);
        Leave(name, entry.number);
    }
    if (!item.HasID(entry.id)) {
        GUID id = item.ID();
        m_byID[id].emplace(entry.number, &entry);
        std::swap(entry.id, id);
        Leave(id, entry.number);
    }
}

void SpecificationList::Leave(const NoCaseKey& name, size_t number)
{
    const auto found = m_byName.find(name);
    if (found == m_byName.end()) return;
    found->second.erase(number);
    if (!found->second.empty()) return;
    m_byName.erase(found);
    FreeNumberOf(name.Folded());
}

void SpecificationList::Leave(const GUID& id, size_t number)
{
    const auto found = m_byID.find(id);
    if (found == m_byID.end()) return;
    found->second.erase(number);
    if (found->second.empty()) m_byID.erase(found);
}

// Names

bool SpecificationList::IsTaken(const CString& name, const CDesignSpecification& by) const
{
    const Entries* const found = FindIn(m_byName, NoCaseKey(name));
    return found && (found->size() > 1 || found->begin()->second->item.get() != &by);
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
