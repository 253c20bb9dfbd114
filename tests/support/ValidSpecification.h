// Specifications with arbitrary content that the editor's pages accept and keep to the last bit.
#pragma once

#include <set>

#include "base/Format.h"
#include "tests/support/RandomSpecification.h"

using namespace designspec;

class ValidSpecification {
public:
    explicit ValidSpecification(unsigned seed) : m_random(seed) {}

    CDesignSpecification Make(const wchar_t* name)
    {
        CDesignSpecification made;
        made.SetName(name);
        for (const CriterionInfo& criterion : Criteria())
            for (const Field& field : criterion.fields)
                Fill(field, criterion.get(made));
        FillLimits(made);
        FillTransition(made.TransitionCurveMinLen);
        FillGradients(made.LonGradMaxLen);
        FillMaxima(made.MaxSuperElev);
        FillSuperElevations(made);
        FillWidenings(made.CurveWidening);
        return made;
    }

    RandomSpecification& Random() { return m_random; }

private:
    // A number that one decimal can hold, as edit boxes show it.
    double OneDecimal(int leastTenths) { return (leastTenths + m_random.Below(200)) / 10.0; }

    // A limit of 0 is none, and has no source.
    void FillFactor(double& value, CString& source)
    {
        value = m_random.Below(3) == 0 ? 0 : OneDecimal(1);
        source = value > 0 ? m_random.Text() : CString();
    }

    void FillLimits(CDesignSpecification& made)
    {
        CDSBeelineLen& straight = made.BeelineLen;
        FillFactor(straight.MaxLen, straight.MaxLenCriterion);
        FillFactor(straight.MinLenInOneDir, straight.MinLenInOneDirCriterion);
        FillFactor(straight.MinLenReverseCurve, straight.MinLenReverseCurveCriterion);
        made.CircularCurveRad.MaxRad = m_random.Below(3) == 0 ? 0 : 1 + m_random.Below(20000);
    }

    // Different speeds, highest first.
    std::set<int, std::greater<>> Speeds(int least)
    {
        std::set<int, std::greater<>> speeds;
        const auto wanted = static_cast<size_t>(least + m_random.Below(8));
        while (speeds.size() < wanted)
            speeds.insert(m_random.Below(4) == 0 ? m_random.Int() : 5 * m_random.Below(30));
        return speeds;
    }

    void Fill(SpeedToIntValues& table, int least = 0)
    {
        table.RemoveAll();
        for (int speed : Speeds(least))
            designspec::AddSpeed(table, speed, m_random.Int());
    }
    void Fill(SpeedToDoubleValues& table)
    {
        table.RemoveAll();
        for (int speed : Speeds(0))
            designspec::AddSpeed(table, speed, m_random.Double());
    }

    // What has no rule of its own below.
    void Fill(const Field& field, void* criterion)
    {
        if (field.kind == FieldKind::Text) field.Of<CString>(criterion) = m_random.Text();
        if (field.kind == FieldKind::Double) field.Of<double>(criterion) = OneDecimal(0);
        if (field.kind == FieldKind::Int) field.Of<std::int32_t>(criterion) = m_random.Below(99);
        if (field.kind == FieldKind::Bool) field.Of<BOOL>(criterion) = m_random.Below(2);
        if (field.kind == FieldKind::IntTable) Fill(field.Of<SpeedToIntValues>(criterion));
        if (field.kind == FieldKind::DoubleTable) Fill(field.Of<SpeedToDoubleValues>(criterion));
    }

    void FillTransition(CTransitionCurveMinLen& transition)
    {
        Fill(transition.MinLen, 1);
        transition.NoTCBySuperelevation = m_random.Below(2);
        transition.NoTCByMinRad.RemoveAll();
        if (!transition.NoTCBySuperelevation) Fill(transition.NoTCByMinRad, 1);
    }

    // Gradients of one decimal, each with a length.
    void FillGradients(CDSLonGradMaxLen& criterion)
    {
        criterion.rows.RemoveAll();
        int tenths = 0;
        for (int i = m_random.Below(8); i > 0; --i) {
            tenths += 1 + m_random.Below(20);
            Fill(criterion.rows.Add({tenths / 10.0, {}}).lengths, 1);
        }
    }

    // Each speed has all three values.
    void FillMaxima(CDSMaxSuperElevation& criterion)
    {
        criterion.MaxSuperElevOnSFR = m_random.Below(2) * (1 + m_random.Below(25));
        criterion.MaxSuperElev.RemoveAll();
        criterion.GradualChangeRatio1.RemoveAll();
        criterion.GradualChangeRatio2.RemoveAll();
        for (int speed : Speeds(0)) {
            designspec::AddSpeed(criterion.MaxSuperElev, speed, 1 + m_random.Below(19));
            designspec::AddSpeed(criterion.GradualChangeRatio1, speed, m_random.Int());
            designspec::AddSpeed(criterion.GradualChangeRatio2, speed, m_random.Int());
        }
    }

    // A table for each maximum, in the order in which they come up, that of snow and ice first.
    void FillSuperElevations(CDesignSpecification& made)
    {
        CArray<int> maxima;
        if (made.MaxSuperElev.MaxSuperElevOnSFR > 0)
            maxima.push_back(made.MaxSuperElev.MaxSuperElevOnSFR);
        for (const auto& entry : made.MaxSuperElev.MaxSuperElev)
            if (std::find(maxima.begin(), maxima.end(), entry.value) == maxima.end())
                maxima.push_back(entry.value);
        made.SuperElevation.definitions.RemoveAll();
        for (int maximum : maxima) {
            auto& definition = made.SuperElevation.definitions.Add({maximum, {}});
            for (int speed : Speeds(1))
                FillRanges(definition.rows.Add({speed, {}}).ranges, maximum);
        }
    }

    // From the maximum down, each range beginning where the one before it ends.
    void FillRanges(GrowArray<SuperElevRange>& ranges, int maximum)
    {
        int radius = 1 + m_random.Below(300);
        for (int superElev = maximum; superElev > 0; superElev -= 1 + m_random.Below(3)) {
            const int next = radius + m_random.Below(300);
            ranges.Add({radius, next, superElev});
            radius = next;
        }
    }

    // Ranges that join, from the widest curves down. "Bus" has a value in each; the others each
    // in a stretch of them that begins no earlier than that of the one before.
    void FillWidenings(CDSCurveWidening& criterion)
    {
        criterion.IsGMinAndLEMaxMode = m_random.Below(2);
        criterion.ranges.RemoveAll();
        const int count = m_random.Below(8);
        for (int i = 0, radius = 1000; i < count; ++i) {
            const int min = radius - 1 - m_random.Below(100);
            criterion.ranges.Add({min, radius, {{L"Bus", m_random.Double()}}});
            radius = min;
        }
        int first = 0;
        for (int others = count > 0 ? m_random.Below(4) : 0; others > 0; --others) {
            const CString name = m_random.Text() + Format(L" %d类", others);
            first += m_random.Below(count - first);
            const int end = first + 1 + m_random.Below(count - first);
            for (int i = first; i < end; ++i)
                criterion.ranges[i].widenings.Add({name, m_random.Double()});
        }
    }

    RandomSpecification m_random;
};
