#include "library/SpecificationList.h"

#include <algorithm>
#include <ctime>
#include <random>

#include <gtest/gtest.h>

#include "base/Format.h"
#include "base/Text.h"
#include "library/SpecificationFolder.h"

using namespace designspec;

namespace {

// The list as its users see it, and beside it one that is gone through from end to end.
class SpecificationListTest : public testing::Test {
protected:
    CDesignSpecification& Add(const CDesignSpecification& specification)
    {
        const auto isTaken = [&](const CString& name) {
            return std::any_of(m_all.begin(), m_all.end(),
                               [&](const auto* one) { return EqualNoCase(one->Name(), name); });
        };
        CString name = specification.Name();
        for (int k = 1; isTaken(name); ++k)
            name = Format(L"%s(%d)", specification.Name(), k);
        CDesignSpecification& added =
            m_list.Add(std::make_unique<CDesignSpecification>(specification));
        EXPECT_EQ(added.Name(), name);
        m_all.push_back(&added);
        return added;
    }

    CDesignSpecification& Add(const wchar_t* name)
    {
        CDesignSpecification made;
        made.SetName(name);
        return Add(made);
    }

    void TakeOut(size_t index)
    {
        const auto taken = m_list.TakeOut(static_cast<int>(index));
        EXPECT_EQ(taken.get(), m_all[index]);
        m_all.erase(m_all.begin() + static_cast<std::ptrdiff_t>(index));
        EXPECT_EQ(m_list.IndexOf(*taken), -1);
    }

    template <class Is> CDesignSpecification* First(const Is& is) const
    {
        const auto found = std::find_if(m_all.begin(), m_all.end(), is);
        return found == m_all.end() ? nullptr : *found;
    }

    void ExpectFound(const CString& name) const
    {
        EXPECT_EQ(m_list.Find(name.c_str()),
                  First([&](const auto* one) { return EqualNoCase(one->Name(), name); }));
    }

    void ExpectAllFound() const
    {
        ASSERT_EQ(m_list.Count(), std::ssize(m_all));
        for (int i = 0; i < m_list.Count(); ++i) {
            const CDesignSpecification& one = *m_list.Item(i);
            EXPECT_EQ(&one, m_all[static_cast<size_t>(i)]);
            EXPECT_EQ(m_list.IndexOf(one), i);
            EXPECT_EQ(m_list.Find(one.ID()),
                      First([&](const auto* other) { return other->ID() == one.ID(); }));
            ExpectFound(one.Name());
        }
    }

    SpecificationFolder m_list{L""};
    std::vector<CDesignSpecification*> m_all;
};

} // namespace

TEST_F(SpecificationListTest, FindsTheFirstOfANameInAnyCase)
{
    CDesignSpecification& first = Add(L"Straße");
    Add(L"b").SetName(L"STRASSE");
    EXPECT_EQ(m_list.Find(L"strasse"), &first);
    EXPECT_EQ(m_list.Find(L"b"), nullptr);
    TakeOut(0);
    EXPECT_EQ(m_list.Find(L"strasse"), m_all[0]);
}

TEST_F(SpecificationListTest, FindsByTheNameGivenLast)
{
    CDesignSpecification& one = Add(L"a");
    one.SetName(L"b");
    EXPECT_EQ(m_list.Find(L"a"), nullptr);
    EXPECT_EQ(m_list.Find(L"B"), &one);
}

TEST_F(SpecificationListTest, FindsByTheIdentityThatWasAssignedOrLoaded)
{
    CDesignSpecification& one = Add(L"a");
    const GUID before = one.ID();
    const CDesignSpecification other;
    one = other;
    EXPECT_EQ(m_list.Find(before), nullptr);
    EXPECT_EQ(m_list.Find(other.ID()), &one);
    EXPECT_EQ(m_list.Find(L""), &one);

    CXTPPropExchangeXMLNode root(true, L"Style");
    ASSERT_TRUE(root.LoadFromBytes("<Style Name='c' ID='{AAAAAAAA-0000-4000-8000-00000000000A}'/>",
                                   L"test.xml"));
    one.DoPropExchange(&root);
    EXPECT_EQ(m_list.Find(other.ID()), nullptr);
    EXPECT_EQ(m_list.Find(one.ID()), &one);
    EXPECT_EQ(m_list.Find(L"C"), &one);
}

TEST_F(SpecificationListTest, OfOneIdentityFindsTheFirst)
{
    CDesignSpecification& first = Add(L"a");
    CDesignSpecification copy = first;
    copy.SetName(L"b");
    CDesignSpecification& second = Add(copy);
    EXPECT_EQ(m_list.Find(copy.ID()), &first);
    EXPECT_EQ(m_list.IndexOf(second), 1);
    EXPECT_EQ(m_list.IndexOf(copy), -1);
    TakeOut(0);
    EXPECT_EQ(m_list.Find(copy.ID()), &second);
}

TEST_F(SpecificationListTest, HearsNothingOfCopiesNorOfWhatWasTakenOut)
{
    CDesignSpecification& one = Add(L"a");
    CDesignSpecification copy = one;
    copy.SetName(L"b");
    EXPECT_EQ(m_list.Find(L"b"), nullptr);
    EXPECT_EQ(m_list.Find(L"a"), &one);
    const auto taken = m_list.TakeOut(0);
    taken->SetName(L"c");
    EXPECT_EQ(m_list.Find(L"a"), nullptr);
    EXPECT_EQ(m_list.Find(L"c"), nullptr);
    EXPECT_EQ(m_list.Find(taken->ID()), nullptr);
}

TEST_F(SpecificationListTest, TheFirstFreeNumberIsTakenAlsoWhenItWasTakenBefore)
{
    for (int i = 0; i < 6; ++i)
        Add(L"A");
    TakeOut(4); // A(4)
    TakeOut(2); // A(2)
    EXPECT_EQ(Add(L"a").Name(), L"a(2)");
    EXPECT_EQ(Add(L"a").Name(), L"a(4)");
    EXPECT_EQ(Add(L"a").Name(), L"a(6)");
    TakeOut(0);
    EXPECT_EQ(Add(L"a").Name(), L"a");
    EXPECT_EQ(Add(L"a(3)").Name(), L"a(3)(1)");
}

TEST_F(SpecificationListTest, ManyOfOneNameTakeNoLongerEachThanFew)
{
    CDesignSpecification made;
    made.SetName(L"规范");
    const auto start = std::clock();
    for (int i = 0; i < 5000; ++i)
        m_list.Add(std::make_unique<CDesignSpecification>(made));
    EXPECT_LT(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC, 5);
    EXPECT_EQ(m_list.Item(4999)->Name(), L"规范(4999)");
}

TEST_F(SpecificationListTest, OnlyANumberAsItIsGivenIsOne)
{
    for (int i = 0; i < 3; ++i)
        Add(L"a");
    for (const wchar_t* name : {L"a(01)", L"a()", L"a(-1)", L"a(1", L"a(99999999999)", L"(1)"}) {
        Add(name);
        TakeOut(3);
        EXPECT_EQ(Add(L"a").Name(), L"a(3)") << ToUtf8(name);
        TakeOut(3);
    }
}

TEST_F(SpecificationListTest, IsWhatGoingThroughItTellsWhateverHappens)
{
    const CString names[] = {L"a",       L"A",  L"b",     L"a(1)", L"A(2)",
                             L"a(1)(1)", L"路", L"路(1)", L"",     L"(1)"};
    std::mt19937 random(7);
    const auto below = [&](size_t limit) { return random() % limit; };
    for (int turn = 0; turn < 1000; ++turn) {
        const CString& name = names[below(std::size(names))];
        const size_t at = m_all.empty() ? 0 : below(m_all.size());
        const auto what = below(10);
        if (m_all.empty() || (what < 5 && m_all.size() < 16))
            Add(name.c_str());
        else if (what < 6)
            Add(*m_all[at]);
        else if (what < 7)
            m_all[at]->SetName(name.c_str());
        else if (what < 8)
            *m_all[at] = *m_all[below(m_all.size())];
        else
            TakeOut(at);
        if (turn % 10 == 0) ExpectAllFound();
        ExpectFound(name);
    }
}
