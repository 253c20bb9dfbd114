// The rows of a list, for people and for programs.
#pragma once

#include "cli/JsonText.h"
#include "cli/TextTable.h"

struct Listing {
    TextTable table{false};
    Json json = Json::array();

    void Print(bool asJson) const;
};
