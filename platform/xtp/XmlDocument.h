// The document behind an exchange: its tree, the text it was read from, and what was wrong with it.
#pragma once

#include <cstddef>
#include <string>
#include <utility>

#include <pugixml.hpp>

#include "base/Problem.h"

namespace designspec {

class XmlDocument {
public:
    pugi::xml_document tree;
    size_t found = 0;   // sections and values, see CXTPPropExchange::FoundCount
    std::string joined; // the text of the value read last, when it stood in parts

    // The file that problems name, and its text in UTF-8, which is only kept to count lines in.
    void SetSource(std::wstring file, std::string text);
    size_t SourceSize() const { return m_source.size(); }

    // 1-based; 0 for what is not from the source. Counts from the place asked for last: questions
    // come roughly in the document's order, and there may be many.
    int LineAt(std::ptrdiff_t offset);

    // The elements and attributes that begin behind one place and before another, or the end for
    // -1: at least as many as there are, for signs in texts count as well. Much quicker than a walk
    // over the tree, and nearly always exact.
    size_t CountNames(std::ptrdiff_t begin, std::ptrdiff_t end) const;

    // Keeps an error at that place of the source; after the first thousand only that there were
    // more.
    void AddProblem(std::ptrdiff_t offset, const std::wstring& text);
    Problems& AllProblems() { return m_problems; }
    Problems TakeProblems() { return std::exchange(m_problems, {}); }

private:
    Problems m_problems;
    std::wstring m_file;
    std::string m_source;
    size_t m_place = 0;
    int m_line = 1;
};

} // namespace designspec
