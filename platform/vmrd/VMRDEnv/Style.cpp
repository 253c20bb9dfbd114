#include "platform/vmrd/VMRDEnv/Style.h"

IMPLEMENT_DYNAMIC(CStyle, CObject)
