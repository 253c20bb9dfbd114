// Texts of road files, written to a folder and read.
#pragma once

#include "roads/Geometry.h"
#include "roads/RoadFileReading.h"
#include "tests/support/TemporaryFolder.h"

namespace roadcheck {

// A file with what stands below its root.
inline std::string LandXml(const std::string& content)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<LandXML xmlns=\"http://www.landxml.org/schema/LandXML-1.2\" version=\"1.2\">\n" +
           content + "\n</LandXML>\n";
}

inline std::string AlignmentText(const std::string& plan, const std::string& more = {},
                                 const std::string& attributes = "name=\"A\" staStart=\"0\"")
{
    return "<Alignments><Alignment " + attributes + ">" +
           (plan.empty() ? "" : "<CoordGeom>" + plan + "</CoordGeom>") + more +
           "</Alignment></Alignments>";
}

inline RoadFile ReadText(const std::string& bytes)
{
    const TemporaryFolder folder;
    return ReadRoadFile(folder.Write("road.xml", bytes));
}

// The texts of the problems, each with its line.
inline std::vector<std::wstring> Told(const RoadFile& file)
{
    std::vector<std::wstring> told;
    for (const Problem& one : file.problems)
        told.push_back(std::to_wstring(one.line) + L": " + one.text);
    return told;
}

} // namespace roadcheck
