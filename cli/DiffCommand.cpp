#include "base/Text.h"
#include "cli/DifferenceText.h"
#include "cli/Operands.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

namespace {

CString NameAndId(const CDesignSpecification& one)
{
    return Printable(one.Name()) + L"  " + VMRDPub::GUIDToStr(one.ID());
}

} // namespace

Status RunDiff(const Arguments& arguments, Teller& teller)
{
    Operands operands(arguments, teller);
    const bool isOne = arguments.newName.empty();
    const CDesignSpecification builtIn;
    const CDesignSpecification& left = isOne ? builtIn : operands.Find(arguments.name);
    const CDesignSpecification& right = operands.Find(isOne ? arguments.name : arguments.newName);
    std::vector<Difference> differences = Differences(left, right);
    // The built-in limits have no name.
    if (isOne)
        std::erase_if(differences, [](const Difference& one) { return one.path == L"Name"; });
    if (arguments.json) {
        PrintJson({{"left", isOne ? Json() : ToJson(left)},
                   {"right", ToJson(right)},
                   {"differences", ListJson(differences)}});
    } else if (!differences.empty()) {
        PrintLine(L"--- " + (isOne ? CString(L"内置限值") : NameAndId(left)));
        PrintLine(L"+++ " + NameAndId(right));
        PrintDifferences(differences);
    }
    return differences.empty() ? kDone : kNoAnswer;
}
