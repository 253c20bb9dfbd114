// The host's solid modeler. Design standards have no solids; modules start it nevertheless, as
// every module of the family does.
#pragma once

// True when the modeler runs. This host has none that could fail to.
inline bool acdbModelerStart()
{
    return true;
}
