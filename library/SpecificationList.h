// The specifications of a library, in the order in which they came. They are found by name and
// identity without a search, whatever they were called when they came.
#pragma once

#include <cstring>
#include <map>
#include <memory>
#include <set>
#include <unordered_map>
#include <vector>

#include "model/DesignSpecification.h"
#include "platform/windows/GuidHash.h"

namespace designspec {

class SpecificationList {
public:
    SpecificationList();
    ~SpecificationList();
    SpecificationList(const SpecificationList&) = delete;
    SpecificationList& operator=(const SpecificationList&) = delete;

    int Count() const { return static_cast<int>(m_items.size()); }
    // Null when there is none of that index, identity or name (ignoring case). Of several the
    // first, or the last one.
    CDesignSpecification* Item(int index) const;
    CDesignSpecification* Find(const GUID& id) const;
    CDesignSpecification* FindLast(const GUID& id) const;
    CDesignSpecification* Find(const wchar_t* name) const;
    // -1 when it is none of these.
    int IndexOf(const CDesignSpecification& specification) const;

    // Behind the others, under a name that none of them has.
    CDesignSpecification& Add(std::unique_ptr<CDesignSpecification> specification);
    // Calls it NAME(1), NAME(2) …, by the first that is free, when another is called NAME, ignoring
    // case. It need not be in the list.
    void MakeNameUnique(CDesignSpecification& specification);
    std::unique_ptr<CDesignSpecification> TakeOut(int index);
    void Clear();

private:
    struct Entry;
    using Entries = std::map<size_t, Entry*>; // by number, and so in the list's order

    // Which of NAME(1), NAME(2) … are taken: all below `next`, but for those in `freed`, which are
    // looked at again.
    struct Numbers {
        int next = 1;
        std::set<int> freed;
    };

    template <class Map, class Key> static const Entries* FindIn(const Map& map, const Key& key);
    Entry* EntryOf(const CDesignSpecification& specification) const;
    void Enter(Entry& entry);
    void Follow(Entry& entry);
    void Leave(const NoCaseKey& name, size_t number);
    void Leave(const GUID& id, size_t number);
    bool IsTaken(const CString& name, const CDesignSpecification& by) const;
    int FreeNumber(const CDesignSpecification& specification);
    void FreeNumberOf(const std::wstring& name);

    std::vector<std::unique_ptr<Entry>> m_items; // their numbers rise
    size_t m_nextNumber = 0;
    std::unordered_map<NoCaseKey, Entries, NoCaseKey::Hash> m_byName;
    std::unordered_map<GUID, Entries, GuidHash> m_byID;
    std::unordered_map<std::wstring, Numbers> m_numbers; // by folded name
};

} // namespace designspec
