// The specifications of a library, in the order in which they came. They are found by name and
// identity without a search, whatever they were called when they came.
#pragma once

#include <memory>
#include <memory_resource>
#include <set>
#include <unordered_map>
#include <vector>

#include "base/NoCaseMap.h"
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
    // Those of one name or identity, in the list's order: nearly always one.
    class Entries {
    public:
        bool IsEmpty() const { return m_all.empty(); }
        const std::vector<Entry*>& All() const { return m_all; }
        CDesignSpecification* First() const { return m_first; } // null when there is none
        void Insert(Entry& entry);
        void Erase(const Entry& entry);

    private:
        CDesignSpecification* m_first = nullptr; // beside the name: it is what is asked for
        std::vector<Entry*> m_all;
    };
    using ByName = NoCaseMap<Entries>;
    using ByID = std::pmr::unordered_map<GUID, Entries, GuidHash>;

    // Which of NAME(1), NAME(2) … are taken: all below `next`, but for those in `freed`, which are
    // looked at again.
    struct Numbers {
        int next = 1;
        std::set<int> freed;
    };

    const Entries& Called(const NoCaseText& name) const;
    const Entries& Called(const GUID& id) const;
    Entry* EntryOf(const CDesignSpecification& specification) const;
    void Enter(Entry& entry);
    void Follow(Entry& entry);
    void LeaveName(ByName::Node& name, const Entry& entry);
    void LeaveID(ByID::value_type& id, const Entry& entry);
    bool IsTaken(const CString& name, const CDesignSpecification& by) const;
    int FreeNumber(const CDesignSpecification& specification);
    void FreeNumberOf(const std::wstring& name);

    std::vector<std::unique_ptr<Entry>> m_items; // their numbers rise
    size_t m_nextNumber = 0;
    // What is searched stands close together, not among the specifications: on few pages. Larger
    // pieces of memory would leave more of it unused.
    std::pmr::unsynchronized_pool_resource m_pool{{.max_blocks_per_chunk = 64}};
    ByName m_byName;
    ByID m_byID{&m_pool};
    std::unordered_map<std::wstring, Numbers> m_numbers; // by folded name
};

} // namespace designspec
