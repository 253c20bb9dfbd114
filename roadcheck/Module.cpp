#include "roadcheck/RoadCheckApp.h"

IMPLEMENT_ARX_ENTRYPOINT(CRoadCheckApp)
