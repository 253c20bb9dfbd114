// designspec verify: options, statuses, texts and reports.
#pragma once

#include "tests/cli/CommandTest.h"

class VerifyCommand : public CommandTest {
protected:
    VerifyCommand() { Done({"new", "公路"}); }

    // A road of a straight, a curve of that radius and a straight, with what stands below the root.
    std::string Write(const std::string& name, const std::string& radius,
                      const std::string& more = {}) const
    {
        m_folder.Write(name,
                       "<LandXML version=\"1.2\"><Alignments><Alignment name=\"主线\" "
                       "staStart=\"1000\"><CoordGeom><Line length=\"500\"/>"
                       "<Spiral length=\"100\" radiusStart=\"INF\" radiusEnd=\"" +
                           radius + "\" rot=\"cw\"/><Curve rot=\"cw\" radius=\"" + radius +
                           "\" length=\"200\"/><Spiral length=\"100\" radiusStart=\"" + radius +
                           "\" radiusEnd=\"INF\" rot=\"cw\"/><Line length=\"500\"/></CoordGeom>"
                           "</Alignment></Alignments>" +
                           more + "</LandXML>");
        return name;
    }

    // The lines of a report that tell findings.
    static int Findings(const std::string& out, const std::string& rule)
    {
        int count = 0;
        for (size_t at = out.find(" " + rule + " "); at != out.npos;
             at = out.find(" " + rule + " ", at + 1))
            ++count;
        return count;
    }
};
