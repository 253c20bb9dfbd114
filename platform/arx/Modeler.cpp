#include "platform/arx/Modeler.h"

namespace {
bool g_started = false;
}

bool acdbModelerStart()
{
    g_started = true;
    return g_started;
}

bool acdbModelerStarted()
{
    return g_started;
}
