// Icons that the family's modules share.
#pragma once

#include <QIcon>

#include "platform/mfc/String.h"

inline constexpr int kFamilyIconSize = 16; // pixels at 100 % scale

// The icon of that name from VMRDRes.dll in the install path, which is free again afterwards;
// empty, with a trace line, when there is no such file.
QIcon FamilyIcon(const CString& name);
