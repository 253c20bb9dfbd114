// The callback of a page whose criterion is one member of a specification.
#pragma once

#include "model/Criteria.h"
#include "pages/framework/CriterionPage.h"

template <auto Member> class CDSPageCallback;

template <class Criterion, Criterion CDesignSpecification::*Member>
class CDSPageCallback<Member> : public CDSCallback {
public:
    explicit CDSPageCallback(CCriterionPage<Criterion>* page) : CDSCallback(page) {}

    void Load(const wchar_t* name) override
    {
        m_strName = name;
        if (const CDesignSpecification* found = Specification())
            CriterionPage().LoadStep(found->*Member);
        CriterionPage().ShowSources();
    }

    void Rename(const wchar_t* name) override { m_strName = name; }

    bool Validate(CString& message) override
    {
        if (!CriterionPage().CommitGrids(message)) return false;
        Criterion scratch;
        return CriterionPage().StoreStep(scratch, message);
    }

    bool Save() override
    {
        CDesignSpecification* const found = Specification();
        CString unused;
        return found && CriterionPage().StoreStep(found->*Member, unused);
    }

    bool RenameAndSave(const wchar_t* name) override
    {
        m_strName = name;
        return Save();
    }

    void OnShow() override
    {
        if (IsViewMode()) CriterionPage().MakeReadOnly();
    }

    void StoreInto(CDesignSpecification& specification) override
    {
        CString unused;
        CriterionPage().StoreStep(specification.*Member, unused);
    }

    void TakeFrom(const CDesignSpecification& specification) override
    {
        Criterion now;
        CString message;
        const Criterion& wanted = specification.*Member;
        const bool isWhole =
            CriterionPage().CommitGrids(message) && CriterionPage().StoreStep(now, message);
        if (isWhole && now == wanted) return;
        CriterionPage().InOneStep([&] { CriterionPage().LoadStep(wanted); });
        CriterionPage().ShowSources();
    }

    bool IsBuiltIn() override
    {
        Criterion now;
        CString unused;
        const bool isWhole = CriterionPage().StoreStep(now, unused);
        Criterion builtIn;
        for (const designspec::Field& field : Criterion::Fields())
            if (field.kind == designspec::FieldKind::Text) // a data source
                field.Of<CString>(&builtIn) = field.Of<CString>(&now);
        return isWhole && now == builtIn;
    }

    const designspec::CriterionInfo* Info() const override
    {
        std::size_t place = 0, own = 0;
        designspec::ForEachCriterion([&](const auto& one) {
            if constexpr (std::is_same_v<decltype(one.member), Criterion CDesignSpecification::*>)
                if (one.member == Member) own = place;
            ++place;
        });
        return &designspec::Criteria()[own];
    }

private:
    CCriterionPage<Criterion>& CriterionPage() const
    {
        return static_cast<CCriterionPage<Criterion>&>(*Page());
    }
};
