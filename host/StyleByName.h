// Styles that options of the program name.
#pragma once

#include <QString>

#include "platform/vmrd/VMRDEnv/Styles.h"

// The style of that name, ignoring case, or GUID; of an empty text the default one, or the first.
// Null when there is none.
CStyle* FindStyle(const CStyles& styles, const QString& spec);
