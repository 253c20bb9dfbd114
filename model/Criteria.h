// The thirteen criteria of a specification, in their order in files.
#pragma once

#include <span>
#include <tuple>

#include "model/DesignSpecification.h"

namespace designspec {

// One criterion of the specification class: its member and what it is called.
template <class C> struct CriterionMember {
    C CDesignSpecification::*member;
    const wchar_t* name;  // of the member, and of its element in files
    const wchar_t* label; // for people
    const wchar_t* group; // of those that people look for in one place
};
// Not every compiler deduces it by itself.
template <class C>
CriterionMember(C CDesignSpecification::*, const wchar_t*, const wchar_t*, const wchar_t*)
    -> CriterionMember<C>;

inline constexpr auto kCriteria = std::tuple{
    CriterionMember{&CDesignSpecification::BeelineLen, L"BeelineLen", L"直线长度", L"平面"},
    CriterionMember{&CDesignSpecification::CircularCurveRad, L"CircularCurveRad", L"圆曲线半径",
                    L"平面"},
    CriterionMember{&CDesignSpecification::CurveMinLen, L"CurveMinLen", L"平曲线与圆曲线最小长度",
                    L"平面"},
    CriterionMember{&CDesignSpecification::SmallAngleCurveMinLen, L"SmallAngleCurveMinLen",
                    L"小转角平曲线最小长度", L"平面"},
    CriterionMember{&CDesignSpecification::TransitionCurveMinLen, L"TransitionCurveMinLen",
                    L"缓和曲线最小长度", L"平面"},
    CriterionMember{&CDesignSpecification::LonGrad, L"LonGrad", L"纵坡坡度", L"纵断"},
    CriterionMember{&CDesignSpecification::MaxResultantGrad, L"MaxResultantGrad", L"最大合成坡度",
                    L"纵断"},
    CriterionMember{&CDesignSpecification::LonGradMaxLen, L"LonGradMaxLen", L"纵坡最大坡长",
                    L"纵断"},
    CriterionMember{&CDesignSpecification::LonGradMinLen, L"LonGradMinLen", L"纵坡最小坡长",
                    L"纵断"},
    CriterionMember{&CDesignSpecification::VerticalCurveMinRadAndLen, L"VerticalCurveMinRadAndLen",
                    L"竖曲线最小半径和长度", L"纵断"},
    CriterionMember{&CDesignSpecification::MaxSuperElev, L"MaxSuperElev", L"超高规范", L"超高加宽"},
    CriterionMember{&CDesignSpecification::SuperElevation, L"SuperElevation", L"超高", L"超高加宽"},
    CriterionMember{&CDesignSpecification::CurveWidening, L"CurveWidening", L"加宽", L"超高加宽"},
};

// Calls `visit(member)` for each criterion in order.
template <class Visit> constexpr void ForEachCriterion(Visit visit)
{
    std::apply([&visit](const auto&... criterion) { (visit(criterion), ...); }, kCriteria);
}

// The same criteria for callers that choose one at run time.
struct CriterionInfo {
    const wchar_t* name;
    const wchar_t* label;
    const wchar_t* group;
    std::span<const Field> fields;
    void* (*get)(CDesignSpecification& specification); // what a Field's member function takes
};

// In file order.
AFX_EXT_API std::span<const CriterionInfo> Criteria();
// The criterion, or the field, of that name, ignoring case; null when there is none.
AFX_EXT_API const CriterionInfo* FindCriterion(std::wstring_view name);
AFX_EXT_API const Field* FindField(std::span<const Field> fields, std::wstring_view key);

} // namespace designspec
