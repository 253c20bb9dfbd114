// Specifications with arbitrary content: whatever a file can hold.
#pragma once

#include <random>

#include "base/Text.h"
#include "model/Criteria.h"
#include "platform/mfc/String.h"

using namespace designspec;

class RandomSpecification {
public:
    explicit RandomSpecification(unsigned seed) : m_engine(seed) {}

    CDesignSpecification Make()
    {
        CDesignSpecification made;
        made.SetName(Text().c_str());
        for (const CriterionInfo& criterion : Criteria())
            for (const Field& field : criterion.fields)
                Fill(field, criterion.get(made));
        // Has no place in a file while the switch is on.
        if (made.TransitionCurveMinLen.NoTCBySuperelevation)
            made.TransitionCurveMinLen.NoTCByMinRad.RemoveAll();
        FillGradients(made.LonGradMaxLen);
        FillSuperElevations(made.SuperElevation);
        FillWidenings(made.CurveWidening);
        return made;
    }

    // Trimmed text with everything that XML has to take care of.
    CString Text()
    {
        static constexpr std::wstring_view kChars =
            L"aZ09 <>&\"'\n\t\r/[]@=%{}()规范α\u00A0\u3000\U0001D11E\uFFFD";
        CString text;
        for (int i = Below(12); i > 0; --i)
            text += kChars[static_cast<size_t>(Below(static_cast<int>(kChars.size())))];
        return Trim(text);
    }

    std::int32_t Int()
    {
        static constexpr std::int32_t kEnds[] = {INT32_MIN, INT32_MAX, -1, 0, 1};
        return Below(4) == 0 ? kEnds[Below(5)] : static_cast<std::int32_t>(m_engine());
    }

    double Double()
    {
        static constexpr double kEnds[] = {0.1, -0.0, 5e-324, 1.7976931348623157e308, 1.0 / 3};
        return Below(4) == 0 ? kEnds[Below(5)]
                             : std::normal_distribution<double>(0, 1000)(m_engine);
    }

    // 0 to limit - 1.
    int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_engine); }

private:
    void Fill(const Field& field, void* criterion)
    {
        switch (field.kind) {
        case FieldKind::Int:
            field.Of<std::int32_t>(criterion) = Int();
            break;
        case FieldKind::Double:
            field.Of<double>(criterion) = Double();
            break;
        case FieldKind::Bool:
            field.Of<BOOL>(criterion) = Below(2);
            break;
        case FieldKind::Text:
            field.Of<CString>(criterion) = Text();
            break;
        case FieldKind::IntTable:
            FillTable(field.Of<SpeedToIntValues>(criterion), [this] { return Int(); });
            break;
        case FieldKind::DoubleTable:
            FillTable(field.Of<SpeedToDoubleValues>(criterion), [this] { return Double(); });
            break;
        }
    }

    template <class Table, class Value> void FillTable(Table& table, Value value, int least = 0)
    {
        table.RemoveAll();
        for (int i = least + Below(20); i > 0; --i)
            AddSpeed(table, Below(3) == 0 ? Int() : 10 * Below(12), value());
        SortDescending(table);
    }

    void FillGradients(CDSLonGradMaxLen& criterion)
    {
        criterion.rows.RemoveAll();
        double grad = -2;
        for (int i = Below(12); i > 0; --i) {
            grad += Below(4) / 3.0; // some equal
            FillTable(
                criterion.rows.Add({grad, {}}).lengths, [this] { return Int(); }, 1);
        }
    }

    void FillSuperElevations(CDSSuperElevation& criterion)
    {
        criterion.definitions.RemoveAll();
        for (int i = Below(10); i > 0; --i) {
            auto& definition = criterion.definitions.Add({Below(8), {}});
            for (int j = Below(10); j > 0; --j) {
                auto& row = definition.rows.Add({Int(), {}});
                for (int k = Below(10); k > 0; --k)
                    row.ranges.Add({Int(), Int(), Int()});
            }
        }
    }

    void FillWidenings(CDSCurveWidening& criterion)
    {
        criterion.ranges.RemoveAll();
        for (int i = Below(20); i > 0; --i) {
            auto& range = criterion.ranges.Add({Int(), Int(), {}});
            for (int k = Below(10); k > 0; --k)
                range.widenings.Add({Text(), Double()});
        }
    }

    std::mt19937 m_engine;
};
