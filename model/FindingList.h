// Findings while they are collected: how their paths are made, and the parts that they come from.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "model/Criteria.h"
#include "model/Findings.h"

namespace designspec {

class FindingList {
public:
    void Error(const std::wstring& path, const std::wstring& text)
    {
        m_all.push_back({Severity::Error, path, text});
    }
    void Note(const std::wstring& path, const std::wstring& text)
    {
        m_all.push_back({Severity::Note, path, text});
    }
    void OnlyFromFile(const std::wstring& path, const std::wstring& text)
    {
        m_all.push_back({Severity::Note, path, text, true});
    }
    std::vector<Finding> Take() { return std::move(m_all); }

private:
    std::vector<Finding> m_all;
};

// A number for people, and as a key in a path.
std::wstring NumberText(double value);

// PATH[KEY], PATH[MIN~MAX].
std::wstring At(const std::wstring& path, const std::wstring& key);
std::wstring At(const std::wstring& path, double key);
std::wstring At(const std::wstring& path, double min, double max);

// "FIRST在车速 80 时为 150, 大于SECOND 120".
std::wstring AboveText(const std::wstring& what, double value, const std::wstring& other,
                       double otherValue);

// The values of a table; 32-bit whole numbers are exact in them.
using SpeedValues = std::vector<SpeedEntry<double>>;
template <class T> SpeedValues ValuesOf(const GrowArray<SpeedEntry<T>>& table)
{
    SpeedValues values;
    for (const auto& [speed, value] : table)
        values.push_back({speed, static_cast<double>(value)});
    return values;
}

// A table of a criterion and what it is called. Of two values for a speed the last one counts, as
// it does in the editor.
struct SpeedTable {
    std::wstring path;
    std::wstring label;
    std::map<int, double, std::greater<>> values; // by speed
};
SpeedTable TableOf(const CriterionInfo& criterion, const wchar_t* key, const void* object);

// A gradient (%) beyond what roads have.
void FindSteep(const std::wstring& path, const std::wstring& what, double gradient,
               FindingList& found);

// What is odd in one table by itself.
void FindInTable(const SpeedValues& values, const std::wstring& path, FindingList& found);
// The same in all tables of a criterion, and between them.
void FindInTables(const CriterionInfo& criterion, const void* object, FindingList& found);

// What is wrong or odd in a criterion besides its tables, each in the file of its name.
void Find(const CDSBeelineLen& criterion, const CDesignSpecification& all, FindingList& found);
void Find(const CDSCircularCurveRad& criterion, const CDesignSpecification& all,
          FindingList& found);
void Find(const CTransitionCurveMinLen& criterion, const CDesignSpecification& all,
          FindingList& found);
void Find(const CDSLonGrad& criterion, const CDesignSpecification& all, FindingList& found);
void Find(const CDSMaxResultantGrad& criterion, const CDesignSpecification& all,
          FindingList& found);
void Find(const CDSLonGradMaxLen& criterion, const CDesignSpecification& all, FindingList& found);
void Find(const CDSMaxSuperElevation& criterion, const CDesignSpecification& all,
          FindingList& found);
void Find(const CDSSuperElevation& criterion, const CDesignSpecification& all, FindingList& found);
void Find(const CDSCurveWidening& criterion, const CDesignSpecification& all, FindingList& found);
// The others are tables alone.
template <class Criterion> void Find(const Criterion&, const CDesignSpecification&, FindingList&) {}

} // namespace designspec
