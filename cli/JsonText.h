// JSON for the commands' --json.
#pragma once

#include <nlohmann/json.hpp>

#include "cli/Project.h"

using Json = nlohmann::ordered_json;

Json ToJson(const CString& text);
// A value, or the rows that a member of `object` holds.
Json ToJson(const designspec::Field& field, const void* object);
// All fields of a criterion.
Json ToJson(const designspec::CriterionInfo& criterion, CDesignSpecification& specification);
// Name and identity.
Json ToJson(const CStyle& style);
// Those, and its file.
Json ToJson(const designspec::SpecificationFolder& folder, const CDesignSpecification& one);

void PrintJson(const Json& json);
