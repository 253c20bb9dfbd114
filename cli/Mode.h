// How a speed between two of a table is answered, as the command line says it.
#pragma once

#include <string>

#include "model/SpeedTable.h"

// nearest, upper, lower, interpolate or exact, ignoring case; fails with kWrongCall and these.
QueryValue::QueryMode ParseMode(const std::string& word);
