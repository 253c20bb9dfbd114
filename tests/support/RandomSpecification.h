// Specifications with arbitrary content: whatever a file can hold.
#pragma once

#include <random>

#include "base/CodePoint.h"
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
        return made;
    }

    // Trimmed text with everything that XML has to take care of.
    CString Text()
    {
        static constexpr std::u32string_view kChars =
            U"aZ09 <>&\"'\n\t\r/[]@=%{}()规范α\u00A0\u3000\U0001D11E\uFFFD";
        CString text;
        for (int i = Below(12); i > 0; --i)
            AppendCodePoint(kChars[static_cast<size_t>(Below(static_cast<int>(kChars.size())))],
                            text);
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
    // A table gets so many entries at least.
    void Fill(const Field& field, void* object, int least = 0)
    {
        switch (field.kind) {
        case FieldKind::Int:
            field.Of<std::int32_t>(object) = Int();
            break;
        case FieldKind::Double:
            field.Of<double>(object) = Double();
            break;
        case FieldKind::Bool:
            field.Of<BOOL>(object) = Below(2);
            break;
        case FieldKind::Text:
            field.Of<CString>(object) = Text();
            break;
        case FieldKind::IntTable:
            FillTable(
                field.Of<SpeedToIntValues>(object), [this] { return Int(); }, least);
            break;
        case FieldKind::DoubleTable:
            FillTable(
                field.Of<SpeedToDoubleValues>(object), [this] { return Double(); }, least);
            break;
        case FieldKind::Rows:
            FillRows(field, object);
            break;
        }
    }

    template <class Table, class Value> void FillTable(Table& table, Value value, int least)
    {
        table.RemoveAll();
        for (int i = least + Below(20); i > 0; --i)
            designspec::AddSpeed(table, Below(3) == 0 ? Int() : 10 * Below(12), value());
        designspec::SortDescending(table);
    }

    // Rows that are kept in the order of a gradient stand in it, some with equal ones. A gradient
    // without lengths would not be read.
    void FillRows(const Field& field, void* object)
    {
        while (field.RowCount(object) > 0)
            field.RemoveRow(object, 0);
        double gradient = -2;
        for (int i = Below(12); i > 0; --i) {
            void* row = field.InsertRow(object, field.RowCount(object));
            for (const Field& one : field.RowFields())
                Fill(one, row, 1);
            if (field.order != RowOrder::Ascending) continue;
            gradient += Below(4) / 3.0;
            field.RowFields()[0].Of<double>(row) = gradient;
        }
    }

    std::mt19937 m_engine;
};
