#include "base/Format.h"
#include "base/Text.h"
#include "cli/DifferenceText.h"
#include "library/FileMerge.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

namespace {

std::optional<Side> PreferredSide(const Arguments& arguments)
{
    if (!arguments.prefer) return std::nullopt;
    if (*arguments.prefer == "ours") return Side::Mine;
    if (*arguments.prefer == "theirs") return Side::Theirs;
    Refuse(Format(L"--prefer “%s”不是 ours 或 theirs", ToWide(*arguments.prefer)));
}

int CountConflicts(const FileMerge& merge)
{
    int count = 0;
    for (const MergedSpecification& one : merge.specifications)
        for (const Change& change : one.changes)
            count += change.by == ChangedBy::Conflict ? 1 : 0;
    return count;
}

Json JsonOf(const FileMerge& merge)
{
    Json all = Json::array();
    for (const MergedSpecification& one : merge.specifications)
        all.push_back({{"name", ToJson(one.name)},
                       {"id", ToJson(VMRDPub::GUIDToStr(one.id))},
                       {"changes", ListJson(one.changes)}});
    return {{"conflicts", CountConflicts(merge)}, {"specifications", all}};
}

void PrintAllConflicts(const FileMerge& merge)
{
    for (const MergedSpecification& one : merge.specifications) {
        if (!HasConflict(one.changes)) continue;
        PrintLine(Format(L"“%s”  %s", Printable(one.name), VMRDPub::GUIDToStr(one.id)));
        PrintConflicts(one.changes);
    }
}

} // namespace

Status RunMerge(const Arguments& arguments, Teller& teller)
{
    const std::optional<Side> prefer = PreferredSide(arguments);
    const CString ours = PathArgument(arguments.newName);
    const CString output = arguments.output ? PathArgument(*arguments.output) : ours;
    FileMerge merge =
        MergeFiles(PathArgument(arguments.name), ours, PathArgument(arguments.file), prefer);
    teller.Tell(merge.problems);
    if (!merge.done) throw CommandFailure{kFileFailed, L"没有合并"};
    if (arguments.json) PrintJson(JsonOf(merge));
    if (const int conflicts = CountConflicts(merge); conflicts > 0 && !prefer) {
        if (!arguments.json) PrintAllConflicts(merge);
        Complain(Format(L"%d 处冲突,没有写入文件", conflicts));
        return kNoAnswer;
    }
    const bool written = merge.root.SaveToFile(output.c_str());
    teller.Tell(merge.root.TakeProblems());
    return written ? kDone : kFileFailed;
}
