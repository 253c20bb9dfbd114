// What the style manager tells of each specification besides its name.
#pragma once

#include <span>

#include "model/DesignSpecification.h"
#include "platform/vmrd/VMRDPrj/StyleCommand.h"

namespace designspec {

std::span<const StyleColumn> SpecificationColumns();
// One for each of them, of a specification of the library: when its file was changed, the types of
// roads that have limits of their own, how many values and tables tell no data source.
CStringArray SpecificationColumnTexts(const CDesignSpecification& specification);

} // namespace designspec
