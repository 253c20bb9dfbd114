// JSON for the commands' --json.
#pragma once

#include <nlohmann/json.hpp>

#include "cli/Project.h"

using Json = nlohmann::ordered_json;

Json ToJson(const CString& text);
Json ToJson(const designspec::Field& field, const void* criterion); // a value, or a table's entries
// The fields of a criterion and its nested rows.
Json ToJson(const designspec::CriterionInfo& criterion, CDesignSpecification& specification);
// Name and identity.
Json ToJson(const CStyle& style);

void PrintJson(const Json& json);
