// The other ways in which a speed table could be asked, each with the same answers as the exported
// queries. They stand in a shared library of their own, so that each call crosses a library's
// border, as a call of the exported queries does, and none is inlined into the measuring loop.
#pragma once

#include <map>
#include <vector>

#include "base/Export.h"

#include "bench/Sql.h"
#include "model/SpeedTable.h"

template <class T> using SpeedTable = GrowArray<SpeedEntry<T>>;

// The C library's sort, with the difference of two speeds as the comparison.
struct AFX_EXT_CLASS QuickSort {
    template <class T> static void Sort(SpeedEntry<T>* entries, size_t count);
};

// The C++ library's sort, which inlines the comparison.
struct AFX_EXT_CLASS StdSort {
    template <class T> static void Sort(SpeedEntry<T>* entries, size_t count);
};

// A copy of the table, made and sorted for each query.
template <class T, class Sorting> class AFX_EXT_CLASS CopyAndSort {
public:
    explicit CopyAndSort(const SpeedTable<T>& table) : m_table(&table) {}
    bool Query(int speed, QueryValue::QueryMode mode, T& value) const;

private:
    const SpeedTable<T>* m_table;
};

// std::map, asked with lower_bound.
template <class T> class AFX_EXT_CLASS SpeedMap {
public:
    explicit SpeedMap(const SpeedTable<T>& table);
    bool Query(int speed, QueryValue::QueryMode mode, T& value) const;

private:
    std::map<int, T> m_values;
};

// A vector sorted once, asked with std::lower_bound.
template <class T> class AFX_EXT_CLASS SortedVector {
public:
    explicit SortedVector(const SpeedTable<T>& table);
    bool Query(int speed, QueryValue::QueryMode mode, T& value) const;

private:
    std::vector<SpeedEntry<T>> m_entries;
};

// An array sorted once. Neither its search nor its answer has a branch that the speed decides, so
// that no processor guesses wrong.
template <class T> class AFX_EXT_CLASS BranchFreeSearch {
public:
    explicit BranchFreeSearch(const SpeedTable<T>& table);
    bool Query(int speed, QueryValue::QueryMode mode, T& value) const;

private:
    std::vector<SpeedEntry<T>> m_entries;
};

// A table in an in-memory database, with the speed as its key and statements prepared once. A
// query runs no statement that its mode does not need.
template <class T> class AFX_EXT_CLASS SqlTable {
public:
    explicit SqlTable(const SpeedTable<T>& table);
    bool Query(int speed, QueryValue::QueryMode mode, T& value) const;

private:
    bool Find(const SqlStatement& statement, int speed, SpeedEntry<T>& entry) const;

    SqlDatabase m_database;
    SqlStatement m_atOrBelow;
    SqlStatement m_atOrAbove;
    SqlStatement m_exact;
};

extern template class CopyAndSort<int, QuickSort>;
extern template class CopyAndSort<double, QuickSort>;
extern template class CopyAndSort<int, StdSort>;
extern template class CopyAndSort<double, StdSort>;
extern template class SpeedMap<int>;
extern template class SpeedMap<double>;
extern template class SortedVector<int>;
extern template class SortedVector<double>;
extern template class BranchFreeSearch<int>;
extern template class BranchFreeSearch<double>;
extern template class SqlTable<int>;
extern template class SqlTable<double>;
